// Connects the parts of the page. All state of the program is in the WebAssembly module.

import { Core, MENU } from './core.js';
import { find } from './dom.js';
import { Accessible } from './accessible.js';
import { Picture } from './picture.js';
import { Sounds } from './sounds.js';
import { Store } from './store.js';
import { holdTab } from './tabs.js';

const UNKNOWN_FREE_BYTES = 1 << 30;
const SETTINGS = '/config/settings';

export class Page {
    constructor() {
        this.core = new Core();
        this.store = new Store();
        this.picture = new Picture(this.core, find('stage'));
        this.accessible = new Accessible(this.core);
        this.sounds = new Sounds(this);
        /** @type {Record<string, string>} */
        this.words = {};
        this.freeBytes = UNKNOWN_FREE_BYTES;
        this.language = '';
        this.greeted = false;
        /** The actions of messages; the index is the number that the program knows. @type {(() => void)[]} */
        this.acts = [];
        this.asked = new URLSearchParams();
    }

    async start() {
        this.asked = new URLSearchParams(location.search);
        history.replaceState(null, '', location.pathname);
        const takesOver = this.asked.has('takeover');
        const measured = this.measure();
        const loaded = this.core.load(this);
        const held = holdTab(takesOver, () => loaded.then(() => this.showOver('otherTab')));
        await (takesOver && held); // until then the other tab may still write to the store
        await this.sounds.read();
        await loaded;
        this.useLanguage(this.earlyText().lang);
        this.sounds.unpack();
        await measured;
        if (!this.core.begin()) {
            this.showOver('broken');
            return;
        }
        this.picture.setSource(this.core.pixels());
        this.core.turn();
        this.core.paint(); // shown with the browser's next frame
        if (!(await held)) { // nothing can be touched until here, so nothing was stored
            this.showOver('otherTab');
            return;
        }
        const opened = this.store.table('readonly').then(() => true, () => false);
        await this.addLater();
        this.connectVisibility();
        this.sounds.rememberTake(0);
        this.sounds.hasStore = (await opened) && this.sounds.hasStore;
        this.sounds.hasStore || this.tell('storeMissing');
        this.greet();
        if (this.asked.has('shared')) {
            await this.takeIn.useShared();
        }
        await this.update.register();
    }

    /** The text to show without the program, in the language of the settings, or else of the browser. @returns {HTMLElement} */
    earlyText() {
        const texts = /** @type {HTMLElement[]} */ ([...find('early').children]); // one for each language of the program, in its order
        const settings = new TextDecoder().decode(this.sounds.kept.get(SETTINGS)?.bytes);
        const kept = texts[Number(/^lang=(\d+)$/m.exec(settings)?.[1] ?? -1)];
        return kept ?? texts.find((text) => navigator.language.startsWith(text.lang)) ?? texts[0];
    }

    /** Measures the free space of the browser's store. Call it after each change of the store. */
    async measure() {
        const { quota, usage } = (await navigator.storage?.estimate?.().catch(() => null)) ?? {};
        this.freeBytes = quota ? quota - (usage ?? 0) : UNKNOWN_FREE_BYTES;
    }

    /** Loads the other parts of the page, while the first picture is shown and nothing can be touched yet. */
    async addLater() {
        const later = await import('./later.js');
        this.dialog = new later.Dialog(find('dialog'), find('message'));
        this.microphone = new later.Microphone(this.core);
        this.speaker = new later.Speaker(this.core, find('speaker'));
        this.takeIn = new later.TakeIn(this, find('file'));
        this.update = new later.Update(this);
        this.input = new later.Input(this.core, this.picture);
    }

    connectVisibility() {
        const change = (/** @type {Event} */ event) => {
            if (this.core.running) {
                const isSeen = event.type !== 'pagehide' && document.visibilityState === 'visible';
                this.core.program[isSeen ? '_murmeloComeBack' : '_murmeloLeave']();
                this.core.turn();
            }
        };
        document.addEventListener('visibilitychange', change);
        addEventListener('pagehide', change); // some browsers send only this when the user leaves
        addEventListener('pageshow', change);
    }

    /** @param {string} language */
    useLanguage(language) {
        this.language = language;
        this.words = this.core.words(language);
        document.documentElement.lang = language;
    }

    showTexts() {
        const texts = this.core.texts;
        if (texts.language && texts.language !== this.language) {
            this.useLanguage(texts.language);
        }
        this.accessible.show(texts, this.words);
        this.update?.offer();
        this.greet();
        texts.screen === MENU && this.measure();
    }

    /** Once, in the menu: opens the list of sounds if it was asked for, or else offers the last take of an earlier visit. */
    greet() {
        if (this.greeted || !this.update || this.core.texts.screen !== MENU) {
            return;
        }
        this.greeted = true;
        if (this.asked.has('sounds')) {
            this.openSounds();
        } else if (this.sounds.rememberTake(0) && !this.update.waiting) {
            this.tell('lastTake', 'bringBack', () => this.sounds.rememberTake(1));
        }
    }

    openSounds() {
        this.dialog?.open(this.words.sounds, this.words.close, (body) => this.sounds.paint(body), () => this.sounds.stop());
    }

    /** Shows a message in the strip. @param {string} word  its name, or a text @param {string} label  the action's; empty: none @param {() => void} act */
    tell(word, label = '', act = () => {}) {
        const lines = [this.words[word] ?? word, ...(label ? [this.words[label]] : [])];
        this.core.program._murmeloTell(this.core.textAt(lines.join('\n')), this.acts.push(act) - 1);
        this.core.turn();
    }

    /** Covers the page with a message, because the program has ended; sounds are stored already. @param {string} word  a name of HostWords */
    showOver(word) {
        word === 'otherTab' && this.core.running && this.core.program._murmeloLeave(); // a recording in this tab is kept
        this.core.stop();
        this.microphone?.release();
        this.speaker?.audio.pause();
        this.dialog?.box.close();
        const early = this.earlyText();
        const isElsewhere = word === 'otherTab';
        const shared = this.asked.has('shared') ? '&shared' : '';
        const button = find('again');
        find('over-text').textContent = this.words[word] ?? early.textContent;
        button.textContent = (isElsewhere ? this.words.takeOver : this.words.startAgain) ?? early.title;
        button.onclick = () => location.assign(isElsewhere ? `./?takeover${shared}` : './');
        for (const part of /** @type {HTMLElement[]} */ ([...document.body.children])) {
            part.inert = part.id !== 'over';
        }
        find('over').hidden = false;
        button.focus();
    }
}

const page = new Page();
/** @type {any} */ (window).murmelo = page; // for tests, and for a look from the browser's console
page.start().catch(() => page.showOver('broken'));
