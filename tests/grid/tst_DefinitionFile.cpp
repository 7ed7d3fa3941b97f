#include "GridHost.h"

#include "editors/kwComboField.h"
#include "fieldmodel/DropDownValues.h"
#include "platform/ComboBox.h"
#include "platform/Values.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtTest>

using namespace kwFieldDeck;
using kwFieldDeck::test::ErrorRecorder;
using kwFieldDeck::test::GridHost;
using kwFieldDeck::test::MessageRecorder;

namespace {

const QByteArray Header = "Property Control Definition File";
const QString CannotOpen = QStringLiteral("Can't Open kwProperty Control Definition file.\r\n\r\n");
const QString LoadDefFileSource
    = QStringLiteral("Sub 'LoadDefFile' of User Control 'kwPropertyControl'");

const QByteArray TwoFields = "ADDFIELD Name\r\nTYPE=TEXT\r\nVALUE=x\r\nENDFIELD\r\n"
                             "ADDFIELD Level\r\nTYPE=SLIDER\r\nMAX=9\r\nENDFIELD\r\n";

QStringList fieldNames(kwPropertyControl *grid)
{
    QStringList names;
    for (Field *field : *grid->Fields())
        names << field->Name();
    return names;
}

QStringList listTexts(Field *field)
{
    QStringList texts;
    ComboBox *list = field->ValueComboBox()->ComboControl();
    for (int i = 0; i < list->ListCount(); ++i)
        texts << list->List(i);
    return texts;
}

QString examplesSourceFolder()
{
    return qEnvironmentVariable("KW_EXAMPLES_DIR");
}

QString examplesBuildFolder()
{
    return qEnvironmentVariable("KW_BINARY_DIR") + QStringLiteral("/examples");
}

} // namespace

class tst_DefinitionFile : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void theHeaderIsChecked_data();
    void theHeaderIsChecked();
    void aFileOfOnlyTheHeaderAddsNothing_data();
    void aFileOfOnlyTheHeaderAddsNothing();
    void aFileThatCannotBeReadIsReported_data();
    void aFileThatCannotBeReadIsReported();
    void aFileWithoutReadPermissionIsReported();
    void textIsDecodedAsUtf8OrWindows1252_data();
    void textIsDecodedAsUtf8OrWindows1252();
    void theFileNameIsFoundWithoutRegardToCase();
    void aRelativeDatabaseIsFoundBesideTheFileThenInTheCurrentFolder_data();
    void aRelativeDatabaseIsFoundBesideTheFileThenInTheCurrentFolder();
    void randomBytesNeverCrash();
    void truncatedFilesKeepWhatWasRead();
    void aTwentyMegabyteDefinitionLoads();
    void theShowcaseUsesEveryTypeAndKey();
    void theShowcaseLoadsWithItsDatabase();

private:
    QString write(const QString &name, const QByteArray &bytes);

    std::unique_ptr<QTemporaryDir> m_dir;
};

void tst_DefinitionFile::init()
{
    m_dir = std::make_unique<QTemporaryDir>();
    QVERIFY(m_dir->isValid());
}

QString tst_DefinitionFile::write(const QString &name, const QByteArray &bytes)
{
    const QString path = m_dir->filePath(name);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return QString();
    file.write(bytes);
    return path;
}

void tst_DefinitionFile::theHeaderIsChecked_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("accepted");

    QTest::newRow("as written") << Header + "\r\n" + TwoFields << true;
    QTest::newRow("lower case") << "property control definition file\r\n" + TwoFields << true;
    QTest::newRow("UTF-8 byte-order mark") << "\xEF\xBB\xBF" + Header + "\r\n" + TwoFields << true;
    QTest::newRow("trailing blank") << Header + " \r\n" + TwoFields << false;
    QTest::newRow("leading blank") << " " + Header + "\r\n" + TwoFields << false;
    QTest::newRow("trailing tab") << Header + "\t\r\n" + TwoFields << false;
    QTest::newRow("LF line ends") << QByteArray(Header + "\n" + TwoFields).replace("\r\n", "\n")
                                  << false;
    QTest::newRow("no header") << TwoFields << false;
    QTest::newRow("header not first") << "\r\n" + Header + "\r\n" + TwoFields << false;
}

void tst_DefinitionFile::theHeaderIsChecked()
{
    QFETCH(QByteArray, bytes);
    QFETCH(bool, accepted);

    const QString path = write(QStringLiteral("grid.kwdef"), bytes);
    GridHost host;
    MessageRecorder messages;
    ErrorRecorder errors;
    host.grid->LoadDefFile(path);

    QCOMPARE(errors.errors.size(), 0);
    if (accepted) {
        QCOMPARE(messages.prompts(), QStringList());
        QCOMPARE(fieldNames(host.grid), QStringList({ "Name", "Level" }));
        return;
    }
    QCOMPARE(fieldNames(host.grid), QStringList());
    QCOMPARE(messages.messages.size(), 1);
    QCOMPARE(messages.messages[0].prompt,
        CannotOpen + QStringLiteral("File Format Does not Match!\r\n\r\n") + path);
    QCOMPARE(messages.messages[0].title, QStringLiteral("kwPropertyControl"));
    QCOMPARE(messages.messages[0].style, MsgBoxStyle::Critical | MsgBoxStyle::OKOnly);
}

void tst_DefinitionFile::aFileOfOnlyTheHeaderAddsNothing_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("header and CR LF") << Header + "\r\n";
    QTest::newRow("header alone") << Header;
    QTest::newRow("header and empty lines") << Header + "\r\n\r\n  \r\n\t\r\n";
}

void tst_DefinitionFile::aFileOfOnlyTheHeaderAddsNothing()
{
    QFETCH(QByteArray, bytes);
    GridHost host;
    MessageRecorder messages;
    ErrorRecorder errors;
    host.grid->LoadDefFile(write(QStringLiteral("empty.kwdef"), bytes));
    QCOMPARE(host.grid->Fields()->Count(), 0);
    QCOMPARE(messages.messages.size(), 0);
    QCOMPARE(errors.errors.size(), 0);
}

void tst_DefinitionFile::aFileThatCannotBeReadIsReported_data()
{
    QTest::addColumn<QString>("condition");
    QTest::addColumn<bool>("missing");

    QTest::newRow("missing file") << "missing" << true;
    QTest::newRow("empty name") << "empty name" << true;
    QTest::newRow("a directory") << "directory" << true;
    QTest::newRow("below a regular file") << "below a file" << true;
    // Exists, but every read fails: root cannot read past this either.
    QTest::newRow("read error") << "/proc/self/mem" << false;
    QTest::newRow("empty file") << "empty file" << false;
}

void tst_DefinitionFile::aFileThatCannotBeReadIsReported()
{
    QFETCH(QString, condition);
    QFETCH(bool, missing);

    QString path;
    if (condition == QLatin1String("missing")) {
        path = m_dir->filePath(QStringLiteral("none.kwdef"));
    } else if (condition == QLatin1String("directory")) {
        path = m_dir->filePath(QStringLiteral("folder.kwdef"));
        QVERIFY(QDir().mkpath(path));
    } else if (condition == QLatin1String("below a file")) {
        path = write(QStringLiteral("plain"), Header + "\r\n" + TwoFields)
            + QStringLiteral("/grid.kwdef");
    } else if (condition == QLatin1String("empty file")) {
        path = write(QStringLiteral("empty.kwdef"), QByteArray());
    } else if (condition != QLatin1String("empty name")) {
        path = condition;
    }

    GridHost host;
    host.add(QStringLiteral("Earlier"));
    MessageRecorder messages;
    ErrorRecorder errors;
    host.grid->LoadDefFile(path);

    // A missing file is reported twice: its message, then the failed read of its first line.
    QCOMPARE(messages.prompts(), missing ? QStringList { CannotOpen + path } : QStringList());
    if (missing)
        QCOMPARE(messages.messages[0].title, QStringLiteral("kwPropertyControl"));
    QCOMPARE(errors.errors.size(), 1);
    QCOMPARE(errors.errors[0].number, int(ErrSubscriptOutOfRange));
    QCOMPARE(errors.errors[0].source, LoadDefFileSource);
    QCOMPARE(fieldNames(host.grid), QStringList { "Earlier" });
}

void tst_DefinitionFile::aFileWithoutReadPermissionIsReported()
{
    const QString path = write(QStringLiteral("locked.kwdef"), Header + "\r\n" + TwoFields);
    QVERIFY(QFile::setPermissions(path, {}));
    QFile probe(path);
    if (probe.open(QIODevice::ReadOnly))
        QSKIP("This user reads files whatever their mode (root); see the read-error case");

    GridHost host;
    MessageRecorder messages;
    ErrorRecorder errors;
    host.grid->LoadDefFile(path);
    QCOMPARE(messages.messages.size(), 0);
    QCOMPARE(errors.errors.size(), 1);
    QCOMPARE(errors.errors[0].source, LoadDefFileSource);
    QCOMPARE(host.grid->Fields()->Count(), 0);
}

void tst_DefinitionFile::textIsDecodedAsUtf8OrWindows1252_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::newRow("UTF-8") << QByteArray("Gr\xC3\xB6\xC3\x9F"
                                         "e \xE2\x82\xAC");
    QTest::newRow("Windows-1252") << QByteArray("Gr\xF6\xDF"
                                                "e \x80");
}

void tst_DefinitionFile::textIsDecodedAsUtf8OrWindows1252()
{
    QFETCH(QByteArray, name);
    GridHost host;
    MessageRecorder messages;
    host.grid->LoadDefFile(write(QStringLiteral("text.kwdef"),
        Header + "\r\nADDFIELD " + name + "\r\nTYPE=TEXT\r\nVALUE=" + name + "\r\nENDFIELD\r\n"));
    const QString expected = QStringLiteral("Größe €");
    QCOMPARE(fieldNames(host.grid), QStringList { expected });
    QCOMPARE(textOf(host.grid->Fields()->Item(expected)->Value()), expected);
}

void tst_DefinitionFile::theFileNameIsFoundWithoutRegardToCase()
{
    write(QStringLiteral("Grid.KwDef"), Header + "\r\n" + TwoFields);
    GridHost host;
    MessageRecorder messages;
    host.grid->LoadDefFile(m_dir->filePath(QStringLiteral("GRID.KWDEF")));
    QCOMPARE(messages.messages.size(), 0);
    QCOMPARE(host.grid->Fields()->Count(), 2);
}

void tst_DefinitionFile::aRelativeDatabaseIsFoundBesideTheFileThenInTheCurrentFolder_data()
{
    QTest::addColumn<QString>("definitionFolder");
    QTest::addColumn<QString>("currentFolder");
    QTest::addColumn<bool>("found");

    QTest::newRow("beside the file") << "defs"
                                     << "elsewhere" << true;
    QTest::newRow("in the current folder") << "elsewhere"
                                           << "defs" << true;
    QTest::newRow("in neither") << "elsewhere"
                                << "elsewhere" << false;
}

void tst_DefinitionFile::aRelativeDatabaseIsFoundBesideTheFileThenInTheCurrentFolder()
{
    QFETCH(QString, definitionFolder);
    QFETCH(QString, currentFolder);
    QFETCH(bool, found);

    const QString database = examplesBuildFolder() + QStringLiteral("/data/lists.db");
    if (!QFile::exists(database))
        QSKIP("The example database was not built (sqlite3 missing)");
    QDir root(m_dir->path());
    QVERIFY(root.mkpath(QStringLiteral("defs/Data")) && root.mkpath(QStringLiteral("elsewhere")));
    QVERIFY(QFile::copy(database, root.filePath(QStringLiteral("defs/Data/Lists.db"))));
    const QString path = root.filePath(definitionFolder + QStringLiteral("/grid.kwdef"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(Header
        + "\r\nADDFIELD Colour\r\nTYPE=COMBO\r\nDB=data\\lists.db\r\n"
          "TABLE=colours\r\nLISTFIELD=name\r\nENDFIELD\r\n");
    file.close();

    const QString previous = QDir::currentPath();
    QVERIFY(QDir::setCurrent(root.filePath(currentFolder)));
    GridHost host;
    MessageRecorder messages;
    host.grid->LoadDefFile(path);
    QDir::setCurrent(previous);

    Field *colour = host.grid->Fields()->Item(QStringLiteral("Colour"));
    QVERIFY(colour);
    QCOMPARE(colour->DropDownValues()->Count(), found ? 6 : 0);
    QCOMPARE(messages.messages.size(), found ? 0 : 1);
}

void tst_DefinitionFile::randomBytesNeverCrash()
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
        const qsizetype before = messages.messages.size();
        host.grid->LoadDefFile(write(QStringLiteral("noise.kwdef"), bytes));
        if (!(round % 2))
            QVERIFY(messages.messages.size() > before);
    }
    QCOMPARE(host.grid
                 ->AddFieldByDefString(QStringLiteral("ADDFIELD After\r\nTYPE=TEXT\r\n"
                                                      "ENDFIELD"))
                 ->Name(),
        QStringLiteral("After"));
}

void tst_DefinitionFile::truncatedFilesKeepWhatWasRead()
{
    QFile showcase(examplesSourceFolder() + QStringLiteral("/showcase.kwdef"));
    QVERIFY(showcase.open(QIODevice::ReadOnly));
    const QByteArray whole = showcase.readAll();

    QStringList complete;
    {
        GridHost host;
        MessageRecorder messages;
        host.grid->LoadDefFile(write(QStringLiteral("whole.kwdef"), whole));
        complete = fieldNames(host.grid);
    }
    QVERIFY(complete.size() > 10);

    for (int cut = 1; cut < whole.size(); cut += 37) {
        GridHost host;
        MessageRecorder messages;
        ErrorRecorder errors;
        const QByteArray part = whole.left(cut);
        host.grid->LoadDefFile(write(QStringLiteral("cut.kwdef"), part));
        const QStringList names = fieldNames(host.grid);
        // The fields of the complete blocks before the cut, in order; a block cut in its name
        // line may arrive under the shorter name.
        QVERIFY2(names.size() <= complete.size(), qPrintable(QString::number(cut)));
        for (int i = 0; i < names.size(); ++i)
            QVERIFY2(complete.at(i).startsWith(names.at(i)), qPrintable(names.at(i)));
        // Only a cut right after "ADDFIELD" fails, as that line without a name does.
        QCOMPARE(errors.errors.size(), part.endsWith("\nADDFIELD") ? 1 : 0);
    }
}

void tst_DefinitionFile::aTwentyMegabyteDefinitionLoads()
{
    QByteArray bytes = Header + "\r\n" + TwoFields;
    bytes.reserve(21 * 1024 * 1024);
    const QByteArray note = "# notes outside a block are skipped, however many there are "
                            "and however long they get.......................\r\n";
    while (bytes.size() < 12 * 1024 * 1024)
        bytes += note;
    bytes += "ADDFIELD Big\r\nTYPE=MEMO\r\nVALUE=" + QByteArray(4 * 1024 * 1024, 'v') + "\r\n";
    bytes += "ENDFIELD\r\nADDFIELD Items\r\nTYPE=COMBO\r\nADDCOMBOITEMS\r\n";
    for (int i = 0; bytes.size() < 20 * 1024 * 1024; ++i)
        bytes += QByteArray::number(i) + "=Item number " + QByteArray::number(i) + "\r\n";
    bytes += "ENDCOMBOITEMS\r\nENDFIELD\r\nADD FIELD Last\r\nTYPE=TEXT\r\nEND FIELD\r\n";

    GridHost host;
    MessageRecorder messages;
    ErrorRecorder errors;
    QElapsedTimer timer;
    timer.start();
    host.grid->LoadDefFile(write(QStringLiteral("large.kwdef"), bytes));
    qInfo("20 MB definition loaded in %lld ms", timer.elapsed());

    QCOMPARE(errors.errors.size(), 0);
    QCOMPARE(fieldNames(host.grid), QStringList({ "Name", "Level", "Big", "Items", "Last" }));
    QCOMPARE(
        textOf(host.grid->Fields()->Item(QStringLiteral("Big"))->Value()).size(), 4 * 1024 * 1024);
    QVERIFY(host.grid->Fields()->Item(QStringLiteral("Items"))->DropDownValues()->Count() > 100000);
}

void tst_DefinitionFile::theShowcaseUsesEveryTypeAndKey()
{
    QFile file(examplesSourceFolder() + QStringLiteral("/showcase.kwdef"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
    QVERIFY(bytes.startsWith(Header + "\r\n"));
    QCOMPARE(bytes.count("\n"), bytes.count("\r\n"));

    const QString text = QString::fromUtf8(bytes);
    const QStringList lines = text.split(QStringLiteral("\r\n"));
    auto uses = [&lines](const QString &start) {
        for (const QString &line : lines) {
            if (line.startsWith(start))
                return true;
        }
        return false;
    };
    const QStringList keys = { "FIELDNAMEWIDTH=", "ROWHEIGHT=", "ADDFIELD ", "ADD FIELD ",
        "ENDFIELD", "END FIELD", "ADDCOMBOITEMS", "ENDCOMBOITEMS", "END COMBOITEMS",
        "TYPE=", "VALUE=", "SIZE=", "MIN=", "MAX=", "ENABLED=", "TITLE=", "INITDIR=", "FILTER=",
        "DB=", "TABLE=", "LISTFIELD=", "VALUEFIELD=", "SORTED=", "SIMPLE=" };
    for (const QString &key : keys)
        QVERIFY2(uses(key), qPrintable(key));
    for (const QString &type : fieldTypeNames().split(QLatin1Char(',')))
        QVERIFY2(uses(QStringLiteral("TYPE=") + type), qPrintable(type));
}

void tst_DefinitionFile::theShowcaseLoadsWithItsDatabase()
{
    const QString path = examplesBuildFolder() + QStringLiteral("/showcase.kwdef");
    if (!QFile::exists(examplesBuildFolder() + QStringLiteral("/data/lists.db")))
        QSKIP("The example database was not built (sqlite3 missing)");

    GridHost host;
    MessageRecorder messages;
    ErrorRecorder errors;
    host.grid->LoadDefFile(path);
    QCOMPARE(messages.prompts(), QStringList());
    QCOMPARE(errors.errors.size(), 0);
    QCOMPARE(host.grid->FieldNameWidth(), 1900.0f);
    QCOMPARE(host.grid->RowHeight(), 330.0f);

    QSet<qint32> types;
    for (Field *field : *host.grid->Fields())
        types.insert(field->FieldType());
    QCOMPARE(types.size(), 9);

    Field *colour = host.grid->Fields()->Item(QStringLiteral("Colour"));
    QCOMPARE(listTexts(colour).size(), 6);
    QCOMPARE(colour->ValueComboBox()->ComboControl()->Text(), QStringLiteral("Green"));
    Field *level = host.grid->Fields()->Item(QStringLiteral("Log level"));
    QCOMPARE(level->ValueComboBox()->ComboControl()->Text(), QStringLiteral("Warnings"));
    QCOMPARE(host.grid->Fields()->Item(QStringLiteral("Country"))->DropDownValues()->Count(), 8);
    QCOMPARE(host.grid->Fields()->Item(QStringLiteral("Log file"))->Title(),
        QStringLiteral("CHOOSE A LOG FILE"));
    QVERIFY(!host.grid->Fields()->Item(QStringLiteral("Licence"))->Enabled());
}

QTEST_MAIN(tst_DefinitionFile)
#include "tst_DefinitionFile.moc"
