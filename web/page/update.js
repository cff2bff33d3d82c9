// Registers the service worker: offline from the second start, a new version only if wanted.

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
            return; // without a worker the page works, but needs the network
        }
        const watch = () => {
            const worker = registration.installing ?? registration.waiting;
            worker?.addEventListener('statechange', () => this.note(worker, registration));
            worker && this.note(worker, registration);
        };
        watch();
        registration.onupdatefound = watch;
    }

    /** @param {ServiceWorker} worker @param {ServiceWorkerRegistration} registration */
    note(worker, registration) {
        if (worker.state === 'installed' && registration.active) { // not the first version
            this.waiting = worker;
            this.offer();
        } else if (worker.state === 'activated' && worker === this.waiting) {
            location.reload();
        }
    }

    /** Offers the new version, only in the menu: there nothing is being recorded, played or unsaved. */
    offer() {
        const isInMenu = () => this.page.core.texts.screen === MENU;
        // Later: Chromium asks for the icon at the first tap. Together, they can delay the change of workers by minutes.
        const take = () => (isInMenu() ? this.waiting?.postMessage('activate') : this.page.tell('notNow'));
        if (this.waiting && isInMenu() && !this.told) {
            this.page.tell('newVersion', 'update', () => setTimeout(take, 500));
        }
        this.told = this.waiting !== null && isInMenu();
    }
}
