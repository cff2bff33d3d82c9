// The speaker: one audio element for everything that is played, by the program and from the list.

/** @typedef {import('./core.js').Core} Core */
/** @typedef {'_murmeloClipEnded' | '_murmeloClipFailed'} End */

const FULL = 100;
/** A WAV file of 80 samples, its head first. Without a request: a player may keep one open for as long as the page lives. */
const SILENCE = [Uint8Array.from(atob('UklGRsQAAABXQVZFZm10IBAAAAABAAEAQB8AAIA+AAACABAAZGF0YaAAAAA='), (letter) => letter.charCodeAt(0)), new Uint8Array(160)];

export class Voice {
    /** @param {Core} core @param {HTMLAudioElement} audio */
    constructor(core, audio) {
        this.core = core;
        this.audio = audio;
        /** What is played wants to know its end. @type {((end: End) => void) | null} */
        this.done = null;
        this.ofProgram = false;
        this.url = '';
        audio.volume = 0.5;
        core.program._murmeloVolumeStays(Number(audio.volume !== 0.5)); // some phones leave it to their keys
        audio.addEventListener('ended', () => this.finish('_murmeloClipEnded'));
        audio.addEventListener('error', () => this.finish('_murmeloClipFailed'));
        audio.addEventListener('pause', () => {
            if (audio.paused && !audio.ended && !this.isPaused) {
                this.finish('_murmeloClipEnded'); // a call, or the headset was unplugged
            }
        });
        this.isPaused = false;
        ['pointerup', 'keydown'].forEach((event) => addEventListener(event, () => this.unlock(), { once: true }));
    }

    /** Plays nothing within the user's gesture: later clips may then begin by themselves. */
    unlock() {
        if (!this.done) {
            this.audio.src = URL.createObjectURL(new Blob(SILENCE, { type: 'audio/wav' }));
            this.audio.play().catch(() => {});
        }
    }

    /** For the program. @param {number} ticket @param {Uint8Array} file  WAV */
    play(ticket, file) {
        this.begin(file, (end) => {
            this.core.program[end](ticket);
            this.core.turn();
        });
        this.ofProgram = true;
    }

    /** What is playing ends. @param {Uint8Array} file  WAV @param {(end: End) => void} done */
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

    /** The program wants silence. */
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
