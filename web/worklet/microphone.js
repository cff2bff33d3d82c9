// Collects the microphone's samples and sends them to the page in pieces.

const PIECE_FRAMES = 512; // 32 ms at 16 kHz, which may be missing at the end of a recording

class Microphone extends AudioWorkletProcessor {
    constructor() {
        super();
        this.piece = new Float32Array(PIECE_FRAMES);
        this.filled = 0;
    }

    /** @param {Float32Array[][]} inputs @returns {boolean} */
    process(inputs) {
        const channel = inputs[0]?.[0]; // undefined while no microphone is connected
        if (channel) {
            this.collect(channel);
        }
        return true;
    }

    /** @param {Float32Array} channel */
    collect(channel) {
        for (let read = 0; read < channel.length;) {
            const count = Math.min(channel.length - read, PIECE_FRAMES - this.filled);
            this.piece.set(channel.subarray(read, read + count), this.filled);
            this.filled += count;
            read += count;
            if (this.filled === PIECE_FRAMES) {
                this.port.postMessage(this.piece, [this.piece.buffer]);
                this.piece = new Float32Array(PIECE_FRAMES);
                this.filled = 0;
            }
        }
    }
}

registerProcessor('microphone', Microphone);
