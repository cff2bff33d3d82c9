// SPDX-License-Identifier: MIT
// Simulates a microphone that another program uses.
navigator.mediaDevices.getUserMedia = async () => {
    throw new DOMException('Could not start audio source', 'NotReadableError');
};
