#pragma once

#include <QString>
#include <QtGlobal>

namespace kwFieldDeck {

// The type of a field; it decides the row's editor. 0 means the type was never set.
enum lFieldTypes : qint32 {
    ftText = 1,
    ftNumeric = 2,
    ftCheckBox = 3,
    ftCombo = 4,
    ftDate = 5,
    ftSlider = 6,
    ftFileSelector = 7,
    ftFolderSelector = 8,
    ftMemo = 9,
};

// The type names of the definition language: a name's 1-based position in this list is its
// lFieldTypes value, so the order must stay the enumeration's.
QString fieldTypeNames();

} // namespace kwFieldDeck
