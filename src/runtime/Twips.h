#pragma once

#include <QFont>
#include <QString>

namespace kwFieldDeck {

// Twips per screen pixel (1440 / logical DPI; 15 at 96 DPI).
double twipsPerPixelX();
double twipsPerPixelY();
int twipsToPixelsX(double twips);
int twipsToPixelsY(double twips);

// The width of a text drawn in a font, in twips.
double textWidthTwips(const QFont &font, const QString &text);

} // namespace kwFieldDeck
