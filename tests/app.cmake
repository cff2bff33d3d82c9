# SPDX-License-Identifier: MIT
# Tests that link the whole application and the headless back end.
murmelo_tests(app_tests
    SOURCES
        app/common/ClassList_test.cpp
        app/common/frame/FileOps_test.cpp
        app/common/frame/OrmCanvas_test.cpp
        app/common/frame/Orm_test.cpp
        app/common/frame/State_test.cpp
        app/common/painting/PaColor_test.cpp
        app/common/painting/PaImage_test.cpp
        app/common/painting/PaStretcher_test.cpp
        app/common/painting/PaTextArea_test.cpp
        app/common/painting/PaTextLabel_test.cpp
        app/common/painting/PainterArray_test.cpp
        app/common/resources/ResImage_test.cpp
        app/common/resources/Res_test.cpp
        app/common/resources/Str_test.cpp
        ../tools/gallery/StrFit.cpp
        platform/GEngine_test.cpp
        platform/headless/FrameCheck_test.cpp
        platform/headless/Script_test.cpp
        platform/osp/AppRegistry_test.cpp
        platform/osp/OspGraphics_test.cpp
        platform/osp/RowMarks_test.cpp
    LINK murmelo_app murmelo_headless_host)
target_include_directories(app_tests PRIVATE ../tools/gallery)
target_compile_definitions(app_tests PRIVATE
    MURMELO_VERSION="${PROJECT_VERSION}")
