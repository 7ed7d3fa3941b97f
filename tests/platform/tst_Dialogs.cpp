#include "platform/Dialogs.h"

#include <QApplication>
#include <QFileDialog>
#include <QTimer>
#include <QtTest>

#include <functional>

using namespace kwFieldDeck;

class tst_Dialogs : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void cleanup();
    void filterTextBecomesQtNameFilters_data();
    void filterTextBecomesQtNameFilters();
    void filterPatternsMatchWithoutRegardToCase();
    void missingStartFolderFallsBackToHome_data();
    void missingStartFolderFallsBackToHome();
    void openFileDialogShowsTheRequestAndReturnsTheChoice();
    void cancelledDialogsReturnEmptyText();
    void folderDialogStartsInTheGivenFolder();
    void installedHandlerReceivesTheArgumentsAsGiven();

private:
    // Runs the dialog call while a timer finds the modal file dialog and hands it to the action.
    QString withDialog(
        const std::function<QString()> &call, const std::function<void(QFileDialog *)> &action);
    void touch(const QString &relative);
    QTemporaryDir m_dir;
};

QString tst_Dialogs::withDialog(
    const std::function<QString()> &call, const std::function<void(QFileDialog *)> &action)
{
    QTimer poll;
    bool seen = false;
    connect(&poll, &QTimer::timeout, this, [&] {
        auto *dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
        if (!dialog || seen)
            return;
        seen = true;
        action(dialog);
    });
    poll.start(10);
    const QString result = call();
    if (!seen)
        qWarning("no file dialog was shown");
    return result;
}

void tst_Dialogs::touch(const QString &relative)
{
    QFile file(m_dir.filePath(relative));
    QVERIFY(file.open(QIODevice::WriteOnly));
}

void tst_Dialogs::initTestCase()
{
    QVERIFY(m_dir.isValid());
    QVERIFY(QDir(m_dir.path()).mkpath(QStringLiteral("Texts")));
    for (const char *name : { "Texts/README.TXT", "Texts/notes.txt", "Texts/Mixed.TxT",
             "Texts/letter.doc", "Texts/Makefile" })
        touch(QLatin1String(name));
}

void tst_Dialogs::cleanup()
{
    Dialogs::setOpenFileHandler({});
    Dialogs::setBrowseFolderHandler({});
}

void tst_Dialogs::filterTextBecomesQtNameFilters_data()
{
    QTest::addColumn<QString>("filter");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("all files") << "All Files (*.*)|*.*" << QStringList { "All Files (*.*) (*)" };
    QTest::newRow("two pairs") << "Text Files (*.txt)|*.txt|All Files (*.*)|*.*"
                               << QStringList { "Text Files (*.txt) (*.[tT][xX][tT])",
                                      "All Files (*.*) (*)" };
    QTest::newRow("several patterns")
        << "Images|*.png;*.JPG" << QStringList { "Images (*.[pP][nN][gG] *.[jJ][pP][gG])" };
    QTest::newRow("digits and wildcards kept")
        << "Logs|log_??.1" << QStringList { "Logs ([lL][oO][gG]_??.1)" };
    QTest::newRow("description without pattern is left out")
        << "Data (*.db)|*.db|Dangling" << QStringList { "Data (*.db) (*.[dD][bB])" };
    QTest::newRow("empty pattern is left out") << "Nothing|" << QStringList {};
    QTest::newRow("empty filter") << "" << QStringList {};
}

void tst_Dialogs::filterTextBecomesQtNameFilters()
{
    QFETCH(QString, filter);
    QFETCH(QStringList, expected);
    QCOMPARE(Dialogs::nameFilters(filter), expected);
}

void tst_Dialogs::filterPatternsMatchWithoutRegardToCase()
{
    const QStringList filters
        = Dialogs::nameFilters(QStringLiteral("Text Files (*.txt)|*.txt|All Files (*.*)|*.*"));
    QCOMPARE(filters.size(), 2);
    auto matching = [this](const QString &nameFilter) {
        // The patterns are what Qt reads from the last parentheses.
        const qsizetype open = nameFilter.lastIndexOf(QLatin1Char('('));
        const QStringList patterns
            = nameFilter.mid(open + 1).chopped(1).split(QLatin1Char(' '), Qt::SkipEmptyParts);
        return QDir(m_dir.filePath(QStringLiteral("Texts")))
            .entryList(patterns, QDir::Files | QDir::CaseSensitive, QDir::Name);
    };
    QCOMPARE(matching(filters[0]), (QStringList { "Mixed.TxT", "README.TXT", "notes.txt" }));
    QCOMPARE(matching(filters[1]).size(), 5);
}

void tst_Dialogs::missingStartFolderFallsBackToHome_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QString>("expected");
    const QString texts = m_dir.filePath(QStringLiteral("Texts"));
    QTest::newRow("existing") << texts << texts;
    QTest::newRow("other case and backslashes")
        << m_dir.path() + QStringLiteral("\\TEXTS\\") << texts;
    QTest::newRow("drive of another system") << QStringLiteral("C:\\") << QDir::homePath();
    QTest::newRow("missing") << m_dir.filePath(QStringLiteral("gone")) << QDir::homePath();
    QTest::newRow("a file") << m_dir.filePath(QStringLiteral("Texts/notes.txt"))
                            << QDir::homePath();
    QTest::newRow("empty") << QString() << QDir::homePath();
}

void tst_Dialogs::missingStartFolderFallsBackToHome()
{
    QFETCH(QString, folder);
    QFETCH(QString, expected);
    QCOMPARE(Dialogs::startFolder(folder), expected);
}

void tst_Dialogs::openFileDialogShowsTheRequestAndReturnsTheChoice()
{
    const QString texts = m_dir.filePath(QStringLiteral("Texts"));
    QString title, directory;
    QStringList filters;
    bool detailsHidden = false, caseSensitive = true;
    const QString chosen = withDialog(
        [&] {
            return Dialogs::getOpenFileName(
                { QStringLiteral("notes.txt"), m_dir.path() + QStringLiteral("\\texts"),
                    QStringLiteral("Select A Text File From Below"),
                    QStringLiteral("Text Files (*.txt)|*.txt|All Files (*.*)|*.*"), 0 });
        },
        [&](QFileDialog *dialog) {
            title = dialog->windowTitle();
            directory = dialog->directory().absolutePath();
            filters = dialog->nameFilters();
            detailsHidden = dialog->testOption(QFileDialog::HideNameFilterDetails);
            caseSensitive = dialog->filter().testFlag(QDir::CaseSensitive);
            QMetaObject::invokeMethod(dialog, "accept");
        });
    QCOMPARE(title, QStringLiteral("Select A Text File From Below"));
    QCOMPARE(directory, texts);
    QCOMPARE(
        filters, (QStringList { "Text Files (*.txt) (*.[tT][xX][tT])", "All Files (*.*) (*)" }));
    QVERIFY(detailsHidden);
    QVERIFY(!caseSensitive);
    QCOMPARE(chosen, texts + QStringLiteral("/notes.txt"));
}

void tst_Dialogs::cancelledDialogsReturnEmptyText()
{
    QString directory;
    const QString file = withDialog(
        [&] {
            return Dialogs::getOpenFileName(
                { QString(), QStringLiteral("C:\\"), QStringLiteral("Pick"), QString(), 0 });
        },
        [&](QFileDialog *dialog) {
            directory = dialog->directory().absolutePath();
            dialog->reject();
        });
    QCOMPARE(file, QString());
    QCOMPARE(directory, QDir::homePath());

    const QString folder = withDialog(
        [&] {
            return Dialogs::browseForFolder({ nullptr, QStringLiteral("Pick"), QString() });
        },
        [](QFileDialog *dialog) { dialog->reject(); });
    QCOMPARE(folder, QString());
}

void tst_Dialogs::folderDialogStartsInTheGivenFolder()
{
    QWidget owner;
    QString title, directory;
    QWidget *parent = nullptr;
    bool foldersOnly = false;
    const QString chosen = withDialog(
        [&] {
            return Dialogs::browseForFolder({ &owner, QStringLiteral("Select A Folder"),
                m_dir.path() + QStringLiteral("/TEXTS") });
        },
        [&](QFileDialog *dialog) {
            title = dialog->windowTitle();
            directory = dialog->directory().absolutePath();
            parent = dialog->parentWidget();
            foldersOnly = dialog->fileMode() == QFileDialog::Directory;
            QMetaObject::invokeMethod(dialog, "accept");
        });
    QCOMPARE(title, QStringLiteral("Select A Folder"));
    QCOMPARE(directory, m_dir.filePath(QStringLiteral("Texts")));
    QCOMPARE(parent, &owner);
    QVERIFY(foldersOnly);
    QCOMPARE(chosen, m_dir.filePath(QStringLiteral("Texts")));
}

void tst_Dialogs::installedHandlerReceivesTheArgumentsAsGiven()
{
    Dialogs::OpenFileRequest seen;
    const Dialogs::OpenFileHandler previous
        = Dialogs::setOpenFileHandler([&](const Dialogs::OpenFileRequest &request) {
              seen = request;
              return QStringLiteral("/chosen/by/handler.txt");
          });
    QVERIFY(!previous);
    const QString chosen = Dialogs::getOpenFileName({ QStringLiteral("a.txt"),
        QStringLiteral("C:\\"), QStringLiteral("T"), QStringLiteral("All Files (*.*)|*.*"), 0 });
    QCOMPARE(chosen, QStringLiteral("/chosen/by/handler.txt"));
    // The handler sees the start folder unchanged; only the real dialog falls back to home.
    QCOMPARE(seen.startFolder, QStringLiteral("C:\\"));
    QCOMPARE(seen.filter, QStringLiteral("All Files (*.*)|*.*"));
    QVERIFY(Dialogs::setOpenFileHandler({}));
}

QTEST_MAIN(tst_Dialogs)
#include "tst_Dialogs.moc"
