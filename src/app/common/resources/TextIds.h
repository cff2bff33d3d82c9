// SPDX-License-Identifier: MIT
// Ids of every text that the user sees; 0 is the id of "nothing".
#pragma once

#include <cstdint>

/// @tparam Edition  which set of texts the ids belong to; each has ids of its own
template <class Edition>
class TextIds {
public:
    /// Names of the languages, each in its own; counted array.
    static inline int32_t* str_LangNameIds = nullptr;

    // Without a gap from str_APP_NAME on, in this order.
    static inline int32_t str_APP_NAME = 0;
    static inline int32_t str_ROTATE_SCREEN = 0;
    static inline int32_t str_DLG_TITLE_ERROR = 0;
    static inline int32_t str_DLG_TITLE_HELP = 0;
    static inline int32_t str_DLG_TITLE_INFO = 0;
    static inline int32_t str_DLG_TITLE_LOW_MEM = 0;
    static inline int32_t str_DLG_TITLE_NO_MEM_CARD = 0;
    static inline int32_t str_ERROR_APPLICATION_WILL_QUIT_TXT = 0;
    static inline int32_t str_ERROR_AUDIO_NO_ACCESS_TXT = 0;
    static inline int32_t str_ERROR_DEV_NOT_SUPPORTED_TXT = 0;
    static inline int32_t str_ERROR_FILE_IO_TXT = 0;
    static inline int32_t str_ERROR_HEAP_TOO_LOW_TXT = 0;
    static inline int32_t str_FX_BACKWARDS = 0;
    static inline int32_t str_FX_DRUNK = 0;
    static inline int32_t str_FX_FAST_TALKER = 0;
    static inline int32_t str_FX_HIGH_PITCH = 0;
    static inline int32_t str_FX_INTONATION_FLIP = 0;
    static inline int32_t str_FX_LOW_PITCH = 0;
    static inline int32_t str_FX_NO_EFFECT = 0;
    static inline int32_t str_FX_RAPPER = 0;
    static inline int32_t str_FX_ROBOT = 0;
    static inline int32_t str_HELP_TXT = 0;
    static inline int32_t str_LBL_CREATED_NUM = 0;
    static inline int32_t str_LBL_LENGTH_NUM = 0;
    static inline int32_t str_LBL_LOCATION_NUM = 0;
    static inline int32_t str_LBL_PLAYING = 0;
    static inline int32_t str_LBL_RECORDING = 0;
    static inline int32_t str_LBL_SIZE_NUM = 0;
    static inline int32_t str_LBL_SOUND_SAVED_AS = 0;
    static inline int32_t str_LBL_SOUND_SAVED_MEM_CARD = 0;
    static inline int32_t str_LBL_SOUND_SAVED_PHONE = 0;
    static inline int32_t str_LOW_MEM_TXT = 0;
    static inline int32_t str_MI_HELP = 0;
    static inline int32_t str_MI_LANGUAGE = 0;
    static inline int32_t str_MI_SAVE = 0;
    static inline int32_t str_MI_SETTINGS = 0;
    static inline int32_t str_MI_SETTINGS_SAVE_TO = 0;
    static inline int32_t str_PLEASE_WAIT = 0;
    static inline int32_t str_SETTINGS_MEMORY_CARD = 0;
    static inline int32_t str_SETTINGS_PHONE = 0;
    static inline int32_t str_SK_BACK = 0;
    static inline int32_t str_SK_CANCEL = 0;
    static inline int32_t str_SK_INFO = 0;
    static inline int32_t str_SK_MENU = 0;
    static inline int32_t str_SK_NO = 0;
    static inline int32_t str_SK_OK = 0;
    static inline int32_t str_SK_OPTIONS = 0;
    static inline int32_t str_SK_PAUSE = 0;
    static inline int32_t str_SK_PLAY = 0;
    static inline int32_t str_SK_QUIT = 0;
    static inline int32_t str_SK_RECORD = 0;
    static inline int32_t str_SK_SELECT = 0;
    static inline int32_t str_SK_STOP = 0;
    static inline int32_t str_SK_YES = 0;
    static inline int32_t str_START_RECORDING = 0;
    static inline int32_t str_SILENT_DEVICE = 0;
};
