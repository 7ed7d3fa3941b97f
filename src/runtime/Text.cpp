#include "runtime/Text.h"

#include <QStringList>

namespace kwFieldDeck {

QString Piece(const QString &text, const QString &delimiter, int n)
{
    if (n < 1)
        return QString();
    if (delimiter.isEmpty())
        return n == 1 ? text : QString();
    qsizetype start = 0;
    for (int part = 1; part < n; ++part) {
        const qsizetype found = text.indexOf(delimiter, start);
        if (found < 0)
            return QString();
        start = found + delimiter.size();
    }
    const qsizetype end = text.indexOf(delimiter, start);
    return end < 0 ? text.mid(start) : text.mid(start, end - start);
}

QString TrimBlanks(const QString &text)
{
    qsizetype start = 0;
    qsizetype end = text.size();
    while (start < end && text.at(start) == QLatin1Char(' '))
        ++start;
    while (end > start && text.at(end - 1) == QLatin1Char(' '))
        --end;
    return start == 0 && end == text.size() ? text : text.mid(start, end - start);
}

QString RemoveTabs(const QString &text)
{
    QString result = text;
    result.remove(QLatin1Char('\t'));
    return result;
}

int ListPosition(const QString &list, const QString &word)
{
    const QStringList items = list.split(QLatin1Char(','));
    const qsizetype index = items.indexOf(word);
    return index < 0 ? 0 : int(index) + 1;
}

int LineCount(const QString &text)
{
    return int(text.count(QStringLiteral("\r\n"))) + 1;
}

} // namespace kwFieldDeck
