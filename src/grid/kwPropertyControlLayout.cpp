// Row layout and scrolling: rows are stacked on the canvas picInner with a pitch of the row
// height less 15, so that adjacent rows share one border line; scrolling moves the canvas.

#include "grid/kwPropertyControl_p.h"

#include "fieldmodel/Field_p.h"
#include "fieldmodel/Fields_p.h"
#include "platform/Error.h"
#include "platform/PictureBox.h"
#include "platform/Services.h"
#include "platform/TextBox.h"
#include "platform/VScrollBar.h"
#include "platform/Values.h"

namespace kwFieldDeck {

namespace {
// Adjacent rows overlap by one border line of 15 twips.
constexpr float SharedBorder = 15;
// Editors start 25 twips inside the name column and end 40 short of the scroll bar.
constexpr float EditorOverlap = 25;
constexpr float EditorMargin = 40;
// The viewport's frame, which the scroll bar also leaves out.
constexpr float ViewportFrame = 60;
} // namespace

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
        picInner->setHeight(0);
        m_VisibleRowCount = 0;
        m_RowOrder.clear();
        m_RowOrderSorted = true;
        float top = 0;
        // By index: host events run between rows and may change the collection.
        for (int i = 0; i < m_Fields->Count(); ++i) {
            Field *field = FieldsPrivate::get(m_Fields)->m_fields.at(i);
            if (!field->Visible())
                continue;
            TextBox *label = FieldPrivate::get(field)->FieldNameControl();
            if (!label)
                continue;
            label->setTop(top);
            label->setHeight(m_RowHeight);
            label->setWidth(m_FieldNameWidth);
            if (Control *editor = FieldPrivate::get(field)->EditorControl())
                editor->Move(label->Left() + label->Width() - EditorOverlap, label->Top(),
                    std::max(0.0f, EditorWidth(EditorMargin)));
            top += label->Height() - SharedBorder;
            picInner->setHeight(top);
            ++m_VisibleRowCount;
            m_RowOrder.append(field);
            DoEvents();
        }
        CalcSlider();
        m_TabChainStale = true;
        ShowRowsInView();
        m_Busy = false;
    });
}

float kwPropertyControlPrivate::EditorWidth(float margin) const
{
    return picOuter->Width() - (VScroll1->Width() + m_FieldNameWidth) - margin;
}

QSize kwPropertyControlPrivate::SizeForRows(int rows, float valueWidth) const
{
    const float width = m_FieldNameWidth + valueWidth + VScroll1->Width() + ViewportFrame;
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
        const float viewport = picOuter->Height();
        if (m_RowHeight == 0)
            kwFieldDeck::raise(ErrDivisionByZero);
        // Divided by the row height, not the pitch: intended.
        const qint32 max = roundToInt32(double(m_VisibleRowCount) - viewport / m_RowHeight + 1);
        if (max > 0) {
            VScroll1->setMin(0);
            VScroll1->setMax(roundToInt16(max));
            if (VScroll1->Value() > max)
                VScroll1->setValue(max);
            VScroll1->setEnabled(true);
        } else {
            VScroll1->setEnabled(false);
        }
    });
}

void kwPropertyControlPrivate::VScroll1_Change()
{
    trap("Sub 'VScroll1_Change' of User Control 'kwPropertyControl'", [&] {
        picInner->setTop(-(m_RowHeight - SharedBorder) * VScroll1->Value());
        ShowRowsInView();
        m_FirstRow = roundToInt16(VScroll1->Value());
    });
}

void kwPropertyControlPrivate::VScroll1_Scroll()
{
    trap("Sub 'VScroll1_Scroll' of User Control 'kwPropertyControl'", [&] {
        // FirstRow follows only when the drag ends (VScroll1_Change): intended.
        picInner->setTop(-(m_RowHeight - SharedBorder) * VScroll1->Value());
        ShowRowsInView();
    });
}

void kwPropertyControlPrivate::setFirstRow(qint16 row)
{
    trap("Property 'FirstRow' of User Control 'kwPropertyControl'", [&] {
        // No range check and the scroll bar stays where it is: intended.
        m_FirstRow = row;
        picInner->setTop(-(m_RowHeight - SharedBorder) * row);
        ShowRowsInView();
    });
}

void kwPropertyControlPrivate::setFieldNameWidth(float width)
{
    trap("Property 'FieldNameWidth' of User Control 'kwPropertyControl'", [&] {
        // A name column that leaves no room for the scroll bar is ignored silently.
        if (VScroll1->Width() + width > extenderWidth())
            return;
        m_FieldNameWidth = width;
        propertyChanged(QStringLiteral("FieldNameWidth"));
        q_ptr->updateGeometry();
        Refresh(true);
    });
}

void kwPropertyControlPrivate::setRowHeight(float height)
{
    trap("Property 'RowHeight' of User Control 'kwPropertyControl'", [&] {
        // Takes effect at the next full layout; existing editors keep their heights.
        m_RowHeight = height;
        propertyChanged(QStringLiteral("RowHeight"));
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
        Refresh(true);
    });
}

void kwPropertyControlPrivate::UserControl_Resize()
{
    trap("Sub 'UserControl_Resize' of User Control 'kwPropertyControl'", [&] {
        picOuter->setWidth(extenderWidth());
        picOuter->setHeight(extenderHeight());
        picInner->setWidth(picOuter->Width() - VScroll1->Width());
        VScroll1->setHeight(std::max(0.0f, picOuter->Height() - 60));
        VScroll1->Move(picOuter->ScaleWidth() - VScroll1->Width(), 0);
        Refresh(true);
    });
}

void kwPropertyControlPrivate::UserControl_Paint()
{
    trap("Sub 'UserControl_Paint' of User Control 'kwPropertyControl'", [&] {
        Refresh(false);
        // Containers here always measure in twips, so the repaint puts the scale back to it.
        setSurfaceScaleMode(1);
    });
}

} // namespace kwFieldDeck
