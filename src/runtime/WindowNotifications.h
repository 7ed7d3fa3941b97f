#pragma once

#include <QString>

class QWidget;

namespace kwFieldDeck {

// Called by the library's windows when they are loaded and closed. A window's placement is
// remembered per application title in the settings store (section "Windows", keyed by the
// window's object name) and restored the next time that window is loaded.
void windowLoaded(QWidget *window, const QString &appTitle);
void windowClosed(QWidget *window);

} // namespace kwFieldDeck
