#pragma once

#include <QHashFunctions>
#include <QString>
#include <QVarLengthArray>

namespace kwFieldDeck {

// A name as a hash key compared without regard to case, as the system compares names. It keeps
// the name as given (sharing its text) rather than a folded copy, so a table of thousands of
// names costs no second string each; the hash of the folded name is worked out once, so a table
// that grows does not fold every name again.
struct CaselessKey
{
    CaselessKey(const QString &name)
        : text(name)
        , folded(foldedHash(name))
    {
    }

    QString text;
    size_t folded;

private:
    static size_t foldedHash(const QString &name)
    {
        // The folded characters, hashed as one block as QString's own hash does.
        QVarLengthArray<char16_t, 64> folded;
        folded.reserve(name.size());
        for (const QChar c : name) {
            // Plain ASCII folds by itself, without the Unicode tables that the rest needs.
            const char16_t u = c.unicode();
            folded.append(u < 0x80 ? (u >= u'A' && u <= u'Z' ? char16_t(u + 32) : u)
                                   : c.toCaseFolded().unicode());
        }
        return qHashBits(folded.constData(), size_t(folded.size()) * sizeof(char16_t), 0);
    }
};

inline bool operator==(const CaselessKey &a, const CaselessKey &b)
{
    return a.folded == b.folded && a.text.compare(b.text, Qt::CaseInsensitive) == 0;
}

inline size_t qHash(const CaselessKey &key, size_t seed = 0)
{
    return key.folded ^ seed;
}

} // namespace kwFieldDeck
