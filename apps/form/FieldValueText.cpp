#include "FieldValueText.h"

#include <kwFieldDeck/Field>
#include <kwFieldDeck/FieldValue>
#include <kwFieldDeck/Fields>

#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>

namespace kwFieldDeck {

namespace {
const QString LineBreak = QStringLiteral("\r\n");
const QString LineBreakMarker = QStringLiteral("%CRLF%");

QJsonValue jsonValueOf(const Field &field)
{
    const QVariant plain = plainValue(field.Value(), field.FieldType());
    switch (plain.typeId()) {
    case QMetaType::QDate: // "" when the value is no date
        return plain.toDate().toString(Qt::ISODate);
    case QMetaType::QString:
        return plain.toString().replace(LineBreak, QLatin1String("\n"));
    default:
        return QJsonValue::fromVariant(plain);
    }
}

// One value in JSON's notation, as QJsonDocument writes it inside an array.
QByteArray jsonText(const QJsonValue &value)
{
    const QByteArray array = QJsonDocument(QJsonArray { value }).toJson(QJsonDocument::Compact);
    return array.mid(1, array.size() - 2);
}
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
        lines.append(
            field->Name() + QLatin1Char('=') + encodeLineBreaks(valueText(field->Value())));
    return lines;
}

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
