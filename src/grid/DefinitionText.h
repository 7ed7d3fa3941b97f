#pragma once

#include <QString>

namespace kwFieldDeck {

// A definition text tidied for ReadDef: blanks and tabs gone from the ends of every line, CR LF
// pairs gone from both ends, and each pair of empty line breaks folded into one.
QString CleanDefinitionText(const QString &DefString);

} // namespace kwFieldDeck
