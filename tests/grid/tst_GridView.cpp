// What every Qt list does, on the grid's painted rows: the wheel scrolls and never edits an idle
// row, Shift+Tab however it is sent and the page keys move the current row, assistive tools find
// every row, and a disabled row looks disabled.

#include "grid/UserGrid.h"

#include "editors/FieldKind.h"

#include <QAccessible>
#include <QAccessibleTableInterface>
#include <QLineEdit>
#include <QtTest>

using namespace kwFieldDeck;
using kwFieldDeck::test::GridHost;
using kwFieldDeck::test::UserGrid;

namespace {
void turnWheel(QWidget *view, const QPoint &at, int notches)
{
    QWidget *target = view->childAt(at) ? view->childAt(at) : view;
    const QPoint local = target->mapFrom(view, at);
    QWheelEvent wheel(local, target->mapToGlobal(local), QPoint(), QPoint(0, -120 * notches),
        Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(target, &wheel);
}

void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
{
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    QCoreApplication::processEvents();
}

// The darkest grey on a stretch of the view: the text's, where there is text.
int darkest(const QImage &image, const QRect &area)
{
    int value = 255;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x)
            value = std::min(value, qGray(image.pixel(x, y)));
    }
    return value;
}
} // namespace

class tst_GridView : public QObject
{
    Q_OBJECT
private slots:
    void wheelOverAnIdleRowScrollsTheGrid_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<bool>("onName");
        // A row keeps its live editor when the focus leaves the grid; it is idle then too.
        QTest::addColumn<bool>("liveWithoutFocus");
        QTest::newRow("name") << int(ftText) << true << false;
        QTest::newRow("drop-down") << int(ftCombo) << false << false;
        QTest::newRow("slider") << int(ftSlider) << false << false;
        QTest::newRow("date") << int(ftDate) << false << false;
        QTest::newRow("check box") << int(ftCheckBox) << false << false;
        QTest::newRow("drop-down left live") << int(ftCombo) << false << true;
        QTest::newRow("slider left live") << int(ftSlider) << false << true;
        QTest::newRow("date left live") << int(ftDate) << false << true;
    }

    void wheelOverAnIdleRowScrollsTheGrid()
    {
        QFETCH(int, type);
        QFETCH(bool, onName);
        QFETCH(bool, liveWithoutFocus);
        UserGrid user(1800);
        QLineEdit outside(&user.window);
        outside.move(0, user.window.height() - 30);
        outside.show();
        QVERIFY(user.shown);
        user.addOfType(ftText, QStringLiteral("Editing"))->SetFocus();
        Field *idle = user.addOfType(type, QStringLiteral("Idle"));
        user.addRows(30);
        user.grid->Refresh(true);
        if (liveWithoutFocus) {
            idle->SetFocus();
            if (type == ftSlider)
                user.editorOf(idle)->findChild<QWidget *>(QStringLiteral("Slider1"))->setFocus();
            outside.setFocus();
            QCOMPARE(user.d()->rowEditor().row(), idle);
            QVERIFY(!user.d()->rowEditor().holdsFocus());
        }
        const QVariant before = idle->Value();
        QSignalSpy changed(user.grid, &kwPropertyControl::Changed);
        const qsizetype row = FieldPrivate::get(idle)->m_row;
        const QRect area = onName ? user.view()->nameCellRect(row) : user.view()->editorRect(row);
        // A press-free pass of the pointer first, as a user's hand moves, then the wheel.
        turnWheel(user.view(), area.center() + QPoint(area.width() / 4, 0), 1);
        QCOMPARE(user.grid->FirstRow(), qint16(3));
        QCOMPARE(idle->Value(), before);
        QCOMPARE(changed.count(), 0);
        turnWheel(user.view(), area.center(), -1);
        QCOMPARE(user.grid->FirstRow(), qint16(0));
        QCOMPARE(idle->Value(), before);
        QCOMPARE(changed.count(), 0);
    }

    // Shift+Tab as the desktop sends it, Backtab, leaves every editor backwards: from the first
    // part of a row's editor to the row before it.
    void backtabLeavesEveryEditorBackwards_data()
    {
        QTest::addColumn<int>("type");
        for (const test::FieldKind &kind : test::everyFieldType())
            QTest::newRow(kind.name) << int(kind.type);
    }

    void backtabLeavesEveryEditorBackwards()
    {
        QFETCH(int, type);
        UserGrid user;
        QVERIFY(user.shown);
        Field *before = user.addOfType(ftText, QStringLiteral("Before"));
        Field *target = user.addOfType(type, QStringLiteral("Target"));
        before->SetFocus();
        press(Qt::Key_Tab);
        QCOMPARE(user.focusedField(), target);
        // Back through the editor's own parts first, then out of the row.
        for (int parts = 0; parts < 3 && user.focusedField() == target; ++parts)
            press(Qt::Key_Backtab, Qt::ShiftModifier);
        QCOMPARE(user.focusedField(), before);
        QCOMPARE(user.highlighted(), QVector<Field *> { before });
    }

    void pageAndEndKeysMoveTheCurrentRow_data()
    {
        QTest::addColumn<int>("type");
        QTest::newRow("text") << int(ftText);
        QTest::newRow("check box") << int(ftCheckBox);
        QTest::newRow("memo") << int(ftMemo);
    }

    void pageAndEndKeysMoveTheCurrentRow()
    {
        QFETCH(int, type);
        UserGrid user(1215);
        QVERIFY(user.shown);
        for (int i = 0; i < 40; ++i)
            user.addOfType(type, QStringLiteral("Row%1").arg(i));
        user.grid->Refresh(true);
        auto row = [&](int i) { return user.field(QStringLiteral("Row%1").arg(i)); };
        row(0)->SetFocus();
        QCOMPARE(user.focusedField(), row(0));
        // A page is as many rows as the view shows whole: 1215 / 300.
        const int page = 4;
        press(Qt::Key_PageDown);
        QCOMPARE(user.focusedField(), row(page));
        press(Qt::Key_PageDown);
        QCOMPARE(user.focusedField(), row(2 * page));
        press(Qt::Key_PageUp);
        QCOMPARE(user.focusedField(), row(page));
        press(Qt::Key_End, Qt::ControlModifier);
        QCOMPARE(user.focusedField(), row(39));
        QCOMPARE(user.highlighted(), QVector<Field *> { row(39) });
        press(Qt::Key_PageDown);
        QCOMPARE(user.focusedField(), row(39));
        press(Qt::Key_Home, Qt::ControlModifier);
        QCOMPARE(user.focusedField(), row(0));
        QCOMPARE(user.grid->FirstRow(), qint16(0));
    }

    // Every row of a large grid is there for assistive tools, with one page of it on screen.
    void assistiveToolsFindEveryRow()
    {
        UserGrid user(2400);
        QVERIFY(user.shown);
        constexpr int rows = 2000;
        for (int i = 0; i < rows; ++i) {
            const test::FieldKind &kind = test::everyFieldType().at(i % 9);
            Field *field = user.addOfType(kind.type, QStringLiteral("Row%1").arg(i));
            if (i % 7 == 0)
                field->setEnabled(false);
        }
        user.grid->Refresh(true);
        QAccessibleInterface *table = QAccessible::queryAccessibleInterface(user.view());
        QVERIFY(table);
        QCOMPARE(table->role(), QAccessible::Table);
        QVERIFY(table->tableInterface());
        QCOMPARE(table->tableInterface()->rowCount(), rows);
        QCOMPARE(table->childCount(), 2 * rows);
        int onScreen = 0;
        for (int i = 0; i < rows; ++i) {
            QAccessibleInterface *name = table->tableInterface()->cellAt(i, 0);
            QAccessibleInterface *value = table->child(2 * i + 1);
            QVERIFY(name && value);
            Field *field = user.field(QStringLiteral("Row%1").arg(i));
            QCOMPARE(name->text(QAccessible::Name), field->Name());
            QCOMPARE(value->text(QAccessible::Name), field->Name());
            QCOMPARE(
                value->text(QAccessible::Description), QStringLiteral("About ") + field->Name());
            QCOMPARE(value->text(QAccessible::Value),
                FieldPrivate::get(field)->shownKind()->valueText(GridHost::state(field)));
            QCOMPARE(name->state().disabled, i % 7 == 0);
            // A check box keeps its box enabled whatever its row says: intended.
            QCOMPARE(value->state().disabled, i % 7 == 0 && field->FieldType() != ftCheckBox);
            if (field->FieldType() == ftCheckBox)
                QCOMPARE(value->state().checked, GridHost::state(field).check == 1);
            QCOMPARE(table->indexOfChild(value), 2 * i + 1);
            onScreen += name->state().offscreen ? 0 : 1;
        }
        QVERIFY(onScreen > 0 && onScreen < 20);
        // A row's text as a user sees it: a number row reads its number.
        QCOMPARE(
            table->tableInterface()->cellAt(1, 1)->text(QAccessible::Value), QStringLiteral("12"));
    }

    // A disabled row shows its name and value in the disabled colours; a check box keeps its
    // box as it is (intended).
    void aDisabledRowLooksDisabled()
    {
        UserGrid user;
        QVERIFY(user.shown);
        Field *enabled = user.addOfType(ftText, QStringLiteral("Enabled"));
        Field *disabled = user.addOfType(ftText, QStringLiteral("Disabled"));
        disabled->setEnabled(false);
        user.grid->Refresh(true);
        const QImage image = user.view()->grab().toImage();
        for (auto rect : { &GridView::nameCellRect, &GridView::editorRect }) {
            const QRect on
                = (user.view()->*rect)(FieldPrivate::get(enabled)->m_row).adjusted(2, 2, -2, -2);
            const QRect off
                = (user.view()->*rect)(FieldPrivate::get(disabled)->m_row).adjusted(2, 2, -2, -2);
            QVERIFY(darkest(image, off) > darkest(image, on) + 40);
        }
    }
};

QTEST_MAIN(tst_GridView)
#include "tst_GridView.moc"
