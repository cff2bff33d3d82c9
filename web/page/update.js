// The service worker: offline from the second start, and a new version only when the user says so.

import { MENU } from './core.js';

export class Update {
    /** @param {import('./main.js').Page} page */
    constructor(page) {
        this.page = page;
        /** @type {ServiceWorker | null} */
        this.waiting = null;
        this.told = false;
    }

    async register() {
        const registration = await navigator.serviceWorker?.register('sw.js').catch(() => null);
        if (!registration) {
            return; // the page works as long as there is a network
        }
        let accepted = navigator.serviceWorker.controller !== null;
        navigator.serviceWorker.addEventListener('controllerchange', () => {
            if (accepted) {
                location.reload();
            }
            accepted = true; // the first one replaces no older version
        });
        this.note(registration.waiting);
        registration.onupdatefound = () => {
            const worker = /** @type {ServiceWorker} */ (registration.installing);
            worker.onstatechange = () => {
                if (worker.state === 'installed' && navigator.serviceWorker.controller) {
                    this.note(worker);
                }
            };
        };
    }

    /** @param {ServiceWorker | null} worker */
    note(worker) {
        this.waiting = worker ?? this.waiting;
        this.offer();
    }

    /** Only in the menu, where nothing records, plays or is unsaved. */
    offer() {
        const inMenu = this.page.core.texts.screen === MENU;
        if (this.waiting && inMenu && !this.told) {
            this.page.tell('newVersion', 'update', () =>
                this.page.core.texts.screen === MENU ? this.waiting?.postMessage('activate') : this.page.tell('notNow')
            );
        }
        this.told = this.waiting !== null && inMenu;
    }
}
