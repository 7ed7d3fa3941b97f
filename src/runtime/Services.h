#pragma once

#include <QString>
#include <QStringList>

namespace kwFieldDeck {

// Synthesised keystrokes, posted to the widget that has the focus without waiting:
// "{tab}" Tab, "+{tab}" Shift+Tab, "^{Tab}" Ctrl+Tab, "{Backspace}", and sequences of these.
// Names in braces are compared without regard to case; "+", "^" and "%" add Shift, Ctrl, Alt.
void SendKeys(const QString &keys);

// The names of the screen fonts, in the order the system reports them.
QStringList screenFontFamilies();

} // namespace kwFieldDeck
