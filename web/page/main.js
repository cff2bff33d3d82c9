// @ts-check
// Connects the parts of the page. The program in WebAssembly is the only truth.

import { Core } from './core.js';
import { make } from './dom.js';
import { Message } from './message.js';
import { Mirror } from './mirror.js';
import { Picture } from './picture.js';
import { Sounds } from './sounds.js';
import { Store } from './store.js';
import { holdTab } from './tabs.js';

const UNKNOWN_FREE_BYTES = 1 << 30;

/** Before the program has told its words. @type {Record<string, string>} */
const EARLY_WORDS = { broken: 'Murmelo cannot start in this browser.', startAgain: 'Start again' };
Object.assign(EARLY_WORDS, { otherTab: 'Murmelo is open in another tab.', takeOver: 'Use it here' });

/** @template {HTMLElement} T @param {string} id @returns {T} */
function find(id) {
    return /** @type {T} */ (document.getElementById(id));
}

export class Page {
    constructor() {
        this.core = new Core();
        this.store = new Store();
        this.picture = new Picture(find('stage'), find('phone'), find('picture'));
        this.message = new Message(find('message'));
        this.mirror = new Mirror(this.core, find('mirror'), find('live'));
        this.sounds = new Sounds(this);
        /** @type {Record<string, string>} */
        this.words = {};
        this.freeBytes = UNKNOWN_FREE_BYTES;
        this.language = '';
        this.greeted = false;
        this.opensSounds = false;
    }

    async start() {
        const asked = new URLSearchParams(location.search);
        history.replaceState(null, '', location.pathname);
        const estimate = navigator.storage?.estimate?.().catch(() => ({}));
        const loaded = this.core.load(this);
        const isOurs = await holdTab(asked.has('takeover'), () => this.showOver('otherTab'));
        const read = isOurs && this.sounds.read();
        await loaded;
        if (!isOurs) {
            this.showOver('otherTab');
            return;
        }
        await read;
        this.sounds.unpack();
        const { quota, usage } = (await estimate) ?? {};
        this.freeBytes = quota ? quota - (usage ?? 0) : UNKNOWN_FREE_BYTES;
        if (!this.core.begin()) {
            this.showOver('broken');
            return;
        }
        this.picture.setSource(this.core.pixels());
        this.core.turn();
        await this.addLater();
        this.connectVisibility();
        this.sounds.rememberTake(0);
        if (!this.sounds.hasStore) {
            this.tell('storeMissing');
        }
        this.opensSounds = asked.has('sounds');
        if (asked.has('shared')) {
            await this.takeIn.useShared();
        }
        await this.update.register();
    }

    /** The program shows its first picture meanwhile; nothing can be touched yet. */
    async addLater() {
        const later = await import('./later.js');
        const tell = (/** @type {string} */ word) => this.tell(word);
        this.dialog = new later.Dialog(find('dialog'), find('message'));
        this.ears = new later.Ears(this.core, tell);
        this.voice = new later.Voice(this.core, find('voice'), tell);
        this.takeIn = new later.TakeIn(this, find('file'));
        this.update = new later.Update(this);
        const commands = this.connectButtons();
        new later.Hands(this.core, this.picture, commands);
    }

    /** @returns {Record<string, () => void>} what keys do besides the program's own */
    connectButtons() {
        /** @type {Record<string, () => void>} */
        const commands = {
            save: () => this.save(),
            open: () => this.takeIn.pick(),
            sounds: () => this.openSounds(),
            help: () => this.openHelp(),
        };
        for (const [id, act] of Object.entries(commands)) {
            const button = find(id);
            button.addEventListener('click', act);
            /** @type {HTMLButtonElement} */ (button).disabled = false;
        }
        return { s: commands.save, o: commands.open, l: commands.sounds, h: commands.help };
    }

    connectVisibility() {
        document.addEventListener('visibilitychange', () => {
            const { program, running } = this.core;
            if (running && document.visibilityState === 'visible') {
                program._murmeloComeBack();
            } else if (running && program._murmeloLeave()) {
                this.tell('tooShort');
            }
            this.core.turn();
        });
    }

    showTexts() {
        const texts = this.core.texts;
        if (texts.language !== this.language) {
            this.language = texts.language;
            this.words = this.core.words();
            document.documentElement.lang = texts.language || 'en';
            for (const id of ['save', 'open', 'sounds', 'help']) {
                find(id).textContent = this.words[id];
            }
        }
        this.mirror.show(texts, this.words);
        this.update?.offer();
        if (texts.screen === 'Options') {
            this.greet();
        }
    }

    /** Once, in the menu: what the last visit has left. */
    greet() {
        if (this.greeted || !this.update) {
            return;
        }
        this.greeted = true;
        if (this.opensSounds) {
            this.openSounds();
        } else if (this.sounds.rememberTake(0) && !this.update.waiting) {
            this.tell('lastTake', 'bringBack', () => this.sounds.rememberTake(1));
        }
    }

    save() {
        this.core.program._murmeloSave();
        this.core.turn();
    }

    openSounds() {
        this.dialog.open(this.words.sounds, this.words.close, (body) => this.sounds.paint(body));
    }

    openHelp() {
        this.dialog.open(this.words.help, this.words.close, (body) => {
            const lines = ['helpKeys', 'helpPlace', 'helpPrivate'].map((word) => this.words[word]);
            body.append(...lines.map((textContent) => make('p', { textContent })));
            body.append(make('a', { href: 'licences.txt', target: '_blank', textContent: this.words.licences }));
        });
    }

    /** @param {string} word @param {string} label  word of the action; empty: none @param {() => void} act */
    tell(word, label = '', act = () => {}) {
        this.message.show({ text: this.words[word] ?? word, label: label && this.words[label], act });
    }

    /** The program is over; what the user has is stored. @param {string} word */
    showOver(word) {
        this.core.stop();
        this.ears?.release();
        this.voice?.stop();
        this.dialog?.close();
        const over = find('over');
        const words = { ...EARLY_WORDS, ...this.words }; // there may be no program to ask
        /** @type {HTMLElement} */ (over.querySelector('p')).textContent = words[word];
        const button = /** @type {HTMLButtonElement} */ (over.querySelector('button'));
        const isElsewhere = word === 'otherTab';
        button.textContent = isElsewhere ? words.takeOver : words.startAgain;
        button.onclick = () => location.assign(isElsewhere ? './?takeover' : './');
        over.hidden = false;
        button.focus();
    }
}

const page = new Page();
/** @type {any} */ (window).murmelo = page; // for the curious, and for tests
page.start().catch(() => page.showOver('broken'));
