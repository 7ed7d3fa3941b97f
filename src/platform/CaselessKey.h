#pragma once

#include <QHashFunctions>
#include <QString>
#include <QVarLengthArray>

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
    // The folded characters, hashed as one block as QString's own hash does.
    QVarLengthArray<char16_t, 64> folded;
    folded.reserve(key.text.size());
    for (const QChar c : key.text)
        folded.append(c.toCaseFolded().unicode());
    return qHashBits(folded.constData(), size_t(folded.size()) * sizeof(char16_t), seed);
}

} // namespace kwFieldDeck
