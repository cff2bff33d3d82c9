// SPDX-License-Identifier: MIT
// Keeps the browser's question about the microphone open until the test answers it.
window.question = { asked: 0, allow: () => {}, refuse: () => {} };
(() => {
    const devices = navigator.mediaDevices;
    const getUserMedia = devices.getUserMedia.bind(devices);
    devices.getUserMedia = (constraints) =>
        new Promise((resolve, reject) => {
            question.asked++;
            question.allow = () => getUserMedia(constraints).then(resolve, reject);
            question.refuse = () => reject(new DOMException('dismissed', 'NotAllowedError'));
        });
})();
