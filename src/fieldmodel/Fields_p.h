#pragma once

#include <kwFieldDeck/Fields.h>

#include "fieldmodel/KeyedCollection.h"

namespace kwFieldDeck {

class FieldHost;

class FieldsPrivate
{
public:
    static FieldsPrivate *get(Fields *fields) { return fields->d_func(); }
    static const FieldsPrivate *get(const Fields *fields) { return fields->d_func(); }

    void Refresh();
    void ClearSelectedRows();
    // Item 1 for the grid's SetFocus: a missing field is raised, not reported.
    Field *First() const { return m_fields.item(1); }
    KeyedCollection<Field> m_fields;
    kwFieldDeck::DropDownValues *m_DropDownValues = nullptr;
    // The grid whose rows these are.
    FieldHost *m_ParentClass = nullptr;
};

} // namespace kwFieldDeck
