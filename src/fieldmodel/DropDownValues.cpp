#include "fieldmodel/DropDownValues.h"

#include "editors/kwComboField.h"
#include "fieldmodel/Field.h"
#include "platform/ComboBox.h"
#include "platform/Error.h"
#include "platform/Values.h"

namespace kwFieldDeck {

DropDownValues::DropDownValues(QObject *parent)
    : QObject(parent)
{
}

DropDownValue *DropDownValues::Add(const QString &Key, const QString &DisplayValue)
{
    return trap("Function 'Add' of Class Module 'DropDownValues'", [&]() -> DropDownValue * {
        if (require(m_ParentClass)->FieldType() != ftCombo)
            return nullptr;
        auto *entry = new DropDownValue(this);
        QString key = Key;
        // The most recent Add alone decides the flag (last one wins): intended.
        if (key.isEmpty()) {
            m_UseComboItemData = false;
            ++m_keyCounter;
            key = QString::number(m_keyCounter);
        } else {
            m_UseComboItemData = true;
        }
        entry->setKey(key);
        entry->setDisplayValue(DisplayValue);
        m_values.add(entry, key);
        ComboBox *list = require(require(m_ParentClass->ValueComboBox())->ComboControl());
        list->AddItem(DisplayValue);
        list->setItemData(list->NewIndex(), roundToInt32(leadingNumber(key)));
        return entry;
    });
}

DropDownValue *DropDownValues::Item(const QVariant &vntIndexKey) const
{
    return trap("Property 'Item' of Class Module 'DropDownValues'",
        [&] { return m_values.item(vntIndexKey); });
}

int DropDownValues::Count() const
{
    return m_values.count();
}

void DropDownValues::Remove(const QVariant &vntIndexKey)
{
    // The drop-down list keeps the entry until the editor is rebuilt: intended.
    trap("Sub 'Remove' of Class Module 'DropDownValues'", [&] { m_values.remove(vntIndexKey); });
}

} // namespace kwFieldDeck
