// The view met with real keys, clicks and the wheel, its look, assistive tools, and its size.

#include "grid/UserGrid.h"

#include <QDateEdit>
#include <QtTest>

using namespace kwFieldDeck;
using namespace kwFieldDeck::test;

namespace {
// The ways a row is reached; the first two land on the first row, the last clicks a part.
enum Way { Shown, GridSetFocus, Near, Far, Tab, Backtab, Down, Up, Name, Part };
const char *const WayNames[] = { "shown first", "grid SetFocus", "SetFocus near", "SetFocus far",
    "Tab", "Shift+Tab", "Down", "Up", "click name" };

QVector<QWidget *> focusParts(QWidget *editor)
{
    if (editor->focusPolicy() != Qt::NoFocus)
        return { editor };
    QVector<QWidget *> parts;
    for (QWidget *part : editor->findChildren<QWidget *>(Qt::FindDirectChildrenOnly))
        if (part->focusPolicy() & Qt::ClickFocus)
            parts << part;
    return parts;
}

bool inView(const UserGrid &user)
{
    const QWidget *editor = user.d()->rowEditor().editor();
    return editor && user.view()->rect().contains(editor->geometry());
}

// The darkest grey on a stretch of the view: the text's, where there is text.
int darkest(const QImage &image, const QRect &area)
{
    int value = 255;
    for (int y = area.top(); y <= area.bottom(); ++y)
        for (int x = area.left(); x <= area.right(); ++x)
            value = std::min(value, qGray(image.pixel(x, y)));
    return value;
}
} // namespace

class tst_GridView : public QObject
{
    Q_OBJECT
private slots:
    void everyTypeEveryWayIn_data()
    {
        auto row = columns<int, int, int>();
        for (int type = ftText; type <= ftMemo; ++type) {
            const QByteArray name = UserGrid::typeName(type).toLatin1();
            // A slider field does not take the focus from SetFocus: intended.
            for (int way = Shown; way < Part; ++way)
                if (type != ftSlider || way == Shown || way > Far)
                    row(name + ", " + WayNames[way], type, way, -1);
            // A click on each part of the idle row: a slider's box and slider, a browse "...".
            for (int part = 0; part < (type == ftSlider || type >= ftFileSelector ? 2 : 1); ++part)
                row(name + ", click part " + QByteArray::number(part), type, Part, part);
        }
    }

    // Tab passes the rest of the editor's parts first; Backtab leaves a row entered by Tab.
    void everyTypeEveryWayIn()
    {
        const auto [type, way, part] = fetch<int, int, int>();
        UserGrid user(2400, way != Shown);
        if (way == Far)
            user.addRows(40);
        Field *before = way > GridSetFocus ? user.addOfType(ftText, "Before") : nullptr;
        Field *target = user.addOfType(type, "Target"), *after = user.addOfType(ftText, "After");
        user.addOfType(ftText, "Last");
        user.grid->Refresh(true);
        if (way == Shown) {
            QVERIFY(user.show());
        } else if (way == GridSetFocus) {
            user.grid->SetFocus();
        } else if (way == Near || way == Far) {
            target->SetFocus();
        } else if (way < Name) {
            (way == Tab || way == Down ? before : after)->SetFocus();
            const Qt::Key keys[] = { Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Down, Qt::Key_Up };
            user.press(keys[way - Tab], way == Backtab ? Qt::ShiftModifier : Qt::NoModifier);
        } else if (way == Name) {
            const QRect name = user.view()->nameCellRect(FieldPrivate::get(target)->m_row);
            QTest::mouseClick(user.view(), Qt::LeftButton, {}, name.center());
        } else {
            // On the idle row, where a live editor made for it and given back had the part.
            QWidget *shown = focusParts(user.editorOf(target)).at(part);
            const QPoint point = shown->mapTo(user.view(), pointToClick(shown));
            user.d()->rowEditor().release();
            QTest::mouseClick(user.view(), Qt::LeftButton, {}, point);
            user.closePopup();
        }

        QTRY_COMPARE_WITH_TIMEOUT(user.where(), "Target, Target, About Target", 500);
        // Arriving at a "..." button opens its dialog or window once.
        const bool onButton = way == Backtab || way == Up || part == 1;
        QCOMPARE(user.dialogs, type >= ftFileSelector && onButton ? 1 : 0);
        QVERIFY(inView(user));
        // The arrow keys move between a date's day, month and year and keep the row.
        if (auto *date = qobject_cast<QDateEdit *>(user.editorOf(target)); date && way == Tab) {
            const QDateTimeEdit::Section first = date->currentSection();
            for (int i = 0; i < 3; ++i)
                user.press(Qt::Key_Right);
            QVERIFY(date->currentSection() != first);
            QCOMPARE(user.focusedField(), target);
        }

        const QVector<QWidget *> parts = focusParts(user.editorOf(target));
        QWidget *focus = QApplication::focusWidget();
        qsizetype at = 0;
        while (at < parts.size() && parts[at] != focus && !parts[at]->isAncestorOf(focus))
            ++at;
        QVERIFY(at < parts.size());
        const bool back = way == Tab;
        for (qsizetype tabs = back ? 1 : parts.size() - at; tabs > 0; --tabs)
            user.press(
                back ? Qt::Key_Backtab : Qt::Key_Tab, back ? Qt::ShiftModifier : Qt::NoModifier);
        const QString next = (back ? before : after)->Name();
        QCOMPARE(user.where(), next + ", " + next + ", About " + next);
    }

    void keysMoveTheCurrentRow_data()
    {
        auto row = columns<int, int, int>();
        row("Down", ftText, Qt::Key_Down, 1);
        // A page is as many rows as the view shows whole: 1215 / 300.
        for (int type : { ftCheckBox, ftMemo })
            row("PageDown, " + UserGrid::typeName(type).toLatin1(), type, Qt::Key_PageDown, 4);
    }

    // Each row reached in order is highlighted and in view; page keys stop at the ends.
    void keysMoveTheCurrentRow()
    {
        const auto [type, key, step] = fetch<int, int, int>();
        UserGrid user(1215);
        for (int i = 0; i < 40; ++i)
            user.addOfType(type, QStringLiteral("Row%1").arg(i));
        user.grid->Refresh(true);
        auto row = [&](int i) { return user.field(QStringLiteral("Row%1").arg(qMin(i, 39))); };
        row(0)->SetFocus();
        for (int i = step; i < 40 + (step > 1 ? 2 * step : 0); i += step) {
            user.press(Qt::Key(key));
            QCOMPARE(
                user.where(), row(i)->Name() + ", " + row(i)->Name() + ", About " + row(i)->Name());
            QVERIFY(inView(user));
        }
        for (const auto &[page, modifiers, to] : { std::tuple(Qt::Key_PageUp, Qt::NoModifier, 35),
                 { Qt::Key_Home, Qt::ControlModifier, 0 }, { Qt::Key_PageUp, Qt::NoModifier, 0 },
                 { Qt::Key_End, Qt::ControlModifier, 39 } }) {
            user.press(page, modifiers);
            QCOMPARE(user.focusedField(), row(to));
            QVERIFY(to || user.grid->FirstRow() == 0);
        }
    }

    void wheelOverAnIdleRowScrollsTheGrid_data()
    {
        // The type, over the name, and a live editor left without the focus (idle then too).
        auto row = columns<int, bool, bool>();
        row("name", ftText, true, false);
        row("COMBO", ftCombo, false, false);
        for (int type : { ftCombo, ftSlider, ftDate })
            row(UserGrid::typeName(type).toLatin1() + " left live", type, false, true);
    }

    void wheelOverAnIdleRowScrollsTheGrid()
    {
        const auto [type, onName, liveWithoutFocus] = fetch<int, bool, bool>();
        UserGrid user(1800);
        QLineEdit outside(&user.window);
        outside.move(0, user.window.height() - 30);
        outside.show();
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
        // Away from the middle first, then over it.
        user.turnWheel(area.center() + QPoint(area.width() / 4, 0), 1);
        QCOMPARE(user.grid->FirstRow(), qint16(3));
        user.turnWheel(area.center(), -1);
        QCOMPARE(user.grid->FirstRow(), qint16(0));
        QCOMPARE(idle->Value(), before);
        QCOMPARE(changed.count(), 0);
    }

    // Disabled rows are greyed; colours reach rows there are and later ones.
    void rowsArePaintedInTheirColours()
    {
        UserGrid user;
        Field *enabled = user.addOfType(ftText, QStringLiteral("Enabled"));
        Field *disabled = user.addOfType(ftText, QStringLiteral("Disabled"));
        disabled->setEnabled(false);
        user.grid->Refresh(true);
        const auto area = [&](auto cell, Field *field) {
            return (user.view()->*cell)(FieldPrivate::get(field)->m_row).adjusted(2, 2, -2, -2);
        };
        QImage image = user.view()->grab().toImage();
        for (auto cell : { &GridView::nameCellRect, &GridView::editorRect })
            QVERIFY(
                darkest(image, area(cell, disabled)) > darkest(image, area(cell, enabled)) + 40);
        user.grid->setBackColor(0x00FF0000);
        user.grid->setFieldNameBackColor(0x00EEEEEE);
        Field *later = user.addOfType(ftDate, QStringLiteral("Later"));
        user.grid->Refresh(true);
        image = user.view()->grab().toImage();
        for (Field *field : { enabled, later })
            QCOMPARE(image.pixelColor(area(&GridView::nameCellRect, field).topLeft()),
                QColor(0xEE, 0xEE, 0xEE));
        QCOMPARE(
            image.pixelColor(user.view()->rect().bottomLeft() + QPoint(5, -5)), QColor(0, 0, 0xFF));
    }

    // Viewport, scroll bar and one live editor, however many rows; assistive tools see all.
    void aLargeGridHasNoWidgetPerRow()
    {
        UserGrid few;
        GridHost many;
        constexpr int rows = 1000;
        for (int i = 0; i < 100 * rows; ++i) {
            const int type = ftText + i % 9;
            if (i < rows)
                few.addOfType(type, QStringLiteral("Row%1").arg(i))->setEnabled(i % 7 != 0);
            many.add(QStringLiteral("Row%1").arg(i), lFieldTypes(type));
        }
        few.grid->Refresh(true);
        many.grid->Refresh(true);
        const auto widgets
            = [](GridHost &host) { return host.grid->findChildren<QWidget *>().size(); };
        QCOMPARE(std::pair(widgets(many), widgets(few)), (std::pair<qsizetype, qsizetype>(2, 2)));
        many.field(QStringLiteral("Row99999"))->SetFocus();
        few.field(QStringLiteral("Row999"))->SetFocus();
        const QWidget *editor = many.d()->rowEditor().editor();
        QVERIFY(editor);
        QCOMPARE(widgets(many), 3 + editor->findChildren<QWidget *>().size());
        QCOMPARE(widgets(many), widgets(few));
        // FirstRow, since the scroll bar is 16-bit and a range past 32,767 rows overflows it.
        few.grid->setFirstRow(990);
        many.grid->setFirstRow(32000);
        QCoreApplication::processEvents();
        QCOMPARE(widgets(many), widgets(few));

        QAccessibleInterface *table = QAccessible::queryAccessibleInterface(few.view());
        QVERIFY(table && table->tableInterface());
        QCOMPARE(table->role(), QAccessible::Table);
        QCOMPARE(table->tableInterface()->rowCount(), rows);
        QCOMPARE(table->childCount(), 2 * rows);
        int onScreen = 0;
        for (int i = 0; i < rows; ++i) {
            QAccessibleInterface *name = table->tableInterface()->cellAt(i, 0);
            QAccessibleInterface *value = table->child(2 * i + 1);
            QVERIFY(name && value);
            Field *field = few.field(QStringLiteral("Row%1").arg(i));
            QCOMPARE(name->text(QAccessible::Name), field->Name());
            QCOMPARE(value->text(QAccessible::Name), field->Name());
            QCOMPARE(value->text(QAccessible::Description), "About " + field->Name());
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
    }
};

QTEST_MAIN(tst_GridView)
#include "tst_GridView.moc"
