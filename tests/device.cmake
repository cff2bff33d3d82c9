# Sound and the back ends: what records, plays and shows.
murmelo_tests(device_tests
    SOURCES
        app/common/frame/AudioDev_test.cpp
        platform/FileMicrophone_test.cpp
        platform/SoundFile_test.cpp
        platform/headless/FileSpeaker_test.cpp
        platform/headless/HeadlessSound_test.cpp
        platform/osp/OspBuffer_test.cpp
        platform/osp/OspMedia_test.cpp
    LINK murmelo_app murmelo_headless_host murmelo_sounds)
