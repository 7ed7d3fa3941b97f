#include "util/Placement.h"

#include "platform/ClassFactory.h"
#include "platform/Error.h"
#include "platform/PictureBox.h"
#include "platform/UserControl.h"

#include <QtTest>

#include <memory>

using namespace kwFieldDeck;

class tst_Placement : public QObject
{
    Q_OBJECT
private slots:
    void childIsCentredInTheHost_data();
    void childIsCentredInTheHost();
    void userControlHostUsesItsExtenderSize();
    void missingChildOrHostIsObjectRequired();
};

void tst_Placement::childIsCentredInTheHost_data()
{
    QTest::addColumn<bool>("centreH");
    QTest::addColumn<bool>("centreV");
    QTest::addColumn<float>("offsetX");
    QTest::addColumn<float>("offsetY");
    QTest::addColumn<float>("left");
    QTest::addColumn<float>("top");
    // Host 3000 x 600, child 1000 x 255 at (120, 45).
    QTest::newRow("both ways") << true << true << 0.f << 0.f << 1000.f << 172.5f;
    QTest::newRow("vertically only keeps Left") << false << true << 0.f << 0.f << 120.f << 172.5f;
    QTest::newRow("horizontally only keeps Top") << true << false << 0.f << 0.f << 1000.f << 45.f;
    QTest::newRow("neither") << false << false << 0.f << 0.f << 120.f << 45.f;
    QTest::newRow("with offsets") << true << true << 30.f << -15.f << 1030.f << 157.5f;
}

void tst_Placement::childIsCentredInTheHost()
{
    QFETCH(bool, centreH);
    QFETCH(bool, centreV);
    QFETCH(float, offsetX);
    QFETCH(float, offsetY);
    QFETCH(float, left);
    QFETCH(float, top);
    PictureBox host(QStringLiteral("picHost"));
    host.Move(500, 700, 3000, 600);
    PictureBox child(QStringLiteral("Check1"));
    child.Move(120, 45, 1000, 255);

    PlaceChild(&child, &host, centreH, centreV, offsetX, offsetY);
    QCOMPARE(child.Left(), left);
    QCOMPARE(child.Top(), top);
    QCOMPARE(child.Width(), 1000.f);
    QCOMPARE(child.Height(), 255.f);
}

void tst_Placement::userControlHostUsesItsExtenderSize()
{
    auto *surface = new UserControl;
    std::unique_ptr<Control> extender(
        ClassFactory::wrapUserControl(surface, QStringLiteral("kwSimpleCheck1"), nullptr));
    extender->Move(0, 0, 2400, 300);
    PictureBox child(QStringLiteral("Check1"));
    child.setContainer(surface);
    child.Move(0, 0, 200, 200);

    PlaceChild(&child, surface, true, true, 0, 0);
    QCOMPARE(child.Left(), 1100.f);
    QCOMPARE(child.Top(), 50.f);
    QCOMPARE(child.widget()->x(), twipsToPixelsX(1100));
}

void tst_Placement::missingChildOrHostIsObjectRequired()
{
    PictureBox host(QStringLiteral("picHost"));
    PictureBox child(QStringLiteral("Check1"));
    auto numberOf = [](auto &&call) {
        try {
            call();
        } catch (const Error &error) {
            return error.number();
        }
        return 0;
    };
    QCOMPARE(numberOf([&] { PlaceChild(nullptr, &host, true, true); }), int(ErrObjectRequired));
    QCOMPARE(numberOf([&] { PlaceChild(&child, static_cast<Control *>(nullptr), true, true); }),
        int(ErrObjectRequired));
    QCOMPARE(numberOf([&] { PlaceChild(&child, static_cast<UserControl *>(nullptr), true, true); }),
        int(ErrObjectRequired));
}

QTEST_MAIN(tst_Placement)
#include "tst_Placement.moc"
