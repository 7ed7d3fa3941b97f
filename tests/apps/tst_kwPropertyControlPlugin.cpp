// Loads the Designer plugin as Qt Designer does and creates the grid through it.

#include <kwFieldDeck/kwPropertyControl>

#include "ui_GridForm.h"

#include <QPluginLoader>
#include <QXmlStreamReader>
#include <QtTest>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>

using namespace kwFieldDeck;

class tst_kwPropertyControlPlugin : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase()
    {
        QPluginLoader loader(KW_DESIGNER_PLUGIN);
        m_plugin = qobject_cast<QDesignerCustomWidgetInterface *>(loader.instance());
        QVERIFY2(m_plugin, qPrintable(loader.errorString()));
        m_plugin->initialize(nullptr);
        QVERIFY(m_plugin->isInitialized());
    }

    void offersTheGridInItsOwnGroupWithAnIcon()
    {
        QCOMPARE(m_plugin->group(), QStringLiteral("kwFieldDeck"));
        QCOMPARE(m_plugin->name(), QStringLiteral("kwFieldDeck::kwPropertyControl"));
        QCOMPARE(m_plugin->includeFile(), QStringLiteral("kwFieldDeck/kwPropertyControl"));
        QVERIFY(!m_plugin->icon().pixmap(32, 32).isNull());
        // The widget Designer places names the same class.
        QXmlStreamReader xml(m_plugin->domXml());
        QVERIFY(xml.readNextStartElement() && xml.readNextStartElement());
        QCOMPARE(xml.name(), QLatin1String("widget"));
        QCOMPARE(xml.attributes().value("class").toString(), m_plugin->name());
    }

    // In design mode the grid raises no Changed (the grid's typing test checks that mode).
    void createsTheGridInDesignMode()
    {
        QWidget form;
        auto *grid = qobject_cast<kwPropertyControl *>(m_plugin->createWidget(&form));
        QVERIFY(grid);
        QVERIFY(!grid->ambientUserMode());
    }

    void appearancePropertiesAreDesignableAndReadFromUiFiles()
    {
        const QMetaObject &meta = kwPropertyControl::staticMetaObject;
        for (const char *name : { "BackColor", "FieldNameBackColor", "FieldNameForeColor",
                 "RowHeight", "FieldNameWidth", "Appearance", "Font" }) {
            const QMetaProperty property = meta.property(meta.indexOfProperty(name));
            QVERIFY2(property.isDesignable() && property.isStored() && property.isWritable(), name);
        }
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

private:
    QDesignerCustomWidgetInterface *m_plugin = nullptr;
};

QTEST_MAIN(tst_kwPropertyControlPlugin)
#include "tst_kwPropertyControlPlugin.moc"
