// SPDX-License-Identifier: MIT
// Notes the page's calls of the browser. Simulates sharing, which a browser without a window cannot do.
window.noted = { microphones: [], shared: [], clips: [], asksToStay: 0 };
(() => {
    const devices = navigator.mediaDevices;
    const getUserMedia = devices.getUserMedia.bind(devices);
    devices.getUserMedia = async (constraints) => {
        const entry = { constraints, activated: navigator.userActivation.isActive };
        noted.microphones.push(entry);
        const stream = await getUserMedia(constraints);
        entry.tracks = stream.getTracks();
        return stream;
    };
    navigator.canShare = ({ files }) => files.every((file) => file instanceof File);
    navigator.share = async ({ files, title }) => {
        const bytes = new Uint8Array(await files[0].arrayBuffer());
        noted.shared.push({ name: files[0].name, type: files[0].type, title, bytes: Array.from(bytes) });
    };
    const persist = navigator.storage.persist.bind(navigator.storage);
    navigator.storage.persist = () => {
        noted.asksToStay++;
        return persist();
    };
    const createObjectURL = URL.createObjectURL;
    URL.createObjectURL = (blob) => {
        const clip = { type: blob.type };
        noted.clips.push(clip);
        blob.arrayBuffer().then((buffer) => {
            clip.bytes = Array.from(new Uint8Array(buffer));
        });
        return createObjectURL(blob);
    };
})();
