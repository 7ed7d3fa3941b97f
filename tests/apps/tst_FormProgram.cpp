// Runs kwfielddeck-form as a shell script would and checks its exit status and output.

#include "DefinitionFiles.h"

#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

using namespace kwFieldDeck::test;

namespace {
struct Run
{
    int exitCode = -1;
    QString out;
    QString err;
};
} // namespace

class tst_FormProgram : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void helpAndVersionExitZero_data();
    void helpAndVersionExitZero();
    void screenshotRendersAndPrintsTheValuesAsOkDoes();
    void presetsReachTheFieldsByTheirTypes();
    void storedValuesComeBackInTheNextRun();
    void filesThatCannotBeLoadedExitTwoWithAReason_data();
    void filesThatCannotBeLoadedExitTwoWithAReason();
    void withNoDisplayTheWindowNeedsScreenshot();
    void definitionMessagesGoToStandardError();
    void theShowcaseRunsFromAnyFolder();

private:
    Run run(const QStringList &arguments, const QString &workingFolder = {},
        const QProcessEnvironment &environment = QProcessEnvironment::systemEnvironment());
    static QStringList lines(const QString &text) { return text.split('\n', Qt::SkipEmptyParts); }

    QTemporaryDir m_folder;
    QString m_crlfFile, m_lfFile;
};

void tst_FormProgram::initTestCase()
{
    QVERIFY(QFileInfo(KW_FORM_PROGRAM).isExecutable());
    m_crlfFile = writeFile(m_folder.path(), "three.kwdef", withCrLf(threeFieldDefinition()));
    m_lfFile = writeFile(m_folder.path(), "three-lf.kwdef", threeFieldDefinition());
    QVERIFY(!m_crlfFile.isEmpty() && !m_lfFile.isEmpty());
}

Run tst_FormProgram::run(const QStringList &arguments, const QString &workingFolder,
    const QProcessEnvironment &environment)
{
    QProcess process;
    process.setProcessEnvironment(environment);
    if (!workingFolder.isEmpty())
        process.setWorkingDirectory(workingFolder);
    process.start(KW_FORM_PROGRAM, arguments);
    Run result;
    if (!process.waitForFinished(60000)) {
        process.kill();
        process.waitForFinished();
        return result;
    }
    result.exitCode = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -2;
    result.out = QString::fromUtf8(process.readAllStandardOutput());
    result.err = QString::fromUtf8(process.readAllStandardError());
    return result;
}

void tst_FormProgram::helpAndVersionExitZero_data()
{
    QTest::addColumn<QString>("option");
    QTest::addColumn<QString>("expected");
    QTest::newRow("--help") << "--help"
                            << "--store <APP SECTION SETTING>";
    QTest::newRow("-h") << "-h"
                        << "Exit status";
    QTest::newRow("--version") << "--version"
                               << "kwfielddeck-form " KW_VERSION;
}

void tst_FormProgram::helpAndVersionExitZero()
{
    QFETCH(QString, option);
    QFETCH(QString, expected);
    const Run result = run({ option });
    QCOMPARE(result.exitCode, 0);
    QVERIFY2(result.out.contains(expected), qPrintable(result.out));
}

void tst_FormProgram::screenshotRendersAndPrintsTheValuesAsOkDoes()
{
    const QString png = m_folder.filePath("three.png");
    const Run result = run({ "--screenshot", png, "--title", "Three fields", m_crlfFile });
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(lines(result.out), QStringList({ "Name=Ada", "Notes=first", "Size=12" }));
    const QImage image(png);
    QVERIFY(!image.isNull());
    QVERIFY(image.width() > 300 && image.height() > 3 * 20);
}

void tst_FormProgram::presetsReachTheFieldsByTheirTypes()
{
    const Run result = run({ "--set", "name=Grace", "--set", "Notes=line 1%CRLF%line 2", "--set",
        "Size=7", "--screenshot", m_folder.filePath("presets.png"), m_crlfFile });
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(
        lines(result.out), QStringList({ "Name=Grace", "Notes=line 1%CRLF%line 2", "Size=7" }));

    const Run unknown = run(
        { "--set", "Colour=red", "--screenshot", m_folder.filePath("unknown.png"), m_crlfFile });
    QCOMPARE(unknown.exitCode, 2);
    QVERIFY2(unknown.err.contains("Colour"), qPrintable(unknown.err));
    QCOMPARE(unknown.out, QString());
}

void tst_FormProgram::storedValuesComeBackInTheNextRun()
{
    QTemporaryDir config;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("XDG_CONFIG_HOME", config.path());
    const QStringList store { "--store", "FormTest", "Dialogs", "Three" };

    const Run first = run(store
            + QStringList { "--set", "Name=Stored", "--set", "Notes=a%CRLF%b", "--screenshot",
                m_folder.filePath("first.png"), m_crlfFile },
        {}, environment);
    QCOMPARE(first.exitCode, 0);
    QVERIFY(QFileInfo::exists(config.filePath("kwFieldDeck/FormTest.ini")));

    const Run second
        = run(store + QStringList { "--screenshot", m_folder.filePath("second.png"), m_lfFile }, {},
            environment);
    QCOMPARE(second.exitCode, 0);
    QCOMPARE(lines(second.out), QStringList({ "Name=Stored", "Notes=a%CRLF%b", "Size=12" }));

    // Presets win over what was stored.
    const Run third = run(store
            + QStringList { "--set", "Size=99", "--screenshot", m_folder.filePath("third.png"),
                m_crlfFile },
        {}, environment);
    QCOMPARE(lines(third.out), QStringList({ "Name=Stored", "Notes=a%CRLF%b", "Size=99" }));
}

void tst_FormProgram::filesThatCannotBeLoadedExitTwoWithAReason_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("reason");
    QTest::newRow("missing") << "nothing-here.kwdef" << QByteArray() << "does not exist";
    QTest::newRow("no header") << "noheader.kwdef"
                               << QByteArray("ADDFIELD A\nTYPE=TEXT\nENDFIELD\n") << "header";
    QTest::newRow("no field") << "nofield.kwdef"
                              << QByteArray("Property Control Definition File\r\n")
                              << "defines no field";
}

void tst_FormProgram::filesThatCannotBeLoadedExitTwoWithAReason()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, bytes);
    QFETCH(QString, reason);
    const QString path
        = bytes.isEmpty() ? m_folder.filePath(name) : writeFile(m_folder.path(), name, bytes);
    const QString png = m_folder.filePath(name + ".png");
    const Run result = run({ "--screenshot", png, path });
    QCOMPARE(result.exitCode, 2);
    QVERIFY2(result.err.contains(reason), qPrintable(result.err));
    QVERIFY2(result.err.contains(path), qPrintable(result.err));
    QCOMPARE(result.out, QString());
    QVERIFY(!QFileInfo::exists(png));
}

void tst_FormProgram::withNoDisplayTheWindowNeedsScreenshot()
{
    const Run result = run({ m_crlfFile });
    QCOMPARE(result.exitCode, 2);
    QVERIFY2(result.err.contains("--screenshot"), qPrintable(result.err));
    QCOMPARE(result.out, QString());
}

void tst_FormProgram::definitionMessagesGoToStandardError()
{
    // The bad block is reported and stays open, so the next block's keys complete it: intended.
    const QString path = writeFile(m_folder.path(), "badtype.kwdef",
        "Property Control Definition File\nADDFIELD Bad\nTYPE=BUTTON\nENDFIELD\n"
        "ADDFIELD Good\nTYPE=TEXT\nVALUE=yes\nENDFIELD\n");
    const Run result = run({ "--screenshot", m_folder.filePath("badtype.png"), path });
    QCOMPARE(result.exitCode, 0);
    QVERIFY2(result.err.contains("Invalid Field Type: FldType: BUTTON Not Valid"),
        qPrintable(result.err));
    QCOMPARE(lines(result.out), QStringList({ "Bad=yes" }));
}

void tst_FormProgram::theShowcaseRunsFromAnyFolder()
{
    const QString showcase
        = QDir(qEnvironmentVariable("KW_BINARY_DIR")).filePath("examples/showcase.kwdef");
    QVERIFY2(QFileInfo::exists(showcase), qPrintable(showcase));
    const QStringList arguments { "--screenshot", m_folder.filePath("showcase.png"), showcase };
    const Run fromRoot = run(arguments, QDir::rootPath());
    const Run fromItsFolder = run(arguments, QFileInfo(showcase).absolutePath());
    QCOMPARE(fromRoot.exitCode, 0);
    // No message of the library (such as a combo database not found) and no reported error.
    QVERIFY2(!fromRoot.err.contains("kwPropertyControl: "), qPrintable(fromRoot.err));
    QVERIFY2(
        !fromRoot.err.contains(QRegularExpression("Error \\d+ \\(")), qPrintable(fromRoot.err));
    const QStringList printed = lines(fromRoot.out);
    QVERIFY(printed.size() >= 9);
    for (const QString &line : printed)
        QVERIFY2(line.indexOf('=') > 0, qPrintable(line));
    QCOMPARE(printed, lines(fromItsFolder.out));
}

QTEST_GUILESS_MAIN(tst_FormProgram)
#include "tst_FormProgram.moc"
