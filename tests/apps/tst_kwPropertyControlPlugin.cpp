// Loads the Designer plugin as Qt Designer does and creates the grid through it.

#include <kwFieldDeck/Fields>
#include <kwFieldDeck/kwPropertyControl>

#include <kwFieldDeck/Field>

#include "ui_GridColorsForm.h"
#include "ui_GridDefinitionForm.h"
#include "ui_GridForm.h"

#include <QApplication>
#include <QFileInfo>
#include <QMetaEnum>
#include <QMetaProperty>
#include <QPluginLoader>
#include <QSignalSpy>
#ifdef KW_WITH_UI_LOADER
#include <QUiLoader>
#endif
#include <QXmlStreamReader>
#include <QtTest>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>

namespace {
QStringList fieldNames(kwFieldDeck::kwPropertyControl *grid)
{
    QStringList names;
    for (kwFieldDeck::Field *field : *grid->Fields())
        names << field->Name();
    return names;
}
} // namespace

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
        // System colours in a palette unlike any style's, so a wrong role cannot pass unseen.
        m_palette = QApplication::palette();
        m_palette.setColor(QPalette::Button, QColor(0x20, 0x40, 0x60));
        m_palette.setColor(QPalette::Base, QColor(0xF0, 0xE8, 0xD0));
        m_palette.setColor(QPalette::Text, QColor(0x10, 0x60, 0x30));
        m_palette.setColor(QPalette::Highlight, QColor(0xAA, 0x11, 0x55));
        QApplication::setPalette(m_palette);
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

    // Without Designer's form editor (QUiLoader's way of using the plugin) the grid runs and
    // raises Changed; Designer initializes the plugin with its form editor, and its grids are
    // designed.
    void createsARunningGridOutsideDesigner()
    {
        QWidget form;
        auto *grid = qobject_cast<kwPropertyControl *>(m_plugin->createWidget(&form));
        QVERIFY(grid);
        QVERIFY(grid->ambientUserMode());
    }

    void appearancePropertiesAreDesignableAndReadFromUiFiles()
    {
        const QMetaObject &meta = kwPropertyControl::staticMetaObject;
        for (const char *name : { "backgroundColor", "fieldNameBackgroundColor",
                 "fieldNameForegroundColor", "RowHeight", "FieldNameWidth", "appearance",
                 "backStyle", "borderStyle", "scaleMode", "definition" }) {
            const QMetaProperty property = meta.property(meta.indexOfProperty(name));
            QVERIFY2(property.isDesignable() && property.isStored() && property.isWritable(), name);
        }
        // Kept for code and for forms saved before, not shown twice: QWidget's enabled and font
        // are the ones Designer shows, the codes show by name.
        for (const char *name :
            { "Enabled", "Font", "Appearance", "BackStyle", "BorderStyle", "ScaleMode" }) {
            const QMetaProperty property = meta.property(meta.indexOfProperty(name));
            QVERIFY2(
                !property.isDesignable() && property.isStored() && property.isWritable(), name);
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

    // Each colour shows in Designer once, as a QColor with a reset; its OleColor twin is hidden
    // there but still written by code and by .ui files saved before the QColor ones existed.
    void colourShowsOnceInDesignerAndResets_data() { colourRows(); }
    void colourShowsOnceInDesignerAndResets()
    {
        QFETCH(QByteArray, qtName);
        QFETCH(QByteArray, oleName);
        const QMetaObject &meta = kwPropertyControl::staticMetaObject;
        const QMetaProperty qt = meta.property(meta.indexOfProperty(qtName));
        const QMetaProperty ole = meta.property(meta.indexOfProperty(oleName));
        QCOMPARE(qt.metaType(), QMetaType::fromType<QColor>());
        QVERIFY(qt.isDesignable() && qt.isStored() && qt.isResettable());
        QVERIFY(!ole.isDesignable());
        QVERIFY(ole.isStored() && ole.isWritable());
    }

    // The colour Designer's editor shows is the one on screen: a system colour is looked up in
    // the palette, an explicit one is the OleColor's red, green and blue.
    void colourReadsAsItShowsOnScreen_data() { colourRows(); }
    void colourReadsAsItShowsOnScreen()
    {
        QFETCH(QByteArray, qtName);
        QFETCH(QByteArray, oleName);
        QFETCH(QColor, defaultInPalette);
        kwPropertyControl grid;
        QCOMPARE(grid.property(qtName).value<QColor>(), defaultInPalette);
        grid.setProperty(oleName, OleColor(0x00336699));
        QCOMPARE(grid.property(qtName).value<QColor>(), QColor(0x99, 0x66, 0x33));
        grid.setProperty(oleName, OleColor(0x8000000D)); // the highlight
        QCOMPARE(grid.property(qtName).value<QColor>(), m_palette.color(QPalette::Highlight));
    }

    // A colour picked in Designer is kept as an explicit OleColor, without its alpha; an
    // invalid colour stands for the default.
    void colourWritesAnOleColor_data() { colourRows(); }
    void colourWritesAnOleColor()
    {
        QFETCH(QByteArray, qtName);
        QFETCH(QByteArray, oleName);
        QFETCH(OleColor, systemDefault);
        kwPropertyControl grid;
        QVERIFY(grid.setProperty(qtName, QColor(0x11, 0x22, 0x33, 0x80)));
        QCOMPARE(grid.property(oleName).value<OleColor>(), OleColor(0x00332211));
        QCOMPARE(grid.property(qtName).value<QColor>(), QColor(0x11, 0x22, 0x33));
        QVERIFY(grid.setProperty(qtName, QColor()));
        QCOMPARE(grid.property(oleName).value<OleColor>(), systemDefault);
    }

    // Designer's reset button gives back the system colour, which then follows the palette
    // (a changed desktop theme), not the colour it had when reset.
    void resetRestoresTheSystemColour_data() { colourRows(); }
    void resetRestoresTheSystemColour()
    {
        QFETCH(QByteArray, qtName);
        QFETCH(QByteArray, oleName);
        QFETCH(OleColor, systemDefault);
        QFETCH(QColor, defaultInPalette);
        QFETCH(QColor, defaultInDarkPalette);
        kwPropertyControl grid;
        grid.setProperty(qtName, QColor(Qt::red));
        const QMetaProperty property
            = grid.metaObject()->property(grid.metaObject()->indexOfProperty(qtName));
        QVERIFY(property.reset(&grid));
        QCOMPARE(grid.property(oleName).value<OleColor>(), systemDefault);
        QCOMPARE(grid.property(qtName).value<QColor>(), defaultInPalette);
        QApplication::setPalette(darkPalette());
        const QColor afterThemeChange = grid.property(qtName).value<QColor>();
        QApplication::setPalette(m_palette);
        QCOMPARE(afterThemeChange, defaultInDarkPalette);
    }

    // A form that Designer saved with four picked colours builds a grid with those colours.
    void colourRoundTripsThroughAUiFile_data()
    {
        QTest::addColumn<QByteArray>("oleName");
        QTest::addColumn<OleColor>("saved");
        QTest::newRow("BackColor") << QByteArray("BackColor") << OleColor(0x00204080);
        QTest::newRow("ForeColor") << QByteArray("ForeColor") << OleColor(0x00102030);
        QTest::newRow("FieldNameBackColor")
            << QByteArray("FieldNameBackColor") << OleColor(0x00C0E0FF);
        QTest::newRow("FieldNameForeColor")
            << QByteArray("FieldNameForeColor") << OleColor(0x00000080);
    }
    void colourRoundTripsThroughAUiFile()
    {
        QFETCH(QByteArray, oleName);
        QFETCH(OleColor, saved);
        QWidget form;
        Ui::GridColorsForm ui;
        ui.setupUi(&form);
        QCOMPARE(ui.propertyControl->property(oleName).value<OleColor>(), saved);
        // The grid beside it kept every colour unset, so it has the system colours.
        const kwPropertyControl grid;
        QCOMPARE(ui.defaultsControl->property(oleName), grid.property(oleName));
    }

    // The colour read is the colour painted: the viewport and a name cell, each sampled away
    // from borders and text, show what backgroundColor() and fieldNameBackgroundColor() give.
    void colourReadIsTheColourPainted_data()
    {
        QTest::addColumn<QByteArray>("qtName");
        QTest::addColumn<QPoint>("sample");
        QTest::addColumn<QColor>("picked");
        // Rows are 20 pixels apart and the name column is 50 wide, inside a sunken border; the
        // second row is sampled, since the first holds the focus and shows the highlight.
        QTest::newRow("system viewport")
            << QByteArray("backgroundColor") << QPoint(150, 120) << QColor();
        QTest::newRow("system name cell")
            << QByteArray("fieldNameBackgroundColor") << QPoint(46, 32) << QColor();
        QTest::newRow("picked viewport")
            << QByteArray("backgroundColor") << QPoint(150, 120) << QColor(0x30, 0x90, 0x50);
        QTest::newRow("picked name cell")
            << QByteArray("fieldNameBackgroundColor") << QPoint(46, 32) << QColor(0xE0, 0xD0, 0x40);
    }
    void colourReadIsTheColourPainted()
    {
        QFETCH(QByteArray, qtName);
        QFETCH(QPoint, sample);
        QFETCH(QColor, picked);
        QWidget window;
        window.resize(400, 250);
        auto *grid = new kwPropertyControl(&window);
        grid->setGeometry(0, 0, 400, 250);
        grid->Fields()->Add(QStringLiteral("A"), ftText);
        grid->Fields()->Add(QStringLiteral("B"), ftText);
        if (picked.isValid())
            grid->setProperty(qtName, picked);
        grid->Refresh(true);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        const QImage shown = grid->grab().toImage();
        QCOMPARE(shown.pixelColor(sample), grid->property(qtName).value<QColor>());
        if (picked.isValid())
            QCOMPARE(shown.pixelColor(sample), picked);
    }

    // Designer shows a property's tool tip from the plugin's description, matched by name: a
    // tip for a name that its editor does not list is never seen.
    void everyToolTipNamesAPropertyDesignerLists()
    {
        const QHash<QString, QString> tips = propertyToolTips();
        QVERIFY(!tips.isEmpty());
        const QMetaObject &meta = kwPropertyControl::staticMetaObject;
        for (auto tip = tips.cbegin(); tip != tips.cend(); ++tip) {
            const int index = meta.indexOfProperty(tip.key().toLatin1());
            QVERIFY2(index >= 0 && meta.property(index).isDesignable(), qPrintable(tip.key()));
        }
    }

    // The twip sizes are plain numbers in Designer; their tool tips say what the numbers mean.
    void toolTipSaysWhatTheNumberMeans_data()
    {
        QTest::addColumn<QString>("property");
        QTest::addColumn<QStringList>("mentions");
        const QStringList twips { QStringLiteral("twips"), QStringLiteral("1440"),
            QStringLiteral("15 to a pixel") };
        QTest::newRow("FieldNameWidth") << QStringLiteral("FieldNameWidth") << twips;
        QTest::newRow("RowHeight") << QStringLiteral("RowHeight") << twips;
        QTest::newRow("appearance") << QStringLiteral("appearance")
                                    << QStringList { QStringLiteral("Flat (0)"),
                                           QStringLiteral("ThreeD (1)"), QStringLiteral("sunken") };
        QTest::newRow("scaleMode")
            << QStringLiteral("scaleMode") << QStringList { QStringLiteral("Twips (1)") };
        QTest::newRow("backgroundColor")
            << QStringLiteral("backgroundColor") << QStringList { QStringLiteral("Reset") };
    }
    void toolTipSaysWhatTheNumberMeans()
    {
        QFETCH(QString, property);
        QFETCH(QStringList, mentions);
        const QString tip = propertyToolTips().value(property);
        for (const QString &mention : mentions)
            QVERIFY2(tip.contains(mention), qPrintable(property + QStringLiteral(": ") + tip));
    }

    // Designer shows each code by name; the name and the saved number are one value.
    void codeShowsByNameAndSavesItsNumber_data()
    {
        QTest::addColumn<QByteArray>("named");
        QTest::addColumn<QByteArray>("numeric");
        QTest::addColumn<QStringList>("keys");
        QTest::addColumn<int>("initial");
        QTest::newRow("BackStyle") << QByteArray("backStyle") << QByteArray("BackStyle")
                                   << QStringList { "Transparent", "Opaque" } << 0;
        QTest::newRow("BorderStyle") << QByteArray("borderStyle") << QByteArray("BorderStyle")
                                     << QStringList { "NoBorder", "FixedSingle" } << 0;
        QTest::newRow("ScaleMode") << QByteArray("scaleMode") << QByteArray("ScaleMode")
                                   << QStringList { "UserScale", "Twips", "Points", "Pixels",
                                          "Characters", "Inches", "Millimeters", "Centimeters" }
                                   << 1;
        QTest::newRow("Appearance") << QByteArray("appearance") << QByteArray("Appearance")
                                    << QStringList { "Flat", "ThreeD" } << 1;
    }
    void codeShowsByNameAndSavesItsNumber()
    {
        QFETCH(QByteArray, named);
        QFETCH(QByteArray, numeric);
        QFETCH(QStringList, keys);
        QFETCH(int, initial);
        const QMetaObject &meta = kwPropertyControl::staticMetaObject;
        const QMetaProperty property = meta.property(meta.indexOfProperty(named));
        QVERIFY(property.isEnumType());
        const QMetaEnum codes = property.enumerator();
        QCOMPARE(codes.keyCount(), keys.size());
        // Each name stands for its position in the list: the number saved forms hold.
        for (int value = 0; value < keys.size(); ++value)
            QCOMPARE(QString::fromLatin1(codes.valueToKey(value)), keys.at(value));
        kwPropertyControl grid;
        QCOMPARE(
            QString::fromLatin1(codes.valueToKey(grid.property(named).toInt())), keys.at(initial));
        for (int value = keys.size() - 1; value >= 0; --value) {
            QVERIFY(grid.setProperty(named, keys.at(value)));
            QCOMPARE(grid.property(numeric).toInt(), value);
            QVERIFY(grid.setProperty(numeric, value));
            QCOMPARE(grid.property(named).toInt(), value);
        }
    }

    // The twip sizes are whole numbers in Designer; code keeps their fractions.
    void twipSizesShowAsWholeNumbers()
    {
        const QMetaObject &meta = kwPropertyControl::staticMetaObject;
        for (const char *name : { "FieldNameWidth", "RowHeight" })
            QCOMPARE(
                meta.property(meta.indexOfProperty(name)).metaType(), QMetaType::fromType<int>());
        kwPropertyControl grid;
        grid.resize(400, 200);
        grid.setRowHeight(330.6f);
        QCOMPARE(grid.property("RowHeight"), QVariant(331));
        QCOMPARE(grid.RowHeight(), 330.6f);
        QVERIFY(grid.setProperty("FieldNameWidth", 1200));
        QCOMPARE(grid.FieldNameWidth(), 1200.0f);
    }

    // A form whose grid has a definition, compiled by uic, shows its rows with no code.
    void uicFormShowsTheDefinitionsRows()
    {
        QWidget form;
        Ui::GridDefinitionForm ui;
        ui.setupUi(&form);
        kwPropertyControl *grid = ui.propertyControl;
        QCOMPARE(fieldNames(grid), QStringList({ "Server", "Mode" }));
        QCOMPARE(grid->Fields()->Item("Server")->Description(),
            QStringLiteral("Name or address of the server"));
        QCOMPARE(grid->Fields()->Item("Mode")->Value().toString(), QStringLiteral("2"));
        QCOMPARE(grid->FieldNameWidth(), 1500.0f);
        QVERIFY(grid->definition().startsWith(QLatin1String("FIELDNAMEWIDTH=1500\nADDFIELD")));
    }

    // The same form loaded at run time through QUiLoader, which finds the grid through the
    // plugin: the rows are there and edits raise Changed.
    void uiLoaderFormShowsTheDefinitionsRows()
    {
#ifndef KW_WITH_UI_LOADER
        QSKIP("Qt's UiTools are not installed (scripts/install-deps.sh installs them)");
#else
        QUiLoader loader;
        loader.clearPluginPaths();
        loader.addPluginPath(QFileInfo(KW_DESIGNER_PLUGIN).absolutePath());
        QVERIFY(loader.availableWidgets().contains(m_plugin->name()));
        QFile ui(QStringLiteral(KW_SOURCE_DIR "/GridDefinitionForm.ui"));
        QVERIFY(ui.open(QIODevice::ReadOnly));
        std::unique_ptr<QWidget> form(loader.load(&ui));
        QVERIFY2(form, qPrintable(loader.errorString()));
        auto *grid = form->findChild<kwPropertyControl *>(QStringLiteral("propertyControl"));
        QVERIFY(grid);
        QCOMPARE(fieldNames(grid), QStringList({ "Server", "Mode" }));
        QVERIFY(grid->ambientUserMode());
        QSignalSpy changed(grid, &kwPropertyControl::Changed);
        grid->Fields()->Item("Server")->setValue("other.example.org");
        QCOMPARE(changed.size(), 1);
#endif
    }

    // Designer has no editor for an object reference and warns each time it meets one, so no
    // such property of the grid is offered to it.
    void designerHasAnEditorForEveryPropertyItShows()
    {
        const QMetaObject &meta = kwPropertyControl::staticMetaObject;
        for (int i = meta.propertyOffset(); i < meta.propertyCount(); ++i) {
            const QMetaProperty property = meta.property(i);
            if (property.isDesignable() && property.isWritable())
                QVERIFY2(
                    !(property.metaType().flags() & QMetaType::PointerToQObject), property.name());
        }
    }

private:
    // Rows of the four colours: the QColor property, its OleColor twin, the twin's default and
    // how that default shows in the test's palette and in a dark one.
    void colourRows()
    {
        QTest::addColumn<QByteArray>("qtName");
        QTest::addColumn<QByteArray>("oleName");
        QTest::addColumn<OleColor>("systemDefault");
        QTest::addColumn<QColor>("defaultInPalette");
        QTest::addColumn<QColor>("defaultInDarkPalette");
        const QPalette dark = darkPalette();
        QTest::newRow("BackColor")
            << QByteArray("backgroundColor") << QByteArray("BackColor") << OleColor(0x8000000F)
            << m_palette.color(QPalette::Button) << dark.color(QPalette::Button);
        QTest::newRow("ForeColor") << QByteArray("foregroundColor") << QByteArray("ForeColor")
                                   << OleColor(0) << QColor(Qt::black) << QColor(Qt::black);
        QTest::newRow("FieldNameBackColor")
            << QByteArray("fieldNameBackgroundColor") << QByteArray("FieldNameBackColor")
            << OleColor(0x80000005) << m_palette.color(QPalette::Base)
            << dark.color(QPalette::Base);
        QTest::newRow("FieldNameForeColor")
            << QByteArray("fieldNameForegroundColor") << QByteArray("FieldNameForeColor")
            << OleColor(0x80000008) << m_palette.color(QPalette::Text)
            << dark.color(QPalette::Text);
    }

    static QPalette darkPalette()
    {
        QPalette dark(QColor(0x30, 0x30, 0x38));
        dark.setColor(QPalette::Base, QColor(0x18, 0x18, 0x20));
        dark.setColor(QPalette::Text, QColor(0xE8, 0xE8, 0xE0));
        return dark;
    }

    // The tool tips in the plugin's description, by property name, read as Designer reads them.
    QHash<QString, QString> propertyToolTips() const
    {
        QHash<QString, QString> tips;
        QXmlStreamReader xml(m_plugin->domXml());
        while (!xml.atEnd()) {
            if (xml.readNext() == QXmlStreamReader::StartElement && xml.name() == u"tooltip") {
                const QString name = xml.attributes().value("name").toString();
                tips.insert(name, xml.readElementText().trimmed());
            }
        }
        return tips;
    }

    QDesignerCustomWidgetInterface *m_plugin = nullptr;
    QPalette m_palette;
};

QTEST_MAIN(tst_kwPropertyControlPlugin)
#include "tst_kwPropertyControlPlugin.moc"
