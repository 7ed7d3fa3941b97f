#pragma once

#include <QHashFunctions>
#include <QString>

namespace kwFieldDeck {

// A name as a hash key compared without regard to case, as the system compares names. It keeps
// the name as given (sharing its text) rather than a folded copy, so a table of thousands of
// names costs no second string each.
struct CaselessKey
{
    QString text;
};

inline bool operator==(const CaselessKey &a, const CaselessKey &b)
{
    return a.text.compare(b.text, Qt::CaseInsensitive) == 0;
}

inline size_t qHash(const CaselessKey &key, size_t seed = 0)
{
    size_t hash = seed;
    for (const QChar c : key.text)
        hash = hash * 31 + c.toCaseFolded().unicode();
    return hash;
}

} // namespace kwFieldDeck
