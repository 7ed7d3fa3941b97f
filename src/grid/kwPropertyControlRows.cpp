// The rows on the canvas: a name cell placed below the last row when a field's type is set, the
// rows found by their place, the order that Tab and the arrow keys follow, and the row that is
// current.

#include "grid/kwPropertyControl_p.h"

#include "editors/FieldKind.h"
#include "fieldmodel/Field_p.h"
#include "fieldmodel/Fields_p.h"
#include "grid/GridView.h"
#include "runtime/Error.h"
#include "runtime/Twips.h"
#include "runtime/Values.h"

#include <QFocusEvent>

#include <algorithm>

namespace kwFieldDeck {

namespace {
// The date picker ends 30 twips short of the scroll bar where every other editor ends 40 short:
// intended.
constexpr float EditorMargin = 40;
constexpr float DatePickerMargin = 30;
} // namespace

// Hidden fields count too; the new field has no name cell yet and so is not the last one.
float kwPropertyControlPrivate::TopOfNewRow() const
{
    const KeyedCollection<Field> &fields = FieldsPrivate::get(m_Fields)->m_fields;
    for (int i = fields.count() - 1; i >= 0; --i) {
        const qsizetype at = FieldPrivate::get(fields.at(i))->m_row;
        if (at >= 0)
            return m_canvas.at(at).top + m_canvas.at(at).height - SharedBorder;
    }
    return 0;
}

void kwPropertyControlPrivate::AddField(Field *oField)
{
    trap("Function 'AddField' of User Control 'kwPropertyControl'", [&] {
        CanvasRow row;
        row.field = oField;
        row.top = TopOfNewRow();
        row.height = m_RowHeight;
        row.width = m_FieldNameWidth;
        row.editorLeft = row.width - EditorOverlap;
        row.editorHeight = m_RowHeight;
        const qint32 type = oField->FieldType();
        row.editorWidth = EditorWidth(type == ftDate ? DatePickerMargin : EditorMargin);
        FieldPrivate *field = FieldPrivate::get(oField);
        if (field->m_row >= 0)
            m_layoutStale = true;
        field->m_row = m_canvas.size();
        m_canvas.append(row);
        m_canvasHeight = std::max(m_canvasHeight, row.top + row.height);
        picOuter->updateRow(field->m_row);
        // The new row enters the scroll range only at the next full layout: intended.
        CalcSlider();
    });
}

qsizetype kwPropertyControlPrivate::rowOf(const Field *field) const
{
    return field ? FieldPrivate::get(field)->m_row : -1;
}

// The rows in the order they are painted: those of the last full layout, then those added
// since; both run down the canvas.
namespace {
struct PaintOrder
{
    const QVector<qsizetype> &laid;
    qsizetype addedFrom;
    qsizetype canvasSize;

    qsizetype size() const { return laid.size() + std::max<qsizetype>(0, canvasSize - addedFrom); }
    qsizetype at(qsizetype i) const
    {
        return i < laid.size() ? laid.at(i) : addedFrom + (i - laid.size());
    }
};
} // namespace

QVector<qsizetype> kwPropertyControlPrivate::rowsBetween(float top, float bottom) const
{
    const PaintOrder order { m_laidRows, m_laidUpTo, m_canvas.size() };
    QVector<qsizetype> rows;
    // Each of the two runs is searched by halving for its first row that reaches below top.
    auto collect = [&](qsizetype begin, qsizetype end) {
        qsizetype low = begin, high = end;
        while (low < high) {
            const qsizetype mid = (low + high) / 2;
            const CanvasRow &row = m_canvas.at(order.at(mid));
            if (row.top + row.height <= top)
                low = mid + 1;
            else
                high = mid;
        }
        for (qsizetype i = low; i < end; ++i) {
            const CanvasRow &row = m_canvas.at(order.at(i));
            if (row.top > bottom)
                break;
            rows.append(order.at(i));
        }
    };
    collect(0, m_laidRows.size());
    collect(m_laidRows.size(), order.size());
    return rows;
}

qsizetype kwPropertyControlPrivate::rowAt(float canvasY) const
{
    qsizetype found = -1;
    for (qsizetype row : rowsBetween(canvasY, canvasY)) {
        const CanvasRow &cell = m_canvas.at(row);
        if (cell.field->Visible() && cell.top <= canvasY && canvasY < cell.top + cell.height)
            found = row;
    }
    return found;
}

namespace {
// A row that Tab and the arrow keys come to: shown, the field's own, with an editor that takes
// the focus.
bool isReachable(const CanvasRow &cell, qsizetype at)
{
    const FieldPrivate *field = FieldPrivate::get(cell.field);
    const FieldKind *kind = field->editorKind();
    return cell.field->Visible() && field->m_row == at && kind
        && (!kind->appliesEnabled() || field->m_editor.enabled);
}
} // namespace

Field *kwPropertyControlPrivate::neighbourRow(Field *from, int steps) const
{
    const PaintOrder order { m_laidRows, m_laidUpTo, m_canvas.size() };
    const qsizetype at = rowOf(from);
    qsizetype position = -1;
    for (qsizetype i = 0; i < order.size() && position < 0; ++i) {
        if (order.at(i) == at)
            position = i;
    }
    if (position < 0)
        return nullptr;
    const int direction = steps < 0 ? -1 : 1;
    Field *reached = nullptr;
    for (qsizetype i = position + direction; i >= 0 && i < order.size() && steps != 0;
         i += direction) {
        const qsizetype row = order.at(i);
        if (!isReachable(m_canvas.at(row), row))
            continue;
        reached = m_canvas.at(row).field;
        steps -= direction;
    }
    return reached;
}

Field *kwPropertyControlPrivate::firstOrLastRow(bool last) const
{
    const PaintOrder order { m_laidRows, m_laidUpTo, m_canvas.size() };
    for (qsizetype n = 0; n < order.size(); ++n) {
        const qsizetype row = order.at(last ? order.size() - 1 - n : n);
        if (isReachable(m_canvas.at(row), row))
            return m_canvas.at(row).field;
    }
    return nullptr;
}

int kwPropertyControlPrivate::rowsPerPage() const
{
    return std::max(1, int(viewportHeight() / pitch()));
}

void kwPropertyControlPrivate::rowChanged(Field *oField)
{
    const qsizetype at = rowOf(oField);
    if (at >= 0)
        picOuter->updateRow(at);
    m_rowEditor.refresh(oField);
}

void kwPropertyControlPrivate::rowShownOrHidden(Field *oField)
{
    m_layoutStale = true;
    if (m_rowEditor.row() == oField && !oField->Visible())
        m_rowEditor.release();
    picOuter->update();
}

void kwPropertyControlPrivate::FocusRowEditor(Field *oField)
{
    m_rowEditor.focus(oField);
}

// A row the focus comes to is scrolled into view row by row, down or up.
void kwPropertyControlPrivate::ScrollIntoView(Field *oField)
{
    const qsizetype at = rowOf(oField);
    if (at < 0)
        return;
    const CanvasRow &row = m_canvas.at(at);
    while (m_canvasTop + row.top + row.height > viewportHeight())
        setFirstRow(roundToInt16(double(m_FirstRow) + 1));
    while (m_canvasTop + row.top < 0)
        setFirstRow(roundToInt16(double(m_FirstRow) - 1));
}

void kwPropertyControlPrivate::setHighlighted(Field *oField)
{
    if (m_highlighted == oField)
        return;
    if (const qsizetype before = rowOf(m_highlighted); before >= 0)
        picOuter->updateRow(before);
    m_highlighted = oField;
    if (const qsizetype now = rowOf(oField); now >= 0)
        picOuter->updateRow(now);
}

QPalette kwPropertyControlPrivate::canvasPalette() const
{
    QPalette palette = q_ptr->palette();
    const QColor canvas = screenColor(m_BackColor);
    for (QPalette::ColorGroup group :
        { QPalette::Active, QPalette::Inactive, QPalette::Disabled }) {
        for (QPalette::ColorRole role : { QPalette::Base, QPalette::Window, QPalette::Button })
            palette.setColor(group, role, canvas);
    }
    return palette;
}

void kwPropertyControlPrivate::applyColors()
{
    QPalette palette = q_ptr->palette();
    palette.setColor(QPalette::Window, screenColor(m_BackColor));
    picOuter->setPalette(palette);
    if (Field *row = m_rowEditor.row())
        m_rowEditor.refresh(row);
    picOuter->update();
}

// The grid's resize lays the rows out again, and its paint lets a pending layout run; so does
// the viewport's paint, once the painting is done. Tab and Shift+Tab from outside enter the first
// or the last row; the grid itself keeps a focus that a click on no row or a row's change of editor
// gave it.
bool kwPropertyControlPrivate::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == q_ptr && event->type() == QEvent::Resize)
        UserControl_Resize();
    else if (watched == q_ptr && event->type() == QEvent::Paint)
        UserControl_Paint();
    else if (event->type() == QEvent::Paint && !m_paintPending) {
        m_paintPending = true;
        QMetaObject::invokeMethod(
            this,
            [this] {
                m_paintPending = false;
                UserControl_Paint();
            },
            Qt::QueuedConnection);
    }
    if (watched == q_ptr && event->type() == QEvent::FocusIn) {
        const Qt::FocusReason reason = static_cast<QFocusEvent *>(event)->reason();
        const bool backwards = reason == Qt::BacktabFocusReason;
        // The window's first focus, or the host's setFocus(), enters the current or first row.
        const bool entering = reason == Qt::TabFocusReason || backwards
            || ((reason == Qt::ActiveWindowFocusReason || reason == Qt::OtherFocusReason)
                && !m_rowEditor.movingFocus());
        Field *row = m_rowEditor.row();
        if (entering && (backwards || reason == Qt::TabFocusReason || !row))
            row = firstOrLastRow(backwards);
        if (entering && row)
            m_rowEditor.enter(row, backwards);
    }
    return false;
}

bool kwPropertyControlPrivate::focusNextPrevChild(bool next)
{
    if (!q_ptr->hasFocus())
        return false;
    Field *row = m_rowEditor.row();
    if (!row)
        row = firstOrLastRow(!next);
    if (!row)
        return false;
    m_rowEditor.enter(row, !next);
    return true;
}

} // namespace kwFieldDeck
