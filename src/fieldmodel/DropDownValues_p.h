#pragma once

#include <kwFieldDeck/DropDownValues.h>

#include "fieldmodel/KeyedCollection.h"

namespace kwFieldDeck {

class Field;

class DropDownValuePrivate
{
public:
    QString Key;
    QString DisplayValue;
};

class DropDownValuesPrivate
{
public:
    static DropDownValuesPrivate *get(DropDownValues *values) { return values->d_func(); }

    KeyedCollection<DropDownValue> m_values;
    // The field whose entries these are.
    Field *m_ParentClass = nullptr;
    bool m_UseComboItemData = false;
    qint32 m_keyCounter = 0;
};

} // namespace kwFieldDeck
