// @ts-check
// The speaker: one audio element for everything that is played.

/** @typedef {import('./core.js').Core} Core */

const FULL = 100;
const HEADER_BYTES = 44;
const SILENCE = 'sound/silence.wav';

export class Voice {
    /** @param {Core} core @param {HTMLAudioElement} audio @param {(word: string) => void} tell */
    constructor(core, audio, tell) {
        this.core = core;
        this.audio = audio;
        this.tell = tell;
        this.ticket = 0; // of the program's clip, 0 if none plays
        this.volume = FULL;
        this.url = '';
        audio.volume = 0.5;
        this.scales = audio.volume !== 0.5; // some phones leave the volume to their keys
        audio.addEventListener('ended', () => this.finish('_murmeloClipEnded'));
        audio.addEventListener('error', () => this.fail());
        audio.addEventListener('pause', () => {
            if (audio.paused && !audio.ended && !this.isPaused) {
                this.finish('_murmeloClipEnded'); // a call, or the headset was unplugged
            }
        });
        this.isPaused = false;
        const unlock = () => this.unlock();
        addEventListener('pointerup', unlock, { once: true });
        addEventListener('keydown', unlock, { once: true });
    }

    /** Plays nothing within the user's gesture: later clips may then begin by themselves. */
    unlock() {
        if (this.ticket === 0) {
            this.audio.src = SILENCE;
            this.audio.play().catch(() => {});
        }
    }

    /** @param {number} ticket @param {Uint8Array} file  WAV */
    play(ticket, file) {
        this.ticket = ticket;
        this.isPaused = false;
        this.load(this.scales ? this.scaled(file) : file);
        this.audio.play().catch((error) => {
            if (error.name !== 'AbortError' && this.ticket === ticket) {
                this.fail();
            }
        });
    }

    /** @param {Uint8Array} file @returns {Uint8Array} */
    scaled(file) {
        const samples = new Int16Array(file.buffer, HEADER_BYTES);
        samples.forEach((sample, i) => {
            samples[i] = (sample * this.volume) / FULL;
        });
        return file;
    }

    /** @param {Uint8Array} file */
    load(file) {
        URL.revokeObjectURL(this.url);
        this.url = URL.createObjectURL(new Blob([file], { type: 'audio/wav' }));
        this.audio.src = this.url;
    }

    fail() {
        if (this.ticket !== 0) {
            this.finish('_murmeloClipFailed');
            this.tell('cannotPlay'); // in the place of what the program says, in English only
        }
    }

    /** @param {'_murmeloClipEnded' | '_murmeloClipFailed'} call */
    finish(call) {
        const ticket = this.ticket;
        this.ticket = 0;
        if (ticket !== 0 && this.core.running) {
            this.core.program[call](ticket);
            this.core.turn();
        }
    }

    pause() {
        this.isPaused = true;
        this.audio.pause();
    }

    resume() {
        this.isPaused = false;
        this.audio.play().catch(() => this.fail());
    }

    stop() {
        this.ticket = 0;
        this.audio.pause();
    }

    /** @param {number} volume  0 to 100 */
    setVolume(volume) {
        this.volume = volume;
        this.audio.volume = volume / FULL;
    }
}
