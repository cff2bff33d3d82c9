// The microphone: requested when a recording is offered, released after each recording.

/** @typedef {import('./core.js').Core} Core */

const WANTED_RATE = 16000;
const REMIND_AFTER_MS = 1000;

const RAW = { channelCount: 1, echoCancellation: false, noiseSuppression: false, autoGainControl: false };
const nameOf = (/** @type {MediaStream | null} */ stream) => stream?.getAudioTracks()[0]?.label ?? ''; // its name in the browser
const stopTracks = (/** @type {MediaStream} */ stream) => stream.getTracks().forEach((track) => track.stop());
const open = (/** @type {object} */ more) => navigator.mediaDevices.getUserMedia({ audio: { ...RAW, ...more } });

export class Microphone {
    /** @param {Core} core */
    constructor(core) {
        this.core = core;
        this.ticket = 0;
        this.listens = false;
        this.reminder = 0;
        this.stream = /** @type {MediaStream | null} */ (null);
        this.context = /** @type {AudioContext | null} */ (null);
        this.node = /** @type {AudioWorkletNode | null} */ (null);
    }

    /** @param {number} ticket */
    ask(ticket) {
        const { core } = this;
        this.ticket = ticket;
        core.standStill();
        this.reminder = setTimeout(() => core.program._murmeloRemindToAllow(), REMIND_AFTER_MS);
        this.connect(ticket).then(
            () => this.answer(ticket, ''),
            (error) => this.answer(ticket, error.name)
        );
    }

    /** Passes the answer to the program. @param {number} ticket @param {string} error  empty: the microphone was granted */
    answer(ticket, error) {
        if (ticket === this.ticket && this.core.running) {
            clearTimeout(this.reminder);
            const rate = this.context?.sampleRate ?? 0;
            this.core.program._murmeloMicrophoneAnswered(ticket, this.core.textAt(`${error}\n${nameOf(this.stream)}`), rate);
            this.core.goOn();
        }
    }

    /** @param {number} ticket */
    async connect(ticket) {
        if (!isSecureContext || !navigator.mediaDevices) {
            throw new DOMException('', 'InsecureError');
        }
        const stream = await this.chosen(await open({}));
        if (ticket !== this.ticket) {
            stopTracks(stream);
            return;
        }
        this.stream = stream;
        const [track] = stream.getAudioTracks();
        track.addEventListener('ended', () => this.lost(stream));
        track.addEventListener('mute', () => this.listens && this.lost(stream)); // for example a telephone call
        try {
            await this.listenAt(stream, WANTED_RATE);
        } catch {
            await this.closeContext();
            await this.listenAt(stream, 0); // this browser cannot change the rate: the program converts
        }
    }

    /** Opens the chosen microphone if it is there. Browsers tell the names only once one is open. @param {MediaStream} stream  of any microphone */
    async chosen(stream) {
        const name = this.core.answer('_murmeloMicrophone');
        const device = name !== nameOf(stream) && (await devices()).find(({ label }) => label === name);
        if (!name || !device) {
            return stream;
        }
        stopTracks(stream);
        return open({ deviceId: { exact: device.deviceId } }).catch(() => open({}));
    }

    /** Passes the names of the microphones to the program. */
    async list() {
        const names = (await devices().catch(() => [])).map(({ label }) => label);
        this.core.fillRoom(new TextEncoder().encode(names.join('\n')));
        this.core.program._murmeloMicrophones();
        this.core.turn();
    }

    /** @param {MediaStream} stream @param {number} rate  0: the browser's own */
    async listenAt(stream, rate) {
        const context = rate ? new AudioContext({ sampleRate: rate }) : new AudioContext();
        this.context = context;
        await context.audioWorklet.addModule(new URL('../worklet/microphone.js', import.meta.url).href);
        const node = new AudioWorkletNode(context, 'microphone', { numberOfOutputs: 0 });
        context.createMediaStreamSource(stream).connect(node);
        node.port.onmessage = (event) => this.heard(event.data, context.sampleRate);
        this.node = node;
        context.addEventListener('statechange', () => {
            if (this.listens && context.state !== 'running') {
                this.lost(stream); // interrupted
            }
        });
        context.resume(); // no await: without a device it would never end
    }

    start() {
        this.listens = true;
        this.context?.resume(); // it may have been interrupted since the user allowed it
    }

    /** @param {Float32Array} piece @param {number} rate */
    heard(piece, rate) {
        if (this.listens && this.core.running) {
            this.core.fillRoom(piece);
            this.core.program._murmeloHeard(rate) && this.core.turn();
        }
    }

    /** @param {MediaStream} stream */
    lost(stream) {
        if (stream === this.stream && this.core.running) {
            this.core.program._murmeloMicrophoneLost();
            this.core.turn();
        }
    }

    stop() {
        this.listens = false;
    }

    release() {
        this.stop();
        clearTimeout(this.reminder);
        this.ticket = 0;
        if (this.stream) {
            stopTracks(this.stream);
            this.stream = null;
        }
        this.closeContext();
    }

    async closeContext() {
        const context = this.context;
        this.context = null;
        this.node?.disconnect();
        this.node = null;
        await context?.close();
    }
}

/** The microphones that have names, without the browser's entries for its default. */
async function devices() {
    const all = (await navigator.mediaDevices?.enumerateDevices()) ?? [];
    return all.filter(({ kind, label, deviceId }) => kind === 'audioinput' && label && !['default', 'communications'].includes(deviceId));
}

