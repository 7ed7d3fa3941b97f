#include "runtime/FileSystem.h"

#include <QDir>
#include <QFileInfo>
#include <QStringList>

namespace kwFieldDeck::FileSystem {

namespace {
// The entry of a folder whose name matches without regard to case; the exact name first.
QString matchingEntry(const QString &folder, const QString &name)
{
    const QDir dir(folder.isEmpty() ? QStringLiteral(".") : folder);
    if (QFileInfo::exists(dir.filePath(name)))
        return name;
    const QStringList entries = dir.entryList(
        QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
    for (const QString &entry : entries) {
        if (entry.compare(name, Qt::CaseInsensitive) == 0)
            return entry;
    }
    return QString();
}

QString joined(const QString &folder, const QString &name)
{
    if (folder.isEmpty())
        return name;
    return folder.endsWith(QLatin1Char('/')) ? folder + name : folder + QLatin1Char('/') + name;
}
} // namespace

QString resolvePath(const QString &path)
{
    if (path.isEmpty() || QFileInfo::exists(path))
        return path;
    QString written = path;
    written.replace(QLatin1Char('\\'), QLatin1Char('/'));
    if (QFileInfo::exists(written))
        return written;

    const bool absolute = written.startsWith(QLatin1Char('/'));
    const QStringList parts = written.split(QLatin1Char('/'), Qt::SkipEmptyParts);
    QString resolved = absolute ? QStringLiteral("/") : QString();
    bool matching = true;
    for (const QString &part : parts) {
        QString name = part;
        if (matching && part != QLatin1String(".") && part != QLatin1String("..")) {
            const QString entry = matchingEntry(resolved, part);
            if (entry.isEmpty())
                matching = false;
            else
                name = entry;
        }
        resolved = joined(resolved, name);
    }
    if (written.endsWith(QLatin1Char('/')) && !resolved.endsWith(QLatin1Char('/')))
        resolved += QLatin1Char('/');
    return resolved;
}

bool FileExists(const QString &path)
{
    if (path.isEmpty())
        return false;
    const QFileInfo info(resolvePath(path));
    return info.exists() && !info.isDir();
}

bool FolderExists(const QString &path)
{
    if (path.isEmpty())
        return false;
    return QFileInfo(resolvePath(path)).isDir();
}

QString GetParentFolderName(const QString &path)
{
    auto isSeparator = [](QChar c) { return c == QLatin1Char('/') || c == QLatin1Char('\\'); };
    qsizetype end = path.size();
    while (end > 0 && isSeparator(path.at(end - 1)))
        --end;
    qsizetype cut = end - 1;
    while (cut >= 0 && !isSeparator(path.at(cut)))
        --cut;
    if (cut < 0)
        return QString();
    qsizetype folderEnd = cut;
    while (folderEnd > 0 && isSeparator(path.at(folderEnd - 1)))
        --folderEnd;
    // A root keeps its separator: the parent of "/etc" is "/", of "C:\x" is "C:\".
    if (folderEnd == 0 || (folderEnd == 2 && path.at(1) == QLatin1Char(':')))
        return path.left(folderEnd + 1);
    return path.left(folderEnd);
}

} // namespace kwFieldDeck::FileSystem
