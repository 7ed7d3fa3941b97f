#include "TestSupport.h"

#include "platform/ComboBox.h"

#include <QComboBox>
#include <QSignalSpy>
#include <QTest>

using namespace kwFieldDeck;

class tst_ComboBox : public QObject
{
    Q_OBJECT
private slots:
    void addingAndClearingSelectNothing();
    void settingListIndexClicksOnChange();
    void itemDataFollowsItsEntry();
    void indexOutsideTheListFails_data();
    void indexOutsideTheListFails();
    void textSelectsAnEntryInAnyCase_data();
    void textSelectsAnEntryInAnyCase();
};

void tst_ComboBox::addingAndClearingSelectNothing()
{
    ComboBox combo(QStringLiteral("cbo"));
    QSignalSpy clicks(&combo, &Control::Click);
    QCOMPARE(combo.NewIndex(), -1);
    combo.AddItem(QStringLiteral("Red"));
    combo.AddItem(QStringLiteral("Blue"));
    QCOMPARE(combo.NewIndex(), 1);
    QCOMPARE(combo.ListCount(), 2);
    QCOMPARE(combo.ListIndex(), -1);
    QCOMPARE(combo.Text(), QString());
    combo.setListIndex(1);
    combo.Clear();
    QCOMPARE(combo.ListCount(), 0);
    QCOMPARE(combo.NewIndex(), -1);
    QCOMPARE(clicks.count(), 1);
}

void tst_ComboBox::settingListIndexClicksOnChange()
{
    ComboBox combo(QStringLiteral("cbo"));
    combo.AddItem(QStringLiteral("Red"));
    combo.AddItem(QStringLiteral("Blue"));
    QSignalSpy clicks(&combo, &Control::Click);
    combo.setListIndex(1);
    QCOMPARE(combo.Text(), QStringLiteral("Blue"));
    combo.setListIndex(1);
    combo.setListIndex(0);
    QCOMPARE(clicks.count(), 2);
    QCOMPARE(combo.Style(), qint16(2));
}

void tst_ComboBox::itemDataFollowsItsEntry()
{
    ComboBox combo(QStringLiteral("cbo"));
    combo.AddItem(QStringLiteral("Red"));
    combo.setItemData(combo.NewIndex(), -70000);
    combo.AddItem(QStringLiteral("Blue"));
    QCOMPARE(combo.ItemData(0), -70000);
    QCOMPARE(combo.ItemData(1), 0);
    QCOMPARE(combo.List(1), QStringLiteral("Blue"));
    QCOMPARE(combo.List(5), QString());
}

void tst_ComboBox::indexOutsideTheListFails_data()
{
    QTest::addColumn<int>("index");
    QTest::newRow("none selected") << -1;
    QTest::newRow("past the end") << 2;
}

void tst_ComboBox::indexOutsideTheListFails()
{
    QFETCH(int, index);
    ComboBox combo(QStringLiteral("cbo"));
    combo.AddItem(QStringLiteral("Red"));
    combo.AddItem(QStringLiteral("Blue"));
    try {
        combo.ItemData(index);
        QFAIL("no error");
    } catch (const Error &error) {
        QCOMPARE(error.number(), 381);
    }
}

void tst_ComboBox::textSelectsAnEntryInAnyCase_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("index");
    QTest::newRow("as spelled") << "Blue" << 1;
    QTest::newRow("other case") << "BLUE" << 1;
    QTest::newRow("no entry keeps the selection") << "Green" << 0;
}

void tst_ComboBox::textSelectsAnEntryInAnyCase()
{
    QFETCH(QString, text);
    QFETCH(int, index);
    ComboBox combo(QStringLiteral("cbo"));
    combo.AddItem(QStringLiteral("Red"));
    combo.AddItem(QStringLiteral("Blue"));
    combo.setListIndex(0);
    combo.setText(text);
    QCOMPARE(combo.ListIndex(), index);
}

QTEST_MAIN(tst_ComboBox)
#include "tst_ComboBox.moc"
