#pragma once

#include <QByteArray>
#include <QString>

namespace kwFieldDeck {

// Whether a regular file exists (not a folder, named pipe, socket or device); the path is matched
// without regard to case when it does not exist as written.
bool FileExists(const QString &path);

// The whole text of a regular file, "" for a missing or unreadable one or any other kind of path.
// Line ends are kept as they are.
QString ReadWholeFile(const QString &path);

// The text of file contents: UTF-8 when the bytes are valid UTF-8 (a BOM is dropped), otherwise
// Windows-1252, the code page such files were written in.
QString decodeFileText(const QByteArray &bytes);

} // namespace kwFieldDeck
