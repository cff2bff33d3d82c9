// SPDX-License-Identifier: MIT
// Counts a page's timers, frames and messages, which keep the processor awake.
window.counted = { timers: 0, waiting: 0, frames: 0, messages: 0 };
(() => {
    const { setTimeout, clearTimeout, setInterval, requestAnimationFrame } = window;
    const live = new Set();
    window.setTimeout = (act, ...rest) => {
        counted.timers++;
        const timer = setTimeout(() => {
            live.delete(timer);
            counted.waiting = live.size;
            act();
        }, ...rest);
        live.add(timer);
        counted.waiting = live.size;
        return timer;
    };
    window.clearTimeout = (timer) => {
        live.delete(timer);
        counted.waiting = live.size;
        clearTimeout(timer);
    };
    window.setInterval = (...args) => {
        counted.timers++;
        counted.waiting = Infinity;
        return setInterval(...args);
    };
    window.requestAnimationFrame = (act) => {
        counted.frames++;
        return requestAnimationFrame(act);
    };
    const { postMessage } = MessagePort.prototype;
    MessagePort.prototype.postMessage = function (...args) {
        counted.messages++;
        return postMessage.apply(this, args);
    };
})();
