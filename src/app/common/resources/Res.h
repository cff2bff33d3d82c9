// SPDX-License-Identifier: MIT
// The registry of texts, pictures, fonts and other objects, which screens and painters name by a
// small number, the id.
//
// Ids count from 0 and are never used again. Pictures and fonts are loaded on first use. For an
// unknown id, or one of another kind than asked for, null, -1 or false is returned.
#pragma once

#include "Array.h"
#include "Languages.h"

#include <cstdint>

class AppImage;
class BitMapFont;
class GnoObject;
class Resource;

namespace Osp::Base {
class String;
}

class Res {
public:
    using String = Osp::Base::String;

    static constexpr auto kLanguages = static_cast<int32_t>(Languages::kCount);

    /// Register an entry and return its new id. After this the registry owns resources, texts, and
    /// pictures made in memory; it does not own paths and wrapped objects.
    static int32_t addRes(Resource* resource);
    static int32_t addRes(GnoObject* object);

    /// Registers one text for all languages.
    static int32_t addStr(String* text);
    static int32_t addStr(const char* utf8);

    /// @param utf8  counted array, read to its end or its first 0; not owned
    static int32_t addStr(signed char* utf8);

    /// A counted array of one text for each language.
    static int32_t addStr(String** texts);

    /// One language-neutral text for each element of a counted array. After this the registry owns
    /// the strings; the caller still owns the array. Returns a new counted array of their ids,
    /// which the caller frees with deleteArrFunc.
    static int32_t* addLanguageNames(String** names);
    static int32_t addFont(String* path);
    static int32_t addFont(const char* path);
    static int32_t addImage(String* path, bool premultiply);
    static int32_t addImage(String* path, bool premultiply, bool opaque);
    static int32_t addImage(AppImage* image);

    /// A blank picture, made when it is first needed.
    static int32_t addImage(int32_t w, int32_t h);

    static Resource* getRes(int32_t id);

    /// The picture, owned by the registry; free() and freeAll() may delete it.
    static AppImage* getImage(int32_t id);
    static BitMapFont* getFont(int32_t id);

    /// The size of the picture, 0 x 0 if there is none. Loads nothing.
    static void getImageSize(int32_t id, int32_t& w, int32_t& h);

    /// The object of a resource of any kind (see Resource::get()).
    static void* getList(int32_t id);

    /// One of Resource's kinds, -1 for an unknown id.
    static int32_t getType(int32_t id);
    static bool isString(int32_t id);
    static bool isImage(int32_t id);
    static bool isFont(int32_t id);
    static bool isObject(int32_t id);

    /// The text in the current language; a language-neutral one is the same in every language.
    static String* getStr(int32_t id);
    static String** getStrArray(int32_t id);

    /// Replaces the text of an id. The registry owns the new text; if the id is not that of a text,
    /// it deletes it at once. Painters of the old text must be refreshed.
    static void replaceStr(int32_t id, String* text);
    static void replaceStr(int32_t id, String** texts);

    /// @param index  0 to kLanguages - 1; not checked. With any other index only language-neutral
    /// texts are found
    static void setCurrLangIndex(int32_t index) { currLangIndex = index; }

    static int32_t getCurrLangIndex() { return currLangIndex; }

    /// Frees what can be loaded again.
    static void free(int32_t id);
    static void freeAll();

    static void static_ctor();
    static void static_dtor();

    static int32_t Null;    // nothing: an empty soft key, no heading, no picture
    static int32_t FntDef;  // the framework's own font
    static int32_t Str_Ok;
    static int32_t Str_Cancel;
    static int32_t Str_Continue;
    static int32_t Str_Abort;
    static int32_t Str_Back;
    static int32_t Str_Select;
    static int32_t Str_Yes;
    static int32_t Str_No;
    static int32_t Str_Options;
    static int32_t Str_More;

    static Array<Resource*> resources;  // by id, each owned; null from nextId on
    static int32_t nextId;

private:
    static void addBuiltIns();
    static void* getOfType(int32_t id, int32_t type);

    static int32_t currLangIndex;
};
