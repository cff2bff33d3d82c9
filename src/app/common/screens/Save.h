// Copies the processed take to the next free numbered name and says where it lies.
#pragma once

#include "Screen.h"

#include <memory>

class Save : public Screen {
public:
    Save();
    ~Save() override;

    /// A stale result is made anew first; this screen is then entered again.
    void onEnter() override;

    void onEvent(Event* event) override;

    /// How many sounds were saved in this run.
    int32_t getSavedCount() const { return savedCount; }

    /// Name of the file chosen last; the file of that name is whole once the count has risen. Null
    /// before the first.
    const Osp::Base::String* getSavedName() const { return name.get(); }

    static void static_ctor();

    static int32_t uriStrId;  // its text is the full path of the file saved last

private:
    bool copyResult();

    std::unique_ptr<Osp::Base::String> name;
    int32_t savedCount = 0;
};
