#pragma once

namespace kwFieldDeck {

class Control;
class WindowlessUserControl;

// Positions a child inside its host: centred horizontally and/or vertically in the host's size
// (its extender's size for a user control), moved by the offsets. A direction that is not
// centred keeps its coordinate. Sizes and positions are in twips; a null child or host is
// error 91.
void PlaceChild(Control *child, const Control *host, bool centreH, bool centreV, float offsetX = 0,
    float offsetY = 0);
void PlaceChild(Control *child, const WindowlessUserControl *host, bool centreH, bool centreV,
    float offsetX = 0, float offsetY = 0);

} // namespace kwFieldDeck
