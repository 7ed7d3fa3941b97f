#include "fieldmodel/Field.h"

#include "editors/kwComboField.h"
#include "editors/kwFileSelectorField.h"
#include "editors/kwFolderSelectorField.h"
#include "editors/kwMemoField.h"
#include "editors/kwSimpleCheck.h"
#include "editors/kwSliderValue.h"
#include "fieldmodel/DropDownValues.h"
#include "fieldmodel/Fields.h"
#include "grid/kwPropertyControl.h"
#include "platform/ComboBox.h"
#include "platform/DatePicker.h"
#include "platform/Error.h"
#include "platform/MessageBox.h"
#include "platform/TextBox.h"
#include "platform/Values.h"

namespace kwFieldDeck {

namespace {
bool hasEditorType(qint32 type)
{
    return type >= ftText && type <= ftMemo;
}
} // namespace

// Text boxes and the date picker are platform controls, the other editors the library's own;
// both kinds take the shared properties by the same names.
template <typename Apply>
void Field::applyToEditor(Apply &&apply) const
{
    if (!hasEditorType(m_FieldType))
        return;
    QObject *editor = require(editorObject());
    if (auto *own = qobject_cast<kwEditorControl *>(editor))
        apply(own);
    else
        apply(static_cast<Control *>(editor));
}

Field::Field(QObject *parent)
    : QObject(parent)
    , m_Min(int16Value(0))
    , m_Max(int16Value(100))
{
}

kwFieldDeck::DropDownValues *Field::DropDownValues() const
{
    if (!m_DropDownValues) {
        auto *self = const_cast<Field *>(this);
        m_DropDownValues = new kwFieldDeck::DropDownValues(self);
        m_DropDownValues->setParentClass(self);
    }
    return m_DropDownValues;
}

Field::~Field() = default;

kwPropertyControl *Field::Grid() const
{
    return require(require(m_ParentClass)->ParentClass());
}

void Field::setName(const QString &name)
{
    trap("Property 'Name' of Class Module 'Field'", [&] {
        m_Name = name;
        // The trailing blank keeps the name off the cell's right border.
        require(m_FieldNameControl)->setText(name + QLatin1Char(' '));
        if (m_FieldType == ftMemo)
            require(m_Memo)->setFieldName(name);
        describeEditorForAccessibility();
    });
}

void Field::setDescription(const QString &description)
{
    trap("Property 'Description' of Class Module 'Field'", [&] {
        m_Description = description;
        require(m_FieldNameControl)->setToolTipText(description);
        describeEditorForAccessibility();
    });
}

void Field::describeEditorForAccessibility() const
{
    if (Control *editor = EditorControl())
        editor->setAccessibleText(m_Name, m_Description);
}

void Field::setSize(qint32 size)
{
    trap("Property 'Size' of Class Module 'Field'", [&] {
        m_Size = size;
        if (m_FieldType == ftText)
            require(m_ValueTextBox)->setMaxLength(size);
    });
}

void Field::setFieldType(qint32 type)
{
    trap("Property 'FieldType' of Class Module 'Field'", [&] {
        // A warning only: the type still changes below. Intended.
        if (m_FieldType != 0)
            MsgBox(QStringLiteral("Field:") + m_Name
                    + QStringLiteral("\r\nCan't Change Field Type once it has already been set!"),
                MsgBoxStyle::OKOnly, QString());
        if (type == m_FieldType)
            return;
        m_FieldType = type;
        kwPropertyControl *grid = Grid();
        setFieldNameControl(grid->AddField());
        require(m_FieldNameControl)->setVisible(true);
        m_FieldNameControl->setLeft(0);
        // The editor of an earlier type stays on the grid and stays referenced: intended.
        createEditor(grid);
    });
}

void Field::createEditor(kwPropertyControl *grid)
{
    switch (m_FieldType) {
    case ftText:
        setValueTextBox(grid->AddTextBox(this));
        break;
    case ftNumeric:
        setValueNumeric(grid->AddNumeric(this));
        break;
    case ftCheckBox:
        setValueCheckBox(grid->AddCheckBox(this));
        break;
    case ftCombo:
        setValueComboBox(grid->AddComboBox(this));
        break;
    case ftDate:
        setValueDate(grid->AddDatePicker(this));
        break;
    case ftSlider:
        setValueSlider(grid->AddSliderValue(this));
        break;
    case ftFileSelector:
        setFileSelector(grid->AddFileSelectorField(this));
        break;
    case ftFolderSelector:
        setFolderSelector(grid->AddFolderSelectorField(this));
        break;
    case ftMemo:
        setMemo(grid->AddMemoField(this));
        require(m_Memo)->setFieldName(m_Name);
        break;
    default:
        // Stored, with a name cell but no editor.
        break;
    }
}

QVariant Field::Value() const
{
    return trap("Property 'Value' of Class Module 'Field'", [&]() -> QVariant {
        if (kindOf(m_Value) == ValueKind::Object)
            return m_Value;
        if (m_FieldType != ftCombo)
            return m_Value;
        if (DropDownValues()->UseComboItemData())
            return require(m_ValueComboBox)->Value();
        if (!m_ValueComboBox)
            return QString();
        return require(m_ValueComboBox->ComboControl())->Text();
    });
}

void Field::setValueObject(QObject *object)
{
    m_Value = QVariant::fromValue(object);
}

void Field::setValue(const QVariant &value)
{
    trap("Property 'Value' of Class Module 'Field'", [&] {
        m_Value = value;
        showValueInEditor();
    });
}

void Field::showValueInEditor()
{
    switch (m_FieldType) {
    case ftText:
        switch (kindOf(m_Value)) {
        case ValueKind::Text:
        case ValueKind::Int16:
        case ValueKind::Int32:
        case ValueKind::Single:
        case ValueKind::Double:
        case ValueKind::Date:
            require(m_ValueTextBox)->setText(textOf(m_Value));
            break;
        default:
            // Empty, boolean and object values are stored but not shown: intended.
            break;
        }
        break;
    case ftNumeric:
        require(m_ValueNumeric)->setText(textOf(doubleValue(leadingNumber(textOf(m_Value)))));
        break;
    case ftCheckBox: {
        if (kindOf(m_Value) != ValueKind::Object
            && textOf(m_Value).trimmed().toUpper() == QLatin1String("TRUE"))
            m_Value = textValue(QStringLiteral("1"));
        const bool ticked = leadingNumber(textOf(m_Value)) != 0;
        require(m_ValueCheckBox)->setValue(ticked ? 1 : 0);
        break;
    }
    case ftCombo:
        require(m_ValueComboBox)->setValue(textOf(m_Value));
        break;
    case ftDate:
        if (isDate(m_Value))
            require(m_ValueDate)->setValue(toDate(m_Value));
        break;
    case ftSlider:
        require(m_ValueSlider)->setValue(roundToInt32(leadingNumber(textOf(m_Value))));
        break;
    case ftFileSelector:
        require(m_FileSelector)->setValue(textOf(m_Value));
        break;
    case ftFolderSelector:
        require(m_FolderSelector)->setValue(textOf(m_Value));
        break;
    case ftMemo:
        require(m_Memo)->setValue(textOf(m_Value));
        break;
    default:
        break;
    }
}

void Field::setMin(const QVariant &min)
{
    trap("Property 'Min' of Class Module 'Field'", [&] {
        m_Min = min;
        switch (m_FieldType) {
        case ftDate:
            if (isDate(m_Min))
                require(m_ValueDate)->setMinDate(toDate(m_Min));
            break;
        case ftText:
            // Setting Min of a text field moves the focus to it: intended.
            if (require(m_ValueTextBox)->Enabled())
                m_ValueTextBox->SetFocus();
            break;
        case ftSlider:
            require(m_ValueSlider)->setMin(toInt32(m_Min));
            break;
        default:
            break;
        }
    });
}

void Field::setMax(const QVariant &max)
{
    trap("Property 'Max' of Class Module 'Field'", [&] {
        m_Max = max;
        switch (m_FieldType) {
        case ftDate:
            // The test is on Min, not Max: intended.
            if (isDate(m_Min))
                require(m_ValueDate)->setMaxDate(toDate(m_Max));
            break;
        case ftSlider:
            require(m_ValueSlider)->setMax(toInt32(m_Max));
            break;
        default:
            break;
        }
    });
}

void Field::setEnabled(bool enabled)
{
    trap("Property 'Enabled' of Class Module 'Field'", [&] {
        if (enabled == m_Enabled)
            return;
        m_Enabled = enabled;
        require(m_FieldNameControl)->setEnabled(enabled);
        applyToEditor([&](auto *editor) { editor->setEnabled(enabled); });
    });
}

void Field::setVisible(bool visible)
{
    trap("Property 'Visible' of Class Module 'Field'", [&] {
        if (visible == m_Visible)
            return;
        m_Visible = visible;
        require(m_FieldNameControl)->setVisible(visible);
        if (hasEditorType(m_FieldType))
            require(EditorControl())->setVisible(visible);
    });
}

void Field::setForeColor(OleColor color)
{
    trap("Property 'ForeColor' of Class Module 'Field'", [&] {
        m_ForeColor = color;
        // A date field only stores its colours: intended.
        if (m_FieldType == ftDate)
            return;
        applyToEditor([&](auto *editor) { editor->setForeColor(color); });
    });
}

void Field::setBackColor(OleColor color)
{
    trap("Property 'BackColor' of Class Module 'Field'", [&] {
        m_BackColor = color;
        if (m_FieldType == ftDate)
            return;
        applyToEditor([&](auto *editor) { editor->setBackColor(color); });
    });
}

void Field::setFont(const QFont &font)
{
    trap("Property 'Font' of Class Module 'Field'", [&] {
        if (m_FieldNameControl)
            m_FieldNameControl->setFont(font);
        applyToEditor([&](auto *editor) { editor->setFont(font); });
    });
}

void Field::SetFocus()
{
    trap("Sub 'SetFocus' of Class Module 'Field'", [&] {
        // A slider field does not take the focus this way: intended.
        if (m_FieldType == ftSlider)
            return;
        // A disabled text or number box keeps the focus where it is.
        if (m_FieldType == ftText && !require(m_ValueTextBox)->Enabled())
            return;
        if (m_FieldType == ftNumeric && !require(m_ValueNumeric)->Enabled())
            return;
        FocusRowEditor();
    });
}

QString Field::InitDir() const
{
    return trap("Property 'InitDir' of Class Module 'Field'", [&]() -> QString {
        switch (m_FieldType) {
        case ftFileSelector:
            return require(m_FileSelector)->InitDir();
        case ftFolderSelector:
            return require(m_FolderSelector)->InitDir();
        default:
            return QString();
        }
    });
}

void Field::setInitDir(const QString &dir)
{
    trap("Property 'InitDir' of Class Module 'Field'", [&] {
        switch (m_FieldType) {
        case ftFileSelector:
            require(m_FileSelector)->setInitDir(dir);
            break;
        case ftFolderSelector:
            require(m_FolderSelector)->setInitDir(dir);
            break;
        default:
            break;
        }
    });
}

QString Field::Title() const
{
    return trap("Property 'Title' of Class Module 'Field'", [&]() -> QString {
        switch (m_FieldType) {
        case ftFileSelector:
            return require(m_FileSelector)->Title();
        case ftFolderSelector:
            return require(m_FolderSelector)->Title();
        default:
            return QString();
        }
    });
}

void Field::setTitle(const QString &title)
{
    trap("Property 'Title' of Class Module 'Field'", [&] {
        switch (m_FieldType) {
        case ftFileSelector:
            require(m_FileSelector)->setTitle(title);
            break;
        case ftFolderSelector:
            require(m_FolderSelector)->setTitle(title);
            break;
        default:
            break;
        }
    });
}

// Unlike InitDir and Title, Filter does not look at the type: on any field but a file field
// it fails for want of a file selector. Intended.
QString Field::Filter() const
{
    return trap("Property 'Filter' of Class Module 'Field'",
        [&] { return require(m_FileSelector)->Filter(); });
}

void Field::setFilter(const QString &filter)
{
    trap("Property 'Filter' of Class Module 'Field'",
        [&] { require(m_FileSelector)->setFilter(filter); });
}

QObject *Field::EditField() const
{
    return trap("Function 'EditField' of Class Module 'Field'", [&]() -> QObject * {
        // The memo editor is deliberately not handed out.
        if (m_FieldType == ftMemo)
            return nullptr;
        return editorObject();
    });
}

} // namespace kwFieldDeck
