#include "runtime/FileSystem.h"

#include <QtTest>

using namespace kwFieldDeck;

class tst_FileSystem : public QObject
{
    Q_OBJECT
private slots:
    void pathIsResolvedWithoutRegardToCase_data()
    {
        QTest::addColumn<QString>("written"); // both below the test's folder
        QTest::addColumn<QString>("expected");
        QVERIFY(QDir(m_dir.path()).mkpath(QStringLiteral("Data/Combo Lists")));
        QVERIFY(QDir(m_dir.path()).mkdir(QStringLiteral("Twins")));
        for (const char *name : { "Data/Combo Lists/Colours.DB", "Twins/Name.txt", "Twins/NAME.txt",
                 "Twins/name.TXT" }) {
            QFile file(m_dir.filePath(QLatin1String(name)));
            QVERIFY(file.open(QIODevice::WriteOnly));
        }
        const char *db = "/Data/Combo Lists/Colours.DB";
        QTest::newRow("as written") << db << db;
        QTest::newRow("upper-cased") << "/DATA/COMBO LISTS/COLOURS.DB" << db;
        QTest::newRow("backslashes and case") << "\\DATA\\combo lists\\colours.db" << db;
        QTest::newRow("folder, trailing separator") << "\\DATA\\"
                                                    << "/Data/";
        QTest::newRow("missing name keeps the matched part") << "/DATA/gone.txt"
                                                             << "/Data/gone.txt";
        QTest::newRow("missing folder keeps the rest as written") << "\\data\\NoSuch\\README.TXT"
                                                                  << "/Data/NoSuch/README.TXT";
        // Of names that differ only in case, the one written exactly is taken first.
        QTest::newRow("exact twin NAME") << "/Twins/NAME.txt"
                                         << "/Twins/NAME.txt";
        QTest::newRow("exact twin name.TXT") << "/Twins/name.TXT"
                                             << "/Twins/name.TXT";
        QTest::newRow("folder in other case") << "\\TWINS\\Name.txt"
                                              << "/Twins/Name.txt";
    }

    void pathIsResolvedWithoutRegardToCase()
    {
        QFETCH(QString, written);
        QFETCH(QString, expected);
        QCOMPARE(FileSystem::resolvePath(m_dir.path() + written), m_dir.path() + expected);
    }

private:
    QTemporaryDir m_dir;
};

QTEST_GUILESS_MAIN(tst_FileSystem)
#include "tst_FileSystem.moc"
