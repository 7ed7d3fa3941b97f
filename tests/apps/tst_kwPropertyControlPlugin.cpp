// Loads the Designer plugin as Qt Designer does and creates the grid through it.

#include "fieldmodel/Field.h"
#include "fieldmodel/Fields.h"
#include "grid/kwPropertyControl.h"
#include "platform/PropertyBag.h"
#include "platform/TextBox.h"

#include "ui_GridForm.h"

#include <QPluginLoader>
#include <QSignalSpy>
#include <QXmlStreamReader>
#include <QtTest>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>

using namespace kwFieldDeck;

class tst_kwPropertyControlPlugin : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void offersTheGridInItsOwnGroupWithAnIcon();
    void createsTheGridInDesignMode();
    void editsInDesignModeRaiseNoChanged();
    void appearancePropertiesAreDesignableAndRoundTrip_data();
    void appearancePropertiesAreDesignableAndRoundTrip();
    void theDefaultWidgetNamesTheGridClass();
    void aUiFileSetsTheAppearanceProperties();

private:
    QDesignerCustomWidgetInterface *m_plugin = nullptr;
};

void tst_kwPropertyControlPlugin::initTestCase()
{
    QPluginLoader loader(KW_DESIGNER_PLUGIN);
    QVERIFY2(loader.metaData().value("IID").toString()
            == "org.qt-project.Qt.QDesignerCustomWidgetInterface",
        qPrintable(loader.errorString()));
    QObject *instance = loader.instance();
    QVERIFY2(instance, qPrintable(loader.errorString()));
    m_plugin = qobject_cast<QDesignerCustomWidgetInterface *>(instance);
    QVERIFY(m_plugin);
    m_plugin->initialize(nullptr);
    QVERIFY(m_plugin->isInitialized());
}

void tst_kwPropertyControlPlugin::offersTheGridInItsOwnGroupWithAnIcon()
{
    QCOMPARE(m_plugin->group(), QStringLiteral("kwFieldDeck"));
    QCOMPARE(m_plugin->name(), QStringLiteral("kwFieldDeck::kwPropertyControl"));
    QCOMPARE(m_plugin->includeFile(), QStringLiteral("grid/kwPropertyControl.h"));
    QVERIFY(!m_plugin->isContainer());
    QVERIFY(!m_plugin->toolTip().isEmpty());
    const QIcon icon = m_plugin->icon();
    QVERIFY(!icon.isNull());
    QVERIFY(!icon.pixmap(32, 32).isNull());
}

void tst_kwPropertyControlPlugin::createsTheGridInDesignMode()
{
    QWidget form;
    QWidget *widget = m_plugin->createWidget(&form);
    auto *grid = qobject_cast<kwPropertyControl *>(widget);
    QVERIFY(grid);
    QCOMPARE(grid->parentWidget(), &form);
    QVERIFY(!grid->ambientUserMode());
    // A new instance as a designer places it.
    QCOMPARE(grid->RowHeight(), 315.0f);
    QCOMPARE(grid->FieldNameWidth(), 750.0f);
    QCOMPARE(grid->FieldNameBackColor(), OleColor(0x80000005));
}

void tst_kwPropertyControlPlugin::editsInDesignModeRaiseNoChanged()
{
    QWidget form;
    auto *grid = qobject_cast<kwPropertyControl *>(m_plugin->createWidget(&form));
    QVERIFY(grid);
    form.resize(400, 200);
    grid->resize(400, 200);
    form.show();
    QVERIFY(QTest::qWaitForWindowExposed(&form));
    Field *field = grid->Fields()->Add("Name", ftText, 0, "before");
    QSignalSpy gridChanged(grid, &kwPropertyControl::Changed);
    QSignalSpy fieldChanged(field, &Field::Changed);

    field->ValueTextBox()->setText("after");

    QCOMPARE(fieldChanged.count(), 1);
    QCOMPARE(field->Value().toString(), QStringLiteral("after"));
    QCOMPARE(gridChanged.count(), 0);
}

void tst_kwPropertyControlPlugin::appearancePropertiesAreDesignableAndRoundTrip_data()
{
    QTest::addColumn<QString>("property");
    QTest::addColumn<QVariant>("value");
    QTest::newRow("BackColor") << "BackColor" << QVariant::fromValue(quint32(0x00336699));
    QTest::newRow("FieldNameBackColor")
        << "FieldNameBackColor" << QVariant::fromValue(quint32(0xE0F0FF));
    QTest::newRow("FieldNameForeColor")
        << "FieldNameForeColor" << QVariant::fromValue(quint32(0x80));
    QTest::newRow("RowHeight") << "RowHeight" << QVariant::fromValue(400.0f);
    QTest::newRow("FieldNameWidth") << "FieldNameWidth" << QVariant::fromValue(1500.0f);
    QTest::newRow("Appearance") << "Appearance" << QVariant::fromValue(qint16(0));
    QTest::newRow("Font") << "Font" << QVariant::fromValue(QFont("DejaVu Serif", 13));
}

void tst_kwPropertyControlPlugin::appearancePropertiesAreDesignableAndRoundTrip()
{
    QFETCH(QString, property);
    QFETCH(QVariant, value);
    QWidget form;
    form.resize(600, 300);
    auto *grid = qobject_cast<kwPropertyControl *>(m_plugin->createWidget(&form));
    grid->resize(600, 300);
    const QMetaObject *meta = grid->metaObject();
    const QMetaProperty metaProperty = meta->property(meta->indexOfProperty(qPrintable(property)));
    QVERIFY(metaProperty.isValid());
    QVERIFY(metaProperty.isDesignable());
    QVERIFY(metaProperty.isStored());
    QVERIFY(metaProperty.isWritable());

    // Designer writes a property through the meta-object; the grid keeps and persists it.
    QVERIFY(grid->setProperty(qPrintable(property), value));
    QCOMPARE(grid->property(qPrintable(property)), value);
    MemoryPropertyBag bag;
    grid->writeProperties(bag);
    auto *restored = qobject_cast<kwPropertyControl *>(m_plugin->createWidget(&form));
    restored->resize(600, 300);
    restored->readProperties(bag);
    QCOMPARE(restored->property(qPrintable(property)), value);
}

void tst_kwPropertyControlPlugin::theDefaultWidgetNamesTheGridClass()
{
    QXmlStreamReader xml(m_plugin->domXml());
    QVERIFY(xml.readNextStartElement());
    QCOMPARE(xml.name(), QLatin1String("ui"));
    QVERIFY(xml.readNextStartElement());
    QCOMPARE(xml.name(), QLatin1String("widget"));
    QCOMPARE(xml.attributes().value("class").toString(), m_plugin->name());
    QVERIFY(!xml.attributes().value("name").isEmpty());
}

void tst_kwPropertyControlPlugin::aUiFileSetsTheAppearanceProperties()
{
    // A .ui file as Designer saves it, compiled by uic into this test.
    QWidget form;
    Ui::GridForm ui;
    ui.setupUi(&form);
    kwPropertyControl *grid = ui.propertyControl;
    QCOMPARE(grid->BackColor(), OleColor(0x336699));
    QCOMPARE(grid->FieldNameWidth(), 1500.0f);
    QCOMPARE(grid->RowHeight(), 400.0f);
    QCOMPARE(grid->Appearance(), qint16(0));
    QCOMPARE(grid->FieldNameForeColor(), OleColor(128));
    QCOMPARE(grid->Font().family(), QStringLiteral("DejaVu Serif"));
    QCOMPARE(grid->Font().pointSize(), 13);
}

QTEST_MAIN(tst_kwPropertyControlPlugin)
#include "tst_kwPropertyControlPlugin.moc"
