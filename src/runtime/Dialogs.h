#pragma once

#include <QString>
#include <QStringList>

#include <functional>

class QWidget;

namespace kwFieldDeck {

// The file-open and folder-browse dialog services. Each shows a QFileDialog unless a handler is
// installed (tests, programs with no display); a handler receives the caller's arguments exactly
// as given.
namespace Dialogs {

struct OpenFileRequest
{
    QString defaultName;
    QString startFolder;
    QString title;
    QString filter; // "Desc|pattern|Desc|pattern"
    int flags = 0;
};

struct BrowseFolderRequest
{
    QWidget *owner = nullptr;
    QString title;
    QString startFolder;
};

// Each returns the chosen path, or "" when the user cancels.
QString getOpenFileName(const OpenFileRequest &request);
QString browseForFolder(const BrowseFolderRequest &request);

using OpenFileHandler = std::function<QString(const OpenFileRequest &request)>;
using BrowseFolderHandler = std::function<QString(const BrowseFolderRequest &request)>;
// The seams; each returns the previous handler, and an empty handler restores the QFileDialog.
OpenFileHandler setOpenFileHandler(OpenFileHandler handler);
BrowseFolderHandler setBrowseFolderHandler(BrowseFolderHandler handler);

// The filter text "Text Files (*.txt)|*.txt|All Files (*.*)|*.*" as QFileDialog name filters
// whose patterns match without regard to case.
QStringList nameFilters(const QString &filter);

// The folder a dialog opens in: the start folder as found on disk, or the user's home folder
// when it does not exist (such as the default "C:\").
QString startFolder(const QString &folder);

} // namespace Dialogs
} // namespace kwFieldDeck
