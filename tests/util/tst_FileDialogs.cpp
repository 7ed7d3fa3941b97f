#include "util/FileDialogs.h"

#include "platform/Dialogs.h"

#include <QWidget>
#include <QtTest>

using namespace kwFieldDeck;

class tst_FileDialogs : public QObject
{
    Q_OBJECT
private slots:
    void cleanup();
    void openFileDialogPassesItsArgumentsInOrder();
    void browseForFolderPassesItsArgumentsInOrder();
    void cancelReturnsEmptyText();
};

void tst_FileDialogs::cleanup()
{
    Dialogs::setOpenFileHandler({});
    Dialogs::setBrowseFolderHandler({});
}

void tst_FileDialogs::openFileDialogPassesItsArgumentsInOrder()
{
    QVector<Dialogs::OpenFileRequest> requests;
    Dialogs::setOpenFileHandler([&](const Dialogs::OpenFileRequest &request) {
        requests.append(request);
        return QStringLiteral("/tmp/chosen.txt");
    });
    const QString chosen = OpenFileDialog(QStringLiteral("notes.txt"), QStringLiteral("C:\\"),
        QStringLiteral("Select A Text File From Below"),
        QStringLiteral("Text Files (*.txt)|*.txt|All Files (*.*)|*.*"), 0);
    QCOMPARE(chosen, QStringLiteral("/tmp/chosen.txt"));
    QCOMPARE(requests.size(), 1);
    QCOMPARE(requests[0].defaultName, QStringLiteral("notes.txt"));
    QCOMPARE(requests[0].startFolder, QStringLiteral("C:\\"));
    QCOMPARE(requests[0].title, QStringLiteral("Select A Text File From Below"));
    QCOMPARE(requests[0].filter, QStringLiteral("Text Files (*.txt)|*.txt|All Files (*.*)|*.*"));
    QCOMPARE(requests[0].flags, 0);
}

void tst_FileDialogs::browseForFolderPassesItsArgumentsInOrder()
{
    QWidget owner;
    QVector<Dialogs::BrowseFolderRequest> requests;
    Dialogs::setBrowseFolderHandler([&](const Dialogs::BrowseFolderRequest &request) {
        requests.append(request);
        return QStringLiteral("/srv/data");
    });
    QCOMPARE(BrowseForFolder(&owner, QStringLiteral("Pick"), QStringLiteral("/var")),
        QStringLiteral("/srv/data"));
    QCOMPARE(requests.size(), 1);
    QCOMPARE(requests[0].owner, &owner);
    QCOMPARE(requests[0].title, QStringLiteral("Pick"));
    QCOMPARE(requests[0].startFolder, QStringLiteral("/var"));
}

void tst_FileDialogs::cancelReturnsEmptyText()
{
    Dialogs::setOpenFileHandler([](const Dialogs::OpenFileRequest &) { return QString(); });
    Dialogs::setBrowseFolderHandler([](const Dialogs::BrowseFolderRequest &) { return QString(); });
    QCOMPARE(OpenFileDialog(QString(), QString(), QString(), QString()), QString());
    QCOMPARE(BrowseForFolder(nullptr, QString(), QString()), QString());
}

QTEST_MAIN(tst_FileDialogs)
#include "tst_FileDialogs.moc"
