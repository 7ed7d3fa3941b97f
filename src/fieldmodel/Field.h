#pragma once

#include "fieldmodel/lFieldTypes.h"
#include "platform/Colors.h"

#include <QFont>
#include <QObject>
#include <QVariant>

namespace kwFieldDeck {

class Control;
class DatePicker;
class DropDownValues;
class Fields;
class TextBox;
class kwComboField;
class kwFileSelectorField;
class kwFolderSelectorField;
class kwMemoField;
class kwPropertyControl;
class kwSimpleCheck;
class kwSliderValue;

// One row of the grid: a name, a type, a value, limits and look, and the two controls that show
// it (the name cell and the editor that suits the type). The field keeps its value current while
// the user edits and tells its grid of every edit.
class Field : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString Name READ Name WRITE setName)
    Q_PROPERTY(QString Description READ Description WRITE setDescription)
    Q_PROPERTY(qint32 Size READ Size WRITE setSize)
    Q_PROPERTY(qint32 FieldType READ FieldType WRITE setFieldType)
    Q_PROPERTY(QVariant Value READ Value WRITE setValue)
    Q_PROPERTY(QVariant Min READ Min WRITE setMin)
    Q_PROPERTY(QVariant Max READ Max WRITE setMax)
    Q_PROPERTY(bool Enabled READ Enabled WRITE setEnabled)
    Q_PROPERTY(bool Visible READ Visible WRITE setVisible)
    Q_PROPERTY(quint32 ForeColor READ ForeColor WRITE setForeColor)
    Q_PROPERTY(quint32 BackColor READ BackColor WRITE setBackColor)
    Q_PROPERTY(QString InitDir READ InitDir WRITE setInitDir)
    Q_PROPERTY(QString Title READ Title WRITE setTitle)
    Q_PROPERTY(QString Filter READ Filter WRITE setFilter)
    Q_PROPERTY(kwFieldDeck::DropDownValues *DropDownValues READ DropDownValues CONSTANT)
public:
    explicit Field(QObject *parent = nullptr);
    ~Field() override;

    QString Name() const { return m_Name; }
    void setName(const QString &name);
    QString Description() const { return m_Description; }
    void setDescription(const QString &description);
    qint32 Size() const { return m_Size; }
    void setSize(qint32 size);
    qint32 FieldType() const { return m_FieldType; }
    void setFieldType(qint32 type);

    QVariant Value() const;
    void setValue(const QVariant &value);
    // The reference assignment: stores an object as the value and leaves every editor alone.
    void setValueObject(QObject *object);

    QVariant Min() const { return m_Min; }
    void setMin(const QVariant &min);
    QVariant Max() const { return m_Max; }
    void setMax(const QVariant &max);

    bool Enabled() const { return m_Enabled; }
    void setEnabled(bool enabled);
    bool Visible() const { return m_Visible; }
    void setVisible(bool visible);
    OleColor ForeColor() const { return m_ForeColor; }
    void setForeColor(OleColor color);
    OleColor BackColor() const { return m_BackColor; }
    void setBackColor(OleColor color);

    QString InitDir() const;
    void setInitDir(const QString &dir);
    QString Title() const;
    void setTitle(const QString &title);
    QString Filter() const;
    void setFilter(const QString &filter);

    // Made when first asked for: most fields never have a list.
    kwFieldDeck::DropDownValues *DropDownValues() const;

    Q_INVOKABLE void SetFocus();

    // Library-internal members.
    Fields *ParentClass() const { return m_ParentClass; }
    void setParentClass(Fields *fields) { m_ParentClass = fields; }
    TextBox *FieldNameControl() const { return m_FieldNameControl; }
    void setFieldNameControl(TextBox *label);
    bool UseItemData() const { return m_UseItemData; }
    void setUseItemData(bool use) { m_UseItemData = use; }
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

signals:
    void Changed(const QVariant &Value);

private:
    kwPropertyControl *Grid() const;
    void createEditor(kwPropertyControl *grid);
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

    QString m_Name;
    QString m_Description;
    qint32 m_Size = 0;
    qint32 m_FieldType = 0;
    QVariant m_Value;
    mutable kwFieldDeck::DropDownValues *m_DropDownValues = nullptr;
    QVariant m_Min;
    QVariant m_Max;
    Fields *m_ParentClass = nullptr;
    bool m_Visible = true;
    bool m_Enabled = true;
    bool m_UseItemData = true;
    OleColor m_BackColor = 0xFFFFFF;
    OleColor m_ForeColor = 0;

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
