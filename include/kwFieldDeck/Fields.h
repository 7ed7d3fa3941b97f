#pragma once

#include <kwFieldDeck/lFieldTypes.h>

#include <QList>
#include <QObject>
#include <QVariant>

#include <memory>

/*!
    \file Fields.h
    \brief The grid's fields.
*/

namespace kwFieldDeck {

class DropDownValues;
class Field;
class FieldsPrivate;

/*!
    \brief The grid's fields, in order and by name (compared without regard to letter case).

    kwPropertyControl::Fields() gives the grid's collection. Add() is the one way a field is
    made together with its row. Fields taken out by Remove() or Clear() stay owned by this
    object, hidden, so a host that still holds one keeps a valid object.

    A failure (a missing field) is reported through the error report (see
    setErrorReportHandler()) and the call returns an empty result.
*/
class KWFIELDDECK_EXPORT Fields : public QObject
{
    Q_OBJECT
    //! The number of fields.
    Q_PROPERTY(int Count READ Count)
    //! A collection of drop-down entries that the host may keep here; no field uses it.
    Q_PROPERTY(
        kwFieldDeck::DropDownValues *DropDownValues READ DropDownValues WRITE setDropDownValues)
public:
    //! An empty collection of no grid, a child of \a parent; Add() on it reports error 91 and
    //! returns null. A grid makes its own (kwPropertyControl::Fields()).
    explicit Fields(QObject *parent = nullptr);
    ~Fields() override;

    /*!
        Adds a field named \a Name of type \a FieldType and returns it. Its row is placed below
        the last row at once, and enters the scroll range at the next
        kwPropertyControl::Refresh(true). The field gets the grid's font, the value \a Value
        (with Field::setValue(), so kwPropertyControl::Changed is raised when that changes what
        the new editor shows), the most characters \a Size (text fields; 0 for no limit) and
        the description \a Description.

        A name already present (compared without regard to letter case) shows the message
        "Field: <Name> already exists in Fields Collection!" and returns null; the rejected
        field's row shows below the last row all the same, until the next row added takes its
        place.
    */
    Field *Add(const QString &Name, lFieldTypes FieldType, qint32 Size = 0,
        const QString &Value = {}, const QString &Description = {});
    /*!
        The field at a 1-based position (a number) or under a name (a text, even "2", compared
        without regard to letter case). A position out of range is reported as error 9, a
        missing name as error 5; both return null.
    */
    Field *Item(const QVariant &vntIndexKey) const;
    //! The number of fields.
    int Count() const;
    /*!
        Takes out and hides the field at a 1-based position or under a name (as Item() finds
        it), and lets go of its editor. The rows below keep their places until
        kwPropertyControl::Refresh(true).
    */
    void Remove(const QVariant &vntIndexKey);
    //! Takes out and hides every field, and lays the grid out again. The scroll position is
    //! kept, so rows added afterwards show from there on: call
    //! kwPropertyControl::setFirstRow() with 0 to show them from the top.
    void Clear();

    //! The host's collection of drop-down entries; made when first asked for. It belongs to no
    //! field, so its DropDownValues::Add() reports error 91.
    kwFieldDeck::DropDownValues *DropDownValues();
    //! Keeps \a values as the host's collection of drop-down entries, without taking it over.
    void setDropDownValues(kwFieldDeck::DropDownValues *values);

    //! The first field, for range-based for loops over the fields in order.
    QList<Field *>::const_iterator begin() const;
    //! Past the last field.
    QList<Field *>::const_iterator end() const;

private:
    Q_DECLARE_PRIVATE(Fields)
    const std::unique_ptr<FieldsPrivate> d_ptr;
};

} // namespace kwFieldDeck
