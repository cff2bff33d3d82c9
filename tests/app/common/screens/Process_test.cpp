// SPDX-License-Identifier: MIT
// The work on a sound goes slice by slice, shows its progress, and can be paused or fail.
#include "AppImage.h"
#include "ArrFunc.h"
#include "Bounds.h"
#include "Fx.h"
#include "G.h"
#include "Orm.h"
#include "OrmCanvas.h"
#include "OspBase.h"
#include "PaTextArea.h"
#include "Process.h"
#include "Progress.h"
#include "ScreensTest.h"
#include "SkBar.h"
#include "State.h"
#include "Str.h"
#include "TestSounds.h"
#include "WavProc.h"

#include <algorithm>

using Osp::Base::String;

namespace {

/// A processor that reports the given progress values, one for each slice; its result is each
/// sample plus one.
class SlicedProc : public WavProc {
public:
    explicit SlicedProc(std::vector<int32_t> progresses)
        : progresses(std::move(progresses)) {}

    void doInit() override {
        inits++;
        rateHz = srateHz;
        newResult(length(source));
        for (int32_t i = 0; i < length(source); i++) {
            result[i] = source[i] + 1;
        }
    }

    int32_t doProcess() override { return progresses[static_cast<size_t>(slices++)]; }

    void doCleanup() override { cleanups++; }

    std::vector<int32_t> progresses;
    int32_t slices = 0;
    int32_t inits = 0;
    int32_t cleanups = 0;
    int32_t rateHz = 0;
};

class ProcessTest : public ScreensTest {
protected:
    ProcessTest() {
        makeSoundFolder();
        putTake({5, 5});
        State::setState(G::statePlay, true, true);
    }

    static int32_t* samples() {
        auto* array = newArray<int32_t>(3);
        array[0] = 100;
        array[1] = -200;
        array[2] = 300;
        return array;
    }

    void start(WavProc* processor, const char* path = "/Home/Murmelo/MrmLastProc.wav") {
        Process::enter(samples(), processor, new String(path), G::stateSave, G::stateOptions);
    }

    static void run() { Orm::canvas->run(); }
};

}  // namespace

TEST_F(ProcessTest, beginsWithAnEmptyBarAndNoKeys) {
    SlicedProc processor({1024});
    start(&processor);
    EXPECT_EQ("Process", screen());
    EXPECT_EQ(State::currState, G::stateProcess);
    EXPECT_EQ(Names{"Update@0"}, pending());
    EXPECT_EQ((Names{"-", "-", "-"}), labels());
    EXPECT_EQ(Str::str_PLEASE_WAIT, Progress::caption->getText());
    EXPECT_EQ(0, processor.inits);
}

TEST_F(ProcessTest, theFirstUpdateInitialisesAndEachFurtherOneIsOneSlice) {
    SlicedProc processor({10, 500, 500, 1024});
    start(&processor);
    run();
    EXPECT_EQ(1, processor.inits);
    EXPECT_EQ(8000, processor.rateHz);
    EXPECT_EQ(0, processor.slices);
    EXPECT_EQ(Names{"Update@0"}, pending());
    for (int32_t slice = 1; slice <= 3; slice++) {
        run();
        EXPECT_EQ(slice, processor.slices);
        EXPECT_EQ("Process", screen());
        EXPECT_EQ(Names{"Update@0"}, pending());
    }
    run();
    EXPECT_EQ(4, processor.slices);
    EXPECT_NE("Process", screen());
}

TEST_F(ProcessTest, theBarShowsTheProgressOfEachSlice) {
    SlicedProc processor({512, 1024});
    start(&processor);
    run();
    const int32_t y = Progress::bar->y + Progress::bar->h / 2;
    const int32_t middle = Progress::bar->x + 2 + (Progress::bar->w - 4) / 2;
    const uint32_t trough = G::scr->get(middle - 1, y);
    run();
    EXPECT_NE(trough, G::scr->get(middle - 1, y));
    EXPECT_EQ(trough, G::scr->get(middle, y));
}

TEST_F(ProcessTest, aSliceThatMovesTheBarByNoPixelPaintsNothing) {
    SlicedProc processor({512, 513, 520, 1024});
    start(&processor);
    run();
    run();  // the first slice
    Osp::Graphics::RowMarks marks(G::scr->h);
    G::scr->watchRows(&marks);
    const auto rowsPainted = [&] {
        marks.clear();
        run();
        const Osp::Graphics::RowMarks::Run rows = marks.next(0);
        return std::vector<int32_t>{rows.first, rows.count};
    };
    EXPECT_EQ(0, rowsPainted()[1]);
    EXPECT_EQ((std::vector<int32_t>{Progress::bar->y, Progress::bar->h}), rowsPainted());
    G::scr->watchRows(nullptr);
}

TEST_F(ProcessTest, aResultOfTheEffectMarksTheEffectAsPlayed) {
    G::setCurrFx(2);
    SlicedProc processor({1024});
    Process::enter(samples(), &processor, new String("/Home/Murmelo/MrmLastProc.wav"), G::statePlay,
                   G::stateOptions);
    tick();
    EXPECT_EQ(2, G::getLastPlayedFx());
    EXPECT_EQ(TestSounds::wav({101, -199, 301}, 8000), folders.read(kResult));
    EXPECT_EQ(-1, processor.getLastProgress());
}

TEST_F(ProcessTest, anotherTargetMarksNothing) {
    SlicedProc processor({1024});
    Process::enter(samples(), &processor, new String("/Home/Murmelo/MrmLastRec.wav"), G::statePlay,
                   G::stateOptions);
    tick();
    EXPECT_EQ(-1, G::getLastPlayedFx());
    EXPECT_EQ(TestSounds::wav({101, -199, 301}, 8000), folders.read(kTake));
}

TEST_F(ProcessTest, aResultThatCannotBeWrittenIsFatal) {
    SlicedProc processor({1024});
    start(&processor);
    run();
    host.failNth("File.Write", 1);
    run();
    EXPECT_EQ(kStorageLow, fatalBody());
    EXPECT_EQ(-1, G::getLastPlayedFx());
    EXPECT_FALSE(hasResult());
    const Pixels shown = picture(0, 0, 240, SkBar::y1);
    EXPECT_TRUE(fatalPicture(2) == shown);  // no progress shines through
}

TEST_F(ProcessTest, aResultThatCannotBeOpenedIsFatal) {
    SlicedProc processor({1024});
    start(&processor);
    run();
    host.failNth("File.Construct", 1);
    run();
    EXPECT_EQ(kStorageLow, fatalBody());
}

TEST_F(ProcessTest, aPauseCleansTheProcessorUpAndGoesBack) {
    SlicedProc processor({10, 20, 1024});
    start(&processor);
    run();
    run();
    Orm::setPaused(true);
    EXPECT_EQ("Options", screen());
    EXPECT_EQ(1, processor.cleanups);
    EXPECT_EQ(-1, processor.getLastProgress());
    EXPECT_TRUE(pending().empty());
    EXPECT_FALSE(hasResult());
}

TEST_F(ProcessTest, aPauseBeforeTheFirstSliceGoesBackToo) {
    SlicedProc processor({1024});
    start(&processor);
    Orm::setPaused(true);
    EXPECT_EQ("Options", screen());
    EXPECT_EQ(0, processor.inits);
}

TEST_F(ProcessTest, anErrorOfTheProcessorStartsItAgain) {
    SlicedProc processor({500, 400, 1024});
    start(&processor);
    run();
    run();
    run();  // goes backwards: ends the run
    EXPECT_EQ(1, processor.cleanups);
    EXPECT_EQ(Names{"Update@0"}, pending());
    run();
    EXPECT_EQ(2, processor.inits);
}

TEST_F(ProcessTest, anUpdateAfterTheEndOfTheRunDoesNothing) {
    SlicedProc processor({1024});
    auto* array = newArray<int32_t>(1);
    processor.init(array, 8000);
    deleteArrFunc(array);
    processor.process();
    start(&processor);
    run();
    EXPECT_EQ("Process", screen());
    EXPECT_EQ(1, processor.slices);
    EXPECT_TRUE(pending().empty());
    processor.cleanUp();
}

TEST_F(ProcessTest, keysTouchesAndOtherEventsDoNothing) {
    SlicedProc processor({10, 20, 30, 40, 50, 60, 70, 80});
    start(&processor);
    for (const int32_t code : {-1, -2, -3, -4, -5, -6, -7}) {
        Orm::canvas->keyPressed(code);
        run();
    }
    deliver(Orm::EV_T_SYS_RESUME);
    deliver(Orm::EV_T_SYS_DISPOSE);
    EXPECT_EQ("Process", screen());
}

TEST_F(ProcessTest, aNewJobDeletesTheOneBefore) {
    SlicedProc processor({1024});
    start(&processor);
    const Process* first = G::stateProcess;
    State::setState(G::statePlay, true, true);
    EXPECT_EQ(first, G::stateProcess);
    start(&processor);
    EXPECT_EQ(State::currState, G::stateProcess);
}

TEST_F(ProcessTest, aSoundWithoutSamplesIsASoundToo) {
    SlicedProc processor({1024});
    Process::enter(newArray<int32_t>(0), &processor, new String("/Home/Murmelo/MrmLastProc.wav"),
                   G::statePlay, G::stateOptions);
    tick();
    EXPECT_EQ("Play", screen());
    EXPECT_EQ(TestSounds::wav({}, 8000), folders.read(kResult));
}

TEST_F(ProcessTest, hearsTheSevenNamesOfEveryScreen) {
    SlicedProc processor({1024});
    start(&processor);
    EXPECT_EQ(G::eventTypesAllStd, G::stateProcess->getSubscriptions());
}
