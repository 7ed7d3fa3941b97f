#include "GridHost.h"

#include "platform/FolderConditions.h"
#include "platform/SettingsStore.h"
#include "platform/Values.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

using namespace kwFieldDeck;
using kwFieldDeck::test::ErrorRecorder;
using kwFieldDeck::test::GridHost;
using kwFieldDeck::test::MessageRecorder;

namespace {

const QString App = QStringLiteral("Storage Test");
const QString Section = QStringLiteral("Grid");
const QString Setting = QStringLiteral("Values");

QString stored()
{
    return SettingsStore::GetSetting(App, Section, Setting, QStringLiteral("<none>"));
}

QByteArray contentsOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

class tst_SettingsStorage : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void valuesAreStoredOneLinePerField();
    void anEmptyGridStoresTheEmptyText();
    void valuesRoundTrip_data();
    void valuesRoundTrip();
    void eachFieldTakesTheValueByItsType();
    void onlyTheFirstEqualsSeparates();
    void aLineForARemovedFieldIsSkipped();
    void fieldsTheStoreDoesNotMentionKeepTheirValues();
    void blankArgumentsAreRefused_data();
    void blankArgumentsAreRefused();
    void argumentsAreTrimmedOfBlanks();
    void aValueWithoutTextFormStoresNothing();
    void aStoreThatCannotBeWrittenKeepsTheEarlierValues_data();
    void aStoreThatCannotBeWrittenKeepsTheEarlierValues();
    void anUnreadableStoreChangesNothing();

private:
    std::unique_ptr<QTemporaryDir> m_config;
};

void tst_SettingsStorage::init()
{
    m_config = std::make_unique<QTemporaryDir>();
    QVERIFY(m_config->isValid());
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(m_config->path()));
}

void tst_SettingsStorage::valuesAreStoredOneLinePerField()
{
    GridHost host;
    host.add(QStringLiteral("Name"), ftText, QStringLiteral("Ada"));
    host.add(QStringLiteral("Notes"), ftMemo, QStringLiteral("a\r\nb\r\n"));
    host.add(QStringLiteral("Formula"), ftText, QStringLiteral("x=y"));
    host.add(QStringLiteral("Lone"), ftText, QStringLiteral("c\rd\ne %CRLF%"));
    host.grid->SaveValuesToRegistry(App, Section, Setting);
    QCOMPARE(stored(),
        QStringLiteral("Name=Ada\r\nNotes=a%CRLF%b%CRLF%\r\nFormula=x=y\r\n"
                       "Lone=c\rd\ne %CRLF%"));
}

void tst_SettingsStorage::anEmptyGridStoresTheEmptyText()
{
    GridHost host;
    SettingsStore::SaveSetting(App, Section, Setting, QStringLiteral("Earlier=1"));
    host.grid->SaveValuesToRegistry(App, Section, Setting);
    QCOMPARE(stored(), QString());

    ErrorRecorder errors;
    host.grid->GetValuesFromRegistry(App, Section, Setting);
    QCOMPARE(errors.errors.size(), 0);
}

void tst_SettingsStorage::valuesRoundTrip_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("restored");

    QTest::newRow("memo with CR LF") << int(ftMemo) << "a\r\nb"
                                     << "a\r\nb";
    QTest::newRow("equals signs") << int(ftText) << "x=y=z"
                                  << "x=y=z";
    QTest::newRow("non-ASCII") << int(ftText) << "Grüße, 日本語 🎉"
                               << "Grüße, 日本語 🎉";
    QTest::newRow("lone CR and LF") << int(ftMemo) << "a\rb\nc"
                                    << "a\rb\nc";
    QTest::newRow("blanks kept") << int(ftText) << "  padded  "
                                 << "  padded  ";
    QTest::newRow("empty") << int(ftText) << ""
                           << "";
    // The marker itself is written unchanged, so it comes back as a line break, as intended.
    QTest::newRow("the marker text") << int(ftMemo) << "50%CRLF%"
                                     << "50\r\n";
}

void tst_SettingsStorage::valuesRoundTrip()
{
    QFETCH(int, type);
    QFETCH(QString, value);
    QFETCH(QString, restored);

    {
        GridHost host;
        host.add(QStringLiteral("Before"), ftText, QStringLiteral("b"));
        host.add(QStringLiteral("Field"), lFieldTypes(type), value);
        host.add(QStringLiteral("After"), ftText, QStringLiteral("a"));
        host.grid->SaveValuesToRegistry(App, Section, Setting);
    }
    GridHost host;
    Field *before = host.add(QStringLiteral("Before"), ftText, QStringLiteral("other"));
    Field *field = host.add(QStringLiteral("field"), lFieldTypes(type), QStringLiteral("other"));
    Field *after = host.add(QStringLiteral("After"), ftText, QStringLiteral("other"));
    ErrorRecorder errors;
    host.grid->GetValuesFromRegistry(App, Section, Setting);
    QCOMPARE(errors.errors.size(), 0);
    QCOMPARE(textOf(field->Value()), restored);
    QCOMPARE(textOf(before->Value()), QStringLiteral("b"));
    QCOMPARE(textOf(after->Value()), QStringLiteral("a"));
}

void tst_SettingsStorage::eachFieldTakesTheValueByItsType()
{
    const QString definition = QStringLiteral(
        "ADDFIELD Check\r\nTYPE=CHECKBOX\r\nENDFIELD\r\n"
        "ADDFIELD Level\r\nTYPE=SLIDER\r\nMIN=0\r\nMAX=10\r\nENDFIELD\r\n"
        "ADDFIELD When\r\nTYPE=DATE\r\nENDFIELD\r\n"
        "ADDFIELD Size\r\nTYPE=COMBO\r\nADDCOMBOITEMS\r\n1=Small\r\n2=Large\r\nENDCOMBOITEMS\r\n"
        "ENDFIELD\r\n");
    {
        GridHost host;
        host.grid->ReadDef(definition);
        host.grid->Fields()->Item(QStringLiteral("Check"))->setValue(QStringLiteral("TRUE"));
        host.grid->Fields()->Item(QStringLiteral("Level"))->setValue(int32Value(7));
        host.grid->Fields()->Item(QStringLiteral("When"))->setValue(QDate(2024, 2, 29));
        host.grid->Fields()->Item(QStringLiteral("Size"))->setValue(QStringLiteral("2"));
        host.grid->SaveValuesToRegistry(App, Section, Setting);
    }
    QCOMPARE(stored(), QStringLiteral("Check=1\r\nLevel=7\r\nWhen=2024-02-29\r\nSize=2"));

    GridHost host;
    host.grid->ReadDef(definition);
    ErrorRecorder errors;
    host.grid->GetValuesFromRegistry(App, Section, Setting);
    QCOMPARE(errors.errors.size(), 0);
    Fields *fields = host.grid->Fields();
    QCOMPARE(textOf(fields->Item(QStringLiteral("Check"))->Value()), QStringLiteral("1"));
    QCOMPARE(textOf(fields->Item(QStringLiteral("Level"))->Value()), QStringLiteral("7"));
    QCOMPARE(toDate(fields->Item(QStringLiteral("When"))->Value()), QDate(2024, 2, 29));
    QCOMPARE(textOf(fields->Item(QStringLiteral("Size"))->Value()), QStringLiteral("2"));
}

void tst_SettingsStorage::onlyTheFirstEqualsSeparates()
{
    SettingsStore::SaveSetting(
        App, Section, Setting, QStringLiteral("Name=x=y\r\nBare\r\nEmpty=\r\n=orphan"));
    GridHost host;
    Field *name = host.add(QStringLiteral("Name"));
    Field *bare = host.add(QStringLiteral("Bare"));
    Field *empty = host.add(QStringLiteral("Empty"), ftText, QStringLiteral("full"));
    MessageRecorder messages;
    host.grid->GetValuesFromRegistry(App, Section, Setting);
    QCOMPARE(textOf(name->Value()), QStringLiteral("x=y"));
    // A line without "=" is the name and the value at once, as intended.
    QCOMPARE(textOf(bare->Value()), QStringLiteral("Bare"));
    QCOMPARE(textOf(empty->Value()), QString());
    QVERIFY(messages.messages.isEmpty());
}

void tst_SettingsStorage::aLineForARemovedFieldIsSkipped()
{
    GridHost host;
    Field *first = host.add(QStringLiteral("First"), ftText, QStringLiteral("1"));
    host.add(QStringLiteral("Gone"), ftText, QStringLiteral("2"));
    Field *last = host.add(QStringLiteral("Last"), ftText, QStringLiteral("3"));
    host.grid->SaveValuesToRegistry(App, Section, Setting);
    host.grid->Fields()->Remove(QStringLiteral("Gone"));
    first->setValue(QStringLiteral("changed"));
    last->setValue(QStringLiteral("changed"));

    ErrorRecorder errors;
    host.grid->GetValuesFromRegistry(App, Section, Setting);
    QCOMPARE(textOf(first->Value()), QStringLiteral("1"));
    QCOMPARE(textOf(last->Value()), QStringLiteral("3"));
    // The lookup of the unknown name reports its miss; the restoring itself goes on.
    QCOMPARE(errors.errors.size(), 1);
    QCOMPARE(errors.errors[0].source, QStringLiteral("Property 'Item' of Class Module 'Fields'"));
}

void tst_SettingsStorage::fieldsTheStoreDoesNotMentionKeepTheirValues()
{
    SettingsStore::SaveSetting(App, Section, Setting, QStringLiteral("B=new"));
    GridHost host;
    Field *a = host.add(QStringLiteral("A"), ftText, QStringLiteral("kept"));
    Field *b = host.add(QStringLiteral("b"), ftText, QStringLiteral("old"));
    host.grid->GetValuesFromRegistry(App, Section, Setting);
    QCOMPARE(textOf(a->Value()), QStringLiteral("kept"));
    QCOMPARE(textOf(b->Value()), QStringLiteral("new"));
}

void tst_SettingsStorage::blankArgumentsAreRefused_data()
{
    QTest::addColumn<QString>("app");
    QTest::addColumn<QString>("section");
    QTest::addColumn<QString>("setting");
    QTest::addColumn<QString>("message");

    QTest::newRow("no AppName") << ""
                                << "S"
                                << "K"
                                << "AppName is not optional!";
    QTest::newRow("AppName of blanks") << "   "
                                       << "S"
                                       << "K"
                                       << "AppName is not optional!";
    QTest::newRow("no Section") << "A"
                                << " "
                                << "K"
                                << "Section is not optional!";
    QTest::newRow("no Setting") << "A"
                                << "S"
                                << ""
                                << "Setting is not optional!";
    QTest::newRow("all blank: the first is named") << ""
                                                   << ""
                                                   << ""
                                                   << "AppName is not optional!";
    QTest::newRow("a tab is no blank") << "\t"
                                       << "S"
                                       << "K"
                                       << "";
}

void tst_SettingsStorage::blankArgumentsAreRefused()
{
    QFETCH(QString, app);
    QFETCH(QString, section);
    QFETCH(QString, setting);
    QFETCH(QString, message);

    GridHost host;
    Field *field = host.add(QStringLiteral("F"), ftText, QStringLiteral("value"));
    SettingsStore::SaveSetting(app.trimmed().isEmpty() ? QStringLiteral("x") : app, section,
        setting, QStringLiteral("F=stored"));
    const QStringList before
        = QDir(m_config->path() + QStringLiteral("/kwFieldDeck")).entryList(QDir::Files);

    MessageRecorder messages;
    ErrorRecorder errors;
    host.grid->SaveValuesToRegistry(app, section, setting);
    host.grid->GetValuesFromRegistry(app, section, setting);
    QCOMPARE(errors.errors.size(), 0);
    if (message.isEmpty()) {
        QCOMPARE(messages.messages.size(), 0);
        QCOMPARE(textOf(field->Value()), QStringLiteral("value"));
        return;
    }
    QCOMPARE(messages.prompts(), QStringList({ message, message }));
    for (const auto &shown : std::as_const(messages.messages)) {
        QCOMPARE(shown.title, QStringLiteral("kwPropertyControl"));
        QCOMPARE(shown.style, MsgBoxStyle::Critical | MsgBoxStyle::OKOnly);
    }
    QCOMPARE(textOf(field->Value()), QStringLiteral("value"));
    QCOMPARE(
        QDir(m_config->path() + QStringLiteral("/kwFieldDeck")).entryList(QDir::Files), before);
}

void tst_SettingsStorage::argumentsAreTrimmedOfBlanks()
{
    GridHost host;
    Field *field = host.add(QStringLiteral("F"), ftText, QStringLiteral("v"));
    host.grid->SaveValuesToRegistry(QStringLiteral("  ") + App + QStringLiteral(" "),
        QStringLiteral(" ") + Section, Setting + QStringLiteral(" "));
    QCOMPARE(stored(), QStringLiteral("F=v"));
    field->setValue(QStringLiteral("changed"));
    host.grid->GetValuesFromRegistry(App + QStringLiteral("  "), Section, Setting);
    QCOMPARE(textOf(field->Value()), QStringLiteral("v"));
}

void tst_SettingsStorage::aValueWithoutTextFormStoresNothing()
{
    SettingsStore::SaveSetting(App, Section, Setting, QStringLiteral("A=earlier"));
    GridHost host;
    host.add(QStringLiteral("A"), ftText, QStringLiteral("new"));
    Field *object = host.add(QStringLiteral("Object"));
    object->setValueObject(host.grid);

    ErrorRecorder errors;
    host.grid->SaveValuesToRegistry(App, Section, Setting);
    QCOMPARE(errors.errors.size(), 1);
    QCOMPARE(errors.errors[0].number, int(ErrTypeMismatch));
    QCOMPARE(errors.errors[0].source,
        QStringLiteral("Sub 'SaveValuesToRegistry' of User Control 'kwPropertyControl'"));
    QCOMPARE(stored(), QStringLiteral("A=earlier"));
}

void tst_SettingsStorage::aStoreThatCannotBeWrittenKeepsTheEarlierValues_data()
{
    QTest::addColumn<QString>("condition");
    QTest::newRow("read-only settings folder") << "read-only";
    QTest::newRow("the store is a directory") << "directory";
}

void tst_SettingsStorage::aStoreThatCannotBeWrittenKeepsTheEarlierValues()
{
    QFETCH(QString, condition);
    const QString path = SettingsStore::filePath(App);

    GridHost host;
    Field *field = host.add(QStringLiteral("Notes"), ftMemo, QStringLiteral("earlier\r\nvalue"));
    std::unique_ptr<test::ReadOnlyFolder> readOnly;
    if (condition == QLatin1String("read-only")) {
        host.grid->SaveValuesToRegistry(App, Section, Setting);
        SettingsStore::SaveSetting(App, QStringLiteral("Other"), Setting, QStringLiteral("kept"));
        readOnly = std::make_unique<test::ReadOnlyFolder>(QFileInfo(path).absolutePath());
        if (!readOnly->isEffective())
            QSKIP("This process can write to any folder and cannot mount one read-only");
    } else {
        QVERIFY(QDir().mkpath(path + QStringLiteral("/inside")));
    }
    const QByteArray before = contentsOf(path);

    field->setValue(QStringLiteral("new"));
    ErrorRecorder errors;
    MessageRecorder messages;
    host.grid->SaveValuesToRegistry(App, Section, Setting);
    QCOMPARE(messages.messages.size(), 0);
    QCOMPARE(errors.errors.size(), 1);
    QCOMPARE(errors.errors[0].number, 75);
    QCOMPARE(errors.errors[0].source,
        QStringLiteral("Sub 'SaveValuesToRegistry' of User Control 'kwPropertyControl'"));
    QCOMPARE(contentsOf(path), before);

    host.grid->GetValuesFromRegistry(App, Section, Setting);
    readOnly.reset();
    if (condition == QLatin1String("read-only")) {
        QCOMPARE(textOf(field->Value()), QStringLiteral("earlier\r\nvalue"));
        QCOMPARE(SettingsStore::GetSetting(App, QStringLiteral("Other"), Setting),
            QStringLiteral("kept"));
        QCOMPARE(stored(), QStringLiteral("Notes=earlier%CRLF%value"));
    } else {
        QCOMPARE(textOf(field->Value()), QStringLiteral("new"));
        QVERIFY(QFileInfo(path + QStringLiteral("/inside")).isDir());
    }
}

void tst_SettingsStorage::anUnreadableStoreChangesNothing()
{
    const QString path = SettingsStore::filePath(App);
    QVERIFY(QDir().mkpath(QFileInfo(path).absolutePath()));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(QByteArray("\x00\xff\xfe[=]\n=\r\n%CRLF%\x80", 16));
    file.close();

    GridHost host;
    Field *field = host.add(QStringLiteral("F"), ftText, QStringLiteral("kept"));
    ErrorRecorder errors;
    host.grid->GetValuesFromRegistry(App, Section, Setting);
    QCOMPARE(textOf(field->Value()), QStringLiteral("kept"));
    QCOMPARE(errors.errors.size(), 0);
}

QTEST_MAIN(tst_SettingsStorage)
#include "tst_SettingsStorage.moc"
