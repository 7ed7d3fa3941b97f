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
    //! An empty collection, owned by \a parent, that belongs to no field yet.
    explicit DropDownValues(QObject *parent = nullptr);
    ~DropDownValues() override;

    /*!
        Adds an entry that shows \a DisplayValue, under the key \a Key, and returns it. An empty
        key makes up the next number ("1", "2", ...) as the key and makes the field's value the
        entry's text; a key given makes the value the key (the most recent Add decides, see
        UseComboItemData). A field that is not a drop-down gets no entry and null is returned; a
        key already present is error 457 and returns null.
    */
    DropDownValue *Add(const QString &Key, const QString &DisplayValue);
    /*!
        The entry at a 1-based position (a number) or under a key (a text, compared without
        regard to letter case). A position out of range is error 9, a missing key error 5; both
        return null.
    */
    DropDownValue *Item(const QVariant &vntIndexKey) const;
    //! The number of entries.
    int Count() const;
    /*!
        Takes out the entry at a 1-based position or under a key (as Item() finds it). The
        drop-down list keeps showing the entry until the field's editor is made again.
    */
    void Remove(const QVariant &vntIndexKey);

    //! Whether the field's value is the chosen entry's key (true) or its text (false).
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
