#pragma once

#include <Qt>

namespace kwFieldDeck {

// How the focus arrived at the control that has it now. The original read the keyboard and
// mouse state (Tab or Shift+Tab held, Alt held, left button down) at that moment; Qt tells the
// same in the reason of its focus event, which the control keeps.
namespace KeyState {

Qt::FocusReason focusArrivalReason();

} // namespace KeyState
} // namespace kwFieldDeck
