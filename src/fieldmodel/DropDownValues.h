#pragma once

#include "fieldmodel/DropDownValue.h"
#include "fieldmodel/KeyedCollection.h"

#include <QObject>
#include <QVariant>

namespace kwFieldDeck {

class Field;

// The entries of a drop-down field, in order and by key. Adding an entry also fills the list of
// the field's drop-down editor. Entries stay owned by this object after they are removed, so a
// host that still holds one keeps a valid object.
class DropDownValues : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool UseComboItemData READ UseComboItemData WRITE setUseComboItemData)
    Q_PROPERTY(int Count READ Count)
public:
    explicit DropDownValues(QObject *parent = nullptr);

    DropDownValue *Add(const QString &Key, const QString &DisplayValue);
    DropDownValue *Item(const QVariant &vntIndexKey) const;
    int Count() const;
    void Remove(const QVariant &vntIndexKey);

    bool UseComboItemData() const { return m_UseComboItemData; }
    void setUseComboItemData(bool use) { m_UseComboItemData = use; }

    // Library-internal: the field whose entries these are.
    Field *ParentClass() const { return m_ParentClass; }
    void setParentClass(Field *field) { m_ParentClass = field; }

    auto begin() const { return m_values.begin(); }
    auto end() const { return m_values.end(); }

private:
    KeyedCollection<DropDownValue> m_values;
    Field *m_ParentClass = nullptr;
    bool m_UseComboItemData = false;
    qint32 m_keyCounter = 0;
};

} // namespace kwFieldDeck
