#include "platform/Slider.h"

#include <QSignalSpy>
#include <QSlider>
#include <QTest>

using namespace kwFieldDeck;

class tst_Slider : public QObject
{
    Q_OBJECT
private slots:
    void rangeReadsBackAsSet_data();
    void rangeReadsBackAsSet();
    void dragScrollsThenChangesOnRelease();
    void mouseClickRaisesClick();
};

void tst_Slider::rangeReadsBackAsSet_data()
{
    QTest::addColumn<int>("min");
    QTest::addColumn<int>("max");
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("shown");
    QTest::newRow("in order") << 0 << 10 << 4 << 4;
    QTest::newRow("past Max is brought in") << 0 << 10 << 40 << 10;
    QTest::newRow("Max below Min") << 8 << 3 << 5 << 5;
    QTest::newRow("below both") << 8 << 3 << 0 << 3;
}

void tst_Slider::rangeReadsBackAsSet()
{
    QFETCH(int, min);
    QFETCH(int, max);
    QFETCH(int, value);
    QFETCH(int, shown);
    Slider slider(QStringLiteral("Slider1"));
    slider.setMin(min);
    slider.setMax(max);
    slider.setValue(value);
    QCOMPARE(slider.Min(), min);
    QCOMPARE(slider.Max(), max);
    QCOMPARE(slider.Value(), shown);
}

void tst_Slider::dragScrollsThenChangesOnRelease()
{
    Slider slider(QStringLiteral("Slider1"));
    QSignalSpy changes(&slider, &Slider::Change);
    QSignalSpy scrolls(&slider, &Slider::Scroll);
    slider.slider()->setSliderDown(true);
    slider.slider()->setSliderPosition(6);
    QCOMPARE(slider.Value(), 6);
    // Setting the thumb's own position while dragging is no change.
    slider.setValue(6);
    QCOMPARE(scrolls.count(), 1);
    QCOMPARE(changes.count(), 0);
    slider.slider()->setSliderDown(false);
    QCOMPARE(changes.count(), 1);
    QCOMPARE(slider.Value(), 6);
}

void tst_Slider::mouseClickRaisesClick()
{
    QWidget window;
    Slider slider(QStringLiteral("Slider1"));
    slider.setContainer(&window);
    slider.Move(0, 0, 3000, 450);
    slider.setVisible(true);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QSignalSpy clicks(&slider, &Control::Click);
    QTest::mouseClick(slider.widget(), Qt::LeftButton, {}, QPoint(150, 10));
    QCOMPARE(clicks.count(), 1);
}

QTEST_MAIN(tst_Slider)
#include "tst_Slider.moc"
