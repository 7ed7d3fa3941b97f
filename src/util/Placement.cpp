#include "util/Placement.h"

#include "platform/Control.h"
#include "platform/Error.h"
#include "platform/WindowlessUserControl.h"

namespace kwFieldDeck {

namespace {
void placeIn(Control *child, float hostWidth, float hostHeight, bool centreH, bool centreV,
    float offsetX, float offsetY)
{
    require(child);
    const float left = centreH ? (hostWidth - child->Width()) / 2 + offsetX : child->Left();
    const float top = centreV ? (hostHeight - child->Height()) / 2 + offsetY : child->Top();
    child->Move(left, top);
}
} // namespace

void PlaceChild(
    Control *child, const Control *host, bool centreH, bool centreV, float offsetX, float offsetY)
{
    require(host);
    placeIn(child, host->Width(), host->Height(), centreH, centreV, offsetX, offsetY);
}

void PlaceChild(Control *child, const WindowlessUserControl *host, bool centreH, bool centreV,
    float offsetX, float offsetY)
{
    require(host);
    placeIn(
        child, host->extenderWidth(), host->extenderHeight(), centreH, centreV, offsetX, offsetY);
}

} // namespace kwFieldDeck
