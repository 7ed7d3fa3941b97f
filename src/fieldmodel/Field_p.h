#pragma once

#include <kwFieldDeck/Field.h>

#include "fieldmodel/FieldHost.h"
#include "platform/Colors.h"

#include <QFont>
#include <QVariantList>

namespace kwFieldDeck {

class Control;
class Fields;

// What a field keeps: its properties, the two controls that show it (the name cell and the
// editor of its type) and the handlers of their events.
class FieldPrivate
{
public:
    Q_DECLARE_PUBLIC(Field)

    explicit FieldPrivate(Field *field);

    static FieldPrivate *get(Field *field) { return field->d_func(); }
    static const FieldPrivate *get(const Field *field) { return field->d_func(); }

    Fields *ParentClass() const { return m_ParentClass; }
    void setParentClass(Fields *fields) { m_ParentClass = fields; }
    TextBox *FieldNameControl() const { return m_FieldNameControl; }
    void setFieldNameControl(TextBox *label);
    void setFont(const QFont &font);
    QObject *EditField() const;
    void Kill();

    TextBox *ValueTextBox() const { return m_ValueTextBox; }
    void setValueTextBox(TextBox *editor);
    TextBox *ValueNumeric() const { return m_ValueNumeric; }
    void setValueNumeric(TextBox *editor);
    kwSimpleCheck *ValueCheckBox() const { return m_ValueCheckBox; }
    void setValueCheckBox(kwSimpleCheck *editor);
    kwComboField *ValueComboBox() const { return m_ValueComboBox; }
    void setValueComboBox(kwComboField *editor);
    DatePicker *ValueDate() const { return m_ValueDate; }
    void setValueDate(DatePicker *editor);
    kwSliderValue *ValueSlider() const { return m_ValueSlider; }
    void setValueSlider(kwSliderValue *editor);
    kwFileSelectorField *FileSelector() const { return m_FileSelector; }
    void setFileSelector(kwFileSelectorField *editor);
    kwFolderSelectorField *FolderSelector() const { return m_FolderSelector; }
    void setFolderSelector(kwFolderSelectorField *editor);
    kwMemoField *Memo() const { return m_Memo; }
    void setMemo(kwMemoField *editor);

    // The control that carries the editor of the field's type on the grid (for the library's
    // own editors, the control their container sees), or null.
    Control *EditorControl() const;

    // The properties behind the public accessors.
    void setName(const QString &name);
    void setDescription(const QString &description);
    void setSize(qint32 size);
    void setFieldType(qint32 type);
    QVariant Value() const;
    void setValue(const QVariant &value);
    void setMin(const QVariant &min);
    void setMax(const QVariant &max);
    void setEnabled(bool enabled);
    void setVisible(bool visible);
    void setForeColor(OleColor color);
    void setBackColor(OleColor color);
    QString InitDir() const;
    void setInitDir(const QString &dir);
    QString Title() const;
    void setTitle(const QString &title);
    QString Filter() const;
    void setFilter(const QString &filter);
    kwFieldDeck::DropDownValues *DropDownValues() const;
    void SetFocus();

    QString m_Name;
    QString m_Description;
    qint32 m_Size = 0;
    qint32 m_FieldType = 0;
    QVariant m_Value;
    QVariant m_Min;
    QVariant m_Max;
    bool m_Visible = true;
    bool m_Enabled = true;
    OleColor m_BackColor = 0xFFFFFF;
    OleColor m_ForeColor = 0;

private:
    FieldHost *Grid() const;
    void createEditor(FieldHost *grid);
    // The host's write: the editor shows the value, then the change chain runs for each change
    // the editor reported, as for the user's edits.
    void writeValue(const QVariant &value);
    void showValueInEditor();
    // The one map from the field's type to its editor reference (null for no type).
    QObject *editorObject() const;
    // Screen readers name the editor after the field and read its description.
    void describeEditorForAccessibility() const;
    template <typename Apply>
    void applyToEditor(Apply &&apply) const;
    void FocusRowEditor();
    template <typename Editor, typename Setup>
    void replaceEditor(Editor *&reference, Editor *editor, Setup &&connectEvents);

    // Editor events.
    void ChangeChain(const QVariant &value);
    void m_ValueTextBox_Change();
    void m_ValueNumeric_Change();
    void m_ValueCheckBox_Click();
    void m_ValueComboBox_Change();
    void m_ValueDate_Change();
    void m_SliderValue_Change();
    void m_SliderValue_Scroll();
    void m_FileSelector_Change();
    void m_FolderSelector_Change();
    void m_Memo_Change();
    void m_FieldNameControl_GotFocus();
    void m_ValueTextBox_KeyDown(int &KeyCode, int &Shift);
    void m_ValueNumeric_KeyDown(int &KeyCode, int &Shift);
    void m_ValueCheckBox_KeyDown(int &KeyCode, int &Shift);
    void m_ValueNumeric_KeyPress(int &KeyAscii);

    Field *q_ptr;
    mutable kwFieldDeck::DropDownValues *m_DropDownValues = nullptr;
    Fields *m_ParentClass = nullptr;
    // While the host's value goes into the editor: the changes the editor reports, for the
    // change chain to run once the editor shows the value.
    QVariantList *m_heldChanges = nullptr;

    TextBox *m_FieldNameControl = nullptr;
    TextBox *m_ValueTextBox = nullptr;
    TextBox *m_ValueNumeric = nullptr;
    kwSimpleCheck *m_ValueCheckBox = nullptr;
    kwComboField *m_ValueComboBox = nullptr;
    DatePicker *m_ValueDate = nullptr;
    kwSliderValue *m_ValueSlider = nullptr;
    kwFileSelectorField *m_FileSelector = nullptr;
    kwFolderSelectorField *m_FolderSelector = nullptr;
    kwMemoField *m_Memo = nullptr;
};

} // namespace kwFieldDeck
