#pragma once

// A host's window with one grid in it, shown and active, used through the public API alone; the
// suites that see the internals extend it. Rows are reached where a user sees them: row k's top
// is k times (RowHeight - 15) twips, its name cell starts at 0 and its editor at
// FieldNameWidth - 25.

#include <kwFieldDeck/kwFieldDeck>

#include "TestSupport.h"
#include "host/Columns.h"

#include <QAccessible>
#include <QApplication>
#include <QLineEdit>
#include <QScreen>
#include <QScrollBar>
#include <QTest>

#include <functional>

namespace kwFieldDeck::test {

inline int pixels(double twips)
{
    return int(twips * QGuiApplication::primaryScreen()->logicalDotsPerInchY() / 1440.0);
}

class ShownGrid
{
public:
    // Five flat rows high. A window that does not become active fails the test.
    ShownGrid()
        : ShownGrid(QSize(420, pixels(5 * 300.0) + 6), 0)
    {
        grid->setAppearance(kwPropertyControl::Flat);
        QVERIFY(show());
    }

    // The grid lays itself out when it is first resized, which happens when it is shown. Shown
    // again, the window takes back the activation, as the desktop gives it back after a dialog.
    bool show()
    {
        window.show();
        window.activateWindow();
        return QTest::qWaitForWindowActive(&window);
    }

    Field *add(const QString &name, lFieldTypes type = ftText, const QString &value = {},
        const QString &description = {})
    {
        return grid->Fields()->Add(name, type, 0, value, description);
    }

    // Rows Row<n>, n counting on from the rows there are; a text row holds v<n>.
    void addRows(int count, lFieldTypes type = ftText)
    {
        for (int n = grid->Fields()->Count() + 1, end = n + count; n < end; ++n)
            add(QStringLiteral("Row%1").arg(n), type,
                type == ftText ? QStringLiteral("v%1").arg(n) : QString());
    }

    Field *field(const QString &name) const { return grid->Fields()->Item(name); }

    // What `of` gives of each field in order: its name unless told otherwise.
    QStringList each(const std::function<QString(Field *)> &of = &Field::Name) const
    {
        QStringList all;
        for (Field *field : *grid->Fields())
            all << of(field);
        return all;
    }

    // The middle of a row's editor, or of its name cell.
    QPoint editorPoint(int index, bool nameCell = false) const
    {
        const double x = nameCell ? 150 : grid->FieldNameWidth() - 25 + 300;
        return QPoint(
            pixels(x), pixels(index * (grid->RowHeight() - 15.0) + grid->RowHeight() / 2));
    }
    QPoint namePoint(int index) const { return editorPoint(index, true); }

    // Moves the mouse there and clicks whatever widget the user would hit; gives the focus widget.
    QWidget *click(const QPoint &inGrid)
    {
        QTest::mouseMove(grid, inGrid);
        QWidget *target = grid->childAt(inGrid);
        if (!target)
            target = grid;
        QTest::mouseClick(target, Qt::LeftButton, {}, target->mapFrom(grid, inGrid));
        QApplication::processEvents();
        return QApplication::focusWidget();
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
        for (int i = 0; face && i < face->childCount(); ++i)
            if (QAccessibleTableInterface *table = face->child(i)->tableInterface())
                return table->cellAt(field, 1)->text(QAccessible::Value);
        return QStringLiteral("(no table)");
    }

    QWidget window;
    kwPropertyControl *grid = nullptr;

protected:
    // A grid of the size in pixels, in a window `margin` pixels larger, not shown yet.
    ShownGrid(QSize size, int margin)
    {
        window.resize(size + QSize(margin, margin));
        grid = new kwPropertyControl(&window);
        grid->setObjectName(QStringLiteral("kwPropertyControl1"));
        grid->setGeometry(QRect(QPoint(), size));
    }
};

// A definition text written on one line: "|" stands for the CR LF between its lines.
inline QString defText(QString text)
{
    return text.replace(QLatin1Char('|'), QLatin1String("\r\n"));
}

} // namespace kwFieldDeck::test
