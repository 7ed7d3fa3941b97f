#pragma once

#include <kwFieldDeck/Global.h>

#include <QObject>

/*!
    \file lFieldTypes.h
    \brief The field types, which decide each row's editor.
*/

namespace kwFieldDeck {
Q_NAMESPACE_EXPORT(KWFIELDDECK_EXPORT)

/*!
    The type of a field; it decides the row's editor. A field whose type was never set has the
    value 0 and no editor. The definition language names the types TEXT, NUMERIC, CHECKBOX,
    COMBO, DATE, SLIDER, FILESELECTOR, FOLDERSELECTOR and MEMO, in this order.
*/
enum lFieldTypes : qint32 {
    ftText = 1, //!< A line of text in a text box.
    ftNumeric = 2, //!< A number in a text box that takes only a number's characters.
    ftCheckBox = 3, //!< A check box; a change of it makes the value 1 (checked) or 0.
    ftCombo = 4, //!< A drop-down list of DropDownValues; the value is an entry's key or text.
    ftDate = 5, //!< A date picker; the value is a date.
    ftSlider = 6, //!< A slider with a number box, from Field::Min to Field::Max.
    ftFileSelector = 7, //!< A file name with a button that opens a file dialog.
    ftFolderSelector = 8, //!< A folder with a button that opens a folder dialog.
    ftMemo = 9, //!< Multi-line text, edited in a memo window.
};
Q_ENUM_NS(lFieldTypes)

} // namespace kwFieldDeck
