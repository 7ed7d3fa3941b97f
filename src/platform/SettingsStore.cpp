#include "platform/SettingsStore.h"

#include "platform/Error.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>
#include <QTemporaryFile>

namespace kwFieldDeck::SettingsStore {

namespace {
constexpr int ErrPathFileAccess = 75;

// Names are percent-encoded, so that "/", "=", line breaks and any other character reach the
// file as plain ASCII and come back unchanged. The empty name, which percent-encoding would
// leave empty (and QSettings would drop), is the lone "%" that no encoded name can be.
QString encoded(const QString &name)
{
    if (name.isEmpty())
        return QStringLiteral("%");
    return QString::fromLatin1(name.toUtf8().toPercentEncoding());
}

// A file name stays within the 255 bytes that Linux file systems allow: long application names
// keep a readable start and end in a digest of the whole name.
QString fileBaseName(const QString &appName)
{
    const QString name = encoded(appName);
    constexpr int longest = 200;
    if (name.size() <= longest)
        return name;
    const QByteArray digest
        = QCryptographicHash::hash(appName.toUtf8(), QCryptographicHash::Sha256).toHex();
    return name.left(80) + QLatin1Char('-') + QString::fromLatin1(digest);
}

QString settingKey(const QString &section, const QString &key)
{
    return encoded(section) + QLatin1Char('/') + encoded(key);
}

[[noreturn]] void raiseAccessError(const QString &path, const QString &why)
{
    raise(ErrPathFileAccess, QStringLiteral("Path/File access error: %1 (%2)").arg(path, why));
}

// What would stop the atomic replacement of the file, found before QSettings is asked to write:
// QSettings keeps a change that it failed to write and would hand it to later readers.
void requireWritable(const QString &path)
{
    const QFileInfo file(path);
    if (!QDir().mkpath(file.absolutePath()))
        raiseAccessError(path, QStringLiteral("its folder cannot be created"));
    if (file.exists() && !file.isFile())
        raiseAccessError(path, QStringLiteral("it is not a regular file"));
    QTemporaryFile probe(file.absolutePath() + QStringLiteral("/.kwFieldDeck-probe-XXXXXX"));
    if (!probe.open())
        raiseAccessError(path, probe.errorString());
}
} // namespace

QString filePath(const QString &appName)
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)
        + QStringLiteral("/kwFieldDeck");
    return folder + QLatin1Char('/') + fileBaseName(appName) + QStringLiteral(".ini");
}

QString GetSetting(
    const QString &appName, const QString &section, const QString &key, const QString &defaultValue)
{
    const QString path = filePath(appName);
    // A store that is missing or cannot be read holds nothing; QSettings would also say so, but
    // with a warning for every read of a path that is no file.
    const QFileInfo file(path);
    if (!file.isFile() || !file.isReadable())
        return defaultValue;
    const QSettings settings(path, QSettings::IniFormat);
    const QVariant stored = settings.value(settingKey(section, key));
    if (!stored.isValid())
        return defaultValue;
    // A line edited by hand as a list reads back as the text it was.
    if (stored.typeId() == QMetaType::QStringList)
        return stored.toStringList().join(QLatin1Char(','));
    return stored.toString();
}

void SaveSetting(
    const QString &appName, const QString &section, const QString &key, const QString &value)
{
    const QString path = filePath(appName);
    requireWritable(path);

    QSettings settings(path, QSettings::IniFormat);
    // The file is replaced through a temporary one, never written in place.
    settings.setAtomicSyncRequired(true);
    const QString name = settingKey(section, key);
    const QVariant previous = settings.value(name);
    settings.setValue(name, value);
    settings.sync();
    if (settings.status() == QSettings::NoError)
        return;

    // The write failed after all (the folder changed under us): take the change back, so that
    // readers keep seeing what the file holds.
    if (previous.isValid())
        settings.setValue(name, previous);
    else
        settings.remove(name);
    raiseAccessError(path, QStringLiteral("the file cannot be replaced"));
}

} // namespace kwFieldDeck::SettingsStore
