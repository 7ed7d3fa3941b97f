#pragma once

#include <kwFieldDeck/Global.h>

#include <QObject>
#include <QString>

#include <memory>

/*!
    \file DropDownValue.h
    \brief One entry of a drop-down field.
*/

namespace kwFieldDeck {

class DropDownValuePrivate;

/*!
    \brief One entry of a drop-down (ftCombo) field: its key in the field's DropDownValues and
    the text the list shows.

    Entries are made by DropDownValues::Add(), which also puts the text into the field's list.
    Changing an entry's properties later changes only the entry, not the list on screen.
*/
class KWFIELDDECK_EXPORT DropDownValue : public QObject
{
    Q_OBJECT
    //! The entry's key in its collection, compared without regard to letter case.
    Q_PROPERTY(QString Key READ Key WRITE setKey)
    //! The text the drop-down list shows for the entry.
    Q_PROPERTY(QString DisplayValue READ DisplayValue WRITE setDisplayValue)
public:
    //! An entry with an empty key and text, owned by \a parent.
    explicit DropDownValue(QObject *parent = nullptr);
    ~DropDownValue() override;

    //! The entry's key: the one given to DropDownValues::Add(), or the number made up there.
    QString Key() const;
    //! Sets the key; the collection keeps finding the entry under the key it was added with.
    void setKey(const QString &key);
    //! The text the drop-down list shows for the entry.
    QString DisplayValue() const;
    //! Sets the entry's text; the list on screen keeps the text it was added with.
    void setDisplayValue(const QString &value);

private:
    Q_DECLARE_PRIVATE(DropDownValue)
    const std::unique_ptr<DropDownValuePrivate> d_ptr;
};

} // namespace kwFieldDeck
