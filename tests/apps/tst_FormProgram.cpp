// Runs kwfielddeck-form as a shell script would and checks its exit status and output.

#include "TestSupport.h"

#include <QImage>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

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

QByteArray crLf(QByteArray lfText)
{
    return lfText.replace("\n", "\r\n");
}

QStringList lines(const QString &text)
{
    return text.split('\n', Qt::SkipEmptyParts);
}
} // namespace

class tst_FormProgram : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase()
    {
        QVERIFY(QFileInfo(KW_FORM_PROGRAM).isExecutable());
        QVERIFY(!write("three.kwdef", crLf(ThreeFields)).isEmpty());
        QVERIFY(!write("three-lf.kwdef", ThreeFields).isEmpty());
    }

    void helpAndVersionExitZero()
    {
        const Run help = run({ "--help" });
        QCOMPARE(help.exitCode, 0);
        for (const char *text : { "--store <APP SECTION SETTING>", "--set <NAME=VALUE>",
                 "--title <TEXT>", "--screenshot <FILE.png>", "--json", "--check", "FIELD: MESSAGE",
                 "%CRLF%", "Exit status" })
            QVERIFY2(help.out.contains(QLatin1String(text)), text);
        const Run version = run({ "--version" });
        QCOMPARE(version.exitCode, 0);
        QCOMPARE(version.out.trimmed(), QStringLiteral("kwfielddeck-form " KW_VERSION));
    }

    void screenshotRendersAndPrintsTheValuesAsOkDoes()
    {
        const QString png = m_folder.filePath("three.png");
        const Run result = run({ "--screenshot", png, "--title", "Three fields", "three.kwdef" });
        QCOMPARE(result.exitCode, 0);
        QCOMPARE(lines(result.out), QStringList({ "Name=Ada", "Notes=first", "Size=12" }));
        const QImage image(png);
        QVERIFY(image.width() > 300 && image.height() > 3 * 20);
    }

    // Each value in its type, in the grid's order; a memo keeps its line break as a real one.
    void jsonPrintsEveryValueInItsType()
    {
        const QByteArray types = "Property Control Definition File\n"
                                 "ADDFIELD Name\nTYPE=TEXT\nVALUE=Ada \"A\"\nENDFIELD\n"
                                 "ADDFIELD Size\nTYPE=NUMERIC\nVALUE=12.5\nENDFIELD\n"
                                 "ADDFIELD On\nTYPE=CHECKBOX\nVALUE=TRUE\nENDFIELD\n"
                                 "ADDFIELD Off\nTYPE=CHECKBOX\nENDFIELD\n"
                                 "ADDFIELD Day\nTYPE=DATE\nVALUE=2024-06-01\nENDFIELD\n"
                                 "ADDFIELD Level\nTYPE=SLIDER\nMIN=0\nMAX=11\nVALUE=5\nENDFIELD\n"
                                 "ADDFIELD Notes\nTYPE=MEMO\nENDFIELD\n";
        QVERIFY(!write("types.kwdef", crLf(types)).isEmpty());
        const Run result = run({ "--json", "--set", "Notes=one%CRLF%two", "--screenshot",
            m_folder.filePath("types.png"), "types.kwdef" });
        QCOMPARE(result.exitCode, 0);
        QJsonParseError error;
        const QJsonDocument json = QJsonDocument::fromJson(result.out.toUtf8(), &error);
        QVERIFY2(error.error == QJsonParseError::NoError, qPrintable(result.out));
        const QJsonObject values = json.object();
        QCOMPARE(values.value("Name"), QJsonValue("Ada \"A\""));
        QCOMPARE(values.value("Size"), QJsonValue(12.5));
        QCOMPARE(values.value("On"), QJsonValue(1));
        QCOMPARE(values.value("Off"), QJsonValue(0));
        QCOMPARE(values.value("Day"), QJsonValue("2024-06-01"));
        QCOMPARE(values.value("Level"), QJsonValue(5));
        QCOMPARE(values.value("Notes"), QJsonValue("one\ntwo"));
        // The keys in the grid's order, which a JSON object does not keep by itself.
        qsizetype at = 0;
        for (const char *name : { "Name", "Size", "On", "Off", "Day", "Level", "Notes" }) {
            const qsizetype found = result.out.indexOf(QStringLiteral("\"%1\":").arg(name), at);
            QVERIFY2(found >= at, name);
            at = found;
        }
    }

    // Every message box and error report of the load, one line each with the block being read,
    // in order; the same with no display at all, where a window could not be shown.
    void checkPrintsEachMessageOfTheLoadWithItsField_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QStringList>("expected");
        const QString mustBe
            = " Not Valid  Must be "
              "TEXT,NUMERIC,CHECKBOX,COMBO,DATE,SLIDER,FILESELECTOR,FOLDERSELECTOR,MEMO";
        QTest::newRow("clean") << crLf(ThreeFields) << QStringList();
        // Read as drop-down entries, the two DESCRIPTION lines would be one key twice.
        QTest::newRow("DESCRIPTION keys")
            << crLf("Property Control Definition File\nDESCRIPTION=outside\n"
                    "ADDFIELD Size\nTYPE=COMBO\nDESCRIPTION=How big\nADDCOMBOITEMS\n1=Small\n"
                    "DESCRIPTION=Pick one\nDESCRIPTION=Pick one size\nENDCOMBOITEMS\nENDFIELD\n")
            << QStringList();
        // Port stays open after its bad type and is completed by the second ENDFIELD; Host stays
        // open without a type and takes Colour's keys; the overflow sits between two blocks and
        // ends the reading, so Never is not read.
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
        QTest::newRow("overflow inside a block")
            << crLf("Property Control Definition File\nADDFIELD A\nTYPE=TEXT\nENDFIELD\n"
                    "ADDFIELD B\nSIZE=99999999999\nENDFIELD\n")
            << QStringList { "B: Error 6 (Overflow) in Sub 'ReadDef' of User Control "
                             "'kwPropertyControl'" };
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
        QTest::newRow("no header")
            << crLf("ADDFIELD A\nTYPE=TEXT\nENDFIELD\n")
            << QStringList { ": Can't Open kwProperty Control Definition file. File Format Does "
                             "not Match! {file}" };
        QTest::newRow("empty file")
            << QByteArray()
            << QStringList { ": Error 9 (Subscript out of range) in Sub "
                             "'LoadDefFile' of User Control 'kwPropertyControl'" };
    }

    void checkPrintsEachMessageOfTheLoadWithItsField()
    {
        QFETCH(QByteArray, file);
        QFETCH(QStringList, expected);
        const QString path = write("check.kwdef", file);
        QVERIFY(!path.isEmpty());
        expected.replaceInStrings("{file}", path);
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

    // The shipped definitions load without a message, from wherever they are named.
    void theExamplesCheckClean_data()
    {
        const QString examples = qEnvironmentVariable("KW_EXAMPLES_DIR");
        QTest::addColumn<QString>("definition");
        for (const char *name : { "connection.kwdef", "showcase.kwdef" })
            QTest::newRow(name) << examples + '/' + name;
    }

    void theExamplesCheckClean()
    {
        QFETCH(QString, definition);
        const Run result = run({ "--check", definition }, QDir::rootPath());
        QCOMPARE(result.out, QString());
        QCOMPARE(result.exitCode, 0);
    }

    void presetsAreStoredAndComeBackInTheNextRun()
    {
        QTemporaryDir config;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("XDG_CONFIG_HOME", config.path());
        const QStringList store { "--store", "FormTest", "Dialogs", "Three" };
        const QString png = m_folder.filePath("stored.png");

        // Presets find fields in any letter case and are converted by the field's type.
        const Run first = run(store
                + QStringList { "--set", "name=Grace=Hopper", "--set", "Notes=a%CRLF%b", "--set",
                    "Size=7abc", "--screenshot", png, "three.kwdef" },
            {}, environment);
        const QStringList preset { "Name=Grace=Hopper", "Notes=a%CRLF%b", "Size=7" };
        QCOMPARE(first.exitCode, 0);
        QCOMPARE(lines(first.out), preset);
        // --store may follow the file, and a file with LF line ends defines the same fields.
        const Run second
            = run(QStringList { "--screenshot", png, "three-lf.kwdef" } + store, {}, environment);
        QCOMPARE(second.exitCode, 0);
        QCOMPARE(lines(second.out), preset);
        // Presets win over what was stored.
        const Run third
            = run(store + QStringList { "--set", "Size=99", "--screenshot", png, "three.kwdef" },
                {}, environment);
        QCOMPARE(lines(third.out), preset.mid(0, 2) + QStringList { "Size=99" });
        // A note written by hand at the top of the store is kept, whole, beside the next save.
        const QString stored = config.filePath("kwFieldDeck/FormTest.ini");
        const QByteArray damaged = "# my settings\n" + kwFieldDeck::test::readFile(stored);
        QVERIFY(!kwFieldDeck::test::writeFile(stored, damaged).isEmpty());
        const Run fourth
            = run(store + QStringList { "--set", "Size=5", "--screenshot", png, "three.kwdef" }, {},
                environment);
        QCOMPARE(fourth.exitCode, 0);
        QVERIFY2(fourth.err.contains(stored + ".damaged"), qPrintable(fourth.err));
        QCOMPARE(kwFieldDeck::test::readFile(stored + ".damaged"), damaged);
        const Run fifth
            = run(store + QStringList { "--screenshot", png, "three.kwdef" }, {}, environment);
        QCOMPARE(lines(fifth.out), preset.mid(0, 2) + QStringList { "Size=5" });
    }

    void whatCannotRunExitsTwoWithAReason_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QString>("reason");
        const QStringList shot { "--screenshot", "out.png" },
            in = shot + QStringList { "in.kwdef" };
        auto row = [](const char *name, const QStringList &arguments, const QString &reason,
                       const QByteArray &file = {}) {
            QTest::newRow(name) << arguments << file << reason;
        };
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
        row("--check of a missing file", { "--check", "no.kwdef" },
            "\"no.kwdef\": the file does not exist");
        row("--check of a folder", { "--check", "." }, "folder");
        row("--check of no complete block", { "--check", "in.kwdef" }, "defines no field",
            crLf("Property Control Definition File\nADDFIELD A\nTYPE=TEXT\n"));
        row("--check without a file", { "--check" }, "No definition file");
        row("--check with --json", { "--check", "--json", "three.kwdef" },
            "takes no other option: --json");
    }

    void whatCannotRunExitsTwoWithAReason()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QByteArray, file);
        QFETCH(QString, reason);
        if (!file.isEmpty())
            QVERIFY(!write(arguments.last(), file).isEmpty());
        const Run result = run(arguments);
        QCOMPARE(result.exitCode, 2);
        QVERIFY2(result.err.contains(reason), qPrintable(result.err));
        QCOMPARE(result.out, QString());
        QVERIFY(!QFileInfo::exists(m_folder.filePath("out.png")));
    }

    // The shipped showcase where a newcomer finds it: named from the repository's root as the
    // README does, or by its whole path from anywhere.
    void theShowcaseRunsFromAnyFolder_data()
    {
        const QString examples = qEnvironmentVariable("KW_EXAMPLES_DIR");
        QTest::addColumn<QString>("showcase");
        QTest::addColumn<QString>("workingFolder");
        QTest::newRow("repository root") << "examples/showcase.kwdef" << examples + "/..";
        QTest::newRow("root folder") << examples + "/showcase.kwdef" << QDir::rootPath();
        QTest::newRow("its own folder") << examples + "/showcase.kwdef" << examples;
    }

    void theShowcaseRunsFromAnyFolder()
    {
        QFETCH(QString, showcase);
        QFETCH(QString, workingFolder);
        const QStringList arguments { "--screenshot", m_folder.filePath("showcase.png"), showcase };
        const Run result = run(arguments, workingFolder);
        QCOMPARE(result.exitCode, 0);
        // No message of the library (such as a combo database not found) and no reported error.
        QVERIFY2(!result.err.contains("kwPropertyControl: "), qPrintable(result.err));
        QVERIFY2(
            !result.err.contains(QRegularExpression("Error \\d+ \\(")), qPrintable(result.err));
        const QStringList printed = lines(result.out);
        QVERIFY(printed.size() >= 9);
        for (const QString &line : printed)
            QVERIFY2(line.indexOf('=') > 0, qPrintable(line));
        // The combo filled from the database's colours table shows its value's entry.
        QVERIFY2(printed.contains("Colour=4"), qPrintable(result.out));
    }

private:
    Run run(const QStringList &arguments, const QString &workingFolder = {},
        const QProcessEnvironment &environment = QProcessEnvironment::systemEnvironment())
    {
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

    QTemporaryDir m_folder;
};

QTEST_GUILESS_MAIN(tst_FormProgram)
#include "tst_FormProgram.moc"
