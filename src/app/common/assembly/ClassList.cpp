// SPDX-License-Identifier: MIT
#include "ClassList.h"

#include "AbstractPainter.h"
#include "AppImage.h"
#include "AudioDev.h"
#include "BitMapCharacter.h"
#include "BitMapFont.h"
#include "Bounded.h"
#include "Bounds.h"
#include "Butterworth.h"
#include "Event.h"
#include "FileOps.h"
#include "FirstLang.h"
#include "Fx.h"
#include "G.h"
#include "GranularSynth.h"
#include "Header.h"
#include "ImageOps.h"
#include "IntArrayCurve.h"
#include "Listener.h"
#include "Lpc.h"
#include "Main.h"
#include "MathUtils.h"
#include "MeanFilter.h"
#include "Menu.h"
#include "Message.h"
#include "MessageAndQuit.h"
#include "Murmelo.h"
#include "Options.h"
#include "Orm.h"
#include "OrmCanvas.h"
#include "PaColor.h"
#include "PaImage.h"
#include "Painter.h"
#include "PainterArray.h"
#include "PaStretcher.h"
#include "PaTextArea.h"
#include "PaTextLabel.h"
#include "PixProps.h"
#include "Play.h"
#include "Playing.h"
#include "PngEncoder.h"
#include "Point.h"
#include "Process.h"
#include "Progress.h"
#include "Record.h"
#include "Recording.h"
#include "Res.h"
#include "ResFont.h"
#include "ResImage.h"
#include "ResNull.h"
#include "ResObject.h"
#include "Resource.h"
#include "ResString.h"
#include "Rnd.h"
#include "Save.h"
#include "Screenshooter.h"
#include "Scroller.h"
#include "SkBar.h"
#include "Splash.h"
#include "State.h"
#include "Str.h"
#include "StrEU.h"
#include "StrUtils.h"
#include "VectorUtils.h"
#include "WavProc.h"
#include "WavProps.h"
#include "WpMicPostProc.h"
#include "WpNoEffect.h"
#include "WpPitchAndTimeStretch.h"
#include "WpReverse.h"
#include "WpRobot.h"
#include "WpVocoder.h"

#include <iterator>

namespace {

template <typename Class>
constexpr ClassListEntry entry(const char* name) {
    return {name, &Class::static_ctor, &Class::static_dtor};
}

// Orm makes the canvas and its picture. G, next to last, loads fonts and pictures and builds the
// screens, for which it needs everything before it.
constexpr ClassListEntry kEntries[] = {
    entry<Res>("Res"),
    entry<ResFont>("ResFont"),
    entry<ResImage>("ResImage"),
    entry<ResNull>("ResNull"),
    entry<ResObject>("ResObject"),
    entry<Resource>("Resource"),
    entry<ResString>("ResString"),
    entry<AbstractPainter>("AbstractPainter"),
    entry<AppImage>("AppImage"),
    entry<AudioDev>("AudioDev"),
    entry<Orm>("Orm"),
    entry<OrmCanvas>("OrmCanvas"),
    entry<BitMapCharacter>("BitMapCharacter"),
    entry<BitMapFont>("BitMapFont"),
    entry<Bounded>("Bounded"),
    entry<Bounds>("Bounds"),
    entry<Butterworth>("Butterworth"),
    entry<Event>("Event"),
    entry<FileOps>("FileOps"),
    entry<FirstLang>("FirstLang"),
    entry<Fx>("Fx"),
    entry<GranularSynth>("GranularSynth"),
    entry<Header>("Header"),
    entry<ImageOps>("ImageOps"),
    entry<IntArrayCurve>("IntArrayCurve"),
    entry<Listener>("Listener"),
    entry<Lpc>("Lpc"),
    entry<Main>("Main"),
    entry<MathUtils>("MathUtils"),
    entry<MeanFilter>("MeanFilter"),
    entry<Message>("Message"),
    entry<MessageAndQuit>("MessageAndQuit"),
    entry<Options>("Options"),
    entry<PaColor>("PaColor"),
    entry<PaImage>("PaImage"),
    entry<Painter>("Painter"),
    entry<PainterArray>("PainterArray"),
    entry<PaStretcher>("PaStretcher"),
    entry<PaTextArea>("PaTextArea"),
    entry<PaTextLabel>("PaTextLabel"),
    entry<PixProps>("PixProps"),
    entry<Play>("Play"),
    entry<Playing>("Playing"),
    entry<PngEncoder>("PngEncoder"),
    entry<Point>("Point"),
    entry<Process>("Process"),
    entry<Progress>("Progress"),
    entry<Record>("Record"),
    entry<Recording>("Recording"),
    entry<Rnd>("Rnd"),
    entry<Save>("Save"),
    entry<Screenshooter>("Screenshooter"),
    entry<Scroller>("Scroller"),
    entry<SkBar>("SkBar"),
    entry<Splash>("Splash"),
    entry<State>("State"),
    entry<Str>("Str"),
    entry<StrEU>("StrEU"),
    entry<StrUtils>("StrUtils"),
    entry<VectorUtils>("VectorUtils"),
    entry<Murmelo>("Murmelo"),
    entry<WavProc>("WavProc"),
    entry<WavProps>("WavProps"),
    entry<WpMicPostProc>("WpMicPostProc"),
    entry<WpNoEffect>("WpNoEffect"),
    entry<WpPitchAndTimeStretch>("WpPitchAndTimeStretch"),
    entry<WpReverse>("WpReverse"),
    entry<WpRobot>("WpRobot"),
    entry<WpVocoder>("WpVocoder"),
    entry<G>("G"),
    entry<Menu>("Menu"),
};

}  // namespace

const ClassListEntry* ClassList::entries(int32_t& count) {
    count = static_cast<int32_t>(std::size(kEntries));
    return kEntries;
}
