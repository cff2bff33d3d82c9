// SPDX-License-Identifier: MIT
// Saving, exporting, and pictures of the screen.
#include "FileUri.h"
#include "QuietLibrary.h"
#include "ScreenPicture.h"
#include "SdlDoors.h"
#include "SoundExport.h"

#include <unistd.h>
#include <utility>

namespace {

void print(const std::string& path) {
    QuietLibrary::print(STDOUT_FILENO, path + "\n");
}

/// Writes a saved sound into the file of an address. Returns what to tell the user.
HostMessage exportTo(const std::string& saved, const std::string& uri) {
    std::string path = uri;
    if (const Problem problem = FileUri::toPath(uri, path)) {
        return {"notExported", {path, problem.sentence()}};
    }
    std::vector<int16_t> samples;
    if (const Problem problem = SoundExport::read(saved, samples)) {
        return {"savedUnreadable", {saved, problem.sentence()}};
    }
    if (const Problem problem = SoundExport::write(samples, path)) {
        return {"notExported", {path, problem.sentence()}};
    }
    return {"exported", {path}};
}

}  // namespace

bool SdlDoors::save() {
    if (doors == nullptr) {
        return false;
    }
    exportsNext = false;
    if (doors->saveSound()) {
        return true;
    }
    tell({doors->canUseSound() ? "nothingToSave" : "notNow", {}});
    return false;
}

bool SdlDoors::exportSound() {
    if (doors == nullptr || !isFreeForDialog()) {
        return false;
    }
    if (savedEffect >= 0 && savedEffect == doors->currentEffect() && !doors->savedName().empty()) {
        askForExport();
        return false;
    }
    exportsNext = save();
    return exportsNext;
}

void SdlDoors::askForExport() {
    isDialogOpen = true;
    const std::string saved = folders.sounds() + "/" + doors->savedName();
    const std::string name = SoundExport::nameOf(doors->savedName(), effectWord(savedEffect));
    dialogs.start([this, saved, name, frame = frameOf("exportSound"), folder = folders.sounds()] {
        const FileDialog::Answer answer = FileDialog::save(frame, name, folder);
        return [this, answer, saved] { return exportChosen(answer, saved); };
    });
}

bool SdlDoors::exportChosen(const FileDialog::Answer& answer, const std::string& saved) {
    isDialogOpen = false;
    if (answer.kind == FileDialog::Answer::Kind::kNoDialog) {
        tell({"exportedNowhere", {saved}});
    } else if (answer.kind == FileDialog::Answer::Kind::kChosen) {
        startExport(saved, answer.uri);
    }
    return false;
}

void SdlDoors::startExport(const std::string& saved, const std::string& uri) {
    backgroundWork.start([this, saved, uri] {
        return [this, message = exportTo(saved, uri)] {
            tell(message);
            return false;
        };
    });
}

void SdlDoors::takePicture() {
    if (doors == nullptr) {
        return;
    }
    backgroundWork.start([this, folder = folders.sounds(), png = doors->canvasPng()] {
        std::string path;
        const Problem problem = ScreenPicture::write(folder, png, path);
        return [this, folder, path, problem] {
            if (problem) {
                tell({"notExported", {folder, problem.sentence()}});
                return false;
            }
            print(path);
            if (tellPicture) {
                tellPicture(path);
            }
            return false;
        };
    });
}

void SdlDoors::tellSaved() {
    const int32_t saved = doors != nullptr ? doors->savedCount() : savedBefore;
    if (saved == savedBefore) {
        // The program is at rest again and nothing was saved: saving has failed, and the user was
        // told why.
        if (exportsNext && doors != nullptr && doors->canUseSound()) {
            exportsNext = false;
        }
        return;
    }
    savedBefore = saved;
    savedEffect = doors->currentEffect();
    print(folders.sounds() + "/" + doors->savedName());
    if (std::exchange(exportsNext, false) && isFreeForDialog()) {
        askForExport();
    }
}
