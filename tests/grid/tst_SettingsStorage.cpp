// Field values kept in the settings store: SaveValuesToRegistry and GetValuesFromRegistry.

#include "GridHost.h"

#include "runtime/SettingsStore.h"
#include "runtime/Values.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

using namespace kwFieldDeck;
using namespace kwFieldDeck::test;

namespace {
const QString App = QStringLiteral("Storage Test");
const QString Section = QStringLiteral("Grid");
const QString Setting = QStringLiteral("Values");
} // namespace

class tst_SettingsStorage : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_config = std::make_unique<QTemporaryDir>();
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(m_config->path()));
    }

    void valuesRoundTrip_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QString>("value");
        QTest::addColumn<QString>("line");
        QTest::addColumn<QString>("restored");
        auto row = [](const char *name, lFieldTypes type, const QString &value, const QString &line,
                       const QString &restored) {
            QTest::newRow(name) << int(type) << value << line << restored;
        };
        row("memo with CR LF", ftMemo, "a\r\nb", "a%CRLF%b", "a\r\nb");
        row("lone CR and LF", ftMemo, "a\rb\nc", "a\rb\nc", "a\rb\nc");
        row("empty", ftText, "", "", "");
        row("check", ftCheckBox, "TRUE", "1", "1");
        // The marker itself is written unchanged, so it comes back as a line break (intended).
        row("the marker text", ftMemo, "50%CRLF%", "50%CRLF%", "50\r\n");
    }

    void valuesRoundTrip()
    {
        QFETCH(int, type);
        QFETCH(QString, value);
        QFETCH(QString, line);
        QFETCH(QString, restored);
        GridHost saving;
        saving.add("Gone", ftText, "g");
        saving.add("Field", lFieldTypes(type), value);
        saving.add("After", ftText, "a");
        saving.grid->SaveValuesToRegistry(App, Section, Setting);
        const QString stored = SettingsStore::GetSetting(App, Section, Setting);
        QCOMPARE(stored, "Gone=g\r\nField=" + line + "\r\nAfter=a");
        SettingsStore::SaveSetting(App, Section, Setting, stored + "\r\nBare");
        GridHost host;
        QList<Field *> fields
            = { host.add("Gone", ftText, "other"), host.add("field", lFieldTypes(type), "other"),
                  host.add("After", ftText, "other"), host.add("Bare") };
        host.grid->Fields()->Remove(QStringLiteral("Gone"));
        ErrorRecorder errors;
        MessageRecorder messages;
        host.grid->GetValuesFromRegistry(App, Section, Setting);
        QStringList values;
        for (Field *field : fields)
            values << textOf(field->Value());
        // A line without "=" is name and value at once (intended); a removed field keeps its own.
        QCOMPARE(values, QStringList({ "other", restored, "a", "Bare" }));
        // The lookup of the removed field reports its miss; the restoring itself goes on.
        QCOMPARE(errors.sources(), QStringList { "Property 'Item' of Class Module 'Fields'" });
        QCOMPARE(messages.messages.size(), 0);
    }

    // Blank arguments get a message each time; an unwritable store an error under the grid.
    void refusedSavesChangeNothing_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QStringList>("reported");
        auto row = [](const char *name, const QStringList &arguments, const char *argument) {
            const QString message
                = "kwPropertyControl: " + QLatin1String(argument) + " is not optional!";
            QTest::newRow(name) << arguments << QStringList { message, message };
        };
        row("no AppName", { "", "S", "K" }, "AppName");
        row("AppName of blanks", { "   ", "S", "K" }, "AppName");
        row("no Section", { "A", " ", "K" }, "Section");
        row("no Setting", { "A", "S", "" }, "Setting");
        QTest::newRow("store is a directory") << QStringList { App, Section,
            Setting } << QStringList { gridError(75, "SaveValuesToRegistry") };
    }

    void refusedSavesChangeNothing()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QStringList, reported);
        QVERIFY(QDir().mkpath(SettingsStore::filePath(App) + QStringLiteral("/inside")));
        GridHost host;
        Field *field = host.add("F", ftText, "value");
        const QDir store(m_config->path() + QStringLiteral("/kwFieldDeck"));
        const QStringList before = store.entryList(QDir::Files);
        MessageRecorder messages;
        ErrorRecorder errors;
        host.grid->SaveValuesToRegistry(arguments[0], arguments[1], arguments[2]);
        host.grid->GetValuesFromRegistry(arguments[0], arguments[1], arguments[2]);
        QCOMPARE(reports(messages, errors), reported);
        QCOMPARE(textOf(field->Value()), QStringLiteral("value"));
        QCOMPARE(store.entryList(QDir::Files), before);
    }

    void aDamagedStoreIsReadAndKeptWholeBesideTheNextSave_data()
    {
        QTest::addColumn<QByteArray>("damage");
        QTest::newRow("note line") << QByteArray("# my settings\n");
        QTest::newRow("line without =") << QByteArray("no equals sign\n");
        QTest::newRow("unclosed section") << QByteArray("[section\n");
        QTest::newRow("NUL byte") << QByteArray("\0\n", 2);
        QTest::newRow("100 KB line") << QByteArray(100 * 1024, 'x') + '\n';
    }

    void aDamagedStoreIsReadAndKeptWholeBesideTheNextSave()
    {
        QFETCH(QByteArray, damage);
        const QString path = SettingsStore::filePath(App);
        GridHost host;
        Field *field = host.add("Server", ftText, "first");
        host.grid->SaveValuesToRegistry(App, Section, Setting);
        SettingsStore::SaveSetting(App, QStringLiteral("Other"), Setting, QStringLiteral("kept"));
        // A second damage after the first save keeps both damaged files.
        for (const QString &aside : { path + ".damaged", path + ".damaged.1" }) {
            const QByteArray damaged = damage + readFile(path);
            QVERIFY(!writeFile(path, damaged).isEmpty());

            // Restoring reads what can be read and writes nothing.
            field->setValue(QStringLiteral("none"));
            ErrorRecorder errors;
            host.grid->GetValuesFromRegistry(App, Section, Setting);
            QCOMPARE(errors.errors.size(), 0);
            QCOMPARE(textOf(field->Value()), QStringLiteral("first"));
            QCOMPARE(readFile(path), damaged);
            QVERIFY(!QFileInfo::exists(aside));

            // Saving keeps every readable value and the damaged file whole beside, saying where.
            field->setValue(QStringLiteral("second"));
            host.grid->SaveValuesToRegistry(App, Section, Setting);
            QCOMPARE(errors.errors.size(), 1);
            QCOMPARE(errors.errors[0].number, 75);
            QVERIFY2(errors.errors[0].description.contains(aside),
                qPrintable(errors.errors[0].description));
            QCOMPARE(readFile(aside), damaged);
            QCOMPARE(
                SettingsStore::GetSetting(App, Section, Setting), QStringLiteral("Server=second"));
            QCOMPARE(SettingsStore::GetSetting(App, QStringLiteral("Other"), Setting),
                QStringLiteral("kept"));
            field->setValue(QStringLiteral("first"));
            host.grid->SaveValuesToRegistry(App, Section, Setting);
            QCOMPARE(errors.errors.size(), 1);
        }
        QCOMPARE(
            QDir(QFileInfo(path).absolutePath()).entryList(QDir::Files | QDir::Hidden).size(), 3);
    }

private:
    std::unique_ptr<QTemporaryDir> m_config;
};

QTEST_MAIN(tst_SettingsStorage)
#include "tst_SettingsStorage.moc"
