// SPDX-License-Identifier: MIT
// The list of classes runs every initialiser in the fixed order, and each class has its own.
#include "ClassLife.h"
#include "ClassList.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

TEST(ClassList, initialisersRunInTheirFixedOrder) {
    const std::vector<std::string> expected = {"Res",
                                               "ResFont",
                                               "ResImage",
                                               "ResNull",
                                               "ResObject",
                                               "Resource",
                                               "ResString",
                                               "AbstractPainter",
                                               "AppImage",
                                               "AudioDev",
                                               "Orm",
                                               "OrmCanvas",
                                               "BitMapCharacter",
                                               "BitMapFont",
                                               "Bounded",
                                               "Bounds",
                                               "Butterworth",
                                               "Event",
                                               "FileOps",
                                               "FirstLang",
                                               "Fx",
                                               "GranularSynth",
                                               "Header",
                                               "ImageOps",
                                               "IntArrayCurve",
                                               "Listener",
                                               "Lpc",
                                               "Main",
                                               "MathUtils",
                                               "MeanFilter",
                                               "Message",
                                               "MessageAndQuit",
                                               "Options",
                                               "PaColor",
                                               "PaImage",
                                               "Painter",
                                               "PainterArray",
                                               "PaStretcher",
                                               "PaTextArea",
                                               "PaTextLabel",
                                               "PixProps",
                                               "Play",
                                               "Playing",
                                               "PngEncoder",
                                               "Point",
                                               "Process",
                                               "Progress",
                                               "Record",
                                               "Recording",
                                               "Rnd",
                                               "Save",
                                               "Screenshooter",
                                               "Scroller",
                                               "SkBar",
                                               "Splash",
                                               "State",
                                               "Str",
                                               "StrEU",
                                               "StrUtils",
                                               "VectorUtils",
                                               "Murmelo",
                                               "WavProc",
                                               "WavProps",
                                               "WpMicPostProc",
                                               "WpNoEffect",
                                               "WpPitchAndTimeStretch",
                                               "WpReverse",
                                               "WpRobot",
                                               "WpVocoder",
                                               "G",
                                               "Menu"};
    int32_t count = 0;
    const ClassListEntry* entries = ClassList::entries(count);
    std::vector<std::string> found;
    found.reserve(static_cast<size_t>(count));
    for (int32_t i = 0; i < count; i++) {
        found.emplace_back(entries[i].name);
    }
    EXPECT_EQ(expected, found);
}

TEST(ClassList, noClassInheritsWhatItsBaseDoesForItself) {
    int32_t count = 0;
    const ClassListEntry* entries = ClassList::entries(count);
    std::map<void (*)(), std::vector<std::string>> classes;
    for (int32_t i = 0; i < count; i++) {
        classes[entries[i].staticCtor].emplace_back(entries[i].name);
        classes[entries[i].staticDtor].emplace_back(entries[i].name);
    }
    for (const auto& [step, names] : classes) {
        if (step != &ClassLife::static_ctor && step != &ClassLife::static_dtor) {
            EXPECT_EQ(1U, names.size()) << names.front() << " and " << names.back();
        }
    }
}
