// SPDX-License-Identifier: MIT
// Simulates a microphone that is open but never delivers a sample.
AudioContext.prototype.createMediaStreamSource = () => ({ connect() {} });
