// SPDX-License-Identifier: MIT
// Another program holds the microphone.
navigator.mediaDevices.getUserMedia = async () => {
    throw new DOMException('Could not start audio source', 'NotReadableError');
};
