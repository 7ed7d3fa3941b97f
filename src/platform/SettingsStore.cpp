#include "platform/SettingsStore.h"

#include "platform/Error.h"

#include <QDir>
#include <QSettings>
#include <QStandardPaths>

namespace kwFieldDeck::SettingsStore {

namespace {
// Sections and keys are percent-encoded, so that "/", "=", line breaks and any other character
// reach the file as plain ASCII and come back unchanged.
QString encoded(const QString &name)
{
    return QString::fromLatin1(name.toUtf8().toPercentEncoding());
}

QString settingKey(const QString &section, const QString &key)
{
    return encoded(section) + QLatin1Char('/') + encoded(key);
}
} // namespace

QString filePath(const QString &appName)
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)
        + QStringLiteral("/kwFieldDeck");
    return folder + QLatin1Char('/') + encoded(appName) + QStringLiteral(".ini");
}

QString GetSetting(const QString &appName, const QString &section, const QString &key,
                   const QString &defaultValue)
{
    const QSettings settings(filePath(appName), QSettings::IniFormat);
    const QVariant stored = settings.value(settingKey(section, key));
    return stored.isValid() ? stored.toString() : defaultValue;
}

void SaveSetting(const QString &appName, const QString &section, const QString &key,
                 const QString &value)
{
    const QString path = filePath(appName);
    if (!QDir().mkpath(QFileInfo(path).absolutePath()))
        raise(75, QStringLiteral("Path/File access error: %1").arg(path));
    QSettings settings(path, QSettings::IniFormat);
    settings.setValue(settingKey(section, key), value);
    settings.sync();
    if (settings.status() != QSettings::NoError)
        raise(75, QStringLiteral("Path/File access error: %1").arg(path));
}

} // namespace kwFieldDeck::SettingsStore
