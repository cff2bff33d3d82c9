// SPDX-License-Identifier: MIT
// Replaces the page's clock and microphone before its own scripts begin: time passes only when the test
// says so, and jumps to what is due next, as in murmelo-headless. `player.play(script)` carries out some of
// that program's commands, and takes the same pictures.
(() => {
    const DISPLAY_SCALE = 2; // scripts use positions on the display, which is twice the canvas
    const CANVAS_TOP = 160;
    const SOFT_KEYS_MIDDLE = 780;
    const SOFT_KEYS = { left: 80, middle: 240, right: 400 };
    const NAVIGATION = { up: 'ArrowUp', down: 'ArrowDown', left: 'ArrowLeft', right: 'ArrowRight', middle: 'Enter' };
    const RATE_PER_MS = 16;
    const UNTIL_MS = 60000;

    let nowMs = 0;
    let realMs = 0;
    let handMs = 0; // touches are so far apart that none is the second of a double tap
    let lastTimer = 0;
    const timers = new Map();
    performance.now = () => (realMs += 10); // the time of a turn is used up after one step, so that every screen is seen
    window.setTimeout = (act, ms = 0) => {
        timers.set(++lastTimer, { dueMs: nowMs + Math.max(0, Math.ceil(ms)), act });
        return lastTimer;
    };
    window.clearTimeout = (timer) => timers.delete(timer);

    const shots = {};
    let watched = null;
    let voice = new Float32Array(0);
    let page = null;

    /** Paints at once instead of at the window's next frame, and takes the watched picture. */
    function paintNow() {
        if (page.core.frame !== 0) {
            cancelAnimationFrame(page.core.frame);
            page.core.paint();
        }
        if (watched && page.core.texts.screen === watched.screen) {
            shots[watched.name] = picture();
            watched = null;
        }
    }

    function picture() {
        return page.picture.pixels.getImageData(0, 0, 240, 400).data;
    }

    /** Delivers the voice to the microphone as time goes on, a millisecond at a time. */
    function listen(microphone) {
        let heard = 0;
        const hear = () => {
            if (microphone.listens) {
                const piece = new Float32Array(RATE_PER_MS);
                piece.set(voice.subarray(heard, heard + RATE_PER_MS));
                heard += RATE_PER_MS;
                window.setTimeout(hear, 1);
                microphone.heard(piece, 1000 * RATE_PER_MS);
            }
        };
        window.setTimeout(hear, 1);
    }

    /** Calls how(part) for the page's part of that name, now or as soon as it is set, and whenever it is replaced. */
    function change(name, how) {
        let part = page[name];
        if (part) {
            how(part);
        }
        Object.defineProperty(page, name, {
            get: () => part,
            set: (made) => {
                part = made;
                how(part);
            },
        });
    }

    function take(made) {
        page = made;
        change('core', (core) => {
            const turn = core.turn.bind(core);
            core.now = () => nowMs;
            core.turn = () => {
                turn();
                paintNow();
            };
        });
        change('microphone', (microphone) => {
            const start = microphone.start.bind(microphone);
            microphone.connect = async () => {
                microphone.context = { sampleRate: 1000 * RATE_PER_MS, resume() {}, close() {} };
            };
            microphone.start = () => {
                start();
                listen(microphone);
            };
        });
        // A clip ends after its length.
        change('speaker', (speaker) => {
            speaker.begin = (file, done) => {
                const ended = () => speaker.done === done && speaker.finish('_murmeloClipEnded');
                speaker.done = done;
                window.setTimeout(ended, (file.length - 44) / 16);
            };
        });
    }
    Object.defineProperty(window, 'murmelo', { get: () => page, set: take });

    /** Waits until nothing is due now: no message and no frame. */
    async function settle() {
        do {
            await new Promise((resolve) => {
                const channel = new MessageChannel();
                channel.port1.onmessage = resolve;
                channel.port2.postMessage(0);
            });
        } while (page.core.posted || page.core.frame !== 0);
    }

    async function advance(ms, isOver) {
        const endMs = nowMs + ms;
        await settle();
        while (!isOver()) {
            const [timer, next] = [...timers].sort((one, other) => one[1].dueMs - other[1].dueMs)[0] ?? [];
            if (!next || next.dueMs > endMs) {
                nowMs = endMs;
                return;
            }
            timers.delete(timer);
            nowMs = Math.max(nowMs, next.dueMs);
            next.act();
            await settle();
        }
    }

    function touch(kind, x, y) {
        handMs += 1000;
        page.core.program._murmeloTouch(kind, 0, -1, x / DISPLAY_SCALE, (y - CANVAS_TOP) / DISPLAY_SCALE, handMs);
    }

    function tap(x, y) {
        touch(0, x, y);
        touch(2, x, y);
    }

    function swipe(direction) {
        const step = direction === 'left' ? -40 : 40;
        const y = (CANVAS_TOP + 800) / 2;
        let x = 240 - 3 * step;
        touch(0, x, y);
        for (let i = 0; i < 6; i++) {
            x += step;
            touch(1, x, y);
        }
        touch(2, x, y);
    }

    const COMMANDS = {
        tap: (x, y) => tap(Number(x), Number(y)),
        key: (which) => tap(SOFT_KEYS[which], SOFT_KEYS_MIDDLE),
        swipe,
        navigate: (key) => page.core.program._murmeloKey(page.core.textAt(NAVIGATION[key])),
        save: () => page.core.program._murmeloKey(page.core.textAt('s')),
        wait: (ms) => advance(Number(ms), () => false),
        take: async () => page.takeIn.use(new File([fileOf(voice)], 'voice.wav')),
        mic: () => {},
        remove: (name) => page.core.program.FS.unlink('/home/Murmelo/' + name),
        storage: (bytes) => {
            page.freeBytes = Number(bytes);
        },
        shot: (name) => {
            shots[name] = picture();
        },
        watch: (screen, name) => {
            watched = { screen, name };
        },
        until: async (screen) => {
            await advance(UNTIL_MS, () => page.core.texts.screen === screen);
            if (page.core.texts.screen !== screen) {
                throw new Error(`expected screen ${screen}, found ${page.core.texts.screen}`);
            }
        },
    };

    function bytesOf(base64) {
        return Uint8Array.from(atob(base64), (letter) => letter.charCodeAt(0));
    }

    /** A WAV file of 16 kHz and 16 bits. */
    function fileOf(samples) {
        const view = new DataView(new ArrayBuffer(44 + 2 * samples.length));
        const words = ['RIFF', 36 + 2 * samples.length, 'WAVE', 'fmt ', 16, 0x10001, 16000, 32000, 0x100002, 'data', 2 * samples.length];
        words.forEach((word, i) => {
            const value = typeof word === 'number' ? word : [...word].reduce((sum, letter, at) => sum + letter.charCodeAt(0) * 256 ** at, 0);
            view.setUint32(4 * i, value, true);
        });
        samples.forEach((sample, i) => view.setInt16(44 + 2 * i, Math.round(sample * 32768), true));
        return view.buffer;
    }

    window.player = {
        shots,
        /** Rows of a picture that differ from a PNG of murmelo-headless: of the display, which is twice as large, or of
            the canvas, which has 5, 6 and 5 bits to a pixel and no strip above. The strip's rows are 0 to 79.
            @param withStrip  true if those rows are compared too */
        rowsUnlike: async (name, png, withStrip) => {
            const blob = new Blob([bytesOf(png)], { type: 'image/png' });
            const image = await createImageBitmap(blob, { colorSpaceConversion: 'none', premultiplyAlpha: 'none' });
            const whole = new OffscreenCanvas(image.width, image.height).getContext('2d');
            whole.drawImage(image, 0, 0);
            const scale = image.width / 240;
            const first = withStrip ? 0 : 80;
            const top = image.height - (400 - first) * scale;
            const ignored = scale === 1 ? [7, 3, 7] : [0, 0, 0]; // low bits that RGB565 does not have
            const expected = whole.getImageData(0, top, image.width, (400 - first) * scale).data;
            const rows = new Set(image.width === 480 && image.height !== 800 ? [-1] : []);
            for (let at = first * 240; at < 240 * 400; at++) {
                const [x, y] = [at % 240, Math.floor(at / 240)];
                const other = 4 * scale * ((y - first) * image.width + x);
                for (let channel = 0; channel < 3; channel++) {
                    if ((shots[name][4 * at + channel] ^ expected[other + channel]) & ~ignored[channel]) {
                        rows.add(y);
                    }
                }
            }
            return [...rows];
        },
        /** @param base64  16-bit samples of 16 kHz: what the microphone records, and what "take" opens as a file */
        setVoice: (base64) => {
            voice = Float32Array.from(new Int16Array(bytesOf(base64).buffer), (sample) => sample / 32768);
        },
        play: async (lines) => {
            for (const line of lines) {
                const [command, ...words] = line.split(' ');
                await settle();
                await COMMANDS[command](...words);
                page.core.turn();
                await settle();
            }
        },
    };
})();
