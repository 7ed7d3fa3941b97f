#include "fieldmodel/Fields_p.h"

#include "fieldmodel/Field_p.h"

#include "runtime/Error.h"
#include "runtime/MessageBox.h"
#include "runtime/Values.h"
#include <kwFieldDeck/DropDownValues.h>

namespace kwFieldDeck {

Fields::Fields(QObject *parent)
    : QObject(parent)
    , d_ptr(std::make_unique<FieldsPrivate>())
{
}

Fields::~Fields() = default;

Field *Fields::Add(const QString &Name, lFieldTypes FieldType, qint32 Size, const QString &Value,
    const QString &Description)
{
    Q_D(Fields);
    return trap("Function 'Add' of Class Module 'Fields'", [&]() -> Field * {
        auto *field = new Field(this);
        FieldPrivate *row = FieldPrivate::get(field);
        row->setParentClass(this);
        field->setFieldType(FieldType);
        field->setName(Name);
        // Every row shows the grid's font.
        require(d->m_ParentClass);
        field->setValue(textValue(Value));
        field->setSize(Size);
        field->setDescription(Description);
        const CaselessKey key(Name);
        if (d->m_fields.contains(key)) {
            // Shown, not raised; the rejected field's row stays on the grid: intended.
            MsgBox(QStringLiteral("Field: ") + Name
                    + QStringLiteral(" already exists in Fields Collection!"),
                MsgBoxStyle::OKOnly, QString());
            return nullptr;
        }
        d->m_fields.add(field, key);
        return field;
    });
}

Field *Fields::Item(const QVariant &vntIndexKey) const
{
    Q_D(const Fields);
    return trap(
        "Property 'Item' of Class Module 'Fields'", [&] { return d->m_fields.item(vntIndexKey); });
}

int Fields::Count() const
{
    return d_func()->m_fields.count();
}

QList<Field *>::const_iterator Fields::begin() const
{
    return d_func()->m_fields.begin();
}

QList<Field *>::const_iterator Fields::end() const
{
    return d_func()->m_fields.end();
}

void Fields::Remove(const QVariant &vntIndexKey)
{
    Q_D(Fields);
    trap("Sub 'Remove' of Class Module 'Fields'", [&] {
        Field *field = d->m_fields.item(vntIndexKey);
        field->setVisible(false);
        FieldPrivate::get(field)->Kill();
        d->m_fields.remove(vntIndexKey);
        // The grid is not laid out again: intended.
    });
}

void Fields::Clear()
{
    Q_D(Fields);
    trap("Sub 'Clear' of Class Module 'Fields'", [&] {
        // Unlike Remove, Clear leaves the editor references alone: intended.
        while (!d->m_fields.isEmpty()) {
            d->m_fields.at(0)->setVisible(false);
            d->m_fields.remove(1);
        }
        d->Refresh();
    });
}

kwFieldDeck::DropDownValues *Fields::DropDownValues()
{
    Q_D(Fields);
    if (!d->m_DropDownValues)
        d->m_DropDownValues = new kwFieldDeck::DropDownValues(this);
    return d->m_DropDownValues;
}

void Fields::setDropDownValues(kwFieldDeck::DropDownValues *values)
{
    d_func()->m_DropDownValues = values;
}

void FieldsPrivate::Refresh()
{
    trap("Sub 'Refresh' of Class Module 'Fields'", [&] { require(m_ParentClass)->Refresh(true); });
}

void FieldsPrivate::ClearSelectedRows()
{
    trap("Sub 'ClearSelectedRows' of Class Module 'Fields'",
        [&] { require(m_ParentClass)->setHighlighted(nullptr); });
}

} // namespace kwFieldDeck
