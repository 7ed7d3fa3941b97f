#include "runtime/FolderConditions.h"
#include "runtime/SettingsStore.h"

#include "RaisedError.h"
#include "TestSupport.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QtTest>

#include <optional>

using namespace kwFieldDeck;
using test::readFile;

class tst_SettingsStore : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_config = std::make_unique<QTemporaryDir>();
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(m_config->path()));
    }

    void anyTextRoundTripsAsANameOrAValue()
    {
        // Names that look alike in a settings file each address a value of their own.
        const QStringList texts = { QString(), QStringLiteral("a/b"), QStringLiteral("a\\b"),
            QStringLiteral("a%2Fb"), QStringLiteral("a"), QStringLiteral("Name=x=y"),
            QStringLiteral("a\r\nb\r\n"), QStringLiteral("a%CRLF%b"),
            QStringLiteral("Gr\u00FC\u00DFe \u65E5\u672C \U0001F389"), QStringLiteral("[General]"),
            QStringLiteral("@Variant(\\0\\x7f) #x ;y"),
            QStringLiteral("a") + QChar(0) + QChar(0x7f) };
        const QString app = QStringLiteral("RoundTrip"), s = QStringLiteral("S"),
                      k = QStringLiteral("K");
        for (const QString &t : texts) {
            SettingsStore::SaveSetting(app, t, k, QStringLiteral("s:") + t);
            SettingsStore::SaveSetting(app, s, t, QStringLiteral("k:") + t);
            SettingsStore::SaveSetting(t, s, k, QStringLiteral("a:") + t);
        }
        for (const QString &t : texts) {
            QCOMPARE(SettingsStore::GetSetting(app, t, k), QStringLiteral("s:") + t);
            QCOMPARE(SettingsStore::GetSetting(app, s, t), QStringLiteral("k:") + t);
            QCOMPARE(SettingsStore::GetSetting(t, s, k), QStringLiteral("a:") + t);
        }
        QCOMPARE(SettingsStore::GetSetting(app, s, QStringLiteral("none"), QStringLiteral("dflt")),
            QStringLiteral("dflt"));
    }

    void namesMatchWithoutRegardToLetterCase_data()
    {
        QTest::addColumn<int>("level");
        QTest::addColumn<QStringList>("spellings");
        const QString longName = QString(250, QLatin1Char('x')) + QStringLiteral("\u00C4pfel");
        QTest::newRow("application") << 0 << QStringList { "MyApp", "myapp", "MYAPP" };
        QTest::newRow("non-ASCII application")
            << 0
            << QStringList { "\u00C4pfel \u00DCbung", "\u00E4PFEL \u00FCBUNG",
                   "\u00E4pfel \u00FCbung" };
        QTest::newRow("long application")
            << 0 << QStringList { longName, longName.toUpper(), longName.toLower() };
        QTest::newRow("section") << 1 << QStringList { "Grid", "grid", "GRID" };
        QTest::newRow("key") << 2 << QStringList { "Values", "values", "VALUES" };
    }

    void namesMatchWithoutRegardToLetterCase()
    {
        QFETCH(int, level);
        QFETCH(QStringList, spellings);
        // The application, section and key, with the level under test spelled as asked.
        auto address = [&](int spelling) {
            QStringList names { "App", "Section", "Key" };
            names[level] = spellings[spelling];
            return names;
        };
        auto save = [&](int spelling, const QString &value) {
            const QStringList n = address(spelling);
            SettingsStore::SaveSetting(n[0], n[1], n[2], value);
        };
        auto get = [&](int spelling) {
            const QStringList n = address(spelling);
            return SettingsStore::GetSetting(n[0], n[1], n[2], QStringLiteral("dflt"));
        };
        save(0, QStringLiteral("first"));
        QCOMPARE(get(1), QStringLiteral("first"));
        save(1, QStringLiteral("second"));
        QCOMPARE(get(2), QStringLiteral("second"));
        QCOMPARE(get(0), QStringLiteral("second"));
        // One file, one entry: the spelling first written is kept.
        const QString path = SettingsStore::filePath(address(0)[0]);
        QCOMPARE(SettingsStore::filePath(address(2)[0]), path);
        QCOMPARE(QDir(QFileInfo(path).absolutePath()).entryList(QDir::Files),
            QStringList { QFileInfo(path).fileName() });
        const QByteArray contents = readFile(path);
        QCOMPARE(contents.count("second"), 1);
        QVERIFY2(!contents.contains("first"), contents.constData());
        if (level > 0) {
            QVERIFY2(contents.contains(spellings[0].toLatin1()), contents.constData());
            QVERIFY2(!contents.contains(spellings[1].toLatin1()), contents.constData());
        }
    }

    void aStoreThatCannotBeWrittenFailsAndStaysWhole_data()
    {
        QTest::addColumn<bool>("readOnlyFolder");
        QTest::newRow("read-only folder") << true;
        QTest::newRow("the store is a directory") << false;
    }

    void aStoreThatCannotBeWrittenFailsAndStaysWhole()
    {
        QFETCH(bool, readOnlyFolder);
        const QString app = QStringLiteral("Blocked"), s = QStringLiteral("S");
        const QString none = QStringLiteral("dflt"), path = SettingsStore::filePath(app);
        const QString earlier = readOnlyFolder ? QStringLiteral("earlier\r\nvalue") : none;
        if (readOnlyFolder)
            SettingsStore::SaveSetting(app, s, QStringLiteral("K"), earlier);
        else
            QVERIFY(QDir().mkpath(path + QStringLiteral("/inside")));
        const QByteArray before = readFile(path);
        {
            std::optional<test::ReadOnlyFolder> readOnly;
            if (readOnlyFolder && !readOnly.emplace(QFileInfo(path).absolutePath()).isEffective())
                QSKIP("This process can write to any folder and cannot mount one read-only");
            for (const char *key : { "K", "Added" })
                QCOMPARE(test::raisedError([&] {
                    SettingsStore::SaveSetting(app, s, QLatin1String(key), QStringLiteral("new"));
                }),
                    75);
            QCOMPARE(readFile(path), before);
        }
        // The failed values do not come back once the store can be written again.
        if (readOnlyFolder)
            SettingsStore::SaveSetting(app, s, QStringLiteral("Other"), QStringLiteral("later"));
        QCOMPARE(SettingsStore::GetSetting(app, s, QStringLiteral("K"), none), earlier);
        QCOMPARE(SettingsStore::GetSetting(app, s, QStringLiteral("Added"), none), none);
        QCOMPARE(QFileInfo(path + QStringLiteral("/inside")).isDir(), !readOnlyFolder);
    }

private:
    std::unique_ptr<QTemporaryDir> m_config;
};

QTEST_GUILESS_MAIN(tst_SettingsStore)
#include "tst_SettingsStore.moc"
