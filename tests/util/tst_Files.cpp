#include "runtime/Files.h"

#include "TestSupport.h"

#include <QtTest>

using namespace kwFieldDeck;

class tst_Files : public QObject
{
    Q_OBJECT
private slots:
    void readWholeFileDecodesItsBytes_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("expected");
        QTest::newRow("UTF-8") << QByteArray("caf\xC3\xA9 \xE2\x82\xAC")
                               << QStringLiteral("caf\u00E9 \u20AC");
        QTest::newRow("UTF-8 BOM dropped")
            << QByteArray("\xEF\xBB\xBFTitle=x") << QStringLiteral("Title=x");
        QTest::newRow("Windows-1252 accents")
            << QByteArray("caf\xE9 na\xEFve") << QStringLiteral("caf\u00E9 na\u00EFve");
        QTest::newRow("Windows-1252 high codes")
            << QByteArray("\x80 \x85 \x93q\x94 \x96 \x99 \x9F")
            << QStringLiteral("\u20AC \u2026 \u201Cq\u201D \u2013 \u2122 \u0178");
        QTest::newRow("invalid UTF-8 anywhere makes all Windows-1252")
            << QByteArray("\xC3\xA9 and \xE9") << QStringLiteral("\u00C3\u00A9 and \u00E9");
    }

    void readWholeFileDecodesItsBytes()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, expected);
        QVERIFY(!test::writeFile(m_dir.filePath(QStringLiteral("Decode.TXT")), bytes).isEmpty());
        // Read as written on another system: backslashes and other letter case.
        QCOMPARE(ReadWholeFile(m_dir.path() + QStringLiteral("\\decode.txt")), expected);
        QCOMPARE(ReadWholeFile(m_dir.filePath(QStringLiteral("missing.txt"))), QString());
    }

private:
    QTemporaryDir m_dir;
};

QTEST_GUILESS_MAIN(tst_Files)
#include "tst_Files.moc"
