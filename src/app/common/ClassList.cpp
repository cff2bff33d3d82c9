#include "ClassList.h"

#include "AppImage.h"
#include "Bounded.h"
#include "Bounds.h"
#include "Event.h"
#include "FileOps.h"
#include "G.h"
#include "Listener.h"
#include "Murmelo.h"
#include "Orm.h"
#include "OrmCanvas.h"
#include "PixProps.h"
#include "Point.h"
#include "State.h"

#include <iterator>

namespace {

template <typename Class>
constexpr ClassListEntry entry(const char* name) {
    return {name, &Class::static_ctor, &Class::static_dtor};
}

// Orm makes the canvas and its picture. G, next to last, loads fonts and pictures and builds the
// screens, for which it needs everything before it.
constexpr ClassListEntry kEntries[] = {
    entry<AppImage>("AppImage"),
    entry<Orm>("Orm"),
    entry<OrmCanvas>("OrmCanvas"),
    entry<Bounded>("Bounded"),
    entry<Bounds>("Bounds"),
    entry<Event>("Event"),
    entry<FileOps>("FileOps"),
    entry<Listener>("Listener"),
    entry<PixProps>("PixProps"),
    entry<Point>("Point"),
    entry<State>("State"),
    entry<Murmelo>("Murmelo"),
    entry<G>("G"),
};

}  // namespace

const ClassListEntry* ClassList::entries(int32_t& count) {
    count = static_cast<int32_t>(std::size(kEntries));
    return kEntries;
}
