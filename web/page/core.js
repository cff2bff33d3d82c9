// Loads the program, calls it when it asks for a turn, and paints when it has a frame.
//
// The program says when it wants its next turn: at a time (the one timer), at once (a message to
// this page), or not until an event. The program and its clock stand still while the browser asks
// the user for the microphone.

import createMurmelo from '../murmelo.js';

/** @typedef {import('../types/murmelo.js').Murmelo} Murmelo */
/** @typedef {import('../types/murmelo.js').ScreenTexts} ScreenTexts */

/** Name of a screen, as in ScreenNames. */
export const MENU = 'Options';
const ENDED = -2;
const TEXT_BYTES = 512;
const CALM = matchMedia('(prefers-reduced-motion: reduce)');
const CALM_MS = 250; // more than a slide between two effects takes
const FINGERS_ONLY = matchMedia('(any-pointer: coarse) and (not (any-hover: hover))');

export class Core {
    constructor() {
        this.page = /** @type {import('./main.js').Page} */ (/** @type {any} */ (null));
        this.program = /** @type {Murmelo} */ (/** @type {any} */ (null));
        /** @type {ScreenTexts} */
        this.texts = /** @type {any} */ ({ screen: '', language: 'en' });
        this.running = false;
        this.turns = 0;
        this.timer = 0;
        this.frame = 0;
        this.posted = false;
        this.isTurning = false;
        this.paintedMs = -Infinity;
        this.stoodStillMs = 0;
        this.standsStillSince = -1;
        this.channel = new MessageChannel();
        this.channel.port1.onmessage = () => {
            this.posted = false;
            this.turn();
        };
    }

    /** @param {import('./main.js').Page} page  the program calls the parts of it */
    async load(page) {
        this.page = page;
        const onAbort = () => this.running && page.showOver('broken'); // before the start, load() fails instead
        const data = fetch('murmelo.data').then((answer) => (answer.ok ? answer.arrayBuffer() : Promise.reject(answer.status)));
        this.program = await createMurmelo({ page, onAbort, print() {}, printErr() {} });
        this.unpack(await data);
    }

    /** The pictures and fonts: a line of JSON ([path, bytes] of each file), then the files. @param {ArrayBuffer} data */
    unpack(data) {
        const bytes = new Uint8Array(data);
        const lineEnd = bytes.indexOf(10);
        let at = lineEnd + 1;
        for (const [path, size] of JSON.parse(new TextDecoder().decode(bytes.subarray(0, lineEnd)))) {
            this.writeFile(path, bytes.subarray(at, at + size));
            at += size;
        }
    }

    /** @param {string} path @param {Uint8Array} bytes */
    writeFile(path, bytes) {
        this.program.FS.mkdirTree(path.slice(0, path.lastIndexOf('/')));
        this.program.FS.writeFile(path, bytes);
    }

    /** @returns {boolean} */
    begin() {
        this.running = this.program._murmeloBegin(Number(FINGERS_ONLY.matches)) === 1;
        return this.running;
    }

    pixels() {
        const at = this.program._murmeloPixels();
        return new Uint8ClampedArray(this.program.HEAPU8.buffer, at, 240 * 400 * 4);
    }

    turn() {
        if (!this.running || this.standsStillSince >= 0 || this.isTurning) {
            this.isTurning && this.post(); // a call from the program itself asks for a turn: it follows this one
            return;
        }
        clearTimeout(this.timer);
        this.timer = 0;
        this.turns++;
        this.isTurning = true;
        const ms = this.program._murmeloTurn();
        this.isTurning = false;
        if (ms === ENDED) {
            this.stop();
            this.page.showOver('ended');
        } else if (ms === 0) {
            this.post();
        } else if (ms > 0) {
            this.timer = setTimeout(() => this.turn(), ms);
        }
    }

    post() {
        if (!this.posted) {
            this.posted = true;
            this.channel.port2.postMessage(0);
        }
    }

    /** Stops for ever: the program has ended, or another tab has taken over. */
    stop() {
        this.running = false;
        clearTimeout(this.timer);
        cancelAnimationFrame(this.frame);
    }

    /** The program has a frame: paints it at the display's next refresh. */
    frameWaits() {
        if (this.frame === 0) {
            // With less motion only the first and the last picture of a slide are painted.
            const waitMs = CALM.matches ? this.paintedMs + CALM_MS - performance.now() : 0;
            const paint = () => this.paint();
            this.frame = waitMs > 0 ? setTimeout(paint, waitMs) : requestAnimationFrame(paint);
        }
    }

    paint() {
        this.frame = 0;
        if (!this.running) {
            return;
        }
        this.paintedMs = performance.now();
        const rows = this.program._murmeloPaint();
        if (rows >= 0) {
            this.page.picture.paint(rows & 0xffff, rows >> 16);
        }
        const texts = this.program._murmeloTextsIfNew();
        if (texts !== 0) {
            this.texts = JSON.parse(this.program.UTF8ToString(texts));
            this.page.showTexts();
        }
    }

    /** The program's clock in milliseconds; it stands still while the browser asks for the microphone. */
    now() {
        const now = this.standsStillSince >= 0 ? this.standsStillSince : performance.now();
        return now - this.stoodStillMs;
    }

    standStill() {
        if (this.standsStillSince < 0) {
            this.standsStillSince = performance.now();
        }
    }

    goOn() {
        if (this.standsStillSince >= 0) {
            this.stoodStillMs += performance.now() - this.standsStillSince;
            this.standsStillSince = -1;
        }
        this.turn();
    }

    /** Copies bytes into the program's room, its memory for data of the page (src/platform/web/main.cpp). @param {ArrayBufferView} view */
    fillRoom(view) {
        const at = this.program._murmeloRoom(view.byteLength);
        this.program.HEAPU8.set(new Uint8Array(view.buffer, view.byteOffset, view.byteLength), at);
    }

    /** Copies a text of less than TEXT_BYTES bytes into the program's room. @param {string} text @returns {number} its address */
    textAt(text) {
        const at = this.program._murmeloRoom(TEXT_BYTES);
        this.program.stringToUTF8(text, at, TEXT_BYTES);
        return at;
    }

    /** Calls a function of the program that returns a text. @param {string} call  its name @param {number[]} values  its arguments */
    answer(call, ...values) {
        return this.program.UTF8ToString(/** @type {any} */ (this.program)[call](...values));
    }

    /** Lets a finger tap on the middle of a place. @param {number[]} place  left, top, width, height in pixels of the picture */
    tapOn([left, top, width, height]) {
        const [x, y] = [left + width / 2, top + height / 2];
        this.program._murmeloTouch(0, 0, -1, x, y, performance.now());
        this.program._murmeloTouch(2, 0, -1, x, y, performance.now());
        this.turn();
    }

    /** The words of HostWords, by name. @param {string} language  a code ("de") @returns {Record<string, string>} */
    words(language) {
        return JSON.parse(this.answer('_murmeloWords', this.textAt(language)));
    }
}
