#pragma once

// A host's window with one flat grid in it, shown and active, used through the public API alone.
// Rows are reached where a user sees them: row k's top is k times (RowHeight - 15) twips, its
// name cell starts at 0 and its editor at FieldNameWidth - 25.

#include <kwFieldDeck/kwFieldDeck>

#include "TestSupport.h"

#include <QAccessible>
#include <QApplication>
#include <QLineEdit>
#include <QScreen>
#include <QScrollBar>
#include <QTest>

namespace kwFieldDeck::test {

inline int pixels(double twips)
{
    return int(twips * QGuiApplication::primaryScreen()->logicalDotsPerInchY() / 1440.0);
}

struct ShownGrid
{
    // Five rows high.
    ShownGrid()
    {
        window.resize(420, pixels(5 * 300.0) + 6);
        grid = new kwPropertyControl(&window);
        grid->setAppearance(kwPropertyControl::Flat);
        grid->setGeometry(0, 0, 420, window.height());
        window.show();
        QApplication::setActiveWindow(&window);
        active = QTest::qWaitForWindowActive(&window);
    }

    Field *add(const QString &name, lFieldTypes type = ftText, const QString &value = {})
    {
        return grid->Fields()->Add(name, type, 0, value);
    }

    // Text rows Row<n> holding v<n>, n counting on from the rows there are.
    void addRows(int count)
    {
        for (int n = grid->Fields()->Count(), end = n + count; n < end; ++n)
            add(QStringLiteral("Row%1").arg(n), ftText, QStringLiteral("v%1").arg(n));
    }

    // The middle of a row's editor, or of its name cell.
    QPoint editorPoint(int index, bool nameCell = false) const
    {
        const double x = nameCell ? 150 : grid->FieldNameWidth() - 25 + 300;
        return QPoint(
            pixels(x), pixels(index * (grid->RowHeight() - 15.0) + grid->RowHeight() / 2));
    }
    QPoint namePoint(int index) const { return editorPoint(index, true); }

    // Moves the mouse there and clicks whatever widget the user would hit.
    void click(const QPoint &inGrid)
    {
        QTest::mouseMove(grid, inGrid);
        QWidget *target = grid->childAt(inGrid);
        if (!target)
            target = grid;
        QTest::mouseClick(target, Qt::LeftButton, {}, target->mapFrom(grid, inGrid));
        QApplication::processEvents();
    }

    // The text of the focused line edit or row editor; "(none)" when no row has the focus.
    static QString focusedText()
    {
        QWidget *focus = QApplication::focusWidget();
        if (auto *edit = qobject_cast<QLineEdit *>(focus))
            return edit->text();
        QLineEdit *inner = focus && !qobject_cast<kwPropertyControl *>(focus)
            ? focus->findChild<QLineEdit *>()
            : nullptr;
        return inner ? inner->text() : QStringLiteral("(none)");
    }

    QString textAt(int index) { return click(editorPoint(index)), focusedText(); }

    QScrollBar *scrollBar() const { return grid->findChild<QScrollBar *>(); }

    // What the field's row shows, as assistive tools read its value cell.
    QString readOut(int field) const
    {
        QAccessibleInterface *face = QAccessible::queryAccessibleInterface(grid);
        for (int i = 0; face && i < face->childCount(); ++i) {
            if (QAccessibleTableInterface *table = face->child(i)->tableInterface())
                return table->cellAt(field, 1)->text(QAccessible::Value);
        }
        return QStringLiteral("(no table)");
    }

    QWidget window;
    kwPropertyControl *grid = nullptr;
    bool active = false;
};

} // namespace kwFieldDeck::test
