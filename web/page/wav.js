// @ts-check
// A sound as the bytes of a WAV file.

const HEADER_BYTES = 44;

/** @param {Int16Array} samples  one channel @param {number} rate @returns {Blob} */
export function toWav(samples, rate) {
    const header = new DataView(new ArrayBuffer(HEADER_BYTES));
    const dataBytes = 2 * samples.length;
    /** @param {number} at @param {string} text */
    const letters = (at, text) => [...text].forEach((letter, i) => header.setUint8(at + i, letter.charCodeAt(0)));
    letters(0, 'RIFF');
    header.setUint32(4, HEADER_BYTES - 8 + dataBytes, true);
    letters(8, 'WAVEfmt ');
    header.setUint32(16, 16, true);
    header.setUint16(20, 1, true);
    header.setUint16(22, 1, true);
    header.setUint32(24, rate, true);
    header.setUint32(28, 2 * rate, true);
    header.setUint16(32, 2, true);
    header.setUint16(34, 16, true);
    letters(36, 'data');
    header.setUint32(40, dataBytes, true);
    return new Blob([header, samples], { type: 'audio/wav' });
}

/** @param {Uint8Array} bytes  of a WAV file as the program saves it @returns {number} */
export function secondsOf(bytes) {
    const view = new DataView(bytes.buffer, bytes.byteOffset, bytes.byteLength);
    return bytes.length > HEADER_BYTES ? (bytes.length - HEADER_BYTES) / view.getUint32(28, true) : 0;
}
