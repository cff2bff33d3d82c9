// Stores what is kept after the page is closed: settings, saved sounds and the last take, in a database of this page.

/** @typedef {{bytes: Uint8Array, effect: number, when: number}} Kept */

/** Name of the store, the lock and the caches. It contains the path, so that copies of the page on one host do not share them. */
export const OWN = `murmelo ${new URL('..', import.meta.url).pathname}`;
const TABLE = 'kept';

export class Store {
    constructor() {
        this.name = OWN;
        /** @type {IDBDatabase | null} */
        this.database = null;
    }

    async open() {
        const opening = indexedDB.open(this.name, 1);
        opening.onupgradeneeded = () => opening.result.createObjectStore(TABLE);
        this.database = await answerOf(opening);
        // Another version of the page, or the user, wants to change or delete the database: closes it.
        this.database.onversionchange = this.database.onclose = () => this.forget();
    }

    forget() {
        this.database?.close();
        this.database = null;
    }

    /** Everything stored. Creates no database: that would delay the first picture. @returns {Promise<Map<string, Kept>>} by path */
    async all() {
        const databases = await indexedDB.databases?.();
        if (databases?.every(({ name }) => name !== this.name)) {
            return new Map();
        }
        const table = await this.table('readonly');
        const keys = answerOf(table.getAllKeys());
        const values = answerOf(table.getAll());
        const found = await values;
        return new Map((await keys).map((key, i) => [String(key), found[i]]));
    }

    /** Carries out a change. Throws if the store is full. @param {(table: IDBObjectStore) => void} step */
    async change(step) {
        const table = await this.table('readwrite');
        const done = new Promise((resolve, reject) => {
            table.transaction.oncomplete = resolve;
            table.transaction.onerror = () => reject(table.transaction.error);
            table.transaction.onabort = () => reject(table.transaction.error); // the store is full
        });
        step(table);
        table.transaction.commit?.(); // the page may be closing
        await done;
    }

    /** @param {IDBTransactionMode} mode */
    async table(mode) {
        if (!this.database) {
            await this.open();
        }
        return /** @type {IDBDatabase} */ (this.database).transaction(TABLE, mode).objectStore(TABLE);
    }
}

/** @template T @param {IDBRequest<T>} request @returns {Promise<T>} */
function answerOf(request) {
    return new Promise((resolve, reject) => {
        request.onsuccess = () => resolve(request.result);
        request.onerror = () => reject(request.error);
        /** @type {any} */ (request).onblocked = () => reject(new DOMException('', 'BlockedError'));
    });
}
