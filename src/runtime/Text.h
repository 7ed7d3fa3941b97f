#pragma once

#include <QString>

namespace kwFieldDeck {

// The n-th part (1-based) of a text cut at every occurrence of the delimiter, untrimmed; "" when
// there are fewer than n parts.
QString Piece(const QString &text, const QString &delimiter, int n);

// The text without its leading and trailing blanks. Blanks only: tabs and lone line-break
// characters stay.
QString TrimBlanks(const QString &text);

// The text without its tab characters.
QString RemoveTabs(const QString &text);

// The 1-based position of a word in a comma-separated list, 0 when it is not there. Items are
// compared exactly; callers upper-case first where case must not matter.
int ListPosition(const QString &list, const QString &word);

// The number of lines of a text: its CR LF pairs plus one.
int LineCount(const QString &text);

} // namespace kwFieldDeck
