// The field's side of its row's events: the editor references and their connections, the
// change chain that keeps the value current and tells the grid, the row-focus routine, the row
// navigation keys and the numeric key filter.

#include "fieldmodel/Field_p.h"

#include "editors/kwComboField.h"
#include "editors/kwFileSelectorField.h"
#include "editors/kwFolderSelectorField.h"
#include "editors/kwMemoField.h"
#include "editors/kwSimpleCheck.h"
#include "editors/kwSliderValue.h"
#include "fieldmodel/Fields_p.h"
#include "platform/DatePicker.h"
#include "platform/Error.h"
#include "platform/Services.h"
#include "platform/TextBox.h"
#include "platform/Values.h"

namespace kwFieldDeck {

QObject *FieldPrivate::editorObject() const
{
    switch (m_FieldType) {
    case ftText:
        return m_ValueTextBox;
    case ftNumeric:
        return m_ValueNumeric;
    case ftCheckBox:
        return m_ValueCheckBox;
    case ftCombo:
        return m_ValueComboBox;
    case ftDate:
        return m_ValueDate;
    case ftSlider:
        return m_ValueSlider;
    case ftFileSelector:
        return m_FileSelector;
    case ftFolderSelector:
        return m_FolderSelector;
    case ftMemo:
        return m_Memo;
    default:
        return nullptr;
    }
}

Control *FieldPrivate::EditorControl() const
{
    QObject *editor = editorObject();
    if (auto *own = qobject_cast<WindowlessUserControl *>(editor))
        return own->extender();
    return static_cast<Control *>(editor);
}

template <typename Editor, typename Setup>
void FieldPrivate::replaceEditor(Editor *&reference, Editor *editor, Setup &&connectEvents)
{
    if (reference)
        QObject::disconnect(reference, nullptr, q_ptr, nullptr);
    reference = editor;
    if (editor)
        connectEvents(editor);
}

namespace {
// Connects an event to a handler under the handler's error trap: no failure may pass into the
// platform's event dispatch.
template <typename Source, typename Signal, typename... Args>
void handle(FieldPrivate *field, Source *sender, Signal signal, const char *source,
    void (FieldPrivate::*handler)(Args...))
{
    QObject::connect(sender, signal, field->q_func(), [field, source, handler](Args... args) {
        trap(source, [&] { (field->*handler)(std::forward<Args>(args)...); });
    });
}
} // namespace

void FieldPrivate::setFieldNameControl(TextBox *label)
{
    replaceEditor(m_FieldNameControl, label, [this](TextBox *cell) {
        handle(this, cell, &Control::GotFocus,
            "Sub 'm_FieldNameControl_GotFocus' of Class Module 'Field'",
            &FieldPrivate::m_FieldNameControl_GotFocus);
    });
    if (m_ParentClass)
        FieldsPrivate::get(m_ParentClass)->fieldLabelled();
}

void FieldPrivate::setValueTextBox(TextBox *editor)
{
    replaceEditor(m_ValueTextBox, editor, [this](TextBox *box) {
        handle(this, box, &TextBox::Change, "Sub 'm_ValueTextBox_Change' of Class Module 'Field'",
            &FieldPrivate::m_ValueTextBox_Change);
        handle(this, box, &Control::GotFocus,
            "Sub 'm_ValueTextBox_GotFocus' of Class Module 'Field'",
            &FieldPrivate::m_FieldNameControl_GotFocus);
        handle(this, box, &Control::KeyDown, "Sub 'm_ValueTextBox_KeyDown' of Class Module 'Field'",
            &FieldPrivate::m_ValueTextBox_KeyDown);
    });
}

void FieldPrivate::setValueNumeric(TextBox *editor)
{
    replaceEditor(m_ValueNumeric, editor, [this](TextBox *box) {
        handle(this, box, &TextBox::Change, "Sub 'm_ValueNumeric_Change' of Class Module 'Field'",
            &FieldPrivate::m_ValueNumeric_Change);
        handle(this, box, &Control::GotFocus,
            "Sub 'm_ValueNumeric_GotFocus' of Class Module 'Field'",
            &FieldPrivate::m_FieldNameControl_GotFocus);
        handle(this, box, &Control::KeyDown, "Sub 'm_ValueNumeric_KeyDown' of Class Module 'Field'",
            &FieldPrivate::m_ValueNumeric_KeyDown);
        handle(this, box, &Control::KeyPress,
            "Sub 'm_ValueNumeric_KeyPress' of Class Module 'Field'",
            &FieldPrivate::m_ValueNumeric_KeyPress);
    });
}

void FieldPrivate::setValueCheckBox(kwSimpleCheck *editor)
{
    replaceEditor(m_ValueCheckBox, editor, [this](kwSimpleCheck *check) {
        handle(this, check, &kwSimpleCheck::Click,
            "Sub 'm_ValueCheckBox_Click' of Class Module 'Field'",
            &FieldPrivate::m_ValueCheckBox_Click);
        handle(this, check, &kwSimpleCheck::HasFocus,
            "Sub 'm_ValueCheckBox_HasFocus' of Class Module 'Field'",
            &FieldPrivate::m_FieldNameControl_GotFocus);
        handle(this, check, &kwSimpleCheck::KeyDown,
            "Sub 'm_ValueCheckBox_KeyDown' of Class Module 'Field'",
            &FieldPrivate::m_ValueCheckBox_KeyDown);
    });
}

void FieldPrivate::setValueComboBox(kwComboField *editor)
{
    replaceEditor(m_ValueComboBox, editor, [this](kwComboField *combo) {
        handle(this, combo, &kwComboField::Change,
            "Sub 'm_ValueComboBox_Change' of Class Module 'Field'",
            &FieldPrivate::m_ValueComboBox_Change);
        handle(this, combo, &kwComboField::HasFocus,
            "Sub 'm_ValueComboBox_HasFocus' of Class Module 'Field'",
            &FieldPrivate::m_FieldNameControl_GotFocus);
    });
}

void FieldPrivate::setValueDate(DatePicker *editor)
{
    replaceEditor(m_ValueDate, editor, [this](DatePicker *picker) {
        handle(this, picker, &DatePicker::Change,
            "Sub 'm_ValueDate_Change' of Class Module 'Field'", &FieldPrivate::m_ValueDate_Change);
        handle(this, picker, &Control::GotFocus,
            "Sub 'm_ValueDate_GotFocus' of Class Module 'Field'",
            &FieldPrivate::m_FieldNameControl_GotFocus);
    });
}

void FieldPrivate::setValueSlider(kwSliderValue *editor)
{
    replaceEditor(m_ValueSlider, editor, [this](kwSliderValue *slider) {
        handle(this, slider, &kwSliderValue::Change,
            "Sub 'm_SliderValue_Change' of Class Module 'Field'",
            &FieldPrivate::m_SliderValue_Change);
        handle(this, slider, &kwSliderValue::Scroll,
            "Sub 'm_SliderValue_Scroll' of Class Module 'Field'",
            &FieldPrivate::m_SliderValue_Scroll);
        handle(this, slider, &kwSliderValue::HasFocus,
            "Sub 'm_SliderValue_HasFocus' of Class Module 'Field'",
            &FieldPrivate::m_FieldNameControl_GotFocus);
    });
}

void FieldPrivate::setFileSelector(kwFileSelectorField *editor)
{
    replaceEditor(m_FileSelector, editor, [this](kwFileSelectorField *selector) {
        handle(this, selector, &kwFileSelectorField::Change,
            "Sub 'm_FileSelector_Change' of Class Module 'Field'",
            &FieldPrivate::m_FileSelector_Change);
        handle(this, selector, &kwFileSelectorField::HasFocus,
            "Sub 'm_FileSelector_HasFocus' of Class Module 'Field'",
            &FieldPrivate::m_FieldNameControl_GotFocus);
    });
}

void FieldPrivate::setFolderSelector(kwFolderSelectorField *editor)
{
    replaceEditor(m_FolderSelector, editor, [this](kwFolderSelectorField *selector) {
        handle(this, selector, &kwFolderSelectorField::Change,
            "Sub 'm_FolderSelector_Change' of Class Module 'Field'",
            &FieldPrivate::m_FolderSelector_Change);
        handle(this, selector, &kwFolderSelectorField::HasFocus,
            "Sub 'm_FolderSelector_HasFocus' of Class Module 'Field'",
            &FieldPrivate::m_FieldNameControl_GotFocus);
    });
}

void FieldPrivate::setMemo(kwMemoField *editor)
{
    replaceEditor(m_Memo, editor, [this](kwMemoField *memo) {
        handle(this, memo, &kwMemoField::Change, "Sub 'm_Memo_Change' of Class Module 'Field'",
            &FieldPrivate::m_Memo_Change);
        handle(this, memo, &kwMemoField::HasFocus, "Sub 'm_Memo_HasFocus' of Class Module 'Field'",
            &FieldPrivate::m_FieldNameControl_GotFocus);
    });
}

void FieldPrivate::Kill()
{
    trap("Sub 'Kill' of Class Module 'Field'", [&] {
        switch (m_FieldType) {
        case ftText:
            setValueTextBox(nullptr);
            break;
        case ftNumeric:
            setValueNumeric(nullptr);
            break;
        case ftCheckBox:
            setValueCheckBox(nullptr);
            break;
        case ftCombo:
            setValueComboBox(nullptr);
            break;
        case ftDate:
            setValueDate(nullptr);
            break;
        case ftSlider:
            setValueSlider(nullptr);
            break;
        case ftFileSelector:
            setFileSelector(nullptr);
            break;
        case ftFolderSelector:
            setFolderSelector(nullptr);
            break;
        case ftMemo:
            setMemo(nullptr);
            break;
        default:
            break;
        }
    });
}

void FieldPrivate::ChangeChain(const QVariant &value)
{
    if (m_heldChanges) {
        m_heldChanges->append(value);
        return;
    }
    m_Value = value;
    emit q_ptr->Changed(m_Value);
    Grid()->RaiseChangedEvent(q_ptr);
}

void FieldPrivate::m_ValueTextBox_Change()
{
    ChangeChain(textValue(require(m_ValueTextBox)->Text()));
}

void FieldPrivate::m_ValueNumeric_Change()
{
    ChangeChain(doubleValue(leadingNumber(require(m_ValueNumeric)->Text())));
}

void FieldPrivate::m_ValueCheckBox_Click()
{
    ChangeChain(int16Value(require(m_ValueCheckBox)->Value()));
}

void FieldPrivate::m_ValueComboBox_Change()
{
    ChangeChain(textValue(require(m_ValueComboBox)->Value()));
}

// An empty picker's value is passed on as it comes.
void FieldPrivate::m_ValueDate_Change()
{
    ChangeChain(require(m_ValueDate)->Value());
}

void FieldPrivate::m_SliderValue_Change()
{
    ChangeChain(int32Value(require(m_ValueSlider)->Value()));
}

void FieldPrivate::m_SliderValue_Scroll()
{
    m_SliderValue_Change();
}

void FieldPrivate::m_FileSelector_Change()
{
    ChangeChain(textValue(require(m_FileSelector)->Value()));
}

void FieldPrivate::m_FolderSelector_Change()
{
    ChangeChain(textValue(require(m_FolderSelector)->Value()));
}

void FieldPrivate::m_Memo_Change()
{
    ChangeChain(textValue(require(m_Memo)->Value()));
}

// The row-focus routine: bring the row into view, highlight its name cell alone, put the focus
// in its editor and show its description.
void FieldPrivate::m_FieldNameControl_GotFocus()
{
    FieldHost *grid = Grid();
    TextBox *label = require(m_FieldNameControl);
    grid->ScrollIntoView(label);
    FieldsPrivate::get(require(m_ParentClass))->ClearSelectedRows();
    label->setBackColor(SystemColor::Highlight);
    label->setForeColor(SystemColor::HighlightText);
    FocusRowEditor();
    grid->ShowDescription(m_Description);
}

void FieldPrivate::FocusRowEditor()
{
    switch (m_FieldType) {
    case ftText:
        // No check of Enabled here, unlike SetFocus: intended.
        require(m_ValueTextBox)->SetFocus();
        break;
    case ftNumeric:
        require(m_ValueNumeric)->SetFocus();
        break;
    case ftCheckBox:
        require(m_ValueCheckBox)->SetFocus();
        break;
    case ftCombo:
        require(m_ValueComboBox)->SetFocus();
        break;
    case ftDate:
        require(m_ValueDate)->SetFocus();
        break;
    case ftSlider:
        // Included here although FieldPrivate::SetFocus leaves the slider out: intended.
        require(m_ValueSlider)->SetFocus();
        break;
    case ftFileSelector:
        require(m_FileSelector)->SetFocus();
        break;
    case ftFolderSelector:
        require(m_FolderSelector)->SetFocus();
        break;
    case ftMemo:
        require(m_Memo)->SetFocus();
        break;
    default:
        break;
    }
}

namespace {
// Up and Down move to the neighbouring rows through the form's tab order.
void moveBetweenRows(int &KeyCode)
{
    if (KeyCode == KeyCode::Up) {
        KeyCode = 0;
        SendKeys(QStringLiteral("+{tab}"));
    } else if (KeyCode == KeyCode::Down) {
        KeyCode = 0;
        SendKeys(QStringLiteral("{tab}"));
    }
}
} // namespace

void FieldPrivate::m_ValueTextBox_KeyDown(int &KeyCode, int &)
{
    moveBetweenRows(KeyCode);
}
void FieldPrivate::m_ValueNumeric_KeyDown(int &KeyCode, int &)
{
    moveBetweenRows(KeyCode);
}
void FieldPrivate::m_ValueCheckBox_KeyDown(int &KeyCode, int &)
{
    moveBetweenRows(KeyCode);
}

void FieldPrivate::m_ValueNumeric_KeyPress(int &KeyAscii)
{
    const TextBox *box = require(m_ValueNumeric);
    switch (KeyAscii) {
    case '+':
    case '-':
        if (box->SelStart() != 0)
            KeyAscii = 0;
        break;
    case '.':
        if (box->Text().contains(QLatin1Char('.')))
            KeyAscii = 0;
        break;
    case KeyCode::Backspace:
    case KeyCode::Tab:
        break;
    default:
        if (KeyAscii < '0' || KeyAscii > '9')
            KeyAscii = 0;
        break;
    }
}

} // namespace kwFieldDeck
