#include "platform/DataObject.h"

#include <QMimeData>
#include <QUrl>

namespace kwFieldDeck {

DataObject::DataObject(const QMimeData *data)
    : m_data(data)
{
}

bool DataObject::GetFormat(int format) const
{
    if (!m_data)
        return false;
    switch (format) {
    case ClipboardFormat::Text:
        return m_data->hasText();
    case ClipboardFormat::Files:
        return !Files().isEmpty();
    default:
        return false;
    }
}

QStringList DataObject::Files() const
{
    QStringList files;
    if (!m_data)
        return files;
    for (const QUrl &url : m_data->urls()) {
        if (url.isLocalFile())
            files << url.toLocalFile();
    }
    return files;
}

QString DataObject::GetText() const
{
    return m_data ? m_data->text() : QString();
}

} // namespace kwFieldDeck
