// Only one tab at a time: two would overwrite each other's sounds.

import { OWN } from './store.js';

/**
 * @param {boolean} steals  takes over from another tab, which stops
 * @param {() => void} onTaken  another tab has taken over
 * @returns {Promise<boolean>} whether this tab is the one
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
                return lock && new Promise(() => {}); // held as long as the page lives
            })
            .catch(() => (isHeld ? onTaken() : answer(true))); // refused: there are no locks here
    });
}
