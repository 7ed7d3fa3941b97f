#include "runtime/Error.h"
#include "runtime/Values.h"

#include "RaisedError.h"

#include <QtTest>

using namespace kwFieldDeck;

namespace {
enum Conversion { Val, Int16, Int32, Dbl, Bool, IsDate, Date, Text };

QVariant convert(int conversion, const QVariant &v)
{
    const std::function<QVariant()> conversions[]
        = { [&] { return leadingNumber(v.toString()); }, [&] { return int(toInt16(v)); },
              [&] { return toInt32(v); }, [&] { return toDouble(v); }, [&] { return toBool(v); },
              [&] { return isDate(v); }, [&] { return toDate(v); }, [&] { return textOf(v); } };
    return conversions[conversion]();
}

void row(const char *name, int conversion, const QVariant &value, const QVariant &expected,
    int error = 0)
{
    QTest::newRow(name) << conversion << value << expected << error;
}

QVariant text(const char *utf8)
{
    return textValue(QString::fromUtf8(utf8));
}
} // namespace

class tst_Values : public QObject
{
    Q_OBJECT
private slots:
    void conversionGivesTheValueOrRaises_data()
    {
        QTest::addColumn<int>("conversion");
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<QVariant>("expected"); // ignored when an error is expected
        QTest::addColumn<int>("error");
        const QDate march1(2024, 3, 1);
        const int overflow = ErrOverflow, mismatch = ErrTypeMismatch;
        row("Val 12abc", Val, text("12abc"), 12.0);
        row("Val abc", Val, text("abc"), 0.0);
        row("Val 3.7xyz", Val, text("3.7xyz"), 3.7);
        row("Val blank, sign, dangling exponent", Val, text(" -2.5e"), -2.5);
        row("16-bit 2.5 to even", Int16, 2.5, 2);
        row("16-bit 3.5 to even", Int16, 3.5, 4);
        row("16-bit 40000", Int16, 40000, {}, overflow);
        row("16-bit 32767.5 rounds past", Int16, 32767.5, {}, overflow);
        row("16-bit empty is 0", Int16, QVariant(), 0);
        row("32-bit 40000", Int32, 40000, 40000);
        row("32-bit 3e9", Int32, 3e9, {}, overflow);
        row("double of a date", Dbl, march1, 45352.0);
        row("double of 12abc", Dbl, text("12abc"), {}, mismatch);
        row("truth of ' True '", Bool, text(" True "), true);
        row("truth of 'yes'", Bool, text("yes"), {}, mismatch);
        row("truth of ''", Bool, text(""), {}, mismatch);
        row("date test 1.3.2024", IsDate, text("1.3.2024"), true);
        row("date test 2024-02-30", IsDate, text("2024-02-30"), false);
        row("date 3/1/2024", Date, text("3/1/2024"), march1);
        row("date with a time", Date, text("2024-03-01 14:30"), march1);
        row("date of a serial", Date, 45352.75, march1);
        row("date of tomorrow", Date, text("tomorrow"), {}, mismatch);
        row("text of a single", Text, singleValue(3.7f), text("3.7"));
        row("text of 0.1 + 0.2", Text, 0.1 + 0.2, text("0.3"));
        row("text of a date and time", Text, QDateTime(march1, QTime(14, 5, 9)),
            text("2024-03-01 14:05:09"));
    }

    void conversionGivesTheValueOrRaises()
    {
        QFETCH(int, conversion);
        QFETCH(QVariant, value);
        QFETCH(QVariant, expected);
        QFETCH(int, error);
        QVariant result;
        QCOMPARE(test::raisedError([&] { result = convert(conversion, value); }), error);
        if (!error)
            QCOMPARE(result, expected);
    }
};

QTEST_GUILESS_MAIN(tst_Values)
#include "tst_Values.moc"
