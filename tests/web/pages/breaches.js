// SPDX-License-Identifier: MIT
// Everything that a sound page does not do.
window.provoke = () => {
    console.error('told the console', 7);
    setTimeout(() => {
        throw new Error('nothing caught this');
    });
    Promise.reject(new Error('nothing awaited this'));
};
