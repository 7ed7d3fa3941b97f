// The form program's text of field values: each kind of value a field gives back, on its
// Name=Value line and in the JSON output, as a field of each type holds it.

#include "FieldValueText.h"

#include <kwFieldDeck/Field>
#include <kwFieldDeck/Fields>
#include <kwFieldDeck/kwPropertyControl>

#include <QtTest>

using namespace kwFieldDeck;

namespace {
QVariant int16(qint16 value)
{
    return QVariant::fromValue(value);
}
QVariant int32(qint32 value)
{
    return QVariant::fromValue(value);
}
const QDate June1(2024, 6, 1);
} // namespace

class tst_FieldValueText : public QObject
{
    Q_OBJECT
private slots:
    // The values are assigned in turn; an earlier one sets what the editor shows, so that the
    // last one, which shows the same, stays stored in its own kind.
    void eachKindOfValuePrintsAsLineAndAsJson_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QVariantList>("assigned");
        QTest::addColumn<QString>("line");
        QTest::addColumn<QByteArray>("json");
        auto row = [](const char *name, int type, const QVariantList &assigned, const char *line,
                       const char *json) {
            QTest::newRow(name) << type << assigned << QString::fromUtf8(line) << QByteArray(json);
        };
        // A field without a type stores every kind as given.
        row("empty", 0, { QVariant() }, "", "0");
        row("text", 0, { "Ada \"A\" \\ ünï" }, "Ada \"A\" \\ ünï", "\"Ada \\\"A\\\" \\\\ ünï\"");
        row("text of a number", 0, { "12" }, "12", "\"12\"");
        row("text with a line break", 0, { "a\r\nb" }, "a%CRLF%b", "\"a\\nb\"");
        row("16-bit integer", 0, { int16(-7) }, "-7", "-7");
        row("32-bit integer", 0, { int32(70000) }, "70000", "70000");
        row("double", 0, { 2.5 }, "2.5", "2.5");
        row("double to 15 digits", 0, { 0.1 + 0.2 }, "0.3", "0.30000000000000004");
        row("large double", 0, { 1e20 }, "1e+20", "1e+20");
        row("true", 0, { true }, "True", "-1");
        row("false", 0, { false }, "False", "0");
        row("date", 0, { June1 }, "2024-06-01", "\"2024-06-01\"");
        row("date and time", 0, { QDateTime(June1, QTime(10, 30)) }, "2024-06-01 10:30:00",
            "\"2024-06-01 10:30:00\"");
        row("midnight", 0, { QDateTime(June1, QTime(0, 0)) }, "2024-06-01", "\"2024-06-01\"");

        row("text field, boolean", ftText, { true }, "True", "-1");
        row("text field, text", ftText, { "1.5" }, "1.5", "\"1.5\"");
        row("memo", ftMemo, { "one\r\ntwo" }, "one%CRLF%two", "\"one\\ntwo\"");
        row("file", ftFileSelector, { "/tmp/a b" }, "/tmp/a b", "\"/tmp/a b\"");

        // A number box stores the number it shows; a value that shows the same stays.
        row("number box, shown number", ftNumeric, { "3.7xyz" }, "3.7", "3.7");
        row("number box, leading number", ftNumeric, { "12", "12abc" }, "12abc", "12");
        row("number box, exponent", ftNumeric, { "1", "1e3" }, "1e3", "1000");
        row("number box, no number", ftNumeric, { "abc" }, "abc", "0");
        row("number box, boolean", ftNumeric, { true }, "True", "-1");
        row("number box, 16-bit", ftNumeric, { "5", int16(5) }, "5", "5");

        row("slider, rounded", ftSlider, { "4.5" }, "4", "4");
        row("slider, leading number", ftSlider, { "4", "4.4abc" }, "4.4abc", "4.4");
        row("slider, no number", ftSlider, { "abc" }, "abc", "0");
        row("slider, double", ftSlider, { "4", 4.25 }, "4.25", "4.25");

        row("check box, TRUE", ftCheckBox, { "TRUE" }, "1", "1");
        row("check box, yes", ftCheckBox, { "yes" }, "yes", "0");
        row("check box, zero with blanks", ftCheckBox, { " 0.0 " }, " 0.0 ", "0");
        row("check box, 2", ftCheckBox, { "1", "2" }, "2", "1");
        row("check box, exponent", ftCheckBox, { "1", "1e0" }, "1e0", "1");
        row("check box, false", ftCheckBox, { false }, "False", "0");
        row("check box, date", ftCheckBox, { "1", June1 }, "2024-06-01", "1");
        row("check box, double", ftCheckBox, { "1", 0.5 }, "0.5", "1");
        row("check box, empty", ftCheckBox, { QVariant() }, "", "0");

        // A date picker that shows the date already leaves a text as it was given.
        row("date", ftDate, { June1 }, "2024-06-01", "\"2024-06-01\"");
        for (const char *text :
            { "6/1/2024", "1.6.2024", "1 June 2024", "June 1, 2024", "Jun 1, 2024", "1 Jun 2024",
                "2024/6/1", "2024-06-01 10:30", "2024-06-01T10:30:00", " 2024-06-01 " }) {
            QTest::addRow("date as \"%s\"", text)
                << int(ftDate) << QVariantList { June1, text } << QString::fromUtf8(text)
                << QByteArray("\"2024-06-01\"");
        }
        row("date and time", ftDate, { June1, QDateTime(June1, QTime(10, 30)) },
            "2024-06-01 10:30:00", "\"2024-06-01\"");
        for (const char *text : { "junk", "0099-01-01", "2024-02-30", "2024-06-01 25:00", "12" })
            QTest::addRow("no date: \"%s\"", text) << int(ftDate) << QVariantList { text }
                                                   << QString::fromUtf8(text) << QByteArray("\"\"");
    }

    void eachKindOfValuePrintsAsLineAndAsJson()
    {
        QFETCH(int, type);
        QFETCH(QVariantList, assigned);
        QFETCH(QString, line);
        QFETCH(QByteArray, json);
        kwPropertyControl grid;
        Field *field = grid.Fields()->Add(QStringLiteral("F"), lFieldTypes(type));
        QVERIFY(field);
        for (const QVariant &value : assigned)
            field->setValue(value);
        QCOMPARE(valueLines(*grid.Fields()), QStringList { "F=" + line });
        QCOMPARE(valuesAsJson(*grid.Fields()), "{\"F\":" + json + '}');
    }

    void jsonKeepsTheGridsOrderAndNamesAsText()
    {
        kwPropertyControl grid;
        grid.Fields()->Add(QStringLiteral("Zeta \"z\""), ftText, 0, QStringLiteral("1"));
        grid.Fields()->Add(QStringLiteral("Alpha"), ftNumeric, 0, QStringLiteral("2"));
        QCOMPARE(
            valuesAsJson(*grid.Fields()), QByteArray("{\"Zeta \\\"z\\\"\":\"1\",\"Alpha\":2}"));
        QCOMPARE(valueLines(*grid.Fields()), QStringList({ "Zeta \"z\"=1", "Alpha=2" }));
        QCOMPARE(valuesAsJson(*kwPropertyControl().Fields()), QByteArray("{}"));
    }

    void presetsReachFieldsInAnyCaseAsText()
    {
        kwPropertyControl grid;
        Field *name = grid.Fields()->Add(QStringLiteral("Name"), ftText);
        Field *notes = grid.Fields()->Add(QStringLiteral("Notes"), ftMemo);
        const QStringList unknown = applyPresets(*grid.Fields(),
            { { "NAME", "Grace" }, { "Colour", "red" },
                { "notes", decodeLineBreaks(QStringLiteral("a%CRLF%b")) } });
        QCOMPARE(unknown, QStringList { "Colour" });
        QCOMPARE(name->Value(), QVariant(QStringLiteral("Grace")));
        QCOMPARE(notes->Value(), QVariant(QStringLiteral("a\r\nb")));
        QCOMPARE(encodeLineBreaks(notes->Value().toString()), QStringLiteral("a%CRLF%b"));
    }
};

QTEST_MAIN(tst_FieldValueText)
#include "tst_FieldValueText.moc"
