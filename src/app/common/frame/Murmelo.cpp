#include "Murmelo.h"

#include "AppImage.h"
#include "ArrFunc.h"
#include "FileOps.h"
#include "G.h"
#include "Orm.h"
#include "OspBase.h"
#include "OspGraphics.h"
#include "State.h"

using Osp::Base::String;
using Osp::Graphics::Color;

namespace {

constexpr int32_t kHeaderBytes = 44;
constexpr int32_t kSampleBytes = 20480;

}  // namespace

signed char* Murmelo::TempHdrBuf;
signed char* Murmelo::TempSmpBuf;
String* Murmelo::msg;
Color* Murmelo::pBkgColor;

void Murmelo::static_ctor() {
    TempHdrBuf = newArray<signed char>(kHeaderBytes);
    TempSmpBuf = newArray<signed char>(kSampleBytes);
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
    State* first = lang != -1 ? G::stateSplash : G::stateFirstLang;
    setBkgColor(lang != -1 ? kLaterRunArgb : kFirstRunArgb);
    if (first != nullptr) {
        State::setState(first, true, true);
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
