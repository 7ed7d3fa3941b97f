#pragma once

#include <QByteArray>
#include <QString>

class QFileInfo;

namespace kwFieldDeck {

class FormMessages;
class kwPropertyControl;

// Builds the grid from a definition file with the grid's LoadDefFile, so that the file is read
// exactly as any host reads it, with two allowances for files written on Linux: LF line ends are
// made CR LF (in a temporary copy), and relative paths inside the file are read from the file's
// own folder. Returns why the file could not be loaded, or "" when it was.
QString loadDefinitionFile(
    kwPropertyControl &grid, const QString &fileName, FormMessages &messages);

// The bytes of a definition file as the grid is to read them, bare LF line ends made CR LF;
// converted tells whether they differ from the file. Returns why the file cannot be read, or "".
QString readDefinitionBytes(const QFileInfo &file, QByteArray &bytes, bool &converted);

// Writes bytes to a file that LoadDefFile then reads in place of the user's. Returns why it
// could not be written, or "".
QString writeStandIn(const QString &path, const QByteArray &bytes);

// Sets the current folder for the life of the object and puts the previous one back after.
class CurrentFolder
{
public:
    explicit CurrentFolder(const QString &folder);
    ~CurrentFolder();
    CurrentFolder(const CurrentFolder &) = delete;
    CurrentFolder &operator=(const CurrentFolder &) = delete;

private:
    QString m_previous;
};

} // namespace kwFieldDeck
