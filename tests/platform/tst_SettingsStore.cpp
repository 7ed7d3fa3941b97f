#include "platform/FolderConditions.h"
#include "platform/SettingsStore.h"

#include "RaisedError.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QtTest>

#include <optional>

using namespace kwFieldDeck;

namespace {
QByteArray contentsOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}
} // namespace

class tst_SettingsStore : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void anyTextRoundTripsAsANameOrAValue();
    void aStoreThatCannotBeWrittenFailsAndStaysWhole_data();
    void aStoreThatCannotBeWrittenFailsAndStaysWhole();

private:
    std::unique_ptr<QTemporaryDir> m_config;
};

void tst_SettingsStore::init()
{
    m_config = std::make_unique<QTemporaryDir>();
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(m_config->path()));
}

void tst_SettingsStore::anyTextRoundTripsAsANameOrAValue()
{
    // Names that look alike in a settings file each address a value of their own.
    const QStringList texts = { QString(), QStringLiteral("a/b"), QStringLiteral("a\\b"),
        QStringLiteral("a%2Fb"), QStringLiteral("A"), QStringLiteral("a"),
        QStringLiteral("Name=x=y"), QStringLiteral("a\r\nb\r\n"), QStringLiteral("a%CRLF%b"),
        QStringLiteral("Gr\u00FC\u00DFe \u65E5\u672C \U0001F389"), QStringLiteral("[General]"),
        QStringLiteral("@Variant(\\0\\x7f) #x ;y"), QStringLiteral("a") + QChar(0) + QChar(0x7f) };
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

void tst_SettingsStore::aStoreThatCannotBeWrittenFailsAndStaysWhole_data()
{
    QTest::addColumn<bool>("readOnlyFolder");
    QTest::newRow("read-only folder") << true;
    QTest::newRow("the store is a directory") << false;
}

void tst_SettingsStore::aStoreThatCannotBeWrittenFailsAndStaysWhole()
{
    QFETCH(bool, readOnlyFolder);
    const QString app = QStringLiteral("Blocked"), s = QStringLiteral("S");
    const QString none = QStringLiteral("dflt"), path = SettingsStore::filePath(app);
    const QString earlier = readOnlyFolder ? QStringLiteral("earlier\r\nvalue") : none;
    if (readOnlyFolder)
        SettingsStore::SaveSetting(app, s, QStringLiteral("K"), earlier);
    else
        QVERIFY(QDir().mkpath(path + QStringLiteral("/inside")));
    const QByteArray before = contentsOf(path);
    {
        std::optional<test::ReadOnlyFolder> readOnly;
        if (readOnlyFolder && !readOnly.emplace(QFileInfo(path).absolutePath()).isEffective())
            QSKIP("This process can write to any folder and cannot mount one read-only");
        for (const char *key : { "K", "Added" })
            QCOMPARE(test::raisedError([&] {
                SettingsStore::SaveSetting(app, s, QLatin1String(key), QStringLiteral("new"));
            }),
                75);
        QCOMPARE(contentsOf(path), before);
    }
    // The failed values do not come back once the store can be written again.
    if (readOnlyFolder)
        SettingsStore::SaveSetting(app, s, QStringLiteral("Other"), QStringLiteral("later"));
    QCOMPARE(SettingsStore::GetSetting(app, s, QStringLiteral("K"), none), earlier);
    QCOMPARE(SettingsStore::GetSetting(app, s, QStringLiteral("Added"), none), none);
    QCOMPARE(QFileInfo(path + QStringLiteral("/inside")).isDir(), !readOnlyFolder);
}

QTEST_GUILESS_MAIN(tst_SettingsStore)
#include "tst_SettingsStore.moc"
