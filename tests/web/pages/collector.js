// SPDX-License-Identifier: MIT
// Posts every block of the first channel.
class Collector extends AudioWorkletProcessor {
    process(inputs) {
        if (inputs[0].length > 0) {
            this.port.postMessage(inputs[0][0].slice());
        }
        return true;
    }
}
registerProcessor('collector', Collector);
