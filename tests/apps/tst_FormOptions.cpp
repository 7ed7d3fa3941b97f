#include "FormOptions.h"

#include <QtTest>

using namespace kwFieldDeck;

using Presets = QVector<QPair<QString, QString>>;

class tst_FormOptions : public QObject
{
    Q_OBJECT
private slots:
    void storeTakesThreeValuesWhereverItStands_data();
    void storeTakesThreeValuesWhereverItStands();
    void presetsKeepTheirOrderAndReadTheLineBreakMarker();
    void wrongCommandLinesAreErrors_data();
    void wrongCommandLinesAreErrors();
    void helpNamesEveryOptionAndTheExitStatus();
    void versionNamesTheProgram();
};

void tst_FormOptions::storeTakesThreeValuesWhereverItStands_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("before the file") << QStringList { "--store", "App", "Sect", "Key", "f.kwdef" };
    QTest::newRow("after the file") << QStringList { "f.kwdef", "--store", "App", "Sect", "Key" };
    QTest::newRow("with =") << QStringList { "--store=App", "Sect", "Key", "f.kwdef" };
    QTest::newRow("among others") << QStringList { "--title", "T", "--store", "App", "Sect", "Key",
        "--dark", "f.kwdef" };
    QTest::newRow("values like options")
        << QStringList { "--store", "App", "-x", "--y", "f.kwdef" };
}

void tst_FormOptions::storeTakesThreeValuesWhereverItStands()
{
    QFETCH(QStringList, arguments);
    const FormOptions options = FormOptions::parse(QStringList { "kwfielddeck-form" } + arguments);
    QCOMPARE(options.outcome, FormOptions::Outcome::Run);
    QCOMPARE(options.definitionFile, QStringLiteral("f.kwdef"));
    QVERIFY(options.useStore);
    QCOMPARE(options.storeApp, QStringLiteral("App"));
    const bool optionLike = options.storeSection.startsWith('-');
    QCOMPARE(options.storeSection, optionLike ? QStringLiteral("-x") : QStringLiteral("Sect"));
    QCOMPARE(options.storeSetting, optionLike ? QStringLiteral("--y") : QStringLiteral("Key"));
}

void tst_FormOptions::presetsKeepTheirOrderAndReadTheLineBreakMarker()
{
    const FormOptions options = FormOptions::parse(
        { "kwfielddeck-form", "--set", "B=2", "--set", "Notes=a%CRLF%b", "--set", "Eq=x=y", "--set",
            "Empty=", "--screenshot", "out.png", "--title", "Settings", "--dark", "f.kwdef" });
    QCOMPARE(options.outcome, FormOptions::Outcome::Run);
    const Presets expected { { "B", "2" }, { "Notes", "a\r\nb" }, { "Eq", "x=y" },
        { "Empty", "" } };
    QCOMPARE(options.presets, expected);
    QCOMPARE(options.screenshotFile, QStringLiteral("out.png"));
    QCOMPARE(options.title, QStringLiteral("Settings"));
    QVERIFY(options.dark);
    QVERIFY(!options.useStore);
}

void tst_FormOptions::wrongCommandLinesAreErrors_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("complaint");
    QTest::newRow("no file") << QStringList {} << "No definition file";
    QTest::newRow("two files") << QStringList { "a.kwdef", "b.kwdef" } << "a.kwdef, b.kwdef";
    QTest::newRow("store short") << QStringList { "f.kwdef", "--store", "App", "Sect" }
                                 << "--store needs three values";
    QTest::newRow("set without =") << QStringList { "--set", "Name", "f.kwdef" } << "NAME=VALUE";
    QTest::newRow("set without name") << QStringList { "--set", "=1", "f.kwdef" } << "NAME=VALUE";
    QTest::newRow("unknown option") << QStringList { "--frobnicate", "f.kwdef" } << "frobnicate";
}

void tst_FormOptions::wrongCommandLinesAreErrors()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, complaint);
    const FormOptions options = FormOptions::parse(QStringList { "kwfielddeck-form" } + arguments);
    QCOMPARE(options.outcome, FormOptions::Outcome::Error);
    QVERIFY2(options.text.contains(complaint), qPrintable(options.text));
}

void tst_FormOptions::helpNamesEveryOptionAndTheExitStatus()
{
    const FormOptions options = FormOptions::parse({ "kwfielddeck-form", "--help" });
    QCOMPARE(options.outcome, FormOptions::Outcome::Help);
    for (const char *text :
        { "--store <APP SECTION SETTING>", "--set <NAME=VALUE>", "--title <TEXT>",
            "--screenshot <FILE.png>", "--dark", "definition-file", "%CRLF%", "Exit status" })
        QVERIFY2(options.text.contains(QLatin1String(text)), text);
}

void tst_FormOptions::versionNamesTheProgram()
{
    QCoreApplication::setApplicationName("kwfielddeck-form");
    QCoreApplication::setApplicationVersion("9.8.7");
    const FormOptions options = FormOptions::parse({ "kwfielddeck-form", "--version", "f" });
    QCOMPARE(options.outcome, FormOptions::Outcome::Version);
    QCOMPARE(options.text, QStringLiteral("kwfielddeck-form 9.8.7"));
}

QTEST_GUILESS_MAIN(tst_FormOptions)
#include "tst_FormOptions.moc"
