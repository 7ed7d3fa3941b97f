// Field values kept in the settings store: SaveValuesToRegistry and GetValuesFromRegistry.

#include "GridHost.h"

#include "runtime/SettingsStore.h"
#include "runtime/Values.h"

#include <QDir>
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
        // The type, the value, its line in the store and the value restored from it.
        auto row = columns<int, QString, QString, QString>();
        row("memo with CR LF", ftMemo, "a\r\nb", "a%CRLF%b", "a\r\nb");
        row("lone CR and LF", ftMemo, "a\rb\nc", "a\rb\nc", "a\rb\nc");
        row("empty", ftText, "", "", "");
        row("check", ftCheckBox, "TRUE", "1", "1");
        // The marker itself is written unchanged, so it comes back as a line break (intended).
        row("the marker text", ftMemo, "50%CRLF%", "50%CRLF%", "50\r\n");
    }

    void valuesRoundTrip()
    {
        const auto [type, value, line, restored] = fetch<int, QString, QString, QString>();
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
        host.grid->GetValuesFromRegistry(App, Section, Setting);
        QStringList values;
        for (Field *field : fields)
            values << textOf(field->Value());
        // A line without "=" is name and value at once (intended); a removed field keeps its own.
        QCOMPARE(values, QStringList({ "other", restored, "a", "Bare" }));
        // The lookup of the removed field reports its miss; the restoring itself goes on.
        QCOMPARE(
            host.reports(), QStringList { "error 5 in Property 'Item' of Class Module 'Fields'" });
    }

    // Blank arguments get a message each time; an unwritable store an error under the grid.
    void refusedSavesChangeNothing_data()
    {
        auto row = columns<QStringList, QStringList>();
        auto blank = [&](const char *name, const QStringList &arguments, const QString &argument) {
            const QString message = "kwPropertyControl: " + argument + " is not optional!";
            row(name, arguments, { message, message });
        };
        blank("AppName of blanks", { "   ", "S", "K" }, "AppName");
        blank("no Section", { "A", " ", "K" }, "Section");
        blank("no Setting", { "A", "S", "" }, "Setting");
        row("store is a directory", { App, Section, Setting },
            { gridError(75, "SaveValuesToRegistry") });
    }

    void refusedSavesChangeNothing()
    {
        const auto [arguments, reported] = fetch<QStringList, QStringList>();
        QVERIFY(QDir().mkpath(SettingsStore::filePath(App) + QStringLiteral("/inside")));
        GridHost host;
        Field *field = host.add("F", ftText, "value");
        const QDir store(m_config->path() + QStringLiteral("/kwFieldDeck"));
        const QStringList before = store.entryList(QDir::Files);
        host.grid->SaveValuesToRegistry(arguments[0], arguments[1], arguments[2]);
        host.grid->GetValuesFromRegistry(arguments[0], arguments[1], arguments[2]);
        QCOMPARE(host.reports(), reported);
        QCOMPARE(textOf(field->Value()), QStringLiteral("value"));
        QCOMPARE(store.entryList(QDir::Files), before);
    }

    void aDamagedStoreIsReadAndKeptWholeBesideTheNextSave_data()
    {
        auto row = columns<QByteArray>();
        row("note line", "# my settings\n");
        row("unclosed section", "[section\n");
        row("NUL byte", QByteArray("\0\n", 2));
    }

    void aDamagedStoreIsReadAndKeptWholeBesideTheNextSave()
    {
        const auto [damage] = fetch<QByteArray>();
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
            host.errors.errors.clear();
            host.grid->GetValuesFromRegistry(App, Section, Setting);
            QCOMPARE(host.reports(), QStringList());
            QCOMPARE(textOf(field->Value()), QStringLiteral("first"));
            QCOMPARE(readFile(path), damaged);
            QVERIFY(!QFileInfo::exists(aside));

            // Saving keeps every readable value and the damaged file whole beside, saying where.
            field->setValue(QStringLiteral("second"));
            host.grid->SaveValuesToRegistry(App, Section, Setting);
            QCOMPARE(host.reports(),
                QStringList { "error 75 in Sub 'SaveSetting' of Module 'SettingsStore'" });
            QVERIFY2(host.errors.errors[0].description.contains(aside),
                qPrintable(host.errors.errors[0].description));
            QCOMPARE(readFile(aside), damaged);
            QCOMPARE(SettingsStore::GetSetting(App, Section, Setting), "Server=second");
            QCOMPARE(SettingsStore::GetSetting(App, "Other", Setting), "kept");
            field->setValue(QStringLiteral("first"));
            host.grid->SaveValuesToRegistry(App, Section, Setting);
            QCOMPARE(host.reports().size(), 1);
        }
        QCOMPARE(
            QDir(QFileInfo(path).absolutePath()).entryList(QDir::Files | QDir::Hidden).size(), 3);
    }

private:
    std::unique_ptr<QTemporaryDir> m_config;
};

QTEST_MAIN(tst_SettingsStorage)
#include "tst_SettingsStorage.moc"
