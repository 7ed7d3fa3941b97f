#include "runtime/WindowNotifications.h"

#include "runtime/Error.h"
#include "runtime/SettingsStore.h"

#include <QWidget>

namespace kwFieldDeck {

namespace {
const char *const appTitleProperty = "_kwAppTitle";
const QString section = QStringLiteral("Windows");

QString windowKey(const QWidget *window)
{
    return window->objectName().isEmpty() ? QString::fromLatin1(window->metaObject()->className())
                                          : window->objectName();
}
} // namespace

void windowLoaded(QWidget *window, const QString &appTitle)
{
    if (!window || appTitle.isEmpty())
        return;
    // The title is kept on the window, since the close notification receives only the window.
    window->setProperty(appTitleProperty, appTitle);
    const QString stored = SettingsStore::GetSetting(appTitle, section, windowKey(window));
    if (!stored.isEmpty())
        window->restoreGeometry(QByteArray::fromBase64(stored.toLatin1()));
}

void windowClosed(QWidget *window)
{
    if (!window)
        return;
    const QString appTitle = window->property(appTitleProperty).toString();
    if (appTitle.isEmpty())
        return;
    // Remembering the placement is a convenience: a store that cannot be written must not keep
    // the window from closing, so the failure is dropped here on purpose.
    try {
        SettingsStore::SaveSetting(appTitle, section, windowKey(window),
            QString::fromLatin1(window->saveGeometry().toBase64()));
    } catch (const Error &) {
    }
}

} // namespace kwFieldDeck
