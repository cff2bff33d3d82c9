// The sounds of this browser: their store, and the list in which they are played, shared and deleted.

import { make, newButton } from './dom.js';

/** @typedef {import('./store.js').Kept} Kept */

const TAKE = 'take'; // the key of the last take, as WebSounds::kTakePath
const [CLOSED, OPEN] = ['AbortError', 'InvalidStateError']; // errors of a share sheet
const SOUND = /\/rec_\d+\.wav$/;

export class Sounds {
    /** @param {import('./main.js').Page} page */
    constructor(page) {
        this.page = page;
        /** @type {Map<string, Kept>} */
        this.kept = new Map();
        this.hasStore = false;
        this.playing = ''; // path of the sound that plays; empty: none
    }

    async read() {
        const all = () => this.page.store.all();
        const kept = await all().catch(all).catch(() => null); // some browsers fail at the first attempt
        this.hasStore = kept !== null;
        this.kept = kept ?? this.kept;
    }

    /** Writes the files of earlier visits into the program's file system. */
    unpack() {
        for (const [path, kept] of this.kept) {
            if (path !== TAKE) {
                this.page.core.writeFile(path, kept.bytes);
            }
        }
    }

    /** Stores a file that the program has written. @param {string} path @param {number} effect */
    async keepFile(path, effect) {
        const bytes = this.page.core.program.FS.readFile(path);
        const isKept = await this.keep(path, { bytes, effect, when: Date.now() });
        if (isKept && SOUND.test(path)) {
            this.page.tell(this.page.words.saved.replace('{1}', this.nameOf(path)), 'share', () => this.hand(path));
            navigator.storage?.persisted?.().then((stays) => stays || navigator.storage.persist()).catch(() => {});
        }
    }

    /** Stores the last take. @param {Uint8Array} bytes  a WAV file, before any effect */
    keepTake(bytes) {
        this.keep(TAKE, { bytes, effect: 0, when: Date.now() });
    }

    /** Stores a file. If the store could not be read at the start, does not write to it. @param {string} path @param {Kept} kept */
    async keep(path, kept) {
        this.kept.set(path, kept);
        const isKept = this.hasStore && (await this.page.store.change((table) => table.put(kept, path)).then(() => true, () => false));
        this.page.measure();
        if (!isKept) {
            const isSound = path === TAKE || SOUND.test(path);
            this.page.tell(this.hasStore ? 'storeFull' : 'storeMissing', isSound ? 'share' : '', () => this.hand(path));
        }
        return isKept;
    }

    /** @param {string} path @returns {string} "murmelo-robot-00003.wav" */
    nameOf(path) {
        const { core } = this.page;
        return core.answer('_murmeloFileName', core.textAt(path), this.kept.get(path)?.effect ?? -1);
    }

    /** @param {string} path @returns {File} */
    fileOf(path) {
        const kept = /** @type {Kept} */ (this.kept.get(path));
        return new File([kept.bytes], this.nameOf(path), { type: 'audio/wav' });
    }

    /** Opens the share sheet of the system; without one, downloads the file. @param {string} path */
    async hand(path) {
        const files = [this.fileOf(path)];
        const sheet = navigator.canShare?.({ files }) ? navigator.share({ files, title: this.nameOf(path) }) : Promise.reject({});
        await sheet.catch(({ name }) => name === CLOSED || name === OPEN || this.download(path));
    }

    /** @param {string} path */
    download(path) {
        const link = make('a', { href: URL.createObjectURL(this.fileOf(path)), download: this.nameOf(path) });
        link.click();
        setTimeout(() => URL.revokeObjectURL(link.href), 60000);
    }

    /** Plays a sound, or stops it if it plays. @param {string} path */
    play(path) {
        const wasPlaying = this.playing === path;
        this.stop();
        if (!wasPlaying) {
            this.page.speaker.begin(/** @type {Kept} */ (this.kept.get(path)).bytes, (end) => {
                this.playing = '';
                this.page.dialog.refresh();
                end === '_murmeloClipFailed' && this.page.tell('cannotPlay');
            });
            this.playing = path;
        }
        this.page.dialog.refresh();
    }

    stop() {
        if (this.playing) {
            this.page.speaker.audio.pause();
            this.page.speaker.finish('_murmeloClipEnded');
        }
    }

    /** @param {string} path */
    remove(path) {
        const [kept, name] = [/** @type {Kept} */ (this.kept.get(path)), this.nameOf(path)];
        this.kept.delete(path);
        const files = this.page.core.program.FS;
        files.unlink(path);
        if (this.playing === path) {
            this.stop();
        }
        this.forgetKept(path);
        this.page.tell(this.page.words.deleted.replace('{1}', name), 'undo', () => {
            const next = (/** @type {string} */ number) => String(Number(number) + 1).padStart(5, '0');
            let free = path;
            for (; this.kept.has(free); free = free.replace(/\d+(?=\.wav)/, next)); // a newer sound may have its number
            files.writeFile(free, kept.bytes);
            this.keep(free, kept);
            this.page.dialog.refresh();
        });
        this.page.dialog.refresh();
    }

    /** Passes the last take to the program. @param {0 | 1} bringsBack  1: it becomes the current take @returns {boolean} true if there is one */
    rememberTake(bringsBack) {
        const take = this.kept.get(TAKE);
        if (take) {
            this.page.core.fillRoom(take.bytes);
            this.page.core.program._murmeloRememberTake(bringsBack);
            this.page.core.turn();
        }
        return take !== undefined;
    }

    forgetTake() {
        this.kept.delete(TAKE);
        this.page.core.program._murmeloForgetTake();
        this.forgetKept(TAKE);
        this.page.dialog.refresh();
    }

    /** @param {string} path */
    async forgetKept(path) {
        const forgotten = this.page.store.change((table) => table.delete(path));
        await forgotten.catch(() => this.hasStore && this.page.tell('notDeleted'));
        this.page.measure();
    }

    /** @param {HTMLElement} body */
    paint(body) {
        const { core, dialog, words } = this.page;
        const list = make('ul');
        /** @param {string} path @param {[string, () => void][]} acts  for each button: the name of its word, and its action */
        const add = (path, ...acts) => {
            const { bytes, effect } = /** @type {Kept} */ (this.kept.get(path));
            const line = core.answer('_murmeloSoundLine', core.textAt(path), effect, bytes.length);
            const buttons = acts.map(([word, act]) => newButton(words[word], act, line));
            list.append(make('li', {}, make('p', { textContent: line }), make('div', { className: 'row' }, ...buttons)));
        };
        if (this.kept.has(TAKE)) {
            const bringBack = () => (dialog.box.close(), this.rememberTake(1));
            add(TAKE, ['bringBack', bringBack], ['share', () => this.hand(TAKE)], ['forget', () => this.forgetTake()]);
        }
        const paths = [...this.kept.keys()].filter((path) => SOUND.test(path)).sort().reverse();
        for (const path of paths) {
            /** @type {[string, () => void][]} */
            const share = navigator.canShare ? [['share', () => this.hand(path)]] : [];
            const play = this.playing === path ? 'stop' : 'play';
            add(path, [play, () => this.play(path)], ...share, ['download', () => this.download(path)], ['delete', () => this.remove(path)]);
        }
        const licences = make('a', { href: 'licences.txt', target: '_blank', textContent: words.licences });
        body.append(list, paths.length ? '' : make('p', { className: 'quiet', textContent: words.noSounds }), make('p', {}, licences));
    }
}
