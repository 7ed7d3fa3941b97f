#include "util/FitPath.h"

#include "platform/Error.h"
#include "platform/TextBox.h"
#include "platform/Values.h"

#include <QFontMetrics>
#include <QHash>

namespace kwFieldDeck {

namespace {
QString fitPath(const QFont &font, int widthPixels, const QString &path)
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

// Fitted paths by font, width and path. Measuring shapes the text, which costs more than the
// rest of a row's creation; rows and layouts ask again for the same paths.
struct FitKey
{
    QString font;
    int width;
    QString path;
    bool operator==(const FitKey &other) const
    {
        return width == other.width && path == other.path && font == other.font;
    }
};

size_t qHash(const FitKey &key, size_t seed = 0)
{
    return qHashMulti(seed, key.font, key.width, key.path);
}
} // namespace

QString FitPath(const QFont &font, int widthPixels, const QString &path)
{
    constexpr qsizetype Kept = 1024;
    static QHash<FitKey, QString> fitted;
    const FitKey key { font.key(), widthPixels, path };
    auto found = fitted.constFind(key);
    if (found != fitted.constEnd())
        return *found;
    if (fitted.size() >= Kept)
        fitted.clear();
    return *fitted.insert(key, fitPath(font, widthPixels, path));
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
