// Lets only one tab run the program: two would overwrite each other's sounds.

import { OWN } from './store.js';

/**
 * @param {boolean} steals  true: takes over from another tab, which stops
 * @param {() => void} onTaken  called when another tab has taken over
 * @returns {Promise<boolean>} true if this tab may run the program
 */
export function holdTab(steals, onTaken) {
    if (!navigator.locks) {
        return Promise.resolve(true);
    }
    let isHeld = false;
    return new Promise((answer) => {
        navigator.locks
            .request(OWN, steals ? { steal: true } : { ifAvailable: true }, (lock) => {
                isHeld = lock !== null;
                answer(isHeld);
                return lock && new Promise(() => {}); // held until the page is closed
            })
            .catch(() => (isHeld ? onTaken() : answer(true))); // an error without the lock: locks are not allowed here
    });
}
