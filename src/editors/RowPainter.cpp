#include "editors/RowPainter.h"

#include <QComboBox>
#include <QDate>
#include <QDateEdit>
#include <QHash>
#include <QLineEdit>
#include <QLocale>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>
#include <QWidget>

namespace kwFieldDeck::RowPainter {

namespace {
// QLineEdit keeps its text this far from the inner edges of its frame.
constexpr int TextMarginX = 2;

QPalette::ColorGroup groupOf(bool enabled)
{
    return enabled ? QPalette::Active : QPalette::Disabled;
}

// The height a widget of a kind asks for in a font, measured on a widget made for it once per
// font.
template <typename Widget>
int askedHeight(const QFont &font)
{
    static QHash<QString, int> heights;
    const QString key = font.key();
    auto found = heights.constFind(key);
    if (found == heights.constEnd()) {
        Widget measure;
        measure.setFont(font);
        found = heights.insert(key, measure.sizeHint().height());
    }
    return *found;
}
// A style option for a part at rect, in the palette's enabled or disabled colours.
template <typename Option>
Option optionFor(const QWidget *widget, const QRect &rect, const QPalette &palette, bool enabled)
{
    Option option;
    option.initFrom(widget);
    option.rect = rect;
    option.palette = palette;
    option.palette.setCurrentColorGroup(groupOf(enabled));
    option.state = enabled ? QStyle::State_Enabled : QStyle::State_None;
    return option;
}
} // namespace

void surface(QPainter *painter, const QRect &rect, const QPalette &palette)
{
    painter->fillRect(rect, palette.color(QPalette::Active, QPalette::Window));
}

void lineEdit(QPainter *painter, const QWidget *widget, const QRect &rect, const QString &text,
    const QPalette &palette, const QFont &font, bool enabled, Frame frame)
{
    QStyle *style = widget->style();
    auto panel = optionFor<QStyleOptionFrame>(widget, rect, palette, enabled);
    panel.state |= QStyle::State_Sunken;
    panel.lineWidth = frame == Frame::Styled ? style->pixelMetric(QStyle::PM_DefaultFrameWidth) : 0;
    panel.midLineWidth = 0;
    style->drawPrimitive(QStyle::PE_PanelLineEdit, &panel, painter, widget);

    QRect textRect = style->subElementRect(QStyle::SE_LineEditContents, &panel, widget);
    if (frame == Frame::Flat)
        textRect.adjust(3, 0, -2, 0);
    textRect.adjust(TextMarginX, 1, -TextMarginX, -1);
    painter->save();
    painter->setFont(font);
    painter->setPen(palette.color(groupOf(enabled), QPalette::Text));
    painter->setClipRect(textRect.intersected(rect));
    painter->drawText(textRect, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, text);
    painter->restore();
    if (frame == Frame::Flat) {
        painter->save();
        painter->setPen(palette.color(groupOf(enabled), QPalette::Mid));
        painter->drawRect(rect.adjusted(0, 0, -1, -1));
        painter->restore();
    }
}

void button(QPainter *painter, const QWidget *widget, const QRect &rect, const QString &caption,
    const QPalette &palette, const QFont &font, bool enabled)
{
    auto option = optionFor<QStyleOptionButton>(widget, rect, palette, enabled);
    option.state |= QStyle::State_Raised;
    option.text = caption;
    option.fontMetrics = QFontMetrics(font);
    painter->save();
    painter->setFont(font);
    widget->style()->drawControl(QStyle::CE_PushButton, &option, painter, widget);
    painter->restore();
}

void comboBox(QPainter *painter, const QWidget *widget, const QRect &rect, const QString &text,
    const QPalette &palette, const QFont &font, bool enabled, Combo combo)
{
    QStyle *style = widget->style();
    auto option = optionFor<QStyleOptionComboBox>(widget, rect, palette, enabled);
    option.editable = combo == Combo::Editable;
    option.frame = true;
    option.currentText = text;
    option.subControls = QStyle::SC_All;
    option.fontMetrics = QFontMetrics(font);
    painter->save();
    painter->setFont(font);
    painter->setPen(option.palette.color(QPalette::ButtonText));
    style->drawComplexControl(QStyle::CC_ComboBox, &option, painter, widget);
    if (combo == Combo::List) {
        style->drawControl(QStyle::CE_ComboBoxLabel, &option, painter, widget);
    } else {
        // An editable box's text is its line edit's, inside the edit field.
        const QRect field = style->subControlRect(
            QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, widget);
        painter->setPen(option.palette.color(QPalette::Text));
        painter->drawText(field.adjusted(TextMarginX, 0, -TextMarginX, 0),
            Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, text);
    }
    painter->restore();
}

int lineEditHeight(const QFont &font)
{
    return askedHeight<QLineEdit>(font);
}

int comboBoxHeight(const QFont &font)
{
    return askedHeight<QComboBox>(font);
}

QString dateText(const QDate &date)
{
    static const QString format = QDateEdit().displayFormat();
    return QLocale().toString(date, format);
}

} // namespace kwFieldDeck::RowPainter
