// One sentence at a time below the picture, with one action at most.

const SHOWN_MS = 6000;
const SHOWN_WITH_ACTION_MS = 12000;

/** @typedef {{text: string, label?: string, act?: () => void, stays?: boolean}} Note */

export class Message {
    /** @param {HTMLElement} box */
    constructor(box) {
        this.box = box;
        this.text = /** @type {HTMLElement} */ (box.querySelector('span'));
        this.button = /** @type {HTMLButtonElement} */ (box.querySelector('button'));
        this.timer = 0;
        this.act = () => {};
        this.text.addEventListener('click', () => this.hide());
        this.button.addEventListener('click', () => {
            const act = this.act;
            this.hide();
            act();
        });
    }

    /** Takes the place of the sentence before. @param {Note} note */
    show(note) {
        clearTimeout(this.timer);
        this.text.textContent = note.text;
        this.button.hidden = !note.label;
        this.button.textContent = note.label || '';
        this.act = note.act || (() => {});
        this.box.dataset.shown = '';
        this.shownMs = note.stays ? 0 : note.label ? SHOWN_WITH_ACTION_MS : SHOWN_MS;
        this.countDown();
    }

    /** Does not count while the page is hidden: the user could not read the message. */
    countDown() {
        clearTimeout(this.timer);
        if (this.shownMs && !document.hidden) {
            this.timer = setTimeout(() => this.hide(), this.shownMs);
        }
    }

    hide() {
        clearTimeout(this.timer);
        delete this.box.dataset.shown;
        this.button.hidden = true;
    }
}
