#include "EditorHost.h"
#include "TestSupport.h"

#include "editors/kwSliderValue.h"
#include "platform/PropertyBag.h"
#include "platform/Slider.h"
#include "platform/TextBox.h"

#include <QLineEdit>
#include <QSignalSpy>
#include <QSlider>
#include <QTest>

using namespace kwFieldDeck;
using Host = test::EditorHost<kwSliderValue>;

class tst_kwSliderValue : public QObject
{
    Q_OBJECT
private slots:
    void plusAndMinusStepWithinTheRange_data();
    void plusAndMinusStepWithinTheRange();
    void onlyDigitsCanBeTyped_data();
    void onlyDigitsCanBeTyped();
    void typedNumberMovesTheSlider_data();
    void typedNumberMovesTheSlider();
    void valueShowsInBoxAndSlider();
    void minGuardsMaxButMaxIsTakenAsGiven_data();
    void minGuardsMaxButMaxIsTakenAsGiven();
    void draggingRaisesChangeThenScroll();
    void downSkipsTheSliderAndUpGoesBackOne_data();
    void downSkipsTheSliderAndUpGoesBackOne();
    void setFocusGoesToTheChildThatLastHadIt();
    void enabledReachesBothChildren();
    void layoutLinesUpBoxAndSlider();
    void emptyBagYieldsDefaults();
    void readingFillsMembersOnly();
    void readingAppliesMaxBeforeMinUnguarded();
    void bagRoundTrips();
};

void tst_kwSliderValue::plusAndMinusStepWithinTheRange_data()
{
    QTest::addColumn<int>("min");
    QTest::addColumn<int>("max");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<char>("key");
    QTest::addColumn<QString>("expected");
    QTest::newRow("+ at Max stays") << 0 << 10 << "10" << '+' << "10";
    QTest::newRow("+ steps up") << 0 << 10 << "4" << '+' << "5";
    QTest::newRow("- at Min stays") << 0 << 10 << "0" << '-' << "0";
    QTest::newRow("- steps down") << 0 << 10 << "4" << '-' << "3";
    QTest::newRow("- above a raised Min") << 5 << 20 << "9" << '-' << "8";
    QTest::newRow("- at a raised Min stays") << 5 << 20 << "5" << '-' << "5";
}

void tst_kwSliderValue::plusAndMinusStepWithinTheRange()
{
    QFETCH(int, min);
    QFETCH(int, max);
    QFETCH(QString, shown);
    QFETCH(char, key);
    QFETCH(QString, expected);
    Host host("kwSliderValue");
    QVERIFY(host.show());
    host.editor->setMax(max);
    host.editor->setMin(min);
    host.editor->setValue(shown.toInt());
    auto *box = host.child<TextBox>("txtNum");
    box->SetFocus();
    QTest::keyClick(box->widget(), key);
    QCOMPARE(box->Text(), expected);
    QCOMPARE(host.editor->Value(), expected.toInt());
    QCOMPARE(host.child<Slider>("Slider1")->Value(), expected.toInt());
}

void tst_kwSliderValue::onlyDigitsCanBeTyped_data()
{
    QTest::addColumn<char>("key");
    QTest::addColumn<QString>("expected");
    QTest::newRow("digit") << '7' << "37";
    QTest::newRow("point") << '.' << "3";
    QTest::newRow("space") << ' ' << "3";
    QTest::newRow("letter") << 'x' << "3";
}

void tst_kwSliderValue::onlyDigitsCanBeTyped()
{
    QFETCH(char, key);
    QFETCH(QString, expected);
    Host host("kwSliderValue");
    QVERIFY(host.show());
    host.editor->setMax(100);
    host.editor->setValue(3);
    auto *box = host.child<TextBox>("txtNum");
    box->SetFocus();
    box->setSelStart(1);
    QTest::keyClick(box->widget(), key);
    QCOMPARE(box->Text(), expected);
}

void tst_kwSliderValue::typedNumberMovesTheSlider_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("value");
    QTest::addColumn<QString>("shown");
    QTest::newRow("within the range") << "42" << 42 << "42";
    QTest::newRow("leading zero rewritten") << "07" << 7 << "7";
    // The slider brings a number past Max into the range and rewrites the box.
    QTest::newRow("past Max") << "250" << 100 << "100";
}

void tst_kwSliderValue::typedNumberMovesTheSlider()
{
    QFETCH(QString, typed);
    QFETCH(int, value);
    QFETCH(QString, shown);
    Host host("kwSliderValue");
    QVERIFY(host.show());
    host.editor->setMax(100);
    host.editor->setValue(1);
    auto *box = host.child<TextBox>("txtNum");
    box->SetFocus();
    box->lineEdit()->selectAll();
    QSignalSpy changes(host.editor, &kwSliderValue::Change);
    QTest::keyClicks(box->widget(), typed);
    QCOMPARE(host.child<Slider>("Slider1")->Value(), value);
    QCOMPARE(host.editor->Value(), value);
    QCOMPARE(box->Text(), shown);
    QVERIFY(changes.count() >= 1);
}

void tst_kwSliderValue::valueShowsInBoxAndSlider()
{
    Host host("kwSliderValue");
    QSignalSpy changed(host.editor, &UserControl::PropertyChanged);
    QSignalSpy changes(host.editor, &kwSliderValue::Change);
    host.editor->setValue(6);
    QCOMPARE(host.child<TextBox>("txtNum")->Text(), QStringLiteral("6"));
    QCOMPARE(host.child<Slider>("Slider1")->Value(), 6);
    QCOMPARE(changes.count(), 1);
    QCOMPARE(changed.last().at(0).toString(), QStringLiteral("Value"));
}

void tst_kwSliderValue::minGuardsMaxButMaxIsTakenAsGiven_data()
{
    QTest::addColumn<bool>("minFirst");
    QTest::addColumn<int>("min");
    QTest::addColumn<int>("max");
    QTest::addColumn<int>("expectedMin");
    QTest::addColumn<int>("expectedMax");
    QTest::newRow("Min equal to Max raises Max") << false << 10 << 10 << 10 << 11;
    QTest::newRow("Min above Max raises Max") << false << 15 << 10 << 15 << 16;
    QTest::newRow("Min below Max keeps Max") << false << 3 << 10 << 3 << 10;
    QTest::newRow("Max below Min is unchecked") << true << 5 << 2 << 5 << 2;
}

void tst_kwSliderValue::minGuardsMaxButMaxIsTakenAsGiven()
{
    QFETCH(bool, minFirst);
    QFETCH(int, min);
    QFETCH(int, max);
    QFETCH(int, expectedMin);
    QFETCH(int, expectedMax);
    Host host("kwSliderValue");
    if (minFirst) {
        host.editor->setMin(min);
        host.editor->setMax(max);
    } else {
        host.editor->setMax(max);
        host.editor->setMin(min);
    }
    QCOMPARE(host.editor->Min(), expectedMin);
    QCOMPARE(host.editor->Max(), expectedMax);
}

void tst_kwSliderValue::draggingRaisesChangeThenScroll()
{
    Host host("kwSliderValue");
    host.editor->setValue(2);
    QStringList events;
    connect(host.editor, &kwSliderValue::Change, this, [&] { events << "Change"; });
    connect(host.editor, &kwSliderValue::Scroll, this, [&] { events << "Scroll"; });
    QSlider *slider = host.child<Slider>("Slider1")->slider();
    slider->setSliderDown(true);
    slider->setSliderPosition(7);
    QCOMPARE(events, QStringList({ "Change", "Scroll" }));
    QCOMPARE(host.editor->Value(), 7);
    QCOMPARE(host.child<TextBox>("txtNum")->Text(), QStringLiteral("7"));
}

void tst_kwSliderValue::downSkipsTheSliderAndUpGoesBackOne_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("focusAfter");
    QTest::newRow("down") << int(Qt::Key_Down) << QStringLiteral("after");
    QTest::newRow("up") << int(Qt::Key_Up) << QStringLiteral("before");
}

void tst_kwSliderValue::downSkipsTheSliderAndUpGoesBackOne()
{
    QFETCH(int, key);
    QFETCH(QString, focusAfter);
    Host host("kwSliderValue");
    QVERIFY(host.show());
    auto *box = host.child<TextBox>("txtNum");
    box->SetFocus();
    QTest::keyClick(box->widget(), Qt::Key(key));
    QTRY_COMPARE(QApplication::focusWidget()->objectName(), focusAfter);
}

void tst_kwSliderValue::setFocusGoesToTheChildThatLastHadIt()
{
    Host host("kwSliderValue");
    QVERIFY(host.show());
    QSignalSpy hasFocus(host.editor, &kwSliderValue::HasFocus);
    host.editor->SetFocus();
    QCOMPARE(QApplication::focusWidget(), host.child<Slider>("Slider1")->widget());
    host.child<TextBox>("txtNum")->SetFocus();
    host.after->setFocus();
    host.editor->SetFocus();
    QCOMPARE(QApplication::focusWidget(), host.child<TextBox>("txtNum")->widget());
    QCOMPARE(hasFocus.count(), 3);
}

void tst_kwSliderValue::enabledReachesBothChildren()
{
    Host host("kwSliderValue");
    host.editor->setEnabled(false);
    QVERIFY(!host.child<TextBox>("txtNum")->Enabled());
    QVERIFY(!host.child<Slider>("Slider1")->Enabled());
    host.editor->setEnabled(true);
    QVERIFY(host.child<TextBox>("txtNum")->Enabled());
    QVERIFY(host.child<Slider>("Slider1")->Enabled());
}

void tst_kwSliderValue::layoutLinesUpBoxAndSlider()
{
    Host host("kwSliderValue", 3000, 315);
    auto *box = host.child<TextBox>("txtNum");
    auto *slider = host.child<Slider>("Slider1");
    QCOMPARE(slider->Left(), 635.0f);
    QCOMPARE(slider->Top(), 15.0f);
    QCOMPARE(slider->Width(), 3000.0f - 635);
    QCOMPARE(slider->Height(), 300.0f);
    QCOMPARE(box->Left(), 0.0f);
    QCOMPARE(box->Width(), 615.0f);
    QCOMPARE(box->Top(), (315 - box->Height()) / 2);
    QVERIFY(box->Height() > 0 && box->Height() <= 315);
}

void tst_kwSliderValue::emptyBagYieldsDefaults()
{
    Host host("kwSliderValue");
    host.editor->setMax(50);
    host.editor->setMin(5);
    host.editor->setBackColor(0x112233);
    host.editor->setEnabled(true);
    host.editor->setContainerHwnd(77);
    MemoryPropertyBag empty;
    host.editor->readProperties(empty);
    QCOMPARE(host.editor->Min(), 0);
    QCOMPARE(host.editor->Max(), 10);
    QCOMPARE(host.editor->Value(), 0);
    QCOMPARE(host.editor->BackColor(), OleColor(0));
    QCOMPARE(host.editor->ForeColor(), OleColor(0));
    QCOMPARE(host.editor->Enabled(), false);
    QCOMPARE(host.editor->BackStyle(), qint16(0));
    QCOMPARE(host.editor->BorderStyle(), qint16(0));
    QCOMPARE(host.editor->ContainerHwnd(), 0);
    QCOMPARE(host.editor->Font(), host.editor->ambientFont());
}

void tst_kwSliderValue::readingFillsMembersOnly()
{
    Host host("kwSliderValue");
    MemoryPropertyBag bag;
    bag.WriteProperty(QStringLiteral("Enabled"), false);
    bag.WriteProperty(QStringLiteral("Value"), 4);
    host.editor->setEnabled(true);
    host.editor->readProperties(bag);
    QCOMPARE(host.editor->Value(), 4);
    QCOMPARE(host.child<TextBox>("txtNum")->Text(), QStringLiteral("Text1"));
    QCOMPARE(host.child<Slider>("Slider1")->Value(), 0);
    QVERIFY(host.child<TextBox>("txtNum")->Enabled());
    QCOMPARE(host.editor->Enabled(), false);
}

void tst_kwSliderValue::readingAppliesMaxBeforeMinUnguarded()
{
    Host host("kwSliderValue");
    MemoryPropertyBag bag;
    bag.WriteProperty(QStringLiteral("Max"), 3);
    bag.WriteProperty(QStringLiteral("Min"), 8);
    host.editor->readProperties(bag);
    QCOMPARE(host.editor->Max(), 3);
    QCOMPARE(host.editor->Min(), 8);
}

void tst_kwSliderValue::bagRoundTrips()
{
    Host first("kwSliderValue");
    first.editor->setMax(40);
    first.editor->setMin(-5);
    first.editor->setValue(12);
    first.editor->setForeColor(0x0000FF);
    first.editor->setBorderStyle(1);
    first.editor->setContainerHwnd(1234);
    MemoryPropertyBag bag;
    first.editor->writeProperties(bag);
    Host second("kwSliderValue");
    second.editor->readProperties(bag);
    QCOMPARE(second.editor->Max(), 40);
    QCOMPARE(second.editor->Min(), -5);
    QCOMPARE(second.editor->Value(), 12);
    QCOMPARE(second.editor->ForeColor(), OleColor(0x0000FF));
    QCOMPARE(second.editor->BorderStyle(), qint16(1));
    QCOMPARE(second.editor->ContainerHwnd(), 1234);
}

QTEST_MAIN(tst_kwSliderValue)
#include "tst_kwSliderValue.moc"
