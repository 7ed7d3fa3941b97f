#include "grid/DefinitionText.h"

#include "runtime/Text.h"

#include <QStringList>

namespace kwFieldDeck {

QString CleanDefinitionText(const QString &DefString)
{
    const QString CRLF = QStringLiteral("\r\n");
    QString text = TrimBlanks(DefString);
    qsizetype start = 0;
    while (text.mid(start, 2) == CRLF)
        start += 2;
    qsizetype end = text.size();
    while (end - start >= 2 && text.mid(end - 2, 2) == CRLF)
        end -= 2;
    text = RemoveTabs(text.mid(start, end - start));

    QString joined;
    joined.reserve(text.size());
    for (const QString &line : text.split(CRLF))
        joined += CRLF + TrimBlanks(line);
    joined.remove(0, 2);

    // One pass from left to right, as intended: three line breaks in a row become two.
    return joined.replace(CRLF + CRLF, CRLF);
}

} // namespace kwFieldDeck
