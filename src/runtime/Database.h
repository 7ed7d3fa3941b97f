#pragma once

#include <QString>
#include <QVariant>

#include <functional>
#include <memory>

namespace kwFieldDeck {

// Error numbers of the desktop database engine that combo lists were filled from, kept so that
// reports read as hosts know them.
enum DatabaseError : int {
    ErrNoCurrentRecord = 3021,
    ErrDatabaseFileNotFound = 3024,
    ErrDatabaseCannotOpen = 3051,
    ErrTableNotFound = 3078,
    ErrColumnNotFound = 3265,
    ErrUnrecognizedDatabase = 3343,
};

// A read-only snapshot of one table: the records as they were when it was opened, a current
// record, and column values by name (compared without regard to case).
class Recordset
{
public:
    virtual ~Recordset() = default;

    virtual qint32 RecordCount() const = 0;
    // Moving to a record of an empty snapshot, or past the end, fails with "No current record".
    virtual void MoveFirst() = 0;
    virtual void MoveLast() = 0;
    virtual void MoveNext() = 0;
    // True once the current position is past the last record.
    virtual bool IsEOF() const = 0;
    // The column's value in the current record; SQL NULL reads as an invalid QVariant.
    virtual QVariant Value(const QString &column) const = 0;
};

// A database file opened read-only. It stays open until the object is destroyed; snapshots do
// not need it once they are open.
class Database
{
public:
    virtual ~Database() = default;

    // A snapshot of the table or view of that name (exact name first, then without regard to
    // case). The name is only ever used as a quoted identifier.
    virtual std::unique_ptr<Recordset> OpenRecordset(const QString &table) = 0;
};

// Opens a database file read-only with the installed engine (SQLite through Qt SQL unless a host
// installed another). A file that is missing or is no database fails with an error.
std::unique_ptr<Database> OpenDatabase(const QString &path);

// The seam through which a host supplies another engine. Returns the previous opener; an empty
// one restores SQLite.
using DatabaseOpener = std::function<std::unique_ptr<Database>(const QString &path)>;
DatabaseOpener setDatabaseOpener(DatabaseOpener opener);

// The SQL text of a name as an identifier: in double quotes, inner double quotes doubled.
QString quotedIdentifier(const QString &name);

} // namespace kwFieldDeck
