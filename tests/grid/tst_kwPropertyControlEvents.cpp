// Editor events as the host sees them: edits raise Changed, focus makes a row current, Up and
// Down move between rows, and the numeric field filters its keys.

#include "grid/GridHost.h"

#include <QLabel>
#include <QLineEdit>
#include <QtTest>

using namespace kwFieldDeck;
using kwFieldDeck::test::GridHost;

Q_DECLARE_METATYPE(kwFieldDeck::Field *)

class tst_kwPropertyControlEvents : public QObject
{
    Q_OBJECT

private slots:
    void typingIntoNumericFieldRaisesChangedWithNumbers();
    void numericFieldFiltersKeys_data();
    void numericFieldFiltersKeys();
    void typingIntoTextFieldRaisesChangedWithText();
    void hostWritesRaiseChangedToo();
    void designModeRaisesNoChanged();
    void clickingNameCellBelowViewportMakesRowCurrent();
    void focusingRowAboveViewportScrollsUp();
    void upAndDownMoveBetweenRows_data();
    void upAndDownMoveBetweenRows();
    void descriptionGoesToCaptionWhenTheLabelHasOne();
    void noDescriptionLabelIsFine();
};

void tst_kwPropertyControlEvents::typingIntoNumericFieldRaisesChangedWithNumbers()
{
    GridHost host;
    QVERIFY(host.shown);
    Field *field = host.add("Port", ftNumeric);
    QSignalSpy gridChanged(host.grid, &kwPropertyControl::Changed);
    QSignalSpy fieldChanged(field, &Field::Changed);
    QLineEdit *edit = field->ValueNumeric()->lineEdit();
    edit->setFocus();
    edit->selectAll();
    QTest::keyClick(edit, Qt::Key_Backspace);
    gridChanged.clear();
    fieldChanged.clear();

    QTest::keyClicks(edit, "12");
    QCOMPARE(fieldChanged.count(), 2);
    const QVariant first = fieldChanged.at(0).at(0).value<QVariant>();
    const QVariant second = fieldChanged.at(1).at(0).value<QVariant>();
    QCOMPARE(first.typeId(), QMetaType::Double);
    QCOMPARE(first.toDouble(), 1.0);
    QCOMPARE(second.typeId(), QMetaType::Double);
    QCOMPARE(second.toDouble(), 12.0);
    QCOMPARE(gridChanged.count(), 2);
    QCOMPARE(gridChanged.at(1).at(0).value<Field *>(), field);
    QCOMPARE(field->Value(), doubleValue(12));
}

void tst_kwPropertyControlEvents::numericFieldFiltersKeys_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("shown");
    QTest::newRow("digits") << "123"
                            << "123";
    QTest::newRow("second point swallowed") << "1.5.2"
                                            << "1.52";
    QTest::newRow("minus first accepted") << "-4"
                                          << "-4";
    QTest::newRow("minus later swallowed") << "4-2"
                                           << "42";
    QTest::newRow("plus later swallowed") << "4+"
                                          << "4";
    QTest::newRow("letters swallowed") << "1a2b"
                                       << "12";
}

void tst_kwPropertyControlEvents::numericFieldFiltersKeys()
{
    QFETCH(QString, typed);
    QFETCH(QString, shown);
    GridHost host;
    QVERIFY(host.shown);
    Field *field = host.add("Port", ftNumeric);
    QLineEdit *edit = field->ValueNumeric()->lineEdit();
    edit->setFocus();
    edit->clear();
    QTest::keyClicks(edit, typed);
    QCOMPARE(edit->text(), shown);
}

void tst_kwPropertyControlEvents::typingIntoTextFieldRaisesChangedWithText()
{
    GridHost host;
    QVERIFY(host.shown);
    Field *field = host.add("Host");
    QSignalSpy gridChanged(host.grid, &kwPropertyControl::Changed);
    QTest::keyClicks(field->ValueTextBox()->lineEdit(), "ab");
    QCOMPARE(gridChanged.count(), 2);
    QCOMPARE(field->Value(), textValue("ab"));
}

void tst_kwPropertyControlEvents::hostWritesRaiseChangedToo()
{
    GridHost host;
    Field *field = host.add("Host");
    QSignalSpy gridChanged(host.grid, &kwPropertyControl::Changed);
    field->setValue(textValue("example.org"));
    QCOMPARE(gridChanged.count(), 1);
    QCOMPARE(gridChanged.at(0).at(0).value<Field *>(), field);
}

void tst_kwPropertyControlEvents::designModeRaisesNoChanged()
{
    GridHost host;
    QVERIFY(host.shown);
    host.grid->setAmbientUserMode(false);
    Field *field = host.add("Port", ftNumeric);
    QSignalSpy gridChanged(host.grid, &kwPropertyControl::Changed);
    QSignalSpy fieldChanged(field, &Field::Changed);
    QTest::keyClicks(field->ValueNumeric()->lineEdit(), "7");
    QCOMPARE(fieldChanged.count(), 1);
    QCOMPARE(gridChanged.count(), 0);
}

void tst_kwPropertyControlEvents::clickingNameCellBelowViewportMakesRowCurrent()
{
    GridHost host(4000, 1215);
    QVERIFY(host.shown);
    QLabel description;
    host.grid->setDescriptionLabel(&description);
    for (int i = 1; i <= 10; ++i)
        host.add(QStringLiteral("Row%1").arg(i), ftText, {}, QStringLiteral("About row %1").arg(i));
    host.grid->Refresh(true);
    Fields *fields = host.grid->Fields();
    Field *target = fields->Item(8);
    TextBox *cell = target->FieldNameControl();

    // The cell lies below the viewport; its click is delivered as the user would give it.
    QTest::mouseClick(cell->lineEdit(), Qt::LeftButton, {}, QPoint(5, 5));
    QCoreApplication::processEvents();

    // Row 8 ends at 7 * 300 + 315 = 2415; the viewport is 1215 high: four rows down.
    QCOMPARE(host.grid->FirstRow(), qint16(4));
    QCOMPARE(host.picInner()->Top(), -1200.0f);
    QVERIFY(host.picInner()->Top() + cell->Top() + cell->Height() <= host.picOuter()->Height());
    for (Field *field : *fields) {
        const bool current = field == target;
        QCOMPARE(field->FieldNameControl()->BackColor(),
            current ? SystemColor::Highlight : host.grid->FieldNameBackColor());
        QCOMPARE(field->FieldNameControl()->ForeColor(),
            current ? SystemColor::HighlightText : host.grid->FieldNameForeColor());
    }
    QVERIFY(target->ValueTextBox()->hasFocus());
    QCOMPARE(description.text(), QStringLiteral("About row 8"));
}

void tst_kwPropertyControlEvents::focusingRowAboveViewportScrollsUp()
{
    GridHost host(4000, 1215);
    QVERIFY(host.shown);
    host.addRows(10);
    host.grid->Refresh(true);
    host.grid->setFirstRow(6);
    Field *first = host.grid->Fields()->Item(2);
    first->SetFocus();
    QCOMPARE(host.grid->FirstRow(), qint16(1));
    QCOMPARE(host.picInner()->Top(), -300.0f);
}

void tst_kwPropertyControlEvents::upAndDownMoveBetweenRows_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("to");
    QTest::newRow("down") << 1 << int(Qt::Key_Down) << 2;
    QTest::newRow("up") << 3 << int(Qt::Key_Up) << 2;
}

void tst_kwPropertyControlEvents::upAndDownMoveBetweenRows()
{
    QFETCH(int, from);
    QFETCH(int, key);
    QFETCH(int, to);
    GridHost host;
    QVERIFY(host.shown);
    host.addRows(3);
    Fields *fields = host.grid->Fields();
    fields->Item(from)->SetFocus();
    QVERIFY(fields->Item(from)->ValueTextBox()->hasFocus());
    const QString before = fields->Item(from)->ValueTextBox()->Text();
    QTest::keyClick(fields->Item(from)->ValueTextBox()->lineEdit(), Qt::Key(key));
    QTRY_VERIFY(fields->Item(to)->ValueTextBox()->hasFocus());
    QCOMPARE(fields->Item(from)->ValueTextBox()->Text(), before);
    QCOMPARE(fields->Item(to)->FieldNameControl()->BackColor(), SystemColor::Highlight);
}

void tst_kwPropertyControlEvents::descriptionGoesToCaptionWhenTheLabelHasOne()
{
    GridHost host;
    QVERIFY(host.shown);
    QObject statusPanel;
    statusPanel.setProperty("Caption", QString());
    host.grid->setDescriptionLabel(&statusPanel);
    Field *field = host.add("Host", ftText, {}, "The server's name");
    field->SetFocus();
    QCOMPARE(statusPanel.property("Caption").toString(), QStringLiteral("The server's name"));
    QVERIFY(!statusPanel.property("text").isValid());
}

void tst_kwPropertyControlEvents::noDescriptionLabelIsFine()
{
    GridHost host;
    QVERIFY(host.shown);
    test::ErrorRecorder errors;
    Field *field = host.add("Host", ftText, {}, "The server's name");
    field->SetFocus();
    QVERIFY(field->ValueTextBox()->hasFocus());
    QVERIFY(errors.errors.isEmpty());
}

QTEST_MAIN(tst_kwPropertyControlEvents)
#include "tst_kwPropertyControlEvents.moc"
