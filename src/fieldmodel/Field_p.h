#pragma once

#include <kwFieldDeck/Field.h>

#include "editors/EditorState.h"
#include "editors/FieldKind.h"
#include "fieldmodel/FieldHost.h"
#include "runtime/Colors.h"

namespace kwFieldDeck {

class Fields;

// What a row is: the field's properties and the state of its editor, as plain data. The grid
// paints the row from it, and the row with the focus has a live editor that shows it.
class FieldPrivate
{
public:
    Q_DECLARE_PUBLIC(Field)

    explicit FieldPrivate(Field *field);

    static FieldPrivate *get(Field *field) { return field->d_func(); }
    static const FieldPrivate *get(const Field *field) { return field->d_func(); }

    void setParentClass(Fields *fields) { m_ParentClass = fields; }

    // The type whose editor the row has (the first one set; an editor made for an earlier type
    // stays), or null before the type is set and after Kill.
    const FieldKind *editorKind() const { return m_hasEditor ? m_editorKind : nullptr; }
    // The type whose editor the row shows, whether or not the field still holds it.
    const FieldKind *shownKind() const { return m_editorKind; }
    void Kill();

    // The properties behind the public accessors.
    QVariant Value() const;
    kwFieldDeck::DropDownValues *DropDownValues() const;
    void setColor(const char *source, OleColor FieldPrivate::*stored, OleColor EditorState::*shown,
        OleColor color);
    QString pathSetting(const char *source, QString EditorState::*setting) const;
    void setPathSetting(const char *source, QString EditorState::*setting, const QString &text);
    // The editor's combo entries grow by one; the selection stays.
    void addComboEntry(const QString &text, qint32 itemData);
    void setUseItemData(bool use);

    // The live editor reports a change the user made: the value follows the editor, the field
    // raises Changed and the grid raises its Changed.
    void ChangeChain(const QVariant &value);
    // The live editor reports an edit: the editor's state is taken from it, then the chain runs.
    void takeEditorChange(QWidget *editor);
    // The row-focus routine: the row comes into view, its name cell alone is highlighted, the
    // focus goes into its editor and its description is shown.
    void m_FieldNameControl_GotFocus();

    QString m_Name;
    QString m_Description;
    qint32 m_Size = 0;
    qint32 m_FieldType = 0;
    QVariant m_Value;
    QVariant m_Min;
    QVariant m_Max;
    OleColor m_BackColor = 0xFFFFFF;
    OleColor m_ForeColor = 0;
    bool m_Visible = true;
    bool m_Enabled = true;
    EditorState m_editor;
    // The grid's row that is the field's name cell, or -1 before the type is set.
    qsizetype m_row = -1;

private:
    FieldHost *Grid() const;
    const FieldKind &kind() const;
    void createEditor(const FieldKind *kind);
    // Runs the change chain once for each change the editor reported while it took a value
    // from the host, after the editor shows it.
    void reportChanges(const Changes &changes);
    // The row is painted again, and its live editor shows its state.
    void showChanges();

    Field *q_ptr;
    mutable kwFieldDeck::DropDownValues *m_DropDownValues = nullptr;
    Fields *m_ParentClass = nullptr;
    const FieldKind *m_editorKind = nullptr;
    bool m_hasNameCell = false;
    bool m_hasEditor = false;
};

} // namespace kwFieldDeck
