// The definition language, combos filled from a database table, and definition files.

#include "GridHost.h"

#include "editors/FieldKinds_p.h"
#include "fieldmodel/DropDownValues_p.h"
#include "grid/DefinitionText.h"
#include "runtime/Values.h"
#include <kwFieldDeck/DropDownValue.h>

#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QtTest>

#include <sys/stat.h>

using namespace kwFieldDeck;
using namespace kwFieldDeck::test;

namespace {
const QString NoNameOrType = QStringLiteral("No FieldName or Type Defined!");
const QString Grid = QStringLiteral("kwPropertyControl");
const QByteArray Header = "Property Control Definition File";
const QString CannotOpen = QStringLiteral("Can't Open kwProperty Control Definition file.\r\n\r\n");
const QByteArray TwoFields = "ADDFIELD Name\r\nTYPE=TEXT\r\nVALUE=x\r\nENDFIELD\r\n"
                             "ADDFIELD Level\r\nTYPE=SLIDER\r\nMAX=9\r\nENDFIELD\r\n";

QStringList itemKeys(Field *field)
{
    QStringList keys;
    for (DropDownValue *value : *field->DropDownValues())
        keys << value->Key();
    return keys;
}

// What the field's drop-down list shows.
QStringList listTexts(Field *field)
{
    QStringList texts;
    for (const ComboEntry &entry : std::as_const(GridHost::state(field).entries))
        texts << entry.text;
    return texts;
}
} // namespace

class tst_DefinitionReader : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QVERIFY(m_dir.isValid() && QDir(m_dir.path()).mkpath(QStringLiteral("Lists")));
        // Lower case on disk; the definitions name it upper-cased, as the reader hands DB on.
        m_database = m_dir.filePath(QStringLiteral("Lists/colours.db"));
        {
            QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), "writer");
            db.setDatabaseName(m_database);
            QVERIFY(db.open());
            for (const char *sql : { "CREATE TABLE colours (code TEXT, name TEXT)",
                     "INSERT INTO colours VALUES ('R', 'Red'), ('G', 'Green'), ('B', 'Blue')",
                     "CREATE TABLE sizes (id INTEGER, label TEXT)",
                     "INSERT INTO sizes VALUES (10, 'Small'), (20, 'Medium'), (30, 'Large')" })
                QVERIFY(QSqlQuery(db).exec(QString::fromUtf8(sql)));
        }
        QSqlDatabase::removeDatabase(QStringLiteral("writer"));
    }

    void theWorkedExampleBuildsTwoFields()
    {
        GridHost host;
        MessageRecorder messages;
        Field *returned = host.grid->AddFieldByDefString(
            defText("FIELDNAMEWIDTH=1800|ADDFIELD Colour|TYPE=combo|VALUE=G|ADDCOMBOITEMS|R=Red|"
                    "G=Green|ENDCOMBOITEMS|ENDFIELD|ADD FIELD Volume|TYPE=SLIDER|MIN=0|MAX=11|"
                    "VALUE=5|ENDFIELD"));
        QVERIFY(messages.messages.isEmpty());
        QCOMPARE(host.grid->FieldNameWidth(), 1800.0f);
        QCOMPARE(host.fieldNames(), QStringList({ "Colour", "Volume" }));
        QCOMPARE(returned, host.field("Volume"));
        Field *colour = host.field("Colour");
        QCOMPARE(colour->FieldType(), qint32(ftCombo));
        QCOMPARE(itemKeys(colour), QStringList({ "R", "G" }));
        QCOMPARE(listTexts(colour), QStringList({ "Red", "Green" }));
        Field *volume = returned;
        QCOMPARE(volume->FieldType(), qint32(ftSlider));
        QCOMPARE(volume->Min().toDouble(), 0.0);
        QCOMPARE(volume->Max().toDouble(), 11.0);
        QCOMPARE(textOf(volume->Value()), QStringLiteral("5"));
    }

    void linesAreReadByTheirRules_data()
    {
        QTest::addColumn<QString>("definition");
        QTest::addColumn<QStringList>("fields");
        QTest::addColumn<QString>("prompt");
        QTest::addColumn<QString>("title");
        QTest::addColumn<int>("error");
        auto row = [](const char *name, const QString &definition, const QStringList &fields,
                       const QString &prompt = {}, const QString &title = Grid, int error = 0) {
            QTest::newRow(name) << defText(definition) << fields << prompt << title << error;
        };
        row("keyword case ignored", "Add Field Mixed|tYpE=Memo|end field", { "Mixed" });
        row("tabs removed after trimming", " ADDFIELD Tab\t|\tTYPE=\tTEXT\t |END\tFIELD",
            { "Tab" });
        row("LF alone is no line break", "ADDFIELD x\nTYPE=TEXT\nENDFIELD", {});
        row("an unfinished block adds nothing", "ADDFIELD A|TYPE=TEXT|ENDFIELD|ADDFIELD B",
            { "A" });
        row("keys inside a block are not control-wide",
            "ADDFIELD F|TYPE=TEXT|FIELDNAMEWIDTH=3000|ENDFIELD", { "F" });
        row("blank before the equals", "ADDFIELD x|TYPE = TEXT|ENDFIELD", {}, NoNameOrType);
        row("ADD FIELD without a name", "ADD FIELD|TYPE=TEXT|ENDFIELD", {}, NoNameOrType);
        // The block stays open after the message, so the next block's lines merge into it.
        row("no type", "ADDFIELD A|VALUE=one|ENDFIELD|ADDFIELD B|TYPE=TEXT|ENDFIELD", { "A" },
            NoNameOrType);
        row("TYPE=BUTTON", "ADDFIELD Go|TYPE=Button|ENDFIELD|TYPE=CHECKBOX|ENDFIELD", { "Go" },
            "FldType: BUTTON Not Valid \r\n\r\nMust be TEXT,NUMERIC,CHECKBOX,COMBO,DATE,SLIDER,"
            "FILESELECTOR,FOLDERSELECTOR,MEMO",
            "Invalid Field Type");
        // A reported error ends the reading.
        row("ADDFIELD without a name", "ADDFIELD A|TYPE=TEXT|ENDFIELD|ADDFIELD|TYPE=TEXT|ENDFIELD",
            { "A" }, {}, {}, ErrInvalidCall);
        row("a refused slider has no field for its limits",
            "ADDFIELD N|TYPE=TEXT|ENDFIELD|ADDFIELD n|TYPE=SLIDER|ENDFIELD|ADDFIELD M|TYPE=TEXT|"
            "ENDFIELD",
            { "N" }, "Field: n already exists in Fields Collection!", {}, ErrObjectRequired);
        row("FIELDNAMEWIDTH overflow", "FIELDNAMEWIDTH=" + QString(50, '9'), {}, {}, {},
            ErrOverflow);
        // The database messages close the block: the combo is added without items.
        const QString combo = "ADDFIELD Colour|TYPE=COMBO|VALUE=x|";
        const QString after = "|ENDFIELD|ADDFIELD After|TYPE=TEXT|ENDFIELD";
        const QString noFile = "Field:Colour\r\nCan't find Combo Database File:\r\nFile=";
        row("missing database", combo + "DB=/no/lists.db|TABLE=colours|LISTFIELD=name" + after,
            { "Colour", "After" }, noFile + "/NO/LISTS.DB");
        row("a folder as database",
            combo + "DB=" + m_dir.path() + "|TABLE=colours|LISTFIELD=name" + after,
            { "Colour", "After" }, noFile + m_dir.path().toUpper());
        row("no table", combo + "DB=" + m_database + "|LISTFIELD=name" + after,
            { "Colour", "After" }, "Combo Table not defined for:Colour");
        row("no list field", combo + "DB=" + m_database + "|TABLE=colours" + after,
            { "Colour", "After" }, "ListField not defined for:Colour");
    }

    void linesAreReadByTheirRules()
    {
        QFETCH(QString, definition);
        QFETCH(QStringList, fields);
        QFETCH(QString, prompt);
        QFETCH(QString, title);
        QFETCH(int, error);
        GridHost host;
        MessageRecorder messages;
        ErrorRecorder errors;
        host.grid->ReadDef(definition);
        QCOMPARE(host.fieldNames(), fields);
        QCOMPARE(messages.prompts(), prompt.isEmpty() ? QStringList() : QStringList { prompt });
        // The reader's messages are critical ones; the collection's duplicate message is plain.
        for (const ShownMessage &shown : std::as_const(messages.messages)) {
            QCOMPARE(shown.title, title);
            QCOMPARE(
                shown.style, title.isEmpty() ? 0 : MsgBoxStyle::Critical | MsgBoxStyle::OKOnly);
        }
        QCOMPARE(errors.errors.size(), error ? 1 : 0);
        if (error) {
            QCOMPARE(errors.errors[0].number, error);
            QCOMPARE(errors.errors[0].source, "Sub 'ReadDef' of User Control '" + Grid + "'");
        }
        QCOMPARE(host.grid->FieldNameWidth(), 750.0f);
        if (fields.contains("Colour"))
            QCOMPARE(host.field("Colour")->DropDownValues()->Count(), 0);
    }

    // DESCRIPTION= gives a field its help text: read as VALUE is, inside a block only, and
    // reset at each ADDFIELD.
    void descriptionKeyGivesTheHelpText_data()
    {
        QTest::addColumn<QString>("definition");
        QTest::addColumn<QStringList>("descriptions");
        auto row = [](const char *name, const QString &definition, const QStringList &expected) {
            QTest::newRow(name) << defText(definition) << expected;
        };
        row("case kept, blanks trimmed",
            "ADDFIELD A|TYPE=TEXT|DESCRIPTION=  Name of the Server  |ENDFIELD",
            { "A=Name of the Server" });
        row("key in any case", "ADDFIELD A|TYPE=TEXT|Description=x y|ENDFIELD", { "A=x y" });
        row("outside a block ignored", "DESCRIPTION=lost|ADDFIELD A|TYPE=TEXT|ENDFIELD", { "A=" });
        row("reset at each ADDFIELD",
            "ADDFIELD A|TYPE=TEXT|DESCRIPTION=a|ENDFIELD|ADDFIELD B|TYPE=TEXT|ENDFIELD",
            { "A=a", "B=" });
        row("the last one wins", "ADDFIELD A|DESCRIPTION=1|TYPE=TEXT|DESCRIPTION=2|ENDFIELD",
            { "A=2" });
        row("blank before the equals", "ADDFIELD A|TYPE=TEXT|DESCRIPTION = x|ENDFIELD", { "A=" });
        row("ends at a second equals", "ADDFIELD A|TYPE=TEXT|DESCRIPTION=a=b|ENDFIELD", { "A=a" });
        row("a key among combo items",
            "ADDFIELD C|TYPE=COMBO|ADDCOMBOITEMS|1=One|DESCRIPTION=Pick one|ENDCOMBOITEMS|ENDFIELD",
            { "C=Pick one" });
        row("kept by a block left open", "ADDFIELD A|DESCRIPTION=kept|ENDFIELD|TYPE=TEXT|ENDFIELD",
            { "A=kept" });
    }

    void descriptionKeyGivesTheHelpText()
    {
        QFETCH(QString, definition);
        QFETCH(QStringList, descriptions);
        GridHost host;
        MessageRecorder messages;
        host.grid->ReadDef(definition);
        QStringList read;
        for (Field *field : *host.grid->Fields())
            read << field->Name() + "=" + field->Description();
        QCOMPARE(read, descriptions);
        if (definition.contains("TYPE=COMBO"))
            QCOMPARE(itemKeys(host.field("C")), QStringList({ "1" }));
    }

    void fileSelectorKeysArriveUpperCased()
    {
        GridHost host;
        host.grid->ReadDef(defText("ADDFIELD Log|TYPE=FileSelector|TITLE=My Files|FILTER=Logs "
                                   "(*.log)|INITDIR=/no/Such|VALUE=/tmp/Mixed.log|ENDFIELD"));
        Field *field = host.field("Log");
        QCOMPARE(field->Title(), QStringLiteral("MY FILES"));
        QCOMPARE(field->Filter(), QStringLiteral("LOGS (*.LOG)"));
        QCOMPARE(field->InitDir(), QStringLiteral("/NO/SUCH"));
        QCOMPARE(textOf(field->Value()), QStringLiteral("/tmp/Mixed.log"));
    }

    void cleaningTidiesTheText_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("cleaned");
        auto row = [](const char *name, const char *text, const char *cleaned) {
            QTest::newRow(name) << QString(text) << QString(cleaned);
        };
        row("three breaks become two", "  A\r\n\r\n\r\nB  ", "A\r\n\r\nB");
        row("two breaks become one", "A\r\n\r\nB", "A\r\nB");
        row("four breaks become two", "A\r\n\r\n\r\n\r\nB", "A\r\n\r\nB");
        row("breaks at the ends", "\r\n\r\nA\r\nB\r\n\r\n", "A\r\nB");
        row("lines trimmed, tabs removed", " A \t\r\n\t B\tC ", "A\r\nBC");
        row("lone LF kept", "A\nB", "A\nB");
    }

    void cleaningTidiesTheText()
    {
        QFETCH(QString, text);
        QFETCH(QString, cleaned);
        QCOMPARE(CleanDefinitionText(text), cleaned);
    }

    void comboFilledFromATable_data()
    {
        QTest::addColumn<QString>("keys");
        QTest::addColumn<QStringList>("itemKeys");
        QTest::addColumn<QStringList>("texts");
        auto row = [](const char *name, const char *keys, const QStringList &itemKeys,
                       const QStringList &texts = { "Red", "Green", "Blue" }) {
            QTest::newRow(name) << QString(keys) << itemKeys << texts;
        };
        row("VALUEFIELD", "TABLE=Colours|VALUEFIELD=code", { "R", "G", "B" });
        row("SORTED names the value field", "TABLE=colours|SORTED=Code", { "R", "G", "B" });
        // Without a value field the automatic keys go on from the earlier field's.
        row("no VALUEFIELD", "TABLE=colours", { "3", "4", "5" });
        row("VALUE picks by the value field", "TABLE=sizes|LISTFIELD=label|VALUEFIELD=id|VALUE=20",
            { "10", "20", "30" }, { "Small", "Medium", "Large" });
    }

    void comboFilledFromATable()
    {
        QFETCH(QString, keys);
        QFETCH(QStringList, itemKeys);
        QFETCH(QStringList, texts);
        GridHost host;
        MessageRecorder messages;
        ErrorRecorder errors;
        host.grid->ReadDef(defText("ADDFIELD First|TYPE=COMBO|ADDCOMBOITEMS|a|b|ENDCOMBOITEMS|"
                                   "ENDFIELD|ADDFIELD Colour|TYPE=COMBO|LISTFIELD=name|DB="
            + m_database.toUpper() + "|" + keys + "|ENDFIELD"));
        QCOMPARE(messages.prompts(), QStringList());
        QCOMPARE(errors.errors.size(), 0);
        Field *colour = host.field("Colour");
        QCOMPARE(::itemKeys(colour), itemKeys);
        QCOMPARE(listTexts(colour), texts);
        if (keys.contains(QStringLiteral("VALUE=20")))
            QCOMPARE(ComboKind::shownText(GridHost::state(colour)), QStringLiteral("Medium"));
    }

    void loadDefFileReadsTheFileOrReportsWhy_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QStringList>("fields");
        QTest::addColumn<QString>("prompt");
        QTest::addColumn<bool>("readFails");
        int files = 0;
        // Each file is written in other letter case than named: it is found all the same.
        auto file = [&](const char *name, const QByteArray &bytes, bool accepted,
                        const QStringList &fields = {}) {
            const QString path = write(QString::number(++files) + ".KwDef", bytes).toLower();
            const QString refused = CannotOpen + "File Format Does not Match!\r\n\r\n" + path;
            QTest::newRow(name) << path << QStringList { "Earlier" } + fields
                                << (accepted ? QString() : refused) << false;
        };
        auto unreadable = [](const char *name, const QString &path, const QString &prompt = {}) {
            QTest::newRow(name) << path << QStringList { "Earlier" } << prompt << true;
        };
        const QStringList two = { "Name", "Level" };
        file("as written", Header + "\r\n" + TwoFields, true, two);
        file("lower case", "property control definition file\r\n" + TwoFields, true, two);
        file("UTF-8 byte-order mark", "\xEF\xBB\xBF" + Header + "\r\n" + TwoFields, true, two);
        file("UTF-8",
            Header
                + "\r\nADDFIELD Gr\xC3\xB6\xC3\x9F"
                  "e \xE2\x82\xAC\r\nTYPE=TEXT\r\nENDFIELD",
            true, { "Größe €" });
        file("Windows-1252",
            Header
                + "\r\nADDFIELD Gr\xF6\xDF"
                  "e \x80\r\nTYPE=TEXT\r\nENDFIELD",
            true, { "Größe €" });
        file("only the header", Header, true);
        file("header and empty lines", Header + "\r\n\r\n  \r\n\t\r\n", true);
        file("trailing blank", Header + " \r\n" + TwoFields, false);
        file("LF line ends", QByteArray(Header + "\n" + TwoFields).replace("\r\n", "\n"), false);
        file("no header", TwoFields, false);
        // A missing file is reported twice: its message, then the failed read of its first line.
        const QString missing = m_dir.filePath("none.kwdef");
        unreadable("missing file", missing, CannotOpen + missing);
        const QString folder = m_dir.filePath("folder.kwdef");
        QVERIFY(QDir().mkpath(folder));
        unreadable("a directory", folder, CannotOpen + folder);
        // A named pipe would block a plain read for ever: it is no file.
        const QString pipe = m_dir.filePath("pipe.kwdef");
        QCOMPARE(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
        unreadable("a named pipe", pipe, CannotOpen + pipe);
        const QString locked = write("locked.kwdef", Header + "\r\n" + TwoFields);
        QVERIFY(QFile::setPermissions(locked, {}));
        // Root reads files whatever their mode; the read error below stops root too.
        if (!QFile(locked).open(QIODevice::ReadOnly))
            unreadable("no read permission", locked);
        unreadable("read error", "/proc/self/mem");
        unreadable("empty file", write("empty.kwdef", {}));
    }

    void loadDefFileReadsTheFileOrReportsWhy()
    {
        QFETCH(QString, path);
        QFETCH(QStringList, fields);
        QFETCH(QString, prompt);
        QFETCH(bool, readFails);
        GridHost host;
        host.add("Earlier");
        MessageRecorder messages;
        ErrorRecorder errors;
        host.grid->LoadDefFile(path);
        QCOMPARE(host.fieldNames(), fields);
        QCOMPARE(messages.prompts(), prompt.isEmpty() ? QStringList() : QStringList { prompt });
        for (const ShownMessage &shown : std::as_const(messages.messages)) {
            QCOMPARE(shown.title, Grid);
            QCOMPARE(shown.style, MsgBoxStyle::Critical | MsgBoxStyle::OKOnly);
        }
        QCOMPARE(errors.errors.size(), readFails ? 1 : 0);
        if (readFails) {
            QCOMPARE(errors.errors[0].number, int(ErrSubscriptOutOfRange));
            QCOMPARE(errors.errors[0].source, "Sub 'LoadDefFile' of User Control '" + Grid + "'");
        }
    }

    void randomBytesNeverCrash()
    {
        QRandomGenerator random(424242);
        GridHost host;
        MessageRecorder messages;
        ErrorRecorder errors;
        for (int round = 0; round < 40; ++round) {
            QByteArray bytes(int(random.bounded(1, 4000)), '\0');
            for (char &b : bytes)
                b = char(random.bounded(256));
            // Every other file passes the header test, so that the reader meets the noise.
            if (round % 2)
                bytes.prepend(Header + "\r\n");
            host.grid->LoadDefFile(write("noise.kwdef", bytes));
        }
        QVERIFY(messages.messages.size() >= 20);
        QVERIFY(host.grid->AddFieldByDefString(defText("ADDFIELD After|TYPE=TEXT|ENDFIELD")));
    }

    void truncatedFilesKeepWhatWasRead()
    {
        const QByteArray whole
            = readFile(qEnvironmentVariable("KW_EXAMPLES_DIR") + "/showcase.kwdef");
        QVERIFY(!whole.isEmpty());
        MessageRecorder messages;
        GridHost complete;
        complete.grid->LoadDefFile(write("whole.kwdef", whole));
        QVERIFY(complete.fieldNames().size() > 10);
        for (int cut = 1; cut < whole.size(); cut += 37) {
            GridHost host;
            ErrorRecorder errors;
            host.grid->LoadDefFile(write("cut.kwdef", whole.left(cut)));
            // The complete blocks before the cut, in order; a block cut in its name line may
            // arrive under the shorter name.
            const QStringList names = host.fieldNames();
            QVERIFY(names.size() <= complete.fieldNames().size());
            for (int i = 0; i < names.size(); ++i)
                QVERIFY2(complete.fieldNames().at(i).startsWith(names.at(i)), qPrintable(names[i]));
            // A cut right after "ADDFIELD" fails as that line without a name does; a cut inside a
            // table or column name fails to read it. Either is reported by the reader, once.
            QVERIFY(errors.errors.size() <= 1);
            if (whole.left(cut).endsWith("\nADDFIELD"))
                QCOMPARE(errors.errors.size(), 1);
            for (const ReportedError &error : std::as_const(errors.errors))
                QVERIFY2(error.source.startsWith("Sub 'ReadDef'"), qPrintable(error.source));
        }
    }

    void aTwentyMegabyteDefinitionLoads()
    {
        QByteArray bytes = Header + "\r\n" + TwoFields;
        while (bytes.size() < 12 * 1024 * 1024)
            bytes += "# notes outside a block are skipped, however many there are\r\n";
        bytes += "ADDFIELD Big\r\nTYPE=MEMO\r\nVALUE=" + QByteArray(8 * 1024 * 1024, 'v')
            + "\r\nEND FIELD\r\n";
        GridHost host;
        ErrorRecorder errors;
        host.grid->LoadDefFile(write("large.kwdef", bytes));
        QCOMPARE(errors.errors.size(), 0);
        QCOMPARE(host.fieldNames(), QStringList({ "Name", "Level", "Big" }));
        QCOMPARE(textOf(host.field("Big")->Value()).size(), 8 * 1024 * 1024);
    }

private:
    QString write(const QString &name, const QByteArray &bytes)
    {
        return writeFile(m_dir.filePath(name), bytes);
    }

    QTemporaryDir m_dir;
    QString m_database;
};

QTEST_MAIN(tst_DefinitionReader)
#include "tst_DefinitionReader.moc"
