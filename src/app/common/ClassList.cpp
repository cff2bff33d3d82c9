#include "ClassList.h"

#include "AbstractPainter.h"
#include "AppImage.h"
#include "Bounded.h"
#include "Bounds.h"
#include "Event.h"
#include "FileOps.h"
#include "G.h"
#include "ImageOps.h"
#include "Listener.h"
#include "Murmelo.h"
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
#include "Point.h"
#include "Res.h"
#include "ResFont.h"
#include "ResImage.h"
#include "ResNull.h"
#include "ResObject.h"
#include "Resource.h"
#include "ResString.h"
#include "State.h"
#include "Str.h"
#include "StrEU.h"
#include "StrUtils.h"
#include "VectorUtils.h"

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
    entry<Orm>("Orm"),
    entry<OrmCanvas>("OrmCanvas"),
    entry<Bounded>("Bounded"),
    entry<Bounds>("Bounds"),
    entry<Event>("Event"),
    entry<FileOps>("FileOps"),
    entry<ImageOps>("ImageOps"),
    entry<Listener>("Listener"),
    entry<PaColor>("PaColor"),
    entry<PaImage>("PaImage"),
    entry<Painter>("Painter"),
    entry<PainterArray>("PainterArray"),
    entry<PaStretcher>("PaStretcher"),
    entry<PaTextArea>("PaTextArea"),
    entry<PaTextLabel>("PaTextLabel"),
    entry<PixProps>("PixProps"),
    entry<Point>("Point"),
    entry<State>("State"),
    entry<Str>("Str"),
    entry<StrEU>("StrEU"),
    entry<StrUtils>("StrUtils"),
    entry<VectorUtils>("VectorUtils"),
    entry<Murmelo>("Murmelo"),
    entry<G>("G"),
};

}  // namespace

const ClassListEntry* ClassList::entries(int32_t& count) {
    count = static_cast<int32_t>(std::size(kEntries));
    return kEntries;
}
