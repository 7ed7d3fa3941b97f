#pragma once

#include <kwFieldDeck/lFieldTypes.h>

#include <QString>

namespace kwFieldDeck {

// The type names of the definition language: a name's 1-based position in this list is its
// lFieldTypes value, so the order must stay the enumeration's.
QString fieldTypeNames();

} // namespace kwFieldDeck
