// Rows in view: only the rows within one viewport height of what the viewport shows are shown
// widgets on the canvas; the others wait out of view until scrolling brings them near. Qt's work
// for a container (finding the widget under the pointer, passing on update requests, painting)
// grows with its children, so a grid of many thousands of rows would otherwise slow every row's
// creation, update and paint. Visible, geometry and the tab order of the rows are unaffected,
// and the margin keeps the neighbouring rows shown so Tab, Up and Down still reach them.

#include "grid/kwPropertyControl.h"

#include "fieldmodel/Field.h"
#include "platform/PictureBox.h"
#include "platform/TextBox.h"

#include <QSet>

#include <algorithm>

namespace kwFieldDeck {

namespace {
void setRowInView(Field *field, bool inView)
{
    if (TextBox *label = field->FieldNameControl())
        label->setInView(inView);
    if (Control *editor = field->EditorControl())
        editor->setInView(inView);
}

bool rowHasFocus(Field *field)
{
    const Control *editor = field->EditorControl();
    const TextBox *label = field->FieldNameControl();
    return (editor && editor->hasFocus()) || (label && label->hasFocus());
}
} // namespace

bool kwPropertyControl::IsNearView(const Control *label) const
{
    const float viewTop = -picInner->Top();
    const float reach = picOuter->Height();
    return label->Top() + label->Height() >= viewTop - reach
        && label->Top() <= viewTop + picOuter->Height() + reach;
}

// A row just created: shown when near the view, and kept in canvas order.
void kwPropertyControl::EnterRow(Field *oField, Control *editor)
{
    const TextBox *label = oField->FieldNameControl();
    editor->setInView(IsNearView(label));
    if (!m_RowOrder.isEmpty() && m_RowOrder.last() == oField)
        return;
    if (!m_RowOrder.isEmpty()) {
        const TextBox *previous = m_RowOrder.last()->FieldNameControl();
        if (previous && previous->Top() > label->Top())
            m_RowOrderSorted = false;
    }
    m_RowOrder.append(oField);
    if (editor->inView())
        m_RowsShown.append(oField);
}

void kwPropertyControl::ShowRowsInView()
{
    auto begin = m_RowOrder.cbegin();
    if (m_RowOrderSorted) {
        // Rows above the reach of the view are passed over by halving, not one by one.
        const float from = -picInner->Top() - picOuter->Height();
        begin = std::partition_point(m_RowOrder.cbegin(), m_RowOrder.cend(), [from](Field *f) {
            const TextBox *label = f->FieldNameControl();
            return !label || label->Top() + label->Height() < from;
        });
    }
    QVector<Field *> shown;
    for (auto it = begin; it != m_RowOrder.cend(); ++it) {
        const TextBox *label = (*it)->FieldNameControl();
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
    // Rows coming into view go on top of the others; those above rows already shown are put
    // back under them, so that each row lies over the one before it as when it was created.
    const QSet<Field *> wasShown(m_RowsShown.cbegin(), m_RowsShown.cend());
    const Control *nextRow = nullptr;
    for (auto it = shown.crbegin(); it != shown.crend(); ++it) {
        Field *field = *it;
        TextBox *label = field->FieldNameControl();
        if (!wasShown.contains(field)) {
            setRowInView(field, true);
            if (nextRow) {
                Control *editor = field->EditorControl();
                (editor ? editor : static_cast<Control *>(label))->stackUnder(nextRow);
                if (editor)
                    label->stackUnder(editor);
            }
        }
        nextRow = label;
    }
    m_RowsShown = shown + keptForFocus;
}

} // namespace kwFieldDeck
