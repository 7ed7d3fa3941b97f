#include "runtime/FileDialogs.h"

#include "runtime/Dialogs.h"

namespace kwFieldDeck {

QString OpenFileDialog(const QString &defaultName, const QString &startFolder, const QString &title,
    const QString &filter, int flags)
{
    return Dialogs::getOpenFileName({ defaultName, startFolder, title, filter, flags });
}

QString BrowseForFolder(QWidget *owner, const QString &title, const QString &startFolder)
{
    return Dialogs::browseForFolder({ owner, title, startFolder });
}

} // namespace kwFieldDeck
