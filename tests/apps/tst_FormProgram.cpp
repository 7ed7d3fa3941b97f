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
                 "--title <TEXT>", "--screenshot <FILE.png>", "--json", "%CRLF%", "Exit status" })
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
