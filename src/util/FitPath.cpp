#include "util/FitPath.h"

#include "platform/Error.h"
#include "platform/TextBox.h"
#include "platform/Values.h"

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

QString FitPath(const TextBox *box, const QString &path)
{
    if (path.isEmpty())
        return QString();
    const TextBox *textBox = require(box);
    // The box's width in pixels less 5, as the text box's own margins need.
    const int width = roundToInt32(textBox->Width() / twipsPerPixelX() - 5);
    return FitPath(textBox->Font(), width, path);
}

} // namespace kwFieldDeck
