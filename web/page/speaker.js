// The speaker: one audio element for all sounds, those of the program and those from the list.

/** @typedef {import('./core.js').Core} Core */
/** @typedef {'_murmeloClipEnded' | '_murmeloClipFailed'} End */

const FULL = 100;
/** A silent WAV file: its header and 80 samples. Made here, because a player may keep the request for a file open until the page is closed. */
const SILENCE = [Uint8Array.from(atob('UklGRsQAAABXQVZFZm10IBAAAAABAAEAQB8AAIA+AAACABAAZGF0YaAAAAA='), (letter) => letter.charCodeAt(0)), new Uint8Array(160)];

export class Speaker {
    /** @param {Core} core @param {HTMLAudioElement} audio */
    constructor(core, audio) {
        this.core = core;
        this.audio = audio;
        /** Called when the current sound has ended; null: none plays. @type {((end: End) => void) | null} */
        this.done = null;
        this.ofProgram = false;
        this.url = '';
        audio.volume = 0.5;
        core.program._murmeloVolumeStays(Number(audio.volume !== 0.5)); // on some phones only their keys set it
        audio.addEventListener('ended', () => this.finish('_murmeloClipEnded'));
        audio.addEventListener('error', () => this.finish('_murmeloClipFailed'));
        audio.addEventListener('pause', () => {
            if (audio.paused && !audio.ended && !this.isPaused) {
                this.finish('_murmeloClipEnded'); // a telephone call, or the headset was unplugged
            }
        });
        this.isPaused = false;
        ['pointerup', 'keydown'].forEach((event) => addEventListener(event, () => this.unlock(), { once: true }));
    }

    /** Plays silence within an action of the user, so that the browser lets later clips begin by themselves. */
    unlock() {
        if (!this.done) {
            this.audio.src = URL.createObjectURL(new Blob(SILENCE, { type: 'audio/wav' }));
            this.audio.play().catch(() => {});
        }
    }

    /** Plays a clip of the program. @param {number} ticket @param {Uint8Array} file  WAV */
    play(ticket, file) {
        this.begin(file, (end) => {
            this.core.program[end](ticket);
            this.core.turn();
        });
        this.ofProgram = true;
    }

    /** Ends the current sound and plays a file. @param {Uint8Array} file  WAV @param {(end: End) => void} done  called at its end */
    begin(file, done) {
        this.finish('_murmeloClipEnded');
        this.done = done;
        this.isPaused = false;
        URL.revokeObjectURL(this.url);
        this.url = URL.createObjectURL(new Blob([file], { type: 'audio/wav' }));
        this.audio.src = this.url;
        this.audio.play().catch((error) => {
            if (error.name !== 'AbortError' && this.done === done) {
                this.finish('_murmeloClipFailed');
            }
        });
    }

    /** @param {End} end */
    finish(end) {
        const done = this.done;
        this.done = null;
        this.ofProgram = false;
        if (this.core.running) {
            done?.(end);
        }
    }

    pause() {
        this.isPaused = true;
        this.audio.pause();
    }

    resume() {
        this.isPaused = false;
        this.audio.play().catch(() => this.finish('_murmeloClipFailed'));
    }

    /** Stops the program's clip, without calling done. */
    stop() {
        if (this.ofProgram) {
            this.done = null;
            this.audio.pause();
        }
    }

    /** @param {number} volume  0 to 100 */
    setVolume(volume) {
        this.audio.volume = volume / FULL;
    }
}
