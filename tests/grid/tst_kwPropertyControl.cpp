// The grid's frame: new-instance defaults, the persisted properties, the appearance properties
// and the small members.

#include "grid/GridHost.h"

#include "platform/DatePicker.h"
#include "platform/PropertyBag.h"

#include <QLabel>
#include <QtTest>

using namespace kwFieldDeck;
using kwFieldDeck::test::GridHost;

class tst_kwPropertyControl : public QObject
{
    Q_OBJECT

private slots:
    void newInstanceDefaults();
    void savesTwelvePropertiesInOrder();
    void leavesDefaultsOutOfTheBag();
    void restoresWhatItSaved();
    void restoredBackColorReachesViewportOnly();
    void backColorColoursViewportAndCanvas();
    void storedOnlyPropertiesChangeNothingOnScreen_data();
    void storedOnlyPropertiesChangeNothingOnScreen();
    void fontReachesEveryField();
    void restoredFontReachesExistingFields();
    void nameColoursRecolourEveryLabel();
    void propertiesAreQtProperties();
    void setFocusGoesToTheFirstField();
    void setFocusOnEmptyGridIsReported();
    void fieldsReadReattachesTheGrid();
    void parentIsTheWindow();
};

void tst_kwPropertyControl::newInstanceDefaults()
{
    GridHost host;
    kwPropertyControl *grid = host.grid;
    QCOMPARE(grid->Enabled(), false);
    QCOMPARE(grid->ForeColor(), OleColor(0));
    QCOMPARE(grid->BackStyle(), qint16(0));
    QCOMPARE(grid->BorderStyle(), qint16(0));
    QCOMPARE(grid->RowHeight(), 315.0f);
    QCOMPARE(grid->FieldNameWidth(), 750.0f);
    QCOMPARE(grid->FieldNameBackColor(), SystemColor::WindowBackground);
    QCOMPARE(grid->FieldNameForeColor(), SystemColor::WindowText);
    QCOMPARE(grid->BackColor(), SystemColor::ButtonFace);
    QCOMPARE(grid->Appearance(), qint16(1));
    QCOMPARE(grid->ScaleMode(), qint16(1));
    QCOMPARE(grid->Font(), grid->ambientFont());
    // Enabled false is only a stored value: the grid still works.
    QVERIFY(grid->isEnabled());
}

void tst_kwPropertyControl::savesTwelvePropertiesInOrder()
{
    GridHost host;
    kwPropertyControl *grid = host.grid;
    grid->setBackColor(0x00112233);
    grid->setForeColor(0x00445566);
    grid->setEnabled(true);
    QFont font(grid->Font());
    font.setPointSize(font.pointSize() + 3);
    grid->setFont(font);
    grid->setBackStyle(1);
    grid->setBorderStyle(1);
    grid->setFieldNameWidth(1000);
    grid->setRowHeight(400);
    grid->setScaleMode(3);
    grid->setAppearance(0);
    grid->setFieldNameBackColor(0x00010203);
    grid->setFieldNameForeColor(0x00040506);
    MemoryPropertyBag bag;
    grid->writeProperties(bag);
    QCOMPARE(bag.names(),
        (QStringList { "BackColor", "ForeColor", "Enabled", "Font", "BackStyle", "BorderStyle",
            "FieldNameWidth", "RowHeight", "ScaleMode", "Appearance", "FieldNameBackColor",
            "FieldNameForeColor" }));
}

void tst_kwPropertyControl::leavesDefaultsOutOfTheBag()
{
    GridHost host;
    MemoryPropertyBag bag;
    host.grid->writeProperties(bag);
    QCOMPARE(bag.names(), QStringList());
}

void tst_kwPropertyControl::restoresWhatItSaved()
{
    MemoryPropertyBag bag;
    QFont font;
    {
        GridHost host;
        host.grid->setForeColor(0x00445566);
        host.grid->setEnabled(true);
        font = host.grid->Font();
        font.setBold(true);
        host.grid->setFont(font);
        host.grid->setBorderStyle(1);
        host.grid->setFieldNameWidth(1200);
        host.grid->setRowHeight(400);
        host.grid->setAppearance(0);
        host.grid->setFieldNameForeColor(0x000000FF);
        host.grid->writeProperties(bag);
    }
    GridHost host;
    host.grid->readProperties(bag);
    QCOMPARE(host.grid->ForeColor(), OleColor(0x00445566));
    QCOMPARE(host.grid->Enabled(), true);
    QCOMPARE(host.grid->Font(), font);
    QCOMPARE(host.grid->BorderStyle(), qint16(1));
    QCOMPARE(host.grid->FieldNameWidth(), 1200.0f);
    QCOMPARE(host.grid->RowHeight(), 400.0f);
    QCOMPARE(host.grid->Appearance(), qint16(0));
    QCOMPARE(host.grid->FieldNameForeColor(), OleColor(0x000000FF));
    QCOMPARE(host.grid->FieldNameBackColor(), SystemColor::WindowBackground);
}

void tst_kwPropertyControl::restoredBackColorReachesViewportOnly()
{
    GridHost host;
    MemoryPropertyBag bag;
    bag.WriteProperty("BackColor", quint32(0x00FF0000));
    host.grid->readProperties(bag);
    QCOMPARE(host.picOuter()->BackColor(), OleColor(0x00FF0000));
    QCOMPARE(host.picInner()->BackColor(), SystemColor::ButtonFace);
}

void tst_kwPropertyControl::backColorColoursViewportAndCanvas()
{
    GridHost host;
    QSignalSpy changed(host.grid, &UserControl::PropertyChanged);
    host.grid->setBackColor(0x00FF0000);
    QCOMPARE(host.picOuter()->BackColor(), OleColor(0x00FF0000));
    QCOMPARE(host.picInner()->BackColor(), OleColor(0x00FF0000));
    QCOMPARE(host.grid->BackColor(), OleColor(0x00FF0000));
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.at(0).at(0).toString(), QStringLiteral("BackColor"));
}

void tst_kwPropertyControl::storedOnlyPropertiesChangeNothingOnScreen_data()
{
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<QVariant>("value");
    QTest::newRow("ForeColor") << QByteArray("ForeColor") << QVariant(quint32(0xFF));
    QTest::newRow("Enabled") << QByteArray("Enabled") << QVariant(true);
    QTest::newRow("BackStyle") << QByteArray("BackStyle") << QVariant::fromValue(qint16(1));
    QTest::newRow("BorderStyle") << QByteArray("BorderStyle") << QVariant::fromValue(qint16(1));
}

void tst_kwPropertyControl::storedOnlyPropertiesChangeNothingOnScreen()
{
    QFETCH(QByteArray, property);
    QFETCH(QVariant, value);
    GridHost host;
    Field *field = host.add("Host");
    const OleColor labelFore = field->FieldNameControl()->ForeColor();
    QSignalSpy changed(host.grid, &UserControl::PropertyChanged);
    QVERIFY(host.grid->setProperty(property, value));
    QCOMPARE(host.grid->property(property), value);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.at(0).at(0).toString(), QString::fromLatin1(property));
    QCOMPARE(field->FieldNameControl()->ForeColor(), labelFore);
    QVERIFY(field->ValueTextBox()->Enabled());
    QCOMPARE(host.grid->surfaceBackStyle(), 1);
}

void tst_kwPropertyControl::fontReachesEveryField()
{
    GridHost host;
    Field *text = host.add("Host");
    Field *date = host.add("Start", ftDate);
    QFont font(QStringLiteral("Serif"), 14);
    host.grid->setFont(font);
    QCOMPARE(text->FieldNameControl()->Font(), font);
    QCOMPARE(text->ValueTextBox()->Font(), font);
    QCOMPARE(date->ValueDate()->Font(), font);
    QCOMPARE(host.picInner()->Font(), font);
    // Fields added later take the grid's font.
    QCOMPARE(host.add("Later")->ValueTextBox()->Font(), font);
}

void tst_kwPropertyControl::restoredFontReachesExistingFields()
{
    GridHost host;
    Field *text = host.add("Host");
    QFont font(QStringLiteral("Serif"), 15);
    MemoryPropertyBag bag;
    bag.WriteProperty("Font", font);
    host.grid->readProperties(bag);
    QCOMPARE(text->ValueTextBox()->Font(), font);
}

void tst_kwPropertyControl::nameColoursRecolourEveryLabel()
{
    GridHost host;
    host.addRows(3);
    host.grid->setFieldNameBackColor(0x00EEEEEE);
    host.grid->setFieldNameForeColor(0x00222222);
    for (Field *field : *host.grid->Fields()) {
        QCOMPARE(field->FieldNameControl()->BackColor(), OleColor(0x00EEEEEE));
        QCOMPARE(field->FieldNameControl()->ForeColor(), OleColor(0x00222222));
    }
}

void tst_kwPropertyControl::propertiesAreQtProperties()
{
    GridHost host;
    const QMetaObject *meta = host.grid->metaObject();
    for (const char *name : { "Fields", "BackColor", "ForeColor", "Enabled", "Font", "BackStyle",
             "BorderStyle", "ScaleMode", "Appearance", "FieldNameBackColor", "FieldNameForeColor",
             "DescriptionLabel", "Parent", "AppPath", "FieldNameWidth", "RowHeight", "FirstRow" })
        QVERIFY2(meta->indexOfProperty(name) >= 0, name);
    QVERIFY(host.grid->setProperty("FieldNameWidth", 900.0f));
    QCOMPARE(host.grid->FieldNameWidth(), 900.0f);
    QVERIFY(host.grid->setProperty("AppPath", QStringLiteral("/opt/app")));
    QCOMPARE(host.grid->AppPath(), QStringLiteral("/opt/app"));
}

void tst_kwPropertyControl::setFocusGoesToTheFirstField()
{
    GridHost host;
    QVERIFY(host.shown);
    host.addRows(2);
    host.grid->SetFocus();
    QVERIFY(host.grid->Fields()->Item(1)->ValueTextBox()->hasFocus());
}

void tst_kwPropertyControl::setFocusOnEmptyGridIsReported()
{
    GridHost host;
    test::ErrorRecorder errors;
    host.grid->SetFocus();
    QCOMPARE(
        errors.sources(), QStringList { "Sub 'SetFocus' of User Control 'kwPropertyControl'" });
}

void tst_kwPropertyControl::fieldsReadReattachesTheGrid()
{
    GridHost host;
    Fields *fields = host.grid->Fields();
    fields->setParentClass(nullptr);
    QCOMPARE(host.grid->Fields(), fields);
    QCOMPARE(fields->ParentClass(), host.grid);
}

void tst_kwPropertyControl::parentIsTheWindow()
{
    GridHost host;
    QCOMPARE(host.grid->Parent(), &host.window);
}

QTEST_MAIN(tst_kwPropertyControl)
#include "tst_kwPropertyControl.moc"
