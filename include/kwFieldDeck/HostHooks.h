#pragma once

#include <kwFieldDeck/Global.h>

#include <QString>

#include <functional>

/*!
    \file HostHooks.h
    \brief The two hooks through which a host hears of errors and answers message boxes.
*/

namespace kwFieldDeck {

/*!
    Receives every error report of the library: the error's \a number (the library's fixed error
    numbers, such as 5 for an invalid call or 91 for a missing object), its
    \a description, and the \a source procedure, such as
    "Sub 'ReadDef' of User Control 'kwPropertyControl'".
*/
using ErrorReportHandler
    = std::function<void(int number, const QString &description, const QString &source)>;

/*!
    Installs \a handler, which every error report reaches after the library has logged it (one
    warning in the logging category `kwfielddeck.errors`), and returns the handler installed
    before. One handler serves the whole program. An empty handler
    restores the default, which only logs. A report never ends the program: the procedure that
    failed ends normally with an empty result.
*/
KWFIELDDECK_EXPORT ErrorReportHandler setErrorReportHandler(ErrorReportHandler handler);

/*!
    The buttons and icon of a message box, codes added together (`Critical + OKOnly`).
*/
namespace MsgBoxStyle {
constexpr int OKOnly = 0; //!< One OK button.
constexpr int OKCancel = 1; //!< OK and Cancel.
constexpr int YesNo = 4; //!< Yes and No.
constexpr int Critical = 16; //!< The critical (error) icon.
constexpr int Question = 32; //!< The question icon.
constexpr int Exclamation = 48; //!< The warning icon.
constexpr int Information = 64; //!< The information icon.
} // namespace MsgBoxStyle

/*!
    The button a message box's answer names.
*/
namespace MsgBoxResult {
constexpr int OK = 1; //!< OK was chosen.
constexpr int Cancel = 2; //!< Cancel was chosen, or the box was closed.
constexpr int Yes = 6; //!< Yes was chosen.
constexpr int No = 7; //!< No was chosen.
} // namespace MsgBoxResult

/*!
    Answers a message box instead of the screen: gets the \a prompt, the \a style (a sum of
    MsgBoxStyle values) and the \a title (empty for the application's name), and returns a
    MsgBoxResult value.
*/
using MessageBoxHandler
    = std::function<int(const QString &prompt, int style, const QString &title)>;

/*!
    Installs \a handler, which answers every message box the library would show (for tests and
    for programs without a display), and returns the handler installed before: when there was
    none, the library's own QMessageBox, so that a handler that only looks on can pass the box
    on. An empty handler restores the QMessageBox.
*/
KWFIELDDECK_EXPORT MessageBoxHandler setMessageBoxHandler(MessageBoxHandler handler);

} // namespace kwFieldDeck
