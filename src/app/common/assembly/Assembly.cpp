// SPDX-License-Identifier: MIT
#include "Assembly.h"

#include "ClassList.h"
#include "GlobalsMaker.h"
#include "MessageAndQuit.h"
#include "Res.h"

void Assembly::install() {
    static Assembly assembly;
    FrameNeeds::installed = &assembly;
}

const ClassListEntry* Assembly::classes(int32_t& count) {
    return ClassList::entries(count);
}

void Assembly::makeGlobals() {
    GlobalsMaker::make();
}

void Assembly::freeGlobals() {
    GlobalsMaker::free();
}

int32_t Assembly::languages() const {
    return Res::kLanguages;
}

int32_t Assembly::language() const {
    return Res::getCurrLangIndex();
}

void Assembly::setLanguage(int32_t index) {
    Res::setCurrLangIndex(index);
}

void Assembly::enterFileError() {
    MessageAndQuit::enterOnPicture(MessageAndQuit::kFileError);
}
