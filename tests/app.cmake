murmelo_tests(app_tests
    SOURCES
        app/common/ClassList_test.cpp
        app/common/frame/FileOps_test.cpp
        app/common/frame/OrmCanvas_test.cpp
        app/common/frame/Orm_test.cpp
        app/common/frame/State_test.cpp
        platform/GEngine_test.cpp
        platform/headless/Script_test.cpp
        platform/osp/AppRegistry_test.cpp
        platform/osp/OspGraphics_test.cpp
    LINK murmelo_app murmelo_headless_host)
target_compile_definitions(app_tests PRIVATE MURMELO_VERSION="${PROJECT_VERSION}")
