#include "fieldmodel/DropDownValues_p.h"

namespace kwFieldDeck {

DropDownValue::DropDownValue(QObject *parent)
    : QObject(parent)
    , d_ptr(std::make_unique<DropDownValuePrivate>())
{
}

DropDownValue::~DropDownValue() = default;

QString DropDownValue::Key() const
{
    return d_func()->Key;
}

void DropDownValue::setKey(const QString &key)
{
    d_func()->Key = key;
}

QString DropDownValue::DisplayValue() const
{
    return d_func()->DisplayValue;
}

void DropDownValue::setDisplayValue(const QString &value)
{
    d_func()->DisplayValue = value;
}

} // namespace kwFieldDeck
