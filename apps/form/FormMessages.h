#pragma once

#include <kwFieldDeck/HostHooks.h>

#include <QString>
#include <QStringList>

namespace kwFieldDeck {

// The form program's answer to the library's message boxes while it runs: each message is kept
// (so the program can tell why a definition did not load). With a display the box is shown as the
// library shows it, or answered by the handler installed before; with no display it is written
// to standard error and answered with the default button instead of waiting for a click.
class FormMessages
{
public:
    explicit FormMessages(bool headless);
    ~FormMessages();
    FormMessages(const FormMessages &) = delete;
    FormMessages &operator=(const FormMessages &) = delete;

    // Messages name this path where they would name the stand-in (a converted copy of a file).
    void setPathAlias(const QString &standIn, const QString &shownAs);

    QStringList messages() const { return m_messages; }

    // A message as one line of output: its lines joined by a blank, the empty ones left out.
    static QString asOneLine(const QString &text);

    // Whether there is no display to show a window on: the offscreen or minimal platform, or
    // neither an X nor a Wayland display in the environment (all that is known before the
    // application object exists).
    static bool noDisplay();

private:
    int answer(const QString &prompt, int style, const QString &title);

    bool m_headless;
    QString m_standIn, m_shownAs;
    QStringList m_messages;
    MessageBoxHandler m_previous;
};

} // namespace kwFieldDeck
