#pragma once

#include <QFont>
#include <QString>

namespace kwFieldDeck {

// The path shortened to a width in pixels in a font: leading folders are replaced by "..." until
// the rest fits. The file name is never cut, so ".../name" is the shortest form even when it is
// wider than the width.
QString FitPath(const QFont &font, int widthPixels, const QString &path);

} // namespace kwFieldDeck
