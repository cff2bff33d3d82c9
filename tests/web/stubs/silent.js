// SPDX-License-Identifier: MIT
// The microphone is open, and no sample ever comes from it.
AudioContext.prototype.createMediaStreamSource = () => ({ connect() {} });
