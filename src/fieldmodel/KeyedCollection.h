#pragma once

#include "runtime/CaselessKey.h"
#include "runtime/Error.h"
#include "runtime/Values.h"

#include <QHash>
#include <QList>
#include <QString>
#include <QVariant>

namespace kwFieldDeck {

// The ordered, keyed collection behind Fields and DropDownValues: positions are 1-based, keys
// are compared without regard to case and looked up by hash. It holds the items, it does not
// own them.
template <typename T>
class KeyedCollection
{
public:
    // Appends an item under a key; a key already present is error 457.
    void add(T *item, const CaselessKey &caseless)
    {
        // One look-up: the slot is made empty when the key is new.
        T *&slot = m_byKey[caseless];
        if (slot)
            raise(ErrDuplicateKey);
        slot = item;
        m_items.append(item);
        m_keys.append(caseless);
    }

    // A 1-based position or a key; a missing element is error 9 (position) or 5 (key). A key
    // is one hash lookup, so a host setting every value by name stays linear in the fields.
    T *item(const QVariant &indexKey) const
    {
        if (kindOf(indexKey) == ValueKind::Text)
            return byKey(indexKey.toString());
        return m_items.at(position(indexKey));
    }

    void remove(const QVariant &indexKey)
    {
        const qsizetype at = kindOf(indexKey) == ValueKind::Text
            ? m_items.indexOf(byKey(indexKey.toString()))
            : position(indexKey);
        m_byKey.remove(m_keys.at(at));
        m_items.removeAt(at);
        m_keys.removeAt(at);
    }

    int count() const { return int(m_items.size()); }
    bool isEmpty() const { return m_items.isEmpty(); }
    // Unchecked access by 0-based index, for the library's own loops.
    T *at(int index) const { return m_items.at(index); }
    T *last() const { return m_items.isEmpty() ? nullptr : m_items.last(); }
    bool contains(const CaselessKey &key) const { return m_byKey.contains(key); }

    typename QList<T *>::const_iterator begin() const { return m_items.cbegin(); }
    typename QList<T *>::const_iterator end() const { return m_items.cend(); }

private:
    T *byKey(const QString &key) const
    {
        T *found = m_byKey.value({ key });
        if (!found)
            raise(ErrInvalidCall);
        return found;
    }

    qsizetype position(const QVariant &indexKey) const
    {
        const qint32 position = toInt32(indexKey);
        if (position < 1 || position > m_items.size())
            raise(ErrSubscriptOutOfRange);
        return position - 1;
    }

    QList<T *> m_items;
    QList<CaselessKey> m_keys;
    QHash<CaselessKey, T *> m_byKey;
};

} // namespace kwFieldDeck
