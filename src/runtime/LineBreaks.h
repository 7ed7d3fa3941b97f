#pragma once

#include <QString>

namespace kwFieldDeck {

// Texts inside the system break lines with CR LF; Qt's widgets and the desktop's clipboard use
// LF. These convert at that boundary. A lone CR or LF coming from outside (a file written on
// Linux, another program's clipboard) is read as a line break too.
QString toCrLf(const QString &text);
QString toLf(const QString &text);

} // namespace kwFieldDeck
