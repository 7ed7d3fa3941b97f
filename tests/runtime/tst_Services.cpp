// The services under every other layer, each through its own rules.

#include "runtime/Colors.h"
#include "runtime/Database.h"
#include "runtime/Dialogs.h"
#include "runtime/Error.h"
#include "runtime/FileSystem.h"
#include "runtime/Files.h"
#include "runtime/FitPath.h"
#include "runtime/Numbers.h"
#include "runtime/SettingsStore.h"
#include "runtime/Values.h"

#include "TestSupport.h"
#include "host/Columns.h"

#include <QFontMetrics>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QtTest>

#include <limits>
#include <stdexcept>

#include <sched.h>
#include <sys/mount.h>

using namespace kwFieldDeck;
using namespace kwFieldDeck::test;

namespace {
// The number of the error a call raises, 0 when it returns normally.
int raisedError(const std::function<void()> &call)
{
    try {
        call();
    } catch (const Error &error) {
        return error.number();
    }
    return 0;
}

// Every role its own colour, so that a wrong role cannot give the right colour.
QColor roleColour(int role)
{
    return QColor(role * 9, 255 - role * 9, 7);
}

enum Conversion { Val, Int16, Int32, Dbl, Bool, IsDate, Date, Text, ColourOf, RgbOf };
enum Others { Resolved = RgbOf + 1, NameFilters, StartFolder, Decoded, WholeFile, StepUp };

QVariant apply(int operation, const QVariant &v, int n)
{
    const QString s = v.toString();
    QPalette palette;
    for (int r = 0; r < QPalette::NColorRoles; ++r)
        palette.setColor(QPalette::Active, QPalette::ColorRole(r), roleColour(r));
    const std::function<QVariant()> operations[] = { [&] { return leadingNumber(s); },
        [&] { return int(toInt16(v)); }, [&] { return toInt32(v); }, [&] { return toDouble(v); },
        [&] { return toBool(v); }, [&] { return isDate(v); }, [&] { return toDate(v); },
        [&] { return textOf(v); }, [&] { return toQColor(v.toUInt(), palette); },
        [&] { return fromQColor(v.value<QColor>()); }, [&] { return FileSystem::resolvePath(s); },
        [&] { return Dialogs::nameFilters(s).join(QLatin1Char('\n')); },
        [&] { return Dialogs::startFolder(s); },
        [&] {
            // Written here, read as written on another system: backslashes, other letter case.
            const QTemporaryDir dir;
            writeFile(dir.filePath(QStringLiteral("Decode.TXT")), v.toByteArray());
            return ReadWholeFile(dir.path() + QStringLiteral("\\decode.txt"));
        },
        [&] { return ReadWholeFile(s); } };
    if (operation == StepUp) {
        // The counter after and the value returned; an overflow that kept the counter is passed on.
        qint32 counter = v.toInt(), returned = 0;
        const int error = raisedError([&] { returned = Increment(counter, n); });
        if (error && counter == v.toInt())
            raise(error);
        return QVariantList { counter, returned };
    }
    return operations[operation]();
}

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

bool unwritable(const QString &folder)
{
    QTemporaryFile probe(folder + QStringLiteral("/probe-XXXXXX"));
    return !probe.open();
}

} // namespace

class tst_Services : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase()
    {
        m_db = m_dir.filePath(QStringLiteral("lists.db"));
        const QString odd = QStringLiteral("\"odd\"\"name; DROP TABLE colours; --\"");
        QVERIFY(runSql(m_db,
            { "CREATE TABLE colours (code TEXT, name TEXT)",
                "INSERT INTO colours VALUES ('R','Red'), ('G','Green'), ('B','Blue')",
                "CREATE TABLE " + odd + " (name TEXT)",
                "INSERT INTO " + odd + " VALUES ('odd')" }));
        QVERIFY(QDir(m_dir.path()).mkpath(QStringLiteral("Data/Combo Lists")));
        QVERIFY(QDir(m_dir.path()).mkdir(QStringLiteral("Twins")));
        for (const char *name :
            { "Data/Combo Lists/Colours.DB", "Twins/Name.txt", "Twins/NAME.txt", "Twins/name.TXT" })
            QVERIFY(!writeFile(m_dir.filePath(QLatin1String(name)), {}).isEmpty());
    }

    void init()
    {
        m_config = std::make_unique<QTemporaryDir>();
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(m_config->path()));
    }

    void operationGivesTheValueOrRaises_data()
    {
        // Operation, value, step, result (unless an error is expected), error.
        const auto add = columns<int, QVariant, int, QVariant, int>();
        auto row
            = [&](const char *name, int operation, const QVariant &value, const QVariant &expected,
                  int error = 0) { add(name, operation, value, 0, expected, error); };
        const QDate march1(2024, 3, 1);
        const int overflow = ErrOverflow, mismatch = ErrTypeMismatch;
        row("Val abc", Val, "abc", 0.0);
        row("Val blank, sign, dangling exponent", Val, " -2.5e", -2.5);
        row("16-bit 2.5 to even", Int16, 2.5, 2);
        row("16-bit 32767.5 rounds past", Int16, 32767.5, {}, overflow);
        row("16-bit empty is 0", Int16, QVariant(), 0);
        row("32-bit 40000", Int32, 40000, 40000);
        row("32-bit 3e9", Int32, 3e9, {}, overflow);
        row("double of a date", Dbl, march1, 45352.0);
        row("double of 12abc", Dbl, "12abc", {}, mismatch);
        row("truth of ' True '", Bool, " True ", true);
        row("truth of ''", Bool, "", {}, mismatch);
        row("date test 1.3.2024", IsDate, "1.3.2024", true);
        row("date test 2024-02-30", IsDate, "2024-02-30", false);
        row("date 3/1/2024", Date, "3/1/2024", march1);
        row("date with a time", Date, "2024-03-01 14:30", march1);
        row("date of a serial", Date, 45352.75, march1);
        row("date of tomorrow", Date, "tomorrow", {}, mismatch);
        row("text of a single", Text, singleValue(3.7f), "3.7");
        row("text of 0.1 + 0.2", Text, 0.1 + 0.2, "0.3");
        row("text of a timestamp", Text, QDateTime(march1, QTime(14, 5, 9)), "2024-03-01 14:05:09");
        // A colour is RGB with red in the low byte, or a palette role.
        row("three bytes, red lowest", ColourOf, 0x00123456u, QColor(0x56, 0x34, 0x12));
        row("RGB of a colour", RgbOf, QColor(0x56, 0x34, 0x12), 0x00123456u);
        row("window background", ColourOf, SystemColor::WindowBackground,
            roleColour(QPalette::Base));
        row("button text", ColourOf, 0x80000012u, roleColour(QPalette::ButtonText));
        // Paths below the test's folder, resolved without regard to letter case.
        auto resolved = [&](const char *name, const char *written, const char *expected) {
            row(name, Resolved, m_dir.path() + written, m_dir.path() + expected);
        };
        const char *db = "/Data/Combo Lists/Colours.DB";
        resolved("backslashes and case", "\\DATA\\combo lists\\colours.db", db);
        resolved("folder, trailing separator", "\\DATA\\", "/Data/");
        resolved("missing folder keeps the rest as written", "\\data\\NoSuch\\README.TXT",
            "/Data/NoSuch/README.TXT");
        // Of names that differ only in case, the one written exactly is taken first.
        resolved("exact twin NAME", "/Twins/NAME.txt", "/Twins/NAME.txt");
        resolved("folder in other case", "\\TWINS\\Name.txt", "/Twins/Name.txt");
        // Qt's name filters, one a line.
        row("two pairs", NameFilters, "Text Files (*.txt)|*.txt|All Files (*.*)|*.*",
            "Text Files (*.txt) (*.[tT][xX][tT])\nAll Files (*.*) (*)");
        row("two patterns", NameFilters, "Img|*.png;*.JPG", "Img (*.[pP][nN][gG] *.[jJ][pP][gG])");
        row("lone description", NameFilters, "Data (*.db)|*.db|Lone", "Data (*.db) (*.[dD][bB])");
        // A dialog's start folder, home when it is missing.
        row("start folder case", StartFolder, m_dir.path() + "\\DATA\\", m_dir.filePath("Data"));
        row("start folder on a drive of another system", StartFolder, "C:\\", QDir::homePath());
        row("empty start folder", StartFolder, "", QDir::homePath());
        // A file is UTF-8 when all of it is, else Windows-1252.
        row("UTF-8", Decoded, QByteArray("\xC3\xA9 \xE2\x82\xAC"), QStringLiteral("\u00E9 \u20AC"));
        row("BOM dropped", Decoded, QByteArray("\xEF\xBB\xBFTitle=x"), QStringLiteral("Title=x"));
        row("Windows-1252 high codes", Decoded, QByteArray("\x80 \x85 \x93q\x94 \x96 \x99 \x9F"),
            QStringLiteral("\u20AC \u2026 \u201Cq\u201D \u2013 \u2122 \u0178"));
        row("invalid UTF-8 anywhere makes all Windows-1252", Decoded,
            QByteArray("\xC3\xA9 and \xE9"), QStringLiteral("\u00C3\u00A9 and \u00E9"));
        row("missing file reads empty", WholeFile, m_dir.filePath("missing.txt"), "");
        auto step = [&](const char *name, qint32 from, qint32 by, qint32 to, int error = 0) {
            add(name, StepUp, from, by, QVariantList { to, to }, error);
        };
        const qint32 top = std::numeric_limits<qint32>::max();
        const qint32 bottom = std::numeric_limits<qint32>::min();
        step("increment by a negative step", 10, -3, 7);
        step("increment up to the top", top - 1, 1, top);
        step("increment past the top", top, 1, top, overflow);
        step("increment below the bottom", bottom, -1, bottom, overflow);
    }

    void operationGivesTheValueOrRaises()
    {
        const auto [operation, value, n, expected, error]
            = fetch<int, QVariant, int, QVariant, int>();
        QVariant result;
        const auto call = [&, op = operation, &v = value, n = n] { return apply(op, v, n); };
        QCOMPARE(raisedError([&] { result = call(); }), error);
        if (!error)
            QCOMPARE(result, expected);
    }

    void trapReportsWithTheSourceTextAndReturnsAnEmptyValue()
    {
        ErrorRecorder recorder;
        const char *source = "Function 'Item' of Class Module 'Fields'";
        QObject *missing = nullptr;
        // Bodies that fail before they return a value of their type.
        QCOMPARE(trap(source, []() -> QObject * { raise(ErrSubscriptOutOfRange); }), nullptr);
        QCOMPARE(trap(source, []() -> QString { raise(ErrTypeMismatch); }), "");
        QCOMPARE(trap(source, []() -> int { raise(ErrOverflow); }), 0);
        QVERIFY(!trap(source, []() -> QVariant { raise(ErrDuplicateKey); }).isValid());
        trap(source, [&] { require(missing)->objectName(); });
        trap(source, [] { throw std::runtime_error("disk gone"); });
        QCOMPARE(recorder.sources(), QStringList(6, QString::fromLatin1(source)));
        QStringList descriptions;
        for (const ReportedError &error : recorder.errors)
            descriptions << QStringLiteral("%1 %2").arg(error.number).arg(error.description);
        QCOMPARE(descriptions,
            (QStringList { "9 Subscript out of range", "13 Type mismatch", "6 Overflow",
                "457 This key is already associated with an element of this collection",
                "91 Object variable or With block variable not set", "51 disk gone" }));
    }

    void anyTextRoundTripsAsANameOrAValue()
    {
        // Names that look alike in a settings file each address a value of their own.
        const QStringList texts = { QString(), "a/b", "a\\b", "a%2Fb", "a", "Name=x=y",
            "a\r\nb\r\n", "a%CRLF%b", QStringLiteral("Gr\u00FC\u00DFe \u65E5\u672C \U0001F389"),
            "[General]", "@Variant(\\0\\x7f) #x ;y", QStringLiteral("a") + QChar(0) + QChar(0x7f) };
        const QString app("RoundTrip"), s("S"), k("K");
        for (const QString &t : texts) {
            SettingsStore::SaveSetting(app, t, k, "s:" + t);
            SettingsStore::SaveSetting(app, s, t, "k:" + t);
            SettingsStore::SaveSetting(t, s, k, "a:" + t);
        }
        for (const QString &t : texts) {
            QCOMPARE(SettingsStore::GetSetting(app, t, k), "s:" + t);
            QCOMPARE(SettingsStore::GetSetting(app, s, t), "k:" + t);
            QCOMPARE(SettingsStore::GetSetting(t, s, k), "a:" + t);
        }
    }

    void namesMatchWithoutRegardToLetterCase_data()
    {
        auto row = columns<int, QStringList>();
        const QString longName = QString(250, QLatin1Char('x')) + QStringLiteral("\u00C4pfel");
        row("non-ASCII application", 0,
            { "\u00C4pfel \u00DCbung", "\u00E4PFEL \u00FCBUNG", "\u00E4pfel \u00FCbung" });
        row("long application", 0, { longName, longName.toUpper(), longName.toLower() });
        row("section", 1, { "Grid", "grid", "GRID" });
        row("key", 2, { "Values", "values", "VALUES" });
    }

    void namesMatchWithoutRegardToLetterCase()
    {
        const auto [level, spellings] = fetch<int, QStringList>();
        // The application, section and key, with the level under test in each spelling.
        QList<QStringList> at(spellings.size(), { "App", "Section", "Key" });
        for (int i = 0; i < spellings.size(); ++i)
            at[i][level] = spellings[i];
        SettingsStore::SaveSetting(at[0][0], at[0][1], at[0][2], "first");
        QCOMPARE(SettingsStore::GetSetting(at[1][0], at[1][1], at[1][2], "dflt"), "first");
        SettingsStore::SaveSetting(at[1][0], at[1][1], at[1][2], "second");
        for (const QStringList &names : { at[2], at[0] })
            QCOMPARE(SettingsStore::GetSetting(names[0], names[1], names[2], "dflt"), "second");
        // One file, one entry: the spelling first written is kept.
        const QString path = SettingsStore::filePath(at[0][0]);
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

    // A store that is a directory: tst_SettingsStorage, refusedSavesChangeNothing.
    void aStoreInAReadOnlyFolderFailsAndStaysWhole()
    {
        const QString app = QStringLiteral("Blocked"), s = QStringLiteral("S");
        const QString none = QStringLiteral("dflt"), path = SettingsStore::filePath(app);
        const QString earlier = QStringLiteral("earlier\r\nvalue");
        SettingsStore::SaveSetting(app, s, QStringLiteral("K"), earlier);
        const QByteArray before = readFile(path);
        {
            // Not even root can write there: failing file modes, or a read-only bind mount in a
            // mount namespace private to the test's thread (needs CAP_SYS_ADMIN).
            const QString folder = QFileInfo(path).absolutePath();
            const QByteArray at = QFile::encodeName(folder);
            const QFileDevice::Permissions permissions = QFile::permissions(folder);
            QFile::setPermissions(folder, QFileDevice::ReadOwner | QFileDevice::ExeOwner);
            const bool mounted = !unwritable(folder) && unshare(CLONE_NEWNS) == 0
                && mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0
                && mount(at.constData(), at.constData(), nullptr, MS_BIND, nullptr) == 0;
            if (mounted)
                mount(nullptr, at.constData(), nullptr, MS_BIND | MS_REMOUNT | MS_RDONLY, nullptr);
            const auto undo = qScopeGuard([&] {
                if (mounted)
                    umount2(at.constData(), MNT_DETACH);
                QFile::setPermissions(folder, permissions);
            });
            if (!unwritable(folder))
                QSKIP("This process can write to any folder and cannot mount one read-only");
            for (const char *key : { "K", "Added" })
                QCOMPARE(raisedError([&] { SettingsStore::SaveSetting(app, s, key, "new"); }), 75);
            QCOMPARE(readFile(path), before);
        }
        // The failed values do not come back once the store can be written again.
        SettingsStore::SaveSetting(app, s, QStringLiteral("Other"), QStringLiteral("later"));
        QCOMPARE(SettingsStore::GetSetting(app, s, QStringLiteral("K"), none), earlier);
        QCOMPARE(SettingsStore::GetSetting(app, s, QStringLiteral("Added"), none), none);
    }

    void tableNameReadsThatTableOrFailsRunningNoOtherSql_data()
    {
        // The test's database, no file at all, its start only, or other bytes.
        auto row = columns<QByteArray, QString, int, QString>();
        const int missing = ErrTableNotFound;
        const QByteArray db("database");
        row("upper-cased by the reader", db, "COLOURS", 0, "Red,Green,Blue");
        row("same name upper-cased", db, "ODD\"NAME; DROP TABLE COLOURS; --", 0, "odd");
        row("injection after a quote", db, "colours\"; DROP TABLE colours; --", missing, "");
        row("empty name", db, "", missing, "");
        row("missing file", QByteArray(), "colours", ErrDatabaseFileNotFound, "");
        row("truncated database", "truncated", "colours", ErrUnrecognizedDatabase, "");
    }

    void tableNameReadsThatTableOrFailsRunningNoOtherSql()
    {
        const auto [given, table, error, names] = fetch<QByteArray, QString, int, QString>();
        const QString path = given == "database" ? m_db : m_dir.filePath(QStringLiteral("bad.db"));
        const QByteArray file = given == "truncated" ? readFile(m_db).left(60) : given;
        QVERIFY(path == m_db || file.isNull() || !writeFile(path, file).isEmpty());
        std::unique_ptr<Recordset> records;
        QCOMPARE(
            raisedError([&, t = table] { records = OpenDatabase(path)->OpenRecordset(t); }), error);
        if (records)
            QCOMPARE(valuesOf(*records, "NAME").join(QLatin1Char(',')), names);
        QCOMPARE(OpenDatabase(m_db)->OpenRecordset(QStringLiteral("colours"))->RecordCount(), 3);
        if (path != m_db)
            QFile::remove(path);
    }

    void readOnlySnapshotLeavesTheFileAndIgnoresLaterChanges()
    {
        const QString path = m_dir.filePath(QStringLiteral("snapshot.db"));
        QVERIFY(QFile::copy(m_db, path));
        const QByteArray before = readFile(path);
        auto records = OpenDatabase(path)->OpenRecordset(QStringLiteral("colours"));
        QCOMPARE(readFile(path), before);
        QVERIFY(!QFile::exists(path + QStringLiteral("-journal")));
        QVERIFY(runSql(path, { QStringLiteral("DELETE FROM colours") }));
        QCOMPARE(valuesOf(*records, QStringLiteral("code")), QStringList({ "R", "G", "B" }));
    }

    void pathIsFittedKeepingItsFileName_data()
    {
        // The path, pixels less than the whole of it (-2: half of it) and the file name kept.
        auto row = columns<QString, int, QString>();
        const QString slashes("/home/user/projects/field deck/examples/settings.def");
        const QString backslashes = QStringLiteral("C:\\Program Files\\Vendor\\data\\table.mdb");
        row("fits", slashes, 0, "/settings.def");
        row("one pixel too narrow", slashes, 1, "/settings.def");
        row("no width at all", slashes, 100000, "/settings.def");
        row("backslashes, half the width", backslashes, -2, "\\table.mdb");
    }

    void pathIsFittedKeepingItsFileName()
    {
        const auto [path, narrower, fileName] = fetch<QString, int, QString>();
        const QFont font;
        const QFontMetrics metrics(font);
        const int full = metrics.horizontalAdvance(path);
        const int width = qMax(0, narrower < 0 ? full / -narrower : full - narrower);
        const QString fitted = FitPath(font, width, path);
        const QByteArray shown = fitted.toUtf8();
        if (width >= full)
            QCOMPARE(fitted, path);
        QVERIFY2(fitted.endsWith(fileName), shown);
        if (fitted == path)
            return;
        // "..." and as many folders as fit before the file name, which is kept even if too wide.
        QVERIFY2(fitted.startsWith(QLatin1String("...")) && path.endsWith(fitted.mid(3)), shown);
        QCOMPARE(fitted.at(3), fileName.at(0));
        QVERIFY2(metrics.horizontalAdvance(fitted) <= width || fitted.mid(3) == fileName, shown);
        const qsizetype longer = path.lastIndexOf(fileName.at(0), path.size() - fitted.size() + 2);
        if (longer > 3) // the next folder would still leave a shorter text than the path
            QVERIFY2(metrics.horizontalAdvance("..." + path.mid(longer)) > width, shown);
    }

private:
    QTemporaryDir m_dir;
    QString m_db;
    std::unique_ptr<QTemporaryDir> m_config;
};

QTEST_MAIN(tst_Services)
#include "tst_Services.moc"
