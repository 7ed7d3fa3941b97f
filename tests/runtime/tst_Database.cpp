#include "runtime/Database.h"

#include "RaisedError.h"
#include "TestSupport.h"

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QtTest>

using namespace kwFieldDeck;
using test::raisedError;
using test::readFile;

namespace {
// Runs SQL on a writable connection of the test's own, closed before the library opens the file.
bool runSql(const QString &path, const QStringList &statements)
{
    bool done = false;
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("w"));
        db.setDatabaseName(path);
        done = db.open();
        QSqlQuery query(db);
        for (const QString &sql : statements)
            done = done && query.exec(sql);
    }
    QSqlDatabase::removeDatabase(QStringLiteral("w"));
    return done;
}

QStringList valuesOf(Recordset &records, const QString &column)
{
    QStringList values;
    for (records.MoveFirst(); !records.IsEOF(); records.MoveNext())
        values << records.Value(column).toString();
    return values;
}
} // namespace

class tst_Database : public QObject
{
    Q_OBJECT
private slots:
    void init()
    {
        m_path = m_dir.filePath(QStringLiteral("lists-%1.db").arg(QTest::currentTestFunction()));
        QFile::remove(m_path);
        const QString odd = QStringLiteral("\"odd\"\"name; DROP TABLE colours; --\"");
        QVERIFY(runSql(m_path,
            { QStringLiteral("CREATE TABLE colours (code TEXT, name TEXT)"),
                QStringLiteral(
                    "INSERT INTO colours VALUES ('R','Red'), ('G','Green'), ('B','Blue')"),
                QStringLiteral("CREATE TABLE ") + odd + QStringLiteral(" (name TEXT)"),
                QStringLiteral("INSERT INTO ") + odd + QStringLiteral(" VALUES ('odd')") }));
    }

    void tableNameReadsThatTableOrFailsRunningNoOtherSql_data()
    {
        QTest::addColumn<QString>("table");
        QTest::addColumn<int>("error");
        QTest::addColumn<QString>("names");
        const QString odd = QStringLiteral("odd\"name; DROP TABLE colours; --");
        const int missing = ErrTableNotFound;
        QTest::newRow("as written") << "colours" << 0 << "Red,Green,Blue";
        QTest::newRow("upper-cased by the reader") << "COLOURS" << 0 << "Red,Green,Blue";
        QTest::newRow("existing name with quote and semicolon") << odd << 0 << "odd";
        QTest::newRow("same name upper-cased") << odd.toUpper() << 0 << "odd";
        QTest::newRow("injection after a quote")
            << "colours\"; DROP TABLE colours; --" << missing << "";
        QTest::newRow("second statement") << "colours; DELETE FROM colours" << missing << "";
        QTest::newRow("empty name") << "" << missing << "";
    }

    void tableNameReadsThatTableOrFailsRunningNoOtherSql()
    {
        QFETCH(QString, table);
        QFETCH(int, error);
        QFETCH(QString, names);
        auto db = OpenDatabase(m_path);
        std::unique_ptr<Recordset> records;
        QCOMPARE(raisedError([&] { records = db->OpenRecordset(table); }), error);
        if (records)
            QCOMPARE(valuesOf(*records, QStringLiteral("NAME")).join(QLatin1Char(',')), names);
        QCOMPARE(OpenDatabase(m_path)->OpenRecordset(QStringLiteral("colours"))->RecordCount(), 3);
    }

    void readOnlySnapshotLeavesTheFileAndIgnoresLaterChanges()
    {
        const QByteArray before = readFile(m_path);
        auto db = OpenDatabase(m_path);
        auto records = db->OpenRecordset(QStringLiteral("colours"));
        QCOMPARE(readFile(m_path), before);
        QVERIFY(!QFile::exists(m_path + QStringLiteral("-journal")));
        QVERIFY(runSql(m_path, { QStringLiteral("DELETE FROM colours") }));
        QCOMPARE(valuesOf(*records, QStringLiteral("code")), QStringList({ "R", "G", "B" }));
    }

    void fileThatIsNoDatabaseFails_data()
    {
        QTest::addColumn<QByteArray>("bytes"); // null: no file at all
        QTest::addColumn<int>("error");
        QTest::newRow("missing file") << QByteArray() << int(ErrDatabaseFileNotFound);
        QTest::newRow("text file")
            << QByteArray("Property Control Definition File\r\n") << int(ErrUnrecognizedDatabase);
        QTest::newRow("truncated database")
            << QByteArray("truncated") << int(ErrUnrecognizedDatabase);
    }

    void fileThatIsNoDatabaseFails()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(int, error);
        if (bytes == "truncated")
            bytes = readFile(m_path).left(60); // the start of a real database
        const QString path = m_dir.filePath(QStringLiteral("bad.db"));
        QVERIFY(bytes.isNull() || !test::writeFile(path, bytes).isEmpty());
        QCOMPARE(raisedError([&] { OpenDatabase(path); }), error);
        QFile::remove(path);
    }

private:
    QTemporaryDir m_dir;
    QString m_path;
};

QTEST_GUILESS_MAIN(tst_Database)
#include "tst_Database.moc"
