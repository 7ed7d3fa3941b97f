// One row's field: the set-once type, the value conventions of each type, limits, look, focus
// and the way failures are reported.

#include "grid/GridHost.h"

#include "editors/kwComboField.h"
#include "editors/kwFileSelectorField.h"
#include "editors/kwSimpleCheck.h"
#include "editors/kwSliderValue.h"
#include "fieldmodel/DropDownValues.h"
#include "platform/ComboBox.h"
#include "platform/DatePicker.h"

#include <QtTest>

using namespace kwFieldDeck;
using kwFieldDeck::test::GridHost;

class tst_Field : public QObject
{
    Q_OBJECT

private slots:
    void typeIsSetOnceButStillChanges();
    void sameTypeAgainOnlyWarns();
    void typeNamesFollowTheEnumeration_data();
    void typeNamesFollowTheEnumeration();
    void textFieldShowsOnlyPlainValues_data();
    void textFieldShowsOnlyPlainValues();
    void numericFieldShowsLeadingNumber_data();
    void numericFieldShowsLeadingNumber();
    void checkFieldStoresTrueAsOne();
    void checkClickGivesSixteenBitValue();
    void sliderFieldRoundsLeadingNumber();
    void comboValueFollowsItemDataFlag();
    void dateFieldTakesOnlyDates();
    void dateLimitsDependOnMin();
    void minOnTextFieldMovesTheFocus();
    void sizeLimitsOnlyTextFields();
    void enabledAndVisibleReachTheRow();
    void coloursReachEditorButNotDatePicker();
    void fileOnlyMembersOnTextField();
    void objectValueIsKeptAsIs();
    void killReleasesTheEditor();
    void fieldWithoutOwnerReportsInsteadOfCrashing();
};

void tst_Field::typeIsSetOnceButStillChanges()
{
    GridHost host;
    Field *field = host.add("Port");
    const int controls = host.grid->Controls().Count();
    test::MessageRecorder messages;
    field->setFieldType(ftNumeric);
    QCOMPARE(messages.messages.size(), 1);
    QCOMPARE(messages.messages.first().prompt,
        QStringLiteral("Field:Port\r\nCan't Change Field Type once it has already been set!"));
    QCOMPARE(messages.messages.first().style, MsgBoxStyle::OKOnly);
    QCOMPARE(messages.messages.first().title, QString());
    QCOMPARE(field->FieldType(), qint32(ftNumeric));
    QVERIFY(field->ValueNumeric());
    // The earlier editor stays on the grid and stays referenced.
    QVERIFY(field->ValueTextBox());
    QCOMPARE(host.grid->Controls().Count(), controls + 2);
}

void tst_Field::sameTypeAgainOnlyWarns()
{
    GridHost host;
    Field *field = host.add("Port");
    const int controls = host.grid->Controls().Count();
    test::MessageRecorder messages;
    field->setFieldType(ftText);
    QCOMPARE(messages.messages.size(), 1);
    QCOMPARE(host.grid->Controls().Count(), controls);
}

void tst_Field::typeNamesFollowTheEnumeration_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("type");
    QTest::newRow("TEXT") << "TEXT" << int(ftText);
    QTest::newRow("CHECKBOX") << "CHECKBOX" << int(ftCheckBox);
    QTest::newRow("DATE") << "DATE" << int(ftDate);
    QTest::newRow("FOLDERSELECTOR") << "FOLDERSELECTOR" << int(ftFolderSelector);
    QTest::newRow("MEMO") << "MEMO" << int(ftMemo);
}

void tst_Field::typeNamesFollowTheEnumeration()
{
    QFETCH(QString, name);
    QFETCH(int, type);
    QCOMPARE(fieldTypeNames().split(QLatin1Char(',')).indexOf(name) + 1, type);
}

void tst_Field::textFieldShowsOnlyPlainValues_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("shown");
    QTest::newRow("text") << QVariant("abc") << "abc";
    QTest::newRow("16-bit") << int16Value(42) << "42";
    QTest::newRow("double") << doubleValue(2.5) << "2.5";
    QTest::newRow("date") << QVariant(QDate(2024, 3, 1)) << "2024-03-01";
    QTest::newRow("boolean kept out") << QVariant(true) << "before";
    QTest::newRow("empty kept out") << QVariant() << "before";
}

void tst_Field::textFieldShowsOnlyPlainValues()
{
    QFETCH(QVariant, value);
    QFETCH(QString, shown);
    GridHost host;
    Field *field = host.add("Host", ftText, "before");
    field->setValue(value);
    QCOMPARE(field->ValueTextBox()->Text(), shown);
    // The stored value is what was written, whatever the box shows.
    if (shown == QLatin1String("before"))
        QCOMPARE(field->Value(), value);
}

void tst_Field::numericFieldShowsLeadingNumber_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("shown");
    QTest::newRow("12abc") << "12abc"
                           << "12";
    QTest::newRow("abc") << "abc"
                         << "0";
    QTest::newRow("3.7xyz") << "3.7xyz"
                            << "3.7";
    QTest::newRow("-5") << "-5"
                        << "-5";
}

void tst_Field::numericFieldShowsLeadingNumber()
{
    QFETCH(QString, value);
    QFETCH(QString, shown);
    GridHost host;
    Field *field = host.add("Port", ftNumeric);
    field->setValue(value);
    QCOMPARE(field->ValueNumeric()->Text(), shown);
}

void tst_Field::checkFieldStoresTrueAsOne()
{
    GridHost host;
    Field *field = host.add("Enabled", ftCheckBox);
    // The box is already clear, so nothing but the store happens.
    field->setValue("yes");
    QCOMPARE(field->Value().typeId(), QMetaType::QString);
    QCOMPARE(field->Value().toString(), QStringLiteral("yes"));
    QCOMPARE(field->ValueCheckBox()->Value(), qint16(0));
    // Ticking the box reports the click, whose 16-bit value is then the stored one.
    field->setValue("true ");
    QCOMPARE(field->ValueCheckBox()->Value(), qint16(1));
    QCOMPARE(field->Value().typeId(), QMetaType::Short);
    // A box already ticked stays so and keeps the "1" that TRUE became.
    field->setValue("TRUE");
    QCOMPARE(field->Value().typeId(), QMetaType::QString);
    QCOMPARE(field->Value().toString(), QStringLiteral("1"));
    field->setValue("0");
    QCOMPARE(field->ValueCheckBox()->Value(), qint16(0));
}

void tst_Field::checkClickGivesSixteenBitValue()
{
    GridHost host;
    Field *field = host.add("Enabled", ftCheckBox);
    QSignalSpy changed(host.grid, &kwPropertyControl::Changed);
    field->ValueCheckBox()->setValue(1);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(field->Value().typeId(), QMetaType::Short);
    QCOMPARE(field->Value().toInt(), 1);
}

void tst_Field::sliderFieldRoundsLeadingNumber()
{
    GridHost host;
    Field *field = host.add("Level", ftSlider);
    field->setValue("3.7xyz");
    QCOMPARE(field->ValueSlider()->Value(), 4);
    QCOMPARE(field->Value().typeId(), QMetaType::Int);
    QCOMPARE(field->Value().toInt(), 4);
    field->setMin(2);
    field->setMax("50");
    QCOMPARE(field->ValueSlider()->Min(), 2);
    QCOMPARE(field->ValueSlider()->Max(), 50);
}

void tst_Field::comboValueFollowsItemDataFlag()
{
    GridHost host;
    Field *keyed = host.add("Keyed", ftCombo);
    keyed->DropDownValues()->Add("10", "Ten");
    keyed->DropDownValues()->Add("20", "Twenty");
    keyed->setValue("20");
    QCOMPARE(keyed->Value(), QVariant(keyed->ValueComboBox()->Value()));

    Field *plain = host.add("Plain", ftCombo);
    plain->DropDownValues()->Add("10", "Ten");
    plain->DropDownValues()->Add({}, "Other");
    plain->ValueComboBox()->ComboControl()->setListIndex(1);
    QCOMPARE(plain->Value(), QVariant(QStringLiteral("Other")));
}

void tst_Field::dateFieldTakesOnlyDates()
{
    GridHost host;
    Field *field = host.add("Start", ftDate, "2024-03-01");
    field->setValue("no date");
    QCOMPARE(field->ValueDate()->Value().toDate(), QDate(2024, 3, 1));
    field->setValue(QDate(2025, 1, 2));
    QCOMPARE(field->ValueDate()->Value().toDate(), QDate(2025, 1, 2));
}

void tst_Field::dateLimitsDependOnMin()
{
    GridHost host;
    Field *field = host.add("Start", ftDate, "2024-03-01");
    const QDate latest = field->ValueDate()->MaxDate();
    // Min is still the number 0, not a date, so Max does not reach the picker.
    field->setMax(QDate(2030, 1, 1));
    QCOMPARE(field->ValueDate()->MaxDate(), latest);
    field->setMin(QDate(2020, 1, 1));
    QCOMPARE(field->ValueDate()->MinDate(), QDate(2020, 1, 1));
    field->setMax(QDate(2030, 1, 1));
    QCOMPARE(field->ValueDate()->MaxDate(), QDate(2030, 1, 1));
}

void tst_Field::minOnTextFieldMovesTheFocus()
{
    GridHost host;
    QVERIFY(host.shown);
    host.addRows(2);
    Field *second = host.grid->Fields()->Item(2);
    second->setMin(1);
    QVERIFY(second->ValueTextBox()->hasFocus());
}

void tst_Field::sizeLimitsOnlyTextFields()
{
    GridHost host;
    Field *text = host.add("Host");
    Field *numeric = host.add("Port", ftNumeric);
    text->setSize(5);
    numeric->setSize(2);
    QCOMPARE(text->ValueTextBox()->MaxLength(), 5);
    QCOMPARE(numeric->ValueNumeric()->MaxLength(), 0);
    QCOMPARE(numeric->Size(), 2);
}

void tst_Field::enabledAndVisibleReachTheRow()
{
    GridHost host;
    Field *text = host.add("Host");
    Field *date = host.add("Start", ftDate);
    Field *check = host.add("On", ftCheckBox);
    for (Field *field : { text, date, check }) {
        field->setEnabled(false);
        QVERIFY(!field->FieldNameControl()->Enabled());
        field->setVisible(false);
        QVERIFY(!field->FieldNameControl()->Visible());
        QVERIFY(!field->EditorControl()->Visible());
        field->setVisible(true);
        QVERIFY(field->EditorControl()->Visible());
    }
    QVERIFY(!text->ValueTextBox()->Enabled());
    QVERIFY(!date->ValueDate()->Enabled());
}

void tst_Field::coloursReachEditorButNotDatePicker()
{
    GridHost host;
    Field *text = host.add("Host");
    Field *date = host.add("Start", ftDate);
    const OleColor dateBack = date->ValueDate()->BackColor();
    text->setBackColor(0x00FFEEDD);
    text->setForeColor(0x00112233);
    date->setBackColor(0x00FFEEDD);
    QCOMPARE(text->ValueTextBox()->BackColor(), OleColor(0x00FFEEDD));
    QCOMPARE(text->ValueTextBox()->ForeColor(), OleColor(0x00112233));
    QCOMPARE(date->BackColor(), OleColor(0x00FFEEDD));
    QCOMPARE(date->ValueDate()->BackColor(), dateBack);
}

void tst_Field::fileOnlyMembersOnTextField()
{
    GridHost host;
    Field *text = host.add("Host");
    test::ErrorRecorder errors;
    text->setInitDir("/tmp");
    text->setTitle("Pick");
    QCOMPARE(text->InitDir(), QString());
    QCOMPARE(text->Title(), QString());
    QVERIFY(errors.errors.isEmpty());
    text->setFilter("Text|*.txt");
    QCOMPARE(errors.errors.size(), 1);
    QCOMPARE(errors.errors.first().number, 91);
    QCOMPARE(
        errors.errors.first().source, QStringLiteral("Property 'Filter' of Class Module 'Field'"));

    Field *file = host.add("Log", ftFileSelector);
    file->setInitDir("/tmp");
    file->setFilter("Logs|*.log");
    QCOMPARE(file->InitDir(), QStringLiteral("/tmp"));
    QCOMPARE(file->FileSelector()->Filter(), QStringLiteral("Logs|*.log"));
}

void tst_Field::objectValueIsKeptAsIs()
{
    GridHost host;
    Field *field = host.add("Host", ftText, "shown");
    QObject payload;
    field->setValueObject(&payload);
    QCOMPARE(field->Value().value<QObject *>(), &payload);
    QCOMPARE(field->ValueTextBox()->Text(), QStringLiteral("shown"));
}

void tst_Field::killReleasesTheEditor()
{
    GridHost host;
    Field *field = host.add("Host");
    TextBox *editor = field->ValueTextBox();
    field->Kill();
    QVERIFY(!field->ValueTextBox());
    QVERIFY(!field->EditField());
    QVERIFY(editor->Visible());
    QVERIFY(field->FieldNameControl());
}

void tst_Field::fieldWithoutOwnerReportsInsteadOfCrashing()
{
    Field field;
    test::ErrorRecorder errors;
    test::MessageRecorder messages;
    field.setFieldType(ftText);
    field.setName("Port");
    field.SetFocus();
    QCOMPARE(field.FieldType(), qint32(ftText));
    QCOMPARE(field.Name(), QStringLiteral("Port"));
    QCOMPARE(errors.sources(),
        (QStringList { "Property 'FieldType' of Class Module 'Field'",
            "Property 'Name' of Class Module 'Field'", "Sub 'SetFocus' of Class Module 'Field'" }));
    for (const test::ReportedError &error : errors.errors)
        QCOMPARE(error.number, 91);
}

QTEST_MAIN(tst_Field)
#include "tst_Field.moc"
