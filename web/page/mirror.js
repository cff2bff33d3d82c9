// The picture in words: a real button over each thing that can be touched, and a voice for the rest.

import { find, newButton } from './dom.js';
import { HEIGHT, WIDTH } from './picture.js';

/** @typedef {import('./core.js').ScreenTexts} ScreenTexts */
/** @typedef {import('../types/murmelo.js').Entry} Entry */

const SPEAK_AFTER_MS = 200; // a region that changes twice at once may be read by halves

export class Mirror {
    /** @param {import('./core.js').Core} core */
    constructor(core) {
        this.core = core;
        this.layer = find('mirror');
        this.live = find('live');
        this.progress = find('progress');
        this.screenSaid = '';
        this.focusSaid = '';
        this.timer = 0;
        this.hasFocus = false; // the user's keyboard is here, even while there is no button
        find('picture').addEventListener('pointerdown', () => (this.hasFocus = false));
    }

    /** @param {ScreenTexts} texts @param {Record<string, string>} words */
    show(texts, words) {
        const { activeElement } = document;
        this.hasFocus = this.layer.contains(activeElement) || (this.hasFocus && activeElement === document.body);
        const arrows = texts.arrows.map((arrow, i) => ({
            ...arrow,
            text: i === 0 ? words.previousEffect : words.nextEffect,
        }));
        this.showButtons([...arrows, ...texts.entries, ...texts.softKeys].filter((entry) => entry.text !== ''));
        this.layer.role = texts.isQuestion ? 'alertdialog' : null;
        this.layer.ariaLabel = texts.isQuestion ? texts.message : null;
        this.progress.hidden = texts.progressPercent < 0;
        this.progress.ariaValueNow = String(texts.progressPercent);
        this.progress.ariaLabel = texts.caption;
        const focused = texts.entries.find((entry) => entry.isFocused)?.text ?? '';
        this.keepFocus(focused !== this.focusSaid, texts.softKeys[1].text);
        const screen = [texts.title, texts.heading, texts.message, texts.caption].filter(Boolean).join('. ');
        this.speak(screen, focused);
    }

    /** Buttons stay while their text stays. @param {Entry[]} entries */
    showButtons(entries) {
        const old = /** @type {HTMLElement[]} */ ([...this.layer.children]);
        const buttons = entries.map((entry) => {
            const i = old.findIndex((button) => button.textContent === entry.text);
            const button = i < 0 ? newButton(entry.text, () => this.tap(button)) : old.splice(i, 1)[0];
            this.place(button, entry);
            return button;
        });
        old.forEach((button) => button.remove());
        buttons.forEach((button, i) => {
            if (this.layer.children[i] !== button) {
                this.layer.insertBefore(button, this.layer.children[i] || null);
            }
        });
    }

    /** @param {HTMLElement} button */
    tap(button) {
        const [x, y, w, h] = /** @type {string} */ (button.dataset.place).split(' ').map(Number);
        this.core.tap(x + w / 2, y + h / 2);
    }

    /** @param {HTMLElement} button @param {Entry} entry */
    place(button, entry) {
        const place = entry.place.join(' ');
        if (button.dataset.place !== place) {
            button.dataset.place = place;
            const [x, y, w, h] = entry.place;
            const share = (/** @type {number} */ part, /** @type {number} */ whole) => `${(100 * part) / whole}%`;
            Object.assign(button.style, { left: share(x, WIDTH), top: share(y, HEIGHT) });
            Object.assign(button.style, { width: share(w, WIDTH), height: share(h, HEIGHT) });
        }
        button.ariaCurrent = entry.isFocused ? 'true' : null;
    }

    /** The focus goes with the program's, and to the middle key from a button that has gone. @param {boolean} moves @param {string} middleKey */
    keepFocus(moves, middleKey) {
        const buttons = /** @type {HTMLElement[]} */ ([...this.layer.children]);
        const current = buttons.find((button) => button.ariaCurrent);
        if (this.hasFocus && ((moves && current) || !this.layer.contains(document.activeElement))) {
            const wanted = current ?? buttons.find((button) => button.textContent === middleKey) ?? buttons[0];
            wanted?.focus();
        }
    }

    /** What is new on the screen; of its focus a reader tells by itself where the keyboard is here. @param {string} screen @param {string} focused */
    speak(screen, focused) {
        const isFocusNew = focused !== this.focusSaid && !this.layer.contains(document.activeElement);
        const text = [screen !== this.screenSaid && screen, isFocusNew && focused].filter(Boolean).join('. ');
        const isEmptied = screen === '' && this.screenSaid !== '';
        this.screenSaid = screen;
        this.focusSaid = focused;
        if (text || isEmptied) {
            this.live.textContent = '';
            clearTimeout(this.timer);
            this.timer = setTimeout(() => (this.live.textContent = text), SPEAK_AFTER_MS);
        }
    }
}
