#include "DefinitionFile.h"
#include "FieldValueText.h"
#include "FormMessages.h"

#include "DefinitionFiles.h"

#include "fieldmodel/DropDownValues.h"
#include "fieldmodel/Field.h"
#include "fieldmodel/Fields.h"
#include "grid/kwPropertyControl.h"

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QtTest>

using namespace kwFieldDeck;
using namespace kwFieldDeck::test;

class tst_DefinitionFile : public QObject
{
    Q_OBJECT
private slots:
    void filesThatCannotBeLoadedSayWhy_data();
    void filesThatCannotBeLoadedSayWhy();
    void lfAndCrLfFilesGiveTheSameFields();
    void messagesAboutAConvertedFileNameTheUsersFile();
    void relativeDatabasePathsAreReadFromTheFilesFolder();

private:
    QTemporaryDir m_folder;
};

void tst_DefinitionFile::filesThatCannotBeLoadedSayWhy_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("problem");
    QTest::newRow("missing") << "missing.kwdef" << QByteArray() << "does not exist";
    QTest::newRow("folder") << "." << QByteArray() << "folder";
    QTest::newRow("no header") << "noheader.kwdef"
                               << withCrLf("ADDFIELD Name\nTYPE=TEXT\nENDFIELD\n")
                               << "\"Property Control Definition File\"";
    QTest::newRow("header with a trailing blank")
        << "blank.kwdef"
        << withCrLf("Property Control Definition File \nADDFIELD A\nTYPE=TEXT\n"
                    "ENDFIELD\n")
        << "\"Property Control Definition File\"";
    QTest::newRow("header only") << "empty.kwdef" << withCrLf("Property Control Definition File\n")
                                 << "defines no field";
    QTest::newRow("no complete block") << "open.kwdef"
                                       << QByteArray("Property Control Definition File\n"
                                                     "ADDFIELD A\nTYPE=TEXT\n")
                                       << "defines no field";
}

void tst_DefinitionFile::filesThatCannotBeLoadedSayWhy()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, bytes);
    QFETCH(QString, problem);
    if (!bytes.isEmpty())
        QVERIFY(!writeFile(m_folder.path(), name, bytes).isEmpty());
    kwPropertyControl grid;
    FormMessages messages(true);
    const QString why = loadDefinitionFile(grid, QDir(m_folder.path()).filePath(name), messages);
    QVERIFY2(why.contains(problem), qPrintable(why));
    QCOMPARE(grid.Fields()->Count(), 0);
}

void tst_DefinitionFile::lfAndCrLfFilesGiveTheSameFields()
{
    const QString lf = writeFile(m_folder.path(), "lf.kwdef", threeFieldDefinition());
    const QString crlf = writeFile(m_folder.path(), "crlf.kwdef", withCrLf(threeFieldDefinition()));
    kwPropertyControl fromLf, fromCrLf;
    FormMessages messages(true);
    QCOMPARE(loadDefinitionFile(fromLf, lf, messages), QString());
    QCOMPARE(loadDefinitionFile(fromCrLf, crlf, messages), QString());
    QCOMPARE(valueLines(*fromLf.Fields()), QStringList({ "Name=Ada", "Notes=first", "Size=12" }));
    QCOMPARE(valueLines(*fromLf.Fields()), valueLines(*fromCrLf.Fields()));
    QVERIFY(messages.messages().isEmpty());
    // The file itself is left as it was.
    QFile file(lf);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), threeFieldDefinition());
}

void tst_DefinitionFile::messagesAboutAConvertedFileNameTheUsersFile()
{
    const QString path = writeFile(m_folder.path(), "lfnoheader.kwdef", "ADDFIELD A\nTYPE=TEXT\n");
    kwPropertyControl grid;
    FormMessages messages(true);
    QVERIFY(!loadDefinitionFile(grid, path, messages).isEmpty());
    QCOMPARE(messages.messages().size(), 1);
    QVERIFY2(messages.messages().first().endsWith(QFileInfo(path).absoluteFilePath()),
        qPrintable(messages.messages().first()));
}

void tst_DefinitionFile::relativeDatabasePathsAreReadFromTheFilesFolder()
{
    QDir folder(m_folder.path());
    QVERIFY(folder.mkpath("defs/data"));
    {
        QSqlDatabase db = QSqlDatabase::addDatabase("QSQLITE", "colours");
        db.setDatabaseName(folder.filePath("defs/data/colours.sqlite"));
        QVERIFY(db.open());
        QSqlQuery query(db);
        QVERIFY(query.exec("CREATE TABLE Colours (Code INTEGER, Name TEXT)"));
        QVERIFY(query.exec("INSERT INTO Colours VALUES (1, 'Red'), (2, 'Green')"));
        db.close();
    }
    QSqlDatabase::removeDatabase("colours");
    const QString path = writeFile(folder.filePath("defs"), "combo.kwdef",
        "Property Control Definition File\nADDFIELD Colour\nTYPE=COMBO\nDB=data/colours.sqlite\n"
        "TABLE=Colours\nLISTFIELD=Name\nVALUEFIELD=Code\nVALUE=2\nENDFIELD\n");

    // Run from elsewhere: the database is found beside the definition, not in the current folder.
    const QString before = QDir::currentPath();
    QDir::setCurrent(QDir::tempPath());
    kwPropertyControl grid;
    FormMessages messages(true);
    const QString why = loadDefinitionFile(grid, path, messages);
    const QString after = QDir::currentPath();
    QDir::setCurrent(before);

    QCOMPARE(why, QString());
    QVERIFY2(messages.messages().isEmpty(), qPrintable(messages.messages().join('|')));
    QCOMPARE(QDir(after).canonicalPath(), QDir(QDir::tempPath()).canonicalPath());
    DropDownValues *items = grid.Fields()->Item("Colour")->DropDownValues();
    QCOMPARE(items->Count(), 2);
    QCOMPARE(valueLines(*grid.Fields()), QStringList { "Colour=2" });
}

QTEST_MAIN(tst_DefinitionFile)
#include "tst_DefinitionFile.moc"
