#include "runtime/FitPath.h"

#include <QFontMetrics>

namespace kwFieldDeck {

QString FitPath(const QFont &font, int widthPixels, const QString &path)
{
    const QFontMetrics metrics(font);
    if (path.isEmpty() || metrics.horizontalAdvance(path) <= widthPixels)
        return path;
    // Either separator may stand in a path; the one used last is kept in the shortened form.
    const qsizetype lastSeparator
        = qMax(path.lastIndexOf(QLatin1Char('/')), path.lastIndexOf(QLatin1Char('\\')));
    if (lastSeparator < 0)
        return path;
    const QChar separator = path.at(lastSeparator);
    const QString ellipsis = QStringLiteral("...");
    for (qsizetype cut = path.indexOf(separator); cut >= 0 && cut < lastSeparator;
         cut = path.indexOf(separator, cut + 1)) {
        const QString candidate = ellipsis + path.mid(cut);
        if (candidate.size() < path.size() && metrics.horizontalAdvance(candidate) <= widthPixels)
            return candidate;
    }
    return ellipsis + path.mid(lastSeparator);
}

} // namespace kwFieldDeck
