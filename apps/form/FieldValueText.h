#pragma once

#include <QPair>
#include <QString>
#include <QStringList>
#include <QVector>

namespace kwFieldDeck {

class Fields;

// The text form of field values on the form program's command line and output: the settings
// store's record (Name=Value, CR LF inside a value as the marker "%CRLF%"), one field per line.

QString encodeLineBreaks(const QString &value);
QString decodeLineBreaks(const QString &text);

// One "Name=Value" line per field, in collection order.
QStringList valueLines(Fields &fields);

// Every field's value as one JSON object, in the order of the grid: a number box, slider or
// numeric list value as a number, a check box as 0 or 1, a date as YYYY-MM-DD, every other value
// as text with its line breaks as LF.
QByteArray valuesAsJson(Fields &fields);

// Assigns each preset to the field of that name as text, so the field converts it by its type.
// Returns the names that match no field.
QStringList applyPresets(Fields &fields, const QVector<QPair<QString, QString>> &presets);

} // namespace kwFieldDeck
