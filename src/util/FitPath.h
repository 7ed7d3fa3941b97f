#pragma once

#include <QFont>
#include <QString>

namespace kwFieldDeck {

class TextBox;

// The path shortened to a width in pixels in a font: leading folders are replaced by "..." until
// the rest fits. The file name is never cut, so ".../name" is the shortest form even when it is
// wider than the width.
QString FitPath(const QFont &font, int widthPixels, const QString &path);

// The path shortened to fit a text box: its width in pixels less 5, in its font.
QString FitPath(const TextBox *box, const QString &path);

} // namespace kwFieldDeck
