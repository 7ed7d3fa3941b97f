#include "fieldmodel/DropDownValue.h"

namespace kwFieldDeck {

DropDownValue::DropDownValue(QObject *parent)
    : QObject(parent)
{
}

} // namespace kwFieldDeck
