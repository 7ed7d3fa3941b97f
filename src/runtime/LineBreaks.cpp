#include "runtime/LineBreaks.h"

namespace kwFieldDeck {

QString toLf(const QString &text)
{
    QString lf = text;
    lf.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    lf.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    return lf;
}

QString toCrLf(const QString &text)
{
    return toLf(text).replace(QLatin1Char('\n'), QLatin1String("\r\n"));
}

} // namespace kwFieldDeck
