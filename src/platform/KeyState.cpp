#include "platform/KeyState.h"

#include "platform/Control.h"

#include <QApplication>

namespace kwFieldDeck::KeyState {

Qt::FocusReason focusArrivalReason()
{
    const Control *control = Control::of(QApplication::focusWidget());
    return control ? control->lastFocusReason() : Qt::OtherFocusReason;
}

} // namespace kwFieldDeck::KeyState
