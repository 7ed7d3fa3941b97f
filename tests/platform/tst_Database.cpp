#include "platform/Database.h"
#include "platform/Error.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QtTest>

using namespace kwFieldDeck;

namespace {

// Runs SQL on a writable connection of the test's own, closed again before the library opens the
// file.
void runSql(const QString &path, const QStringList &statements)
{
    const QString name = QStringLiteral("tst_Database.writer");
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), name);
        db.setDatabaseName(path);
        QVERIFY2(db.open(), qPrintable(db.lastError().text()));
        QSqlQuery query(db);
        query.exec(QStringLiteral("PRAGMA synchronous = OFF"));
        for (const QString &sql : statements)
            QVERIFY2(
                query.exec(sql), qPrintable(sql + QStringLiteral(": ") + query.lastError().text()));
    }
    QSqlDatabase::removeDatabase(name);
}

qint64 rowCount(const QString &path, const QString &table)
{
    const QString name = QStringLiteral("tst_Database.counter");
    qint64 count = -1;
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), name);
        db.setDatabaseName(path);
        if (db.open()) {
            QSqlQuery query(db);
            if (query.exec(QStringLiteral("SELECT count(*) FROM ") + quotedIdentifier(table))
                && query.next())
                count = query.value(0).toLongLong();
        }
    }
    QSqlDatabase::removeDatabase(name);
    return count;
}

QByteArray digestOf(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QCryptographicHash::hash(file.readAll(), QCryptographicHash::Sha256);
}

int errorNumberOf(const std::function<void()> &action)
{
    try {
        action();
    } catch (const Error &error) {
        return error.number();
    }
    return 0;
}

QStringList listColumn(Recordset &records, const QString &column)
{
    QStringList values;
    if (records.RecordCount() == 0)
        return values;
    records.MoveLast();
    records.MoveFirst();
    while (!records.IsEOF()) {
        values << records.Value(column).toString();
        records.MoveNext();
    }
    return values;
}

} // namespace

class tst_Database : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void readsEveryRecordInOrder();
    void columnsAndTablesAreFoundWithoutRegardToCase_data();
    void columnsAndTablesAreFoundWithoutRegardToCase();
    void hostileTableNamesReadThatTableOrFail_data();
    void hostileTableNamesReadThatTableOrFail();
    void theFileIsOpenedReadOnly();
    void filesThatAreNoDatabaseFail_data();
    void filesThatAreNoDatabaseFail();
    void navigationOutsideTheRecordsFails();
    void nullReadsAsEmptyAndUnknownColumnsFail();
    void theSnapshotDoesNotSeeLaterChanges();
    void connectionsAreReleased();
    void aHostCanSupplyAnotherEngine();
    void identifiersAreQuoted_data();
    void identifiersAreQuoted();

private:
    QTemporaryDir m_dir;
    QString m_path;
};

void tst_Database::init()
{
    QVERIFY(m_dir.isValid());
    m_path = m_dir.filePath(QStringLiteral("lists-%1.db").arg(QTest::currentTestFunction()));
    QFile::remove(m_path);
    runSql(m_path,
        { QStringLiteral("CREATE TABLE colours (code TEXT, name TEXT, rank INTEGER)"),
            QStringLiteral("INSERT INTO colours VALUES ('R', 'Red', 1), ('G', 'Green', 2), "
                           "('B', 'Blue', 3)"),
            QStringLiteral("CREATE TABLE \"odd\"\"name; DROP TABLE colours; --\" (name TEXT)"),
            QStringLiteral("INSERT INTO \"odd\"\"name; DROP TABLE colours; --\" VALUES ('odd')"),
            QStringLiteral("CREATE TABLE \"Farbtöne\" (\"Größe\" TEXT)"),
            QStringLiteral("INSERT INTO \"Farbtöne\" VALUES ('groß')"),
            QStringLiteral("CREATE TABLE empty (name TEXT)"),
            QStringLiteral("CREATE TABLE gaps (name TEXT, code TEXT)"),
            QStringLiteral("INSERT INTO gaps VALUES (NULL, ''), ('x', NULL)"),
            QStringLiteral("CREATE VIEW warm AS SELECT name FROM colours WHERE code = 'R'") });
}

void tst_Database::readsEveryRecordInOrder()
{
    auto db = OpenDatabase(m_path);
    auto records = db->OpenRecordset(QStringLiteral("colours"));
    QCOMPARE(records->RecordCount(), 3);
    QCOMPARE(listColumn(*records, QStringLiteral("name")), QStringList({ "Red", "Green", "Blue" }));
    records->MoveFirst();
    QCOMPARE(records->Value(QStringLiteral("rank")).toInt(), 1);
    records->MoveLast();
    QCOMPARE(records->Value(QStringLiteral("code")).toString(), QStringLiteral("B"));
    QVERIFY(!records->IsEOF());
    records->MoveNext();
    QVERIFY(records->IsEOF());
}

void tst_Database::columnsAndTablesAreFoundWithoutRegardToCase_data()
{
    QTest::addColumn<QString>("table");
    QTest::addColumn<QString>("column");
    QTest::addColumn<QString>("first");

    QTest::newRow("as written") << "colours"
                                << "name"
                                << "Red";
    QTest::newRow("upper-cased by the reader") << "COLOURS"
                                               << "NAME"
                                               << "Red";
    QTest::newRow("non-ASCII names upper-cased") << "FARBTÖNE"
                                                 << "GRÖSSE"
                                                 << "groß";
    QTest::newRow("non-ASCII names as written") << "Farbtöne"
                                                << "Größe"
                                                << "groß";
    QTest::newRow("a view") << "WARM"
                            << "Name"
                            << "Red";
}

void tst_Database::columnsAndTablesAreFoundWithoutRegardToCase()
{
    QFETCH(QString, table);
    QFETCH(QString, column);
    QFETCH(QString, first);

    auto db = OpenDatabase(m_path);
    auto records = db->OpenRecordset(table);
    records->MoveFirst();
    QCOMPARE(records->Value(column).toString(), first);
}

void tst_Database::hostileTableNamesReadThatTableOrFail_data()
{
    QTest::addColumn<QString>("table");
    QTest::addColumn<int>("error");
    QTest::addColumn<QStringList>("names");

    QTest::newRow("existing name with quote and semicolon")
        << "odd\"name; DROP TABLE colours; --" << 0 << QStringList { "odd" };
    QTest::newRow("same name upper-cased")
        << "ODD\"NAME; DROP TABLE COLOURS; --" << 0 << QStringList { "odd" };
    QTest::newRow("injection after a quote")
        << "colours\"; DROP TABLE colours; --" << int(ErrTableNotFound) << QStringList();
    QTest::newRow("second statement")
        << "colours; DELETE FROM colours" << int(ErrTableNotFound) << QStringList();
    QTest::newRow("subquery") << "(SELECT name FROM colours)" << int(ErrTableNotFound)
                              << QStringList();
    QTest::newRow("embedded NUL") << QStringLiteral("colours") + QChar(0) + QStringLiteral("x")
                                  << int(ErrTableNotFound) << QStringList();
    QTest::newRow("empty name") << "" << int(ErrTableNotFound) << QStringList();
}

void tst_Database::hostileTableNamesReadThatTableOrFail()
{
    QFETCH(QString, table);
    QFETCH(int, error);
    QFETCH(QStringList, names);

    {
        auto db = OpenDatabase(m_path);
        std::unique_ptr<Recordset> records;
        QCOMPARE(errorNumberOf([&] { records = db->OpenRecordset(table); }), error);
        if (records)
            QCOMPARE(listColumn(*records, QStringLiteral("name")), names);
    }
    QCOMPARE(rowCount(m_path, QStringLiteral("colours")), 3);
}

void tst_Database::theFileIsOpenedReadOnly()
{
    const QByteArray before = digestOf(m_path);
    const QFileInfo info(m_path);
    const QDateTime modified = info.lastModified();
    {
        auto db = OpenDatabase(m_path);
        auto records = db->OpenRecordset(QStringLiteral("colours"));
        QCOMPARE(listColumn(*records, QStringLiteral("name")).size(), 3);
    }
    QCOMPARE(digestOf(m_path), before);
    QCOMPARE(QFileInfo(m_path).lastModified(), modified);
    QVERIFY(!QFile::exists(m_path + QStringLiteral("-journal")));
    QVERIFY(!QFile::exists(m_path + QStringLiteral("-wal")));
}

void tst_Database::filesThatAreNoDatabaseFail_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<int>("openError");
    QTest::addColumn<int>("tableError");

    QTest::newRow("missing file") << "missing" << int(ErrDatabaseFileNotFound) << 0;
    QTest::newRow("a directory") << "directory" << int(ErrDatabaseFileNotFound) << 0;
    QTest::newRow("random bytes") << "random" << int(ErrUnrecognizedDatabase) << 0;
    QTest::newRow("text file") << "text" << int(ErrUnrecognizedDatabase) << 0;
    // SQLite reads an empty file as a database without tables.
    QTest::newRow("empty file") << "empty" << 0 << int(ErrTableNotFound);
    QTest::newRow("truncated database") << "truncated" << int(ErrUnrecognizedDatabase) << 0;
}

void tst_Database::filesThatAreNoDatabaseFail()
{
    QFETCH(QString, kind);
    QFETCH(int, openError);
    QFETCH(int, tableError);

    const QString path = m_dir.filePath(QStringLiteral("bad-") + kind);
    if (kind == QStringLiteral("directory")) {
        QVERIFY(QDir().mkpath(path));
    } else if (kind != QStringLiteral("missing")) {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        if (kind == QStringLiteral("random")) {
            QByteArray bytes(4096, '\0');
            for (char &b : bytes)
                b = char(QRandomGenerator::global()->bounded(256));
            file.write(bytes);
        } else if (kind == QStringLiteral("text")) {
            file.write("Property Control Definition File\r\nADDFIELD x\r\n");
        } else if (kind == QStringLiteral("truncated")) {
            QFile whole(m_path);
            QVERIFY(whole.open(QIODevice::ReadOnly));
            file.write(whole.readAll().left(60));
        }
    }

    std::unique_ptr<Database> db;
    QCOMPARE(errorNumberOf([&] { db = OpenDatabase(path); }), openError);
    if (db)
        QCOMPARE(errorNumberOf([&] { db->OpenRecordset(QStringLiteral("colours")); }), tableError);
}

void tst_Database::navigationOutsideTheRecordsFails()
{
    auto db = OpenDatabase(m_path);
    auto empty = db->OpenRecordset(QStringLiteral("empty"));
    QCOMPARE(empty->RecordCount(), 0);
    QVERIFY(empty->IsEOF());
    QCOMPARE(errorNumberOf([&] { empty->MoveFirst(); }), int(ErrNoCurrentRecord));
    QCOMPARE(errorNumberOf([&] { empty->MoveLast(); }), int(ErrNoCurrentRecord));
    QCOMPARE(errorNumberOf([&] { empty->MoveNext(); }), int(ErrNoCurrentRecord));
    QCOMPARE(errorNumberOf([&] { empty->Value(QStringLiteral("name")); }), int(ErrNoCurrentRecord));

    auto colours = db->OpenRecordset(QStringLiteral("colours"));
    colours->MoveLast();
    colours->MoveNext();
    QCOMPARE(errorNumberOf([&] { colours->MoveNext(); }), int(ErrNoCurrentRecord));
    colours->MoveFirst();
    QCOMPARE(colours->Value(QStringLiteral("name")).toString(), QStringLiteral("Red"));
}

void tst_Database::nullReadsAsEmptyAndUnknownColumnsFail()
{
    auto db = OpenDatabase(m_path);
    auto records = db->OpenRecordset(QStringLiteral("gaps"));
    records->MoveFirst();
    QVERIFY(!records->Value(QStringLiteral("name")).isValid());
    QCOMPARE(records->Value(QStringLiteral("code")).toString(), QString());
    QVERIFY(records->Value(QStringLiteral("code")).isValid());
    records->MoveNext();
    QVERIFY(!records->Value(QStringLiteral("code")).isValid());
    QCOMPARE(
        errorNumberOf([&] { records->Value(QStringLiteral("colour")); }), int(ErrColumnNotFound));
}

void tst_Database::theSnapshotDoesNotSeeLaterChanges()
{
    auto db = OpenDatabase(m_path);
    auto records = db->OpenRecordset(QStringLiteral("colours"));
    runSql(m_path, { QStringLiteral("DELETE FROM colours") });
    QCOMPARE(records->RecordCount(), 3);
    QCOMPARE(listColumn(*records, QStringLiteral("code")), QStringList({ "R", "G", "B" }));
}

void tst_Database::connectionsAreReleased()
{
    const QStringList before = QSqlDatabase::connectionNames();
    {
        auto db = OpenDatabase(m_path);
        auto records = db->OpenRecordset(QStringLiteral("colours"));
        QCOMPARE(QSqlDatabase::connectionNames().size(), before.size() + 1);
        auto second = OpenDatabase(m_path);
        QCOMPARE(QSqlDatabase::connectionNames().size(), before.size() + 2);
    }
    QCOMPARE(QSqlDatabase::connectionNames(), before);
    QVERIFY(errorNumberOf([&] { OpenDatabase(m_dir.filePath(QStringLiteral("none.db"))); }));
    QCOMPARE(QSqlDatabase::connectionNames(), before);
}

void tst_Database::aHostCanSupplyAnotherEngine()
{
    QStringList opened;
    DatabaseOpener previous = setDatabaseOpener([&](const QString &path) {
        opened << path;
        return std::unique_ptr<Database>();
    });
    QVERIFY(!OpenDatabase(QStringLiteral("/somewhere/lists.mdb")));
    setDatabaseOpener(std::move(previous));
    QCOMPARE(opened, QStringList { "/somewhere/lists.mdb" });
    QVERIFY(OpenDatabase(m_path));
}

void tst_Database::identifiersAreQuoted_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("quoted");

    QTest::newRow("plain") << "colours"
                           << "\"colours\"";
    QTest::newRow("quote doubled") << "a\"b"
                                   << "\"a\"\"b\"";
    QTest::newRow("semicolon and dot kept") << "a;b.c"
                                            << "\"a;b.c\"";
    QTest::newRow("empty") << ""
                           << "\"\"";
}

void tst_Database::identifiersAreQuoted()
{
    QFETCH(QString, name);
    QFETCH(QString, quoted);
    QCOMPARE(quotedIdentifier(name), quoted);
}

QTEST_GUILESS_MAIN(tst_Database)
#include "tst_Database.moc"
