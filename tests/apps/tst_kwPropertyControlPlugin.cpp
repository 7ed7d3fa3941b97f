// Loads the Designer plugin as Qt Designer does and creates the grid through it.

#include <kwFieldDeck/kwFieldDeck>

#include "ui_GridColorsForm.h"
#include "ui_GridDefinitionForm.h"
#include "ui_GridForm.h"

#ifdef KW_WITH_UI_LOADER
#include <QUiLoader>
#endif
#include <QtTest>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>
#include <QtWidgets>

using namespace kwFieldDeck;
using namespace Qt::StringLiterals;

namespace {
const QMetaObject &Meta = kwPropertyControl::staticMetaObject;

const auto metaProperty
    = [](const char *name) { return Meta.property(Meta.indexOfProperty(name)); };

// A colour property under its two names, as the grid reads it and paints it.
struct Colour
{
    const char *qtName, *oleName;
    OleColor systemDefault;
    int role; // of the default; -1: black in any palette
    OleColor saved; // by GridColorsForm.ui
    QPoint painted;
};

} // namespace

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
        QApplication::setPalette(m_palette);
        m_dark.setColor(QPalette::Base, QColor(0x18, 0x18, 0x20));
        m_dark.setColor(QPalette::Text, QColor(0xE8, 0xE8, 0xE0));
    }

    // The widget placed names the same class; no tool tip is for a property Designer does not list.
    void offersTheGridByClassWithAnIcon()
    {
        QCOMPARE(m_plugin->name(), u"kwFieldDeck::kwPropertyControl"_s);
        QCOMPARE(m_plugin->includeFile(), u"kwFieldDeck/kwPropertyControl"_s);
        QVERIFY(!m_plugin->icon().pixmap(32, 32).isNull());
        QXmlStreamReader xml(m_plugin->domXml());
        QVERIFY(xml.readNextStartElement() && xml.readNextStartElement());
        QCOMPARE(xml.name(), QLatin1String("widget"));
        QCOMPARE(xml.attributes().value("class").toString(), m_plugin->name());
        int tips = 0;
        while (!xml.atEnd()) {
            if (xml.readNext() == QXmlStreamReader::StartElement && xml.name() == u"tooltip") {
                const QByteArray name = xml.attributes().value("name").toLatin1();
                QVERIFY2(metaProperty(name).isDesignable(), name.constData());
                ++tips;
            }
        }
        QVERIFY(tips > 0);
    }

    // The twins kept for code and older forms are stored but not shown twice. Designer has no
    // editor for an object reference and warns at each one it meets.
    void designerShowsEachAppearancePropertyOnce()
    {
        const auto shown = [](const char *name, bool designable) {
            const QMetaProperty property = metaProperty(name);
            return property.isDesignable() == designable && property.isStored()
                && property.isWritable();
        };
        for (const char *name : { "RowHeight", "FieldNameWidth", "appearance", "backStyle",
                 "borderStyle", "scaleMode", "definition" })
            QVERIFY2(shown(name, true), name);
        for (const char *name :
            { "Enabled", "Font", "Appearance", "BackStyle", "BorderStyle", "ScaleMode" })
            QVERIFY2(shown(name, false), name);
        QCOMPARE(metaProperty("FieldNameWidth").metaType(), QMetaType::fromType<int>());
        for (int i = Meta.propertyOffset(); i < Meta.propertyCount(); ++i) {
            const QMetaProperty offered = Meta.property(i);
            if (offered.isDesignable() && offered.isWritable())
                QVERIFY2(
                    !(offered.metaType().flags() & QMetaType::PointerToQObject), offered.name());
        }
    }

    // A .ui file compiled by uic; code keeps the fractions of the sizes Designer shows whole.
    void uicFormSetsTheAppearance()
    {
        QWidget form;
        Ui::GridForm ui;
        ui.setupUi(&form);
        kwPropertyControl *grid = ui.propertyControl;
        QCOMPARE((QVariantList { grid->BackColor(), grid->FieldNameWidth(), grid->RowHeight(),
                     grid->Appearance(), grid->FieldNameForeColor(), grid->Font().family(),
                     grid->Font().pointSize() }),
            (QVariantList { OleColor(0x336699), 1500.0f, 400.0f, qint16(0), OleColor(128),
                u"DejaVu Serif"_s, 13 }));
        grid->setRowHeight(330.6f);
        QCOMPARE(grid->property("RowHeight"), QVariant(331));
        QCOMPARE(grid->RowHeight(), 330.6f);
    }

    // The QColor reads as painted and is written without alpha; an invalid one or a reset gives
    // back the system colour, which follows a changed theme.
    void colourShowsOnceInDesignerAsItShowsOnScreen_data()
    {
        QTest::addColumn<Colour>("row");
        // Sampled away from borders and text; rows are 20 pixels apart, the name column is 50
        // wide inside a sunken border, and the first row holds the focus and its highlight.
        QTest::newRow("BackColor") << Colour { "backgroundColor", "BackColor", 0x8000000F,
            QPalette::Button, 0x00204080, QPoint(150, 120) };
        QTest::newRow("ForeColor")
            << Colour { "foregroundColor", "ForeColor", 0, -1, 0x00102030, QPoint() };
        QTest::newRow("FieldNameBackColor") << Colour { "fieldNameBackgroundColor",
            "FieldNameBackColor", 0x80000005, QPalette::Base, 0x00C0E0FF, QPoint(46, 32) };
        QTest::newRow("FieldNameForeColor") << Colour { "fieldNameForegroundColor",
            "FieldNameForeColor", 0x80000008, QPalette::Text, 0x00000080, QPoint() };
    }

    void colourShowsOnceInDesignerAsItShowsOnScreen()
    {
        QFETCH(Colour, row);
        const QMetaProperty qt = metaProperty(row.qtName), ole = metaProperty(row.oleName);
        QVERIFY(qt.isDesignable() && qt.isStored() && qt.isResettable());
        QVERIFY(!ole.isDesignable() && ole.isStored() && ole.isWritable());
        const auto byDefault = [&row](const QPalette &palette) {
            return row.role < 0 ? QColor(Qt::black) : palette.color(QPalette::ColorRole(row.role));
        };

        kwPropertyControl grid;
        grid.resize(400, 250);
        const auto read = [&grid, &row] { return grid.property(row.qtName).value<QColor>(); };
        QCOMPARE(read(), byDefault(m_palette));
        if (!row.painted.isNull()) {
            grid.Fields()->Add(u"A"_s, ftText);
            grid.Fields()->Add(u"B"_s, ftText);
            grid.Refresh(true);
            grid.show();
            QVERIFY(QTest::qWaitForWindowExposed(&grid));
            QCOMPARE(grid.grab().toImage().pixelColor(row.painted), read());
        }
        QVERIFY(grid.setProperty(row.qtName, QColor(0x11, 0x22, 0x33, 0x80)));
        QCOMPARE(grid.property(row.oleName).value<OleColor>(), OleColor(0x00332211));
        QCOMPARE(read(), QColor(0x11, 0x22, 0x33));
        QVERIFY(grid.setProperty(row.qtName, QColor()));
        QCOMPARE(grid.property(row.oleName).value<OleColor>(), row.systemDefault);
        grid.setProperty(row.qtName, QColor(Qt::red));
        QVERIFY(qt.reset(&grid));
        QCOMPARE(grid.property(row.oleName).value<OleColor>(), row.systemDefault);
        QApplication::setPalette(m_dark);
        const QColor afterThemeChange = read();
        QApplication::setPalette(m_palette);
        QCOMPARE(afterThemeChange, byDefault(m_dark));

        QWidget form;
        Ui::GridColorsForm ui;
        ui.setupUi(&form);
        QCOMPARE(ui.propertyControl->property(row.oleName).value<OleColor>(), row.saved);
    }

    // A code shown by name is one value with its saved number (the capitalised property).
    void codeShowsByNameAndSavesItsNumber_data()
    {
        QTest::addColumn<QStringList>("keys");
        QTest::newRow("backStyle") << QStringList { "Transparent", "Opaque" };
        QTest::newRow("borderStyle") << QStringList { "NoBorder", "FixedSingle" };
        QTest::newRow("scaleMode") << QStringList { "UserScale", "Twips", "Points", "Pixels",
            "Characters", "Inches", "Millimeters", "Centimeters" };
        QTest::newRow("appearance") << QStringList { "Flat", "ThreeD" };
    }

    void codeShowsByNameAndSavesItsNumber()
    {
        QFETCH(QStringList, keys);
        const QByteArray named = QTest::currentDataTag();
        const QByteArray numeric = named.left(1).toUpper() + named.mid(1);
        const QMetaEnum codes = metaProperty(named).enumerator();
        QVERIFY(metaProperty(named).isEnumType());
        QCOMPARE(codes.keyCount(), keys.size());
        kwPropertyControl grid;
        for (int value = keys.size() - 1; value >= 0; --value) {
            QCOMPARE(QString::fromLatin1(codes.valueToKey(value)), keys.at(value));
            QVERIFY(grid.setProperty(named, keys.at(value)));
            QCOMPARE(grid.property(numeric).toInt(), value);
            QVERIFY(grid.setProperty(numeric, value));
            QCOMPARE(grid.property(named).toInt(), value);
        }
    }

    // Compiled by uic, or loaded at run time by QUiLoader through the plugin.
    void formWithADefinitionShowsItsRows()
    {
        const auto showsTheRows = [](kwPropertyControl *grid) {
            Fields &rows = *grid->Fields();
            return rows.Count() == 2 && rows.Item(1)->Name() == "Server"
                && rows.Item(2)->Name() == "Mode";
        };
        QWidget form;
        Ui::GridDefinitionForm ui;
        ui.setupUi(&form);
        QVERIFY(showsTheRows(ui.propertyControl));
        QVERIFY(ui.propertyControl->definition().startsWith("FIELDNAMEWIDTH=1500\nADDFIELD"));
#ifndef KW_WITH_UI_LOADER
        QSKIP("Qt's UiTools are not installed (scripts/install-deps.sh installs them)");
#else
        QUiLoader loader;
        loader.clearPluginPaths();
        loader.addPluginPath(QFileInfo(KW_DESIGNER_PLUGIN).absolutePath());
        QVERIFY(loader.availableWidgets().contains(m_plugin->name()));
        QFile file(QStringLiteral(KW_SOURCE_DIR "/GridDefinitionForm.ui"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        std::unique_ptr<QWidget> loaded(loader.load(&file));
        QVERIFY2(loaded, qPrintable(loader.errorString()));
        auto *grid = loaded->findChild<kwPropertyControl *>(u"propertyControl"_s);
        QVERIFY(grid && showsTheRows(grid) && grid->ambientUserMode());
        QSignalSpy changed(grid, &kwPropertyControl::Changed);
        grid->Fields()->Item("Server")->setValue("other.example.org");
        QCOMPARE(changed.size(), 1);
#endif
    }

private:
    QDesignerCustomWidgetInterface *m_plugin = nullptr;
    QPalette m_palette, m_dark { QColor(0x30, 0x30, 0x38) };
};

QTEST_MAIN(tst_kwPropertyControlPlugin)
#include "tst_kwPropertyControlPlugin.moc"
