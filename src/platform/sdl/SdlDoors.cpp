// SPDX-License-Identifier: MIT
#include "SdlDoors.h"

#include "FileUri.h"
#include "HostWords.h"
#include "ScreenNames.h"
#include "SoundFile.h"

#include <SDL.h>

#include <utility>

namespace {

// An export takes a fraction of a second; a disk that needs longer than this has stalled.
constexpr int64_t kFinishMs = 5000;

std::string firstLine(const char* text) {
    const std::string all = text != nullptr ? text : "";
    return all.substr(0, all.find_first_of("\r\n"));
}

}  // namespace

SdlDoors::SdlDoors(const HostFolders& folders,
                   TakeKeeper& takes,
                   Tell tell,
                   EffectWord effectWord,
                   BackgroundWork::Wake wake)
    : folders(folders)
    , takes(takes)
    , tell(std::move(tell))
    , effectWord(std::move(effectWord))
    , backgroundWork(wake)
    , dialogs(std::move(wake)) {}

void SdlDoors::setDoors(HostDoors* offeredDoors) {
    doors = offeredDoors;
    if (doors == nullptr) {
        takes.end();
    }
}

void SdlDoors::takeIsGone() {
    takes.takeDeleted();
    isFromFile = false;
    savedEffect = -1;
}

std::string SdlDoors::words(const char* row) const {
    return HostWords::text(row, doors != nullptr ? doors->texts().language : "");
}

FileDialog::Frame SdlDoors::frameOf(const char* titleRow) const {
    return {nameParent ? nameParent() : "", words(titleRow)};
}

/// False, and tells so, if a dialog is open already: it may be below another window.
bool SdlDoors::isFreeForDialog() {
    if (isDialogOpen) {
        tell({"dialogOpen", {}});
    }
    return !isDialogOpen;
}

bool SdlDoors::handle(const SDL_Event& event) {
    const bool isDrop =
        event.type == SDL_DROPBEGIN || event.type == SDL_DROPFILE || event.type == SDL_DROPTEXT;
    return isDrop && drop(event);
}

bool SdlDoors::drop(const SDL_Event& event) {
    if (event.type == SDL_DROPBEGIN) {
        dropped = 0;
        return false;
    }
    // A dropped text is taken for the address of a file. If it is none, the user is told so when it
    // cannot be read.
    const std::string path = firstLine(event.drop.file);
    SDL_free(event.drop.file);
    if (path.empty()) {
        return false;
    }
    dropped++;
    if (dropped == 2) {
        tell({"onlyFirstFile", {droppedName}});
    }
    if (dropped > 1) {
        return false;
    }
    droppedName = FileUri::nameIn(path);
    if (doors != nullptr) {
        return useFile(path);
    }
    offer(path);  // the program has not begun yet
    return false;
}

SdlDoors::ReadSound SdlDoors::read(const std::string& nameOrUri) {
    ReadSound sound;
    std::string path;
    sound.name = FileUri::nameIn(nameOrUri);
    if (const Problem problem = FileUri::toPath(nameOrUri, path)) {
        sound.problem = {"notASound", {sound.name, problem.sentence()}};
        return sound;
    }
    sound.name = FileUri::nameIn(path);
    // Reads one sample more than is used, to find out if the file is longer.
    const Problem problem = SoundFile::read(path, HostMicrophone::kRateHz,
                                            HostMicrophone::kLongestTakeSamples + 1, sound.samples);
    if (problem) {
        sound.problem = {"notASound", {sound.name, SoundFile::reasonOf(problem)}};
    } else if (sound.samples.empty()) {
        sound.problem = {"emptySound", {sound.name}};
    }
    sound.isCut = sound.samples.size() > HostMicrophone::kLongestTakeSamples;
    if (sound.isCut) {
        sound.samples.resize(HostMicrophone::kLongestTakeSamples);
    }
    return sound;
}

void SdlDoors::startReading(const std::string& nameOrUri, std::function<bool(ReadSound)> done) {
    const int64_t reading = ++newestReading;
    backgroundWork.start([this, reading, nameOrUri, done = std::move(done)] {
        ReadSound sound = read(nameOrUri);
        return [this, reading, sound = std::move(sound), done] {
            if (doors == nullptr || reading != newestReading) {
                return false;
            }
            if (*sound.problem.row != '\0') {
                isOffering = !offered.samples.empty();
                tell(sound.problem);
                return false;
            }
            return done(sound);
        };
    });
}

void SdlDoors::offer(const std::string& nameOrUri) {
    isOffering = true;
    offeredName = FileUri::nameIn(nameOrUri);
    startReading(nameOrUri, [this](ReadSound sound) {
        if (isOffering) {
            offered = std::move(sound);
        }
        return false;
    });
}

bool SdlDoors::useFile(const std::string& nameOrUri) {
    startReading(nameOrUri, [this](ReadSound sound) {
        if (take(sound)) {
            return true;
        }
        if (ScreenNames::isBeforeMenu(doors->screenName())) {
            isOffering = true;
            offeredName = sound.name;
            offered = std::move(sound);
        } else {
            tell({"notNow", {}});
        }
        return false;
    });
    return false;
}

bool SdlDoors::take(const ReadSound& sound) {
    const bool isUnsaved = !isFromFile && savedEffect < 0 && doors->canSave() && takes.isPrograms();
    if (!doors->useSound(sound.samples.data(), static_cast<int32_t>(sound.samples.size()))) {
        return false;
    }
    takes.used(sound.samples);
    isFromFile = true;
    savedEffect = -1;
    if (isUnsaved) {
        tell({"takeReplaced", {sound.name}});
    }
    if (sound.isCut) {
        tell({"firstSeconds", {sound.name}});
    }
    return true;
}

bool SdlDoors::openFile() {
    if (doors != nullptr && isFreeForDialog()) {
        isDialogOpen = true;
        dialogs.start([this, frame = frameOf("openSound"), filter = words("soundFiles")] {
            const FileDialog::Answer answer = FileDialog::open(frame, filter);
            return [this, answer] { return opened(answer); };
        });
    }
    return false;
}

bool SdlDoors::opened(const FileDialog::Answer& answer) {
    isDialogOpen = false;
    if (answer.kind == FileDialog::Answer::Kind::kNoDialog) {
        tell({"dropHere", {}});
    }
    return answer.kind == FileDialog::Answer::Kind::kChosen && useFile(answer.uri);
}

bool SdlDoors::bringBack() {
    if (doors != nullptr) {
        startReadingTake([this](const std::vector<int16_t>& samples) {
            if (useTake(samples)) {
                return true;
            }
            tell({"notNow", {}});
            return false;
        });
    }
    return false;
}

void SdlDoors::bringBackFromOutside() {
    if (doors == nullptr || ScreenNames::isBeforeMenu(doors->screenName())) {
        bringBackLater();
    } else {
        bringBack();
    }
}

void SdlDoors::startReadingTake(std::function<bool(const std::vector<int16_t>&)> done) {
    if (!takes.isThere()) {
        tell({"noLastTake", {}});
        return;
    }
    const int64_t reading = ++newestReading;
    backgroundWork.start([this, reading, last = takes.lastTake(), done = std::move(done)] {
        std::vector<int16_t> samples;
        const Problem problem = last.bringBack(samples);
        return [this, reading, samples = std::move(samples), problem, done] {
            if (doors == nullptr || reading != newestReading) {
                return false;
            }
            if (problem) {
                tell({"notBack", {SoundFile::reasonOf(problem)}});
                return false;
            }
            return done(samples);
        };
    });
}

bool SdlDoors::useTake(const std::vector<int16_t>& samples) {
    if (!doors->useTake(samples.data(), static_cast<int32_t>(samples.size()))) {
        return false;
    }
    takes.broughtBack();
    isFromFile = false;
    savedEffect = -1;
    tell({"takeIsBack", {}});
    return true;
}

bool SdlDoors::forget() {
    if (const Problem problem = takes.forget()) {
        tell({"notForgotten", {LastTake::reasonOf(problem)}});
    } else {
        tell({"takeForgotten", {}});
    }
    return false;
}

bool SdlDoors::deliver() {
    if (backgroundWork.deliver() || dialogs.deliver()) {
        return true;
    }
    if (doors == nullptr) {
        return false;
    }
    if (std::exchange(bringsBack, false)) {
        startReadingTake([this](const std::vector<int16_t>& samples) {
            offeredTake = samples;
            return false;
        });
    }
    if (!offeredTake.empty() && useTake(offeredTake)) {
        offeredTake.clear();
        return true;
    }
    if (!offeredTake.empty() && doors->screenName() == ScreenNames::kRecording) {
        offeredTake.clear();  // the new recording is the last take now
        tell({"takeNotBack", {}});
    }
    if (isOffering && doors->screenName() == ScreenNames::kRecording) {
        isOffering = false;
        offered = {};
        tell({"offerDropped", {offeredName}});
    }
    if (!offered.samples.empty() && take(offered)) {
        isOffering = false;
        offered = {};
        return true;
    }
    return false;
}

bool SdlDoors::finish() {
    dialogs.deliver();
    const bool isDone = backgroundWork.finish(kFinishMs);
    return isDone && !dialogs.isBusy();
}
