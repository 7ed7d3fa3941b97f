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

bool browsesPaths(qint32 type)
{
    return type == ftFileSelector || type == ftFolderSelector;
}
} // namespace

Field::Field(QObject *parent)
    : QObject(parent)
    , d_ptr(std::make_unique<FieldPrivate>(this))
{
}

Field::~Field() = default;

// The properties: each setter keeps the field's state and shows it on the row.
QString Field::Name() const
{
    return d_func()->m_Name;
}

void Field::setName(const QString &name)
{
    Q_D(Field);
    trap("Property 'Name' of Class Module 'Field'", [&] {
        d->m_Name = name;
        if (!d->m_hasNameCell)
            raise(ErrObjectRequired);
        d->showChanges();
    });
}

QString Field::Description() const
{
    return d_func()->m_Description;
}

void Field::setDescription(const QString &description)
{
    Q_D(Field);
    trap("Property 'Description' of Class Module 'Field'", [&] {
        d->m_Description = description;
        if (!d->m_hasNameCell)
            raise(ErrObjectRequired);
        d->showChanges();
    });
}

qint32 Field::Size() const
{
    return d_func()->m_Size;
}

void Field::setSize(qint32 size)
{
    Q_D(Field);
    trap("Property 'Size' of Class Module 'Field'", [&] {
        d->m_Size = size;
        if (d->m_FieldType != ftText)
            return;
        d->kind();
        d->m_editor.maxLength = std::max(0, size);
        d->showChanges();
    });
}

lFieldTypes Field::FieldType() const
{
    return lFieldTypes(d_func()->m_FieldType);
}

void Field::setFieldType(lFieldTypes type)
{
    Q_D(Field);
    trap("Property 'FieldType' of Class Module 'Field'", [&] {
        // A warning only: the type still changes below. Intended.
        if (d->m_FieldType != 0)
            MsgBox(QStringLiteral("Field:") + d->m_Name
                    + QStringLiteral("\r\nCan't Change Field Type once it has already been set!"),
                MsgBoxStyle::OKOnly, QString());
        if (type == d->m_FieldType)
            return;
        d->m_FieldType = type;
        d->Grid()->AddField(this);
        d->m_hasNameCell = true;
        // The editor of an earlier type stays on the grid: intended.
        if (const FieldKind *kind = FieldKind::of(type))
            d->createEditor(kind);
        else
            d->m_hasEditor = false;
    });
}

QVariant Field::Value() const
{
    return d_func()->Value();
}

void Field::setValue(const QVariant &value)
{
    Q_D(Field);
    trap("Property 'Value' of Class Module 'Field'", [&] {
        d->m_Value = value;
        if (!hasEditorType(d->m_FieldType))
            return;
        Changes changes;
        d->kind().showValue(d->m_Value, d->m_editor, changes);
        d->showChanges();
        d->reportChanges(changes);
    });
}

QVariant Field::Min() const
{
    return d_func()->m_Min;
}

void Field::setMin(const QVariant &min)
{
    Q_D(Field);
    trap("Property 'Min' of Class Module 'Field'", [&] {
        d->m_Min = min;
        Changes changes;
        switch (d->m_FieldType) {
        case ftDate:
        case ftSlider:
            d->kind().applyMin(d->m_Min, d->m_editor, changes);
            break;
        case ftText:
            // Setting Min of a text field moves the focus to it: intended.
            d->kind();
            if (d->m_editor.enabled)
                d->Grid()->FocusRowEditor(this);
            return;
        default:
            return;
        }
        d->showChanges();
        d->reportChanges(changes);
    });
}

QVariant Field::Max() const
{
    return d_func()->m_Max;
}

void Field::setMax(const QVariant &max)
{
    Q_D(Field);
    trap("Property 'Max' of Class Module 'Field'", [&] {
        d->m_Max = max;
        if (d->m_FieldType != ftDate && d->m_FieldType != ftSlider)
            return;
        Changes changes;
        d->kind().applyMax(d->m_Min, d->m_Max, d->m_editor, changes);
        d->showChanges();
        d->reportChanges(changes);
    });
}

bool Field::Enabled() const
{
    return d_func()->m_Enabled;
}

void Field::setEnabled(bool enabled)
{
    Q_D(Field);
    trap("Property 'Enabled' of Class Module 'Field'", [&] {
        if (enabled == d->m_Enabled)
            return;
        d->m_Enabled = enabled;
        if (!d->m_hasNameCell)
            raise(ErrObjectRequired);
        if (hasEditorType(d->m_FieldType)) {
            d->kind();
            d->m_editor.enabled = enabled;
        }
        d->showChanges();
    });
}

bool Field::Visible() const
{
    return d_func()->m_Visible;
}

void Field::setVisible(bool visible)
{
    Q_D(Field);
    trap("Property 'Visible' of Class Module 'Field'", [&] {
        if (visible == d->m_Visible)
            return;
        d->m_Visible = visible;
        if (!d->m_hasNameCell)
            raise(ErrObjectRequired);
        if (hasEditorType(d->m_FieldType) && !d->m_editorKind)
            raise(ErrObjectRequired);
        d->Grid()->rowShownOrHidden(this);
    });
}

OleColor Field::ForeColor() const
{
    return d_func()->m_ForeColor;
}

void Field::setForeColor(OleColor color)
{
    d_func()->setColor("Property 'ForeColor' of Class Module 'Field'", &FieldPrivate::m_ForeColor,
        &EditorState::foreColor, color);
}

OleColor Field::BackColor() const
{
    return d_func()->m_BackColor;
}

void Field::setBackColor(OleColor color)
{
    d_func()->setColor("Property 'BackColor' of Class Module 'Field'", &FieldPrivate::m_BackColor,
        &EditorState::backColor, color);
}

QString Field::InitDir() const
{
    return d_func()->pathSetting(
        "Property 'InitDir' of Class Module 'Field'", &EditorState::initDir);
}

void Field::setInitDir(const QString &dir)
{
    d_func()->setPathSetting(
        "Property 'InitDir' of Class Module 'Field'", &EditorState::initDir, dir);
}

QString Field::Title() const
{
    return d_func()->pathSetting("Property 'Title' of Class Module 'Field'", &EditorState::title);
}

void Field::setTitle(const QString &title)
{
    d_func()->setPathSetting(
        "Property 'Title' of Class Module 'Field'", &EditorState::title, title);
}

// Unlike InitDir and Title, Filter does not look at the type: on any field but a file field
// it fails for want of a file selector. Intended.
QString Field::Filter() const
{
    Q_D(const Field);
    return trap("Property 'Filter' of Class Module 'Field'", [&]() -> QString {
        if (d->m_FieldType != ftFileSelector)
            raise(ErrObjectRequired);
        d->kind();
        return d->m_editor.filter;
    });
}

void Field::setFilter(const QString &filter)
{
    Q_D(Field);
    trap("Property 'Filter' of Class Module 'Field'", [&] {
        if (d->m_FieldType != ftFileSelector)
            raise(ErrObjectRequired);
        d->kind();
        d->m_editor.filter = filter;
    });
}

kwFieldDeck::DropDownValues *Field::DropDownValues() const
{
    return d_func()->DropDownValues();
}

void Field::SetFocus()
{
    Q_D(Field);
    trap("Sub 'SetFocus' of Class Module 'Field'", [&] {
        // A slider field does not take the focus this way: intended.
        if (d->m_FieldType == ftSlider || !hasEditorType(d->m_FieldType))
            return;
        d->kind();
        // A disabled text or number box keeps the focus where it is.
        if ((d->m_FieldType == ftText || d->m_FieldType == ftNumeric) && !d->m_editor.enabled)
            return;
        d->Grid()->FocusRowEditor(this);
    });
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

void FieldPrivate::reportChanges(const Changes &changes)
{
    for (const QVariant &changed : changes)
        ChangeChain(changed);
}

void FieldPrivate::setColor(const char *source, OleColor FieldPrivate::*stored,
    OleColor EditorState::*shown, OleColor color)
{
    trap(source, [&] {
        this->*stored = color;
        // A date field only stores its colours: intended.
        if (m_FieldType == ftDate || !hasEditorType(m_FieldType))
            return;
        kind();
        m_editor.*shown = color;
        m_editor.colorsSet = true;
        showChanges();
    });
}

// InitDir and Title belong to the file and folder editors; on any other type they read empty
// and take nothing.
QString FieldPrivate::pathSetting(const char *source, QString EditorState::*setting) const
{
    return trap(source, [&]() -> QString {
        if (!browsesPaths(m_FieldType))
            return QString();
        kind();
        return m_editor.*setting;
    });
}

void FieldPrivate::setPathSetting(
    const char *source, QString EditorState::*setting, const QString &text)
{
    trap(source, [&] {
        if (!browsesPaths(m_FieldType))
            return;
        kind();
        m_editor.*setting = text;
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
