#include "runtime/Twips.h"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QScreen>

#include <cmath>

namespace kwFieldDeck {

namespace {
double logicalDpi(bool horizontal)
{
    const QScreen *screen = QGuiApplication::primaryScreen();
    if (!screen)
        return 96.0;
    const double dpi = horizontal ? screen->logicalDotsPerInchX() : screen->logicalDotsPerInchY();
    return dpi > 0 ? dpi : 96.0;
}
} // namespace

double twipsPerPixelX()
{
    return 1440.0 / logicalDpi(true);
}

double twipsPerPixelY()
{
    return 1440.0 / logicalDpi(false);
}

int twipsToPixelsX(double twips)
{
    return int(std::lround(twips / twipsPerPixelX()));
}

int twipsToPixelsY(double twips)
{
    return int(std::lround(twips / twipsPerPixelY()));
}

double textWidthTwips(const QFont &font, const QString &text)
{
    return QFontMetricsF(font).horizontalAdvance(text) * twipsPerPixelX();
}

} // namespace kwFieldDeck
