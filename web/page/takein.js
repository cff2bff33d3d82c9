// Takes in sound files: picked, dropped, shared with the page, or opened with it.

import { OWN } from './store.js';

const WAV_BYTES = 15 << 18; // a header and 20 seconds of 16-bit stereo at 48 kHz; the program's memory has no room for more
const LENGTH_IN_MS = 5000; // some browsers never report it
const DECODED_SECONDS = 20;
const DECODING_RATE = 48000;

export class TakeIn {
    /** @param {import('./main.js').Page} page @param {HTMLInputElement} input */
    constructor(page, input) {
        this.page = page;
        input.addEventListener('change', () => {
            this.use(input.files?.[0]);
            input.value = ''; // so that choosing the same file again is a change
        });
        addEventListener('dragover', (event) => event.preventDefault());
        addEventListener('drop', (event) => {
            event.preventDefault();
            this.use(event.dataTransfer?.files[0]);
        });
        /** @type {any} */ (window).launchQueue?.setConsumer(async (/** @type {any} */ launch) => {
            this.use(await launch.files[0]?.getFile());
        });
    }

    /** Uses a file that was shared with the page; the service worker has put it into its cache. */
    async useShared() {
        try {
            const cache = await caches.open(`${OWN} shared`);
            const answer = /** @type {Response} */ (await cache.match('shared'));
            await this.use(await answer.blob());
            await cache.delete('shared');
        } catch {
            this.page.tell('notShared'); // not a file, or the cache had no room for it
        }
    }

    /** @param {Blob | undefined} file */
    async use(file) {
        if (!file || !this.page.core.running) {
            return;
        }
        const refusal = await this.take(file).catch(() => 'noSoundFile');
        if (refusal) {
            this.page.tell(refusal);
        }
        this.page.core.turn();
    }

    /** @param {Blob} file @returns {Promise<string>} why it cannot be used, a name of HostWords; empty: it is used */
    async take(file) {
        const { core } = this.page;
        core.program._murmeloNameFile(core.textAt(/** @type {any} */ (file).name ?? ''));
        core.fillRoom(new Uint8Array(await file.slice(0, WAV_BYTES).arrayBuffer()));
        if (core.program._murmeloUseFile(file.size) === 1) {
            return ''; // a plain WAV file: the program reads it itself
        }
        const refusal = core.answer('_murmeloRefusal', file.size, await lengthOf(file));
        return refusal || ((await this.decode(await file.arrayBuffer())) ? '' : 'noSoundFile');
    }

    /** @param {ArrayBuffer} bytes @returns {Promise<boolean>} */
    async decode(bytes) {
        const context = new OfflineAudioContext(1, 1, DECODING_RATE);
        const sound = await context.decodeAudioData(bytes);
        const frames = Math.min(sound.length, DECODED_SECONDS * sound.sampleRate);
        const mean = new Float32Array(frames);
        for (let channel = 0; channel < sound.numberOfChannels; channel++) {
            const samples = sound.getChannelData(channel).subarray(0, frames);
            samples.forEach((sample, i) => (mean[i] += sample / sound.numberOfChannels));
        }
        this.page.core.fillRoom(mean);
        return this.page.core.program._murmeloUseFloats(sound.sampleRate, sound.duration) === 1;
    }
}

/** @param {Blob} file @returns {Promise<number>} in seconds; not finite if the browser does not know it */
async function lengthOf(file) {
    const audio = Object.assign(new Audio(), { preload: 'metadata', src: URL.createObjectURL(file) });
    await new Promise((resolve) => {
        Object.assign(audio, { onloadedmetadata: resolve, onerror: resolve });
        setTimeout(resolve, LENGTH_IN_MS);
    });
    URL.revokeObjectURL(audio.src);
    return audio.duration;
}
