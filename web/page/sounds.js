// @ts-check
// The sounds of this browser: their store, and the list in which they are played, shared and deleted.

import { make, newButton } from './dom.js';

/** @typedef {import('./store.js').Kept} Kept */

const HEADER_BYTES = 44;
const BYTES_PER_SECOND = 16000; // of a saved sound
const TAKE = 'take';
const SOUND = /\/rec_(\d+)\.wav$/;

export class Sounds {
    /** @param {import('./main.js').Page} page */
    constructor(page) {
        this.page = page;
        /** @type {Map<string, Kept>} */
        this.kept = new Map();
        this.hasStore = false;
        this.url = '';
        this.player = new Audio();
        this.playing = '';
        this.player.addEventListener('ended', () => this.play(''));
    }

    async read() {
        const all = () => this.page.store.all();
        const kept = await all().catch(all).catch(() => null); // browsers are known to fail once
        this.hasStore = kept !== null;
        this.kept = kept ?? this.kept;
    }

    /** Files of earlier visits, for the program to find. */
    unpack() {
        for (const [path, kept] of this.kept) {
            if (path !== TAKE) {
                this.page.core.writeFile(path, kept.bytes);
            }
        }
    }

    /** @param {string} path @param {number} effect  a file that the program has written */
    async keepFile(path, effect) {
        const bytes = this.page.core.program.FS.readFile(path);
        const isKept = await this.keep(path, { bytes, effect, when: Date.now() });
        if (isKept && SOUND.test(path)) {
            const words = this.page.words;
            this.page.message.show({ text: `${words.saved}: ${this.nameOf(path)}`, label: words.share, act: () => this.hand(path) });
            navigator.storage?.persisted?.().then((stays) => stays || navigator.storage.persist()).catch(() => {});
        }
    }

    /** @param {Uint8Array} bytes  a raw take as a WAV file */
    keepTake(bytes) {
        this.keep(TAKE, { bytes, effect: 0, when: Date.now() });
    }

    /** Where what earlier visits kept could not be read, nothing is written over it. @param {string} path @param {Kept} kept */
    async keep(path, kept) {
        this.kept.set(path, kept);
        const isKept = this.hasStore && (await this.page.store.put(path, kept).then(() => true, () => false));
        if (!isKept) {
            const isSound = path === TAKE || SOUND.test(path);
            this.page.tell(this.hasStore ? 'storeFull' : 'storeMissing', isSound ? 'share' : '', () => this.hand(path));
        }
        return isKept;
    }

    /** @param {string} path @returns {string} "murmelo-robot-00003.wav" */
    nameOf(path) {
        const number = SOUND.exec(path)?.[1] ?? '';
        const program = this.page.core.program;
        const word = program.UTF8ToString(program._murmeloEffectWord(this.kept.get(path)?.effect ?? -1));
        return ['murmelo', word, number].filter(Boolean).join('-') + '.wav';
    }

    /** @param {string} path @returns {File} */
    fileOf(path) {
        const kept = /** @type {Kept} */ (this.kept.get(path));
        return new File([kept.bytes], this.nameOf(path), { type: 'audio/wav' });
    }

    /** The share sheet where there is one, else a download. @param {string} path */
    async hand(path) {
        const files = [this.fileOf(path)];
        if (!navigator.canShare?.({ files })) {
            this.download(path);
            return;
        }
        try {
            await navigator.share({ files, title: this.nameOf(path) });
        } catch (error) {
            if (/** @type {Error} */ (error).name !== 'AbortError') {
                this.download(path); // AbortError: the user changed his mind
            }
        }
    }

    /** @param {string} path */
    download(path) {
        const link = make('a', { href: URL.createObjectURL(this.fileOf(path)), download: this.nameOf(path) });
        link.click();
        setTimeout(() => URL.revokeObjectURL(link.href), 60000);
    }

    /** @param {string} path  empty: silence */
    play(path) {
        this.player.pause();
        URL.revokeObjectURL(this.url);
        this.url = '';
        this.playing = this.playing === path ? '' : path;
        if (this.playing) {
            this.url = URL.createObjectURL(this.fileOf(path));
            this.player.src = this.url;
            this.player.play().catch(() => this.page.tell('cannotPlay'));
        }
        this.page.dialog.refresh();
    }

    /** @param {string} path */
    remove(path) {
        const kept = /** @type {Kept} */ (this.kept.get(path));
        this.kept.delete(path);
        const files = this.page.core.program.FS;
        files.unlink(path);
        if (this.playing === path) {
            this.play('');
        }
        this.page.store.delete(path).catch(() => {});
        this.page.message.show({
            text: this.page.words.deleted,
            label: this.page.words.undo,
            act: () => {
                files.writeFile(path, kept.bytes);
                this.keep(path, kept);
                this.page.dialog.refresh();
            },
        });
        this.page.dialog.refresh();
    }

    /** @param {0 | 1} bringsBack  1: the last take becomes the program's again @returns {boolean} whether there is one */
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
        this.page.store.delete(TAKE).catch(() => this.page.tell('storeMissing'));
        this.page.dialog.refresh();
    }

    /** @param {HTMLElement} body */
    paint(body) {
        const words = this.page.words;
        const list = make('ul');
        body.append(list);
        /** @param {string} name @param {number} seconds @param {HTMLElement[]} buttons */
        const add = (name, seconds, ...buttons) => {
            const length = seconds.toLocaleString(document.documentElement.lang, { minimumFractionDigits: 1, maximumFractionDigits: 1 });
            const title = make('p', { textContent: `${name} (${length} ${words.seconds})` });
            list.append(make('li', {}, title, make('div', { className: 'row' }, ...buttons)));
        };
        const take = this.kept.get(TAKE);
        if (take) {
            const bringBack = newButton(words.bringBack, () => {
                this.page.dialog.close();
                this.rememberTake(1);
            });
            const forget = newButton(words.forget, () => this.forgetTake());
            const share = newButton(words.share, () => this.hand(TAKE));
            add(words.lastTake, (take.bytes.length - HEADER_BYTES) / (2 * BYTES_PER_SECOND), bringBack, share, forget);
        }
        const paths = [...this.kept.keys()].filter((path) => SOUND.test(path)).sort().reverse();
        for (const path of paths) {
            const bytes = /** @type {Kept} */ (this.kept.get(path)).bytes;
            const play = newButton(this.playing === path ? words.stop : words.play, () => this.play(path));
            const share = newButton(words.share, () => this.hand(path));
            share.hidden = !navigator.canShare;
            const download = newButton(words.download, () => this.download(path));
            const remove = newButton(words.delete, () => this.remove(path));
            add(this.nameOf(path), (bytes.length - HEADER_BYTES) / BYTES_PER_SECOND, play, share, download, remove);
        }
        if (paths.length === 0) {
            list.after(make('p', { className: 'quiet', textContent: words.noSounds }));
        }
    }
}
