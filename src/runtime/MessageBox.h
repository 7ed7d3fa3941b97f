#pragma once

#include <kwFieldDeck/HostHooks.h>

#include <QString>

namespace kwFieldDeck {

// Shows a message box and returns the button chosen. An empty title shows the application's name.
// An installed MessageBoxHandler answers instead.
int MsgBox(
    const QString &prompt, int style = MsgBoxStyle::OKOnly, const QString &title = QString());

} // namespace kwFieldDeck
