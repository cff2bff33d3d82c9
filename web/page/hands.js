// Pointers and keys. The program itself makes one finger of all pointers.

const [PRESS, MOVE, RELEASE] = [0, 1, 2];

export class Hands {
    /** @param {import('./core.js').Core} core @param {import('./picture.js').Picture} picture @param {Record<string, () => void>} commands  by key */
    constructor(core, picture, commands) {
        this.core = core;
        this.picture = picture;
        this.commands = commands;
        const canvas = picture.canvas;
        canvas.addEventListener('pointerdown', (event) => {
            if (event.button === 0) {
                canvas.setPointerCapture(event.pointerId);
                this.touch(PRESS, event);
            }
        });
        canvas.addEventListener('pointermove', (event) => event.buttons !== 0 && this.touch(MOVE, event));
        canvas.addEventListener('pointerup', (event) => this.touch(RELEASE, event));
        canvas.addEventListener('pointercancel', (event) => this.cancel(event));
        canvas.addEventListener('contextmenu', (event) => event.preventDefault());
        addEventListener('keydown', (event) => this.key(event));
    }

    /** @param {number} kind @param {PointerEvent} event */
    touch(kind, event) {
        if (!this.core.running) {
            return;
        }
        const { x, y } = this.picture.placeOf(event);
        this.core.program._murmeloTouch(kind, isFinger(event), event.pointerId, x, y, event.timeStamp);
        this.core.turn();
    }

    /** The browser needs the finger for itself, for a pinch. @param {PointerEvent} event */
    cancel(event) {
        if (this.core.running) {
            this.core.program._murmeloTouchCancelled(isFinger(event), event.pointerId);
            this.core.turn();
        }
    }

    /** @param {KeyboardEvent} event */
    key(event) {
        const target = /** @type {Element} */ (event.target);
        const forOthers = event.ctrlKey || event.altKey || event.metaKey || event.repeat;
        const pressesButton = (event.key === 'Enter' || event.key === ' ') && target.closest('button, a');
        if (!this.core.running || forOthers || pressesButton || document.querySelector('dialog[open]')) {
            return;
        }
        const command = this.commands[event.key.toLowerCase()];
        if (command || this.core.program._murmeloKey(this.core.textAt(event.key))) {
            command?.();
            event.preventDefault();
            this.core.turn();
        }
    }
}

/** @param {PointerEvent} event */
function isFinger(event) {
    return event.pointerType === 'touch' ? 1 : 0;
}
