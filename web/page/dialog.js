// The page's one dialog, which shows the list of sounds.

import { make, newButton } from './dom.js';

export class Dialog {
    /** @param {HTMLDialogElement} box @param {HTMLElement} message  shown at the end of the dialog while that is open */
    constructor(box, message) {
        this.box = box;
        this.message = message;
        this.paint = /** @type {() => void} */ (() => {});
        this.onClose = /** @type {() => void} */ (() => {});
        this.box.addEventListener('keydown', (event) => event.repeat && event.key === 'Enter' && event.preventDefault());
        this.box.addEventListener('close', () => {
            this.box.after(this.message);
            this.paint = () => {};
            this.onClose();
        });
    }

    /** @param {string} title @param {string} closeLabel @param {(body: HTMLElement) => void} fill @param {() => void} onClose */
    open(title, closeLabel, fill, onClose = () => {}) {
        this.onClose = onClose;
        this.paint = () => {
            const heading = make('h2', { id: 'dialog-title', textContent: title });
            const header = make('header', {}, heading, newButton(closeLabel, () => this.box.close()));
            const body = make('div');
            fill(body);
            this.box.replaceChildren(header, body, this.message);
        };
        this.paint();
        this.box.setAttribute('aria-labelledby', 'dialog-title');
        this.box.showModal();
    }

    /** Paints the open dialog again, and keeps the focus on the same button. */
    refresh() {
        const buttons = () => [...this.box.querySelectorAll('button')];
        const focused = buttons().findIndex((button) => button === document.activeElement);
        this.paint();
        focused >= 0 && (buttons()[focused] ?? buttons()[0])?.focus();
    }
}
