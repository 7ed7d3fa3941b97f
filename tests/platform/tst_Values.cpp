#include "platform/Error.h"
#include "platform/Values.h"

#include "RaisedError.h"

#include <QtTest>

using namespace kwFieldDeck;

Q_DECLARE_METATYPE(ValueKind)

using test::raisedError;

class tst_Values : public QObject
{
    Q_OBJECT
private slots:
    void leadingNumberReadsTheStartOfText_data();
    void leadingNumberReadsTheStartOfText();
    void roundingTakesHalvesToEven_data();
    void roundingTakesHalvesToEven();
    void roundingPastTheRangeIsOverflow_data();
    void roundingPastTheRangeIsOverflow();
    void toDoubleNeedsWholeNumberText_data();
    void toDoubleNeedsWholeNumberText();
    void truthOfAValue_data();
    void truthOfAValue();
    void dateTestAndConversion_data();
    void dateTestAndConversion();
    void textThatIsNoDateIsATypeMismatch();
    void numberConvertsToTheDateOfItsSerial();
    void textFormOfEachKind_data();
    void textFormOfEachKind();
    void objectHasNoTextForm();
    void kindsStayDistinct_data();
    void kindsStayDistinct();
};

void tst_Values::leadingNumberReadsTheStartOfText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("expected");
    QTest::newRow("digits then letters") << "12abc" << 12.0;
    QTest::newRow("no number") << "abc" << 0.0;
    QTest::newRow("decimal then letters") << "3.7xyz" << 3.7;
    QTest::newRow("blank, sign, dangling exponent") << " -2.5e" << -2.5;
    QTest::newRow("plus sign") << "+7 rows" << 7.0;
    QTest::newRow("leading point") << ".5" << 0.5;
    QTest::newRow("trailing point") << "4." << 4.0;
    QTest::newRow("second point ends it") << "1.2.3" << 1.2;
    QTest::newRow("tab before") << "\t42" << 42.0;
    QTest::newRow("sign alone") << "-" << 0.0;
    QTest::newRow("point alone") << "." << 0.0;
    QTest::newRow("empty") << "" << 0.0;
    QTest::newRow("number after a letter is not leading") << "x12" << 0.0;
    QTest::newRow("comma ends it") << "1,500" << 1.0;
    QTest::newRow("large") << "3000000000" << 3e9;
}

void tst_Values::leadingNumberReadsTheStartOfText()
{
    QFETCH(QString, text);
    QFETCH(double, expected);
    QCOMPARE(leadingNumber(text), expected);
}

void tst_Values::roundingTakesHalvesToEven_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("expected");
    QTest::newRow("2.5") << 2.5 << 2;
    QTest::newRow("3.5") << 3.5 << 4;
    QTest::newRow("-2.5") << -2.5 << -2;
    QTest::newRow("-3.5") << -3.5 << -4;
    QTest::newRow("0.5") << 0.5 << 0;
    QTest::newRow("1.5") << 1.5 << 2;
    QTest::newRow("2.6") << 2.6 << 3;
    QTest::newRow("2.4") << 2.4 << 2;
    QTest::newRow("-0.4") << -0.4 << 0;
    QTest::newRow("16-bit top") << 32767.4 << 32767;
    QTest::newRow("16-bit bottom, half to even") << -32768.5 << -32768;
}

void tst_Values::roundingTakesHalvesToEven()
{
    QFETCH(double, value);
    QFETCH(int, expected);
    QCOMPARE(int(roundToInt16(value)), expected);
    QCOMPARE(int(roundToInt32(value)), expected);
    QCOMPARE(int(toInt16(doubleValue(value))), expected);
    QCOMPARE(int(toInt32(textValue(QString::number(value, 'g', 10)))), expected);
}

void tst_Values::roundingPastTheRangeIsOverflow_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<bool>("sixteenBit");
    QTest::addColumn<int>("error");
    QTest::newRow("40000 to 16-bit") << QVariant(40000) << true << int(ErrOverflow);
    QTest::newRow("32767.5 rounds up past 16-bit") << QVariant(32767.5) << true << int(ErrOverflow);
    QTest::newRow("-32769 to 16-bit") << QVariant(-32769) << true << int(ErrOverflow);
    QTest::newRow("40000 to 32-bit fits") << QVariant(40000) << false << 0;
    QTest::newRow("3e9 to 32-bit") << QVariant(3e9) << false << int(ErrOverflow);
    QTest::newRow("text 99999 to 16-bit")
        << QVariant(QStringLiteral("99999")) << true << int(ErrOverflow);
    QTest::newRow("text that is no number")
        << QVariant(QStringLiteral("12abc")) << true << int(ErrTypeMismatch);
    QTest::newRow("empty counts as 0") << QVariant() << true << 0;
}

void tst_Values::roundingPastTheRangeIsOverflow()
{
    QFETCH(QVariant, value);
    QFETCH(bool, sixteenBit);
    QFETCH(int, error);
    QCOMPARE(raisedError([&] { sixteenBit ? toInt16(value) : toInt32(value); }), error);
}

void tst_Values::toDoubleNeedsWholeNumberText_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<double>("expected");
    QTest::addColumn<int>("error");
    QTest::newRow("number text") << QVariant(QStringLiteral("3.25")) << 3.25 << 0;
    QTest::newRow("blanks around") << QVariant(QStringLiteral("  -4 ")) << -4.0 << 0;
    QTest::newRow("exponent") << QVariant(QStringLiteral("1e3")) << 1000.0 << 0;
    QTest::newRow("True is -1") << QVariant(true) << -1.0 << 0;
    QTest::newRow("text True is -1") << QVariant(QStringLiteral("true")) << -1.0 << 0;
    QTest::newRow("empty is 0") << QVariant() << 0.0 << 0;
    QTest::newRow("16-bit") << int16Value(-7) << -7.0 << 0;
    QTest::newRow("single") << singleValue(0.5f) << 0.5 << 0;
    QTest::newRow("trailing letters")
        << QVariant(QStringLiteral("12abc")) << 0.0 << int(ErrTypeMismatch);
    QTest::newRow("empty text") << QVariant(QString(QLatin1String(""))) << 0.0
                                << int(ErrTypeMismatch);
}

void tst_Values::toDoubleNeedsWholeNumberText()
{
    QFETCH(QVariant, value);
    QFETCH(double, expected);
    QFETCH(int, error);
    double result = 0;
    QCOMPARE(raisedError([&] { result = toDouble(value); }), error);
    if (!error)
        QCOMPARE(result, expected);
}

void tst_Values::truthOfAValue_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<bool>("expected");
    QTest::addColumn<int>("error");
    QTest::newRow("TRUE") << QVariant(QStringLiteral("TRUE")) << true << 0;
    QTest::newRow("false") << QVariant(QStringLiteral("false")) << false << 0;
    QTest::newRow("True with blanks") << QVariant(QStringLiteral(" True ")) << true << 0;
    QTest::newRow("1") << QVariant(QStringLiteral("1")) << true << 0;
    QTest::newRow("0") << QVariant(QStringLiteral("0")) << false << 0;
    QTest::newRow("-1") << QVariant(QStringLiteral("-1")) << true << 0;
    QTest::newRow("x") << QVariant(QStringLiteral("x")) << false << int(ErrTypeMismatch);
    QTest::newRow("yes") << QVariant(QStringLiteral("yes")) << false << int(ErrTypeMismatch);
    QTest::newRow("empty text") << QVariant(QString(QLatin1String(""))) << false
                                << int(ErrTypeMismatch);
    QTest::newRow("empty value") << QVariant() << false << 0;
    QTest::newRow("16-bit 1") << int16Value(1) << true << 0;
    QTest::newRow("16-bit 0") << int16Value(0) << false << 0;
    QTest::newRow("double 0.1") << doubleValue(0.1) << true << 0;
    QTest::newRow("boolean") << QVariant(true) << true << 0;
}

void tst_Values::truthOfAValue()
{
    QFETCH(QVariant, value);
    QFETCH(bool, expected);
    QFETCH(int, error);
    bool result = !expected;
    QCOMPARE(raisedError([&] { result = toBool(value); }), error);
    if (!error)
        QCOMPARE(result, expected);
}

void tst_Values::dateTestAndConversion_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QDate>("expected"); // invalid: no date
    const QDate march1(2024, 3, 1);
    QTest::newRow("ISO") << QVariant(QStringLiteral("2024-03-01")) << march1;
    QTest::newRow("month/day/year") << QVariant(QStringLiteral("3/1/2024")) << march1;
    QTest::newRow("day.month.year") << QVariant(QStringLiteral("1.3.2024")) << march1;
    QTest::newRow("day month name year") << QVariant(QStringLiteral("1 March 2024")) << march1;
    QTest::newRow("short month name") << QVariant(QStringLiteral("1 Mar 2024")) << march1;
    QTest::newRow("month name day, year") << QVariant(QStringLiteral("March 1, 2024")) << march1;
    QTest::newRow("with a time") << QVariant(QStringLiteral("2024-03-01 14:30")) << march1;
    QTest::newRow("blanks around") << QVariant(QStringLiteral(" 2024-03-01 ")) << march1;
    QTest::newRow("date value") << QVariant(march1) << march1;
    QTest::newRow("date and time value") << QVariant(QDateTime(march1, QTime(23, 59))) << march1;
    QTest::newRow("day out of range") << QVariant(QStringLiteral("2024-02-30")) << QDate();
    QTest::newRow("month 13") << QVariant(QStringLiteral("13/1/2024")) << QDate();
    QTest::newRow("words") << QVariant(QStringLiteral("tomorrow")) << QDate();
    QTest::newRow("empty text") << QVariant(QString(QLatin1String(""))) << QDate();
    QTest::newRow("number is no date") << QVariant(45352) << QDate();
    QTest::newRow("empty") << QVariant() << QDate();
}

void tst_Values::dateTestAndConversion()
{
    QFETCH(QVariant, value);
    QFETCH(QDate, expected);
    QCOMPARE(isDate(value), expected.isValid());
    if (expected.isValid())
        QCOMPARE(toDate(value), expected);
}

void tst_Values::textThatIsNoDateIsATypeMismatch()
{
    QCOMPARE(raisedError([] { toDate(QStringLiteral("tomorrow")); }), int(ErrTypeMismatch));
    QCOMPARE(raisedError([] { toDate(QVariant(true)); }), int(ErrTypeMismatch));
}

void tst_Values::numberConvertsToTheDateOfItsSerial()
{
    QCOMPARE(toDate(QVariant(45352)), QDate(2024, 3, 1));
    QCOMPARE(toDate(QVariant(45352.75)), QDate(2024, 3, 1));
    QCOMPARE(toDate(QVariant(0)), QDate(1899, 12, 30));
    QCOMPARE(toDouble(QVariant(QDate(2024, 3, 1))), 45352.0);
    QCOMPARE(toDouble(QVariant(QDateTime(QDate(2024, 3, 1), QTime(18, 0)))), 45352.75);
}

void tst_Values::textFormOfEachKind_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("expected");
    QTest::newRow("empty") << QVariant() << "";
    QTest::newRow("text") << textValue(QStringLiteral(" as is ")) << " as is ";
    QTest::newRow("16-bit") << int16Value(-7) << "-7";
    QTest::newRow("32-bit") << int32Value(40000) << "40000";
    QTest::newRow("single") << singleValue(3.7f) << "3.7";
    QTest::newRow("double") << doubleValue(0.1 + 0.2) << "0.3";
    QTest::newRow("whole double") << doubleValue(12.0) << "12";
    QTest::newRow("true") << QVariant(true) << "True";
    QTest::newRow("false") << QVariant(false) << "False";
    QTest::newRow("date") << QVariant(QDate(2024, 3, 1)) << "2024-03-01";
    QTest::newRow("date at midnight")
        << QVariant(QDateTime(QDate(2024, 3, 1), QTime(0, 0))) << "2024-03-01";
    QTest::newRow("date and time")
        << QVariant(QDateTime(QDate(2024, 3, 1), QTime(14, 5, 9))) << "2024-03-01 14:05:09";
}

void tst_Values::textFormOfEachKind()
{
    QFETCH(QVariant, value);
    QFETCH(QString, expected);
    QCOMPARE(textOf(value), expected);
}

void tst_Values::objectHasNoTextForm()
{
    QObject object;
    QCOMPARE(raisedError([&] { textOf(QVariant::fromValue<QObject *>(&object)); }),
        int(ErrTypeMismatch));
}

void tst_Values::kindsStayDistinct_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<ValueKind>("kind");
    QObject *none = nullptr;
    QTest::newRow("empty") << QVariant() << ValueKind::Empty;
    QTest::newRow("text 1") << textValue(QStringLiteral("1")) << ValueKind::Text;
    QTest::newRow("empty text") << textValue(QString()) << ValueKind::Text;
    QTest::newRow("16-bit 1") << int16Value(1) << ValueKind::Int16;
    QTest::newRow("32-bit 1") << int32Value(1) << ValueKind::Int32;
    QTest::newRow("single") << singleValue(1) << ValueKind::Single;
    QTest::newRow("double") << doubleValue(1) << ValueKind::Double;
    QTest::newRow("boolean") << QVariant(true) << ValueKind::Boolean;
    QTest::newRow("date") << QVariant(QDate(2024, 3, 1)) << ValueKind::Date;
    QTest::newRow("object") << QVariant::fromValue<QObject *>(qApp) << ValueKind::Object;
    QTest::newRow("null object reference") << QVariant::fromValue(none) << ValueKind::Object;
}

void tst_Values::kindsStayDistinct()
{
    QFETCH(QVariant, value);
    QFETCH(ValueKind, kind);
    QCOMPARE(kindOf(value), kind);
}

QTEST_GUILESS_MAIN(tst_Values)
#include "tst_Values.moc"
