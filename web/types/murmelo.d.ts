// SPDX-License-Identifier: MIT
// The functions that the program in WebAssembly offers to the page, as src/platform/web/main.cpp defines them.

export type Entry = {
    text: string;
    place: [number, number, number, number];
    isFocused: boolean;
    id?: string; // only for the strip's buttons
    isEnabled?: boolean;
};

export type StripTexts = { line: string; isTelling: boolean; sheet: string; buttons: Entry[] };

export type ScreenTexts = {
    language: string;
    screen: string;
    title: string;
    arrows: Entry[];
    heading: string;
    message: string;
    isQuestion: boolean;
    entries: Entry[];
    caption: string;
    progressPercent: number;
    softKeys: Entry[];
    strip: StripTexts;
};

export type Murmelo = {
    HEAPU8: Uint8Array;
    FS: {
        mkdirTree(path: string): void;
        writeFile(path: string, bytes: Uint8Array): void;
        readFile(path: string): Uint8Array;
        unlink(path: string): void;
    };
    UTF8ToString(at: number): string;
    stringToUTF8(text: string, at: number, bytes: number): void;
    _murmeloBegin(fingersOnly: number): number;
    _murmeloTurn(): number;
    _murmeloTouch(kind: number, isFinger: number, id: number, x: number, y: number, timeMs: number): void;
    _murmeloTouchCancelled(isFinger: number, id: number): void;
    _murmeloPoint(x: number, y: number): void;
    _murmeloLayout(width: number, height: number): number;
    _murmeloKey(name: number): number;
    _murmeloVolumeStays(stays: number): void;
    _murmeloRemindToAllow(): void;
    _murmeloMicrophoneAnswered(ticket: number, answer: number, rateHz: number): void;
    _murmeloMicrophone(): number;
    _murmeloMicrophones(): void;
    _murmeloTell(message: number, act: number): void;
    _murmeloMicrophoneLost(): void;
    _murmeloClipEnded(ticket: number): void;
    _murmeloClipFailed(ticket: number): void;
    _murmeloLeave(): void;
    _murmeloComeBack(): void;
    _murmeloRoom(bytes: number): number;
    _murmeloHeard(rateHz: number): number;
    _murmeloNameFile(name: number): void;
    _murmeloUseFloats(rateHz: number, seconds: number): number;
    _murmeloUseFile(fileBytes: number): number;
    _murmeloRememberTake(bringsBack: number): void;
    _murmeloForgetTake(): void;
    _murmeloPaint(): number;
    _murmeloPixels(): number;
    _murmeloTextsIfNew(): number;
    _murmeloWords(language: number): number;
    _murmeloFileName(path: number, effect: number): number;
    _murmeloSoundLine(path: number, effect: number, fileBytes: number): number;
    _murmeloRefusal(fileBytes: number, seconds: number): number;
};

declare function createMurmelo(options: object): Promise<Murmelo>;
export default createMurmelo;
