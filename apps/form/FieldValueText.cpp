#include "FieldValueText.h"

#include <kwFieldDeck/Field>
#include <kwFieldDeck/Fields>
#include <kwFieldDeck/lFieldTypes>

#include <QDateTime>
#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonValue>
#include <QLocale>
#include <QRegularExpression>

#include <optional>

namespace kwFieldDeck {

namespace {
const QString LineBreak = QStringLiteral("\r\n");
const QString LineBreakMarker = QStringLiteral("%CRLF%");

// The kinds of value Field::Value() gives back. They stay apart as the grid keeps them apart: a
// check box's 16-bit 1 is a number, the text "1" is text.
enum class Kind { Empty, Text, Integer, Double, Boolean, Date, Other };

Kind kindOf(const QVariant &value)
{
    if (!value.isValid())
        return Kind::Empty;
    switch (value.typeId()) {
    case QMetaType::QString:
        return Kind::Text;
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Int:
    case QMetaType::UInt:
        return Kind::Integer;
    case QMetaType::Double:
        return Kind::Double;
    case QMetaType::Bool:
        return Kind::Boolean;
    case QMetaType::QDate:
    case QMetaType::QDateTime:
        return Kind::Date;
    default:
        return Kind::Other;
    }
}

QDateTime momentOf(const QVariant &date)
{
    return date.typeId() == QMetaType::QDate ? date.toDate().startOfDay() : date.toDateTime();
}

// A value's text as the grid writes it: numbers to 15 digits in their shortest form, booleans
// True or False, dates in ISO form with the time when it is not midnight.
QString textOf(const QVariant &value)
{
    switch (kindOf(value)) {
    case Kind::Empty:
        return QString();
    case Kind::Integer:
        return QString::number(value.toLongLong());
    case Kind::Double:
        return QString::number(value.toDouble(), 'g', 15);
    case Kind::Boolean:
        return value.toBool() ? QStringLiteral("True") : QStringLiteral("False");
    case Kind::Date: {
        const QDateTime moment = momentOf(value);
        return moment.time() == QTime(0, 0)
            ? moment.date().toString(Qt::ISODate)
            : moment.toString(QStringLiteral("yyyy-MM-dd hh:mm:ss"));
    }
    case Kind::Text:
    case Kind::Other:
        break;
    }
    return value.toString();
}

// The number a whole text reads as, blanks around it allowed.
std::optional<double> numberIn(const QString &text)
{
    bool ok = false;
    const double number = QLocale::c().toDouble(text.trimmed(), &ok);
    return ok ? std::optional<double>(number) : std::nullopt;
}

// The value as a number when it is one: empty is 0, True is -1, and
// a text counts when it reads whole as a number.
std::optional<double> numberOf(const QVariant &value)
{
    switch (kindOf(value)) {
    case Kind::Empty:
        return 0.0;
    case Kind::Integer:
    case Kind::Double:
        return value.toDouble();
    case Kind::Boolean:
        return value.toBool() ? -1.0 : 0.0;
    case Kind::Text:
        return numberIn(value.toString());
    case Kind::Date:
    case Kind::Other:
        break;
    }
    return std::nullopt;
}

// The number a text starts with, after blanks: sign, digits and point ("12abc" is 12); 0 when
// it starts with none.
double leadingNumber(const QString &text)
{
    static const QRegularExpression leading(
        QStringLiteral("^[ \\t]*([+-]?(?:[0-9]+\\.?[0-9]*|\\.[0-9]+))"));
    bool ok = false;
    const double number = leading.match(text).captured(1).toDouble(&ok);
    return ok ? number : 0.0;
}

// Whether a check box's value is a ticked one: True, a number other than 0, or any date but the
// platform's day 0 at midnight. A text that is neither True, False nor a number is not.
bool isTicked(const QVariant &value)
{
    switch (kindOf(value)) {
    case Kind::Text: {
        const QString text = value.toString().trimmed();
        return text.compare(QLatin1String("True"), Qt::CaseInsensitive) == 0
            || numberIn(text).value_or(0.0) != 0.0;
    }
    case Kind::Date: {
        const QDateTime moment = momentOf(value);
        return moment.date() != QDate(1899, 12, 30) || moment.time() != QTime(0, 0);
    }
    default:
        return numberOf(value).value_or(0.0) != 0.0;
    }
}

// The forms of a date in a text that the grid reads, each optionally followed by a time.
QDateTime dateTimeIn(const QString &raw)
{
    static const char *const dateForms[] = { "yyyy-MM-dd", "yyyy/M/d", "M/d/yyyy", "d.M.yyyy",
        "d MMMM yyyy", "d MMM yyyy", "MMMM d, yyyy", "MMM d, yyyy", "M/d/yy" };
    static const char *const timeForms[]
        = { "", " hh:mm:ss", " h:mm:ss", " hh:mm", " h:mm", "Thh:mm:ss", "Thh:mm:ss.zzz" };
    const QString text = raw.trimmed();
    for (const char *date : dateForms) {
        for (const char *time : timeForms) {
            const QString form = QLatin1String(date) + QLatin1String(time);
            const QDateTime moment = QLocale::c().toDateTime(text, form);
            // A year outside 100 to 9999 is no date to the grid.
            if (moment.isValid() && moment.date().year() >= 100 && moment.date().year() <= 9999)
                return moment;
        }
    }
    return QDateTime();
}

std::optional<QDate> dateOf(const QVariant &value)
{
    switch (kindOf(value)) {
    case Kind::Date:
        return momentOf(value).date();
    case Kind::Text:
        if (const QDateTime moment = dateTimeIn(value.toString()); moment.isValid())
            return moment.date();
        break;
    default:
        break;
    }
    return std::nullopt;
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
        return isTicked(value) ? 1 : 0;
    case ftDate: {
        const std::optional<QDate> date = dateOf(value);
        return date ? date->toString(Qt::ISODate) : QString();
    }
    case ftNumeric:
    case ftSlider:
        if (const std::optional<double> number = numberOf(value))
            return *number;
        return leadingNumber(textOf(value));
    default:
        // A number stays a number; a text that reads as one stays text.
        if (kindOf(value) != Kind::Text) {
            if (const std::optional<double> number = numberOf(value))
                return *number;
        }
        return textOf(value).replace(LineBreak, QLatin1String("\n"));
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
