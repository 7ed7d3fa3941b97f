// The grid: persisted properties, rows, layout and scrolling in twips, and editor events.

#include "grid/GridHost.h"

#include "runtime/Twips.h"

#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QVBoxLayout>
#include <QtTest>

using namespace kwFieldDeck;
using kwFieldDeck::test::GridHost;

namespace {
// The persisted properties: the new-instance default (invalid for the
// ambient font) and another value.
struct Persisted
{
    const char *name;
    QVariant initial;
    QVariant other;
};

const QList<Persisted> &persisted()
{
    static const QList<Persisted> list = {
        { "BackColor", quint32(SystemColor::ButtonFace), quint32(0x00112233) },
        { "ForeColor", quint32(0), quint32(0x00445566) },
        { "Enabled", false, true },
        { "Font", QVariant(), QFont(QStringLiteral("Serif"), 15, QFont::Bold) },
        { "BackStyle", 0, 1 },
        { "BorderStyle", 0, 1 },
        { "FieldNameWidth", 750.0, 1200.0 },
        { "RowHeight", 315.0, 400.0 },
        { "ScaleMode", 1, 3 },
        { "Appearance", 1, 0 },
        { "FieldNameBackColor", quint32(SystemColor::WindowBackground), quint32(0x00010203) },
        { "FieldNameForeColor", quint32(SystemColor::WindowText), quint32(0x00040506) },
    };
    return list;
}

// The row's live editor, a line edit for text and number rows.
QLineEdit *lineEditOf(kwPropertyControl *grid, Field *field)
{
    kwPropertyControlPrivate::get(grid)->rowEditor().bind(field);
    return qobject_cast<QLineEdit *>(kwPropertyControlPrivate::get(grid)->rowEditor().editor());
}

// The colour on screen just inside the left border of a row's name cell.
QColor nameCellColour(GridHost &host, Field *field)
{
    const QRect cell = host.view()->nameCellRect(FieldPrivate::get(field)->m_row);
    return host.view()->grab().toImage().pixelColor(cell.left() + 2, cell.center().y());
}
} // namespace

class tst_kwPropertyControl : public QObject
{
    Q_OBJECT

private slots:
    void propertyHasItsDefaultAndCarriesToAnotherGrid_data()
    {
        QTest::addColumn<int>("row");
        for (int row = 0; row < persisted().size(); ++row)
            QTest::newRow(persisted().at(row).name) << row;
    }

    // A form file keeps the grid's properties as Qt's property system reads and writes them.
    void propertyHasItsDefaultAndCarriesToAnotherGrid()
    {
        QFETCH(int, row);
        const Persisted &p = persisted().at(row);
        GridHost saved;
        QCOMPARE(saved.grid->property(p.name),
            p.initial.isValid() ? p.initial : QVariant(saved.window.font()));
        QVERIFY(saved.grid->metaObject()
                    ->property(saved.grid->metaObject()->indexOfProperty(p.name))
                    .isStored());
        QVERIFY(saved.grid->setProperty(p.name, p.other));
        const QVariant kept = saved.grid->property(p.name);
        GridHost loaded;
        QVERIFY(loaded.grid->setProperty(p.name, kept));
        QCOMPARE(loaded.grid->property(p.name), p.other);
    }

    void coloursAndFontReachEveryRow()
    {
        GridHost host;
        QVERIFY(host.shown);
        Field *text = host.add("Host");
        Field *date = host.add("Start", ftDate);
        const QFont font(QStringLiteral("Serif"), 14);
        host.grid->setFont(font);
        host.grid->setBackColor(0x00FF0000);
        host.grid->setFieldNameBackColor(0x00EEEEEE);
        host.grid->setFieldNameForeColor(0x00222222);
        host.grid->Refresh(true);
        QCOMPARE(host.view()->grab().toImage().pixelColor(
                     host.view()->rect().bottomLeft() + QPoint(5, -5)),
            QColor(0, 0, 0xFF));
        for (Field *field : { text, date, host.add("Later") }) {
            QCOMPARE(nameCellColour(host, field), QColor(0xEE, 0xEE, 0xEE));
            host.d()->rowEditor().bind(field);
            QCOMPARE(host.d()->rowEditor().editor()->font(), font);
        }
    }

    // Every type's editor lies beside its name cell, in the row's height; the name cell shows the
    // name with a trailing blank and the description as its tool tip.
    void everyRowLiesBesideItsNameCell_data()
    {
        QTest::addColumn<int>("type");
        for (int type = ftText; type <= ftMemo; ++type)
            QTest::newRow(qPrintable(QString::number(type))) << type;
    }

    void everyRowLiesBesideItsNameCell()
    {
        QFETCH(int, type);
        GridHost host;
        test::ErrorRecorder errors;
        Field *field = host.add("Value", lFieldTypes(type), {}, "About");
        QVERIFY2(errors.errors.isEmpty(), qPrintable(errors.sources().join(", ")));
        const CanvasRow &row = host.row(field);
        QCOMPARE(row.editorLeft, 725.0f);
        QCOMPARE(row.editorHeight, 315.0f);
        QCOMPARE(row.height, 315.0f);
        QCOMPARE(row.width, 750.0f);
        host.d()->rowEditor().bind(field);
        QCOMPARE(host.d()->rowEditor().editor()->geometry(),
            host.view()->editorRect(FieldPrivate::get(field)->m_row));
    }

    // A value that the new editor cannot take is reported under the creator and leaves the row.
    void editorThatCannotTakeItsValueIsReportedAndLeavesTheRow()
    {
        GridHost host;
        Field *field = host.add("Level", lFieldTypes(0), "not a truth");
        test::ErrorRecorder errors;
        test::MessageRecorder messages;
        field->setFieldType(ftCheckBox);
        QCOMPARE(messages.messages.size(), 0);
        QCOMPARE(errors.errors.size(), 1);
        QCOMPARE(errors.errors.first().number, int(ErrTypeMismatch));
        QCOMPARE(errors.errors.first().source,
            QStringLiteral("Function 'AddCheckBox' of User Control 'kwPropertyControl'"));
        QVERIFY(FieldPrivate::get(field)->editorKind());
        QCOMPARE(GridHost::state(field).check, qint16(0));
        QVERIFY(host.d()->rowOf(field) >= 0);
    }

    void rowsShareOneBorderLine_data()
    {
        QTest::addColumn<int>("hidden");
        QTest::addColumn<QList<float>>("tops");
        QTest::addColumn<float>("canvasHeight");
        QTest::newRow("three rows") << 0 << QList<float> { 0, 300, 600 } << 900.0f;
        QTest::newRow("hidden row leaves no gap") << 2 << QList<float> { 0, 300 } << 600.0f;
    }

    void rowsShareOneBorderLine()
    {
        QFETCH(int, hidden);
        QFETCH(QList<float>, tops);
        QFETCH(float, canvasHeight);
        GridHost host;
        host.addRows(3);
        if (hidden)
            host.grid->Fields()->Item(hidden)->setVisible(false);
        host.grid->Refresh(true);
        QList<float> nameTops, editorTops;
        for (Field *field : *host.grid->Fields()) {
            if (field->Visible()) {
                nameTops << host.row(field).top;
                editorTops << host.row(field).top;
            }
        }
        QCOMPARE(nameTops, tops);
        QCOMPARE(editorTops, tops);
        QCOMPARE(host.d()->canvasHeight(), canvasHeight);
    }

    void scrollRangeFollowsVisibleRows_data()
    {
        QTest::addColumn<int>("rows");
        QTest::addColumn<int>("maximum");
        // 10 - 1215 / 315 + 1 = 7.14...; -1: the bar is disabled.
        QTest::newRow("ten rows") << 10 << 7;
        QTest::newRow("four rows") << 4 << 1;
        QTest::newRow("three rows") << 3 << -1;
    }

    void scrollRangeFollowsVisibleRows()
    {
        QFETCH(int, rows);
        QFETCH(int, maximum);
        GridHost host(4005, 1215);
        host.addRows(rows);
        host.grid->Refresh(true);
        QCOMPARE(host.scrollBar()->isEnabled(), maximum > 0);
        if (maximum > 0)
            QCOMPARE(host.scrollBar()->maximum(), maximum);
    }

    void scrollingMovesTheCanvasAndDraggingLeavesFirstRow()
    {
        GridHost host;
        host.addRows(10);
        host.grid->Refresh(true);
        host.scrollBar()->setValue(2);
        QCOMPARE(host.canvasTop(), -600.0f);
        QCOMPARE(host.grid->FirstRow(), qint16(2));
        QScrollBar *bar = host.scrollBar();
        bar->setSliderDown(true);
        bar->setSliderPosition(3);
        QCOMPARE(host.canvasTop(), -900.0f);
        QCOMPARE(host.grid->FirstRow(), qint16(2));
        bar->setSliderDown(false);
        QCOMPARE(host.grid->FirstRow(), qint16(3));
    }

    void editorsFillTheValueColumn_data()
    {
        QTest::addColumn<float>("nameWidth");
        QTest::addColumn<float>("left");
        QTest::addColumn<float>("width");
        QTest::newRow("new instance") << 0.0f << 725.0f << 2960.0f;
        QTest::newRow("wider names") << 1000.0f << 975.0f << 2710.0f;
        QTest::newRow("names too wide are ignored") << 3800.0f << 725.0f << 2960.0f;
    }

    void editorsFillTheValueColumn()
    {
        QFETCH(float, nameWidth);
        QFETCH(float, left);
        QFETCH(float, width);
        GridHost host(4005, 1215);
        Field *text = host.add("Host");
        Field *date = host.add("Start", ftDate);
        // The date picker is created 10 twips wider than the other editors (intended).
        QCOMPARE(host.row(date).editorLeft, 725.0f);
        QCOMPARE(host.row(date).editorWidth, 2970.0f);
        if (nameWidth > 0)
            host.grid->setFieldNameWidth(nameWidth);
        QCOMPARE(host.row(text).width, left + 25);
        QCOMPARE(host.row(text).editorLeft, left);
        QCOMPARE(host.row(text).editorWidth, width);
        // A full layout gives the date picker the same margin as the others.
        host.grid->Refresh(true);
        QCOMPARE(host.row(date).editorWidth, width);
    }

    void typingRaisesChangedPerAcceptedKey_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<QVariantList>("values");
        QTest::addColumn<bool>("userMode");
        auto row = [](const char *name, lFieldTypes type, const char *typed, const char *shown,
                       const QVariantList &values, bool userMode = true) {
            QTest::newRow(name) << int(type) << QString(typed) << QString(shown) << values
                                << userMode;
        };
        row("numbers", ftNumeric, "12", "12", { 1.0, 12.0 });
        row("text", ftText, "ab", "ab", { "a", "ab" });
        row("design mode", ftNumeric, "7", "7", { 7.0 }, false);
        // The numeric field swallows a second point, a sign after the first character, letters.
        row("second point", ftNumeric, "1.5.2", "1.52", { 1.0, 1.0, 1.5, 1.52 });
        row("minus first", ftNumeric, "-4", "-4", { 0.0, -4.0 });
        row("minus later", ftNumeric, "4-2", "42", { 4.0, 42.0 });
        row("letters", ftNumeric, "1a2b", "12", { 1.0, 12.0 });
    }

    void typingRaisesChangedPerAcceptedKey()
    {
        QFETCH(int, type);
        QFETCH(QString, typed);
        QFETCH(QString, shown);
        QFETCH(QVariantList, values);
        QFETCH(bool, userMode);
        GridHost host;
        QVERIFY(host.shown);
        host.grid->setAmbientUserMode(userMode);
        Field *field = host.add("Port", lFieldTypes(type));
        QLineEdit *edit = lineEditOf(host.grid, field);
        edit->clear();
        QSignalSpy gridChanged(host.grid, &kwPropertyControl::Changed);
        QSignalSpy fieldChanged(field, &Field::Changed);
        QTest::keyClicks(edit, typed);
        QCOMPARE(edit->text(), shown);
        QVariantList changes;
        for (const QList<QVariant> &arguments : std::as_const(fieldChanged))
            changes << arguments.at(0).value<QVariant>();
        QCOMPARE(changes, values);
        QCOMPARE(changes.last().typeId(), values.last().typeId());
        // A grid in design mode raises no Changed.
        QCOMPARE(gridChanged.count(), userMode ? values.size() : 0);
        if (userMode)
            QCOMPARE(gridChanged.last().at(0).value<Field *>(), field);
    }

    // The row at the bottom edge shows its top border line only; a click there scrolls it in.
    void clickingNameCellAtTheBottomEdgeScrollsRowByRow()
    {
        GridHost host(4005, 1215);
        QVERIFY(host.shown);
        host.addRows(10);
        host.grid->Refresh(true);
        Field *target = host.grid->Fields()->Item(5);
        QTest::mouseClick(host.view(), Qt::LeftButton, {}, QPoint(5, host.view()->height() - 1));
        QCoreApplication::processEvents();
        // Row 5 ends at 4 * 300 + 315 = 1515; the viewport is 1215 high: one row down.
        QCOMPARE(host.d()->highlighted(), target);
        QCOMPARE(host.grid->FirstRow(), qint16(1));
        QCOMPARE(host.canvasTop(), -300.0f);
    }

    // A row out of view comes into it with the focus, and the view can leave it again.
    void theFocusBringsARowIntoViewAndStaysWhenScrolledAway()
    {
        GridHost host(4005, 1215);
        QVERIFY(host.shown);
        host.addRows(200);
        host.grid->Refresh(true);
        Field *last = host.grid->Fields()->Item(200);
        last->SetFocus();
        QCoreApplication::processEvents();
        // Row 200 ends at 59700 + 315; it is inside the 1215-high view from row 196 on.
        QCOMPARE(host.grid->FirstRow(), qint16(196));
        QVERIFY(host.d()->rowEditor().holdsFocus());
        host.grid->setFirstRow(0);
        QCoreApplication::processEvents();
        QCOMPARE(host.d()->rowEditor().row(), last);
        QVERIFY(host.d()->rowEditor().holdsFocus());
        QCOMPARE(host.grid->FirstRow(), qint16(0));
    }

    // As the README puts it: a grid alone in a layout, with no size given by anyone, shows a
    // few whole rows, and still does when its window is made as small as it goes.
    // A grid goes while a row of it has the focus: its controls leave one by one, and the focus
    // that each passes on must not reach the rows' handlers.
    void deletingAGridWithTheFocusInARow_data()
    {
        QTest::addColumn<int>("type");
        QTest::newRow("text") << int(ftText);
        QTest::newRow("check") << int(ftCheckBox);
        QTest::newRow("drop-down") << int(ftCombo);
        QTest::newRow("file") << int(ftFileSelector);
    }

    void deletingAGridWithTheFocusInARow()
    {
        QFETCH(int, type);
        QWidget window;
        window.resize(400, 300);
        QLineEdit outside(&window);
        outside.move(0, 250);
        auto *grid = new kwPropertyControl(&window);
        grid->setGeometry(0, 0, 400, 240);
        for (const char *name : { "First", "Second", "Third" })
            grid->Fields()->Add(QLatin1String(name), lFieldTypes(type));
        grid->Refresh(true);
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        grid->Fields()->Item(QStringLiteral("Second"))->SetFocus();
        QTRY_VERIFY(grid->isAncestorOf(QApplication::focusWidget()));
        delete grid;
        QVERIFY(!window.findChild<kwPropertyControl *>());
        QTest::keyClick(&window, Qt::Key_Tab);
    }

    void aloneInALayoutTheGridShowsAFewRows()
    {
        test::ErrorRecorder errors;
        QWidget window;
        auto *grid = new kwPropertyControl(&window);
        (new QVBoxLayout(&window))->addWidget(grid);
        for (int i = 1; i <= 3; ++i)
            grid->Fields()->Add(QStringLiteral("Row%1").arg(i), ftText);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        for (const QSize size : { window.size(), QSize(1, 1) }) {
            window.resize(size);
            QTRY_VERIFY(grid->height() >= twipsToPixelsY(3 * grid->RowHeight()));
            const auto *d = kwPropertyControlPrivate::get(grid);
            const qsizetype last = d->rowOf(grid->Fields()->Item(3));
            const CanvasRow &lastRow = d->canvasRows().at(last);
            QVERIFY(lastRow.top + lastRow.height <= grid->height() * twipsPerPixelY());
            QVERIFY(grid->width() >= twipsToPixelsX(grid->FieldNameWidth() + 1500));
            QVERIFY(d->view()->editorRect(last).width() >= twipsToPixelsX(1000));
        }
        QCOMPARE(errors.sources(), QStringList());
    }

    // The repaint clears the busy flag that a failed layout left, as the grid's paint handler
    // does; the covered surface hears of the repaint through its viewport and canvas.
    void aLayoutThatFailedIsFreedByTheNextRepaint()
    {
        GridHost host;
        QVERIFY(host.shown);
        test::ErrorRecorder errors;
        host.addRows(3);
        Field *second = host.field(QStringLiteral("Row2"));
        host.grid->setRowHeight(-10);
        host.grid->Refresh(true);
        QCOMPARE(
            errors.sources(), QStringList { "Sub 'Refresh' of User Control 'kwPropertyControl'" });
        host.grid->setRowHeight(400);
        host.grid->Refresh(true);
        QCOMPARE(host.row(second).top, 300.0f);
        host.grid->update();
        QTRY_VERIFY((host.grid->Refresh(true), host.row(second).top == 385.0f));
    }

    // Arriving at rows every way is the interaction test's; here, a description label that is
    // no QLabel gets the description in its Caption property.
    void descriptionGoesToACaptionProperty()
    {
        GridHost host;
        QVERIFY(host.shown);
        QObject statusPanel;
        statusPanel.setProperty("Caption", QString());
        host.grid->setDescriptionLabel(&statusPanel);
        for (int i = 1; i <= 2; ++i)
            host.add(QStringLiteral("Row%1").arg(i), ftText, {}, QStringLiteral("About %1").arg(i));
        host.field(QStringLiteral("Row2"))->SetFocus();
        QCOMPARE(statusPanel.property("Caption").toString(), QStringLiteral("About 2"));
    }
};

QTEST_MAIN(tst_kwPropertyControl)
#include "tst_kwPropertyControl.moc"
