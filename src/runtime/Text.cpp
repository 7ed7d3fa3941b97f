#include "runtime/Text.h"

namespace kwFieldDeck {

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

} // namespace kwFieldDeck
