// The form program's text of field values, by kind and field type, as lines and as JSON.

#include "FieldValueText.h"

#include "TestSupport.h"

#include <kwFieldDeck/kwFieldDeck>

#include <QtTest>

using namespace kwFieldDeck;

static const QDate June1(2024, 6, 1);

class tst_FieldValueText : public QObject
{
    Q_OBJECT
private slots:
    // The plain value's kind is compared too: it decides what the JSON holds.
    void textAndPlainValueByKindAndType_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QVariant>("plain");
        auto row = [](const char *name, int type, const QVariant &value, const char *text,
                       const QVariant &plain) {
            QTest::newRow(name) << type << value << QString::fromUtf8(text) << plain;
        };
        // Other types: a number, boolean or empty stays a number; a text that reads as one, text.
        row("empty", 0, QVariant(), "", 0.0);
        row("text of a number", ftText, "12", "12", "12");
        row("16-bit", 0, QVariant::fromValue<qint16>(-7), "-7", -7.0);
        row("32-bit", ftMemo, QVariant::fromValue<qint32>(70000), "70000", 70000.0);
        row("double to 15 digits", 0, 0.1 + 0.2, "0.3", 0.1 + 0.2);
        row("large double", 0, 1e20, "1e+20", 1e20);
        row("true", ftText, true, "True", -1.0);
        row("false", 0, false, "False", 0.0);
        row("date", ftText, June1, "2024-06-01", "2024-06-01");
        row("date and time", 0, QDateTime(June1, QTime(10, 30)), "2024-06-01 10:30:00",
            "2024-06-01 10:30:00");
        row("midnight", 0, QDateTime(June1, QTime(0, 0)), "2024-06-01", "2024-06-01");
        // Number and slider: the number the whole text reads as, else the one it starts with.
        row("number, exponent", ftNumeric, "1e3", "1e3", 1000.0);
        row("number, leading", ftNumeric, " 3.7xyz", " 3.7xyz", 3.7);
        row("number, none", ftSlider, "abc", "abc", 0.0);
        row("number, boolean", ftNumeric, true, "True", -1.0);
        row("number, date", ftSlider, June1, "2024-06-01", 2024.0);
        // Check box: ticked by "True" or a leading number other than 0, as the box shows it.
        row("check, TRUE", ftCheckBox, " true ", " true ", 1);
        row("check, yes", ftCheckBox, "yes", "yes", 0);
        row("check, zero with blanks", ftCheckBox, " 0.0 ", " 0.0 ", 0);
        row("check, leading 2", ftCheckBox, "2abc", "2abc", 1);
        row("check, exponent", ftCheckBox, "1e0", "1e0", 1);
        row("check, false", ftCheckBox, false, "False", 0);
        row("check, date", ftCheckBox, June1, "2024-06-01", 1);
        row("check, half", ftCheckBox, 0.5, "0.5", 1);
        row("check, empty", ftCheckBox, QVariant(), "", 0);
        // Date: a date, or a text in one of the forms the date field reads.
        row("date field, date and time", ftDate, QDateTime(June1, QTime(10, 30)),
            "2024-06-01 10:30:00", June1);
        for (const char *text : { "2024-06-01", "6/1/2024", "1.6.2024", "1 June 2024",
                 "June 1, 2024", "Jun 1, 2024", "1 Jun 2024", "2024/6/1", "2024-06-01 10:30",
                 "2024-06-01T10:30:00", " 2024-06-01 " })
            row(text, ftDate, text, text, June1);
        for (const char *text : { "junk", "0099-01-01", "2024-02-30", "2024-06-01 25:00", "12" })
            row(text, ftDate, text, text, QDate());
    }

    void textAndPlainValueByKindAndType()
    {
        QFETCH(int, type);
        QFETCH(QVariant, value);
        QFETCH(QString, text);
        QFETCH(QVariant, plain);
        QCOMPARE(valueText(value), text);
        const QVariant got = plainValue(value, lFieldTypes(type));
        QCOMPARE(got.metaType(), plain.metaType());
        QCOMPARE(got, plain);
    }

    // An object has no text: both calls report error 13 and return an empty result, never throw.
    void anObjectIsReportedNotThrown()
    {
        test::ErrorRecorder errors;
        const QVariant object = QVariant::fromValue<QObject *>(this);
        QCOMPARE(valueText(object), QString());
        QCOMPARE(plainValue(object, ftText), QVariant());
        QCOMPARE(errors.errors.size(), 2);
        for (const test::ReportedError &error : errors.errors)
            QCOMPARE(error.number, 13);
    }

    // Presets reach fields in any case, as text (a date field keeps it); lines and JSON keep the
    // grid's order, a line break is the marker or LF, a number no text, a non-date date "".
    void printsPresetFieldsAsLinesAndAsJson()
    {
        kwPropertyControl grid;
        Fields &fields = *grid.Fields();
        fields.Add(QStringLiteral("Zeta \"z\""), ftText, 0, QStringLiteral("Ada \\ ünï"));
        fields.Add(QStringLiteral("Notes"), ftMemo);
        fields.Add(QStringLiteral("Size"), ftNumeric);
        fields.Add(QStringLiteral("Count"), ftText, 0, QStringLiteral("12"));
        fields.Add(QStringLiteral("Sum"), ftNumeric, 0, QStringLiteral("2.5"));
        fields.Add(QStringLiteral("On"), ftCheckBox, 0, QStringLiteral("TRUE"));
        fields.Add(QStringLiteral("Day"), ftDate, 0, QStringLiteral("2024-06-01"));
        fields.Add(QStringLiteral("Never"), ftDate, 0, QStringLiteral("junk"));
        const QStringList unknown = applyPresets(fields,
            { { "NOTES", decodeLineBreaks(QStringLiteral("a%CRLF%b")) }, { "Colour", "red" },
                { "size", "12abc" }, { "day", "6/1/2024" } });
        QCOMPARE(unknown, QStringList { "Colour" });
        QCOMPARE(valueLines(fields),
            QStringList({ "Zeta \"z\"=Ada \\ ünï", "Notes=a%CRLF%b", "Size=12", "Count=12",
                "Sum=2.5", "On=1", "Day=6/1/2024", "Never=junk" }));
        QCOMPARE(valuesAsJson(fields),
            QByteArray("{\"Zeta \\\"z\\\"\":\"Ada \\\\ ünï\",\"Notes\":\"a\\nb\",\"Size\":12,"
                       "\"Count\":\"12\",\"Sum\":2.5,\"On\":1,"
                       "\"Day\":\"2024-06-01\",\"Never\":\"\"}"));
        QCOMPARE(valuesAsJson(*kwPropertyControl().Fields()), QByteArray("{}"));
    }
};

QTEST_MAIN(tst_FieldValueText)
#include "tst_FieldValueText.moc"
