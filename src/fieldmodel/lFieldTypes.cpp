#include "fieldmodel/lFieldTypes_p.h"

namespace kwFieldDeck {

QString fieldTypeNames()
{
    return QStringLiteral(
        "TEXT,NUMERIC,CHECKBOX,COMBO,DATE,SLIDER,FILESELECTOR,FOLDERSELECTOR,MEMO");
}

} // namespace kwFieldDeck
