// Row layout and scrolling of the grid, in twips.

#include "grid/GridHost.h"

#include "platform/DatePicker.h"

#include <QScrollBar>
#include <QtTest>

using namespace kwFieldDeck;
using kwFieldDeck::test::GridHost;

class tst_kwPropertyControlLayout : public QObject
{
    Q_OBJECT

private slots:
    void rowsShareOneBorderLine();
    void hiddenFieldLeavesNoGap();
    void scrollRangeFollowsVisibleRows_data();
    void scrollRangeFollowsVisibleRows();
    void refreshWithoutRedrawOnlyRecomputesRange();
    void scrollingMovesTheCanvasAndSetsFirstRow();
    void draggingLeavesFirstRow();
    void firstRowMovesCanvasWithoutRangeCheck();
    void editorsFillTheValueColumn();
    void tooWideNameColumnIsIgnored();
    void nameColumnWidthReachesRowsAtOnce();
    void rowHeightWaitsForTheNextLayout();
    void autoSizeFitsTheLongestName();
    void narrowGridGivesEditorsNoWidth();
    void zeroRowHeightIsReported();
};

void tst_kwPropertyControlLayout::rowsShareOneBorderLine()
{
    GridHost host;
    host.addRows(3);
    host.grid->Refresh(true);
    QList<float> tops;
    for (Field *field : *host.grid->Fields())
        tops << field->FieldNameControl()->Top();
    QCOMPARE(tops, (QList<float> { 0, 300, 600 }));
    QCOMPARE(host.picInner()->Height(), 900.0f);
}

void tst_kwPropertyControlLayout::hiddenFieldLeavesNoGap()
{
    GridHost host;
    host.addRows(3);
    Fields *fields = host.grid->Fields();
    fields->Item(2)->setVisible(false);
    host.grid->Refresh(true);
    QCOMPARE(fields->Item(1)->FieldNameControl()->Top(), 0.0f);
    QCOMPARE(fields->Item(3)->FieldNameControl()->Top(), 300.0f);
    QCOMPARE(fields->Item(3)->ValueTextBox()->Top(), 300.0f);
    QCOMPARE(host.picInner()->Height(), 600.0f);
}

void tst_kwPropertyControlLayout::scrollRangeFollowsVisibleRows_data()
{
    QTest::addColumn<int>("rows");
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<int>("maximum");
    // 10 - 1215 / 315 + 1 = 7.14...
    QTest::newRow("ten rows") << 10 << true << 7;
    QTest::newRow("four rows") << 4 << true << 1;
    QTest::newRow("three rows") << 3 << false << -1;
}

void tst_kwPropertyControlLayout::scrollRangeFollowsVisibleRows()
{
    QFETCH(int, rows);
    QFETCH(bool, enabled);
    QFETCH(int, maximum);
    GridHost host(4000, 1215);
    host.addRows(rows);
    host.grid->Refresh(true);
    QCOMPARE(host.picOuter()->Height(), 1215.0f);
    QCOMPARE(host.scrollBar()->Enabled(), enabled);
    if (enabled) {
        QCOMPARE(host.scrollBar()->Min(), 0);
        QCOMPARE(host.scrollBar()->Max(), maximum);
    }
}

void tst_kwPropertyControlLayout::refreshWithoutRedrawOnlyRecomputesRange()
{
    GridHost host;
    host.addRows(10);
    // Rows added since the last full layout are not yet in the range.
    host.grid->Refresh();
    QVERIFY(!host.scrollBar()->Enabled());
    host.grid->Fields()->Item(1)->FieldNameControl()->setTop(123);
    host.grid->Refresh(true);
    QVERIFY(host.scrollBar()->Enabled());
    host.grid->Fields()->Item(1)->FieldNameControl()->setTop(123);
    host.grid->Refresh();
    QCOMPARE(host.grid->Fields()->Item(1)->FieldNameControl()->Top(), 123.0f);
}

void tst_kwPropertyControlLayout::scrollingMovesTheCanvasAndSetsFirstRow()
{
    GridHost host;
    host.addRows(10);
    host.grid->Refresh(true);
    host.scrollBar()->setValue(2);
    QCOMPARE(host.picInner()->Top(), -600.0f);
    QCOMPARE(host.grid->FirstRow(), qint16(2));
}

void tst_kwPropertyControlLayout::draggingLeavesFirstRow()
{
    GridHost host;
    host.addRows(10);
    host.grid->Refresh(true);
    host.scrollBar()->setValue(2);
    QScrollBar *bar = host.scrollBar()->scrollBar();
    bar->setSliderDown(true);
    bar->setSliderPosition(3);
    QCOMPARE(host.picInner()->Top(), -900.0f);
    QCOMPARE(host.grid->FirstRow(), qint16(2));
    bar->setSliderDown(false);
    QCOMPARE(host.grid->FirstRow(), qint16(3));
}

void tst_kwPropertyControlLayout::firstRowMovesCanvasWithoutRangeCheck()
{
    GridHost host;
    host.addRows(3);
    host.grid->Refresh(true);
    const int barValue = host.scrollBar()->Value();
    host.grid->setFirstRow(5);
    QCOMPARE(host.picInner()->Top(), -1500.0f);
    QCOMPARE(host.grid->FirstRow(), qint16(5));
    QCOMPARE(host.scrollBar()->Value(), barValue);
}

void tst_kwPropertyControlLayout::editorsFillTheValueColumn()
{
    GridHost host(4000, 1215);
    QCOMPARE(host.grid->FieldNameWidth(), 750.0f);
    QCOMPARE(host.scrollBar()->Width(), 255.0f);
    Field *text = host.add("Host");
    Field *date = host.add("Start", ftDate);
    QCOMPARE(text->ValueTextBox()->Left(), 725.0f);
    QCOMPARE(text->ValueTextBox()->Width(), 2955.0f);
    QCOMPARE(date->ValueDate()->Left(), 725.0f);
    QCOMPARE(date->ValueDate()->Width(), 2965.0f);
    // A full layout gives every editor the same margin, the date picker included.
    host.grid->Refresh(true);
    QCOMPARE(date->ValueDate()->Width(), 2955.0f);
}

void tst_kwPropertyControlLayout::tooWideNameColumnIsIgnored()
{
    GridHost host(4000, 1215);
    test::ErrorRecorder errors;
    QSignalSpy changed(host.grid, &UserControl::PropertyChanged);
    host.grid->setFieldNameWidth(3800);
    QCOMPARE(host.grid->FieldNameWidth(), 750.0f);
    QCOMPARE(changed.count(), 0);
    QVERIFY(errors.errors.isEmpty());
}

void tst_kwPropertyControlLayout::nameColumnWidthReachesRowsAtOnce()
{
    GridHost host(4000, 1215);
    Field *field = host.add("Host");
    QSignalSpy changed(host.grid, &UserControl::PropertyChanged);
    host.grid->setFieldNameWidth(1000);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.at(0).at(0).toString(), QStringLiteral("FieldNameWidth"));
    QCOMPARE(field->FieldNameControl()->Width(), 1000.0f);
    QCOMPARE(field->ValueTextBox()->Left(), 975.0f);
    QCOMPARE(field->ValueTextBox()->Width(), 4000.0f - (255 + 1000) - 40);
}

void tst_kwPropertyControlLayout::rowHeightWaitsForTheNextLayout()
{
    GridHost host;
    host.addRows(2);
    Fields *fields = host.grid->Fields();
    host.grid->setRowHeight(415);
    QCOMPARE(fields->Item(2)->FieldNameControl()->Top(), 300.0f);
    host.grid->Refresh(true);
    QCOMPARE(fields->Item(2)->FieldNameControl()->Top(), 400.0f);
    QCOMPARE(fields->Item(2)->FieldNameControl()->Height(), 415.0f);
    // Editors keep the height they were created with.
    QCOMPARE(fields->Item(2)->ValueTextBox()->Height(), 315.0f);
    // Scrolling uses the new pitch at once.
    host.grid->setFirstRow(1);
    QCOMPARE(host.picInner()->Top(), -400.0f);
}

void tst_kwPropertyControlLayout::autoSizeFitsTheLongestName()
{
    GridHost host;
    host.add("Id");
    host.add("A much longer field name");
    host.grid->AutoSizeFieldNameWidths();
    const float expected = float(
        textWidthTwips(host.grid->Font(), QStringLiteral("A much longer field name")) * 1.2);
    QCOMPARE(host.grid->FieldNameWidth(), expected);
    QCOMPARE(host.grid->Fields()->Item(1)->FieldNameControl()->Width(), expected);

    host.grid->Fields()->Clear();
    host.grid->AutoSizeFieldNameWidths();
    QCOMPARE(host.grid->FieldNameWidth(), 0.0f);
}

void tst_kwPropertyControlLayout::narrowGridGivesEditorsNoWidth()
{
    GridHost host(1500, 1215);
    Field *field = nullptr;
    {
        test::ErrorRecorder errors;
        field = host.add("Host");
        // 1500 - (255 + 750) - 40 is still positive; a narrower grid below makes it negative.
        QVERIFY(errors.errors.isEmpty());
    }
    host.extender->Move(0, 0, 900, 1215);
    QTRY_COMPARE(host.grid->OuterPicBox()->Width(), 900.0f);
    QCOMPARE(field->ValueTextBox()->Width(), 0.0f);
}

void tst_kwPropertyControlLayout::zeroRowHeightIsReported()
{
    GridHost host;
    host.addRows(2);
    test::ErrorRecorder errors;
    host.grid->setRowHeight(0);
    host.grid->Refresh(true);
    QVERIFY(!errors.errors.isEmpty());
    QCOMPARE(errors.errors.first().number, int(ErrDivisionByZero));
    QCOMPARE(errors.errors.first().source,
        QStringLiteral("Sub 'CalcSlider' of User Control 'kwPropertyControl'"));
}

QTEST_MAIN(tst_kwPropertyControlLayout)
#include "tst_kwPropertyControlLayout.moc"
