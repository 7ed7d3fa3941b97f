#pragma once

#include <QString>

namespace kwFieldDeck {

// The text without its leading and trailing blanks. Blanks only: tabs and lone line-break
// characters stay.
QString TrimBlanks(const QString &text);

// The text without its tab characters.
QString RemoveTabs(const QString &text);

} // namespace kwFieldDeck
