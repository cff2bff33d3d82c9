#include "Str.h"

#include "ArrFunc.h"
#include "OspBase.h"
#include "Res.h"
#include "StrTexts.h"

using Osp::Base::String;

int32_t* Str::str_LangNameIds;
int32_t Str::str_APP_NAME;
int32_t Str::str_ROTATE_SCREEN;
int32_t Str::str_DLG_TITLE_ERROR;
int32_t Str::str_DLG_TITLE_HELP;
int32_t Str::str_DLG_TITLE_INFO;
int32_t Str::str_DLG_TITLE_LOW_MEM;
int32_t Str::str_DLG_TITLE_NO_MEM_CARD;
int32_t Str::str_ERROR_APPLICATION_WILL_QUIT_TXT;
int32_t Str::str_ERROR_AUDIO_NO_ACCESS_TXT;
int32_t Str::str_ERROR_DEV_NOT_SUPPORTED_TXT;
int32_t Str::str_ERROR_FILE_IO_TXT;
int32_t Str::str_ERROR_HEAP_TOO_LOW_TXT;
int32_t Str::str_FX_BACKWARDS;
int32_t Str::str_FX_DRUNK;
int32_t Str::str_FX_FAST_TALKER;
int32_t Str::str_FX_HIGH_PITCH;
int32_t Str::str_FX_INTONATION_FLIP;
int32_t Str::str_FX_LOW_PITCH;
int32_t Str::str_FX_NO_EFFECT;
int32_t Str::str_FX_RAPPER;
int32_t Str::str_FX_ROBOT;
int32_t Str::str_HELP_TXT;
int32_t Str::str_LBL_CREATED_NUM;
int32_t Str::str_LBL_LENGTH_NUM;
int32_t Str::str_LBL_LOCATION_NUM;
int32_t Str::str_LBL_PLAYING;
int32_t Str::str_LBL_RECORDING;
int32_t Str::str_LBL_SIZE_NUM;
int32_t Str::str_LBL_SOUND_SAVED_AS;
int32_t Str::str_LBL_SOUND_SAVED_MEM_CARD;
int32_t Str::str_LBL_SOUND_SAVED_PHONE;
int32_t Str::str_LOW_MEM_TXT;
int32_t Str::str_MI_HELP;
int32_t Str::str_MI_LANGUAGE;
int32_t Str::str_MI_SAVE;
int32_t Str::str_MI_SETTINGS;
int32_t Str::str_MI_SETTINGS_SAVE_TO;
int32_t Str::str_PLEASE_WAIT;
int32_t Str::str_SETTINGS_MEMORY_CARD;
int32_t Str::str_SETTINGS_PHONE;
int32_t Str::str_SK_BACK;
int32_t Str::str_SK_CANCEL;
int32_t Str::str_SK_INFO;
int32_t Str::str_SK_MENU;
int32_t Str::str_SK_NO;
int32_t Str::str_SK_OK;
int32_t Str::str_SK_OPTIONS;
int32_t Str::str_SK_PAUSE;
int32_t Str::str_SK_PLAY;
int32_t Str::str_SK_QUIT;
int32_t Str::str_SK_RECORD;
int32_t Str::str_SK_SELECT;
int32_t Str::str_SK_STOP;
int32_t Str::str_SK_YES;
int32_t Str::str_START_RECORDING;
int32_t Str::str_SILENT_DEVICE;

namespace {

/// A new counted array of new strings.
String** newTexts(const char* const (&utf8)[Res::kLanguages]) {
    auto** texts = newArray<String*>(Res::kLanguages);
    for (int32_t language = 0; language < Res::kLanguages; language++) {
        texts[language] = new String(utf8[language]);
    }
    return texts;
}

}  // namespace

void Str::static_ctor() {
    String** names = newTexts(StrTexts::kLanguageNames);
    str_LangNameIds = Res::addLanguageNames(names);
    deleteArrFunc(names);
    int32_t count = 0;
    const StrTexts* rows = StrTexts::rows(count);
    for (int32_t i = 0; i < count; i++) {
        *rows[i].id = Res::addStr(newTexts(rows[i].utf8));
    }
}

void Str::static_dtor() {
    deleteArrFunc(str_LangNameIds);
    str_LangNameIds = nullptr;
}
