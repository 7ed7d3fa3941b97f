#include "GridHost.h"

#include "editors/kwComboField.h"
#include "fieldmodel/DropDownValue.h"
#include "fieldmodel/DropDownValues.h"
#include "platform/ComboBox.h"
#include "platform/Database.h"
#include "platform/Values.h"

#include <QDir>
#include <QRandomGenerator>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QtTest>

using namespace kwFieldDeck;
using kwFieldDeck::test::ErrorRecorder;
using kwFieldDeck::test::GridHost;
using kwFieldDeck::test::MessageRecorder;

// CleanDefString is private; an explicit instantiation may name it, which is how this test
// reaches it without widening the grid's interface.
using CleanDefStringMember = void (kwPropertyControl::*)(QString &);
CleanDefStringMember cleanDefStringMember();
template <CleanDefStringMember Member>
struct CleanDefStringAccess
{
    friend CleanDefStringMember cleanDefStringMember() { return Member; }
};
template struct CleanDefStringAccess<&kwPropertyControl::CleanDefString>;

namespace {

const QString CRLF = QStringLiteral("\r\n");
const QString TypeList
    = QStringLiteral("TEXT,NUMERIC,CHECKBOX,COMBO,DATE,SLIDER,FILESELECTOR,FOLDERSELECTOR,MEMO");

QString lines(const QStringList &rows)
{
    return rows.join(CRLF);
}

QStringList itemKeys(Field *field)
{
    QStringList keys;
    for (DropDownValue *value : *field->DropDownValues())
        keys << value->Key();
    return keys;
}

QStringList itemTexts(Field *field)
{
    QStringList texts;
    for (DropDownValue *value : *field->DropDownValues())
        texts << value->DisplayValue();
    return texts;
}

QStringList listTexts(Field *field)
{
    QStringList texts;
    ComboBox *list = field->ValueComboBox()->ComboControl();
    for (int i = 0; i < list->ListCount(); ++i)
        texts << list->List(i);
    return texts;
}

QStringList fieldNames(kwPropertyControl *grid)
{
    QStringList names;
    for (Field *field : *grid->Fields())
        names << field->Name();
    return names;
}

void createDatabase(const QString &path, const QStringList &statements)
{
    const QString name = QStringLiteral("tst_DefinitionReader.writer");
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), name);
        db.setDatabaseName(path);
        QVERIFY(db.open());
        QSqlQuery query(db);
        query.exec(QStringLiteral("PRAGMA synchronous = OFF"));
        for (const QString &sql : statements)
            QVERIFY2(query.exec(sql), qPrintable(query.lastError().text()));
    }
    QSqlDatabase::removeDatabase(name);
}

} // namespace

class tst_DefinitionReader : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void theWorkedExampleBuildsTwoFields();
    void addFieldByDefStringReturnsTheLastFieldAdded_data();
    void addFieldByDefStringReturnsTheLastFieldAdded();
    void keywordsIgnoreLetterCaseButNotBlanksBeforeTheEquals_data();
    void keywordsIgnoreLetterCaseButNotBlanksBeforeTheEquals();
    void aBlockWithoutTypeStaysOpenAndMergesIntoTheNext();
    void anInvalidTypeIsNamedAndTheBlockStaysOpen();
    void fileSelectorKeysArriveUpperCased();
    void theInitialFolderIsFoundWithoutRegardToCase();
    void keysForOtherTypesChangeNothing();
    void enabledIsFalseUnlessTrueOrOne_data();
    void enabledIsFalseUnlessTrueOrOne();
    void sliderAndDateLimits_data();
    void sliderAndDateLimits();
    void controlWideKeysApplyOnlyOutsideBlocks();
    void sizeIsRoundedHalvesToEven_data();
    void sizeIsRoundedHalvesToEven();
    void itemsWithoutKeysAreNumberedThroughTheCall();
    void keysInsideTheItemListStayKeys();
    void itemsCarryIntoTheNextCombo();
    void endFieldInsideTheItemListIsAlsoAnItem();
    void valueTakesTheSecondPieceOnly();
    void anUnfinishedBlockAddsNothing();
    void addFieldWithoutANameEndsTheReading();
    void aDuplicateNameIsRefusedAndReadingGoesOn();
    void cleanDefStringTidiesTheText_data();
    void cleanDefStringTidiesTheText();

    void comboFilledFromATable_data();
    void comboFilledFromATable();
    void comboTableMessagesCloseTheBlock_data();
    void comboTableMessagesCloseTheBlock();
    void aHostileTableNameNeverRunsOtherSql_data();
    void aHostileTableNameNeverRunsOtherSql();
    void randomDefinitionsNeverCrash();

private:
    QTemporaryDir m_dir;
    QString m_database;
};

void tst_DefinitionReader::initTestCase()
{
    QVERIFY(m_dir.isValid());
    QVERIFY(QDir(m_dir.path()).mkpath(QStringLiteral("Lists")));
    // Lower case on disk; the definition names it upper-cased.
    m_database = m_dir.filePath(QStringLiteral("Lists/colours.db"));
    createDatabase(m_database,
        { QStringLiteral("CREATE TABLE colours (code TEXT, name TEXT)"),
            QStringLiteral("INSERT INTO colours VALUES ('R', 'Red'), ('G', 'Green'), "
                           "('B', 'Blue')"),
            QStringLiteral("CREATE TABLE sizes (id INTEGER, label TEXT)"),
            QStringLiteral("INSERT INTO sizes VALUES (10, 'Small'), (20, 'Medium'), "
                           "(30, 'Large')"),
            QStringLiteral("CREATE TABLE empty (code TEXT, name TEXT)"),
            QStringLiteral("CREATE TABLE \"odd\"\"name; x\" (name TEXT)"),
            QStringLiteral("INSERT INTO \"odd\"\"name; x\" VALUES ('odd')") });
}

void tst_DefinitionReader::theWorkedExampleBuildsTwoFields()
{
    GridHost host;
    MessageRecorder messages;
    host.grid->ReadDef(lines({ "FIELDNAMEWIDTH=1800", "ADDFIELD Colour", "TYPE=combo", "VALUE=G",
        "ADDCOMBOITEMS", "R=Red", "G=Green", "ENDCOMBOITEMS", "ENDFIELD", "ADD FIELD Volume",
        "TYPE=SLIDER", "MIN=0", "MAX=11", "VALUE=5", "ENDFIELD" }));

    QVERIFY(messages.messages.isEmpty());
    QCOMPARE(host.grid->FieldNameWidth(), 1800.0f);
    QCOMPARE(fieldNames(host.grid), QStringList({ "Colour", "Volume" }));

    Field *colour = host.grid->Fields()->Item(QStringLiteral("Colour"));
    QCOMPARE(colour->FieldType(), qint32(ftCombo));
    QCOMPARE(itemKeys(colour), QStringList({ "R", "G" }));
    QCOMPARE(itemTexts(colour), QStringList({ "Red", "Green" }));
    QCOMPARE(listTexts(colour), QStringList({ "Red", "Green" }));
    QVERIFY(colour->DropDownValues()->UseComboItemData());

    Field *volume = host.grid->Fields()->Item(QStringLiteral("Volume"));
    QCOMPARE(volume->FieldType(), qint32(ftSlider));
    QCOMPARE(kindOf(volume->Min()), ValueKind::Double);
    QCOMPARE(volume->Min().toDouble(), 0.0);
    QCOMPARE(volume->Max().toDouble(), 11.0);
    QCOMPARE(textOf(volume->Value()), QStringLiteral("5"));
}

void tst_DefinitionReader::addFieldByDefStringReturnsTheLastFieldAdded_data()
{
    QTest::addColumn<QString>("definition");
    QTest::addColumn<QString>("returned");

    QTest::newRow("worked example") << lines({ "FIELDNAMEWIDTH=1800", "ADDFIELD Colour",
        "TYPE=combo", "VALUE=G", "ADDCOMBOITEMS", "R=Red", "G=Green", "ENDCOMBOITEMS", "ENDFIELD",
        "ADD FIELD Volume", "TYPE=SLIDER", "MIN=0", "MAX=11", "VALUE=5", "ENDFIELD" })
                                    << "Volume";
    QTest::newRow("untidy text") << "  \r\n\r\n\tADDFIELD  Port \r\n\r\n\r\n TYPE=numeric\t\r\n"
                                    "ENDFIELD  \r\n\r\n"
                                 << "Port";
    QTest::newRow("no field") << "FIELDNAMEWIDTH=900"
                              << "";
    QTest::newRow("unfinished block") << lines({ "ADDFIELD A", "TYPE=TEXT" }) << "";
    QTest::newRow("empty") << ""
                           << "";
}

void tst_DefinitionReader::addFieldByDefStringReturnsTheLastFieldAdded()
{
    QFETCH(QString, definition);
    QFETCH(QString, returned);

    GridHost host;
    MessageRecorder messages;
    host.grid->AddFieldByDefString(lines({ "ADDFIELD Earlier", "TYPE=TEXT", "ENDFIELD" }));
    Field *field = host.grid->AddFieldByDefString(definition);
    QCOMPARE(field ? field->Name() : QString(), returned);
    if (field)
        QCOMPARE(host.grid->Fields()->Item(returned), field);
}

void tst_DefinitionReader::keywordsIgnoreLetterCaseButNotBlanksBeforeTheEquals_data()
{
    QTest::addColumn<QString>("definition");
    QTest::addColumn<QStringList>("fields");
    QTest::addColumn<QStringList>("prompts");

    QTest::newRow("lower case") << lines({ "addfield x", "Type=text", "endfield" })
                                << QStringList { "x" } << QStringList();
    QTest::newRow("mixed case, other forms")
        << lines({ "Add Field Mixed Case", "tYpE=Memo", "End Field" })
        << QStringList { "Mixed Case" } << QStringList();
    QTest::newRow("blank before the equals")
        << lines({ "ADDFIELD x", "TYPE = TEXT", "ENDFIELD" }) << QStringList()
        << QStringList { "No FieldName or Type Defined!" };
    QTest::newRow("tabs removed after trimming")
        << " ADDFIELD Tabbed\t\r\n\tTYPE=\tTEXT\t \r\nEND\tFIELD" << QStringList { "Tabbed" }
        << QStringList();
    QTest::newRow("a tab before a blank leaves the blank")
        << "\t ADDFIELD x\r\nTYPE=TEXT\r\nENDFIELD" << QStringList() << QStringList();
    QTest::newRow("lines of LF only are one line")
        << "ADDFIELD x\nTYPE=TEXT\nENDFIELD" << QStringList() << QStringList();
}

void tst_DefinitionReader::keywordsIgnoreLetterCaseButNotBlanksBeforeTheEquals()
{
    QFETCH(QString, definition);
    QFETCH(QStringList, fields);
    QFETCH(QStringList, prompts);

    GridHost host;
    MessageRecorder messages;
    host.grid->ReadDef(definition);
    QCOMPARE(fieldNames(host.grid), fields);
    QCOMPARE(messages.prompts(), prompts);
}

void tst_DefinitionReader::aBlockWithoutTypeStaysOpenAndMergesIntoTheNext()
{
    GridHost host;
    MessageRecorder messages;
    host.grid->ReadDef(lines({ "ADDFIELD First", "VALUE=one", "ENDFIELD", "ADDFIELD Second",
        "TYPE=TEXT", "ENDFIELD", "ADDFIELD Third", "TYPE=TEXT", "ENDFIELD" }));

    QCOMPARE(messages.messages.size(), 1);
    QCOMPARE(messages.messages[0].prompt, QStringLiteral("No FieldName or Type Defined!"));
    QCOMPARE(messages.messages[0].style, MsgBoxStyle::Critical | MsgBoxStyle::OKOnly);
    QCOMPARE(messages.messages[0].title, QStringLiteral("kwPropertyControl"));
    // "ADDFIELD Second" was read inside the open block and ignored there.
    QCOMPARE(fieldNames(host.grid), QStringList({ "First", "Third" }));
    QCOMPARE(
        textOf(host.grid->Fields()->Item(QStringLiteral("First"))->Value()), QStringLiteral("one"));
}

void tst_DefinitionReader::anInvalidTypeIsNamedAndTheBlockStaysOpen()
{
    GridHost host;
    MessageRecorder messages;
    host.grid->ReadDef(
        lines({ "ADDFIELD Go", "TYPE=Button", "ENDFIELD", "TYPE=CHECKBOX", "ENDFIELD" }));

    QCOMPARE(messages.messages.size(), 1);
    QCOMPARE(messages.messages[0].prompt,
        QStringLiteral("FldType: BUTTON Not Valid \r\n\r\nMust be ") + TypeList);
    QCOMPARE(messages.messages[0].title, QStringLiteral("Invalid Field Type"));
    QCOMPARE(messages.messages[0].style, MsgBoxStyle::Critical | MsgBoxStyle::OKOnly);
    QCOMPARE(fieldNames(host.grid), QStringList { "Go" });
    QCOMPARE(host.grid->Fields()->Item(QStringLiteral("Go"))->FieldType(), qint32(ftCheckBox));
}

void tst_DefinitionReader::fileSelectorKeysArriveUpperCased()
{
    GridHost host;
    MessageRecorder messages;
    host.grid->ReadDef(
        lines({ "ADDFIELD Log", "TYPE=FileSelector", "TITLE=My Files", "FILTER=Logs (*.log)|*.log",
            "INITDIR=/no/such/Folder", "VALUE=/tmp/Mixed.log", "ENDFIELD" }));
    Field *field = host.grid->Fields()->Item(QStringLiteral("Log"));
    QCOMPARE(field->Title(), QStringLiteral("MY FILES"));
    QCOMPARE(field->Filter(), QStringLiteral("LOGS (*.LOG)|*.LOG"));
    QCOMPARE(field->InitDir(), QStringLiteral("/NO/SUCH/FOLDER"));
    QCOMPARE(textOf(field->Value()), QStringLiteral("/tmp/Mixed.log"));
}

void tst_DefinitionReader::theInitialFolderIsFoundWithoutRegardToCase()
{
    const QString folder = m_dir.filePath(QStringLiteral("Start Here"));
    QVERIFY(QDir().mkpath(folder));
    GridHost host;
    MessageRecorder messages;
    host.grid->ReadDef(
        lines({ "ADDFIELD Log", "TYPE=FILESELECTOR", "INITDIR=" + folder.toLower(), "ENDFIELD" }));
    QCOMPARE(host.grid->Fields()->Item(QStringLiteral("Log"))->InitDir(), folder);
}

void tst_DefinitionReader::keysForOtherTypesChangeNothing()
{
    GridHost host;
    MessageRecorder messages;
    host.grid->ReadDef(lines({ "ADDFIELD Plain", "TYPE=TEXT", "TITLE=Title", "INITDIR=/tmp",
        "FILTER=*.x", "MIN=3", "MAX=4", "SIMPLE=YES", "ENDFIELD", "ADDFIELD Count", "TYPE=NUMERIC",
        "MIN=1", "MAX=9", "ENDFIELD" }));
    Field *plain = host.grid->Fields()->Item(QStringLiteral("Plain"));
    Field *fresh = host.add(QStringLiteral("Fresh"));
    QCOMPARE(plain->Title(), fresh->Title());
    QCOMPARE(plain->InitDir(), fresh->InitDir());
    QCOMPARE(plain->Filter(), fresh->Filter());
    QCOMPARE(plain->Min(), fresh->Min());
    QCOMPARE(host.grid->Fields()->Item(QStringLiteral("Count"))->Max(), fresh->Max());
    QVERIFY(messages.messages.isEmpty());
}

void tst_DefinitionReader::enabledIsFalseUnlessTrueOrOne_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<bool>("enabled");

    QTest::newRow("absent") << "" << true;
    QTest::newRow("empty") << "ENABLED=" << true;
    QTest::newRow("TRUE") << "ENABLED=TRUE" << true;
    QTest::newRow("true") << "Enabled=true" << true;
    QTest::newRow("1") << "ENABLED=1" << true;
    QTest::newRow("0") << "ENABLED=0" << false;
    QTest::newRow("False") << "ENABLED=False" << false;
    QTest::newRow("yes") << "ENABLED=yes" << false;
    QTest::newRow("-1") << "ENABLED=-1" << false;
}

void tst_DefinitionReader::enabledIsFalseUnlessTrueOrOne()
{
    QFETCH(QString, line);
    QFETCH(bool, enabled);
    GridHost host;
    host.grid->ReadDef(lines({ "ADDFIELD F", "TYPE=TEXT", line, "ENDFIELD" }));
    QCOMPARE(host.grid->Fields()->Item(QStringLiteral("F"))->Enabled(), enabled);
}

void tst_DefinitionReader::sliderAndDateLimits_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QStringList>("keys");
    QTest::addColumn<QVariant>("min");
    QTest::addColumn<QVariant>("max");

    QTest::newRow("slider without limits")
        << "SLIDER" << QStringList() << QVariant(0.0) << QVariant(0.0);
    QTest::newRow("slider with leading numbers")
        << "SLIDER" << QStringList { "MIN=-5.5x", "MAX=abc" } << QVariant(-5.5) << QVariant(0.0);
    QTest::newRow("dates") << "DATE" << QStringList { "MIN=2024-03-01", "MAX=12/31/2025" }
                           << QVariant(QDate(2024, 3, 1)) << QVariant(QDate(2025, 12, 31));
    QTest::newRow("month names upper-cased") << "DATE" << QStringList { "MIN=1 March 2024" }
                                             << QVariant(QDate(2024, 3, 1)) << QVariant();
    QTest::newRow("no date is skipped")
        << "DATE" << QStringList { "MIN=soon", "MAX=" } << QVariant() << QVariant();
}

void tst_DefinitionReader::sliderAndDateLimits()
{
    QFETCH(QString, type);
    QFETCH(QStringList, keys);
    QFETCH(QVariant, min);
    QFETCH(QVariant, max);

    GridHost host;
    MessageRecorder messages;
    host.grid->ReadDef(
        lines(QStringList { "ADDFIELD F", "TYPE=" + type } + keys + QStringList { "ENDFIELD" }));
    Field *field = host.grid->Fields()->Item(QStringLiteral("F"));
    QVERIFY(field);
    Field *fresh = host.add(QStringLiteral("Fresh"), lFieldTypes(field->FieldType()));
    QCOMPARE(field->Min(), min.isValid() ? min : fresh->Min());
    QCOMPARE(field->Max(), max.isValid() ? max : fresh->Max());
}

void tst_DefinitionReader::controlWideKeysApplyOnlyOutsideBlocks()
{
    GridHost host;
    const float width = host.grid->FieldNameWidth();
    host.grid->ReadDef(lines({ "ROWHEIGHT=400.5", "ADDFIELD F", "TYPE=TEXT", "FIELDNAMEWIDTH=3000",
        "ROWHEIGHT=999", "ENDFIELD", "FieldNameWidth = 12.5cm" }));
    QCOMPARE(host.grid->RowHeight(), 400.5f);
    QCOMPARE(host.grid->FieldNameWidth(), width);

    ErrorRecorder errors;
    host.grid->ReadDef(QStringLiteral("FIELDNAMEWIDTH=") + QString(50, QLatin1Char('9')));
    QCOMPARE(errors.errors.size(), 1);
    QCOMPARE(errors.errors[0].number, int(ErrOverflow));
    QCOMPARE(host.grid->FieldNameWidth(), width);
}

void tst_DefinitionReader::sizeIsRoundedHalvesToEven_data()
{
    QTest::addColumn<QString>("size");
    QTest::addColumn<qint32>("expected");
    QTest::newRow("2.5") << "2.5" << 2;
    QTest::newRow("3.5") << "3.5" << 4;
    QTest::newRow("leading number") << "12px" << 12;
    QTest::newRow("none") << "wide" << 0;
}

void tst_DefinitionReader::sizeIsRoundedHalvesToEven()
{
    QFETCH(QString, size);
    QFETCH(qint32, expected);
    GridHost host;
    host.grid->ReadDef(lines({ "ADDFIELD F", "TYPE=TEXT", "SIZE=" + size, "ENDFIELD" }));
    QCOMPARE(host.grid->Fields()->Item(QStringLiteral("F"))->Size(), expected);
}

void tst_DefinitionReader::itemsWithoutKeysAreNumberedThroughTheCall()
{
    GridHost host;
    MessageRecorder messages;
    const QString two = lines({ "ADDFIELD A", "TYPE=COMBO", "ADDCOMBOITEMS", "Red", "Blue",
        "ENDCOMBOITEMS", "ENDFIELD", "ADDFIELD B", "TYPE=COMBO", "ADDCOMBOITEMS", "Big", "x=Keyed",
        "Small", "ENDCOMBOITEMS", "ENDFIELD" });
    host.grid->ReadDef(two);
    Field *a = host.grid->Fields()->Item(QStringLiteral("A"));
    Field *b = host.grid->Fields()->Item(QStringLiteral("B"));
    QCOMPARE(itemKeys(a), QStringList({ "1", "2" }));
    QCOMPARE(itemKeys(b), QStringList({ "3", "x", "4" }));
    QCOMPARE(itemTexts(b), QStringList({ "Big", "Keyed", "Small" }));
    QVERIFY(!a->ValueComboBox()->UseItemData());
    ComboBox *list = b->ValueComboBox()->ComboControl();
    QCOMPARE(list->ItemData(0), 3);
    QCOMPARE(list->ItemData(2), 4);

    host.grid->ReadDef(lines(
        { "ADDFIELD C", "TYPE=COMBO", "ADDCOMBOITEMS", "Again", "ENDCOMBOITEMS", "ENDFIELD" }));
    QCOMPARE(itemKeys(host.grid->Fields()->Item(QStringLiteral("C"))), QStringList { "1" });

    // Keyed entries only: the editor keeps reading item data.
    host.grid->ReadDef(lines({ "ADDFIELD D", "TYPE=COMBO", "VALUE=2", "ADDCOMBOITEMS", "1=One",
        "2=Two", "ENDCOMBOITEMS", "ENDFIELD" }));
    Field *d = host.grid->Fields()->Item(QStringLiteral("D"));
    QVERIFY(d->ValueComboBox()->UseItemData());
    QCOMPARE(textOf(d->Value()), QStringLiteral("2"));
    QCOMPARE(d->ValueComboBox()->ComboControl()->Text(), QStringLiteral("Two"));
}

void tst_DefinitionReader::keysInsideTheItemListStayKeys()
{
    GridHost host;
    MessageRecorder messages;
    host.grid->ReadDef(lines({ "ADDFIELD A", "TYPE=COMBO", "ADDCOMBOITEMS", "TITLE=x", "Red",
        "Min = Minimum", "value", "Key = Spaced = Text ", "ENDCOMBOITEMS", "ENDFIELD" }));
    Field *a = host.grid->Fields()->Item(QStringLiteral("A"));
    // "value" alone is the key VALUE with an empty value; the key before "=" keeps its blanks.
    QCOMPARE(itemTexts(a), QStringList({ "Red", "Minimum", "Spaced = Text" }));
    QCOMPARE(itemKeys(a), QStringList({ "1", "Min ", "Key " }));
}

void tst_DefinitionReader::itemsCarryIntoTheNextCombo()
{
    GridHost host;
    MessageRecorder messages;
    host.grid->ReadDef(lines(
        { "ADDFIELD T", "TYPE=TEXT", "ADDCOMBOITEMS", "Left", "Right", "ENDCOMBOITEMS", "ENDFIELD",
            "ADDFIELD C", "TYPE=COMBO", "ENDFIELD", "ADDFIELD D", "TYPE=COMBO", "ENDFIELD" }));
    QCOMPARE(itemTexts(host.grid->Fields()->Item(QStringLiteral("C"))),
        QStringList({ "Left", "Right" }));
    QCOMPARE(host.grid->Fields()->Item(QStringLiteral("D"))->DropDownValues()->Count(), 0);
}

void tst_DefinitionReader::endFieldInsideTheItemListIsAlsoAnItem()
{
    GridHost host;
    MessageRecorder messages;
    host.grid->ReadDef(lines({ "ADDFIELD A", "TYPE=COMBO", "ADDCOMBOITEMS", "Red", "ENDFIELD",
        "ADDFIELD B", "TYPE=TEXT", "Stray", "ENDFIELD", "ADDFIELD C", "TYPE=COMBO", "ENDFIELD" }));
    QCOMPARE(itemTexts(host.grid->Fields()->Item(QStringLiteral("A"))),
        QStringList({ "Red", "ENDFIELD" }));
    // The item list is still open: B's lines and C's own "ENDFIELD" reach C.
    QCOMPARE(itemTexts(host.grid->Fields()->Item(QStringLiteral("C"))),
        QStringList({ "Stray", "ENDFIELD", "ENDFIELD" }));
}

void tst_DefinitionReader::valueTakesTheSecondPieceOnly()
{
    GridHost host;
    host.grid->ReadDef(lines({ "ADDFIELD A", "TYPE=TEXT", "VALUE=  Keep Case=lost ", "ENDFIELD" }));
    QCOMPARE(textOf(host.grid->Fields()->Item(QStringLiteral("A"))->Value()),
        QStringLiteral("Keep Case"));
}

void tst_DefinitionReader::anUnfinishedBlockAddsNothing()
{
    GridHost host;
    MessageRecorder messages;
    host.grid->ReadDef(lines({ "ADDFIELD A", "TYPE=TEXT", "ENDFIELD", "ADDFIELD B", "TYPE=TEXT" }));
    QCOMPARE(fieldNames(host.grid), QStringList { "A" });
    QVERIFY(messages.messages.isEmpty());
}

void tst_DefinitionReader::addFieldWithoutANameEndsTheReading()
{
    GridHost host;
    ErrorRecorder errors;
    MessageRecorder messages;
    host.grid->ReadDef(lines({ "ADDFIELD A", "TYPE=TEXT", "ENDFIELD", "ADDFIELD", "TYPE=TEXT",
        "ENDFIELD", "ADDFIELD C", "TYPE=TEXT", "ENDFIELD" }));
    QCOMPARE(fieldNames(host.grid), QStringList { "A" });
    QCOMPARE(errors.errors.size(), 1);
    QCOMPARE(errors.errors[0].number, int(ErrInvalidCall));
    QCOMPARE(errors.errors[0].source,
        QStringLiteral("Sub 'ReadDef' of User Control 'kwPropertyControl'"));

    // "ADD FIELD" with nothing after it has an empty name instead.
    host.grid->ReadDef(lines({ "ADD FIELD", "TYPE=TEXT", "ENDFIELD" }));
    QCOMPARE(messages.prompts(), QStringList { "No FieldName or Type Defined!" });
}

void tst_DefinitionReader::aDuplicateNameIsRefusedAndReadingGoesOn()
{
    GridHost host;
    ErrorRecorder errors;
    MessageRecorder messages;
    Field *returned = host.grid->AddFieldByDefString(
        lines({ "ADDFIELD Port", "TYPE=TEXT", "ENDFIELD", "ADDFIELD port", "TYPE=TEXT", "ENDFIELD",
            "ADDFIELD Next", "TYPE=TEXT", "ENDFIELD", "ADDFIELD next", "TYPE=SLIDER", "ENDFIELD",
            "ADDFIELD Never", "TYPE=TEXT", "ENDFIELD" }));
    QCOMPARE(messages.prompts(),
        QStringList({ "Field: port already exists in Fields Collection!",
            "Field: next already exists in Fields Collection!" }));
    // The refused slider has no field to take its limits: that ends the reading.
    QCOMPARE(fieldNames(host.grid), QStringList({ "Port", "Next" }));
    QCOMPARE(errors.errors.size(), 1);
    QCOMPARE(errors.errors[0].number, int(ErrObjectRequired));
    QCOMPARE(errors.errors[0].source,
        QStringLiteral("Sub 'ReadDef' of User Control 'kwPropertyControl'"));
    QCOMPARE(returned, nullptr);
}

void tst_DefinitionReader::cleanDefStringTidiesTheText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("cleaned");

    QTest::newRow("three breaks become two") << "  A\r\n\r\n\r\nB  "
                                             << "A\r\n\r\nB";
    QTest::newRow("two breaks become one") << "A\r\n\r\nB"
                                           << "A\r\nB";
    QTest::newRow("four breaks become two") << "A\r\n\r\n\r\n\r\nB"
                                            << "A\r\n\r\nB";
    QTest::newRow("breaks at the ends") << "\r\n\r\nA\r\nB\r\n\r\n"
                                        << "A\r\nB";
    QTest::newRow("lines trimmed, tabs removed") << " A \t\r\n\t B\tC "
                                                 << "A\r\nBC";
    QTest::newRow("lone LF kept") << "A\nB"
                                  << "A\nB";
    QTest::newRow("blank lines") << "A\r\n   \r\nB"
                                 << "A\r\nB";
    QTest::newRow("only blanks") << "   "
                                 << "";
    QTest::newRow("only breaks") << "\r\n\r\n\r\n"
                                 << "";
    QTest::newRow("empty") << ""
                           << "";
}

void tst_DefinitionReader::cleanDefStringTidiesTheText()
{
    QFETCH(QString, text);
    QFETCH(QString, cleaned);
    GridHost host;
    (host.grid->*cleanDefStringMember())(text);
    QCOMPARE(text, cleaned);
}

void tst_DefinitionReader::comboFilledFromATable_data()
{
    QTest::addColumn<QStringList>("keys");
    QTest::addColumn<QStringList>("expectedKeys");
    QTest::addColumn<QStringList>("expectedTexts");
    QTest::addColumn<QString>("shown");

    const QStringList colours = { "Red", "Green", "Blue" };
    QTest::newRow("with VALUEFIELD")
        << QStringList { "TABLE=Colours", "LISTFIELD=name", "VALUEFIELD=code" }
        << QStringList { "R", "G", "B" } << colours << "";
    QTest::newRow("SORTED names the value field")
        << QStringList { "TABLE=colours", "LISTFIELD=NAME", "SORTED=Code" }
        << QStringList { "R", "G", "B" } << colours << "";
    QTest::newRow("without VALUEFIELD, keys continue the call's count")
        << QStringList { "TABLE=colours", "LISTFIELD=name", "SIMPLE=YES" }
        << QStringList { "3", "4", "5" } << colours << "";
    QTest::newRow("VALUE picks by the value field")
        << QStringList { "TABLE=sizes", "LISTFIELD=label", "VALUEFIELD=id", "VALUE=20" }
        << QStringList { "10", "20", "30" } << QStringList { "Small", "Medium", "Large" }
        << "Medium";
    QTest::newRow("an empty table")
        << QStringList { "TABLE=empty", "LISTFIELD=name" } << QStringList() << QStringList() << "";
}

void tst_DefinitionReader::comboFilledFromATable()
{
    QFETCH(QStringList, keys);
    QFETCH(QStringList, expectedKeys);
    QFETCH(QStringList, expectedTexts);
    QFETCH(QString, shown);

    GridHost host;
    MessageRecorder messages;
    ErrorRecorder errors;
    // Two keyless items first, so that the automatic keys of the table continue from 3. The
    // file is named upper-cased, as the reader hands it on; on disk it is lower case.
    const QStringList definition
        = QStringList { "ADDFIELD First", "TYPE=COMBO", "ADDCOMBOITEMS", "a", "b", "ENDCOMBOITEMS",
              "ENDFIELD", "ADDFIELD Colour", "TYPE=COMBO", "DB=" + m_database.toUpper() }
        + keys + QStringList { "ENDFIELD" };
    host.grid->ReadDef(lines(definition));

    QCOMPARE(messages.prompts(), QStringList());
    QCOMPARE(errors.errors.size(), 0);
    Field *colour = host.grid->Fields()->Item(QStringLiteral("Colour"));
    QCOMPARE(itemKeys(colour), expectedKeys);
    QCOMPARE(itemTexts(colour), expectedTexts);
    QCOMPARE(listTexts(colour), expectedTexts);
    if (!shown.isEmpty())
        QCOMPARE(colour->ValueComboBox()->ComboControl()->Text(), shown);
}

void tst_DefinitionReader::comboTableMessagesCloseTheBlock_data()
{
    QTest::addColumn<QStringList>("keys");
    QTest::addColumn<QString>("prompt");

    QTest::newRow("missing file") << QStringList {
        "DB=/no/where/lists.db", "TABLE=colours", "LISTFIELD=name"
    } << "Field:Colour\r\nCan't find Combo Database File:\r\nFile=/NO/WHERE/LISTS.DB";
    QTest::newRow("a folder is no file")
        << QStringList { "DB=" + QDir::tempPath(), "TABLE=colours", "LISTFIELD=name" }
        << "Field:Colour\r\nCan't find Combo Database File:\r\nFile=" + QDir::tempPath().toUpper();
    QTest::newRow("no table") << QStringList { "DB=%1", "LISTFIELD=name" }
                              << "Combo Table not defined for:Colour";
    QTest::newRow("no list field")
        << QStringList { "DB=%1", "TABLE=colours" } << "ListField not defined for:Colour";
}

void tst_DefinitionReader::comboTableMessagesCloseTheBlock()
{
    QFETCH(QStringList, keys);
    QFETCH(QString, prompt);

    keys.replaceInStrings(QStringLiteral("%1"), m_database);
    GridHost host;
    MessageRecorder messages;
    host.grid->ReadDef(lines(QStringList { "ADDFIELD Colour", "TYPE=COMBO", "VALUE=x" } + keys
        + QStringList { "ENDFIELD", "ADDFIELD After", "TYPE=TEXT", "ENDFIELD" }));
    QCOMPARE(messages.prompts(), QStringList { prompt });
    QCOMPARE(messages.messages[0].title, QStringLiteral("kwPropertyControl"));
    QCOMPARE(messages.messages[0].style, MsgBoxStyle::Critical | MsgBoxStyle::OKOnly);
    QCOMPARE(fieldNames(host.grid), QStringList({ "Colour", "After" }));
    QCOMPARE(host.grid->Fields()->Item(QStringLiteral("Colour"))->DropDownValues()->Count(), 0);
}

void tst_DefinitionReader::aHostileTableNameNeverRunsOtherSql_data()
{
    QTest::addColumn<QString>("table");
    QTest::addColumn<QStringList>("texts");

    QTest::newRow("existing odd name") << "odd\"name; x" << QStringList { "odd" };
    QTest::newRow("quote then statement") << "colours\"; DROP TABLE colours; --" << QStringList();
    QTest::newRow("semicolon then statement") << "colours; DELETE FROM colours" << QStringList();
}

void tst_DefinitionReader::aHostileTableNameNeverRunsOtherSql()
{
    QFETCH(QString, table);
    QFETCH(QStringList, texts);

    GridHost host;
    ErrorRecorder errors;
    MessageRecorder messages;
    host.grid->ReadDef(lines({ "ADDFIELD Odd", "TYPE=COMBO", "DB=" + m_database, "TABLE=" + table,
        "LISTFIELD=name", "ENDFIELD" }));
    QCOMPARE(itemTexts(host.grid->Fields()->Item(QStringLiteral("Odd"))), texts);
    QCOMPARE(errors.errors.size(), texts.isEmpty() ? 1 : 0);
    if (texts.isEmpty())
        QCOMPARE(errors.errors[0].number, int(ErrTableNotFound));

    auto db = OpenDatabase(m_database);
    auto colours = db->OpenRecordset(QStringLiteral("colours"));
    QCOMPARE(colours->RecordCount(), 3);
}

void tst_DefinitionReader::randomDefinitionsNeverCrash()
{
    const QStringList lineStarts = { "ADDFIELD F", "ADD FIELD G", "ENDFIELD", "END FIELD",
        "TYPE=", "VALUE=", "MIN=", "MAX=", "SIZE=", "ENABLED=", "TITLE=", "INITDIR=", "FILTER=",
        "DB=", "TABLE=", "LISTFIELD=", "VALUEFIELD=", "SORTED=", "SIMPLE=", "ADDCOMBOITEMS",
        "ENDCOMBOITEMS", "FIELDNAMEWIDTH=", "ROWHEIGHT=", "k=", "" };
    const QStringList values
        = { "COMBO", "SLIDER", "DATE", "TEXT", "FILESELECTOR", "MEMO", "CHECKBOX", "NUMERIC",
              "FOLDERSELECTOR", "BUTTON", "x", "1e9", "-2", "99999999999", "2024-02-30",
              "1 MAY 2020", "é", "=", QString(QChar(0)), "\"", ";", "\t", " ", "\n", "\r", "" };
    QRandomGenerator random(20240601);
    auto pick = [&random](const QStringList &list) {
        return list.at(int(random.bounded(qsizetype(list.size()))));
    };
    GridHost host;
    MessageRecorder messages;
    ErrorRecorder errors;
    for (int round = 0; round < 200; ++round) {
        QStringList definition;
        const int length = int(random.bounded(1, 40));
        for (int i = 0; i < length; ++i) {
            QString line = pick(lineStarts);
            if (line.endsWith(QLatin1Char('=')))
                line += pick(values);
            else if (line.startsWith(QLatin1String("ADD")) && line.contains(QLatin1Char(' ')))
                line += QStringLiteral("%1_%2").arg(round).arg(i);
            if (random.bounded(5) == 0)
                line += pick(values);
            definition << line;
        }
        if (round % 2)
            host.grid->ReadDef(definition.join(random.bounded(4) ? CRLF : pick(values)));
        else
            host.grid->AddFieldByDefString(definition.join(CRLF));
    }
    QVERIFY(host.grid->Fields()->Count() > 5);

    // The grid still reads a sound definition afterwards.
    Field *last
        = host.grid->AddFieldByDefString(lines({ "ADDFIELD Sound", "TYPE=TEXT", "ENDFIELD" }));
    QVERIFY(last);
    QCOMPARE(last->Name(), QStringLiteral("Sound"));
}

QTEST_MAIN(tst_DefinitionReader)
#include "tst_DefinitionReader.moc"
