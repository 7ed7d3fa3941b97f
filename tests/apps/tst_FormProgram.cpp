// Runs kwfielddeck-form as a shell script would and checks its exit status and output.

#include "TestSupport.h"
#include "host/Columns.h"

#include <QtTest>

using kwFieldDeck::test::columns;
using kwFieldDeck::test::fetch;

namespace {
struct Run
{
    int exitCode = -1;
    QString out, err;
};

// Three fields with LF line ends; crLf gives the library's own line ends.
const QByteArray ThreeFields = "Property Control Definition File\n"
                               "ADDFIELD Name\nTYPE=TEXT\nVALUE=Ada\nENDFIELD\n"
                               "ADDFIELD Notes\nTYPE=MEMO\nVALUE=first\nENDFIELD\n"
                               "ADDFIELD Size\nTYPE=NUMERIC\nVALUE=12\nENDFIELD\n";

const auto crLf = [](QByteArray lfText) { return lfText.replace("\n", "\r\n"); };
} // namespace

class tst_FormProgram : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase()
    {
        QVERIFY(!write("three.kwdef", crLf(ThreeFields)).isEmpty());
        QVERIFY(!write("three-lf.kwdef", ThreeFields).isEmpty());
    }

    void helpNamesEveryOption()
    {
        const Run help = run({ "--help" });
        QCOMPARE(help.exitCode, 0);
        for (const char *text : { "--store <APP SECTION SETTING>", "--set <NAME=VALUE>",
                 "--title <TEXT>", "--screenshot <FILE.png>", "--json", "--check", "FIELD: MESSAGE",
                 "%CRLF%", "Exit status" })
            QVERIFY2(help.out.contains(QLatin1String(text)), text);
    }

    // --screenshot prints as OK does; the showcase finds its combo database from another folder.
    void printsTheValuesAndExitsZero_data()
    {
        // The arguments, the whole output (or a line of it when it starts with a line break) and
        // the working folder.
        const auto row = columns<QStringList, QString, QString>();
        const QString examples = qEnvironmentVariable("KW_EXAMPLES_DIR");
        row("version", { "--version" }, "kwfielddeck-form " KW_VERSION "\n", {});
        row("lines", { "--title", "Three fields", "three.kwdef" },
            "Name=Ada\nNotes=first\nSize=12\n", {});
        row("JSON", { "--json", "--set", "Notes=one%CRLF%two", "three.kwdef" },
            "{\"Name\":\"Ada\",\"Notes\":\"one\\ntwo\",\"Size\":12}\n", {});
        row("showcase from the root folder", { examples + "/showcase.kwdef" }, "\nColour=4\n",
            QDir::rootPath());
    }

    void printsTheValuesAndExitsZero()
    {
        const auto [arguments, printed, workingFolder] = fetch<QStringList, QString, QString>();
        const QString png = m_folder.filePath("shot.png");
        QFile::remove(png);
        const bool shot = arguments.last().endsWith(".kwdef");
        const Run result = run(
            shot ? QStringList { "--screenshot", png } + arguments : arguments, workingFolder);
        QVERIFY2(printed.startsWith('\n') ? result.out.contains(printed) : result.out == printed,
            qPrintable(result.out));
        QCOMPARE(result.exitCode, 0);
        // No message of the library (such as a combo database not found) and no reported error.
        QVERIFY2(!result.err.contains("kwPropertyControl: ")
                && !result.err.contains(QRegularExpression("Error \\d+ \\(")),
            qPrintable(result.err));
        const QImage image(png);
        QVERIFY(!shot || (image.width() > 300 && image.height() > 3 * 20));
    }

    // Each message of the load, one line with its block, in order; the same with no display.
    void checkPrintsEachMessageOfTheLoadWithItsField_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QStringList>("expected");
        const QString mustBe
            = " Not Valid  Must be "
              "TEXT,NUMERIC,CHECKBOX,COMBO,DATE,SLIDER,FILESELECTOR,FOLDERSELECTOR,MEMO";
        QTest::newRow("clean") << crLf(ThreeFields) << QStringList();
        // Port stays open after its bad type until the second ENDFIELD; Host, open without a type,
        // takes Colour's keys; the overflow between two blocks ends the reading before Never.
        QTest::newRow("several faulty blocks, LF line ends")
            << QByteArray("Property Control Definition File\n"
                          "ADDFIELD Port\nTYPE=INTEGER\nENDFIELD\nTYPE=NUMERIC\nENDFIELD\n"
                          "ADDFIELD Host\nVALUE=x\nENDFIELD\n"
                          "ADDFIELD Colour\nTYPE=COMBO\nDB=missing.db\nENDFIELD\n"
                          "ADD FIELD Port\nTYPE=TEXT\nEND FIELD\n"
                          "ADDFIELD Size\nTYPE=COMBO\nADDCOMBOITEMS\n1=Small\n1=Again\n"
                          "ENDCOMBOITEMS\nENDFIELD\n"
                          "FIELDNAMEWIDTH=99999999999999999999999999999999999999999\n"
                          "ADDFIELD Never\nTYPE=BUTTON\nENDFIELD\n")
            << QStringList { "Port: FldType: INTEGER" + mustBe,
                   "Host: No FieldName or Type Defined!",
                   "Host: Field:Host Can't find Combo Database File: File=MISSING.DB",
                   "Port: Field: Port already exists in Fields Collection!",
                   "Size: Error 457 (This key is already associated with an element of this "
                   "collection) in Function 'Add' of Class Module 'DropDownValues'",
                   ": Error 6 (Overflow) in Sub 'ReadDef' of User Control 'kwPropertyControl'" };
        QTest::newRow("ADDFIELD without a name")
            << crLf("Property Control Definition File\nADDFIELD A\nTYPE=BUTTON\nENDFIELD\n"
                    "TYPE=TEXT\nENDFIELD\nADDFIELD\nTYPE=TEXT\nENDFIELD\n")
            << QStringList { "A: FldType: BUTTON" + mustBe,
                   ": Error 5 (Invalid procedure call or argument) in Sub 'ReadDef' of User "
                   "Control 'kwPropertyControl'" };
        QTest::newRow("line breaks inside a name")
            << QByteArray("Property Control Definition File\r\nADDFIELD Line\rFeed\r\n"
                          "TYPE=COMBO\r\nDB=none.db\r\nENDFIELD\r\n")
            << QStringList { "Line Feed: Field:Line Feed Can't find Combo Database File: "
                             "File=NONE.DB" };
        // Read as Windows-1252 (the last line is no UTF-8), the first two names differ; read
        // as UTF-8 they would be é and É, one name twice.
        QTest::newRow("Windows-1252 file whose first lines would read as UTF-8")
            << crLf("Property Control Definition File\nADDFIELD \xC3\xA9\nTYPE=TEXT\nENDFIELD\n"
                    "ADDFIELD \xC3\x89\nTYPE=TEXT\nENDFIELD\n"
                    "ADDFIELD Bad\nTYPE=BUTTON\nENDFIELD\n# caf\xE9\n")
            << QStringList { "Bad: FldType: BUTTON" + mustBe };
        QTest::newRow("empty file")
            << QByteArray()
            << QStringList { ": Error 9 (Subscript out of range) in Sub "
                             "'LoadDefFile' of User Control 'kwPropertyControl'" };
    }

    void checkPrintsEachMessageOfTheLoadWithItsField()
    {
        QFETCH(QByteArray, file);
        QFETCH(QStringList, expected);
        QVERIFY(!write("check.kwdef", file).isEmpty());
        const QString printed = expected.isEmpty() ? QString() : expected.join('\n') + '\n';

        QProcessEnvironment noDisplay = QProcessEnvironment::systemEnvironment();
        for (const char *name : { "QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY" })
            noDisplay.remove(name);
        for (const QProcessEnvironment &environment :
            { QProcessEnvironment::systemEnvironment(), noDisplay }) {
            const Run result = run({ "--check", "check.kwdef" }, {}, environment);
            QCOMPARE(result.out, printed);
            QCOMPARE(result.exitCode, expected.isEmpty() ? 0 : 2);
        }
    }

    // Presets find fields in any case, converted by type; --store restores them in the next run
    // (also after the file, with LF line ends); presets win over what was stored.
    void presetsAreStoredAndComeBackInTheNextRun()
    {
        const QStringList store { "--store", "FormTest", "Dialogs", "Three" },
            shot { "--screenshot", m_folder.filePath("stored.png") };
        const QString preset = "Name=Grace=Hopper\nNotes=a%CRLF%b\nSize=7\n";
        const Run first = run(store + shot
            + QStringList { "--set", "name=Grace=Hopper", "--set", "Notes=a%CRLF%b", "--set",
                "Size=7abc", "three.kwdef" });
        QCOMPARE(first.out, preset);
        QCOMPARE(first.exitCode, 0);
        QCOMPARE(run(shot + QStringList { "three-lf.kwdef" } + store).out, preset);
        const Run third = run(store + shot + QStringList { "--set", "Size=99", "three.kwdef" });
        QCOMPARE(third.out, QString(preset).replace("Size=7", "Size=99"));
    }

    void whatCannotRunExitsTwoWithAReason_data()
    {
        const QStringList shot { "--screenshot", "out.png" },
            in = shot + QStringList { "in.kwdef" };
        // The arguments, the reason printed and the definition file written first, if any.
        const auto column = columns<QStringList, QString, QByteArray>();
        const auto row
            = [&column](const char *name, const QStringList &arguments, const QString &reason,
                  const QByteArray &file = {}) { column(name, arguments, reason, file); };
        row("missing file", shot + QStringList { "no.kwdef" },
            "\"no.kwdef\": the file does not exist");
        row("a folder", shot + QStringList { "." }, "folder");
        // The library's message names the user's file, not the CR LF copy read in its place.
        row("LF file without header", in, "Does not Match! " + m_folder.filePath("in.kwdef"),
            "ADDFIELD A\nTYPE=TEXT\nENDFIELD\n");
        row("header with a trailing blank", in, "header \"Property Control Definition File\"",
            crLf("Property Control Definition File \nADDFIELD A\nTYPE=TEXT\nENDFIELD\n"));
        row("no complete block", in, "defines no field",
            "Property Control Definition File\nADDFIELD A\nTYPE=TEXT\n");
        row("no display and no --screenshot", { "three.kwdef" }, "--screenshot FILE.png");
        row("no file", shot, "No definition file");
        row("--store short", { "three.kwdef", "--store", "A", "B" }, "--store needs three values");
        row("--set without =", { "--set", "Name", "three.kwdef" }, "NAME=VALUE");
        row("--set of no field", shot + QStringList { "--set", "Colour=red", "three.kwdef" },
            "--set names no field of the definition: Colour");
        row("unknown option", { "--frobnicate", "three.kwdef" }, "frobnicate");
        row("--check of no complete block", { "--check", "in.kwdef" }, "defines no field",
            crLf("Property Control Definition File\nADDFIELD A\nTYPE=TEXT\n"));
        row("--check with --json", { "--check", "--json", "three.kwdef" },
            "takes no other option: --json");
    }

    void whatCannotRunExitsTwoWithAReason()
    {
        const auto [arguments, reason, file] = fetch<QStringList, QString, QByteArray>();
        if (!file.isEmpty())
            QVERIFY(!write(arguments.last(), file).isEmpty());
        const Run result = run(arguments);
        QCOMPARE(result.exitCode, 2);
        QVERIFY2(result.err.contains(reason), qPrintable(result.err));
        QCOMPARE(result.out, QString());
        QVERIFY(!QFileInfo::exists(m_folder.filePath("out.png")));
    }

private:
    Run run(const QStringList &arguments, const QString &workingFolder = {},
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment())
    {
        environment.insert("XDG_CONFIG_HOME", m_config.path());
        QProcess process;
        process.setProcessEnvironment(environment);
        process.setWorkingDirectory(workingFolder.isEmpty() ? m_folder.path() : workingFolder);
        process.start(KW_FORM_PROGRAM, arguments);
        if (!process.waitForFinished(60000) || process.exitStatus() != QProcess::NormalExit)
            return {};
        return { process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError()) };
    }

    QString write(const QString &name, const QByteArray &bytes)
    {
        return kwFieldDeck::test::writeFile(m_folder.filePath(name), bytes);
    }

    QTemporaryDir m_folder, m_config;
};

QTEST_GUILESS_MAIN(tst_FormProgram)
#include "tst_FormProgram.moc"
