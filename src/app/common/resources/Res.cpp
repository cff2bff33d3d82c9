// SPDX-License-Identifier: MIT
#include "Res.h"

#include "AppImage.h"
#include "BitMapFont.h"
#include "OspBase.h"
#include "ResFont.h"
#include "ResImage.h"
#include "ResNull.h"
#include "ResObject.h"
#include "ResString.h"

#include <algorithm>
#include <memory>
#include <string>

using Osp::Base::String;

namespace {

constexpr int32_t kFirstCapacity = 100;
constexpr int32_t kGrowth = 21;  // the new capacity is the next id plus this

}  // namespace

int32_t Res::Null;
int32_t Res::FntDef;
int32_t Res::Str_Ok;
int32_t Res::Str_Cancel;
int32_t Res::Str_Continue;
int32_t Res::Str_Abort;
int32_t Res::Str_Back;
int32_t Res::Str_Select;
int32_t Res::Str_Yes;
int32_t Res::Str_No;
int32_t Res::Str_Options;
int32_t Res::Str_More;
Array<Resource*> Res::resources;
int32_t Res::nextId;
int32_t Res::currLangIndex;

void Res::static_ctor() {
    resources.reset(newArray<Resource*>(kFirstCapacity));
    nextId = 0;
    currLangIndex = 0;
    addBuiltIns();
}

void Res::addBuiltIns() {
    Null = addRes(new ResNull());
    FntDef = addFont(BitMapFont::DEFAULT_FONT_NAME);
    Str_Ok = addStr("Ok");
    Str_Cancel = addStr("Cancel");
    Str_Continue = addStr("Continue");
    Str_Abort = addStr("Abort");
    Str_Back = addStr("Back");
    Str_Select = addStr("Select");
    Str_Yes = addStr("Yes");
    Str_No = addStr("No");
    Str_Options = addStr("Options");
    Str_More = addStr("More");
}

void Res::static_dtor() {
    for (int32_t id = 0; id < nextId; id++) {
        delete resources[id];
    }
    resources.reset();
    nextId = 0;
}

int32_t Res::addRes(Resource* resource) {
    if (nextId + 1 == length(resources)) {
        auto** larger = newArray<Resource*>(nextId + kGrowth);
        std::copy(resources.get(), resources.get() + nextId, larger);
        resources.reset(larger);
    }
    resources[nextId] = resource;
    return nextId++;
}

int32_t Res::addRes(GnoObject* object) {
    return addRes(new ResObject(object));
}

int32_t Res::addStr(String* text) {
    return addRes(new ResString(text));
}

int32_t Res::addStr(const char* utf8) {
    return addStr(new String(utf8));
}

int32_t Res::addStr(signed char* utf8) {
    const int32_t end = static_cast<int32_t>(std::find(utf8, utf8 + length(utf8), 0) - utf8);
    const std::string text(reinterpret_cast<const char*>(utf8), static_cast<size_t>(end));
    return addStr(text.c_str());
}

int32_t Res::addStr(String** texts) {
    return addRes(new ResString(texts));
}

int32_t* Res::addLanguageNames(String** names) {
    auto* ids = newArray<int32_t>(length(names));
    for (int32_t i = 0; i < length(names); i++) {
        ids[i] = addStr(names[i]);
    }
    return ids;
}

int32_t Res::addFont(String* path) {
    return addRes(new ResFont(*path));
}

int32_t Res::addFont(const char* path) {
    return addRes(new ResFont(String(path)));
}

int32_t Res::addImage(String* path, bool premultiply) {
    return addImage(path, premultiply, false);
}

int32_t Res::addImage(String* path, bool premultiply, bool opaque) {
    return addRes(new ResImage(*path, premultiply, opaque));
}

int32_t Res::addImage(AppImage* image) {
    return addRes(new ResImage(image));
}

int32_t Res::addImage(int32_t w, int32_t h) {
    return addRes(new ResImage(w, h));
}

Resource* Res::getRes(int32_t id) {
    return id >= 0 && id < nextId ? resources[id] : nullptr;
}

void* Res::getOfType(int32_t id, int32_t type) {
    return getType(id) == type ? resources[id]->get() : nullptr;
}

AppImage* Res::getImage(int32_t id) {
    return static_cast<AppImage*>(static_cast<GnoObject*>(getOfType(id, Resource::kTypeImage)));
}

void Res::getImageSize(int32_t id, int32_t& w, int32_t& h) {
    w = 0;
    h = 0;
    if (isImage(id)) {
        static_cast<ResImage*>(getRes(id))->getSize(w, h);
    }
}

BitMapFont* Res::getFont(int32_t id) {
    return static_cast<BitMapFont*>(static_cast<GnoObject*>(getOfType(id, Resource::kTypeFont)));
}

void* Res::getList(int32_t id) {
    Resource* resource = getRes(id);
    return resource != nullptr ? resource->get() : nullptr;
}

int32_t Res::getType(int32_t id) {
    Resource* resource = getRes(id);
    return resource != nullptr ? resource->getType() : -1;
}

bool Res::isString(int32_t id) {
    return getType(id) == Resource::kTypeString;
}

bool Res::isImage(int32_t id) {
    return getType(id) == Resource::kTypeImage;
}

bool Res::isFont(int32_t id) {
    return getType(id) == Resource::kTypeFont;
}

bool Res::isObject(int32_t id) {
    return getType(id) == Resource::kTypeObject;
}

String* Res::getStr(int32_t id) {
    String** texts = getStrArray(id);
    const int32_t count = length(texts);
    if (count == 1) {
        return texts[0];
    }
    return currLangIndex >= 0 && currLangIndex < count ? texts[currLangIndex] : nullptr;
}

String** Res::getStrArray(int32_t id) {
    return static_cast<String**>(getOfType(id, Resource::kTypeString));
}

void Res::replaceStr(int32_t id, String* text) {
    if (isString(id)) {
        static_cast<ResString*>(resources[id])->replace(text);
    } else {
        const std::unique_ptr<String> discarded(text);
    }
}

void Res::replaceStr(int32_t id, String** texts) {
    if (isString(id)) {
        static_cast<ResString*>(resources[id])->replace(texts);
    } else {
        const ResString discarded(texts);
    }
}

void Res::free(int32_t id) {
    Resource* resource = getRes(id);
    if (resource != nullptr) {
        resource->free();
    }
}

void Res::freeAll() {
    for (int32_t id = 0; id < nextId; id++) {
        resources[id]->free();
    }
}
