#pragma once

#include <QString>
#include <QStringList>

class QMimeData;

namespace kwFieldDeck {

// Clipboard formats a drop or the clipboard may hold, by their original numbers.
namespace ClipboardFormat {
constexpr int Text = 1, Files = 15;
} // namespace ClipboardFormat

// The data of a drop, as a drop handler sees it: which formats it holds, its text, its files.
class DataObject
{
public:
    explicit DataObject(const QMimeData *data);

    bool GetFormat(int format) const;
    // The dropped files as local paths, in the order given.
    QStringList Files() const;
    QString GetText() const;

private:
    const QMimeData *m_data;
};

} // namespace kwFieldDeck
