#pragma once

#include <QString>

class QWidget;

namespace kwFieldDeck {

// The open-file dialog: default file name, start folder, title, filter ("Desc|pattern|..."),
// flags. Returns the chosen path, "" when the user cancels.
QString OpenFileDialog(const QString &defaultName, const QString &startFolder, const QString &title,
    const QString &filter, int flags = 0);

// The folder-browse dialog: owner window, title, start folder. Returns the chosen folder, ""
// when the user cancels.
QString BrowseForFolder(QWidget *owner, const QString &title, const QString &startFolder);

} // namespace kwFieldDeck
