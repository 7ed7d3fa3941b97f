#pragma once

#include <QString>

#include <functional>

namespace kwFieldDeck {

// Buttons and icon of a message box, combined as on the original platform (Critical + OKOnly).
namespace MsgBoxStyle {
constexpr int OKOnly = 0, OKCancel = 1, YesNo = 4, Critical = 16, Question = 32, Exclamation = 48,
              Information = 64;
} // namespace MsgBoxStyle

namespace MsgBoxResult {
constexpr int OK = 1, Cancel = 2, Yes = 6, No = 7;
} // namespace MsgBoxResult

// Shows a message box and returns the button chosen. An empty title shows the application's name.
int MsgBox(
    const QString &prompt, int style = MsgBoxStyle::OKOnly, const QString &title = QString());

// The seam: a handler that answers message boxes instead of the screen (tests, programs with no
// display). Returns the previous one; an empty handler restores the QMessageBox.
using MessageBoxHandler
    = std::function<int(const QString &prompt, int style, const QString &title)>;
MessageBoxHandler setMessageBoxHandler(MessageBoxHandler handler);

} // namespace kwFieldDeck
