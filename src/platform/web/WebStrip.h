// SPDX-License-Identifier: MIT
// The strip in the page: what it says, and the wishes that only a page can fulfil.
#pragma once

#include "Host.h"
#include "Strip.h"
#include "WebPage.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

class WebStrip {
public:
    using Clock = std::function<int64_t()>;

    /// @param page   not owned
    /// @param nowMs  the strip's clock
    WebStrip(WebPage& page, std::string settingsFolder, Clock nowMs);

    Strip& strip() { return row; }

    /// The program has started, or (null) ended.
    void setDoors(HostDoors* offered);

    /// True while a sheet lies over the picture: the program gets no keys.
    bool coversPicture() { return row.model().sheet() != StripModel::Sheet::kNone; }

    /// Looks at the program, and asks the page for a frame if the strip looks different.
    void look();

    /// Asks the page for a frame if the strip looks different.
    void showIfNew();

    /// When look() is due, in milliseconds of the strip's clock; DueTime::kNever: when the
    /// program does something.
    int64_t dueMs() const { return row.dueMs(); }

    /// Tells it in the program's language.
    void tell(const HostMessage& message);

    /// Tells a text in the program's language.
    /// @param actionWord  empty: there is no action
    /// @param act         number by which the page knows the action: WebPage::act()
    void tell(const std::string& text, const std::string& actionWord, int32_t act);

    /// Closes the sheet or else the message. False if there is neither.
    bool close();

    // The microphone that the user has chosen.

    /// Its name; empty: the browser's choice.
    std::string chosenMicrophone() const;

    /// Those of WebPage::listMicrophones(), by the names that the browser shows: the list opens.
    void listMicrophones(std::vector<std::string> names);

    /// The browser has given that one. If another was wanted, the user is told.
    void microphoneGiven(const std::string& name);

    /// See WebHost.
    void fingersOnly(bool only) { hasFingersOnly = only; }

    /// Bring back the last take, if there is one.
    void onBringBack(std::function<void()> handler);

private:
    void open();
    void help();
    void useMicrophone(int32_t index);
    std::string word(const char* name);
    const std::string& language();

    WebPage& page;
    std::string choicePath;  // of the file with the name of the chosen microphone
    Clock nowMs;
    Strip row;
    HostDoors* doors = nullptr;
    std::vector<std::string> microphones;
    bool hasFingersOnly = false;
};
