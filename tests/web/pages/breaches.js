// SPDX-License-Identifier: MIT
// Does everything that a correct page must not do.
window.provoke = () => {
    console.error('told the console', 7);
    setTimeout(() => {
        throw new Error('nothing caught this');
    });
    Promise.reject(new Error('nothing awaited this'));
};
