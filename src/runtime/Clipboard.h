#pragma once

#include <QString>

namespace kwFieldDeck {

// The desktop's clipboard as text. The system's CR LF line breaks become the desktop's LF on
// the way out and come back as CR LF.
namespace Clipboard {

void Clear();
void SetText(const QString &text);
QString GetText();

} // namespace Clipboard
} // namespace kwFieldDeck
