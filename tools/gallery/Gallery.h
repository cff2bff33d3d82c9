// SPDX-License-Identifier: MIT
// Makes the sheets of the gallery. The registry and the texts must have been set up.
#pragma once

#include <cstdint>
#include <string>

class Sheet;

class Gallery {
public:
    /// False if the file cannot be written.
    static bool showAll(const std::string& data, const std::string& out, int32_t scale);

    /// Shows one column of texts for each pair of fonts in the folder, which must be mapped to
    /// "/Home/".
    static bool compareFonts(const std::string& candidates, const std::string& out, int32_t scale);

private:
    static int32_t showScenes(Sheet& sheet, int32_t y);
    static int32_t showPictures(Sheet& sheet, int32_t y, const std::string& data);
    static int32_t showFonts(Sheet& sheet, int32_t y);
    static int32_t showTexts(Sheet& sheet, int32_t y);
    static int32_t showFits(Sheet& sheet, int32_t y);
};
