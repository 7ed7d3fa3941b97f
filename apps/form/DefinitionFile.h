#pragma once

#include <QString>

namespace kwFieldDeck {

class FormMessages;
class kwPropertyControl;

// Builds the grid from a definition file with the grid's LoadDefFile, so that the file is read
// exactly as any host reads it, with two allowances for files written on Linux: LF line ends are
// made CR LF (in a temporary copy), and relative paths inside the file are read from the file's
// own folder. Returns why the file could not be loaded, or "" when it was.
QString loadDefinitionFile(
    kwPropertyControl &grid, const QString &fileName, FormMessages &messages);

} // namespace kwFieldDeck
