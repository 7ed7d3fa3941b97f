#include "fieldmodel/DropDownValues_p.h"

#include "fieldmodel/Field_p.h"
#include "runtime/Error.h"
#include "runtime/Values.h"

namespace kwFieldDeck {

DropDownValues::DropDownValues(QObject *parent)
    : QObject(parent)
    , d_ptr(std::make_unique<DropDownValuesPrivate>())
{
}

DropDownValues::~DropDownValues() = default;

DropDownValue *DropDownValues::Add(const QString &Key, const QString &DisplayValue)
{
    Q_D(DropDownValues);
    return trap("Function 'Add' of Class Module 'DropDownValues'", [&]() -> DropDownValue * {
        if (require(d->m_ParentClass)->FieldType() != ftCombo)
            return nullptr;
        auto *entry = new DropDownValue(this);
        QString key = Key;
        // The most recent Add alone decides the flag (last one wins): intended.
        if (key.isEmpty()) {
            d->m_UseComboItemData = false;
            ++d->m_keyCounter;
            key = QString::number(d->m_keyCounter);
        } else {
            d->m_UseComboItemData = true;
        }
        entry->setKey(key);
        entry->setDisplayValue(DisplayValue);
        d->m_values.add(entry, key);
        FieldPrivate::get(d->m_ParentClass)
            ->addComboEntry(DisplayValue, roundToInt32(leadingNumber(key)));
        return entry;
    });
}

DropDownValue *DropDownValues::Item(const QVariant &vntIndexKey) const
{
    Q_D(const DropDownValues);
    return trap("Property 'Item' of Class Module 'DropDownValues'",
        [&] { return d->m_values.item(vntIndexKey); });
}

int DropDownValues::Count() const
{
    return d_func()->m_values.count();
}

bool DropDownValues::UseComboItemData() const
{
    return d_func()->m_UseComboItemData;
}

void DropDownValues::setUseComboItemData(bool use)
{
    d_func()->m_UseComboItemData = use;
}

QList<DropDownValue *>::const_iterator DropDownValues::begin() const
{
    return d_func()->m_values.begin();
}

QList<DropDownValue *>::const_iterator DropDownValues::end() const
{
    return d_func()->m_values.end();
}

void DropDownValues::Remove(const QVariant &vntIndexKey)
{
    // The drop-down list keeps the entry until the editor is rebuilt: intended.
    Q_D(DropDownValues);
    trap("Sub 'Remove' of Class Module 'DropDownValues'", [&] { d->m_values.remove(vntIndexKey); });
}

} // namespace kwFieldDeck
