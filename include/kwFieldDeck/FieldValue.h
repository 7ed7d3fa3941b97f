#pragma once

#include <kwFieldDeck/lFieldTypes.h>

#include <QVariant>

/*!
    \file FieldValue.h
    \brief A field's value as text, and as the number, date or text it stands for.
*/

namespace kwFieldDeck {

/*!
    The text of \a value as the settings store keeps it: a number in its shortest form (a double
    to 15 digits), True or False, a date as YYYY-MM-DD (with hh:mm:ss unless at midnight), "" for
    empty. An object has no text: error 13 is reported and the result is "".
*/
KWFIELDDECK_EXPORT QString valueText(const QVariant &value);

/*!
    What \a value stands for in a field of \a type. A check box: 1 (an int) if the value ticks it
    (see Field::setValue()), else 0. A date field: the value's date if it is a date or a text that
    reads as one, else an invalid QDate. A number or slider field: a double, the value if it is a
    number, boolean (True is -1), empty (0) or a text that reads whole as a number, else the number
    its text starts with. Others: that double for a number, boolean or empty, else valueText().
*/
KWFIELDDECK_EXPORT QVariant plainValue(const QVariant &value, lFieldTypes type);

} // namespace kwFieldDeck
