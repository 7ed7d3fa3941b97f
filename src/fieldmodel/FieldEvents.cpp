// The field's side of its row's events: the change chain that keeps the value current and tells
// the grid, and the row-focus routine that makes the row current.

#include "fieldmodel/Field_p.h"

#include "editors/FieldKind.h"
#include "fieldmodel/Fields_p.h"
#include "runtime/Error.h"

namespace kwFieldDeck {

// Only lets go of the editor: the row stays on the grid as it was.
void FieldPrivate::Kill()
{
    trap("Sub 'Kill' of Class Module 'Field'", [&] { m_hasEditor = false; });
}

void FieldPrivate::ChangeChain(const QVariant &value)
{
    m_Value = value;
    emit q_ptr->Changed(m_Value);
    Grid()->RaiseChangedEvent(q_ptr);
}

void FieldPrivate::takeEditorChange(QWidget *editor)
{
    const FieldKind *kind = editorKind();
    if (!kind)
        return;
    trap(kind->sources.change, [&] {
        kind->GetValueFromControl(editor, m_editor);
        ChangeChain(kind->reportedValue(m_editor));
    });
}

void FieldPrivate::m_FieldNameControl_GotFocus()
{
    FieldHost *grid = Grid();
    if (!m_hasNameCell)
        raise(ErrObjectRequired);
    grid->ScrollIntoView(q_ptr);
    FieldsPrivate::get(require(m_ParentClass))->ClearSelectedRows();
    grid->setHighlighted(q_ptr);
    if (editorKind())
        grid->FocusRowEditor(q_ptr);
    grid->ShowDescription(m_Description);
}

} // namespace kwFieldDeck
