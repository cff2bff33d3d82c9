// SPDX-License-Identifier: MIT
#include "ScreenTable.h"

#include "FirstLang.h"
#include "G.h"
#include "MessageAndQuit.h"
#include "Options.h"
#include "Play.h"
#include "Playing.h"
#include "Process.h"
#include "Record.h"
#include "Recording.h"
#include "Save.h"
#include "Splash.h"

#include <iterator>

namespace {

template <auto* Slot>
void freeSlot() {
    delete *Slot;
    *Slot = nullptr;
}

template <auto* Slot>
State* screenIn() {
    return *Slot;
}

template <class Kind, State** Slot>
void makeIn() {
    *Slot = new Kind();
}

/// The row of a screen that exists for the whole run.
template <class Kind, State** Slot>
constexpr ScreenTable::Row kept(const char* name) {
    return {name, &makeIn<Kind, Slot>, &freeSlot<Slot>, &screenIn<Slot>};
}

constexpr ScreenTable::Row kRows[] = {
    kept<Splash, &G::stateSplash>("Splash"),
    kept<FirstLang, &G::stateFirstLang>("FirstLang"),
    kept<Options, &G::stateOptions>("Options"),
    kept<Record, &G::stateRecord>("Record"),
    kept<Recording, &G::stateRecording>("Recording"),
    kept<Play, &G::statePlay>("Play"),
    kept<Playing, &G::statePlaying>("Playing"),
    kept<Save, &G::stateSave>("Save"),
    {"Process", nullptr, &freeSlot<&G::stateProcess>, &screenIn<&G::stateProcess>},
    {"MessageAndQuit", nullptr, nullptr, &MessageAndQuit::current},
};

}  // namespace

const ScreenTable::Row* ScreenTable::rows(int32_t& count) {
    count = static_cast<int32_t>(std::size(kRows));
    return kRows;
}

void ScreenTable::make() {
    for (const Row& row : kRows) {
        if (row.make != nullptr) {
            row.make();
        }
    }
    G::stateProcess = nullptr;
}

void ScreenTable::free() {
    for (const Row& row : kRows) {
        if (row.free != nullptr) {
            row.free();
        }
    }
}

const char* ScreenTable::currentName() {
    for (const Row& row : kRows) {
        if (State::currState != nullptr && row.screen() == State::currState) {
            return row.name;
        }
    }
    return "";
}
