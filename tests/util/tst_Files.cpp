#include "util/Files.h"

#include <QtTest>

using namespace kwFieldDeck;

class tst_Files : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void readWholeFileDecodesItsBytes_data();
    void readWholeFileDecodesItsBytes();
    void readWholeFileIsEmptyWhenItCannotRead_data();
    void readWholeFileIsEmptyWhenItCannotRead();
    void readWholeFileFindsAPathWrittenInOtherCase();
    void fileExistsOnlyForFiles_data();
    void fileExistsOnlyForFiles();

private:
    QString write(const QString &name, const QByteArray &bytes);
    QTemporaryDir m_dir;
};

QString tst_Files::write(const QString &name, const QByteArray &bytes)
{
    const QString path = m_dir.filePath(name);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(path));
    return path;
}

void tst_Files::initTestCase()
{
    QVERIFY(m_dir.isValid());
    QVERIFY(QDir(m_dir.path()).mkdir(QStringLiteral("Folder")));
    write(QStringLiteral("Folder/Defs.TXT"), "Property Control Definition File\r\n");
}

void tst_Files::readWholeFileDecodesItsBytes_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("expected");
    QTest::newRow("ASCII") << QByteArray("plain text") << QStringLiteral("plain text");
    QTest::newRow("CR LF kept") << QByteArray("a\r\nb\r\n") << QStringLiteral("a\r\nb\r\n");
    QTest::newRow("bare LF kept") << QByteArray("a\nb") << QStringLiteral("a\nb");
    QTest::newRow("UTF-8") << QByteArray("caf\xC3\xA9 \xE2\x82\xAC")
                           << QStringLiteral("caf\u00E9 \u20AC");
    QTest::newRow("UTF-8 BOM dropped")
        << QByteArray("\xEF\xBB\xBFTitle=x") << QStringLiteral("Title=x");
    QTest::newRow("BOM alone") << QByteArray("\xEF\xBB\xBF") << QString();
    QTest::newRow("Windows-1252 accents")
        << QByteArray("caf\xE9 na\xEFve") << QStringLiteral("caf\u00E9 na\u00EFve");
    QTest::newRow("Windows-1252 high codes")
        << QByteArray("\x80 \x85 \x93q\x94 \x96 \x99 \x9F")
        << QStringLiteral("\u20AC \u2026 \u201Cq\u201D \u2013 \u2122 \u0178");
    QTest::newRow("Windows-1252 unassigned code")
        << QByteArray("a\x81z") << QStringLiteral("a\u0081z");
    QTest::newRow("invalid UTF-8 anywhere makes all Windows-1252")
        << QByteArray("\xC3\xA9 and \xE9") << QStringLiteral("\u00C3\u00A9 and \u00E9");
    QTest::newRow("empty") << QByteArray() << QString();
}

void tst_Files::readWholeFileDecodesItsBytes()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, expected);
    const QString path = write(QStringLiteral("decode.txt"), bytes);
    QCOMPARE(ReadWholeFile(path), expected);
}

void tst_Files::readWholeFileIsEmptyWhenItCannotRead_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("missing file") << m_dir.filePath(QStringLiteral("missing.txt"));
    QTest::newRow("missing folder") << m_dir.filePath(QStringLiteral("nowhere/file.txt"));
    QTest::newRow("a folder") << m_dir.filePath(QStringLiteral("Folder"));
    QTest::newRow("empty path") << QString();
}

void tst_Files::readWholeFileIsEmptyWhenItCannotRead()
{
    QFETCH(QString, path);
    const QString text = ReadWholeFile(path);
    QVERIFY(text.isEmpty());
}

void tst_Files::readWholeFileFindsAPathWrittenInOtherCase()
{
    const QString written = m_dir.path() + QStringLiteral("\\FOLDER\\defs.txt");
    QCOMPARE(ReadWholeFile(written), QStringLiteral("Property Control Definition File\r\n"));
}

void tst_Files::fileExistsOnlyForFiles_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("expected");
    QTest::newRow("file as written") << m_dir.filePath(QStringLiteral("Folder/Defs.TXT")) << true;
    QTest::newRow("file in other case")
        << m_dir.filePath(QStringLiteral("folder/defs.txt")) << true;
    QTest::newRow("backslashes") << m_dir.path() + QStringLiteral("\\Folder\\Defs.TXT") << true;
    QTest::newRow("a folder is no file") << m_dir.filePath(QStringLiteral("Folder")) << false;
    QTest::newRow("missing") << m_dir.filePath(QStringLiteral("Folder/other.txt")) << false;
    QTest::newRow("empty") << QString() << false;
}

void tst_Files::fileExistsOnlyForFiles()
{
    QFETCH(QString, path);
    QFETCH(bool, expected);
    QCOMPARE(FileExists(path), expected);
}

QTEST_GUILESS_MAIN(tst_Files)
#include "tst_Files.moc"
