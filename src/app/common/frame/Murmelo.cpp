#include "Murmelo.h"

#include "AppImage.h"
#include "ArrFunc.h"
#include "FileInputStream.h"
#include "FileOps.h"
#include "FileOutputStream.h"
#include "G.h"
#include "Orm.h"
#include "OspBase.h"
#include "OspGraphics.h"
#include "Roof.h"
#include "State.h"
#include "WavFile.h"
#include "WavProps.h"

using Osp::Base::String;
using Osp::Graphics::Color;

namespace {

constexpr int32_t kSampleBufferBytes = 20480;

}  // namespace

signed char* Murmelo::TempHdrBuf;
signed char* Murmelo::TempSmpBuf;
String* Murmelo::msg;
Color* Murmelo::pBkgColor;

void Murmelo::static_ctor() {
    TempHdrBuf = newArray<signed char>(WavProps::kHeaderBytes);
    TempSmpBuf = newArray<signed char>(kSampleBufferBytes);
    msg = new String();
    pBkgColor = new Color(kFirstRunArgb);
}

void Murmelo::static_dtor() {
    deleteArrFunc(TempHdrBuf);
    TempHdrBuf = nullptr;
    deleteArrFunc(TempSmpBuf);
    TempSmpBuf = nullptr;
    delete msg;
    msg = nullptr;
    delete pBkgColor;
    pBkgColor = nullptr;
}

void Murmelo::setBkgColor(uint32_t argb) {
    delete pBkgColor;
    pBkgColor = new Color(argb);
}

void Murmelo::onInit() {
    Orm::getScreen()->set(kFirstRunArgb);
    Orm::flush();
    const int32_t lang = G::getSavedLang();
    if (lang != -1) {
        setBkgColor(kLaterRunArgb);
        Roof::installed->setLanguage(lang);
        State::setState(G::stateSplash, true, true);
    } else {
        setBkgColor(kFirstRunArgb);
        State::setState(G::stateFirstLang, true, true);
    }
}

void Murmelo::onShutDown() {
    deleteTempFiles();
}

void Murmelo::deleteTempFiles() {
    if (G::uriWavFolder == nullptr) {
        return;
    }
    FileOps::deleteFile(G::uriWavFolder, G::uriPartWavRecorded);
    FileOps::deleteFile(G::uriWavFolder, G::uriPartWavProcessed);
}

int32_t* Murmelo::loadWavTo8Khz(String& uri) {
    if (!checkMemCardRemoved()) {
        return nullptr;
    }
    InputStream* stream = MIDlet::getResourceAsStream(uri);
    int32_t* samples = WavFile::loadTo8Khz(stream, TempHdrBuf, TempSmpBuf);
    stream->close();
    delete stream;
    return samples;
}

bool Murmelo::save8KhzWav(const int32_t* samples, String* path) {
    if (!checkMemCardRemoved() || !checkEnoughSpace()) {
        return false;
    }
    auto* stream = new FileOutputStream(*path);
    const bool saved = WavFile::save8Khz(stream, samples, TempHdrBuf, TempSmpBuf);
    stream->close();
    delete stream;
    if (!saved) {
        FileOps::deleteFile(*path);
    }
    return saved;
}

int32_t* Murmelo::loadLastRec8Khz() {
    String path = G::takePath();
    int32_t* samples = loadWavTo8Khz(path);
    if (samples == nullptr) {
        Roof::installed->enterFileError();  // no screen is left standing without keys
    }
    return samples;
}
