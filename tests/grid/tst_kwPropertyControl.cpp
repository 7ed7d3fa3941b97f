// The grid: persisted properties, rows, layout and scrolling in twips, and editor events.

#include "grid/GridHost.h"

#include "editors/kwSliderValue.h"
#include "platform/DatePicker.h"
#include "platform/PropertyBag.h"

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

int labelNumber(Field *field)
{
    return FieldPrivate::get(field)
        ->FieldNameControl()
        ->Name()
        .mid(int(qstrlen("FieldName")))
        .toInt();
}

QLineEdit *editorOf(Field *field)
{
    return static_cast<TextBox *>(FieldPrivate::get(field)->EditorControl())->lineEdit();
}
} // namespace

class tst_kwPropertyControl : public QObject
{
    Q_OBJECT

private slots:
    void propertyHasItsDefaultAndRoundTripsThroughTheBag_data()
    {
        QTest::addColumn<int>("row");
        for (int row = 0; row < persisted().size(); ++row)
            QTest::newRow(persisted().at(row).name) << row;
    }

    void propertyHasItsDefaultAndRoundTripsThroughTheBag()
    {
        QFETCH(int, row);
        const Persisted &p = persisted().at(row);
        MemoryPropertyBag bag;
        {
            GridHost host;
            QCOMPARE(host.grid->property(p.name),
                p.initial.isValid()
                    ? p.initial
                    : QVariant(kwPropertyControlPrivate::get(host.grid)->ambientFont()));
            kwPropertyControlPrivate::get(host.grid)->writeProperties(bag);
            QVERIFY(!bag.contains(p.name));
            QVERIFY(host.grid->setProperty(p.name, p.other));
            kwPropertyControlPrivate::get(host.grid)->writeProperties(bag);
            QVERIFY(bag.contains(p.name));
        }
        GridHost host;
        kwPropertyControlPrivate::get(host.grid)->readProperties(bag);
        QCOMPARE(host.grid->property(p.name), p.other);
    }

    void coloursAndFontReachEveryRow()
    {
        GridHost host;
        Field *text = host.add("Host");
        Field *date = host.add("Start", ftDate);
        const QFont font(QStringLiteral("Serif"), 14);
        host.grid->setFont(font);
        host.grid->setBackColor(0x00FF0000);
        host.grid->setFieldNameBackColor(0x00EEEEEE);
        host.grid->setFieldNameForeColor(0x00222222);
        QCOMPARE(host.picInner()->BackColor(), OleColor(0x00FF0000));
        for (Field *field : { text, date, host.add("Later") }) {
            QCOMPARE(FieldPrivate::get(field)->FieldNameControl()->Font(), font);
            QCOMPARE(FieldPrivate::get(field)->EditorControl()->Font(), font);
            QCOMPARE(
                FieldPrivate::get(field)->FieldNameControl()->BackColor(), OleColor(0x00EEEEEE));
            QCOMPARE(
                FieldPrivate::get(field)->FieldNameControl()->ForeColor(), OleColor(0x00222222));
        }
    }

    void labelAndEditorShareOneNumber_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QString>("prefix");
        QTest::addColumn<QByteArray>("className");
        auto row = [](lFieldTypes type, const char *prefix, const char *className) {
            QTest::newRow(prefix) << int(type) << QString(prefix) << QByteArray(className);
        };
        row(ftText, "TextBox", "TextBox");
        row(ftNumeric, "Numeric", "TextBox");
        row(ftCheckBox, "kwSimpleCheck", "kwSimpleCheck");
        row(ftCombo, "kwComboField", "kwComboField");
        row(ftDate, "DTPicker", "DatePicker");
        row(ftSlider, "kwSliderValue", "kwSliderValue");
        row(ftFileSelector, "kwFileSelectorField", "kwFileSelectorField");
        row(ftFolderSelector, "kwFolderSelectorField", "kwFolderSelectorField");
    }

    void labelAndEditorShareOneNumber()
    {
        QFETCH(int, type);
        QFETCH(QString, prefix);
        QFETCH(QByteArray, className);
        GridHost host;
        test::ErrorRecorder errors;
        Field *field = host.add("Value", lFieldTypes(type), {}, "About");
        QVERIFY2(errors.errors.isEmpty(), qPrintable(errors.sources().join(", ")));
        Control *editor = kwPropertyControlPrivate::get(host.grid)->Controls().Item(
            prefix + QString::number(labelNumber(field)));
        QVERIFY(editor);
        QCOMPARE(FieldPrivate::get(field)->EditorControl(), editor);
        QCOMPARE(QByteArray(FieldPrivate::get(field)->EditField()->metaObject()->className()),
            "kwFieldDeck::" + className);
        QCOMPARE(editor->Container(), host.picInner()->widget());
        QCOMPARE(editor->Top(), FieldPrivate::get(field)->FieldNameControl()->Top());
        QCOMPARE(editor->Left(), 725.0f);
        QCOMPARE(editor->Height(), 315.0f);
        TextBox *cell = FieldPrivate::get(field)->FieldNameControl();
        QCOMPARE(cell->Text(), QStringLiteral("Value "));
        QCOMPARE(cell->ToolTipText(), QStringLiteral("About"));
        QVERIFY(cell->Locked() && !cell->TabStop());
    }

    void gridsOfOneThreadShareTheCounter()
    {
        GridHost first;
        GridHost second;
        Field *a = first.add("A");
        Field *b = second.add("B");
        first.grid->Fields()->Remove("A");
        Field *again = first.add("A");
        QCOMPARE(labelNumber(b), labelNumber(a) + 1);
        QCOMPARE(labelNumber(again), labelNumber(a) + 2);
        QCOMPARE(FieldPrivate::get(again)->ValueTextBox()->Name(),
            QStringLiteral("TextBox%1").arg(labelNumber(again)));
    }

    void editorThatCannotBeCreatedIsReportedAndLeavesTheLabel()
    {
        const QString classId = libraryTitle() + QStringLiteral(".kwSliderValue");
        ClassFactory::registerClass(
            classId, [](const QString &, QObject *) -> Control * { raise(ErrCannotCreateObject); });
        GridHost host;
        test::ErrorRecorder errors;
        test::MessageRecorder messages;
        Field *field = host.add("Level", ftSlider);
        registerEditor<kwSliderValue>("kwSliderValue");
        QVERIFY(field && !FieldPrivate::get(field)->ValueSlider());
        QVERIFY(!errors.errors.isEmpty());
        QCOMPARE(errors.errors.first().number, int(ErrCannotCreateObject));
        QCOMPARE(errors.errors.first().source,
            QStringLiteral("Function 'AddSliderValue' of User Control 'kwPropertyControl'"));
        QVERIFY(FieldPrivate::get(field)->FieldNameControl()->Visible());
        QCOMPARE(FieldPrivate::get(field)->FieldNameControl()->Text(), QStringLiteral("Level "));
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
                nameTops << FieldPrivate::get(field)->FieldNameControl()->Top();
                editorTops << FieldPrivate::get(field)->ValueTextBox()->Top();
            }
        }
        QCOMPARE(nameTops, tops);
        QCOMPARE(editorTops, tops);
        QCOMPARE(host.picInner()->Height(), canvasHeight);
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
        GridHost host(4000, 1215);
        host.addRows(rows);
        host.grid->Refresh(true);
        QCOMPARE(host.scrollBar()->Enabled(), maximum > 0);
        if (maximum > 0)
            QCOMPARE(host.scrollBar()->Max(), maximum);
    }

    void scrollingMovesTheCanvasAndDraggingLeavesFirstRow()
    {
        GridHost host;
        host.addRows(10);
        host.grid->Refresh(true);
        host.scrollBar()->setValue(2);
        QCOMPARE(host.picInner()->Top(), -600.0f);
        QCOMPARE(host.grid->FirstRow(), qint16(2));
        QScrollBar *bar = host.scrollBar()->scrollBar();
        bar->setSliderDown(true);
        bar->setSliderPosition(3);
        QCOMPARE(host.picInner()->Top(), -900.0f);
        QCOMPARE(host.grid->FirstRow(), qint16(2));
        bar->setSliderDown(false);
        QCOMPARE(host.grid->FirstRow(), qint16(3));
    }

    void editorsFillTheValueColumn_data()
    {
        QTest::addColumn<float>("nameWidth");
        QTest::addColumn<float>("left");
        QTest::addColumn<float>("width");
        QTest::newRow("new instance") << 0.0f << 725.0f << 2955.0f;
        QTest::newRow("wider names") << 1000.0f << 975.0f << 2705.0f;
        QTest::newRow("names too wide are ignored") << 3800.0f << 725.0f << 2955.0f;
    }

    void editorsFillTheValueColumn()
    {
        QFETCH(float, nameWidth);
        QFETCH(float, left);
        QFETCH(float, width);
        GridHost host(4000, 1215);
        Field *text = host.add("Host");
        Field *date = host.add("Start", ftDate);
        // The date picker is created 10 twips wider than the other editors (intended).
        QCOMPARE(FieldPrivate::get(date)->ValueDate()->Left(), 725.0f);
        QCOMPARE(FieldPrivate::get(date)->ValueDate()->Width(), 2965.0f);
        if (nameWidth > 0)
            host.grid->setFieldNameWidth(nameWidth);
        QCOMPARE(FieldPrivate::get(text)->FieldNameControl()->Width(), left + 25);
        QCOMPARE(FieldPrivate::get(text)->ValueTextBox()->Left(), left);
        QCOMPARE(FieldPrivate::get(text)->ValueTextBox()->Width(), width);
        // A full layout gives the date picker the same margin as the others.
        host.grid->Refresh(true);
        QCOMPARE(FieldPrivate::get(date)->ValueDate()->Width(), width);
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
        editorOf(field)->clear();
        QSignalSpy gridChanged(host.grid, &kwPropertyControl::Changed);
        QSignalSpy fieldChanged(field, &Field::Changed);
        QTest::keyClicks(editorOf(field), typed);
        QCOMPARE(editorOf(field)->text(), shown);
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

    void clickingNameCellBelowViewportScrollsRowByRow()
    {
        GridHost host(4000, 1215);
        QVERIFY(host.shown);
        host.addRows(10);
        host.grid->Refresh(true);
        Field *target = host.grid->Fields()->Item(8);
        QTest::mouseClick(FieldPrivate::get(target)->FieldNameControl()->lineEdit(), Qt::LeftButton,
            {}, QPoint(5, 5));
        QCoreApplication::processEvents();
        // Row 8 ends at 7 * 300 + 315 = 2415; the viewport is 1215 high: four rows down.
        QCOMPARE(host.grid->FirstRow(), qint16(4));
        QCOMPARE(host.picInner()->Top(), -1200.0f);
    }

    void onlyRowsNearTheViewAreShownWidgets()
    {
        GridHost host(4000, 1215);
        QVERIFY(host.shown);
        host.addRows(200);
        host.grid->Refresh(true);
        auto shown = [&](int row) {
            return FieldPrivate::get(host.grid->Fields()->Item(row))
                ->ValueTextBox()
                ->widget()
                ->isVisible();
        };
        // The view of 1215 twips and one view's reach below it end at 2430: rows 1 to 9 (top 2400).
        QVERIFY(shown(1) && shown(9) && !shown(10) && !shown(200));
        Field *last = host.grid->Fields()->Item(200);
        QVERIFY(FieldPrivate::get(last)->ValueTextBox()->Visible());
        // Rows out of view keep their container; the canvas itself holds only the rows near it.
        QCOMPARE(FieldPrivate::get(last)->ValueTextBox()->Container(), host.picInner()->widget());
        QCOMPARE(
            FieldPrivate::get(last)->FieldNameControl()->Container(), host.picInner()->widget());
        QVERIFY(host.picInner()->widget()->children().size() < 30);
        host.grid->setFirstRow(150);
        // The view starts at 45000; its reach covers rows 146 (top 43500) to 159 (top 47400).
        QVERIFY(!shown(145) && shown(146) && shown(159) && !shown(160));
        // Rows brought back lie in row order, each over the one before it.
        QWidgetList stacked;
        for (QObject *child : host.picInner()->widget()->children()) {
            if (auto *widget = qobject_cast<QWidget *>(child); widget && widget->isVisible())
                stacked << widget;
        }
        QCOMPARE(stacked.size(), 2 * 14);
        for (int row = 146; row <= 159; ++row) {
            const int at = 2 * (row - 146);
            QCOMPARE(stacked.at(at),
                FieldPrivate::get(host.grid->Fields()->Item(row))->FieldNameControl()->widget());
            QCOMPARE(stacked.at(at + 1),
                FieldPrivate::get(host.grid->Fields()->Item(row))->ValueTextBox()->widget());
        }
        // The focus brings a row that is out of view into it.
        last->SetFocus();
        QCoreApplication::processEvents();
        QVERIFY(shown(200) && !shown(150));
        // Row 200 ends at 59700 + 315; it is inside the 1215-high view from row 196 on.
        QCOMPARE(host.grid->FirstRow(), qint16(196));
        // Scrolling away from the row with the focus leaves the focus where it is.
        host.grid->setFirstRow(0);
        QCoreApplication::processEvents();
        QVERIFY(FieldPrivate::get(last)->ValueTextBox()->hasFocus());
        QCOMPARE(host.grid->FirstRow(), qint16(0));
        QVERIFY(shown(1) && !shown(199));
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
            const TextBox *lastLabel
                = FieldPrivate::get(grid->Fields()->Item(3))->FieldNameControl();
            QVERIFY(lastLabel->Top() + lastLabel->Height()
                <= kwPropertyControlPrivate::get(grid)->OuterPicBox()->Height());
            QVERIFY(grid->width() >= twipsToPixelsX(grid->FieldNameWidth() + 1500));
            QVERIFY(editorOf(grid->Fields()->Item(3))->width() >= twipsToPixelsX(1000));
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
        QCOMPARE(FieldPrivate::get(second)->FieldNameControl()->Top(), 300.0f);
        host.grid->update();
        QTRY_VERIFY((host.grid->Refresh(true),
            FieldPrivate::get(second)->FieldNameControl()->Top() == 385.0f));
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
