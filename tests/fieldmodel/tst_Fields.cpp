// The grid's field collection: Add with its duplicate message, lookups by position and name,
// Remove and Clear, and the highlight reset.

#include "grid/GridHost.h"

#include "fieldmodel/DropDownValues.h"

#include <QtTest>

using namespace kwFieldDeck;
using kwFieldDeck::test::GridHost;

class tst_Fields : public QObject
{
    Q_OBJECT

private slots:
    void duplicateNameShowsMessageAndReturnsNull();
    void addWithNameAndTypeOnly_data();
    void addWithNameAndTypeOnly();
    void addSetsEveryGivenProperty();
    void itemFindsNameInAnyCase();
    void missingItemIsReportedAndNull_data();
    void missingItemIsReportedAndNull();
    void removeHidesAndReleasesTheEditor();
    void removeDoesNotLayOutAgain();
    void clearHidesEveryRowAndLaysOut();
    void removedFieldStaysUsable();
    void iteratesInOrder();
    void clearSelectedRowsResetsHighlight();
    void dropDownValuesIsMadeOnce();
    void addWithoutGridIsReported();
};

void tst_Fields::duplicateNameShowsMessageAndReturnsNull()
{
    GridHost host;
    test::MessageRecorder messages;
    test::ErrorRecorder errors;
    QVERIFY(host.add("Port"));
    QVERIFY(!host.add("port"));
    QCOMPARE(messages.messages.size(), 1);
    QCOMPARE(messages.messages.first().prompt,
        QStringLiteral("Field: port already exists in Fields Collection!"));
    QCOMPARE(messages.messages.first().style, MsgBoxStyle::OKOnly);
    QCOMPARE(messages.messages.first().title, QString());
    QCOMPARE(host.grid->Fields()->Count(), 1);
    QVERIFY(errors.errors.isEmpty());
}

void tst_Fields::addWithNameAndTypeOnly_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QVariant>("value");
    QTest::newRow("text") << int(ftText) << QVariant(QString());
    QTest::newRow("numeric") << int(ftNumeric) << doubleValue(0);
    QTest::newRow("check") << int(ftCheckBox) << QVariant(QString());
}

void tst_Fields::addWithNameAndTypeOnly()
{
    QFETCH(int, type);
    QFETCH(QVariant, value);
    GridHost host;
    Field *field = host.grid->Fields()->Add("Plain", lFieldTypes(type));
    QCOMPARE(field->Size(), 0);
    QCOMPARE(field->Description(), QString());
    QCOMPARE(field->Value(), value);
    if (type == ftNumeric)
        QCOMPARE(field->ValueNumeric()->Text(), QStringLiteral("0"));
}

void tst_Fields::addSetsEveryGivenProperty()
{
    GridHost host;
    Field *field = host.grid->Fields()->Add("Host", ftText, 12, "example.org", "Server name");
    QCOMPARE(field->Name(), QStringLiteral("Host"));
    QCOMPARE(field->FieldType(), qint32(ftText));
    QCOMPARE(field->Size(), 12);
    QCOMPARE(field->Value(), textValue("example.org"));
    QCOMPARE(field->ValueTextBox()->Text(), QStringLiteral("example.org"));
    QCOMPARE(field->ValueTextBox()->MaxLength(), 12);
    QCOMPARE(field->Description(), QStringLiteral("Server name"));
    QCOMPARE(field->ParentClass(), host.grid->Fields());
}

void tst_Fields::itemFindsNameInAnyCase()
{
    GridHost host;
    Field *port = host.add("Port");
    Field *host2 = host.add("Host");
    Fields *fields = host.grid->Fields();
    QCOMPARE(fields->Item("PORT"), port);
    QCOMPARE(fields->Item("host"), host2);
    QCOMPARE(fields->Item(2), host2);
    QCOMPARE(fields->Item(int16Value(1)), port);
}

void tst_Fields::missingItemIsReportedAndNull_data()
{
    QTest::addColumn<QVariant>("indexKey");
    QTest::newRow("unknown name") << QVariant("Nothing");
    QTest::newRow("position 0") << QVariant(0);
    QTest::newRow("position past the end") << QVariant(2);
}

void tst_Fields::missingItemIsReportedAndNull()
{
    QFETCH(QVariant, indexKey);
    GridHost host;
    host.add("Port");
    test::ErrorRecorder errors;
    QVERIFY(!host.grid->Fields()->Item(indexKey));
    host.grid->Fields()->Remove(indexKey);
    QCOMPARE(errors.sources(),
        (QStringList {
            "Property 'Item' of Class Module 'Fields'", "Sub 'Remove' of Class Module 'Fields'" }));
    QCOMPARE(host.grid->Fields()->Count(), 1);
}

void tst_Fields::removeHidesAndReleasesTheEditor()
{
    GridHost host;
    Field *port = host.add("Port");
    Field *name = host.add("Name");
    TextBox *editor = port->ValueTextBox();
    host.grid->Fields()->Remove("port");
    QCOMPARE(host.grid->Fields()->Count(), 1);
    QCOMPARE(host.grid->Fields()->Item(1), name);
    QVERIFY(!port->Visible());
    QVERIFY(!port->FieldNameControl()->Visible());
    QVERIFY(!editor->Visible());
    QVERIFY(!port->ValueTextBox());
    // The editor is still on the grid, but no longer tells the field anything.
    QSignalSpy changed(port, &Field::Changed);
    editor->setText("typed");
    QCOMPARE(changed.count(), 0);
}

void tst_Fields::removeDoesNotLayOutAgain()
{
    GridHost host;
    host.addRows(3);
    host.grid->Refresh(true);
    Fields *fields = host.grid->Fields();
    fields->Remove(2);
    QCOMPARE(fields->Item(2)->FieldNameControl()->Top(), 600.0f);
    fields->Remove(2);
    fields->Remove(1);
    QCOMPARE(fields->Count(), 0);
    QCOMPARE(host.picInner()->Height(), 900.0f);
}

void tst_Fields::clearHidesEveryRowAndLaysOut()
{
    GridHost host;
    host.addRows(3);
    host.grid->Refresh(true);
    QList<Field *> all(host.grid->Fields()->begin(), host.grid->Fields()->end());
    host.grid->Fields()->Clear();
    QCOMPARE(host.grid->Fields()->Count(), 0);
    for (Field *field : all) {
        QVERIFY(!field->FieldNameControl()->Visible());
        QVERIFY(!field->ValueTextBox()->Visible());
        // Clear leaves the editor references alone, unlike Remove.
        QVERIFY(field->ValueTextBox());
    }
    QCOMPARE(host.picInner()->Height(), 0.0f);
    // The next row starts at the top again.
    QCOMPARE(host.add("Again")->FieldNameControl()->Top(), 0.0f);
}

void tst_Fields::removedFieldStaysUsable()
{
    GridHost host;
    QPointer<Field> field = host.add("Port");
    host.grid->Fields()->Remove(1);
    QCoreApplication::processEvents();
    QVERIFY(field);
    field->setDescription("still here");
    QCOMPARE(field->Description(), QStringLiteral("still here"));
}

void tst_Fields::iteratesInOrder()
{
    GridHost host;
    host.add("B");
    host.add("a");
    host.add("C");
    QStringList names;
    for (Field *field : *host.grid->Fields())
        names << field->Name();
    QCOMPARE(names, (QStringList { "B", "a", "C" }));
}

void tst_Fields::clearSelectedRowsResetsHighlight()
{
    GridHost host;
    host.addRows(2);
    Fields *fields = host.grid->Fields();
    fields->Item(2)->FieldNameControl()->setBackColor(SystemColor::Highlight);
    fields->Item(2)->FieldNameControl()->setForeColor(SystemColor::HighlightText);
    fields->ClearSelectedRows();
    QCOMPARE(fields->Item(2)->FieldNameControl()->BackColor(), SystemColor::WindowBackground);
    QCOMPARE(fields->Item(2)->FieldNameControl()->ForeColor(), SystemColor::WindowText);
}

void tst_Fields::dropDownValuesIsMadeOnce()
{
    Fields fields;
    DropDownValues *values = fields.DropDownValues();
    QVERIFY(values);
    QCOMPARE(fields.DropDownValues(), values);
}

void tst_Fields::addWithoutGridIsReported()
{
    Fields fields;
    test::ErrorRecorder errors;
    test::MessageRecorder messages;
    QVERIFY(!fields.Add("Port", ftText));
    QVERIFY(!errors.errors.isEmpty());
    for (const test::ReportedError &error : errors.errors)
        QCOMPARE(error.number, 91);
    QVERIFY(errors.sources().contains("Property 'FieldType' of Class Module 'Field'"));
    QCOMPARE(errors.sources().last(), QStringLiteral("Function 'Add' of Class Module 'Fields'"));
    QCOMPARE(fields.Count(), 0);
}

QTEST_MAIN(tst_Fields)
#include "tst_Fields.moc"
