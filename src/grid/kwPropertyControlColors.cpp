// The grid's colours as QColor values, the form in which Qt Designer's colour editor shows them.
// The OleColor properties stay the grid's state; these read and write the same members.

#include "grid/kwPropertyControl_p.h"

#include <QApplication>

namespace kwFieldDeck {

QColor kwPropertyControl::backgroundColor() const
{
    return d_func()->screenColor(BackColor());
}
void kwPropertyControl::setBackgroundColor(const QColor &color)
{
    setBackColor(
        kwPropertyControlPrivate::oleColorOr(color, kwPropertyControlPrivate::DefaultBackColor));
}
void kwPropertyControl::resetBackgroundColor()
{
    setBackColor(kwPropertyControlPrivate::DefaultBackColor);
}
QColor kwPropertyControl::foregroundColor() const
{
    return d_func()->screenColor(ForeColor());
}
void kwPropertyControl::setForegroundColor(const QColor &color)
{
    setForeColor(
        kwPropertyControlPrivate::oleColorOr(color, kwPropertyControlPrivate::DefaultForeColor));
}
void kwPropertyControl::resetForegroundColor()
{
    setForeColor(kwPropertyControlPrivate::DefaultForeColor);
}
QColor kwPropertyControl::fieldNameBackgroundColor() const
{
    return d_func()->screenColor(FieldNameBackColor());
}
void kwPropertyControl::setFieldNameBackgroundColor(const QColor &color)
{
    setFieldNameBackColor(kwPropertyControlPrivate::oleColorOr(
        color, kwPropertyControlPrivate::DefaultFieldNameBackColor));
}
void kwPropertyControl::resetFieldNameBackgroundColor()
{
    setFieldNameBackColor(kwPropertyControlPrivate::DefaultFieldNameBackColor);
}
QColor kwPropertyControl::fieldNameForegroundColor() const
{
    return d_func()->screenColor(FieldNameForeColor());
}
void kwPropertyControl::setFieldNameForegroundColor(const QColor &color)
{
    setFieldNameForeColor(kwPropertyControlPrivate::oleColorOr(
        color, kwPropertyControlPrivate::DefaultFieldNameForeColor));
}
void kwPropertyControl::resetFieldNameForegroundColor()
{
    setFieldNameForeColor(kwPropertyControlPrivate::DefaultFieldNameForeColor);
}

// The rows resolve a system colour in the application's palette, not in one a form may set on
// the grid (see Control::applyColors); reading it the same way gives the colour on screen.
QColor kwPropertyControlPrivate::screenColor(OleColor color) const
{
    return toQColor(color, QApplication::palette(q_ptr));
}

// An OleColor has no alpha and no "unset"; an invalid colour stands for the default.
OleColor kwPropertyControlPrivate::oleColorOr(const QColor &color, OleColor fallback)
{
    return color.isValid() ? fromQColor(color) : fallback;
}

} // namespace kwFieldDeck
