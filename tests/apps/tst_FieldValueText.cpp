#include "FieldValueText.h"

#include "fieldmodel/Field.h"
#include "fieldmodel/Fields.h"
#include "grid/kwPropertyControl.h"

#include <QtTest>

using namespace kwFieldDeck;

class tst_FieldValueText : public QObject
{
    Q_OBJECT
private slots:
    void onlyCrLfBecomesTheMarker_data();
    void onlyCrLfBecomesTheMarker();
    void linesFollowTheGridsOrder();
    void presetsFindFieldsWithoutRegardToCaseAndNameTheRest();
};

void tst_FieldValueText::onlyCrLfBecomesTheMarker_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("text");
    QTest::newRow("plain") << "abc"
                           << "abc";
    QTest::newRow("CR LF") << "a\r\nb\r\n"
                           << "a%CRLF%b%CRLF%";
    QTest::newRow("lone LF and CR") << "a\nb\rc"
                                    << "a\nb\rc";
    QTest::newRow("equals") << "x=y"
                            << "x=y";
}

void tst_FieldValueText::onlyCrLfBecomesTheMarker()
{
    QFETCH(QString, value);
    QFETCH(QString, text);
    QCOMPARE(encodeLineBreaks(value), text);
    QCOMPARE(decodeLineBreaks(text), value);
}

void tst_FieldValueText::linesFollowTheGridsOrder()
{
    kwPropertyControl grid;
    grid.Fields()->Add("Zeta", ftText, 0, "last letter");
    grid.Fields()->Add("Alpha", ftMemo, 0, "one\r\ntwo");
    grid.Fields()->Add("Empty", ftText);
    QCOMPARE(valueLines(*grid.Fields()),
        QStringList({ "Zeta=last letter", "Alpha=one%CRLF%two", "Empty=" }));
}

void tst_FieldValueText::presetsFindFieldsWithoutRegardToCaseAndNameTheRest()
{
    kwPropertyControl grid;
    grid.Fields()->Add("Name", ftText, 0, "old");
    grid.Fields()->Add("Notes", ftMemo);
    const QStringList unknown = applyPresets(*grid.Fields(),
        { { "NAME", "new" }, { "Missing", "1" }, { "notes", "a\r\nb" }, { "Other", "2" } });
    QCOMPARE(unknown, QStringList({ "Missing", "Other" }));
    QCOMPARE(grid.Fields()->Item("Name")->Value().toString(), QStringLiteral("new"));
    QCOMPARE(grid.Fields()->Item("Notes")->Value().toString(), QStringLiteral("a\r\nb"));
}

QTEST_MAIN(tst_FieldValueText)
#include "tst_FieldValueText.moc"
