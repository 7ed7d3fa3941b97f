#include "FieldValueText.h"

#include "platform/Error.h"
#include "platform/Values.h"

#include <kwFieldDeck/Field>
#include <kwFieldDeck/Fields>
#include <kwFieldDeck/lFieldTypes>

#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonValue>

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

namespace {
QJsonValue jsonValueOf(const Field &field)
{
    const QVariant value = field.Value();
    switch (field.FieldType()) {
    case ftCheckBox:
        // A box never clicked may hold "" from its definition: unchecked.
        try {
            return toBool(value) ? 1 : 0;
        } catch (const Error &) {
            return 0;
        }
    case ftDate:
        return isDate(value) ? toDate(value).toString(Qt::ISODate) : QJsonValue(QString());
    case ftNumeric:
    case ftSlider:
        return isNumeric(value) ? toDouble(value) : leadingNumber(textOf(value));
    default:
        // A list that gives item data gives a number.
        if (kindOf(value) != ValueKind::Text && isNumeric(value))
            return toDouble(value);
        return QString(textOf(value)).replace(LineBreak, QLatin1String("\n"));
    }
}

// One value in JSON's notation, as QJsonDocument writes it inside an array.
QByteArray jsonText(const QJsonValue &value)
{
    const QByteArray array = QJsonDocument(QJsonArray { value }).toJson(QJsonDocument::Compact);
    return array.mid(1, array.size() - 2);
}
} // namespace

// QJsonObject keeps its keys sorted; the grid's order is kept by writing the object here.
QByteArray valuesAsJson(Fields &fields)
{
    QByteArray json = "{";
    for (Field *field : fields) {
        if (json.size() > 1)
            json += ',';
        json += jsonText(field->Name()) + ':' + jsonText(jsonValueOf(*field));
    }
    return json + '}';
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
