// Fuzzes the value conversions every layer uses (leading number, text form, numbers, whole
// numbers, truth, dates) and checks that they agree with each other on whatever they are given.

#include "FuzzSupport.h"

#include "runtime/Values.h"

#include <cmath>
#include <cstring>

using namespace kwFieldDeck;
using namespace kwFieldDeck::fuzz;

namespace {

void checkText(const QString &text)
{
    expect(!std::isnan(leadingNumber(text)), "leading number is a number", text);

    const QVariant value = textValue(text);
    expect(textOf(value) == text, "a text is its own text form", text);

    double number = 0;
    const bool numeric = isNumeric(value);
    const bool converts = refusesOnlyWith({ ErrTypeMismatch }, [&] { number = toDouble(value); });
    expect(!numeric || converts, "a numeric text converts to a number", text);
    if (converts) {
        qint16 small = 0;
        if (refusesOnlyWith({ ErrOverflow }, [&] { small = toInt16(value); }))
            expect(std::fabs(small - number) <= 0.5, "16-bit rounding is nearest", text);
        qint32 whole = 0;
        if (refusesOnlyWith({ ErrOverflow }, [&] { whole = toInt32(value); }))
            expect(std::fabs(whole - number) <= 0.5, "32-bit rounding is nearest", text);
    }
    bool truth = false;
    const bool reads = refusesOnlyWith({ ErrTypeMismatch }, [&] { truth = toBool(value); });
    expect(!numeric || (reads && truth == (number != 0)), "truth of a numeric text", text);

    QDate date;
    const bool toADate = refusesOnlyWith({ ErrTypeMismatch }, [&] { date = toDate(value); });
    expect(isDate(value) == toADate, "date test and date conversion agree", text);
    expect(!toADate || date.isValid(), "a converted date is valid", text);
    expect(!toADate || toDate(textValue(textOf(QVariant(date)))) == date,
        "a date's text reads back", text);
}

// A finite number as each numeric kind a value can hold.
void checkNumber(double number)
{
    const QVariant values[] = { doubleValue(number), singleValue(float(number)),
        int16Value(qint16(std::fmod(number, 32768.0))),
        int32Value(qint32(std::fmod(number, 2147483648.0))) };
    for (const QVariant &value : values) {
        const double exact = value.toDouble();
        const QString text = textOf(value);
        double back = 0;
        const bool reads
            = refusesOnlyWith({ ErrTypeMismatch }, [&] { back = toDouble(textValue(text)); });
        // A single too large for its kind has no number to read back; fifteen digits round the
        // largest doubles up past the range, so their text no longer reads as a number.
        if (std::isfinite(exact))
            expect(reads ? std::fabs(back - exact) <= std::fabs(exact) * 1e-6
                         : std::fabs(exact) > 1.797693134862e308,
                "a number's text reads back", text);
        refusesOnlyWith({ ErrOverflow }, [&] { (void)toInt16(value); });
        refusesOnlyWith({ ErrOverflow }, [&] { (void)toInt32(value); });
        expect(toBool(value) == (exact != 0), "truth of a number", text);
        refusesOnlyWith({ ErrOverflow, ErrTypeMismatch }, [&] { (void)toDate(value); });
        expect(!isDate(value), "a number is not a date value", text);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    checkText(QString::fromUtf8(reinterpret_cast<const char *>(data), qsizetype(size)));
    if (size >= sizeof(double)) {
        double number = 0;
        std::memcpy(&number, data, sizeof number);
        if (std::isfinite(number))
            checkNumber(number);
    }
    return 0;
}
