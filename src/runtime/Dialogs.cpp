#include "runtime/Dialogs.h"

#include "runtime/FileSystem.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QPointer>

namespace kwFieldDeck::Dialogs {

namespace {
OpenFileHandler &openFileHandler()
{
    static OpenFileHandler handler;
    return handler;
}

BrowseFolderHandler &browseFolderHandler()
{
    static BrowseFolderHandler handler;
    return handler;
}

// A glob that matches without regard to case: each letter becomes a class of both cases.
QString caseless(const QString &pattern)
{
    QString result;
    for (const QChar c : pattern) {
        if (c.isLetter() && c.toUpper() != c.toLower())
            result += QLatin1Char('[') + c.toLower() + c.toUpper() + QLatin1Char(']');
        else
            result += c;
    }
    return result;
}

QString qtPatterns(const QString &patterns)
{
    QStringList result;
    for (const QString &pattern : patterns.split(QLatin1Char(';'), Qt::SkipEmptyParts)) {
        const QString trimmed = pattern.trimmed();
        // "*.*" meant every file to the systems these filters were written for.
        result << (trimmed == QLatin1String("*.*") ? QStringLiteral("*") : caseless(trimmed));
    }
    return result.join(QLatin1Char(' '));
}

QWidget *dialogOwner(QWidget *owner)
{
    return owner ? owner : QApplication::activeWindow();
}

QString showOpenFileDialog(const OpenFileRequest &request)
{
    // The open-file dialog is given no owner, so it belongs to the active window. Its flags have
    // no counterpart here; callers always pass 0.
    QFileDialog dialog(dialogOwner(nullptr), request.title, startFolder(request.startFolder));
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(QFileDialog::ExistingFile);
    // The patterns are in the case-folded form; the user sees the description only.
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    dialog.setFilter(dialog.filter() & ~QDir::CaseSensitive);
    const QStringList filters = nameFilters(request.filter);
    if (!filters.isEmpty())
        dialog.setNameFilters(filters);
    if (!request.defaultName.isEmpty())
        dialog.selectFile(request.defaultName);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return QString();
    return dialog.selectedFiles().constFirst();
}

QString showBrowseFolderDialog(const BrowseFolderRequest &request)
{
    QFileDialog dialog(dialogOwner(request.owner), request.title, startFolder(request.startFolder));
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return QString();
    return dialog.selectedFiles().constFirst();
}
} // namespace

QString getOpenFileName(const OpenFileRequest &request)
{
    if (const OpenFileHandler &handler = openFileHandler())
        return handler(request);
    return showOpenFileDialog(request);
}

QString browseForFolder(const BrowseFolderRequest &request)
{
    if (const BrowseFolderHandler &handler = browseFolderHandler())
        return handler(request);
    return showBrowseFolderDialog(request);
}

OpenFileHandler setOpenFileHandler(OpenFileHandler handler)
{
    OpenFileHandler previous = std::move(openFileHandler());
    openFileHandler() = std::move(handler);
    return previous;
}

BrowseFolderHandler setBrowseFolderHandler(BrowseFolderHandler handler)
{
    BrowseFolderHandler previous = std::move(browseFolderHandler());
    browseFolderHandler() = std::move(handler);
    return previous;
}

QStringList nameFilters(const QString &filter)
{
    QStringList result;
    const QStringList parts = filter.split(QLatin1Char('|'));
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        const QString patterns = qtPatterns(parts.at(i + 1));
        if (patterns.isEmpty())
            continue;
        // Qt reads the patterns from the last parentheses, after the description as written.
        result << parts.at(i) + QStringLiteral(" (") + patterns + QLatin1Char(')');
    }
    return result;
}

QString startFolder(const QString &folder)
{
    if (!folder.isEmpty() && FileSystem::FolderExists(folder))
        return QDir::cleanPath(QFileInfo(FileSystem::resolvePath(folder)).absoluteFilePath());
    return QDir::homePath();
}

} // namespace kwFieldDeck::Dialogs
