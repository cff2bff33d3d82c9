// The phone's picture: drawn sharp at a whole multiple, shrunk smoothly to the size that fits.

export const WIDTH = 240;
export const HEIGHT = 320;

export class Picture {
    /** @param {HTMLElement} stage  the room there is @param {HTMLElement} phone @param {HTMLCanvasElement} canvas */
    constructor(stage, phone, canvas) {
        this.stage = stage;
        this.phone = phone;
        this.canvas = canvas;
        this.shown = /** @type {CanvasRenderingContext2D} */ (canvas.getContext('2d', { alpha: false }));
        this.small = document.createElement('canvas');
        this.small.width = WIDTH;
        this.small.height = HEIGHT;
        this.pixels = /** @type {CanvasRenderingContext2D} */ (this.small.getContext('2d', { alpha: false }));
        /** @type {ImageData | null} */
        this.image = null;
        new ResizeObserver(() => this.fit()).observe(stage);
        addEventListener('resize', () => this.fit()); // the device's pixels may be others now
        this.fit();
    }

    /** @param {Uint8ClampedArray} bytes  the program's own memory */
    setSource(bytes) {
        this.image = new ImageData(bytes, WIDTH, HEIGHT);
    }

    /** @param {number} first @param {number} last  rows, both inclusive */
    paint(first, last) {
        if (this.image) {
            this.pixels.putImageData(this.image, 0, 0, 0, first, WIDTH, last - first + 1);
            this.enlarge(first, last);
        }
    }

    /** @param {number} first @param {number} last */
    enlarge(first, last) {
        const k = this.canvas.width / WIDTH;
        const rows = last - first + 1;
        this.shown.imageSmoothingEnabled = false;
        this.shown.drawImage(this.small, 0, first, WIDTH, rows, 0, first * k, WIDTH * k, rows * k);
    }

    fit() {
        const room = this.stage.getBoundingClientRect();
        const scale = Math.max(0.25, Math.min(room.width / WIDTH, room.height / HEIGHT));
        const ratio = devicePixelRatio || 1;
        // A whole number of device pixels, so that nothing is blurred at the edges.
        this.phone.style.width = `${Math.floor(WIDTH * scale * ratio) / ratio}px`;
        this.phone.style.height = `${Math.floor(HEIGHT * scale * ratio) / ratio}px`;
        const k = Math.max(1, Math.ceil(scale * ratio - 0.01));
        if (this.canvas.width !== WIDTH * k) {
            this.canvas.width = WIDTH * k;
            this.canvas.height = HEIGHT * k;
            this.enlarge(0, HEIGHT - 1);
        }
    }

    /** @param {MouseEvent} event @returns {{x: number, y: number}} in pixels of the program's canvas */
    placeOf(event) {
        const box = this.canvas.getBoundingClientRect();
        return {
            x: ((event.clientX - box.left) * WIDTH) / box.width,
            y: ((event.clientY - box.top) * HEIGHT) / box.height,
        };
    }
}
