// The definition language, combos filled from a database table, and definition files.

#include "GridHost.h"

#include "grid/DefinitionText.h"
#include "runtime/Values.h"

#include <QDir>
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
const QStringList ReadTwo = { "Name:TEXT=x", "Level:SLIDER= 0..9" };

// A field as read: "name:TYPE=value", a slider's range, a combo's entries (key:shown text, the
// chosen one starred), the description in quotes and a file selector's title, filter and folder.
QString summary(Field *field)
{
    const EditorState &state = GridHost::state(field);
    QString text = field->Name() + ':' + GridHost::typeName(field->FieldType()) + '='
        + textOf(field->Value());
    if (field->FieldType() == ftSlider)
        text += QStringLiteral(" %1..%2").arg(textOf(field->Min()), textOf(field->Max()));
    if (field->FieldType() == ftCombo) {
        QStringList entries;
        for (DropDownValue *value : *field->DropDownValues())
            entries << value->Key() + ':' + state.entries.value(entries.size()).text
                    + (state.listIndex == entries.size() ? "*" : "");
        text += " [" + entries.join(' ') + ']';
    }
    if (!field->Description().isEmpty())
        text += " \"" + field->Description() + '"';
    if (field->FieldType() == ftFileSelector)
        text += ' ' + QStringList { field->Title(), field->Filter(), field->InitDir() }.join('|');
    return text;
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

    void addFieldByDefStringGivesTheLastFieldAdded()
    {
        GridHost host;
        Field *returned = host.grid->AddFieldByDefString(
            defText("FIELDNAMEWIDTH=1800|ADDFIELD Colour|TYPE=combo|VALUE=2|ADDCOMBOITEMS|1=Red|"
                    "2=Green|ENDCOMBOITEMS|ENDFIELD|ADD FIELD Volume|TYPE=SLIDER|MIN=0|MAX=11|"
                    "VALUE=5|ENDFIELD"));
        QCOMPARE(host.reports(), QStringList());
        QCOMPARE(host.grid->FieldNameWidth(), 1800.0f);
        QCOMPARE(host.each(summary),
            QStringList({ "Colour:COMBO=2 [1:Red 2:Green*]", "Volume:SLIDER=5 0..11" }));
        QCOMPARE(returned, host.field("Volume"));
    }

    void linesAreReadByTheirRules_data()
    {
        // The definition with "|" for CR LF, the fields read and what was reported.
        auto row = columns<QString, QStringList, QStringList>();
        const QString critical = Grid + ": ";
        row("keywords in any case, tabs removed after trimming, an unfinished block dropped",
            "Add Field Mixed|tYpE=Memo|end field| ADDFIELD Tab\t|\tTYPE=\tTEXT\t |"
            "FIELDNAMEWIDTH=3000|END\tFIELD|ADDFIELD B",
            { "Mixed:MEMO=", "Tab:TEXT=" }, {});
        row("LF alone is no line break", "ADDFIELD x\nTYPE=TEXT\nENDFIELD", {}, {});
        row("ADD FIELD without a name", "ADD FIELD|TYPE=TEXT|ENDFIELD", {},
            { critical + NoNameOrType });
        // The block stays open after the message, so the next block's lines merge into it.
        row("no type", "ADDFIELD A|VALUE=one|ENDFIELD|ADDFIELD B|TYPE=TEXT|ENDFIELD",
            { "A:TEXT=one" }, { critical + NoNameOrType });
        row("TYPE=BUTTON", "ADDFIELD Go|TYPE=Button|ENDFIELD|TYPE=CHECKBOX|ENDFIELD",
            { "Go:CHECKBOX=" },
            { "Invalid Field Type: FldType: BUTTON Not Valid \r\n\r\nMust be TEXT,NUMERIC,"
              "CHECKBOX,COMBO,DATE,SLIDER,FILESELECTOR,FOLDERSELECTOR,MEMO" });
        // A reported error ends the reading.
        row("a refused slider has no field for its limits",
            "ADDFIELD N|TYPE=TEXT|ENDFIELD|ADDFIELD n|TYPE=SLIDER|ENDFIELD|ADDFIELD M|TYPE=TEXT|"
            "ENDFIELD",
            { "N:TEXT=" },
            { ": Field: n already exists in Fields Collection!",
                gridError(ErrObjectRequired, "ReadDef") });
        row("FIELDNAMEWIDTH overflow", "FIELDNAMEWIDTH=" + QString(50, '9'), {},
            { gridError(ErrOverflow, "ReadDef") });
        // The database messages close the block: the combo is added without items.
        const QString combo = "ADDFIELD Colour|TYPE=COMBO|VALUE=x|";
        const QString after = "|ENDFIELD|ADDFIELD After|TYPE=TEXT|ENDFIELD";
        const QStringList both = { "Colour:COMBO= []", "After:TEXT=" };
        row("a folder as database",
            combo + "DB=" + m_dir.path() + "|TABLE=colours|LISTFIELD=name" + after, both,
            { critical + "Field:Colour\r\nCan't find Combo Database File:\r\nFile="
                + m_dir.path().toUpper() });
        row("no table", combo + "DB=" + m_database + "|LISTFIELD=name" + after, both,
            { critical + "Combo Table not defined for:Colour" });
        row("no list field", combo + "DB=" + m_database + "|TABLE=colours" + after, both,
            { critical + "ListField not defined for:Colour" });
        // Without a value field the automatic keys go on from the earlier combo's.
        const QString table = "|ADDFIELD %1|TYPE=COMBO|LISTFIELD=name|DB=" + m_database.toUpper();
        row("combos from a table",
            "ADDFIELD First|TYPE=COMBO|ADDCOMBOITEMS|a|b|ENDCOMBOITEMS|ENDFIELD" + table.arg("C1")
                + "|TABLE=Colours|VALUEFIELD=code|ENDFIELD" + table.arg("C2")
                + "|TABLE=colours|SORTED=Code|ENDFIELD" + table.arg("C3")
                + "|TABLE=colours|ENDFIELD" + table.arg("C4")
                + "|TABLE=sizes|LISTFIELD=label|VALUEFIELD=id|VALUE=20|ENDFIELD",
            { "First:COMBO= [1:a 2:b]", "C1:COMBO=0 [R:Red* G:Green B:Blue]",
                "C2:COMBO=0 [R:Red* G:Green B:Blue]", "C3:COMBO= [3:Red 4:Green 5:Blue]",
                "C4:COMBO=20 [10:Small 20:Medium* 30:Large]" },
            {});
        // File selector keys arrive upper-cased; the value keeps its case.
        row("file selector keys",
            "ADDFIELD Log|TYPE=FileSelector|TITLE=My Files|FILTER=Logs "
            "(*.log)|INITDIR=/no/Such|VALUE=/tmp/Mixed.log|ENDFIELD",
            { "Log:FILESELECTOR=/tmp/Mixed.log MY FILES|LOGS (*.LOG)|/NO/SUCH" }, {});
        // DESCRIPTION= is read as VALUE is, inside a block only, and reset at each ADDFIELD.
        row("description",
            "DESCRIPTION=lost|ADDFIELD A|TYPE=TEXT|Description=  Name of the Server  |ENDFIELD|"
            "ADDFIELD B|DESCRIPTION=1|TYPE=TEXT|DESCRIPTION=2|ENDFIELD|"
            "ADDFIELD C|TYPE=TEXT|DESCRIPTION = x|ENDFIELD|ADDFIELD D|DESCRIPTION=a=b|TYPE=TEXT|"
            "ENDFIELD",
            { "A:TEXT= \"Name of the Server\"", "B:TEXT= \"2\"", "C:TEXT=", "D:TEXT= \"a\"" }, {});
        row("description among combo items",
            "ADDFIELD C|TYPE=COMBO|ADDCOMBOITEMS|1=One|DESCRIPTION=Pick one|ENDCOMBOITEMS|ENDFIELD",
            { "C:COMBO= [1:One] \"Pick one\"" }, {});
        row("description kept by a block left open",
            "ADDFIELD A|DESCRIPTION=kept|ENDFIELD|TYPE=TEXT|ENDFIELD", { "A:TEXT= \"kept\"" },
            { critical + NoNameOrType });
    }

    void linesAreReadByTheirRules()
    {
        const auto [definition, fields, reported] = fetch<QString, QStringList, QStringList>();
        GridHost host;
        host.grid->ReadDef(defText(definition));
        QCOMPARE(host.each(summary), fields);
        QCOMPARE(host.reports(), reported);
        QCOMPARE(host.grid->FieldNameWidth(), 750.0f);
    }

    void cleaningTidiesTheText_data()
    {
        auto row = columns<QString, QString>();
        row("three breaks become two", "  A\r\n\r\n\r\nB  ", "A\r\n\r\nB");
        row("breaks at the ends", "\r\n\r\nA\r\nB\r\n\r\n", "A\r\nB");
        row("lines trimmed, tabs removed", " A \t\r\n\t B\tC ", "A\r\nBC");
        row("lone LF kept", "A\nB", "A\nB");
    }

    void cleaningTidiesTheText()
    {
        const auto [text, cleaned] = fetch<QString, QString>();
        QCOMPARE(CleanDefinitionText(text), cleaned);
    }

    void loadDefFileReadsTheFileOrReportsWhy_data()
    {
        auto row = columns<QString, QStringList, QStringList>();
        int files = 0;
        // Each file is written in other letter case than named: it is found all the same.
        auto file = [&](const char *name, const QByteArray &bytes, bool accepted,
                        const QStringList &fields = {}) {
            const QString path
                = writeFile(m_dir.filePath(QString::number(++files) + ".KwDef"), bytes).toLower();
            const QString refused
                = Grid + ": " + CannotOpen + "File Format Does not Match!\r\n\r\n" + path;
            row(name, path, QStringList { "Earlier:TEXT=" } + fields,
                accepted ? QStringList() : QStringList { refused });
        };
        auto unreadable = [&](const char *name, const QString &path, bool said = true) {
            row(name, path, { "Earlier:TEXT=" },
                (said ? QStringList { Grid + ": " + CannotOpen + path } : QStringList())
                    << gridError(ErrSubscriptOutOfRange, "LoadDefFile"));
        };
        file("as written", Header + "\r\n" + TwoFields, true, ReadTwo);
        file("lower case", "property control definition file\r\n" + TwoFields, true, ReadTwo);
        // Notes outside a block are skipped however many there are, and a long value is kept.
        QByteArray large = Header + "\r\n" + TwoFields;
        while (large.size() < 12 * 1024 * 1024)
            large += "# notes outside a block are skipped, however many there are\r\n";
        const QByteArray longValue(8 * 1024 * 1024, 'v');
        file("twenty megabytes",
            large + "ADDFIELD Big\r\nTYPE=MEMO\r\nVALUE=" + longValue + "\r\nEND FIELD\r\n", true,
            ReadTwo + QStringList { "Big:MEMO=" + longValue });
        file("only the header", Header, true);
        file("trailing blank", Header + " \r\n" + TwoFields, false);
        file("LF line ends", QByteArray(Header + "\n" + TwoFields).replace("\r\n", "\n"), false);
        // A missing file is reported twice: its message, then the failed read of its first line.
        unreadable("missing file", m_dir.filePath("none.kwdef"));
        // A named pipe would block a plain read for ever: it is no file.
        const QString pipe = m_dir.filePath("pipe.kwdef");
        QCOMPARE(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
        unreadable("a named pipe", pipe);
        unreadable("read error", "/proc/self/mem", false);
    }

    void loadDefFileReadsTheFileOrReportsWhy()
    {
        const auto [path, fields, reported] = fetch<QString, QStringList, QStringList>();
        GridHost host;
        host.add("Earlier");
        host.grid->LoadDefFile(path);
        QCOMPARE(host.each(summary), fields);
        QCOMPARE(host.reports(), reported);
    }

    // Cut files: the blocks before the cut are kept in order, one report at most.
    void damagedFilesKeepWhatWasRead()
    {
        const QByteArray whole
            = readFile(qEnvironmentVariable("KW_EXAMPLES_DIR") + "/showcase.kwdef");
        QVERIFY(!whole.isEmpty());
        GridHost complete;
        complete.grid->LoadDefFile(writeFile(m_dir.filePath("whole.kwdef"), whole));
        const QStringList all = complete.each();
        QVERIFY(all.size() > 10);
        for (int cut = 1; cut < whole.size(); cut += 37) {
            GridHost host;
            host.grid->LoadDefFile(writeFile(m_dir.filePath("cut.kwdef"), whole.left(cut)));
            // A block cut in its name line may arrive under the shorter name.
            const QStringList names = host.each();
            QVERIFY(names.size() <= all.size());
            for (int i = 0; i < names.size(); ++i)
                QVERIFY2(all.at(i).startsWith(names.at(i)), qPrintable(names[i]));
            // A cut after "ADDFIELD" fails as that line without a name does.
            QVERIFY(host.errors.errors.size() <= 1);
            if (whole.left(cut).endsWith("\nADDFIELD"))
                QCOMPARE(host.errors.errors.size(), 1);
            for (const ReportedError &error : std::as_const(host.errors.errors))
                QVERIFY2(error.source.startsWith("Sub 'ReadDef'"), qPrintable(error.source));
        }
    }

private:
    QTemporaryDir m_dir;
    QString m_database;
};

QTEST_MAIN(tst_DefinitionReader)
#include "tst_DefinitionReader.moc"
