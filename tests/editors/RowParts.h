#pragma once

// A user's clicks on the parts of a row that is not being edited, where the grid paints them.

#include "grid/UserGrid.h"

namespace kwFieldDeck::test {

// Where a part of an idle row's editor is painted, in the view: the row's live editor is made
// to measure it, then given back.
inline QPoint paintedPoint(UserGrid &user, Field *field, const char *name)
{
    const QWidget *part = user.editorOf(field)->findChild<QWidget *>(QLatin1String(name));
    const QPoint point = part ? part->mapTo(user.view(), pointToClick(part)) : QPoint();
    user.d()->rowEditor().release();
    return point;
}

// Clicks the view at a point of a row and returns the part of the live editor the click
// reached, found by its name.
inline QWidget *clickAt(UserGrid &user, const QPoint &point, const char *name)
{
    QTest::mouseClick(user.view(), Qt::LeftButton, {}, point);
    QCoreApplication::processEvents();
    const QWidget *editor = user.d()->rowEditor().editor();
    return editor ? editor->findChild<QWidget *>(QLatin1String(name)) : nullptr;
}

inline QWidget *clickPart(UserGrid &user, Field *field, const char *name)
{
    return clickAt(user, paintedPoint(user, field, name), name);
}

// A key pressed where the focus is; Up and Down arrive as posted keys.
inline void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
{
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
}

} // namespace kwFieldDeck::test
