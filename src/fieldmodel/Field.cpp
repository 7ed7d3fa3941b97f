#include "fieldmodel/Field_p.h"

#include "editors/FieldKinds_p.h"
#include "fieldmodel/DropDownValues_p.h"
#include "fieldmodel/Fields_p.h"
#include "runtime/Error.h"
#include "runtime/MessageBox.h"
#include "runtime/Values.h"

#include <algorithm>

namespace kwFieldDeck {

namespace {
bool hasEditorType(qint32 type)
{
    return type >= ftText && type <= ftMemo;
}
} // namespace

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

// The entry of the row's editor; a type whose editor was let go of fails as a missing object.
const FieldKind &FieldPrivate::kind() const
{
    return *require(editorKind());
}

void FieldPrivate::showChanges()
{
    if (m_ParentClass && FieldsPrivate::get(m_ParentClass)->m_ParentClass)
        Grid()->rowChanged(q_ptr);
}

void FieldPrivate::setName(const QString &name)
{
    trap("Property 'Name' of Class Module 'Field'", [&] {
        m_Name = name;
        if (!m_hasNameCell)
            raise(ErrObjectRequired);
        showChanges();
    });
}

void FieldPrivate::setDescription(const QString &description)
{
    trap("Property 'Description' of Class Module 'Field'", [&] {
        m_Description = description;
        if (!m_hasNameCell)
            raise(ErrObjectRequired);
        showChanges();
    });
}

void FieldPrivate::setSize(qint32 size)
{
    trap("Property 'Size' of Class Module 'Field'", [&] {
        m_Size = size;
        if (m_FieldType != ftText)
            return;
        kind();
        m_editor.maxLength = std::max(0, size);
        showChanges();
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
        Grid()->AddField(q_ptr);
        m_hasNameCell = true;
        // The editor of an earlier type stays on the grid: intended.
        if (const FieldKind *kind = FieldKind::of(type))
            createEditor(kind);
        else
            m_hasEditor = false;
    });
}

// A failed creation leaves the editor made, with the state it starts with.
void FieldPrivate::createEditor(const FieldKind *kind)
{
    const QVariant value = Value();
    m_editorKind = kind;
    m_hasEditor = true;
    m_editor = EditorState();
    trap(kind->sources.creator, [&] { kind->create(m_editor, value); });
    showChanges();
}

QVariant FieldPrivate::Value() const
{
    return trap("Property 'Value' of Class Module 'Field'", [&]() -> QVariant {
        if (kindOf(m_Value) == ValueKind::Object || m_FieldType != ftCombo)
            return m_Value;
        if (m_DropDownValues && m_DropDownValues->UseComboItemData()) {
            kind();
            return textValue(ComboKind::comboValue(m_editor));
        }
        if (!editorKind())
            return textValue(QString());
        return textValue(ComboKind::shownText(m_editor));
    });
}

void FieldPrivate::setValue(const QVariant &value)
{
    trap("Property 'Value' of Class Module 'Field'", [&] {
        m_Value = value;
        if (!hasEditorType(m_FieldType))
            return;
        Changes changes;
        kind().showValue(m_Value, m_editor, changes);
        showChanges();
        reportChanges(changes);
    });
}

void FieldPrivate::reportChanges(const Changes &changes)
{
    for (const QVariant &changed : changes)
        ChangeChain(changed);
}

void FieldPrivate::setMin(const QVariant &min)
{
    trap("Property 'Min' of Class Module 'Field'", [&] {
        m_Min = min;
        Changes changes;
        switch (m_FieldType) {
        case ftDate:
        case ftSlider:
            kind().applyMin(m_Min, m_editor, changes);
            break;
        case ftText:
            // Setting Min of a text field moves the focus to it: intended.
            kind();
            if (m_editor.enabled)
                Grid()->FocusRowEditor(q_ptr);
            return;
        default:
            return;
        }
        showChanges();
        reportChanges(changes);
    });
}

void FieldPrivate::setMax(const QVariant &max)
{
    trap("Property 'Max' of Class Module 'Field'", [&] {
        m_Max = max;
        if (m_FieldType != ftDate && m_FieldType != ftSlider)
            return;
        Changes changes;
        kind().applyMax(m_Min, m_Max, m_editor, changes);
        showChanges();
        reportChanges(changes);
    });
}

void FieldPrivate::setEnabled(bool enabled)
{
    trap("Property 'Enabled' of Class Module 'Field'", [&] {
        if (enabled == m_Enabled)
            return;
        m_Enabled = enabled;
        if (!m_hasNameCell)
            raise(ErrObjectRequired);
        if (hasEditorType(m_FieldType)) {
            kind();
            m_editor.enabled = enabled;
        }
        showChanges();
    });
}

void FieldPrivate::setVisible(bool visible)
{
    trap("Property 'Visible' of Class Module 'Field'", [&] {
        if (visible == m_Visible)
            return;
        m_Visible = visible;
        if (!m_hasNameCell)
            raise(ErrObjectRequired);
        if (hasEditorType(m_FieldType) && !m_editorKind)
            raise(ErrObjectRequired);
        Grid()->rowShownOrHidden(q_ptr);
    });
}

void FieldPrivate::setForeColor(OleColor color)
{
    trap("Property 'ForeColor' of Class Module 'Field'", [&] {
        m_ForeColor = color;
        // A date field only stores its colours: intended.
        if (m_FieldType == ftDate || !hasEditorType(m_FieldType))
            return;
        kind();
        m_editor.foreColor = color;
        m_editor.colorsSet = true;
        showChanges();
    });
}

void FieldPrivate::setBackColor(OleColor color)
{
    trap("Property 'BackColor' of Class Module 'Field'", [&] {
        m_BackColor = color;
        if (m_FieldType == ftDate || !hasEditorType(m_FieldType))
            return;
        kind();
        m_editor.backColor = color;
        m_editor.colorsSet = true;
        showChanges();
    });
}

void FieldPrivate::SetFocus()
{
    trap("Sub 'SetFocus' of Class Module 'Field'", [&] {
        // A slider field does not take the focus this way: intended.
        if (m_FieldType == ftSlider || !hasEditorType(m_FieldType))
            return;
        kind();
        // A disabled text or number box keeps the focus where it is.
        if ((m_FieldType == ftText || m_FieldType == ftNumeric) && !m_editor.enabled)
            return;
        Grid()->FocusRowEditor(q_ptr);
    });
}

namespace {
bool browsesPaths(qint32 type)
{
    return type == ftFileSelector || type == ftFolderSelector;
}
} // namespace

QString FieldPrivate::InitDir() const
{
    return trap("Property 'InitDir' of Class Module 'Field'", [&]() -> QString {
        if (!browsesPaths(m_FieldType))
            return QString();
        kind();
        return m_editor.initDir;
    });
}

void FieldPrivate::setInitDir(const QString &dir)
{
    trap("Property 'InitDir' of Class Module 'Field'", [&] {
        if (!browsesPaths(m_FieldType))
            return;
        kind();
        m_editor.initDir = dir;
    });
}

QString FieldPrivate::Title() const
{
    return trap("Property 'Title' of Class Module 'Field'", [&]() -> QString {
        if (!browsesPaths(m_FieldType))
            return QString();
        kind();
        return m_editor.title;
    });
}

void FieldPrivate::setTitle(const QString &title)
{
    trap("Property 'Title' of Class Module 'Field'", [&] {
        if (!browsesPaths(m_FieldType))
            return;
        kind();
        m_editor.title = title;
    });
}

// Unlike InitDir and Title, Filter does not look at the type: on any field but a file field
// it fails for want of a file selector. Intended.
QString FieldPrivate::Filter() const
{
    return trap("Property 'Filter' of Class Module 'Field'", [&]() -> QString {
        if (m_FieldType != ftFileSelector)
            raise(ErrObjectRequired);
        kind();
        return m_editor.filter;
    });
}

void FieldPrivate::setFilter(const QString &filter)
{
    trap("Property 'Filter' of Class Module 'Field'", [&] {
        if (m_FieldType != ftFileSelector)
            raise(ErrObjectRequired);
        kind();
        m_editor.filter = filter;
    });
}

void FieldPrivate::addComboEntry(const QString &text, qint32 itemData)
{
    if (m_FieldType != ftCombo)
        raise(ErrObjectRequired);
    kind();
    m_editor.entries.append({ text, itemData });
    showChanges();
}

void FieldPrivate::setUseItemData(bool use)
{
    if (m_FieldType != ftCombo)
        raise(ErrObjectRequired);
    kind();
    m_editor.useItemData = use;
}

} // namespace kwFieldDeck
