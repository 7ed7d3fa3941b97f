#include "FieldValueText.h"

#include "fieldmodel/Field.h"
#include "fieldmodel/Fields.h"
#include "platform/Values.h"

#include <QHash>

namespace kwFieldDeck {

namespace {
const QString LineBreak = QStringLiteral("\r\n");
const QString LineBreakMarker = QStringLiteral("%CRLF%");
} // namespace

QString encodeLineBreaks(const QString &value)
{
    return QString(value).replace(LineBreak, LineBreakMarker);
}

QString decodeLineBreaks(const QString &text)
{
    return QString(text).replace(LineBreakMarker, LineBreak);
}

QStringList valueLines(Fields &fields)
{
    QStringList lines;
    lines.reserve(fields.Count());
    for (Field *field : fields)
        lines.append(field->Name() + QLatin1Char('=') + encodeLineBreaks(textOf(field->Value())));
    return lines;
}

QStringList applyPresets(Fields &fields, const QVector<QPair<QString, QString>> &presets)
{
    // Looked up here rather than by Fields::Item, which reports a missing name as an error.
    QHash<QString, Field *> byName;
    byName.reserve(fields.Count());
    for (Field *field : fields)
        byName.insert(field->Name().toCaseFolded(), field);
    QStringList unknown;
    for (const auto &[name, value] : presets) {
        if (Field *field = byName.value(name.toCaseFolded()))
            field->setValue(value);
        else
            unknown.append(name);
    }
    return unknown;
}

} // namespace kwFieldDeck
