// Row layout and scrolling: a row's place on the canvas is its index among the laid-out rows
// times the pitch, the row height less 15, so that adjacent rows share one border line.
// Scrolling moves the canvas; the rows are painted where it puts them.

#include "grid/kwPropertyControl_p.h"

#include "fieldmodel/Field_p.h"
#include "fieldmodel/Fields_p.h"
#include "grid/GridView.h"
#include "runtime/Error.h"
#include "runtime/Twips.h"
#include "runtime/Values.h"

#include <QScrollBar>

namespace kwFieldDeck {

namespace {
// Editors end 40 twips short of the scroll bar.
constexpr float EditorMargin = 40;
// The viewport's frame, which the scroll bar also leaves out.
constexpr float ViewportFrame = 60;
// The scroll bar's width, in twips.
constexpr float ScrollBarWidth = 255;
} // namespace

float kwPropertyControlPrivate::outerWidth() const
{
    return float(q_ptr->width() * twipsPerPixelX());
}

float kwPropertyControlPrivate::outerHeight() const
{
    return float(q_ptr->height() * twipsPerPixelY());
}

// The viewport's size as the container sees it, taken when the grid is resized: every row's
// creation asks for it.
float kwPropertyControlPrivate::viewportWidth() const
{
    if (m_viewportSize.isEmpty())
        return outerWidth();
    return float(m_viewportSize.width());
}

float kwPropertyControlPrivate::viewportHeight() const
{
    if (m_viewportSize.isEmpty())
        return outerHeight();
    return float(m_viewportSize.height());
}

float kwPropertyControlPrivate::EditorWidth(float margin) const
{
    return viewportWidth() - (ScrollBarWidth + m_FieldNameWidth) - margin;
}

void kwPropertyControlPrivate::layRow(CanvasRow &row, float top)
{
    // A name cell cannot be given a negative height.
    if (m_RowHeight < 0)
        raise(380, QStringLiteral("Invalid property value"));
    row.top = top;
    row.height = m_RowHeight;
    row.width = m_FieldNameWidth;
    row.editorLeft = row.width - EditorOverlap;
    // The same margin for every editor here, the date picker's too, made with 30: intended.
    row.editorWidth = std::max(0.0f, EditorWidth(EditorMargin));
}

void kwPropertyControlPrivate::Refresh(bool Redraw)
{
    trap("Sub 'Refresh' of User Control 'kwPropertyControl'", [&] {
        CalcSlider();
        if (!Redraw) {
            m_Busy = false;
            return;
        }
        if (m_Busy)
            return;
        m_Busy = true;
        const KeyedCollection<Field> &fields = FieldsPrivate::get(m_Fields)->m_fields;
        // Unless a row was shown, hidden, removed or resized since, only the fields added after
        // the last layout are placed, below the rows it placed.
        if (m_layoutStale || fields.count() < m_laidFieldCount) {
            m_laidRows.clear();
            m_laidFieldCount = 0;
            m_laidBottom = 0;
        }
        float top = m_laidBottom;
        for (int i = m_laidFieldCount; i < fields.count(); ++i) {
            Field *field = fields.at(i);
            const qsizetype at = FieldPrivate::get(field)->m_row;
            if (!field->Visible() || at < 0)
                continue;
            CanvasRow &row = m_canvas[at];
            layRow(row, top);
            top += row.height - SharedBorder;
            m_laidRows.append(at);
        }
        m_laidFieldCount = fields.count();
        m_laidUpTo = m_canvas.size();
        m_layoutStale = false;
        m_laidBottom = top;
        m_canvasHeight = top;
        m_VisibleRowCount = qint32(m_laidRows.size());
        CalcSlider();
        // A live editor whose row the layout left out (a refused field's) goes with it.
        if (Field *live = m_rowEditor.row(); live
            && !rowsBetween(m_canvas.at(rowOf(live)).top, m_canvas.at(rowOf(live)).top)
                    .contains(rowOf(live)))
            m_rowEditor.release();
        m_rowEditor.place();
        picOuter->update();
        m_Busy = false;
    });
}

QSize kwPropertyControlPrivate::SizeForRows(int rows, float valueWidth) const
{
    const float width = m_FieldNameWidth + valueWidth + ScrollBarWidth + ViewportFrame;
    const float height = rows * (m_RowHeight - SharedBorder) + SharedBorder + ViewportFrame;
    return QSize(twipsToPixelsX(width), twipsToPixelsY(height));
}

QSize kwPropertyControlPrivate::sizeHint() const
{
    return SizeForRows(8, 3000);
}

QSize kwPropertyControlPrivate::minimumSizeHint() const
{
    return SizeForRows(3, 1500);
}

void kwPropertyControlPrivate::CalcSlider()
{
    trap("Sub 'CalcSlider' of User Control 'kwPropertyControl'", [&] {
        const float viewport = viewportHeight();
        if (m_RowHeight == 0)
            kwFieldDeck::raise(ErrDivisionByZero);
        // Divided by the row height, not the pitch: intended.
        const qint32 max = roundToInt32(double(m_VisibleRowCount) - viewport / m_RowHeight + 1);
        if (max > 0) {
            const qint16 max16 = roundToInt16(max);
            VScroll1->setMinimum(0);
            // A value above the new maximum comes down to it, which scrolls.
            VScroll1->setMaximum(max16);
            VScroll1->setEnabled(true);
        } else {
            VScroll1->setEnabled(false);
        }
    });
}

void kwPropertyControlPrivate::moveCanvas(float top)
{
    if (top == m_canvasTop)
        return;
    m_canvasTop = top;
    m_rowEditor.place();
    picOuter->update();
}

void kwPropertyControlPrivate::VScroll1_Change()
{
    trap("Sub 'VScroll1_Change' of User Control 'kwPropertyControl'", [&] {
        moveCanvas(-(m_RowHeight - SharedBorder) * VScroll1->value());
        m_FirstRow = roundToInt16(VScroll1->value());
    });
}

void kwPropertyControlPrivate::VScroll1_Scroll()
{
    trap("Sub 'VScroll1_Scroll' of User Control 'kwPropertyControl'", [&] {
        // FirstRow follows only when the drag ends (VScroll1_Change): intended.
        moveCanvas(-(m_RowHeight - SharedBorder) * VScroll1->sliderPosition());
    });
}

void kwPropertyControlPrivate::setFirstRow(qint16 row)
{
    trap("Property 'FirstRow' of User Control 'kwPropertyControl'", [&] {
        // No range check and the scroll bar stays where it is: intended.
        m_FirstRow = row;
        moveCanvas(-(m_RowHeight - SharedBorder) * row);
    });
}

void kwPropertyControlPrivate::setFieldNameWidth(float width)
{
    trap("Property 'FieldNameWidth' of User Control 'kwPropertyControl'", [&] {
        // A name column that leaves no room for the scroll bar is ignored silently.
        if (ScrollBarWidth + width > outerWidth())
            return;
        m_FieldNameWidth = width;
        q_ptr->updateGeometry();
        m_layoutStale = true;
        Refresh(true);
    });
}

void kwPropertyControlPrivate::setRowHeight(float height)
{
    trap("Property 'RowHeight' of User Control 'kwPropertyControl'", [&] {
        // Takes effect at the next full layout; existing editors keep their heights.
        m_RowHeight = height;
        m_layoutStale = true;
    });
}

void kwPropertyControlPrivate::AutoSizeFieldNameWidths()
{
    trap("Sub 'AutoSizeFieldNameWidths' of User Control 'kwPropertyControl'", [&] {
        // Set directly, without the setter's check and without marking it changed.
        m_FieldNameWidth = 0;
        for (Field *field : *m_Fields) {
            const float width = float(textWidthTwips(m_Font, field->Name()) * 1.2);
            if (width > m_FieldNameWidth)
                m_FieldNameWidth = width;
        }
        q_ptr->updateGeometry();
        m_layoutStale = true;
        Refresh(true);
    });
}

void kwPropertyControlPrivate::UserControl_Resize()
{
    trap("Sub 'UserControl_Resize' of User Control 'kwPropertyControl'", [&] {
        m_viewportSize = QSizeF(outerWidth(), outerHeight());
        picOuter->setGeometry(q_ptr->rect());
        // At the right end of the viewport's inner width, from its top.
        const int barWidth = twipsToPixelsX(ScrollBarWidth);
        VScroll1->setGeometry(picOuter->contentsRect().width() - barWidth, 0, barWidth,
            std::max(0, twipsToPixelsY(std::max(0.0f, viewportHeight() - ViewportFrame))));
        m_layoutStale = true;
        Refresh(true);
    });
}

void kwPropertyControlPrivate::UserControl_Paint()
{
    trap("Sub 'UserControl_Paint' of User Control 'kwPropertyControl'", [&] {
        Refresh(false);
        // Containers here always measure in twips, so the repaint puts the scale back to it.
        m_ScaleMode = 1;
    });
}

} // namespace kwFieldDeck
