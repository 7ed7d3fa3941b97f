#include "runtime/Database.h"

#include "runtime/Error.h"

#include <QFileInfo>
#include <QHash>
#include <QSqlDatabase>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QStringList>
#include <QVector>

namespace kwFieldDeck {

namespace {

// A static copy of the records, read whole when the table is opened. Names are matched in their
// upper-case form, the form in which definition text hands them over ("Größe" is "GRÖSSE").
class Snapshot final : public Recordset
{
public:
    Snapshot(const QStringList &columns, QVector<QVector<QVariant>> rows)
        : m_rows(std::move(rows))
    {
        for (int i = 0; i < columns.size(); ++i)
            m_columnIndex.insert(columns.at(i).toUpper(), i);
    }

    qint32 RecordCount() const override { return qint32(m_rows.size()); }
    void MoveFirst() override { m_position = whenNotEmpty(0); }
    void MoveLast() override { m_position = whenNotEmpty(m_rows.size() - 1); }
    void MoveNext() override
    {
        requireCurrent();
        ++m_position;
    }
    bool IsEOF() const override { return m_position >= m_rows.size(); }

    QVariant Value(const QString &column) const override
    {
        const auto found = m_columnIndex.constFind(column.toUpper());
        if (found == m_columnIndex.cend())
            raise(ErrColumnNotFound, QStringLiteral("Item not found in this collection."));
        requireCurrent();
        return m_rows.at(m_position).at(*found);
    }

private:
    qsizetype whenNotEmpty(qsizetype position) const
    {
        if (m_rows.isEmpty())
            raise(ErrNoCurrentRecord, QStringLiteral("No current record."));
        return position;
    }

    void requireCurrent() const
    {
        if (IsEOF())
            raise(ErrNoCurrentRecord, QStringLiteral("No current record."));
    }

    QVector<QVector<QVariant>> m_rows;
    QHash<QString, int> m_columnIndex;
    qsizetype m_position = 0;
};

class SqliteDatabase final : public Database
{
public:
    explicit SqliteDatabase(const QString &path);
    ~SqliteDatabase() override { QSqlDatabase::removeDatabase(m_connectionName); }
    SqliteDatabase(const SqliteDatabase &) = delete;
    SqliteDatabase &operator=(const SqliteDatabase &) = delete;

    std::unique_ptr<Recordset> OpenRecordset(const QString &table) override;

private:
    QString tableNamed(const QString &table) const;

    QString m_connectionName;
};

QString nextConnectionName()
{
    static quint64 counter = 0;
    return QStringLiteral("kwFieldDeck.Database.%1").arg(++counter);
}

[[noreturn]] void raiseCannotOpen(const QString &path, const QString &why)
{
    raise(ErrDatabaseCannotOpen,
        QStringLiteral("Couldn't open the database file '%1': %2").arg(path, why));
}

SqliteDatabase::SqliteDatabase(const QString &path)
    : m_connectionName(nextConnectionName())
{
    const QFileInfo file(path);
    if (!file.isFile())
        raise(ErrDatabaseFileNotFound, QStringLiteral("Couldn't find file '%1'.").arg(path));
    if (!QSqlDatabase::isDriverAvailable(QStringLiteral("QSQLITE")))
        raise(
            ErrCannotCreateObject, QStringLiteral("The SQLite driver of Qt SQL is not installed"));

    QString failure;
    int number = 0;
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), m_connectionName);
        db.setDatabaseName(file.absoluteFilePath());
        db.setConnectOptions(QStringLiteral("QSQLITE_OPEN_READONLY"));
        if (!db.open()) {
            number = ErrDatabaseCannotOpen;
            failure = db.lastError().text();
        } else {
            // SQLite opens any file lazily; the first read of its schema tells a database apart.
            QSqlQuery probe(db);
            if (!probe.exec(QStringLiteral("SELECT count(*) FROM sqlite_master"))) {
                number = ErrUnrecognizedDatabase;
                failure = probe.lastError().text();
            }
        }
    }
    if (number == 0)
        return;
    QSqlDatabase::removeDatabase(m_connectionName);
    if (number == ErrUnrecognizedDatabase)
        raise(number, QStringLiteral("Unrecognized database format '%1': %2").arg(path, failure));
    raiseCannotOpen(path, failure);
}

QString SqliteDatabase::tableNamed(const QString &table) const
{
    const QSqlDatabase db = QSqlDatabase::database(m_connectionName, false);
    const QStringList names = db.tables(QSql::Tables) + db.tables(QSql::Views);
    if (names.contains(table))
        return table;
    const QString upper = table.toUpper();
    for (const QString &name : names) {
        if (name.toUpper() == upper)
            return name;
    }
    raise(ErrTableNotFound,
        QStringLiteral("The database engine cannot find the input table or query '%1'.")
            .arg(table));
}

std::unique_ptr<Recordset> SqliteDatabase::OpenRecordset(const QString &table)
{
    const QString name = tableNamed(table);
    QStringList columns;
    QVector<QVector<QVariant>> rows;
    {
        QSqlQuery query(QSqlDatabase::database(m_connectionName, false));
        query.setForwardOnly(true);
        if (!query.exec(QStringLiteral("SELECT * FROM ") + quotedIdentifier(name)))
            raise(ErrDatabaseCannotOpen, query.lastError().text());
        const QSqlRecord record = query.record();
        for (int i = 0; i < record.count(); ++i)
            columns << record.fieldName(i);
        while (query.next()) {
            QVector<QVariant> row(record.count());
            for (int i = 0; i < record.count(); ++i) {
                const QVariant value = query.value(i);
                row[i] = value.isNull() ? QVariant() : value;
            }
            rows.append(std::move(row));
        }
        if (query.lastError().isValid())
            raise(ErrDatabaseCannotOpen, query.lastError().text());
    }
    return std::make_unique<Snapshot>(columns, std::move(rows));
}

DatabaseOpener &installedOpener()
{
    static DatabaseOpener opener;
    return opener;
}

} // namespace

QString quotedIdentifier(const QString &name)
{
    QString quoted = name;
    quoted.replace(QLatin1Char('"'), QStringLiteral("\"\""));
    return QLatin1Char('"') + quoted + QLatin1Char('"');
}

std::unique_ptr<Database> OpenDatabase(const QString &path)
{
    if (const DatabaseOpener &opener = installedOpener())
        return opener(path);
    return std::make_unique<SqliteDatabase>(path);
}

DatabaseOpener setDatabaseOpener(DatabaseOpener opener)
{
    DatabaseOpener previous = std::move(installedOpener());
    installedOpener() = std::move(opener);
    return previous;
}

} // namespace kwFieldDeck
