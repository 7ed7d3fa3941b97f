// The entries of a drop-down field: keys, positions, the item-data flag and the editor's list.

#include "grid/GridHost.h"

#include "editors/kwComboField.h"
#include "fieldmodel/DropDownValues.h"
#include "platform/ComboBox.h"

#include <QtTest>

using namespace kwFieldDeck;
using kwFieldDeck::test::GridHost;

class tst_DropDownValues : public QObject
{
    Q_OBJECT

private slots:
    void keylessEntriesGetCountedKeys();
    void mostRecentAddDecidesTheFlag_data();
    void mostRecentAddDecidesTheFlag();
    void keysAreFoundInAnyCase();
    void duplicateKeyIsReported();
    void missingEntryIsReported_data();
    void missingEntryIsReported();
    void removeShiftsPositionsButKeepsTheList();
    void counterIsNeverReset();
    void addOnOtherTypesDoesNothing();
    void addWithoutFieldIsReported();
    void iteratesInOrder();
};

void tst_DropDownValues::keylessEntriesGetCountedKeys()
{
    GridHost host;
    Field *field = host.add("Colour", ftCombo);
    DropDownValues *values = field->DropDownValues();
    DropDownValue *red = values->Add({}, "Red");
    DropDownValue *blue = values->Add({}, "Blue");
    QCOMPARE(red->Key(), QStringLiteral("1"));
    QCOMPARE(blue->Key(), QStringLiteral("2"));
    QCOMPARE(blue->DisplayValue(), QStringLiteral("Blue"));
    QCOMPARE(values->UseComboItemData(), false);
    ComboBox *list = field->ValueComboBox()->ComboControl();
    QCOMPARE(list->ListCount(), 2);
    QCOMPARE(list->List(0), QStringLiteral("Red"));
    QCOMPARE(list->ItemData(0), 1);
    QCOMPARE(list->ItemData(1), 2);
}

void tst_DropDownValues::mostRecentAddDecidesTheFlag_data()
{
    QTest::addColumn<QStringList>("keys");
    QTest::addColumn<bool>("flag");
    QTest::addColumn<QList<int>>("itemData");
    QTest::newRow("keyed then keyless")
        << QStringList { "10", "" } << false << QList<int> { 10, 1 };
    QTest::newRow("keyless then keyed") << QStringList { "", "7" } << true << QList<int> { 1, 7 };
    QTest::newRow("text key") << QStringList { "abc" } << true << QList<int> { 0 };
    QTest::newRow("number then text") << QStringList { "12kg" } << true << QList<int> { 12 };
}

void tst_DropDownValues::mostRecentAddDecidesTheFlag()
{
    QFETCH(QStringList, keys);
    QFETCH(bool, flag);
    QFETCH(QList<int>, itemData);
    GridHost host;
    Field *field = host.add("Unit", ftCombo);
    DropDownValues *values = field->DropDownValues();
    for (const QString &key : keys)
        QVERIFY(values->Add(key, QStringLiteral("entry ") + key));
    QCOMPARE(values->UseComboItemData(), flag);
    ComboBox *list = field->ValueComboBox()->ComboControl();
    QList<int> data;
    for (int i = 0; i < list->ListCount(); ++i)
        data << list->ItemData(i);
    QCOMPARE(data, itemData);
}

void tst_DropDownValues::keysAreFoundInAnyCase()
{
    GridHost host;
    DropDownValues *values = host.add("Mode", ftCombo)->DropDownValues();
    DropDownValue *fast = values->Add("Fast", "Fast mode");
    QCOMPARE(values->Item("FAST"), fast);
    QCOMPARE(values->Item("fast"), fast);
    QCOMPARE(values->Item(1), fast);
    // A key that reads as a number is still a key when given as text.
    DropDownValue *three = values->Add("3", "Three");
    QCOMPARE(values->Item("3"), three);
    QCOMPARE(values->Item(2), three);
}

void tst_DropDownValues::duplicateKeyIsReported()
{
    GridHost host;
    Field *field = host.add("Mode", ftCombo);
    DropDownValues *values = field->DropDownValues();
    values->Add("A", "First");
    test::ErrorRecorder errors;
    QVERIFY(!values->Add("a", "Second"));
    QCOMPARE(errors.errors.size(), 1);
    QCOMPARE(errors.errors.first().number, 457);
    QCOMPARE(errors.errors.first().source,
        QStringLiteral("Function 'Add' of Class Module 'DropDownValues'"));
    QCOMPARE(values->Count(), 1);
    QCOMPARE(field->ValueComboBox()->ComboControl()->ListCount(), 1);
}

void tst_DropDownValues::missingEntryIsReported_data()
{
    QTest::addColumn<QVariant>("indexKey");
    QTest::newRow("unknown key") << QVariant("nothing");
    QTest::newRow("position 0") << QVariant(0);
    QTest::newRow("position past the end") << QVariant(3);
}

void tst_DropDownValues::missingEntryIsReported()
{
    QFETCH(QVariant, indexKey);
    GridHost host;
    DropDownValues *values = host.add("Mode", ftCombo)->DropDownValues();
    values->Add("a", "A");
    values->Add("b", "B");
    test::ErrorRecorder errors;
    QVERIFY(!values->Item(indexKey));
    values->Remove(indexKey);
    QCOMPARE(errors.sources(),
        (QStringList { "Property 'Item' of Class Module 'DropDownValues'",
            "Sub 'Remove' of Class Module 'DropDownValues'" }));
    QCOMPARE(values->Count(), 2);
}

void tst_DropDownValues::removeShiftsPositionsButKeepsTheList()
{
    GridHost host;
    Field *field = host.add("Mode", ftCombo);
    DropDownValues *values = field->DropDownValues();
    DropDownValue *a = values->Add("a", "A");
    DropDownValue *b = values->Add("b", "B");
    DropDownValue *c = values->Add("c", "C");
    values->Remove(1);
    QCOMPARE(values->Count(), 2);
    QCOMPARE(values->Item(1), b);
    QCOMPARE(values->Item(2), c);
    values->Remove("C");
    QCOMPARE(values->Count(), 1);
    // The removed entries stay valid objects and still show in the list.
    QCOMPARE(a->DisplayValue(), QStringLiteral("A"));
    QCOMPARE(field->ValueComboBox()->ComboControl()->ListCount(), 3);
    // A removed key can be used again.
    QVERIFY(values->Add("a", "A again"));
}

void tst_DropDownValues::counterIsNeverReset()
{
    GridHost host;
    DropDownValues *values = host.add("Mode", ftCombo)->DropDownValues();
    values->Add({}, "One");
    values->Remove(1);
    QCOMPARE(values->Add({}, "Two")->Key(), QStringLiteral("2"));
}

void tst_DropDownValues::addOnOtherTypesDoesNothing()
{
    GridHost host;
    DropDownValues *values = host.add("Host", ftText)->DropDownValues();
    values->setUseComboItemData(true);
    test::ErrorRecorder errors;
    QVERIFY(!values->Add("a", "A"));
    QCOMPARE(values->Count(), 0);
    QCOMPARE(values->UseComboItemData(), true);
    QVERIFY(errors.errors.isEmpty());
}

void tst_DropDownValues::addWithoutFieldIsReported()
{
    DropDownValues values;
    test::ErrorRecorder errors;
    QVERIFY(!values.Add("a", "A"));
    QCOMPARE(errors.errors.size(), 1);
    QCOMPARE(errors.errors.first().number, 91);
}

void tst_DropDownValues::iteratesInOrder()
{
    GridHost host;
    DropDownValues *values = host.add("Mode", ftCombo)->DropDownValues();
    values->Add("z", "Last letter");
    values->Add("a", "First letter");
    QStringList keys;
    for (DropDownValue *value : *values)
        keys << value->Key();
    QCOMPARE(keys, (QStringList { "z", "a" }));
}

QTEST_MAIN(tst_DropDownValues)
#include "tst_DropDownValues.moc"
