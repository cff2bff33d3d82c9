# SPDX-License-Identifier: MIT
# The tests of the sound files and the effects.
murmelo_tests(audio_tests
    SOURCES
        app/common/audio/AudioSupport.cpp
        app/common/audio/EffectProof_test.cpp
        app/common/audio/FxCatalogue_test.cpp
        app/common/audio/GrainSearch_test.cpp
        app/common/audio/GranularSynth_test.cpp
        app/common/audio/Lpc_test.cpp
        app/common/audio/MathUtils_test.cpp
        app/common/audio/MeanFilter_test.cpp
        app/common/audio/Rnd_test.cpp
        app/common/audio/SampleKeep_test.cpp
        app/common/audio/SlowEffects.cpp
        app/common/audio/Survival_test.cpp
        app/common/audio/WavFile_test.cpp
        app/common/audio/WavProc_test.cpp
        app/common/audio/WavProps_test.cpp
        app/common/audio/WpMicPostProc_test.cpp
        app/common/audio/WpPitchAndTimeStretch_test.cpp
        app/common/audio/WpRobot_test.cpp
        app/common/audio/WpSimple_test.cpp
    LINK murmelo_audio)
target_compile_definitions(audio_tests PRIVATE $<$<BOOL:${MURMELO_SANITIZE}>:MURMELO_SANITIZED>)
