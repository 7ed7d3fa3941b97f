#pragma once

#include <QString>

namespace kwFieldDeck {

// The file-system service: file exists, folder exists, parent folder. Paths that come from
// definition text were written for a file system that ignores letter case and uses "\"; a path
// that does not exist as written is therefore matched component by component without regard to
// case (an exact match first), with backslashes read as separators.
namespace FileSystem {

// The path as it is on disk. A path that exists as written comes back unchanged; otherwise each
// component is matched without regard to case. What cannot be matched is kept as written (with
// "/" separators), so the result names the same missing entry the caller asked for.
QString resolvePath(const QString &path);

bool FileExists(const QString &path);
bool FolderExists(const QString &path);

// The folder part of a path as written (either separator), "" when the path has none.
QString GetParentFolderName(const QString &path);

} // namespace FileSystem
} // namespace kwFieldDeck
