#pragma once

#include <kwFieldDeck/DropDownValue.h>

#include <QList>
#include <QObject>
#include <QVariant>

#include <memory>

/*!
    \file DropDownValues.h
    \brief The entries of a drop-down field.
*/

namespace kwFieldDeck {

class DropDownValuesPrivate;

/*!
    \brief The entries of a drop-down (ftCombo) field, in order and by key.

    Field::DropDownValues() gives a field's entries. Adding an entry also fills the list of the
    field's drop-down editor. Entries taken out by Remove() stay owned by this object, so a host
    that still holds one keeps a valid object.

    A failure (a missing entry, a duplicate key) is reported through the error report (see
    setErrorReportHandler()) and the call returns an empty result.
*/
class KWFIELDDECK_EXPORT DropDownValues : public QObject
{
    Q_OBJECT
    //! Whether the field's value is the chosen entry's key (true) or its text (false).
    Q_PROPERTY(bool UseComboItemData READ UseComboItemData WRITE setUseComboItemData)
    //! The number of entries.
    Q_PROPERTY(int Count READ Count)
public:
    //! An empty collection, owned by \a parent, that belongs to no field: Add() on it reports
    //! error 91. A field makes its own (Field::DropDownValues()).
    explicit DropDownValues(QObject *parent = nullptr);
    ~DropDownValues() override;

    /*!
        Adds an entry that shows \a DisplayValue under the key \a Key, appends the text to the
        field's drop-down list and returns the entry. The list item is numbered with the key's
        leading number (0 for a key such as "R"), the number by which the field's value names
        the entry (see Field::Value() and Field::setValue()).

        An empty key makes up the collection's next number ("1", "2", ..., never used twice) as
        the key and sets UseComboItemData() to false; a key given sets it to true. The most
        recent Add() decides. A field that is not a drop-down gets no entry, and null is
        returned. A key already present (compared without regard to letter case) is reported as
        error 457 and null is returned, after the flag (and for an empty key the counter) has
        changed.
    */
    DropDownValue *Add(const QString &Key, const QString &DisplayValue);
    /*!
        The entry at a 1-based position (a number) or under a key (a text, even "2", compared
        without regard to letter case). A position out of range is reported as error 9, a
        missing key as error 5; both return null.
    */
    DropDownValue *Item(const QVariant &vntIndexKey) const;
    //! The number of entries.
    int Count() const;
    /*!
        Takes out the entry at a 1-based position or under a key (as Item() finds it). The
        field's drop-down list keeps showing the entry.
    */
    void Remove(const QVariant &vntIndexKey);

    //! Whether the field's value is the chosen entry's key (true) or its text (false); see
    //! Field::Value() for a drop-down that a definition gave entries without keys.
    bool UseComboItemData() const;
    //! Sets whether the field's value is the chosen entry's key; the next Add() decides again.
    void setUseComboItemData(bool use);

    //! The first entry, for range-based for loops over the entries in order.
    QList<DropDownValue *>::const_iterator begin() const;
    //! Past the last entry.
    QList<DropDownValue *>::const_iterator end() const;

private:
    Q_DECLARE_PRIVATE(DropDownValues)
    const std::unique_ptr<DropDownValuesPrivate> d_ptr;
};

} // namespace kwFieldDeck
