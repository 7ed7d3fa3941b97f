#include "platform/FileSystem.h"

#include <QtTest>

using namespace kwFieldDeck;

class tst_FileSystem : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void pathIsResolvedWithoutRegardToCase_data();
    void pathIsResolvedWithoutRegardToCase();
    void exactMatchWinsOverOtherCase();
    void existenceTestsTellFilesFromFolders_data();
    void existenceTestsTellFilesFromFolders();
    void parentFolderIsThePathUpToItsLastSeparator_data();
    void parentFolderIsThePathUpToItsLastSeparator();

private:
    void touch(const QString &relative);
    QTemporaryDir m_dir;
};

void tst_FileSystem::touch(const QString &relative)
{
    QFile file(m_dir.filePath(relative));
    QVERIFY(file.open(QIODevice::WriteOnly));
}

void tst_FileSystem::initTestCase()
{
    QVERIFY(m_dir.isValid());
    QVERIFY(QDir(m_dir.path()).mkpath(QStringLiteral("Data/Combo Lists")));
    QVERIFY(QDir(m_dir.path()).mkpath(QStringLiteral("Twins")));
    touch(QStringLiteral("Data/Combo Lists/Colours.DB"));
    touch(QStringLiteral("Data/readme.txt"));
    touch(QStringLiteral("Twins/Name.txt"));
    touch(QStringLiteral("Twins/NAME.txt"));
    touch(QStringLiteral("Twins/name.TXT"));
}

void tst_FileSystem::pathIsResolvedWithoutRegardToCase_data()
{
    QTest::addColumn<QString>("written");
    QTest::addColumn<QString>("expected");
    const QString root = m_dir.path();
    const QString db = root + QStringLiteral("/Data/Combo Lists/Colours.DB");
    QTest::newRow("as written") << db << db;
    QTest::newRow("upper-cased") << root + QStringLiteral("/DATA/COMBO LISTS/COLOURS.DB") << db;
    QTest::newRow("lower-cased") << root + QStringLiteral("/data/combo lists/colours.db") << db;
    QTest::newRow("backslashes") << root + QStringLiteral("\\Data\\Combo Lists\\Colours.DB") << db;
    QTest::newRow("backslashes and case")
        << root + QStringLiteral("\\DATA\\combo lists\\colours.db") << db;
    QTest::newRow("folder") << root + QStringLiteral("/DATA") << root + QStringLiteral("/Data");
    QTest::newRow("folder with trailing separator")
        << root + QStringLiteral("\\DATA\\") << root + QStringLiteral("/Data/");
    QTest::newRow("missing name keeps the matched part")
        << root + QStringLiteral("/DATA/missing.txt") << root + QStringLiteral("/Data/missing.txt");
    QTest::newRow("missing folder keeps the rest as written")
        << root + QStringLiteral("\\data\\NoSuch\\README.TXT")
        << root + QStringLiteral("/Data/NoSuch/README.TXT");
    QTest::newRow("dot-dot") << root + QStringLiteral("/DATA/../data/README.txt")
                             << root + QStringLiteral("/Data/../Data/readme.txt");
    QTest::newRow("empty") << QString() << QString();
}

void tst_FileSystem::pathIsResolvedWithoutRegardToCase()
{
    QFETCH(QString, written);
    QFETCH(QString, expected);
    QCOMPARE(FileSystem::resolvePath(written), expected);
}

void tst_FileSystem::exactMatchWinsOverOtherCase()
{
    const QString twins = m_dir.filePath(QStringLiteral("Twins/"));
    QCOMPARE(FileSystem::resolvePath(twins + QStringLiteral("NAME.txt")),
        twins + QStringLiteral("NAME.txt"));
    QCOMPARE(FileSystem::resolvePath(twins + QStringLiteral("name.TXT")),
        twins + QStringLiteral("name.TXT"));
    QCOMPARE(FileSystem::resolvePath(m_dir.path() + QStringLiteral("\\TWINS\\Name.txt")),
        twins + QStringLiteral("Name.txt"));
}

void tst_FileSystem::existenceTestsTellFilesFromFolders_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("file");
    QTest::addColumn<bool>("folder");
    const QString root = m_dir.path();
    QTest::newRow("file") << root + QStringLiteral("/Data/readme.txt") << true << false;
    QTest::newRow("file in other case")
        << root + QStringLiteral("\\DATA\\README.TXT") << true << false;
    QTest::newRow("folder") << root + QStringLiteral("/Data/Combo Lists") << false << true;
    QTest::newRow("folder in other case")
        << root + QStringLiteral("\\data\\combo lists\\") << false << true;
    QTest::newRow("missing") << root + QStringLiteral("/Data/nothing") << false << false;
    QTest::newRow("drive of another system") << QStringLiteral("C:\\") << false << false;
    QTest::newRow("empty") << QString() << false << false;
}

void tst_FileSystem::existenceTestsTellFilesFromFolders()
{
    QFETCH(QString, path);
    QFETCH(bool, file);
    QFETCH(bool, folder);
    QCOMPARE(FileSystem::FileExists(path), file);
    QCOMPARE(FileSystem::FolderExists(path), folder);
}

void tst_FileSystem::parentFolderIsThePathUpToItsLastSeparator_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("parent");
    QTest::newRow("file") << "/home/user/notes.txt"
                          << "/home/user";
    QTest::newRow("backslashes") << "C:\\Data\\notes.txt"
                                 << "C:\\Data";
    QTest::newRow("folder with trailing separator") << "/home/user/"
                                                    << "/home";
    QTest::newRow("doubled separators") << "/home//notes.txt"
                                        << "/home";
    QTest::newRow("in the root") << "/notes.txt"
                                 << "/";
    QTest::newRow("root of a drive") << "C:\\notes.txt"
                                     << "C:\\";
    QTest::newRow("no folder") << "notes.txt"
                               << "";
    QTest::newRow("root itself") << "/"
                                 << "";
    QTest::newRow("empty") << ""
                           << "";
}

void tst_FileSystem::parentFolderIsThePathUpToItsLastSeparator()
{
    QFETCH(QString, path);
    QFETCH(QString, parent);
    QCOMPARE(FileSystem::GetParentFolderName(path), parent);
}

QTEST_GUILESS_MAIN(tst_FileSystem)
#include "tst_FileSystem.moc"
