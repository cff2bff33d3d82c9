// @ts-check
// What outlives the page: settings, saved sounds and the last take, in a small database of our own.

/** @typedef {{bytes: Uint8Array, effect: number, when: number}} Kept */

const NAME = 'murmelo';
const TABLE = 'kept';

export class Store {
    constructor() {
        /** @type {IDBDatabase | null} */
        this.database = null;
    }

    /** @returns {Promise<boolean>} whether this browser stores anything for us */
    async open() {
        try {
            const opening = indexedDB.open(NAME, 1);
            opening.onupgradeneeded = () => opening.result.createObjectStore(TABLE);
            this.database = await answerOf(opening);
            // Another version of the page, or the user, wants to change the database.
            this.database.onversionchange = () => this.forget();
            this.database.onclose = () => this.forget();
            return true;
        } catch {
            return false;
        }
    }

    forget() {
        this.database?.close();
        this.database = null;
    }

    /** @returns {Promise<Map<string, Kept>>} by path */
    async all() {
        const table = await this.table('readonly');
        const keys = answerOf(table.getAllKeys());
        const values = answerOf(table.getAll());
        const found = await values;
        return new Map((await keys).map((key, i) => [String(key), found[i]]));
    }

    /** Throws if there is no room. @param {string} path @param {Kept} kept */
    async put(path, kept) {
        await this.change((table) => table.put(kept, path));
    }

    /** @param {string} path */
    async delete(path) {
        await this.change((table) => table.delete(path));
    }

    /** @param {(table: IDBObjectStore) => void} step */
    async change(step) {
        const table = await this.table('readwrite');
        const done = new Promise((resolve, reject) => {
            table.transaction.oncomplete = resolve;
            table.transaction.onerror = () => reject(table.transaction.error);
            table.transaction.onabort = () => reject(table.transaction.error); // a full store
        });
        step(table);
        table.transaction.commit?.(); // the page may be going away
        await done;
    }

    /** @param {IDBTransactionMode} mode */
    async table(mode) {
        if (!this.database && !(await this.open())) {
            throw new DOMException('no store', 'InvalidStateError');
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
