// SPDX-License-Identifier: MIT
// Collects what the microphone hears, at 16 kHz.
window.heard = [];
window.outcome = '';
document.querySelector('#record').addEventListener('click', async () => {
    try {
        const raw = {echoCancellation: false, noiseSuppression: false, autoGainControl: false};
        const stream = await navigator.mediaDevices.getUserMedia({audio: raw});
        const context = new AudioContext({sampleRate: 16000});
        await context.audioWorklet.addModule('collector.js');
        const collector = new AudioWorkletNode(context, 'collector', {numberOfOutputs: 0});
        collector.port.onmessage = ({data}) => window.heard.push(...data);
        context.createMediaStreamSource(stream).connect(collector);
        window.outcome = `hears at ${context.sampleRate}`;
    } catch (error) {
        window.outcome = error.name;
    }
});
