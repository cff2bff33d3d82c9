// @ts-check
// The service worker: offline from the second start, and a new version only when the user says so.

/** @typedef {import('./main.js').Page} Page */

export class Update {
    /** @param {Page} page */
    constructor(page) {
        this.page = page;
        /** @type {ServiceWorker | null} */
        this.waiting = null;
        this.told = false;
    }

    async register() {
        if (!('serviceWorker' in navigator)) {
            return;
        }
        let accepted = navigator.serviceWorker.controller !== null;
        navigator.serviceWorker.addEventListener('controllerchange', () => {
            if (accepted) {
                location.reload();
            }
            accepted = true; // the first one only takes its place
        });
        try {
            const registration = await navigator.serviceWorker.register('sw.js');
            this.note(registration.waiting);
            registration.addEventListener('updatefound', () => {
                const worker = /** @type {ServiceWorker} */ (registration.installing);
                worker.addEventListener('statechange', () => {
                    if (worker.state === 'installed' && navigator.serviceWorker.controller) {
                        this.note(worker);
                    }
                });
            });
        } catch {
            // Without a service worker the page works as long as there is a network.
        }
    }

    /** @param {ServiceWorker | null} worker */
    note(worker) {
        this.waiting = worker ?? this.waiting;
        this.offer();
    }

    /** Only in the menu, where nothing records, plays or is unsaved. */
    offer() {
        if (!this.waiting || this.told || this.page.core.texts.screen !== 'Options') {
            return;
        }
        this.told = true;
        this.page.message.show({
            text: this.page.words.newVersion,
            label: this.page.words.update,
            act: () => this.waiting?.postMessage('activate'),
            stays: true,
        });
    }
}
