// SPDX-License-Identifier: MIT
// Simulates a browser that has only one sampling rate.
window.AudioContext = class extends AudioContext {
    constructor(options) {
        if (options?.sampleRate) {
            throw new DOMException('only 44100 Hz', 'NotSupportedError');
        }
        super({ sampleRate: window.onlyRate ?? 44100 });
    }
};
