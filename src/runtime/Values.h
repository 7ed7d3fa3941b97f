#pragma once

#include <QDate>
#include <QString>
#include <QVariant>

namespace kwFieldDeck {

// The kinds of value a field's Value, Min and Max can hold. They stay distinct: a 16-bit 1 from a
// check box is not the text "1".
enum class ValueKind { Empty, Text, Int16, Int32, Single, Double, Boolean, Date, Object, Other };

ValueKind kindOf(const QVariant &value);

inline QVariant int16Value(qint16 v)
{
    return QVariant::fromValue<qint16>(v);
}
inline QVariant int32Value(qint32 v)
{
    return QVariant::fromValue<qint32>(v);
}
inline QVariant singleValue(float v)
{
    return QVariant::fromValue<float>(v);
}
inline QVariant doubleValue(double v)
{
    return QVariant::fromValue<double>(v);
}
inline QVariant textValue(const QString &v)
{
    return QVariant::fromValue<QString>(v);
}

// The leading number of a text: the sign, digits and point at its start (after blanks), 0 when
// the text does not begin with a number. "12abc" -> 12, "3.7xyz" -> 3.7, "abc" -> 0.
double leadingNumber(const QString &text);

// True for numbers, booleans and texts that read whole as a number.
bool isNumeric(const QVariant &value);

// Text form of a value: numbers in their shortest decimal form, booleans "True"/"False", dates
// in ISO form, empty as "". An object has no text form (type mismatch).
QString textOf(const QVariant &value);

// Numeric value; a text must read whole as a number, else type mismatch (error 13).
double toDouble(const QVariant &value);

// Rounding to whole numbers with halves to the even neighbour; past the range, overflow (6).
qint16 roundToInt16(double value);
qint32 roundToInt32(double value);
qint16 toInt16(const QVariant &value);
qint32 toInt32(const QVariant &value);

// Truth of a value: numbers are true when non-zero, texts must be "True"/"False" (any case) or
// a number, anything else is a type mismatch (13).
bool toBool(const QVariant &value);

// Dates: a date value, or a text in one of the accepted date forms (ISO "2024-03-01",
// "3/1/2024", "1.3.2024", "1 March 2024", "March 1, 2024"), optionally followed by a time.
bool isDate(const QVariant &value);
QDate toDate(const QVariant &value);

} // namespace kwFieldDeck
