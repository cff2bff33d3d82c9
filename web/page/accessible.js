// Makes strip and picture accessible: puts a real button over each thing that can be touched, and has the other texts read aloud.

import { find, newButton } from './dom.js';
import { HEIGHT, STRIP_HEIGHT, WIDTH } from './picture.js';

/** @typedef {import('./core.js').ScreenTexts} ScreenTexts */
/** @typedef {import('../types/murmelo.js').Entry} Entry */

const SPEAK_AFTER_MS = 200; // if a region changes twice in a short time, a screen reader may read only a part

/** The buttons over the strip, or over the picture. */
class Layer {
    /** @param {import('./core.js').Core} core @param {HTMLElement} box @param {number} top  in pixels of the picture @param {number} height */
    constructor(core, box, top, height) {
        this.core = core;
        this.box = box;
        this.top = top;
        this.height = height;
    }

    /** Shows a button for each entry; one with the same id and text is kept. @param {Entry[]} entries */
    show(entries) {
        const old = /** @type {HTMLElement[]} */ ([...this.box.children]);
        const buttons = entries.map((entry) => {
            const i = old.findIndex((button) => button.textContent === entry.text && button.id === (entry.id ?? ''));
            const tap = () => this.core.tapOn(/** @type {string} */ (button.dataset.place).split(' ').map(Number));
            const button = i < 0 ? newButton(entry.text, tap) : old.splice(i, 1)[0];
            this.place(button, entry);
            return button;
        });
        old.forEach((button) => button.remove());
        buttons.forEach((button, i) => {
            if (this.box.children[i] !== button) {
                this.box.insertBefore(button, this.box.children[i] || null);
            }
        });
    }

    /** @param {HTMLElement} button @param {Entry} entry */
    place(button, entry) {
        const place = entry.place.join(' ');
        if (button.dataset.place !== place) {
            button.dataset.place = place;
            const [x, y, w, h] = entry.place;
            const share = (/** @type {number} */ part, /** @type {number} */ whole) => `${(100 * part) / whole}%`;
            Object.assign(button.style, { left: share(x, WIDTH), top: share(y - this.top, this.height) });
            Object.assign(button.style, { width: share(w, WIDTH), height: share(h, this.height) });
        }
        button.id = entry.id ?? '';
        button.ariaCurrent = entry.isFocused ? 'true' : null;
        button.ariaDisabled = entry.isEnabled === false ? 'true' : null; // not `disabled`: the program tells why a tap does nothing
    }

    /** True if one of these buttons has the focus. */
    get hasKeyboard() {
        return this.box.contains(document.activeElement);
    }
}

export class Accessible {
    /** @param {import('./core.js').Core} core */
    constructor(core) {
        this.layer = find('accessible');
        this.picture = new Layer(core, this.layer, 0, HEIGHT);
        this.strip = new Layer(core, find('keys'), -STRIP_HEIGHT, STRIP_HEIGHT);
        this.message = find('message');
        this.live = find('live');
        this.progress = find('progress');
        this.screenSaid = '';
        this.focusSaid = '';
        this.timer = 0;
        this.hasFocus = false; // true: the focus belongs to the picture, even while it has no button
        this.sheet = '';
        /** What had the focus when the sheet was opened. @type {HTMLElement | null} */
        this.opener = null;
        find('picture').addEventListener('pointerdown', () => (this.hasFocus = false));
    }

    /** @param {ScreenTexts} texts @param {Record<string, string>} words */
    show(texts, words) {
        const { activeElement } = document;
        const { sheet, buttons } = texts.strip;
        const keyboard = this.picture.hasKeyboard || this.strip.hasKeyboard ? /** @type {HTMLElement} */ (activeElement) : null;
        this.hasFocus = this.picture.hasKeyboard || (this.hasFocus && activeElement === document.body);
        const arrows = texts.arrows.map((arrow, i) => ({ ...arrow, text: i === 0 ? words.previousEffect : words.nextEffect }));
        this.tell(texts.strip);
        const onSheet = buttons.filter((button) => button.place[1] >= 0);
        const ofScreen = [...arrows, ...texts.entries, ...texts.softKeys].filter((entry) => entry.text !== '');
        this.strip.show(buttons.filter((button) => button.place[1] < 0));
        this.picture.show(sheet ? onSheet : ofScreen);
        this.layer.role = sheet ? 'dialog' : texts.isQuestion ? 'alertdialog' : null;
        this.layer.ariaLabel = sheet || (texts.isQuestion ? texts.message : null);
        this.progress.hidden = texts.progressPercent < 0;
        this.progress.ariaValueNow = String(texts.progressPercent);
        this.progress.ariaLabel = texts.caption;
        const shown = sheet ? onSheet : texts.entries;
        const focused = shown.find((entry) => entry.isFocused)?.text ?? '';
        this.moveFocus(sheet, keyboard);
        this.keepFocus(focused !== this.focusSaid, texts.softKeys[1].text);
        const screen = sheet || [texts.title, texts.heading, texts.message, texts.caption].filter(Boolean).join('. ');
        this.speak(screen, focused);
    }

    /** Shows the strip's message and its action as elements of the page. @param {import('../types/murmelo.js').StripTexts} strip */
    tell({ line, isTelling, buttons }) {
        const [text, button] = /** @type {any} */ (this.message.children);
        const action = buttons.find(({ id }) => id === 'action');
        this.message.toggleAttribute('data-shown', isTelling);
        text.textContent = isTelling ? line : '';
        Object.assign(button, { hidden: !action, textContent: action?.text ?? '', onclick: () => action && this.strip.core.tapOn(action.place) });
    }

    /** Moves the focus into a sheet that opens, and back. @param {string} sheet @param {HTMLElement | null} keyboard  the button here that has the focus */
    moveFocus(sheet, keyboard) {
        if (sheet && !this.sheet && keyboard) {
            this.opener = keyboard;
            /** @type {HTMLElement} */ (this.layer.firstElementChild).focus();
        } else if (!sheet && this.opener) {
            this.opener.focus();
            this.opener = null;
        }
        this.hasFocus &&= this.picture.hasKeyboard || document.activeElement === document.body;
        this.sheet = sheet;
    }

    /** Follows the program's focus; from a removed button, goes to the middle key. @param {boolean} moves  it has moved @param {string} middleKey */
    keepFocus(moves, middleKey) {
        const buttons = /** @type {HTMLElement[]} */ ([...this.layer.children]);
        const current = buttons.find((button) => button.ariaCurrent);
        if (this.hasFocus && ((moves && current) || !this.picture.hasKeyboard)) {
            const wanted = current ?? buttons.find((button) => button.textContent === middleKey) ?? buttons[0];
            wanted?.focus();
        }
    }

    /** Has the new texts read aloud, except a focused button: screen readers read that themselves. @param {string} screen @param {string} focused */
    speak(screen, focused) {
        const isFocusNew = focused !== this.focusSaid && !this.picture.hasKeyboard;
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
