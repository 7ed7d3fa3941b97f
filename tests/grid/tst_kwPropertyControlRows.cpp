// Row creation: the name cell and the editor of each field type, their names, classes and
// places on the canvas.

#include "grid/GridHost.h"

#include "editors/kwComboField.h"
#include "editors/kwFileSelectorField.h"
#include "editors/kwFolderSelectorField.h"
#include "editors/kwSimpleCheck.h"
#include "editors/kwSliderValue.h"
#include "platform/DatePicker.h"

#include <QtTest>

using namespace kwFieldDeck;
using kwFieldDeck::test::GridHost;

namespace {
int numberIn(const QString &name, const QString &prefix)
{
    return name.mid(prefix.size()).toInt();
}
} // namespace

class tst_kwPropertyControlRows : public QObject
{
    Q_OBJECT

private slots:
    void labelAndEditorShareOneNumber_data();
    void labelAndEditorShareOneNumber();
    void nameCellIsAReadOnlyLabel();
    void newRowGoesBelowTheLastLabelledField();
    void gridsOfOneThreadShareTheCounter();
    void reAddedFieldGetsNewNumbers();
    void checkFieldShowsItsValue_data();
    void checkFieldShowsItsValue();
    void dateFieldWithoutDateKeepsPickerDate();
    void rejectedDuplicateKeepsItsRow();
    void addingARowGrowsTheCanvasOnly();
    void editorThatCannotBeCreatedLeavesTheLabel();
};

void tst_kwPropertyControlRows::labelAndEditorShareOneNumber_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("prefix");
    QTest::addColumn<QByteArray>("className");
    QTest::newRow("text") << int(ftText) << "TextBox" << QByteArray("kwFieldDeck::TextBox");
    QTest::newRow("numeric") << int(ftNumeric) << "Numeric" << QByteArray("kwFieldDeck::TextBox");
    QTest::newRow("check") << int(ftCheckBox) << "kwSimpleCheck"
                           << QByteArray("kwFieldDeck::kwSimpleCheck");
    QTest::newRow("combo") << int(ftCombo) << "kwComboField"
                           << QByteArray("kwFieldDeck::kwComboField");
    QTest::newRow("date") << int(ftDate) << "DTPicker" << QByteArray("kwFieldDeck::DatePicker");
    QTest::newRow("slider") << int(ftSlider) << "kwSliderValue"
                            << QByteArray("kwFieldDeck::kwSliderValue");
    QTest::newRow("file") << int(ftFileSelector) << "kwFileSelectorField"
                          << QByteArray("kwFieldDeck::kwFileSelectorField");
    QTest::newRow("folder") << int(ftFolderSelector) << "kwFolderSelectorField"
                            << QByteArray("kwFieldDeck::kwFolderSelectorField");
}

void tst_kwPropertyControlRows::labelAndEditorShareOneNumber()
{
    QFETCH(int, type);
    QFETCH(QString, prefix);
    QFETCH(QByteArray, className);
    GridHost host;
    test::ErrorRecorder errors;
    Field *field = host.add("Value", lFieldTypes(type));
    QVERIFY2(errors.errors.isEmpty(), qPrintable(errors.sources().join(", ")));
    const QString label = field->FieldNameControl()->Name();
    QVERIFY(label.startsWith(QLatin1String("FieldName")));
    const int number = numberIn(label, QStringLiteral("FieldName"));
    QVERIFY(number > 0);
    Control *editor = host.grid->Controls().Item(prefix + QString::number(number));
    QVERIFY(editor);
    QCOMPARE(field->EditorControl(), editor);
    QObject *object = field->EditField();
    QVERIFY(object);
    QCOMPARE(QByteArray(object->metaObject()->className()), className);
    QCOMPARE(editor->Container(), host.picInner()->widget());
    QCOMPARE(editor->Top(), field->FieldNameControl()->Top());
    QCOMPARE(editor->Left(), 725.0f);
    QCOMPARE(editor->Height(), 315.0f);
}

void tst_kwPropertyControlRows::nameCellIsAReadOnlyLabel()
{
    GridHost host;
    host.grid->setFieldNameBackColor(0x00C0FFFF);
    host.grid->setFieldNameForeColor(0x00800000);
    Field *field = host.add("Port", ftNumeric, {}, "TCP port");
    TextBox *cell = field->FieldNameControl();
    QCOMPARE(cell->Text(), QStringLiteral("Port "));
    QCOMPARE(cell->ToolTipText(), QStringLiteral("TCP port"));
    QVERIFY(cell->Locked());
    QVERIFY(!cell->TabStop());
    QCOMPARE(cell->Appearance(), 0);
    QCOMPARE(cell->Left(), 0.0f);
    QCOMPARE(cell->Width(), 750.0f);
    QCOMPARE(cell->Height(), 315.0f);
    QCOMPARE(cell->BackColor(), OleColor(0x00C0FFFF));
    QCOMPARE(cell->ForeColor(), OleColor(0x00800000));
    QCOMPARE(cell->Container(), host.picInner()->widget());
    QVERIFY(cell->Visible());
}

void tst_kwPropertyControlRows::newRowGoesBelowTheLastLabelledField()
{
    GridHost host;
    host.addRows(2);
    Fields *fields = host.grid->Fields();
    // Hidden fields count: the third row still goes below the second.
    fields->Item(2)->setVisible(false);
    Field *third = host.add("Third");
    QCOMPARE(third->FieldNameControl()->Top(), 600.0f);
    // After the last field leaves, the next row goes below the one now last.
    fields->Remove(3);
    Field *fourth = host.add("Fourth");
    QCOMPARE(fourth->FieldNameControl()->Top(), 600.0f);
    fields->Remove("fourth");
    fields->Remove(2);
    QCOMPARE(host.add("Fifth")->FieldNameControl()->Top(), 300.0f);
}

void tst_kwPropertyControlRows::gridsOfOneThreadShareTheCounter()
{
    GridHost first;
    GridHost second;
    Field *a = first.add("A");
    Field *b = second.add("B");
    Field *c = first.add("C");
    const int na = numberIn(a->FieldNameControl()->Name(), "FieldName");
    QCOMPARE(numberIn(b->FieldNameControl()->Name(), "FieldName"), na + 1);
    QCOMPARE(numberIn(c->FieldNameControl()->Name(), "FieldName"), na + 2);
    QCOMPARE(c->ValueTextBox()->Name(), QStringLiteral("TextBox%1").arg(na + 2));
}

void tst_kwPropertyControlRows::reAddedFieldGetsNewNumbers()
{
    GridHost host;
    Field *field = host.add("Port");
    const int before = numberIn(field->FieldNameControl()->Name(), "FieldName");
    host.grid->Fields()->Remove("Port");
    Field *again = host.add("Port");
    QVERIFY(again);
    QVERIFY(numberIn(again->FieldNameControl()->Name(), "FieldName") > before);
    // The removed field's controls stay on the grid, hidden.
    QVERIFY(host.grid->Controls().Item(QStringLiteral("FieldName%1").arg(before)));
    QVERIFY(!field->FieldNameControl()->Visible());
}

void tst_kwPropertyControlRows::checkFieldShowsItsValue_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<int>("checked");
    QTest::newRow("TRUE") << "TRUE" << 1;
    QTest::newRow("true with blanks") << "true " << 1;
    QTest::newRow("1") << "1" << 1;
    QTest::newRow("-1") << "-1" << 1;
    QTest::newRow("2") << "2" << 1;
    QTest::newRow("0") << "0" << 0;
    QTest::newRow("FALSE") << "FALSE" << 0;
    QTest::newRow("empty") << "" << 0;
    QTest::newRow("yes") << "yes" << 0;
}

void tst_kwPropertyControlRows::checkFieldShowsItsValue()
{
    QFETCH(QString, value);
    QFETCH(int, checked);
    GridHost host;
    Field *field = host.add("Enabled", ftCheckBox, value);
    QCOMPARE(int(field->ValueCheckBox()->Value()), checked);
}

void tst_kwPropertyControlRows::dateFieldWithoutDateKeepsPickerDate()
{
    GridHost host;
    test::ErrorRecorder errors;
    Field *field = host.add("Start", ftDate);
    QVERIFY(errors.errors.isEmpty());
    QCOMPARE(field->ValueDate()->Value().toDate(), QDate::currentDate());
    Field *dated = host.add("End", ftDate, "2024-03-01");
    QCOMPARE(dated->ValueDate()->Value().toDate(), QDate(2024, 3, 1));
}

void tst_kwPropertyControlRows::rejectedDuplicateKeepsItsRow()
{
    GridHost host;
    test::MessageRecorder messages;
    host.add("Port");
    const int controlsBefore = host.grid->Controls().Count();
    QVERIFY(!host.add("port"));
    QCOMPARE(host.grid->Fields()->Count(), 1);
    QCOMPARE(host.grid->Controls().Count(), controlsBefore + 2);
}

void tst_kwPropertyControlRows::addingARowGrowsTheCanvasOnly()
{
    GridHost host;
    host.addRows(2);
    QCOMPARE(host.picInner()->Height(), 300.0f + 315.0f);
    // The visible row count changes at the next full layout.
    host.grid->Refresh(true);
    QCOMPARE(host.picInner()->Height(), 600.0f);
}

void tst_kwPropertyControlRows::editorThatCannotBeCreatedLeavesTheLabel()
{
    const QString classId = libraryTitle() + QStringLiteral(".kwSliderValue");
    ClassFactory::registerClass(
        classId, [](const QString &, QObject *) -> Control * { raise(ErrCannotCreateObject); });
    GridHost host;
    test::ErrorRecorder errors;
    test::MessageRecorder messages;
    Field *field = host.add("Level", ftSlider);
    ClassFactory::registerUserControl<kwSliderValue>(classId);
    QVERIFY(field);
    QVERIFY(!errors.errors.isEmpty());
    QCOMPARE(errors.errors.first().number, int(ErrCannotCreateObject));
    QCOMPARE(errors.errors.first().source,
        QStringLiteral("Function 'AddSliderValue' of User Control 'kwPropertyControl'"));
    QVERIFY(!field->ValueSlider());
    QVERIFY(field->FieldNameControl());
    QVERIFY(field->FieldNameControl()->Visible());
    QCOMPARE(field->FieldNameControl()->Text(), QStringLiteral("Level "));
}

QTEST_MAIN(tst_kwPropertyControlRows)
#include "tst_kwPropertyControlRows.moc"
