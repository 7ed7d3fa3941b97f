#include "EditorHost.h"
#include "TestSupport.h"

#include "editors/kwComboField.h"
#include "editors/kwEditorControl.h"
#include "editors/kwFileSelectorField.h"
#include "editors/kwFolderSelectorField.h"
#include "editors/kwSimpleCheck.h"
#include "editors/kwSliderValue.h"
#include "platform/PropertyBag.h"

#include <QMetaProperty>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <optional>

using namespace kwFieldDeck;
using Host = test::EditorHost<kwEditorControl>;

namespace {
void addEditorRows()
{
    QTest::addColumn<QString>("className");
    for (const char *name : { "kwSimpleCheck", "kwSliderValue", "kwFileSelectorField",
             "kwFolderSelectorField", "kwComboField" })
        QTest::newRow(name) << QString::fromLatin1(name);
}

// Every shared property away from its default, through the properties' own names.
void setSharedProperties(kwEditorControl *editor)
{
    QFont font = editor->ambientFont();
    font.setPointSize(font.pointSize() + 3);
    font.setBold(true);
    editor->setBackColor(0x00336699);
    editor->setForeColor(0x8000000D);
    editor->setEnabled(true);
    editor->setFont(font);
    editor->setBackStyle(0);
    editor->setBorderStyle(1);
    editor->setContainerHwnd(4711);
}

QMap<QString, QVariant> contents(const MemoryPropertyBag &bag)
{
    QMap<QString, QVariant> all;
    for (const QString &name : bag.names())
        all.insert(name, bag.ReadProperty(name));
    return all;
}
} // namespace

class tst_kwEditorControl : public QObject
{
    Q_OBJECT
private slots:
    void eachEditorIsCreatedByItsClassIdentifier_data();
    void eachEditorIsCreatedByItsClassIdentifier();
    void moveUsesExactlyTheGivenArguments_data();
    void moveUsesExactlyTheGivenArguments();
    void widthIsTheSurfacesWhileHeightIsTheExtenders();
    void positionAndVisibilityGoThroughTheExtender();
    void withoutAnExtenderPositionFailsWithError91();
    void settersNotifyPropertyChanged_data();
    void settersNotifyPropertyChanged();
    void emptyBagWritesNothingBack_data();
    void emptyBagWritesNothingBack();
    void settingsBagRoundTrips_data();
    void settingsBagRoundTrips();
};

void tst_kwEditorControl::eachEditorIsCreatedByItsClassIdentifier_data()
{
    addEditorRows();
}

void tst_kwEditorControl::eachEditorIsCreatedByItsClassIdentifier()
{
    QFETCH(QString, className);
    Host host(className.toLatin1().constData());
    QVERIFY(host.editor);
    QCOMPARE(
        host.editor->metaObject()->className(), QByteArray("kwFieldDeck::" + className.toLatin1()));
    QCOMPARE(host.editor->controlName(), className);
    QCOMPARE(host.extender->Name(), QStringLiteral("Editor1"));
}

void tst_kwEditorControl::moveUsesExactlyTheGivenArguments_data()
{
    QTest::addColumn<std::optional<float>>("width");
    QTest::addColumn<std::optional<float>>("height");
    QTest::addColumn<float>("expectedWidth");
    QTest::addColumn<float>("expectedHeight");
    QTest::newRow("left and top") << std::optional<float>() << std::optional<float>() << 3000.0f
                                  << 315.0f;
    QTest::newRow("and width") << std::optional<float>(1800) << std::optional<float>() << 1800.0f
                               << 315.0f;
    QTest::newRow("and height only")
        << std::optional<float>() << std::optional<float>(600) << 3000.0f << 600.0f;
    QTest::newRow("all four") << std::optional<float>(1200) << std::optional<float>(450) << 1200.0f
                              << 450.0f;
}

void tst_kwEditorControl::moveUsesExactlyTheGivenArguments()
{
    QFETCH(std::optional<float>, width);
    QFETCH(std::optional<float>, height);
    QFETCH(float, expectedWidth);
    QFETCH(float, expectedHeight);
    Host host("kwComboField");
    host.editor->Move(135.5f, 900, width, height);
    QCOMPARE(host.extender->Left(), 135.5f);
    QCOMPARE(host.extender->Top(), 900.0f);
    QCOMPARE(host.extender->Width(), expectedWidth);
    QCOMPARE(host.extender->Height(), expectedHeight);
}

void tst_kwEditorControl::widthIsTheSurfacesWhileHeightIsTheExtenders()
{
    Host host("kwSliderValue", 3000, 315);
    host.editor->setWidth(1500);
    QCOMPARE(host.editor->Width(), float(twipsToPixelsX(1500) * twipsPerPixelX()));
    QCOMPARE(host.extender->Width(), 3000.0f);
    host.editor->setHeight(600);
    QCOMPARE(host.extender->Height(), 600.0f);
    QCOMPARE(host.editor->Height(), 600.0f);
}

void tst_kwEditorControl::positionAndVisibilityGoThroughTheExtender()
{
    Host host("kwFileSelectorField");
    host.editor->setTop(1200);
    host.editor->setLeft(75);
    QCOMPARE(host.extender->Top(), 1200.0f);
    QCOMPARE(host.extender->Left(), 75.0f);
    QCOMPARE(host.editor->Top(), 1200.0f);
    QCOMPARE(host.editor->Left(), 75.0f);
    QCOMPARE(host.editor->Container(), &host.window);
    QVERIFY(host.editor->Visible());
    host.extender->setVisible(false);
    QVERIFY(!host.editor->Visible());
    QWidget other;
    host.editor->setContainer(&other);
    QCOMPARE(host.editor->parentWidget(), &other);
    QCOMPARE(host.extender->Top(), 1200.0f);
}

void tst_kwEditorControl::withoutAnExtenderPositionFailsWithError91()
{
    kwComboField loose;
    test::ErrorRecorder errors;
    QCOMPARE(loose.Top(), 0.0f);
    loose.Move(10, 10);
    QCOMPARE(errors.errors.size(), 2);
    QCOMPARE(errors.errors[0].number, 91);
    QCOMPARE(errors.sources(),
        QStringList({ "Property 'Top' of User Control 'kwComboField'",
            "Sub 'Move' of User Control 'kwComboField'" }));
}

void tst_kwEditorControl::settersNotifyPropertyChanged_data()
{
    QTest::addColumn<QString>("className");
    QTest::addColumn<QString>("property");
    QTest::addColumn<QVariant>("value");
    for (const char *className : { "kwSimpleCheck", "kwSliderValue", "kwFileSelectorField",
             "kwFolderSelectorField", "kwComboField" }) {
        const QList<QPair<const char *, QVariant>> rows = {
            { "BackColor", QVariant::fromValue<quint32>(0x123456) },
            { "ForeColor", QVariant::fromValue<quint32>(0x654321) },
            { "Enabled", QVariant(true) },
            { "Font", QVariant(QFont(QStringLiteral("Serif"), 15)) },
            { "BackStyle", QVariant::fromValue<qint16>(0) },
            { "BorderStyle", QVariant::fromValue<qint16>(1) },
        };
        for (const auto &row : rows)
            QTest::addRow("%s %s", className, row.first)
                << QString::fromLatin1(className) << QString::fromLatin1(row.first) << row.second;
    }
}

void tst_kwEditorControl::settersNotifyPropertyChanged()
{
    QFETCH(QString, className);
    QFETCH(QString, property);
    QFETCH(QVariant, value);
    Host host(className.toLatin1().constData());
    QSignalSpy changed(host.editor, &UserControl::PropertyChanged);
    QVERIFY(host.editor->setProperty(property.toLatin1().constData(), value));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.at(0).at(0).toString(), property);
    QCOMPARE(host.editor->property(property.toLatin1().constData()), value);
}

void tst_kwEditorControl::emptyBagWritesNothingBack_data()
{
    addEditorRows();
}

void tst_kwEditorControl::emptyBagWritesNothingBack()
{
    QFETCH(QString, className);
    Host host(className.toLatin1().constData());
    setSharedProperties(host.editor);
    MemoryPropertyBag empty;
    host.editor->readProperties(empty);
    MemoryPropertyBag written;
    host.editor->writeProperties(written);
    QCOMPARE(written.names(), QStringList());
}

void tst_kwEditorControl::settingsBagRoundTrips_data()
{
    addEditorRows();
}

void tst_kwEditorControl::settingsBagRoundTrips()
{
    QFETCH(QString, className);
    QTemporaryDir dir;
    QSettings settings(dir.filePath(QStringLiteral("form.ini")), QSettings::IniFormat);
    Host first(className.toLatin1().constData());
    setSharedProperties(first.editor);
    MemoryPropertyBag expected;
    first.editor->writeProperties(expected);
    SettingsPropertyBag stored(settings, QStringLiteral("Editor1"));
    first.editor->writeProperties(stored);
    settings.sync();

    QSettings reread(dir.filePath(QStringLiteral("form.ini")), QSettings::IniFormat);
    SettingsPropertyBag restored(reread, QStringLiteral("Editor1"));
    Host second(className.toLatin1().constData());
    test::ErrorRecorder errors;
    second.editor->readProperties(restored);
    MemoryPropertyBag again;
    second.editor->writeProperties(again);
    QVERIFY(errors.errors.isEmpty());
    QVERIFY(!expected.names().isEmpty());
    QCOMPARE(contents(again), contents(expected));
}

QTEST_MAIN(tst_kwEditorControl)
#include "tst_kwEditorControl.moc"
