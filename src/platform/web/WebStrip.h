// SPDX-License-Identifier: MIT
// The strip in the page: tells messages, and fulfils the wishes that only a page can.
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

    /// Updates the strip from the program, and asks the page for a frame if the strip looks
    /// different.
    void look();

    /// Asks the page for a frame if the strip looks different.
    void showIfNew();

    /// When look() is due, in milliseconds of the strip's clock; DueTime::kNever: not before the
    /// program does something.
    int64_t dueMs() const { return row.dueMs(); }

    /// Shows a message in the program's language.
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

    /// Opens the list of microphones. @param names as the browser shows them
    void listMicrophones(std::vector<std::string> names);

    /// The browser has granted this microphone. If the user had chosen another, tells so.
    void microphoneGiven(const std::string& name);

    /// See WebHost::fingersOnly().
    void fingersOnly(bool only) { hasFingersOnly = only; }

    /// Sets what the wish to bring back the last take calls.
    void onBringBack(std::function<void()> handler);

private:
    void open();
    void help();
    void useMicrophone(int32_t index);
    std::string word(const char* name);
    const std::string& language();

    WebPage& page;
    std::string choicePath;  // path of the file that stores the chosen microphone's name
    Clock nowMs;
    Strip row;
    HostDoors* doors = nullptr;
    std::vector<std::string> microphones;
    bool hasFingersOnly = false;
};
