// SPDX-License-Identifier: MIT
// A browser that has one rate only.
window.AudioContext = class extends AudioContext {
    constructor(options) {
        if (options?.sampleRate) {
            throw new DOMException('only 44100 Hz', 'NotSupportedError');
        }
        super({ sampleRate: window.onlyRate ?? 44100 });
    }
};
