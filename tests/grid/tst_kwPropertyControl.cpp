// The grid: persisted properties, rows, layout and scrolling in twips, typing, its life.

#include "grid/GridHost.h"

#include <QVBoxLayout>
#include <QtTest>

using namespace kwFieldDeck;
using namespace kwFieldDeck::test;

class tst_kwPropertyControl : public QObject
{
    Q_OBJECT

private slots:
    // The new-instance default (invalid for the ambient font) and another value.
    void propertyHasItsDefaultAndCarriesToAnotherGrid_data()
    {
        auto row = columns<QVariant, QVariant>();
        row("Enabled", false, true);
        row("Font", QVariant(), QFont(QStringLiteral("Serif"), 15, QFont::Bold));
        row("BackStyle", 0, 1);
        row("BorderStyle", 0, 1);
        row("ScaleMode", 1, 3);
        row("Appearance", 1, 0);
        // The colours again here: the Designer suite that checks them is built only with Designer.
        row("BackColor", quint32(SystemColor::ButtonFace), quint32(0x00112233));
        row("ForeColor", quint32(0), quint32(0x00445566));
        row("FieldNameBackColor", quint32(SystemColor::WindowBackground), quint32(0x00010203));
        row("FieldNameForeColor", quint32(SystemColor::WindowText), quint32(0x00040506));
    }

    // A form file keeps the grid's properties as Qt's property system reads and writes them.
    void propertyHasItsDefaultAndCarriesToAnotherGrid()
    {
        const auto [initial, other] = fetch<QVariant, QVariant>();
        const char *name = QTest::currentDataTag();
        GridHost saved;
        QCOMPARE(saved.grid->property(name),
            initial.isValid() ? initial : QVariant(saved.window.font()));
        const QMetaObject *meta = saved.grid->metaObject();
        QVERIFY(meta->property(meta->indexOfProperty(name)).isStored());
        QVERIFY(saved.grid->setProperty(name, other));
        // Read before the next repaint, which puts ScaleMode back to twips.
        const QVariant kept = saved.grid->property(name);
        GridHost loaded;
        QVERIFY(loaded.grid->setProperty(name, kept));
        QCOMPARE(loaded.grid->property(name), other);
    }

    void rowsLieOnTheCanvas_data()
    {
        // Type, rows, FieldNameWidth set, the editors' left and width, the scroll bar's maximum
        // (4 - 1215 / 315 + 1 = 1.14...; 3 rows need none).
        auto row = columns<int, int, float, float, float, int>();
        for (int type = ftText; type <= ftMemo; ++type)
            row(QByteArray::number(type), type, 3, 0, 725, 2960, -1);
        row("four rows", ftNumeric, 4, 0, 725, 2960, 1);
        row("wider names", ftText, 3, 1000, 975, 2710, -1);
    }

    // Rows overlap by their border line; a date picker is 10 twips wider until a full layout
    // (intended).
    void rowsLieOnTheCanvas()
    {
        const auto [type, rows, nameWidth, left, width, maximum]
            = fetch<int, int, float, float, float, int>();
        GridHost host(4005, 1215);
        host.addRows(rows, lFieldTypes(type));
        Field *first = host.grid->Fields()->Item(1);
        QCOMPARE(host.row(first).editorWidth, type == ftDate ? 2970.0f : 2960.0f);
        if (nameWidth > 0)
            host.grid->setFieldNameWidth(nameWidth);
        if (type != ftDate)
            QCOMPARE(host.row(first).editorWidth, width);
        host.grid->Refresh(true);
        QCOMPARE(host.reports(), QStringList());
        float top = 0;
        for (Field *field : *host.grid->Fields()) {
            const CanvasRow &row = host.row(field);
            QCOMPARE(QList<float>({ row.top, row.height, row.width, row.editorHeight,
                         row.editorLeft, row.editorWidth }),
                QList<float>({ top, 315, left + 25, 315, left, width }));
            top += 300;
        }
        QCOMPARE(host.d()->canvasHeight(), top);
        // -1 stands for a disabled scroll bar.
        QCOMPARE(host.scrollBar()->isEnabled() ? host.scrollBar()->maximum() : -1, maximum);
        host.d()->rowEditor().bind(first);
        QCOMPARE(host.d()->rowEditor().editor()->geometry(),
            host.view()->editorRect(FieldPrivate::get(first)->m_row));
    }

    // A row showing only its top border scrolls in when clicked; a drag sets FirstRow on release.
    void scrollingMovesTheCanvas()
    {
        GridHost host(4005, 1215);
        host.addRows(200);
        host.grid->Refresh(true);
        QTest::mouseClick(host.view(), Qt::LeftButton, {}, QPoint(5, host.view()->height() - 1));
        QCoreApplication::processEvents();
        // Row 5 ends at 4 * 300 + 315 = 1515; the viewport is 1215 high: one row down.
        QCOMPARE(host.d()->highlighted(), host.field("Row5"));
        QCOMPARE(host.grid->FirstRow(), qint16(1));
        host.scrollBar()->setValue(2);
        host.scrollBar()->setSliderDown(true);
        host.scrollBar()->setSliderPosition(3);
        QCOMPARE(host.d()->canvasTop(), -900.0f);
        QCOMPARE(host.grid->FirstRow(), qint16(2));
        host.scrollBar()->setSliderDown(false);
        QCOMPARE(host.grid->FirstRow(), qint16(3));
        Field *last = host.field("Row200");
        last->SetFocus();
        QCoreApplication::processEvents();
        // Row 200 ends at 59700 + 315; it is inside the 1215-high view from row 196 on.
        QCOMPARE(host.grid->FirstRow(), qint16(196));
        host.grid->setFirstRow(0);
        QCoreApplication::processEvents();
        QCOMPARE(host.d()->rowEditor().row(), last);
        QVERIFY(host.d()->rowEditor().holdsFocus());
        QCOMPARE(host.grid->FirstRow(), qint16(0));
    }

    void typingRaisesChangedPerAcceptedKey_data()
    {
        auto row = columns<int, QString, QString, QVariantList, bool>();
        row("text", ftText, "ab", "ab", { "a", "ab" }, true);
        row("design mode", ftNumeric, "7", "7", { 7.0 }, false);
        // The numeric field swallows a second point, a sign after the first character, letters.
        row("second point", ftNumeric, "1.5.2", "1.52", { 1.0, 1.0, 1.5, 1.52 }, true);
        row("minus first", ftNumeric, "-4", "-4", { 0.0, -4.0 }, true);
        row("minus later", ftNumeric, "4-2", "42", { 4.0, 42.0 }, true);
        row("letters", ftNumeric, "1a2b", "12", { 1.0, 12.0 }, true);
    }

    // A grid in design mode raises no Changed; the field's own Changed comes all the same.
    void typingRaisesChangedPerAcceptedKey()
    {
        const auto [type, typed, shown, values, userMode]
            = fetch<int, QString, QString, QVariantList, bool>();
        GridHost host;
        host.grid->setAmbientUserMode(userMode);
        Field *field = host.add("Port", lFieldTypes(type));
        host.d()->rowEditor().bind(field);
        auto *edit = qobject_cast<QLineEdit *>(host.d()->rowEditor().editor());
        edit->clear();
        QSignalSpy gridChanged(host.grid, &kwPropertyControl::Changed);
        QVariantList changes;
        connect(field, &Field::Changed, this, [&](const QVariant &value) { changes << value; });
        QTest::keyClicks(edit, typed);
        QCOMPARE(edit->text(), shown);
        QCOMPARE(changes, values);
        QCOMPARE(changes.last().typeId(), values.last().typeId());
        QCOMPARE(gridChanged.count(), userMode ? values.size() : 0);
        if (userMode)
            QCOMPARE(gridChanged.last().at(0).value<Field *>(), field);
    }

    // A value that the new editor cannot take is reported under the creator and leaves the row.
    void editorThatCannotTakeItsValueIsReportedAndLeavesTheRow()
    {
        GridHost host;
        Field *field = host.add("Level", lFieldTypes(0), "not a truth");
        const qsizetype earlier = host.reports().size();
        field->setFieldType(ftCheckBox);
        QCOMPARE(host.reports().mid(earlier),
            QStringList { gridError(ErrTypeMismatch, "AddCheckBox", "Function") });
        QCOMPARE(GridHost::state(field).check, qint16(0));
        QVERIFY(host.d()->rowOf(field) >= 0);
    }

    // The repaint clears the busy flag that a failed layout left, as the paint handler does.
    void aLayoutThatFailedIsFreedByTheNextRepaint()
    {
        GridHost host;
        host.addRows(3);
        host.grid->setRowHeight(-10);
        host.grid->Refresh(true);
        QCOMPARE(host.reports(), QStringList { gridError(380, "Refresh") });
        host.grid->setRowHeight(400);
        host.grid->Refresh(true);
        QCOMPARE(host.row(host.field("Row2")).top, 300.0f);
        host.grid->update();
        QTRY_VERIFY((host.grid->Refresh(true), host.row(host.field("Row2")).top == 385.0f));
    }

    // A grid alone in a layout shows a few whole rows, even in a window as small as it goes.
    void aloneInALayoutTheGridShowsAFewRows()
    {
        ErrorRecorder errors;
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
            QVERIFY(grid->width() >= twipsToPixelsX(grid->FieldNameWidth() + 1500));
            const QRect last = d->view()->editorRect(d->rowOf(grid->Fields()->Item(3)));
            QVERIFY(last.width() >= twipsToPixelsX(1000));
        }
        QCOMPARE(errors.sources(), QStringList());
    }

    // A label that is no QLabel gets the description in its Caption property. The focus passed on
    // while the grid's controls go must not reach the rows' handlers (a box and its button here).
    void aRowWithTheFocusShowsItsDescriptionUntilTheGridGoes()
    {
        GridHost host;
        QLineEdit outside(&host.window);
        outside.move(0, host.window.height() - 30);
        outside.show();
        QObject statusPanel;
        statusPanel.setProperty("Caption", QString());
        host.grid->setDescriptionLabel(&statusPanel);
        host.addRows(3, ftFileSelector);
        host.grid->Refresh(true);
        host.field("Row2")->setDescription("About 2");
        host.field("Row2")->SetFocus();
        QTRY_VERIFY(host.grid->isAncestorOf(QApplication::focusWidget()));
        QCOMPARE(statusPanel.property("Caption").toString(), QStringLiteral("About 2"));
        delete host.grid;
        QVERIFY(!host.window.findChild<kwPropertyControl *>());
        QTest::keyClick(&host.window, Qt::Key_Tab);
    }
};

QTEST_MAIN(tst_kwPropertyControl)
#include "tst_kwPropertyControl.moc"
