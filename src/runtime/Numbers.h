#pragma once

#include <QtGlobal>

namespace kwFieldDeck {

// Adds a step to a counter passed by reference and returns the new value. Past the 32-bit range
// the counter is left as it was and the overflow error (6) is raised.
qint32 Increment(qint32 &value, qint32 step = 1);

} // namespace kwFieldDeck
