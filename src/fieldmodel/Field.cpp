#include "fieldmodel/Field_p.h"

#include "editors/kwComboField.h"
#include "editors/kwFileSelectorField.h"
#include "editors/kwFolderSelectorField.h"
#include "editors/kwMemoField.h"
#include "editors/kwSimpleCheck.h"
#include "editors/kwSliderValue.h"
#include "fieldmodel/DropDownValues_p.h"
#include "fieldmodel/Fields_p.h"
#include "platform/ComboBox.h"
#include "platform/DatePicker.h"
#include "platform/Error.h"
#include "platform/MessageBox.h"
#include "platform/TextBox.h"
#include "platform/Values.h"

#include <QScopeGuard>

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
void FieldPrivate::applyToEditor(Apply &&apply) const
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
    , d_ptr(std::make_unique<FieldPrivate>(this))
{
}

Field::~Field() = default;

// The public accessors: the field's state and its editors are FieldPrivate's.
QString Field::Name() const
{
    return d_func()->m_Name;
}
void Field::setName(const QString &name)
{
    d_func()->setName(name);
}
QString Field::Description() const
{
    return d_func()->m_Description;
}
void Field::setDescription(const QString &description)
{
    d_func()->setDescription(description);
}
qint32 Field::Size() const
{
    return d_func()->m_Size;
}
void Field::setSize(qint32 size)
{
    d_func()->setSize(size);
}
lFieldTypes Field::FieldType() const
{
    return lFieldTypes(d_func()->m_FieldType);
}
void Field::setFieldType(lFieldTypes type)
{
    d_func()->setFieldType(type);
}
QVariant Field::Value() const
{
    return d_func()->Value();
}
void Field::setValue(const QVariant &value)
{
    d_func()->setValue(value);
}
QVariant Field::Min() const
{
    return d_func()->m_Min;
}
void Field::setMin(const QVariant &min)
{
    d_func()->setMin(min);
}
QVariant Field::Max() const
{
    return d_func()->m_Max;
}
void Field::setMax(const QVariant &max)
{
    d_func()->setMax(max);
}
bool Field::Enabled() const
{
    return d_func()->m_Enabled;
}
void Field::setEnabled(bool enabled)
{
    d_func()->setEnabled(enabled);
}
bool Field::Visible() const
{
    return d_func()->m_Visible;
}
void Field::setVisible(bool visible)
{
    d_func()->setVisible(visible);
}
OleColor Field::ForeColor() const
{
    return d_func()->m_ForeColor;
}
void Field::setForeColor(OleColor color)
{
    d_func()->setForeColor(color);
}
OleColor Field::BackColor() const
{
    return d_func()->m_BackColor;
}
void Field::setBackColor(OleColor color)
{
    d_func()->setBackColor(color);
}
QString Field::InitDir() const
{
    return d_func()->InitDir();
}
void Field::setInitDir(const QString &dir)
{
    d_func()->setInitDir(dir);
}
QString Field::Title() const
{
    return d_func()->Title();
}
void Field::setTitle(const QString &title)
{
    d_func()->setTitle(title);
}
QString Field::Filter() const
{
    return d_func()->Filter();
}
void Field::setFilter(const QString &filter)
{
    d_func()->setFilter(filter);
}
kwFieldDeck::DropDownValues *Field::DropDownValues() const
{
    return d_func()->DropDownValues();
}
void Field::SetFocus()
{
    d_func()->SetFocus();
}

FieldPrivate::FieldPrivate(Field *field)
    : m_Min(int16Value(0))
    , m_Max(int16Value(100))
    , q_ptr(field)
{
}

kwFieldDeck::DropDownValues *FieldPrivate::DropDownValues() const
{
    if (!m_DropDownValues) {
        m_DropDownValues = new kwFieldDeck::DropDownValues(q_ptr);
        DropDownValuesPrivate::get(m_DropDownValues)->m_ParentClass = q_ptr;
    }
    return m_DropDownValues;
}

FieldHost *FieldPrivate::Grid() const
{
    return require(
        require(m_ParentClass) ? FieldsPrivate::get(m_ParentClass)->m_ParentClass : nullptr);
}

void FieldPrivate::setName(const QString &name)
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

void FieldPrivate::setDescription(const QString &description)
{
    trap("Property 'Description' of Class Module 'Field'", [&] {
        m_Description = description;
        require(m_FieldNameControl)->setToolTipText(description);
        describeEditorForAccessibility();
    });
}

void FieldPrivate::describeEditorForAccessibility() const
{
    if (Control *editor = EditorControl())
        editor->setAccessibleText(m_Name, m_Description);
}

void FieldPrivate::setSize(qint32 size)
{
    trap("Property 'Size' of Class Module 'Field'", [&] {
        m_Size = size;
        if (m_FieldType == ftText)
            require(m_ValueTextBox)->setMaxLength(size);
    });
}

void FieldPrivate::setFieldType(qint32 type)
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
        FieldHost *grid = Grid();
        setFieldNameControl(grid->AddField());
        require(m_FieldNameControl)->setVisible(true);
        m_FieldNameControl->setLeft(0);
        // The editor of an earlier type stays on the grid and stays referenced: intended.
        createEditor(grid);
    });
}

void FieldPrivate::createEditor(FieldHost *grid)
{
    switch (m_FieldType) {
    case ftText:
        setValueTextBox(grid->AddTextBox(q_ptr));
        break;
    case ftNumeric:
        setValueNumeric(grid->AddNumeric(q_ptr));
        break;
    case ftCheckBox:
        setValueCheckBox(grid->AddCheckBox(q_ptr));
        break;
    case ftCombo:
        setValueComboBox(grid->AddComboBox(q_ptr));
        break;
    case ftDate:
        setValueDate(grid->AddDatePicker(q_ptr));
        break;
    case ftSlider:
        setValueSlider(grid->AddSliderValue(q_ptr));
        break;
    case ftFileSelector:
        setFileSelector(grid->AddFileSelectorField(q_ptr));
        break;
    case ftFolderSelector:
        setFolderSelector(grid->AddFolderSelectorField(q_ptr));
        break;
    case ftMemo:
        setMemo(grid->AddMemoField(q_ptr));
        require(m_Memo)->setFieldName(m_Name);
        break;
    default:
        // Stored, with a name cell but no editor.
        break;
    }
}

QVariant FieldPrivate::Value() const
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

void FieldPrivate::setValue(const QVariant &value)
{
    trap("Property 'Value' of Class Module 'Field'", [&] { writeValue(value); });
}

void FieldPrivate::writeValue(const QVariant &value)
{
    m_Value = value;
    QVariantList reported;
    m_heldChanges = &reported;
    const auto release = qScopeGuard([this] { m_heldChanges = nullptr; });
    showValueInEditor();
    m_heldChanges = nullptr;
    for (const QVariant &changed : std::as_const(reported))
        ChangeChain(changed);
}

void FieldPrivate::showValueInEditor()
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

void FieldPrivate::setMin(const QVariant &min)
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

void FieldPrivate::setMax(const QVariant &max)
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

void FieldPrivate::setEnabled(bool enabled)
{
    trap("Property 'Enabled' of Class Module 'Field'", [&] {
        if (enabled == m_Enabled)
            return;
        m_Enabled = enabled;
        require(m_FieldNameControl)->setEnabled(enabled);
        applyToEditor([&](auto *editor) { editor->setEnabled(enabled); });
    });
}

void FieldPrivate::setVisible(bool visible)
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

void FieldPrivate::setForeColor(OleColor color)
{
    trap("Property 'ForeColor' of Class Module 'Field'", [&] {
        m_ForeColor = color;
        // A date field only stores its colours: intended.
        if (m_FieldType == ftDate)
            return;
        applyToEditor([&](auto *editor) { editor->setForeColor(color); });
    });
}

void FieldPrivate::setBackColor(OleColor color)
{
    trap("Property 'BackColor' of Class Module 'Field'", [&] {
        m_BackColor = color;
        if (m_FieldType == ftDate)
            return;
        applyToEditor([&](auto *editor) { editor->setBackColor(color); });
    });
}

void FieldPrivate::setFont(const QFont &font)
{
    trap("Property 'Font' of Class Module 'Field'", [&] {
        if (m_FieldNameControl)
            m_FieldNameControl->setFont(font);
        applyToEditor([&](auto *editor) { editor->setFont(font); });
    });
}

void FieldPrivate::SetFocus()
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

QString FieldPrivate::InitDir() const
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

void FieldPrivate::setInitDir(const QString &dir)
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

QString FieldPrivate::Title() const
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

void FieldPrivate::setTitle(const QString &title)
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
QString FieldPrivate::Filter() const
{
    return trap("Property 'Filter' of Class Module 'Field'",
        [&] { return require(m_FileSelector)->Filter(); });
}

void FieldPrivate::setFilter(const QString &filter)
{
    trap("Property 'Filter' of Class Module 'Field'",
        [&] { require(m_FileSelector)->setFilter(filter); });
}

QObject *FieldPrivate::EditField() const
{
    return trap("Function 'EditField' of Class Module 'Field'", [&]() -> QObject * {
        // The memo editor is deliberately not handed out.
        if (m_FieldType == ftMemo)
            return nullptr;
        return editorObject();
    });
}

} // namespace kwFieldDeck
