// The entries of a drop-down field: keys, positions, the item-data flag and the editor's list.

#include "grid/GridHost.h"

#include "fieldmodel/DropDownValues_p.h"

#include <QtTest>

using namespace kwFieldDeck;
using kwFieldDeck::test::GridHost;

class tst_DropDownValues : public QObject
{
    Q_OBJECT

private slots:
    void addFillsTheListAndTheLastAddDecidesTheFlag_data()
    {
        QTest::addColumn<QStringList>("keys");
        QTest::addColumn<QStringList>("storedKeys");
        QTest::addColumn<QList<int>>("itemData");
        QTest::addColumn<bool>("flag");
        auto row = [](const char *name, const QStringList &keys, const QStringList &storedKeys,
                       const QList<int> &itemData, bool flag) {
            QTest::newRow(name) << keys << storedKeys << itemData << flag;
        };
        row("keyless", { "", "" }, { "1", "2" }, { 1, 2 }, false);
        row("keyed then keyless", { "10", "" }, { "10", "1" }, { 10, 1 }, false);
        row("keyless then keyed", { "", "7" }, { "1", "7" }, { 1, 7 }, true);
        row("text key", { "abc" }, { "abc" }, { 0 }, true);
        row("number then text", { "12kg" }, { "12kg" }, { 12 }, true);
    }

    void addFillsTheListAndTheLastAddDecidesTheFlag()
    {
        QFETCH(QStringList, keys);
        QFETCH(QStringList, storedKeys);
        QFETCH(QList<int>, itemData);
        QFETCH(bool, flag);
        GridHost host;
        Field *field = host.add("Unit", ftCombo);
        DropDownValues *values = field->DropDownValues();
        for (int i = 0; i < keys.size(); ++i)
            QCOMPARE(values->Add(keys[i], QStringLiteral("entry %1").arg(i))->Key(), storedKeys[i]);
        QCOMPARE(values->UseComboItemData(), flag);
        const QVector<ComboEntry> &list = GridHost::state(field).entries;
        QCOMPARE(list.size(), keys.size());
        for (int i = 0; i < keys.size(); ++i) {
            QCOMPARE(list[i].text, QStringLiteral("entry %1").arg(i));
            QCOMPARE(list[i].itemData, itemData[i]);
        }
    }

    void lookupsIgnoreCaseAndRemoveKeepsTheList()
    {
        GridHost host;
        Field *field = host.add("Mode", ftCombo);
        DropDownValues *values = field->DropDownValues();
        values->Add({}, "One");
        DropDownValue *fast = values->Add("Fast", "Fast mode");
        // A key that reads as a number is still a key when given as text.
        DropDownValue *three = values->Add("3", "Three");
        QCOMPARE(values->Item("FAST"), fast);
        QCOMPARE(values->Item("3"), three);
        values->Remove(1);
        QCOMPARE(values->Item(1), fast);
        QCOMPARE(values->Item(2), three);
        QCOMPARE(QList<DropDownValue *>(values->begin(), values->end()),
            (QList<DropDownValue *> { fast, three }));
        values->Remove("fast");
        QCOMPARE(values->Count(), 1);
        // Removed entries still show in the list until the editor is rebuilt: intended.
        QCOMPARE(GridHost::state(field).entries.size(), 3);
        // The key counter is never reset, and a removed key can be used again.
        QCOMPARE(values->Add({}, "Two")->Key(), QStringLiteral("2"));
        QVERIFY(values->Add("FAST", "Fast again"));
    }

    void duplicateAndMissingEntriesAreReported()
    {
        GridHost host;
        Field *field = host.add("Mode", ftCombo);
        DropDownValues *values = field->DropDownValues();
        values->Add("A", "First");
        test::ErrorRecorder errors;
        QVERIFY(!values->Add("a", "Second"));
        QCOMPARE(GridHost::state(field).entries.size(), 1);
        for (const QVariant &missing : { QVariant("nothing"), QVariant(0), QVariant(2) }) {
            QVERIFY(!values->Item(missing));
            values->Remove(missing);
        }
        QCOMPARE(values->Count(), 1);
        QCOMPARE(errors.errors.first().number, 457);
        const QString item = "Property 'Item' of Class Module 'DropDownValues'";
        const QString remove = "Sub 'Remove' of Class Module 'DropDownValues'";
        QCOMPARE(errors.sources(),
            (QStringList { "Function 'Add' of Class Module 'DropDownValues'", item, remove, item,
                remove, item, remove }));
    }

    void addOnOtherTypesOrWithoutFieldGivesNull()
    {
        GridHost host;
        DropDownValues *values = host.add("Host", ftText)->DropDownValues();
        values->setUseComboItemData(true);
        test::ErrorRecorder errors;
        QVERIFY(!values->Add("a", "A"));
        QCOMPARE(values->Count(), 0);
        QCOMPARE(values->UseComboItemData(), true);
        QVERIFY(errors.errors.isEmpty());

        DropDownValues orphan;
        QVERIFY(!orphan.Add("a", "A"));
        QCOMPARE(errors.errors.size(), 1);
        QCOMPARE(errors.errors.first().number, 91);
    }
};

QTEST_MAIN(tst_DropDownValues)
#include "tst_DropDownValues.moc"
