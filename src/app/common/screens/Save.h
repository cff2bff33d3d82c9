// SPDX-License-Identifier: MIT
// Copies the processed take to the next free numbered name and shows the path.
#pragma once

#include "Screen.h"

#include <memory>

class Save : public Screen {
public:
    Save();
    ~Save() override;

    /// If the result on file is outdated, first makes it again, and then enters this screen again.
    void onEnter() override;

    void onEvent(Event* event) override;

    /// The number of sounds saved in this run.
    int32_t getSavedCount() const { return savedCount; }

    /// Name of the file chosen last. The file is complete once the count has increased. Null before
    /// the first.
    const Osp::Base::String* getSavedName() const { return name.get(); }

    static void static_ctor();

    static int32_t uriStrId;  // its text is the full path of the file saved last

private:
    bool copyResult();

    std::unique_ptr<Osp::Base::String> name;
    int32_t savedCount = 0;
};
