# SPDX-License-Identifier: MIT
# Tests of the screens, with the program's real pictures and fonts.
murmelo_tests(screens_tests
    SOURCES
        app/common/frame/G_test.cpp
        app/common/frame/Murmelo_test.cpp
        app/common/frame/Screenshooter_test.cpp
        app/common/screens/CleanStart_test.cpp
        app/common/screens/FirstLang_test.cpp
        app/common/screens/FreshPicture_test.cpp
        app/common/screens/Header_test.cpp
        app/common/screens/Main_test.cpp
        app/common/screens/Menu_test.cpp
        app/common/screens/Message_test.cpp
        app/common/screens/Options_test.cpp
        app/common/screens/MessageAndQuit_test.cpp
        app/common/screens/OnScreen_test.cpp
        app/common/screens/Play_test.cpp
        app/common/screens/Playing_test.cpp
        app/common/screens/Process_test.cpp
        app/common/screens/Progress_test.cpp
        app/common/screens/Record_test.cpp
        app/common/screens/Recording_test.cpp
        app/common/screens/Save_test.cpp
        app/common/screens/ScreensTest.cpp
        app/common/screens/Scroller_test.cpp
        app/common/screens/SilentQuestion_test.cpp
        app/common/screens/SkBar_test.cpp
        app/common/screens/Splash_test.cpp
        app/common/screens/TakeJob_test.cpp
        app/common/screens/Wheels_test.cpp
        platform/GameInterface_test.cpp
    LINK murmelo_app murmelo_headless_host murmelo_files)
target_include_directories(screens_tests PRIVATE app/common/screens)
