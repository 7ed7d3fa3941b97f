#pragma once

// Definition files written by the form program's tests.

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QString>

namespace kwFieldDeck::test {

// Three fields; lines joined by LF, made CR LF where a test wants the library's own line ends.
inline QByteArray threeFieldDefinition()
{
    return "Property Control Definition File\n"
           "ADDFIELD Name\nTYPE=TEXT\nVALUE=Ada\nENDFIELD\n"
           "ADDFIELD Notes\nTYPE=MEMO\nVALUE=first\nENDFIELD\n"
           "ADDFIELD Size\nTYPE=NUMERIC\nVALUE=12\nENDFIELD\n";
}

inline QByteArray withCrLf(QByteArray lfText)
{
    return lfText.replace("\n", "\r\n");
}

inline QString writeFile(const QDir &folder, const QString &name, const QByteArray &bytes)
{
    QFile file(folder.filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        return QString();
    return file.fileName();
}

} // namespace kwFieldDeck::test
