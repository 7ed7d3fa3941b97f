#include "EditorHost.h"
#include "TestSupport.h"

#include "editors/kwSimpleCheck.h"
#include "platform/CheckBox.h"
#include "platform/PropertyBag.h"

#include <QCheckBox>
#include <QSignalSpy>
#include <QTest>

using namespace kwFieldDeck;
using Host = test::EditorHost<kwSimpleCheck>;

class tst_kwSimpleCheck : public QObject
{
    Q_OBJECT
private slots:
    void clickingTheBoxChecksItAndRaisesOneClick();
    void clickBesideTheBoxToggles_data();
    void clickBesideTheBoxToggles();
    void settingValueRaisesClickOnlyOnChange_data();
    void settingValueRaisesClickOnlyOnChange();
    void spaceTogglesTheBox();
    void upAndDownMoveToNeighbourRowsWithoutKeyDown_data();
    void upAndDownMoveToNeighbourRowsWithoutKeyDown();
    void focusGivenToTheSurfaceGoesToTheBox();
    void boxIsCentredInTheCell_data();
    void boxIsCentredInTheCell();
    void foreColorFontAndEnabledAreKeptButNotApplied();
    void emptyBagYieldsDefaults();
    void bagRoundTrips();
};

void tst_kwSimpleCheck::clickingTheBoxChecksItAndRaisesOneClick()
{
    Host host("kwSimpleCheck");
    QVERIFY(host.show());
    auto *check = host.child<CheckBox>("Check1");
    QSignalSpy clicks(host.editor, &kwSimpleCheck::Click);
    QTest::mouseClick(check->widget(), Qt::LeftButton, {}, QPoint(6, 6));
    QCOMPARE(clicks.count(), 1);
    QCOMPARE(host.editor->Value(), qint16(1));
}

void tst_kwSimpleCheck::clickBesideTheBoxToggles_data()
{
    QTest::addColumn<qint16>("start");
    QTest::addColumn<qint16>("after");
    QTest::newRow("unchecked becomes checked") << qint16(0) << qint16(1);
    QTest::newRow("checked becomes unchecked") << qint16(1) << qint16(0);
    // A grayed box becomes checked, never unchecked.
    QTest::newRow("grayed becomes checked") << qint16(2) << qint16(1);
}

void tst_kwSimpleCheck::clickBesideTheBoxToggles()
{
    QFETCH(qint16, start);
    QFETCH(qint16, after);
    Host host("kwSimpleCheck");
    QVERIFY(host.show());
    host.editor->setValue(start);
    QSignalSpy clicks(host.editor, &kwSimpleCheck::Click);
    QTest::mouseClick(host.editor, Qt::LeftButton, {}, QPoint(3, 10));
    QCOMPARE(host.editor->Value(), after);
    QCOMPARE(clicks.count(), 1);
}

void tst_kwSimpleCheck::settingValueRaisesClickOnlyOnChange_data()
{
    QTest::addColumn<qint16>("start");
    QTest::addColumn<qint16>("value");
    QTest::addColumn<int>("clicks");
    QTest::newRow("same value") << qint16(1) << qint16(1) << 0;
    QTest::newRow("checked") << qint16(0) << qint16(1) << 1;
    QTest::newRow("grayed") << qint16(1) << qint16(2) << 1;
    QTest::newRow("cleared") << qint16(2) << qint16(0) << 1;
}

void tst_kwSimpleCheck::settingValueRaisesClickOnlyOnChange()
{
    QFETCH(qint16, start);
    QFETCH(qint16, value);
    QFETCH(int, clicks);
    Host host("kwSimpleCheck");
    host.editor->setValue(start);
    QSignalSpy clickSpy(host.editor, &kwSimpleCheck::Click);
    QSignalSpy changed(host.editor, &UserControl::PropertyChanged);
    host.editor->setValue(value);
    QCOMPARE(clickSpy.count(), clicks);
    QCOMPARE(host.editor->Value(), value);
    QCOMPARE(host.child<CheckBox>("Check1")->Value(), value);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.at(0).at(0).toString(), QStringLiteral("Value"));
}

void tst_kwSimpleCheck::spaceTogglesTheBox()
{
    Host host("kwSimpleCheck");
    QVERIFY(host.show());
    auto *check = host.child<CheckBox>("Check1");
    check->SetFocus();
    QSignalSpy clicks(host.editor, &kwSimpleCheck::Click);
    QTest::keyClick(check->widget(), Qt::Key_Space);
    QCOMPARE(host.editor->Value(), qint16(1));
    QTest::keyClick(check->widget(), Qt::Key_Space);
    QCOMPARE(host.editor->Value(), qint16(0));
    QCOMPARE(clicks.count(), 2);
}

void tst_kwSimpleCheck::upAndDownMoveToNeighbourRowsWithoutKeyDown_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("focusAfter");
    QTest::newRow("up") << int(Qt::Key_Up) << QStringLiteral("before");
    QTest::newRow("down") << int(Qt::Key_Down) << QStringLiteral("after");
}

void tst_kwSimpleCheck::upAndDownMoveToNeighbourRowsWithoutKeyDown()
{
    QFETCH(int, key);
    QFETCH(QString, focusAfter);
    Host host("kwSimpleCheck");
    QVERIFY(host.show());
    auto *check = host.child<CheckBox>("Check1");
    check->SetFocus();
    QSignalSpy keyDowns(host.editor, &kwSimpleCheck::KeyDown);
    QTest::keyClick(check->widget(), Qt::Key(key));
    QTRY_COMPARE(QApplication::focusWidget()->objectName(), focusAfter);
    QCOMPARE(keyDowns.count(), 0);
    QCOMPARE(host.editor->Value(), qint16(0));
}

void tst_kwSimpleCheck::focusGivenToTheSurfaceGoesToTheBox()
{
    Host host("kwSimpleCheck");
    QVERIFY(host.show());
    QSignalSpy hasFocus(host.editor, &kwSimpleCheck::HasFocus);
    host.extender->SetFocus();
    QCOMPARE(QApplication::focusWidget(), host.child<CheckBox>("Check1")->widget());
    // Once for the surface, once more when the box takes the focus.
    QCOMPARE(hasFocus.count(), 2);
}

void tst_kwSimpleCheck::boxIsCentredInTheCell_data()
{
    QTest::addColumn<float>("width");
    QTest::addColumn<float>("height");
    QTest::newRow("row") << 3000.0f << 315.0f;
    QTest::newRow("tall") << 1200.0f << 900.0f;
}

void tst_kwSimpleCheck::boxIsCentredInTheCell()
{
    QFETCH(float, width);
    QFETCH(float, height);
    Host host("kwSimpleCheck", width, height);
    auto *check = host.child<CheckBox>("Check1");
    // At least the designed 200 twips, square, and only the box.
    const float side = check->Width();
    QVERIFY(side >= 200.0f && side < 400.0f);
    QCOMPARE(check->Height(), side);
    QCOMPARE(check->Left(), (width - side) / 2);
    QCOMPARE(check->Top(), (height - side) / 2);
}

void tst_kwSimpleCheck::foreColorFontAndEnabledAreKeptButNotApplied()
{
    Host host("kwSimpleCheck");
    auto *check = host.child<CheckBox>("Check1");
    const QFont boxFont = check->Font();
    QFont big = boxFont;
    big.setPointSize(boxFont.pointSize() + 10);
    host.editor->setEnabled(false);
    host.editor->setForeColor(0x0000FF);
    host.editor->setFont(big);
    QVERIFY(check->Enabled());
    QCOMPARE(check->Font(), boxFont);
    QCOMPARE(host.editor->Enabled(), false);
    QCOMPARE(host.editor->ForeColor(), OleColor(0x0000FF));
    QCOMPARE(host.editor->Font(), big);
    MemoryPropertyBag bag;
    host.editor->writeProperties(bag);
    QCOMPARE(bag.ReadProperty(QStringLiteral("ForeColor")).toUInt(), 0x0000FFu);
    QCOMPARE(bag.ReadProperty(QStringLiteral("Font")).value<QFont>(), big);
    // False is the default, so it is left out.
    QVERIFY(!bag.contains(QStringLiteral("Enabled")));
}

void tst_kwSimpleCheck::emptyBagYieldsDefaults()
{
    Host host("kwSimpleCheck");
    host.editor->setValue(1);
    host.editor->setBackColor(0x00FF00);
    host.editor->setForeColor(0x123456);
    host.editor->setEnabled(true);
    host.editor->setBorderStyle(1);
    host.editor->setBackStyle(0);
    MemoryPropertyBag empty;
    host.editor->readProperties(empty);
    QCOMPARE(host.editor->Value(), qint16(0));
    QCOMPARE(host.editor->BackColor(), SystemColor::ButtonFace);
    QCOMPARE(host.editor->ForeColor(), OleColor(0));
    QCOMPARE(host.editor->Enabled(), false);
    QCOMPARE(host.editor->Font(), host.editor->ambientFont());
    QCOMPARE(host.editor->BackStyle(), qint16(1));
    QCOMPARE(host.editor->BorderStyle(), qint16(0));
}

void tst_kwSimpleCheck::bagRoundTrips()
{
    Host first("kwSimpleCheck");
    first.editor->setValue(2);
    first.editor->setBackColor(0x80000005);
    first.editor->setForeColor(0x00FF00);
    first.editor->setEnabled(true);
    first.editor->setBorderStyle(1);
    MemoryPropertyBag bag;
    first.editor->writeProperties(bag);
    QCOMPARE(
        bag.names(), QStringList({ "BackColor", "ForeColor", "Enabled", "BorderStyle", "Value" }));

    Host second("kwSimpleCheck");
    second.editor->readProperties(bag);
    QCOMPARE(second.editor->Value(), qint16(2));
    QCOMPARE(second.editor->BackColor(), OleColor(0x80000005));
    QCOMPARE(second.editor->ForeColor(), OleColor(0x00FF00));
    QCOMPARE(second.editor->Enabled(), true);
    QCOMPARE(second.editor->BorderStyle(), qint16(1));
}

QTEST_MAIN(tst_kwSimpleCheck)
#include "tst_kwSimpleCheck.moc"
