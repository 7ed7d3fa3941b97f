#include "runtime/SettingsStore.h"

#include "runtime/Error.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QSaveFile>
#include <QSettings>
#include <QStandardPaths>
#include <QTemporaryFile>

#include <memory>

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

QString decoded(const QString &storedName)
{
    if (storedName == QLatin1String("%"))
        return QString();
    return QString::fromUtf8(QByteArray::fromPercentEncoding(storedName.toUtf8()));
}

// The platform's own per-user store ignores letter case in every name.
bool sameName(const QString &a, const QString &b)
{
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

// Of the names stored, the one that addresses name: its own spelling, else the first spelling
// that differs only in letter case; empty when there is none.
QString storedName(const QStringList &stored, const QString &name)
{
    const QString exact = encoded(name);
    if (stored.contains(exact))
        return exact;
    for (const QString &candidate : stored) {
        if (sameName(decoded(candidate), name))
            return candidate;
    }
    return QString();
}

QString storeFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)
        + QStringLiteral("/kwFieldDeck");
}

constexpr int LongestBaseName = 200;

// The end of a long application's file name: a digest of the whole name, taken without regard
// to letter case so that every spelling finds the same file.
QString digestEnd(const QString &appName)
{
    const QByteArray digest
        = QCryptographicHash::hash(appName.toCaseFolded().toUtf8(), QCryptographicHash::Sha256);
    return QLatin1Char('-') + QString::fromLatin1(digest.toHex());
}

// A file name stays within the 255 bytes that Linux file systems allow: long application names
// keep a readable start and end in a digest.
QString fileBaseName(const QString &appName)
{
    const QString name = encoded(appName);
    if (name.size() <= LongestBaseName)
        return name;
    return name.left(80) + digestEnd(appName);
}

// Whether a store file, by its name, belongs to the application in any letter case.
bool belongsTo(const QString &fileName, const QString &appName)
{
    const QString baseName = fileName.chopped(4);
    if (encoded(appName).size() <= LongestBaseName)
        return sameName(decoded(baseName), appName);
    const QString end = digestEnd(appName);
    return baseName.size() == 80 + end.size() && baseName.endsWith(end);
}

// The key in the file that addresses section and key: the spelling first written there, in
// whatever letter case they are asked for now.
QString settingKey(QSettings &settings, const QString &section, const QString &key)
{
    const QString group = storedName(settings.childGroups(), section);
    if (group.isEmpty())
        return encoded(section) + QLatin1Char('/') + encoded(key);
    settings.beginGroup(group);
    const QString name = storedName(settings.childKeys(), key);
    settings.endGroup();
    return group + QLatin1Char('/') + (name.isEmpty() ? encoded(key) : name);
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

// A copy of the store's bytes under a name of its own: QSettings tells of lines that it cannot
// read only when it reads a file first, not when it hands out what it read before.
struct Snapshot
{
    QByteArray bytes;
    std::unique_ptr<QTemporaryFile> copy;
};

Snapshot snapshotOf(const QString &path)
{
    Snapshot snapshot;
    QFile store(path);
    snapshot.copy = std::make_unique<QTemporaryFile>(
        QFileInfo(path).absolutePath() + QStringLiteral("/.kwFieldDeck-XXXXXX"));
    if (!store.open(QIODevice::ReadOnly) || !snapshot.copy->open())
        raiseAccessError(path, QStringLiteral("the file cannot be read"));
    snapshot.bytes = store.readAll();
    if (snapshot.copy->write(snapshot.bytes) != snapshot.bytes.size() || !snapshot.copy->flush())
        raiseAccessError(path, snapshot.copy->errorString());
    return snapshot;
}

// The damaged bytes, whole, under the first free name beside the store; empty when no such file
// can be written.
QString keepAside(const QString &path, const QByteArray &bytes)
{
    for (int n = 0; n < 1000; ++n) {
        QString name = path + QStringLiteral(".damaged");
        if (n > 0)
            name += QLatin1Char('.') + QString::number(n);
        // An earlier damaged file is never overwritten.
        QFile aside(name);
        if (!aside.open(QIODevice::WriteOnly | QIODevice::NewOnly)) {
            if (aside.exists() || QFileInfo(name).isSymLink())
                continue;
            return QString();
        }
        // The copy is no easier for others to read than the file was.
        aside.setPermissions(QFileInfo(path).permissions());
        if (aside.write(bytes) == bytes.size() && aside.flush())
            return name;
        aside.remove();
        return QString();
    }
    return QString();
}

// Writes every readable value of the damaged store and the new one to a file of its own, then
// puts that in the store's place; false when that cannot be done, the store unchanged.
bool replaceDamaged(
    const QString &path, QSettings &earlier, const QString &name, const QString &value)
{
    QTemporaryFile fresh(QFileInfo(path).absolutePath() + QStringLiteral("/.kwFieldDeck-XXXXXX"));
    if (!fresh.open())
        return false;
    {
        QSettings settings(fresh.fileName(), QSettings::IniFormat);
        const QStringList keys = earlier.allKeys();
        for (const QString &key : keys)
            settings.setValue(key, earlier.value(key));
        settings.setValue(name, value);
        settings.sync();
        if (settings.status() != QSettings::NoError)
            return false;
    }
    QFile written(fresh.fileName());
    if (!written.open(QIODevice::ReadOnly))
        return false;
    QSaveFile store(path);
    return store.open(QIODevice::WriteOnly) && store.write(written.readAll()) == written.size()
        && store.commit();
}

// Rewriting a store that holds lines QSettings cannot read would drop them, and whatever anyone
// wrote there: the damaged file is kept whole beside the new one, and a report says where. The
// value is stored, so the save itself succeeds and the caller goes on with its next one.
void saveOverDamaged(const QString &path, const QByteArray &damaged, QSettings &earlier,
    const QString &name, const QString &value)
{
    const QString aside = keepAside(path, damaged);
    if (aside.isEmpty())
        raiseAccessError(path,
            QStringLiteral("it holds lines that cannot be read, and no copy of it can be kept"));
    if (!replaceDamaged(path, earlier, name, value)) {
        QFile::remove(aside);
        raiseAccessError(path, QStringLiteral("the file cannot be replaced"));
    }
    reportError(ErrPathFileAccess,
        QStringLiteral("Path/File access error: %1 (it held lines that cannot be read; the earlier "
                       "file is kept whole as %2, and the new value is stored)")
            .arg(path, aside),
        QStringLiteral("Sub 'SaveSetting' of Module 'SettingsStore'"));
}
} // namespace

QString filePath(const QString &appName)
{
    const QString folder = storeFolder();
    const QString path = folder + QLatin1Char('/') + fileBaseName(appName) + QStringLiteral(".ini");
    if (QFileInfo::exists(path))
        return path;
    const QDir store(folder);
    const QStringList files = store.entryList({ QStringLiteral("*.ini") }, QDir::Files, QDir::Name);
    for (const QString &file : files) {
        if (belongsTo(file, appName))
            return store.filePath(file);
    }
    return path;
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
    // Lines that QSettings cannot read are passed over; the rest is read as usual.
    QSettings settings(path, QSettings::IniFormat);
    const QVariant stored = settings.value(settingKey(settings, section, key));
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

    if (QFileInfo(path).isFile()) {
        const Snapshot snapshot = snapshotOf(path);
        QSettings earlier(snapshot.copy->fileName(), QSettings::IniFormat);
        (void)earlier.allKeys(); // every section is read, so that the status tells of them all
        if (earlier.status() == QSettings::FormatError) {
            saveOverDamaged(
                path, snapshot.bytes, earlier, settingKey(earlier, section, key), value);
            return;
        }
    }

    QSettings settings(path, QSettings::IniFormat);
    const QString name = settingKey(settings, section, key);
    // The file is replaced through a temporary one, never written in place.
    settings.setAtomicSyncRequired(true);
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
