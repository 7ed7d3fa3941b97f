#include "DefinitionFile.h"

#include "FormMessages.h"

#include <kwFieldDeck/Fields>
#include <kwFieldDeck/kwPropertyControl>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

namespace kwFieldDeck {

namespace {
// The library's header message, as LoadDefFile shows it for a file that is not a definition file.
const QString HeaderRefused = QStringLiteral("File Format Does not Match!");

bool hasBareLineFeeds(const QByteArray &bytes)
{
    for (qsizetype at = bytes.indexOf('\n'); at >= 0; at = bytes.indexOf('\n', at + 1)) {
        if (at == 0 || bytes.at(at - 1) != '\r')
            return true;
    }
    return false;
}

QByteArray withCrLfLineEnds(const QByteArray &bytes)
{
    QByteArray converted;
    converted.reserve(bytes.size() + bytes.count('\n'));
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        if (bytes.at(i) == '\n' && (i == 0 || bytes.at(i - 1) != '\r'))
            converted.append('\r');
        converted.append(bytes.at(i));
    }
    return converted;
}
} // namespace

CurrentFolder::CurrentFolder(const QString &folder)
    : m_previous(QDir::currentPath())
{
    QDir::setCurrent(folder);
}

CurrentFolder::~CurrentFolder()
{
    QDir::setCurrent(m_previous);
}

QString readDefinitionBytes(const QFileInfo &info, QByteArray &bytes, bool &converted)
{
    if (!info.exists())
        return QStringLiteral("the file does not exist");
    if (info.isDir())
        return QStringLiteral("it is a folder, not a file");
    QFile file(info.absoluteFilePath());
    if (!file.open(QIODevice::ReadOnly))
        return QStringLiteral("it cannot be read (%1)").arg(file.errorString());
    bytes = file.readAll();
    converted = hasBareLineFeeds(bytes);
    if (converted)
        bytes = withCrLfLineEnds(bytes);
    return QString();
}

QString writeStandIn(const QString &path, const QByteArray &bytes)
{
    QFile copy(path);
    if (!copy.open(QIODevice::WriteOnly) || copy.write(bytes) < 0)
        return copy.errorString();
    return QString();
}

QString loadDefinitionFile(kwPropertyControl &grid, const QString &fileName, FormMessages &messages)
{
    const QFileInfo info(fileName);
    QByteArray bytes;
    bool converted = false;
    const QString unreadable = readDefinitionBytes(info, bytes, converted);
    if (!unreadable.isEmpty())
        return unreadable;

    QString loadPath = info.absoluteFilePath();
    QTemporaryDir copyFolder;
    if (converted) {
        if (!copyFolder.isValid())
            return QStringLiteral("no temporary folder for a CR LF copy of it");
        loadPath = copyFolder.filePath(info.fileName());
        const QString unwritten = writeStandIn(loadPath, bytes);
        if (!unwritten.isEmpty())
            return QStringLiteral("its CR LF copy cannot be written (%1)").arg(unwritten);
        messages.setPathAlias(loadPath, info.absoluteFilePath());
    }

    const int messagesBefore = messages.messages().size();
    {
        const CurrentFolder definitionFolder(info.absolutePath());
        grid.LoadDefFile(loadPath);
    }
    messages.setPathAlias(QString(), QString());

    for (const QString &message : messages.messages().mid(messagesBefore)) {
        if (message.contains(HeaderRefused))
            return QStringLiteral(
                "its first line is not the header \"Property Control Definition File\"");
    }
    if (grid.Fields()->Count() == 0)
        return QStringLiteral("it defines no field");
    return QString();
}

} // namespace kwFieldDeck
