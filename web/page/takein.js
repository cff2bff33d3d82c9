// @ts-check
// Sound files from outside: picked, dropped, shared with the page, or opened with it.

const MAX_BYTES = 64 << 20; // of a file; decoded it takes several times as much
const MAX_WAV_BYTES = 6 << 20; // larger ones the browser decodes
const DECODED_SECONDS = 20;
const DECODING_RATE = 48000;

export class TakeIn {
    /** @param {import('./main.js').Page} page @param {HTMLInputElement} input */
    constructor(page, input) {
        this.page = page;
        this.input = input;
        input.addEventListener('change', () => {
            this.use(input.files?.[0]);
            input.value = ''; // the same file may be chosen again
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

    pick() {
        this.input.click();
    }

    /** A file that was shared with the page waits in the cache of the service worker. */
    async useShared() {
        const cache = await caches.open('murmelo-shared');
        const answer = await cache.match('shared');
        await cache.delete('shared');
        if (answer) {
            this.use(await answer.blob());
        }
    }

    /** @param {Blob | undefined} file */
    async use(file) {
        if (!file || !this.page.core.running) {
            return;
        }
        if (file.size > MAX_BYTES) {
            this.page.tell('fileTooLarge');
            return;
        }
        const bytes = await file.arrayBuffer();
        if (!this.useWav(bytes) && !(await this.decode(bytes))) {
            this.page.tell('noSoundFile');
        }
        this.page.core.turn();
    }

    /** The program reads plain WAV files itself, if they fit into its memory. @param {ArrayBuffer} bytes */
    useWav(bytes) {
        const isWav = new TextDecoder('latin1').decode(bytes.slice(0, 4)) === 'RIFF';
        if (!isWav || bytes.byteLength > MAX_WAV_BYTES) {
            return false;
        }
        this.page.core.fillRoom(new Uint8Array(bytes));
        return this.page.core.program._murmeloUseFile() === 1;
    }

    /** @param {ArrayBuffer} bytes @returns {Promise<boolean>} */
    async decode(bytes) {
        try {
            const context = new OfflineAudioContext(1, 1, DECODING_RATE);
            const sound = await context.decodeAudioData(bytes);
            const frames = Math.min(sound.length, DECODED_SECONDS * sound.sampleRate);
            const mean = new Float32Array(frames);
            for (let channel = 0; channel < sound.numberOfChannels; channel++) {
                const samples = sound.getChannelData(channel).subarray(0, frames);
                samples.forEach((sample, i) => (mean[i] += sample / sound.numberOfChannels));
            }
            this.page.core.fillRoom(mean);
            return this.page.core.program._murmeloUseFloats(sound.sampleRate) === 1;
        } catch {
            return false;
        }
    }
}
