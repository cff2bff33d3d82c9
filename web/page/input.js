// Passes pointers and keys to the program, which itself makes one finger of all pointers.

const [PRESS, MOVE, RELEASE] = [0, 1, 2];
const isFinger = (/** @type {PointerEvent} */ event) => Number(event.pointerType === 'touch');

export class Input {
    /** @param {import('./core.js').Core} core @param {import('./picture.js').Picture} picture */
    constructor(core, picture) {
        this.core = core;
        for (const part of picture.parts) {
            const { canvas } = part;
            const touch = (/** @type {number} */ kind, /** @type {PointerEvent} */ event) => {
                const { x, y } = part.placeOf(event);
                this.send('_murmeloTouch', kind, isFinger(event), event.pointerId, x, y, event.timeStamp);
            };
            canvas.addEventListener('pointerdown', (event) => {
                if (event.button === 0) {
                    canvas.setPointerCapture(event.pointerId);
                    touch(PRESS, event);
                }
            });
            canvas.addEventListener('pointermove', (event) => {
                const { x, y } = part.placeOf(event);
                event.buttons ? touch(MOVE, event) : this.send('_murmeloPoint', x, y);
            });
            canvas.addEventListener('pointerleave', () => this.send('_murmeloPoint', -1, -1));
            canvas.addEventListener('pointerup', (event) => touch(RELEASE, event));
            // The browser uses the finger itself, for example for a pinch.
            canvas.addEventListener('pointercancel', (event) => this.send('_murmeloTouchCancelled', isFinger(event), event.pointerId));
            canvas.addEventListener('contextmenu', (event) => event.preventDefault());
        }
        addEventListener('keydown', (event) => this.key(event));
    }

    /** @param {'_murmeloTouch' | '_murmeloPoint' | '_murmeloTouchCancelled'} call @param {number[]} values */
    send(call, ...values) {
        if (this.core.running) {
            /** @type {any} */ (this.core.program)[call](...values);
            this.core.turn();
        }
    }

    /** @param {KeyboardEvent} event */
    key(event) {
        const target = /** @type {Element} */ (event.target);
        const forOthers = event.altKey || event.metaKey || event.repeat;
        const pressesButton = (event.key === 'Enter' || event.key === ' ') && target.closest('button, a');
        if (!this.core.running || forOthers || pressesButton || document.querySelector('dialog[open]')) {
            return;
        }
        const name = (event.ctrlKey ? 'Control+' : '') + event.key;
        if (this.core.program._murmeloKey(this.core.textAt(name))) {
            event.preventDefault();
            this.core.turn();
        }
    }
}
