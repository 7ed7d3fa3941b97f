#pragma once

#include <QDate>
#include <QFont>
#include <QPalette>
#include <QRect>
#include <QString>

class QPainter;
class QWidget;

namespace kwFieldDeck {

// Paints the parts of an idle row as the live widgets of the same kinds look, with the style of
// the widget the row is painted on.
namespace RowPainter {

enum class Frame { Flat, Styled };

// The surface of an editor made of parts, opaque in the canvas colour.
void surface(QPainter *painter, const QRect &rect, const QPalette &palette);

// A single-line box: a flat one (a line in the mid colour) or one in the style's frame.
void lineEdit(QPainter *painter, const QWidget *widget, const QRect &rect, const QString &text,
    const QPalette &palette, const QFont &font, bool enabled, Frame frame);
// A push button with a caption.
void button(QPainter *painter, const QWidget *widget, const QRect &rect, const QString &caption,
    const QPalette &palette, const QFont &font, bool enabled);
// A closed drop-down box showing a text: a list, or a box whose text can be edited.
enum class Combo { List, Editable };
void comboBox(QPainter *painter, const QWidget *widget, const QRect &rect, const QString &text,
    const QPalette &palette, const QFont &font, bool enabled, Combo combo = Combo::List);

// The heights the live widgets ask for in a font, measured once per font.
int lineEditHeight(const QFont &font);
int comboBoxHeight(const QFont &font);
// How a date box shows a date.
QString dateText(const QDate &date);

} // namespace RowPainter

} // namespace kwFieldDeck
