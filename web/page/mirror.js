// @ts-check
// The picture in words: a real button over each thing that can be touched, and a voice for the rest.

import { newButton } from './dom.js';
import { HEIGHT, WIDTH } from './picture.js';

/** @typedef {import('./core.js').ScreenTexts} ScreenTexts */
/** @typedef {import('../types/murmelo.js').Entry} Entry */

const SPEAK_AFTER_MS = 200; // a region that changes twice at once may be read by halves

export class Mirror {
    /** @param {import('./core.js').Core} core @param {HTMLElement} layer @param {HTMLElement} live */
    constructor(core, layer, live) {
        this.core = core;
        this.layer = layer;
        this.live = live;
        this.spoken = '';
        this.timer = 0;
    }

    /** @param {ScreenTexts} texts @param {Record<string, string>} words */
    show(texts, words) {
        const arrows = texts.arrows.map((arrow, i) => ({
            ...arrow,
            text: i === 0 ? words.previousEffect : words.nextEffect,
        }));
        this.showButtons([...arrows, ...texts.entries, ...texts.softKeys].filter((entry) => entry.text !== ''));
        this.speak([texts.title, texts.heading, texts.message, texts.caption].filter(Boolean).join('. '));
    }

    /** Buttons stay while their text stays, and with them the focus. @param {Entry[]} entries */
    showButtons(entries) {
        const old = [...this.layer.children];
        const buttons = entries.map((entry) => {
            const i = old.findIndex((button) => button.textContent === entry.text);
            const button = i < 0 ? this.newButton(entry.text) : old.splice(i, 1)[0];
            this.place(/** @type {HTMLElement} */ (button), entry);
            return button;
        });
        old.forEach((button) => button.remove());
        buttons.forEach((button, i) => {
            if (this.layer.children[i] !== button) {
                this.layer.insertBefore(button, this.layer.children[i] || null);
            }
        });
    }

    /** @param {string} text */
    newButton(text) {
        const button = newButton(text, () => {
            const [x, y, w, h] = /** @type {string} */ (button.dataset.place).split(' ').map(Number);
            this.core.tap(x + w / 2, y + h / 2);
        });
        return button;
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
        if (entry.isFocused) {
            button.setAttribute('aria-current', 'true');
        } else {
            button.removeAttribute('aria-current');
        }
    }

    /** @param {string} text */
    speak(text) {
        if (text === this.spoken) {
            return;
        }
        this.spoken = text;
        this.live.textContent = '';
        clearTimeout(this.timer);
        this.timer = setTimeout(() => {
            this.live.textContent = text;
        }, SPEAK_AFTER_MS);
    }
}
