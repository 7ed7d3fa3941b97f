#pragma once

#include "fieldmodel/KeyedCollection.h"
#include "fieldmodel/lFieldTypes.h"

#include <QObject>
#include <QVariant>

namespace kwFieldDeck {

class DropDownValues;
class Field;
class kwPropertyControl;

// The grid's fields, in order and by name (compared without regard to case). Add is the one way
// a field is created together with its row. Fields taken out by Remove or Clear stay owned by
// this object, hidden, so a host that still holds one keeps a valid object.
class Fields : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int Count READ Count)
    Q_PROPERTY(
        kwFieldDeck::DropDownValues *DropDownValues READ DropDownValues WRITE setDropDownValues)
public:
    explicit Fields(QObject *parent = nullptr);
    ~Fields() override;

    Field *Add(const QString &Name, lFieldTypes FieldType, qint32 Size = 0,
        const QString &Value = {}, const QString &Description = {});
    Field *Item(const QVariant &vntIndexKey) const;
    int Count() const;
    void Remove(const QVariant &vntIndexKey);
    void Clear();

    kwFieldDeck::DropDownValues *DropDownValues();
    void setDropDownValues(kwFieldDeck::DropDownValues *values) { m_DropDownValues = values; }

    auto begin() const { return m_fields.begin(); }
    auto end() const { return m_fields.end(); }

    // Library-internal members.
    kwPropertyControl *ParentClass() const { return m_ParentClass; }
    void setParentClass(kwPropertyControl *grid) { m_ParentClass = grid; }
    void Refresh();
    void ClearSelectedRows();
    // Unchecked access by 0-based index for the grid's layout loop.
    Field *at(int index) const { return m_fields.at(index); }
    // Item 1 for the grid's SetFocus: a missing field is raised, not reported.
    Field *First() const { return m_fields.item(1); }
    // The last field in collection order that has a name cell: the new row goes below it.
    Field *LastLabelledField();
    // A field got a new name cell; the last labelled field is looked up again when needed.
    void fieldLabelled() { m_lastLabelledKnown = false; }

private:
    KeyedCollection<Field> m_fields;
    kwFieldDeck::DropDownValues *m_DropDownValues = nullptr;
    kwPropertyControl *m_ParentClass = nullptr;
    Field *m_LastLabelledField = nullptr;
    bool m_lastLabelledKnown = true;
};

} // namespace kwFieldDeck
