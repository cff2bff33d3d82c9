// The same ids as Str for an edition with European texts only. There is no such edition: nothing is
// registered, and every id is that of "nothing".
#pragma once

#include <cstdint>

class StrEU {
public:
    static void static_ctor() {}

    static void static_dtor() {}

    static int32_t* str_LangNameIds;  // null
    static int32_t str_APP_NAME;
    static int32_t str_ROTATE_SCREEN;
    static int32_t str_DLG_TITLE_ERROR;
    static int32_t str_DLG_TITLE_HELP;
    static int32_t str_DLG_TITLE_INFO;
    static int32_t str_DLG_TITLE_LOW_MEM;
    static int32_t str_DLG_TITLE_NO_MEM_CARD;
    static int32_t str_ERROR_APPLICATION_WILL_QUIT_TXT;
    static int32_t str_ERROR_AUDIO_NO_ACCESS_TXT;
    static int32_t str_ERROR_DEV_NOT_SUPPORTED_TXT;
    static int32_t str_ERROR_FILE_IO_TXT;
    static int32_t str_ERROR_HEAP_TOO_LOW_TXT;
    static int32_t str_FX_BACKWARDS;
    static int32_t str_FX_DRUNK;
    static int32_t str_FX_FAST_TALKER;
    static int32_t str_FX_HIGH_PITCH;
    static int32_t str_FX_INTONATION_FLIP;
    static int32_t str_FX_LOW_PITCH;
    static int32_t str_FX_NO_EFFECT;
    static int32_t str_FX_RAPPER;
    static int32_t str_FX_ROBOT;
    static int32_t str_HELP_TXT;
    static int32_t str_LBL_CREATED_NUM;
    static int32_t str_LBL_LENGTH_NUM;
    static int32_t str_LBL_LOCATION_NUM;
    static int32_t str_LBL_PLAYING;
    static int32_t str_LBL_RECORDING;
    static int32_t str_LBL_SIZE_NUM;
    static int32_t str_LBL_SOUND_SAVED_AS;
    static int32_t str_LBL_SOUND_SAVED_MEM_CARD;
    static int32_t str_LBL_SOUND_SAVED_PHONE;
    static int32_t str_LOW_MEM_TXT;
    static int32_t str_MI_HELP;
    static int32_t str_MI_LANGUAGE;
    static int32_t str_MI_SAVE;
    static int32_t str_MI_SETTINGS;
    static int32_t str_MI_SETTINGS_SAVE_TO;
    static int32_t str_PLEASE_WAIT;
    static int32_t str_SETTINGS_MEMORY_CARD;
    static int32_t str_SETTINGS_PHONE;
    static int32_t str_SK_BACK;
    static int32_t str_SK_CANCEL;
    static int32_t str_SK_INFO;
    static int32_t str_SK_MENU;
    static int32_t str_SK_NO;
    static int32_t str_SK_OK;
    static int32_t str_SK_OPTIONS;
    static int32_t str_SK_PAUSE;
    static int32_t str_SK_PLAY;
    static int32_t str_SK_QUIT;
    static int32_t str_SK_RECORD;
    static int32_t str_SK_SELECT;
    static int32_t str_SK_STOP;
    static int32_t str_SK_YES;
    static int32_t str_START_RECORDING;
    static int32_t str_SILENT_DEVICE;
};
