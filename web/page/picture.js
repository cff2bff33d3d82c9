// Draws the phone's picture, and the strip above or beside it: enlarged sharply to a whole multiple, then shrunk smoothly to the size that fits.

import { find } from './dom.js';

export const WIDTH = 240;
export const STRIP_HEIGHT = 80;
export const HEIGHT = 320;

/** The strip or the picture, on a canvas of its own. */
class Part {
    /** @param {string} id @param {number} top  in pixels of the phone's picture; negative for the strip, which is above it @param {number} height */
    constructor(id, top, height) {
        this.canvas = /** @type {HTMLCanvasElement} */ (find(id));
        this.box = /** @type {HTMLElement} */ (this.canvas.parentElement);
        this.shown = /** @type {CanvasRenderingContext2D} */ (this.canvas.getContext('2d', { alpha: false }));
        this.top = top;
        this.height = height;
    }

    /** @param {HTMLCanvasElement} small  strip and picture @param {number} first @param {number} last  its rows, both inclusive */
    enlarge(small, first, last) {
        const begin = this.top + STRIP_HEIGHT;
        const from = Math.max(first, begin);
        const rows = Math.min(last, begin + this.height - 1) - from + 1;
        if (rows > 0) {
            const k = this.canvas.width / WIDTH;
            this.shown.imageSmoothingEnabled = false;
            this.shown.drawImage(small, 0, from, WIDTH, rows, 0, (from - begin) * k, WIDTH * k, rows * k);
        }
    }

    /** @param {Int32Array} place  left, top, width and height in device pixels @param {number} ratio  device / page pixels @param {HTMLCanvasElement} small */
    fit(place, ratio, small) {
        const [left, top, width, height] = [...place].map((size) => `${size / ratio}px`);
        Object.assign(this.box.style, { left, top, width, height });
        const k = Math.max(1, Math.ceil(place[2] / WIDTH - 0.01));
        if (this.canvas.width !== WIDTH * k || this.canvas.height !== this.height * k) {
            this.canvas.width = WIDTH * k;
            this.canvas.height = this.height * k;
            this.enlarge(small, 0, STRIP_HEIGHT + HEIGHT - 1);
        }
    }

    /** @param {MouseEvent} event @returns {{x: number, y: number}} in pixels of the phone's picture */
    placeOf(event) {
        const box = this.canvas.getBoundingClientRect();
        const x = ((event.clientX - box.left) * WIDTH) / box.width;
        return { x, y: this.top + ((event.clientY - box.top) * this.height) / box.height };
    }
}

export class Picture {
    /** @param {import('./core.js').Core} core @param {HTMLElement} stage  the element that strip and picture have to fit into */
    constructor(core, stage) {
        this.core = core;
        this.stage = stage;
        this.parts = [new Part('strip', -STRIP_HEIGHT, STRIP_HEIGHT), new Part('picture', 0, HEIGHT)];
        this.small = document.createElement('canvas');
        this.small.width = WIDTH;
        this.small.height = STRIP_HEIGHT + HEIGHT;
        this.pixels = /** @type {CanvasRenderingContext2D} */ (this.small.getContext('2d', { alpha: false }));
        this.image = /** @type {ImageData | null} */ (null);
    }

    /** @param {Uint8ClampedArray} bytes  the program's own memory */
    setSource(bytes) {
        this.image = new ImageData(bytes, WIDTH, STRIP_HEIGHT + HEIGHT);
        new ResizeObserver(() => this.fit()).observe(this.stage);
        addEventListener('resize', () => this.fit()); // the size of the device's pixels may have changed
        this.fit();
    }

    /** @param {number} first @param {number} last  rows, both inclusive */
    paint(first, last) {
        if (this.image) {
            this.pixels.putImageData(this.image, 0, 0, 0, first, WIDTH, last - first + 1);
            this.parts.forEach((part) => part.enlarge(this.small, first, last));
        }
    }

    fit() {
        const room = this.stage.getBoundingClientRect();
        const ratio = devicePixelRatio || 1;
        // In whole device pixels, so that the edges are sharp.
        const at = this.core.program._murmeloLayout(Math.floor(room.width * ratio), Math.floor(room.height * ratio));
        const places = new Int32Array(this.core.program.HEAPU8.buffer, at, 8);
        this.parts.forEach((part, i) => part.fit(places.subarray(4 * i, 4 * i + 4), ratio, this.small));
    }
}
