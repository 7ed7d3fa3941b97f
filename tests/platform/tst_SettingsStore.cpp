#include "platform/Error.h"
#include "platform/FolderConditions.h"
#include "platform/SettingsStore.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QtTest>

using namespace kwFieldDeck;

namespace {

const QString crlf = QStringLiteral("\r\n");

QByteArray contentsOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

int saveError(const QString &app, const QString &section, const QString &key, const QString &value)
{
    try {
        SettingsStore::SaveSetting(app, section, key, value);
    } catch (const Error &error) {
        return error.number();
    }
    return 0;
}

} // namespace

class tst_SettingsStore : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void anyTextRoundTrips_data();
    void anyTextRoundTrips();
    void namesThatLookAlikeAddressDistinctValues();
    void aMissingValueGivesTheDefault();
    void savingReplacesOnlyThatValue();
    void aLongApplicationNameStillHasItsOwnFile();
    void savingLeavesNoTemporaryFiles();
    void anUnreadableStoreGivesTheDefault_data();
    void anUnreadableStoreGivesTheDefault();
    void aStoreThatCannotBeWrittenFailsAndStaysWhole_data();
    void aStoreThatCannotBeWrittenFailsAndStaysWhole();
    void aReadOnlyFolderFailsAndKeepsTheEarlierFile();
    void aWriteThatFailsLateIsTakenBack();

private:
    QString configFolder() const { return m_config->path() + QStringLiteral("/kwFieldDeck"); }

    std::unique_ptr<QTemporaryDir> m_config;
};

void tst_SettingsStore::init()
{
    m_config = std::make_unique<QTemporaryDir>();
    QVERIFY(m_config->isValid());
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(m_config->path()));
}

void tst_SettingsStore::anyTextRoundTrips_data()
{
    QTest::addColumn<QString>("text");

    QTest::newRow("plain") << QStringLiteral("Grid");
    QTest::newRow("empty") << QString();
    QTest::newRow("slashes") << QStringLiteral("a/b\\c//");
    QTest::newRow("equals signs") << QStringLiteral("Name=x=y");
    QTest::newRow("line-break marker") << QStringLiteral("a%CRLF%b");
    QTest::newRow("CR LF") << QStringLiteral("a") + crlf + QStringLiteral("b") + crlf;
    QTest::newRow("lone LF and CR") << QStringLiteral("a\nb\rc");
    QTest::newRow("non-ASCII") << QStringLiteral("Grüße, 日本語 🎉 – ß");
    QTest::newRow("blanks at the ends") << QStringLiteral("  padded\t ");
    QTest::newRow("list separators") << QStringLiteral("a,b;c");
    QTest::newRow("quotes") << QStringLiteral("\"quoted\" 'single'");
    QTest::newRow("variant syntax") << QStringLiteral("@Variant(\\0\\0\\0\\x7f)");
    QTest::newRow("invalid syntax") << QStringLiteral("@Invalid()");
    QTest::newRow("section syntax") << QStringLiteral("[General]");
    QTest::newRow("General") << QStringLiteral("General");
    QTest::newRow("comment syntax") << QStringLiteral("#x ;y");
    QTest::newRow("percent signs") << QStringLiteral("%25 % %%");
    QTest::newRow("control characters")
        << QStringLiteral("a") + QChar(0) + QStringLiteral("b") + QChar(1) + QChar(0x7f);
    QTest::newRow("long") << QString(100000, QLatin1Char('x'));
}

void tst_SettingsStore::anyTextRoundTrips()
{
    QFETCH(QString, text);

    SettingsStore::SaveSetting(QStringLiteral("RoundTrip"), text, QStringLiteral("key"), text);
    SettingsStore::SaveSetting(QStringLiteral("RoundTrip"), QStringLiteral("section"), text, text);
    SettingsStore::SaveSetting(text, QStringLiteral("section"), QStringLiteral("key"), text);

    const QString none = QStringLiteral("<none>");
    QCOMPARE(
        SettingsStore::GetSetting(QStringLiteral("RoundTrip"), text, QStringLiteral("key"), none),
        text);
    QCOMPARE(SettingsStore::GetSetting(
                 QStringLiteral("RoundTrip"), QStringLiteral("section"), text, none),
        text);
    QCOMPARE(
        SettingsStore::GetSetting(text, QStringLiteral("section"), QStringLiteral("key"), none),
        text);
}

void tst_SettingsStore::namesThatLookAlikeAddressDistinctValues()
{
    const QStringList names = { QStringLiteral("a/b"), QStringLiteral("a%2Fb"),
        QStringLiteral("a\\b"), QStringLiteral("a"), QStringLiteral("A"), QStringLiteral("%"),
        QString(), QStringLiteral("a b"), QStringLiteral("a+b") };
    for (const QString &name : names) {
        SettingsStore::SaveSetting(
            QStringLiteral("Alike"), name, name, QStringLiteral("v:") + name);
        SettingsStore::SaveSetting(
            name, QStringLiteral("s"), QStringLiteral("k"), QStringLiteral("app:") + name);
    }
    for (const QString &name : names) {
        QCOMPARE(SettingsStore::GetSetting(QStringLiteral("Alike"), name, name),
            QStringLiteral("v:") + name);
        QCOMPARE(SettingsStore::GetSetting(name, QStringLiteral("s"), QStringLiteral("k")),
            QStringLiteral("app:") + name);
    }
}

void tst_SettingsStore::aMissingValueGivesTheDefault()
{
    QCOMPARE(SettingsStore::GetSetting(QStringLiteral("Nothing"), QStringLiteral("S"),
                 QStringLiteral("K"), QStringLiteral("dflt")),
        QStringLiteral("dflt"));
    SettingsStore::SaveSetting(
        QStringLiteral("Nothing"), QStringLiteral("S"), QStringLiteral("K"), QString());
    QCOMPARE(SettingsStore::GetSetting(QStringLiteral("Nothing"), QStringLiteral("S"),
                 QStringLiteral("K"), QStringLiteral("dflt")),
        QString());
    QCOMPARE(SettingsStore::GetSetting(QStringLiteral("Nothing"), QStringLiteral("S"),
                 QStringLiteral("Other"), QStringLiteral("dflt")),
        QStringLiteral("dflt"));
}

void tst_SettingsStore::savingReplacesOnlyThatValue()
{
    const QString app = QStringLiteral("Replace");
    SettingsStore::SaveSetting(
        app, QStringLiteral("S"), QStringLiteral("one"), QStringLiteral("1"));
    SettingsStore::SaveSetting(
        app, QStringLiteral("S"), QStringLiteral("two"), QStringLiteral("2"));
    SettingsStore::SaveSetting(
        app, QStringLiteral("S"), QStringLiteral("one"), QStringLiteral("3"));
    QCOMPARE(SettingsStore::GetSetting(app, QStringLiteral("S"), QStringLiteral("one")),
        QStringLiteral("3"));
    QCOMPARE(SettingsStore::GetSetting(app, QStringLiteral("S"), QStringLiteral("two")),
        QStringLiteral("2"));
}

void tst_SettingsStore::aLongApplicationNameStillHasItsOwnFile()
{
    const QString first = QString(300, QChar(0x00e4)) + QStringLiteral("1");
    const QString second = QString(300, QChar(0x00e4)) + QStringLiteral("2");
    SettingsStore::SaveSetting(
        first, QStringLiteral("S"), QStringLiteral("K"), QStringLiteral("1"));
    SettingsStore::SaveSetting(
        second, QStringLiteral("S"), QStringLiteral("K"), QStringLiteral("2"));
    QCOMPARE(SettingsStore::GetSetting(first, QStringLiteral("S"), QStringLiteral("K")),
        QStringLiteral("1"));
    QCOMPARE(SettingsStore::GetSetting(second, QStringLiteral("S"), QStringLiteral("K")),
        QStringLiteral("2"));
    QVERIFY(QFileInfo(SettingsStore::filePath(first)).fileName().size() < 256);
}

void tst_SettingsStore::savingLeavesNoTemporaryFiles()
{
    for (int i = 0; i < 5; ++i)
        SettingsStore::SaveSetting(
            QStringLiteral("Tidy"), QStringLiteral("S"), QStringLiteral("K"), QString::number(i));
    QCOMPARE(QDir(configFolder()).entryList(QDir::Files | QDir::Hidden | QDir::System),
        QStringList { QStringLiteral("Tidy.ini") });
}

void tst_SettingsStore::anUnreadableStoreGivesTheDefault_data()
{
    QTest::addColumn<QString>("condition");
    QTest::newRow("the store is a directory") << "directory";
    QTest::newRow("the settings folder is a file") << "folder is a file";
    QTest::newRow("random bytes") << "random";
    QTest::newRow("file without read permission") << "mode 000";
}

void tst_SettingsStore::anUnreadableStoreGivesTheDefault()
{
    QFETCH(QString, condition);
    const QString app = QStringLiteral("Unreadable");
    const QString path = SettingsStore::filePath(app);

    if (condition == QStringLiteral("folder is a file")) {
        QFile blocker(configFolder());
        QVERIFY(blocker.open(QIODevice::WriteOnly));
    } else if (condition == QStringLiteral("directory")) {
        QVERIFY(QDir().mkpath(path));
    } else {
        SettingsStore::SaveSetting(
            app, QStringLiteral("S"), QStringLiteral("K"), QStringLiteral("kept"));
        if (condition == QStringLiteral("random")) {
            QFile file(path);
            QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
            for (int i = 0; i < 4096; ++i)
                file.putChar(char(QRandomGenerator::global()->bounded(256)));
        } else {
            QVERIFY(QFile::setPermissions(path, {}));
            QFile probe(path);
            if (probe.open(QIODevice::ReadOnly))
                QSKIP("This user reads files whatever their mode (root)");
        }
    }
    QCOMPARE(SettingsStore::GetSetting(
                 app, QStringLiteral("S"), QStringLiteral("K"), QStringLiteral("dflt")),
        QStringLiteral("dflt"));
}

void tst_SettingsStore::aStoreThatCannotBeWrittenFailsAndStaysWhole_data()
{
    QTest::addColumn<QString>("condition");
    QTest::newRow("the store is a directory") << "directory";
    QTest::newRow("the settings folder is a file") << "folder is a file";
    QTest::newRow("the configuration folder is below a file") << "parent is a file";
}

void tst_SettingsStore::aStoreThatCannotBeWrittenFailsAndStaysWhole()
{
    QFETCH(QString, condition);
    const QString app = QStringLiteral("Blocked");
    const QString path = SettingsStore::filePath(app);
    QString blocker;

    if (condition == QStringLiteral("directory")) {
        blocker = path;
        QVERIFY(QDir().mkpath(path + QStringLiteral("/inside")));
    } else {
        blocker = condition == QStringLiteral("folder is a file") ? configFolder()
                                                                  : m_config->filePath("file");
        QFile file(blocker);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("earlier contents");
        if (condition == QStringLiteral("parent is a file"))
            qputenv("XDG_CONFIG_HOME", QFile::encodeName(blocker + QStringLiteral("/config")));
    }
    const QByteArray before = contentsOf(blocker);

    QCOMPARE(saveError(app, QStringLiteral("S"), QStringLiteral("K"), QStringLiteral("new")), 75);
    QCOMPARE(SettingsStore::GetSetting(
                 app, QStringLiteral("S"), QStringLiteral("K"), QStringLiteral("dflt")),
        QStringLiteral("dflt"));
    QCOMPARE(contentsOf(blocker), before);
    if (condition == QStringLiteral("directory"))
        QVERIFY(QFileInfo(path + QStringLiteral("/inside")).isDir());
}

void tst_SettingsStore::aReadOnlyFolderFailsAndKeepsTheEarlierFile()
{
    const QString app = QStringLiteral("ReadOnly");
    const QString path = SettingsStore::filePath(app);
    SettingsStore::SaveSetting(app, QStringLiteral("S"), QStringLiteral("K"),
        QStringLiteral("earlier") + crlf + QStringLiteral("value"));
    SettingsStore::SaveSetting(
        app, QStringLiteral("S"), QStringLiteral("Other"), QStringLiteral("untouched"));
    const QByteArray before = contentsOf(path);

    {
        test::ReadOnlyFolder readOnly(configFolder());
        if (!readOnly.isEffective())
            QSKIP("This process can write to any folder and cannot mount one read-only");
        QCOMPARE(
            saveError(app, QStringLiteral("S"), QStringLiteral("K"), QStringLiteral("new")), 75);
        QCOMPARE(
            saveError(app, QStringLiteral("S"), QStringLiteral("Third"), QStringLiteral("new")),
            75);
        QCOMPARE(contentsOf(path), before);
        QCOMPARE(SettingsStore::GetSetting(app, QStringLiteral("S"), QStringLiteral("K")),
            QStringLiteral("earlier") + crlf + QStringLiteral("value"));
        QCOMPARE(SettingsStore::GetSetting(
                     app, QStringLiteral("S"), QStringLiteral("Third"), QStringLiteral("dflt")),
            QStringLiteral("dflt"));
    }

    // The failed values do not come back once the folder can be written again.
    SettingsStore::SaveSetting(
        app, QStringLiteral("S"), QStringLiteral("Other"), QStringLiteral("later"));
    QCOMPARE(SettingsStore::GetSetting(app, QStringLiteral("S"), QStringLiteral("K")),
        QStringLiteral("earlier") + crlf + QStringLiteral("value"));
    QCOMPARE(SettingsStore::GetSetting(
                 app, QStringLiteral("S"), QStringLiteral("Third"), QStringLiteral("dflt")),
        QStringLiteral("dflt"));
}

void tst_SettingsStore::aWriteThatFailsLateIsTakenBack()
{
    // A full disk lets every check pass and the write itself fail.
    test::SmallFileSystem disk(configFolder(), 64);
    if (!disk.isMounted())
        QSKIP("This process cannot mount a small file system");
    const QString app = QStringLiteral("Late");
    const QString path = SettingsStore::filePath(app);
    SettingsStore::SaveSetting(
        app, QStringLiteral("S"), QStringLiteral("K"), QStringLiteral("earlier"));
    const QByteArray before = contentsOf(path);
    disk.fill();

    QCOMPARE(saveError(app, QStringLiteral("S"), QStringLiteral("K"), QString(9000, 'n')), 75);
    QCOMPARE(saveError(app, QStringLiteral("S"), QStringLiteral("Added"), QString(9000, 'n')), 75);
    QCOMPARE(contentsOf(path), before);
    QCOMPARE(SettingsStore::GetSetting(app, QStringLiteral("S"), QStringLiteral("K")),
        QStringLiteral("earlier"));

    QVERIFY(QFile::remove(configFolder() + QStringLiteral("/filler")));
    SettingsStore::SaveSetting(
        app, QStringLiteral("S"), QStringLiteral("Other"), QStringLiteral("later"));
    QCOMPARE(SettingsStore::GetSetting(app, QStringLiteral("S"), QStringLiteral("K")),
        QStringLiteral("earlier"));
    QCOMPARE(SettingsStore::GetSetting(
                 app, QStringLiteral("S"), QStringLiteral("Added"), QStringLiteral("dflt")),
        QStringLiteral("dflt"));
    QVERIFY(!contentsOf(path).contains("nnnn"));
}

QTEST_GUILESS_MAIN(tst_SettingsStore)
#include "tst_SettingsStore.moc"
