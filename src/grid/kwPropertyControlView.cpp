// Rows in view: a row is data until it comes within reach of the viewport (the view and a page on
// either side); then its name cell and editor are realized as widgets, taken from the canvas's
// pools, and released again when it leaves. The row with the focus stays realized. Tab, Up and
// Down move the focus through the realized rows, which are kept in row order in the focus chain,
// and the row beyond the focused one is realized before the focus moves to it.

#include "grid/kwPropertyControl_p.h"

#include "fieldmodel/Field_p.h"
#include "platform/PictureBox.h"
#include "platform/TextBox.h"
#include "platform/Values.h"

#include <QSet>

#include <algorithm>

namespace kwFieldDeck {

namespace {
void setRowInView(Field *field, bool inView)
{
    if (TextBox *label = FieldPrivate::get(field)->FieldNameControl())
        label->setInView(inView);
    if (Control *editor = FieldPrivate::get(field)->EditorControl())
        editor->setInView(inView);
}

bool rowHasFocus(Field *field)
{
    const Control *editor = FieldPrivate::get(field)->EditorControl();
    const TextBox *label = FieldPrivate::get(field)->FieldNameControl();
    return (editor && editor->hasFocus()) || (label && label->hasFocus());
}
} // namespace

float kwPropertyControlPrivate::ViewReach() const
{
    return std::max(picOuter->Height(), 2 * m_RowHeight);
}

bool kwPropertyControlPrivate::IsNearView(const Control *label) const
{
    const float viewTop = -picInner->Top();
    const float reach = ViewReach();
    return label->Top() + label->Height() >= viewTop - reach
        && label->Top() <= viewTop + picOuter->Height() + reach;
}

// A row just created: realized when near the view, and kept in canvas order.
void kwPropertyControlPrivate::EnterRow(Field *oField, Control *editor)
{
    const TextBox *label = FieldPrivate::get(oField)->FieldNameControl();
    editor->setInView(IsNearView(label));
    if (!m_RowOrder.isEmpty() && m_RowOrder.last() == oField)
        return;
    if (!m_RowOrder.isEmpty()) {
        const TextBox *previous = FieldPrivate::get(m_RowOrder.last())->FieldNameControl();
        if (previous && previous->Top() > label->Top())
            m_RowOrderSorted = false;
    }
    m_RowOrder.append(oField);
    if (editor->inView()) {
        m_RowsShown.append(oField);
        m_TabChainStale = true;
    }
}

void kwPropertyControlPrivate::ShowRowsInView()
{
    auto begin = m_RowOrder.cbegin();
    if (m_RowOrderSorted) {
        // Rows above the reach of the view are passed over by halving, not one by one.
        const float from = -picInner->Top() - ViewReach();
        begin = std::partition_point(m_RowOrder.cbegin(), m_RowOrder.cend(), [from](Field *f) {
            const TextBox *label = FieldPrivate::get(f)->FieldNameControl();
            return !label || label->Top() + label->Height() < from;
        });
    }
    QVector<Field *> shown;
    for (auto it = begin; it != m_RowOrder.cend(); ++it) {
        const TextBox *label = FieldPrivate::get(*it)->FieldNameControl();
        if (!label)
            continue;
        if (IsNearView(label))
            shown.append(*it);
        else if (m_RowOrderSorted && label->Top() > -picInner->Top())
            break;
    }
    const QSet<Field *> stayShown(shown.cbegin(), shown.cend());
    QVector<Field *> keptForFocus;
    for (Field *field : std::as_const(m_RowsShown)) {
        if (stayShown.contains(field))
            continue;
        // The row with the focus stays, so scrolling away from it does not move the focus.
        if (rowHasFocus(field))
            keptForFocus.append(field);
        else
            setRowInView(field, false);
    }
    // Rows coming into view go just under the row after them, or on top when none follows, so
    // that each row lies over the one before it as when it was created.
    const QSet<Field *> wasShown(m_RowsShown.cbegin(), m_RowsShown.cend());
    const Control *nextRow = nullptr;
    for (auto it = shown.crbegin(); it != shown.crend(); ++it) {
        Field *field = *it;
        TextBox *label = FieldPrivate::get(field)->FieldNameControl();
        if (!wasShown.contains(field)) {
            setRowInView(field, true);
            stackRow(field, nextRow);
            m_TabChainStale = true;
        }
        nextRow = label;
    }
    m_RowsShown = shown + keptForFocus;
    ChainRows();
}

void kwPropertyControlPrivate::stackRow(Field *field, const Control *nextRow)
{
    TextBox *label = FieldPrivate::get(field)->FieldNameControl();
    Control *editor = FieldPrivate::get(field)->EditorControl();
    Control *top = editor ? editor : static_cast<Control *>(label);
    if (nextRow)
        top->stackUnder(nextRow);
    else if (QWidget *widget = top->realizedWidget())
        widget->raise();
    if (editor)
        label->stackUnder(editor);
}

// The realized rows' widgets follow each other in the focus chain in row order, whatever place
// the pool's widgets had in it.
void kwPropertyControlPrivate::ChainRows()
{
    if (!m_TabChainStale)
        return;
    m_TabChainStale = false;
    QVector<Field *> rows = m_RowsShown;
    std::sort(rows.begin(), rows.end(), [](Field *a, Field *b) {
        return FieldPrivate::get(a)->FieldNameControl()->Top()
            < FieldPrivate::get(b)->FieldNameControl()->Top();
    });
    QWidget *previous = nullptr;
    for (Field *field : std::as_const(rows)) {
        QVector<QWidget *> widgets = FieldPrivate::get(field)->FieldNameControl()->tabWidgets();
        if (const Control *editor = FieldPrivate::get(field)->EditorControl())
            widgets += editor->tabWidgets();
        for (QWidget *widget : std::as_const(widgets)) {
            if (previous)
                QWidget::setTabOrder(previous, widget);
            previous = widget;
        }
    }
}

// A row the focus comes to is scrolled into view row by row, down or up.
void kwPropertyControlPrivate::ScrollIntoView(const TextBox *label)
{
    while (picInner->Top() + label->Top() + label->Height() > picOuter->Height())
        setFirstRow(roundToInt16(double(m_FirstRow) + 1));
    while (picInner->Top() + label->Top() < 0)
        setFirstRow(roundToInt16(double(m_FirstRow) - 1));
}

// A row's place in canvas order: found by halving while the rows are in order of their tops.
qsizetype kwPropertyControlPrivate::RowIndex(Field *field) const
{
    if (!m_RowOrderSorted)
        return m_RowOrder.indexOf(field);
    const float top = FieldPrivate::get(field)->FieldNameControl()->Top();
    const auto found
        = std::partition_point(m_RowOrder.cbegin(), m_RowOrder.cend(), [top](Field *f) {
              const TextBox *label = FieldPrivate::get(f)->FieldNameControl();
              return !label || label->Top() < top;
          });
    for (auto it = found; it != m_RowOrder.cend(); ++it) {
        if (*it == field)
            return it - m_RowOrder.cbegin();
        const TextBox *label = FieldPrivate::get(*it)->FieldNameControl();
        if (label && label->Top() > top)
            break;
    }
    return m_RowOrder.indexOf(field);
}

// Tab, Shift+Tab, Up and Down from a row: the row the focus goes to is realized before it moves.
void kwPropertyControlPrivate::RealizeNextRow(bool next)
{
    for (Field *field : std::as_const(m_RowsShown)) {
        if (!rowHasFocus(field))
            continue;
        const qsizetype at = RowIndex(field);
        const qsizetype neighbour = at + (next ? 1 : -1);
        if (at >= 0 && neighbour >= 0 && neighbour < m_RowOrder.size()) {
            Field *row = m_RowOrder.at(neighbour);
            if (!m_RowsShown.contains(row) && FieldPrivate::get(row)->FieldNameControl()) {
                setRowInView(row, true);
                stackRow(row, nullptr);
                m_RowsShown.append(row);
                m_TabChainStale = true;
                ChainRows();
            }
        }
        break;
    }
}

} // namespace kwFieldDeck
