# SPDX-License-Identifier: MIT
# Tests of sound and of the back ends.
murmelo_tests(device_tests
    SOURCES
        app/common/frame/AudioDev_test.cpp
        platform/DiskSync.cpp
        platform/FileMicrophone_test.cpp
        platform/FileSpeaker_test.cpp
        platform/FileUri_test.cpp
        platform/FolderSync_test.cpp
        platform/LastTake_test.cpp
        platform/QuietLibrary_test.cpp
        platform/SoundExport_test.cpp
        platform/Resampler_test.cpp
        platform/SoundFile_test.cpp
        platform/headless/HeadlessSound_test.cpp
        platform/headless/KeptTake_test.cpp
        platform/osp/OspBuffer_test.cpp
        platform/osp/OspMedia_test.cpp
    LINK murmelo_app murmelo_headless_host murmelo_files PkgConfig::SNDFILE)

murmelo_tests(strip_tests
    SOURCES
        platform/host/LevelMeter_test.cpp
        platform/strip/StripFeed_test.cpp
        platform/strip/StripFrame_test.cpp
        platform/strip/StripModel_test.cpp
        platform/strip/StripPainter_test.cpp
        platform/strip/TextRows_test.cpp
    LINK murmelo_app murmelo_strip)

murmelo_tests(web_tests
    SOURCES
        platform/host/HostMessage_test.cpp
        platform/host/HostWords_test.cpp
        platform/host/KeyRules_test.cpp
        platform/host/KeyWalk_test.cpp
        platform/host/Languages_test.cpp
        platform/host/OneFinger_test.cpp
        platform/host/WindowLayout_test.cpp
        platform/web/PlainWav_test.cpp
        platform/web/RateTo16k_test.cpp
        platform/web/WebHostMicrophone_test.cpp
        platform/web/WebHostStrip_test.cpp
        platform/web/WebHostTakes_test.cpp
        platform/web/WebHost_test.cpp
        platform/web/WebSounds_test.cpp
        platform/web/WebTexts_test.cpp
    LINK murmelo_app murmelo_web_host)
list(JOIN languages " " language_codes)
target_compile_definitions(web_tests PRIVATE
    MURMELO_SOURCE_DIR="${CMAKE_SOURCE_DIR}" MURMELO_LANGUAGES="${language_codes}")

murmelo_tests(sdl_tests
    SOURCES
        platform/sdl/DesktopNotice_test.cpp
        platform/sdl/EventWait_test.cpp
        platform/sdl/FileDialog_test.cpp
        platform/sdl/FileManager_test.cpp
        platform/sdl/MicrophoneWatch_test.cpp
        platform/sdl/OwnSize_test.cpp
        platform/sdl/PictureScaler_test.cpp
        platform/sdl/PngIcon_test.cpp
        platform/sdl/Program.cpp
        platform/sdl/SdlDoors_test.cpp
        platform/sdl/SdlHost_test.cpp
        platform/sdl/SdlInput_test.cpp
        platform/sdl/SdlKeys_test.cpp
        platform/sdl/SdlMicrophone_test.cpp
        platform/sdl/SdlPictures_test.cpp
        platform/sdl/SdlStrip_test.cpp
        platform/sdl/SdlWindow_test.cpp
        platform/sdl/SdlWishes_test.cpp
        platform/sdl/SpokenScreen_test.cpp
        platform/sdl/StartSocket_test.cpp
        platform/sdl/SystemLanguage_test.cpp
        platform/sdl/WindowMemory_test.cpp
        platform/sdl/WindowSizes_test.cpp
        platform/sdl/WindowTitle_test.cpp
    LINK murmelo_app murmelo_sdl_host)
target_compile_definitions(sdl_tests PRIVATE
    MURMELO_SOURCE_DIR="${CMAKE_SOURCE_DIR}" SDL_MAIN_HANDLED)

# The program without a display.
add_test(NAME NoDisplay
    COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/platform/sdl/no-display.sh $<TARGET_FILE:murmelo>)
set_tests_properties(NoDisplay PROPERTIES TIMEOUT 600)

# The window and its sound, with an X server and a sound server that each case starts and ends.
find_package(X11 REQUIRED)
add_executable(real_tests
    platform/sdl/Program.cpp
    platform/sdl/RealLoss_test.cpp
    platform/sdl/RealProgram_test.cpp
    platform/sdl/RealSound_test.cpp
    platform/sdl/RealWindow_test.cpp
    platform/sdl/XScreen.cpp)
target_link_libraries(real_tests PRIVATE
    murmelo_tests_support murmelo_app murmelo_sdl_host X11::X11 GTest::gtest_main)
target_compile_definitions(real_tests PRIVATE
    MURMELO_PROGRAM_FOLDER="${CMAKE_BINARY_DIR}" SDL_MAIN_HANDLED
    MURMELO_SOURCE_DIR="${CMAKE_SOURCE_DIR}"
    MURMELO_PLAIN_WINDOW="${CMAKE_CURRENT_BINARY_DIR}/plain-window"
    MURMELO_ICON_FILE="${CMAKE_SOURCE_DIR}/res/icons/murmelo-64.png"
    MURMELO_SYNC_SHIM="$<TARGET_FILE:sync_shim>"
    $<$<OR:$<BOOL:${MURMELO_SANITIZE}>,$<BOOL:${MURMELO_COVERAGE}>>:MURMELO_SANITIZED>)
add_executable(plain-window platform/sdl/plain-window.cpp)
target_compile_definitions(plain-window PRIVATE SDL_MAIN_HANDLED)
target_link_libraries(plain-window PRIVATE murmelo_sdl_host)
add_dependencies(real_tests murmelo plain-window sync_shim)
add_test(NAME RealWayland
    COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/platform/sdl/with-desktop
        ${CMAKE_CURRENT_SOURCE_DIR}/platform/sdl/wayland.sh
        $<TARGET_FILE:murmelo> $<TARGET_FILE:murmelo-headless>)
add_test(NAME RealSpeech
    COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/platform/sdl/with-desktop
        ${CMAKE_CURRENT_SOURCE_DIR}/platform/sdl/speak.sh $<TARGET_FILE:murmelo>)
foreach(group RealProgram RealWindow RealSound RealLoss)
    add_test(NAME ${group}
        COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/platform/sdl/with-desktop
            $<TARGET_FILE:real_tests> --gtest_filter=${group}.*:*/${group}.*:${group}Program.*:${group}Silence.*:${group}Dialog.*)
endforeach()
set_tests_properties(RealWayland RealSpeech RealProgram RealWindow RealSound RealLoss PROPERTIES
    SKIP_RETURN_CODE 77 TIMEOUT 930 RUN_SERIAL TRUE LABELS desktop)
