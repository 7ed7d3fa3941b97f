#include "fieldmodel/Fields.h"

#include "fieldmodel/DropDownValues.h"
#include "fieldmodel/Field.h"
#include "grid/kwPropertyControl.h"
#include "platform/Error.h"
#include "platform/MessageBox.h"
#include "platform/TextBox.h"
#include "platform/Values.h"

namespace kwFieldDeck {

Fields::Fields(QObject *parent)
    : QObject(parent)
{
}

Fields::~Fields() = default;

Field *Fields::Add(const QString &Name, lFieldTypes FieldType, qint32 Size, const QString &Value,
    const QString &Description)
{
    return trap("Function 'Add' of Class Module 'Fields'", [&]() -> Field * {
        auto *field = new Field(this);
        field->setParentClass(this);
        field->setFieldType(FieldType);
        field->setName(Name);
        field->setFont(require(m_ParentClass)->Font());
        field->setValue(textValue(Value));
        field->setSize(Size);
        field->setDescription(Description);
        if (m_fields.contains(Name)) {
            // Shown, not raised; the rejected field's row stays on the grid: intended.
            MsgBox(QStringLiteral("Field: ") + Name
                    + QStringLiteral(" already exists in Fields Collection!"),
                MsgBoxStyle::OKOnly, QString());
            return nullptr;
        }
        m_fields.add(field, Name);
        if (field->FieldNameControl()) {
            m_LastLabelledField = field;
            m_lastLabelledKnown = true;
        }
        return field;
    });
}

Field *Fields::Item(const QVariant &vntIndexKey) const
{
    return trap(
        "Property 'Item' of Class Module 'Fields'", [&] { return m_fields.item(vntIndexKey); });
}

int Fields::Count() const
{
    return m_fields.count();
}

void Fields::Remove(const QVariant &vntIndexKey)
{
    trap("Sub 'Remove' of Class Module 'Fields'", [&] {
        Field *field = m_fields.item(vntIndexKey);
        field->setVisible(false);
        field->Kill();
        m_fields.remove(vntIndexKey);
        m_lastLabelledKnown = false;
        // The grid is not laid out again: intended.
    });
}

void Fields::Clear()
{
    trap("Sub 'Clear' of Class Module 'Fields'", [&] {
        // Unlike Remove, Clear leaves the editor references alone: intended.
        while (!m_fields.isEmpty()) {
            m_fields.at(0)->setVisible(false);
            m_fields.remove(1);
        }
        m_LastLabelledField = nullptr;
        m_lastLabelledKnown = true;
        Refresh();
    });
}

kwFieldDeck::DropDownValues *Fields::DropDownValues()
{
    if (!m_DropDownValues)
        m_DropDownValues = new kwFieldDeck::DropDownValues(this);
    return m_DropDownValues;
}

void Fields::Refresh()
{
    trap("Sub 'Refresh' of Class Module 'Fields'", [&] { require(m_ParentClass)->Refresh(true); });
}

void Fields::ClearSelectedRows()
{
    trap("Sub 'ClearSelectedRows' of Class Module 'Fields'", [&] {
        const kwPropertyControl *grid = require(m_ParentClass);
        for (Field *field : m_fields) {
            TextBox *label = require(field->FieldNameControl());
            label->setBackColor(grid->FieldNameBackColor());
            label->setForeColor(grid->FieldNameForeColor());
        }
    });
}

Field *Fields::LastLabelledField()
{
    if (!m_lastLabelledKnown) {
        // From the end: normally the last field has its name cell and the search stops at once.
        m_LastLabelledField = nullptr;
        for (int i = m_fields.count() - 1; i >= 0 && !m_LastLabelledField; --i) {
            if (m_fields.at(i)->FieldNameControl())
                m_LastLabelledField = m_fields.at(i);
        }
        m_lastLabelledKnown = true;
    }
    return m_LastLabelledField;
}

} // namespace kwFieldDeck
