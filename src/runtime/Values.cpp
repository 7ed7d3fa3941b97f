#include "runtime/Values.h"

#include "runtime/Error.h"

#include <kwFieldDeck/FieldValue.h>

#include <QDateTime>
#include <QLocale>
#include <QObject>

#include <algorithm>
#include <cmath>
#include <limits>

namespace kwFieldDeck {

ValueKind kindOf(const QVariant &value)
{
    // A null text is still text, and a null object reference (Nothing) still an object.
    const bool keepsKindWhenNull = value.typeId() == QMetaType::QString
        || value.metaType().flags().testFlag(QMetaType::PointerToQObject);
    if (!value.isValid() || (value.isNull() && !keepsKindWhenNull))
        return ValueKind::Empty;
    switch (value.typeId()) {
    case QMetaType::QString:
        return ValueKind::Text;
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Char:
    case QMetaType::SChar:
    case QMetaType::UChar:
        return ValueKind::Int16;
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Long:
    case QMetaType::LongLong:
    case QMetaType::ULong:
    case QMetaType::ULongLong:
        return ValueKind::Int32;
    case QMetaType::Float:
        return ValueKind::Single;
    case QMetaType::Double:
        return ValueKind::Double;
    case QMetaType::Bool:
        return ValueKind::Boolean;
    case QMetaType::QDate:
    case QMetaType::QDateTime:
        return ValueKind::Date;
    case QMetaType::QObjectStar:
        return ValueKind::Object;
    default:
        return value.metaType().flags().testFlag(QMetaType::PointerToQObject) ? ValueKind::Object
                                                                              : ValueKind::Other;
    }
}

double leadingNumber(const QString &text)
{
    int i = 0;
    const int n = text.size();
    while (i < n && (text[i] == QLatin1Char(' ') || text[i] == QLatin1Char('\t')))
        ++i;
    const int start = i;
    if (i < n && (text[i] == QLatin1Char('+') || text[i] == QLatin1Char('-')))
        ++i;
    bool digits = false;
    while (i < n && text[i].isDigit() && text[i].unicode() < 128) {
        ++i;
        digits = true;
    }
    if (i < n && text[i] == QLatin1Char('.')) {
        ++i;
        while (i < n && text[i].isDigit() && text[i].unicode() < 128) {
            ++i;
            digits = true;
        }
    }
    if (!digits)
        return 0.0;
    bool ok = false;
    const double number = QStringView(text).mid(start, i - start).toDouble(&ok);
    return ok ? number : 0.0;
}

namespace {

bool parseNumber(const QString &text, double *number)
{
    bool ok = false;
    const double v = QLocale::c().toDouble(text.trimmed(), &ok);
    if (ok && number)
        *number = v;
    return ok;
}

// Days since 1899-12-30: the serial that a number stands for as a date.
double dateSerial(const QDateTime &moment)
{
    static const QDate epoch(1899, 12, 30);
    const double days = epoch.daysTo(moment.date());
    return days + moment.time().msecsSinceStartOfDay() / 86400000.0;
}

QDateTime parseDateText(const QString &raw)
{
    const QString text = raw.trimmed();
    // Every form below has digits and a separator; a text without them is no date, and is told
    // so without the dozens of parses (each asking the system for its time zone) that follow.
    const auto isSeparator
        = [](QChar c) { return c == u'-' || c == u'/' || c == u'.' || c == u' '; };
    if (std::none_of(text.begin(), text.end(), [](QChar c) { return c.isDigit(); })
        || std::none_of(text.begin(), text.end(), isSeparator))
        return {};
    // The commonest form, yyyy-MM-dd alone, is read directly: a parse through the locale costs
    // as much as the rest of a row.
    if (text.size() == 10 && text.at(4) == u'-' && text.at(7) == u'-') {
        bool year = false, month = false, day = false;
        const QDate date(QStringView(text).left(4).toInt(&year),
            QStringView(text).mid(5, 2).toInt(&month), QStringView(text).mid(8, 2).toInt(&day));
        const bool digits = std::all_of(
            text.begin(), text.end(), [](QChar c) { return c.isDigit() || c == u'-'; });
        if (year && month && day && digits && date.isValid() && date.year() >= 100)
            return QDateTime(date, QTime(0, 0), Qt::UTC);
    }
    static const char *const dateForms[] = { "yyyy-MM-dd", "yyyy/M/d", "M/d/yyyy", "d.M.yyyy",
        "d MMMM yyyy", "d MMM yyyy", "MMMM d, yyyy", "MMM d, yyyy", "M/d/yy" };
    static const char *const timeForms[]
        = { "", " hh:mm:ss", " h:mm:ss", " hh:mm", " h:mm", "Thh:mm:ss", "Thh:mm:ss.zzz" };
    const QLocale c = QLocale::c();
    for (const char *date : dateForms) {
        for (const char *time : timeForms) {
            const QString form = QLatin1String(date) + QLatin1String(time);
            const QDateTime moment = c.toDateTime(text, form);
            // Years outside 100 to 9999 (a sign read into the year) are no dates; their text form
            // would not read back either.
            if (moment.isValid() && moment.date().year() >= 100 && moment.date().year() <= 9999)
                return moment;
        }
    }
    return {};
}

} // namespace

bool isNumeric(const QVariant &value)
{
    switch (kindOf(value)) {
    case ValueKind::Int16:
    case ValueKind::Int32:
    case ValueKind::Single:
    case ValueKind::Double:
    case ValueKind::Boolean:
    case ValueKind::Empty:
        return true;
    case ValueKind::Text:
        return parseNumber(value.toString(), nullptr);
    default:
        return false;
    }
}

QString textOf(const QVariant &value)
{
    switch (kindOf(value)) {
    case ValueKind::Empty:
        return QString();
    case ValueKind::Text:
        return value.toString();
    case ValueKind::Int16:
    case ValueKind::Int32:
        return QString::number(value.toLongLong());
    case ValueKind::Single:
        return QString::number(value.toFloat(), 'g', 7);
    case ValueKind::Double:
        return QString::number(value.toDouble(), 'g', 15);
    case ValueKind::Boolean:
        return value.toBool() ? QStringLiteral("True") : QStringLiteral("False");
    case ValueKind::Date: {
        // ISO form, so that stored values read back the same whatever the user's locale.
        const QDateTime moment
            = value.typeId() == QMetaType::QDate ? value.toDate().startOfDay() : value.toDateTime();
        return moment.time() == QTime(0, 0)
            ? moment.date().toString(Qt::ISODate)
            : moment.toString(QStringLiteral("yyyy-MM-dd hh:mm:ss"));
    }
    case ValueKind::Object:
    case ValueKind::Other:
        break;
    }
    if (value.canConvert<QString>())
        return value.toString();
    raise(ErrTypeMismatch);
}

double toDouble(const QVariant &value)
{
    switch (kindOf(value)) {
    case ValueKind::Empty:
        return 0.0;
    case ValueKind::Boolean:
        return value.toBool() ? -1.0 : 0.0;
    case ValueKind::Int16:
    case ValueKind::Int32:
    case ValueKind::Single:
    case ValueKind::Double:
        return value.toDouble();
    case ValueKind::Text: {
        double number = 0.0;
        if (parseNumber(value.toString(), &number))
            return number;
        const QString text = value.toString().trimmed();
        if (text.compare(QLatin1String("True"), Qt::CaseInsensitive) == 0)
            return -1.0;
        if (text.compare(QLatin1String("False"), Qt::CaseInsensitive) == 0)
            return 0.0;
        break;
    }
    case ValueKind::Date:
        return dateSerial(
            value.typeId() == QMetaType::QDate ? value.toDate().startOfDay() : value.toDateTime());
    case ValueKind::Object:
    case ValueKind::Other:
        break;
    }
    raise(ErrTypeMismatch);
}

namespace {
template <typename Int>
Int roundTo(double value)
{
    if (std::isnan(value))
        raise(ErrOverflow);
    const double rounded = std::nearbyint(value); // the default rounding mode: halves to even
    if (rounded < double(std::numeric_limits<Int>::min())
        || rounded > double(std::numeric_limits<Int>::max()))
        raise(ErrOverflow);
    return Int(rounded);
}
} // namespace

qint16 roundToInt16(double value)
{
    return roundTo<qint16>(value);
}
qint32 roundToInt32(double value)
{
    return roundTo<qint32>(value);
}
qint16 toInt16(const QVariant &value)
{
    return roundToInt16(toDouble(value));
}
qint32 toInt32(const QVariant &value)
{
    return roundToInt32(toDouble(value));
}

bool toBool(const QVariant &value)
{
    switch (kindOf(value)) {
    case ValueKind::Empty:
        return false;
    case ValueKind::Boolean:
        return value.toBool();
    case ValueKind::Text: {
        const QString text = value.toString().trimmed();
        if (text.compare(QLatin1String("True"), Qt::CaseInsensitive) == 0)
            return true;
        if (text.compare(QLatin1String("False"), Qt::CaseInsensitive) == 0)
            return false;
        double number = 0.0;
        if (parseNumber(text, &number))
            return number != 0.0;
        raise(ErrTypeMismatch);
    }
    default:
        return toDouble(value) != 0.0;
    }
}

bool isDate(const QVariant &value)
{
    switch (kindOf(value)) {
    case ValueKind::Date:
        return true;
    case ValueKind::Text:
        return parseDateText(value.toString()).isValid();
    default:
        return false;
    }
}

QDate toDate(const QVariant &value)
{
    switch (kindOf(value)) {
    case ValueKind::Date:
        return value.typeId() == QMetaType::QDate ? value.toDate() : value.toDateTime().date();
    case ValueKind::Text: {
        const QDateTime moment = parseDateText(value.toString());
        if (moment.isValid())
            return moment.date();
        break;
    }
    case ValueKind::Int16:
    case ValueKind::Int32:
    case ValueKind::Single:
    case ValueKind::Double: {
        // Dates run from 1 January 100 (serial -657434) to 31 December 9999 (2958465); any other
        // number, NaN included, is an overflow.
        const double serial = std::floor(value.toDouble());
        if (!(serial >= -657434.0 && serial <= 2958465.0))
            raise(ErrOverflow);
        return QDate(1899, 12, 30).addDays(qint64(serial));
    }
    default:
        break;
    }
    raise(ErrTypeMismatch);
}

QString valueText(const QVariant &value)
{
    return trap("Function 'valueText' of Module 'FieldValue'", [&] { return textOf(value); });
}

QVariant plainValue(const QVariant &value, lFieldTypes type)
{
    return trap("Function 'plainValue' of Module 'FieldValue'", [&]() -> QVariant {
        if (type == ftDate)
            return isDate(value) ? toDate(value) : QDate();
        const QString text = textOf(value);
        const bool numberField = type == ftNumeric || type == ftSlider;
        if (type == ftCheckBox) // as the box takes it: "True" is stored as 1 and ticks it
            return int(text.trimmed().toUpper() == u"TRUE" || leadingNumber(text) != 0);
        if (isNumeric(value) && (numberField || kindOf(value) != ValueKind::Text))
            return toDouble(value);
        return numberField ? QVariant(leadingNumber(text)) : QVariant(text);
    });
}

} // namespace kwFieldDeck
