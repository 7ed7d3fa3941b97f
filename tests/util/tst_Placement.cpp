#include "util/Placement.h"

#include "platform/PictureBox.h"

#include <QtTest>

using namespace kwFieldDeck;

class tst_Placement : public QObject
{
    Q_OBJECT
private slots:
    void childIsCentredInTheHost_data()
    {
        QTest::addColumn<bool>("centreH");
        QTest::addColumn<bool>("centreV");
        QTest::addColumn<QPointF>("offset");
        QTest::addColumn<QPointF>("expected");
        // Host 3000 x 600, child 1000 x 255 at (120, 45).
        QTest::newRow("both ways") << true << true << QPointF() << QPointF(1000, 172.5);
        QTest::newRow("vertically only keeps Left")
            << false << true << QPointF() << QPointF(120, 172.5);
        QTest::newRow("horizontally only keeps Top")
            << true << false << QPointF() << QPointF(1000, 45);
        QTest::newRow("with offsets") << true << true << QPointF(30, -15) << QPointF(1030, 157.5);
    }

    void childIsCentredInTheHost()
    {
        QFETCH(bool, centreH);
        QFETCH(bool, centreV);
        QFETCH(QPointF, offset);
        QFETCH(QPointF, expected);
        PictureBox host(QStringLiteral("picHost")), child(QStringLiteral("Check1"));
        host.Move(500, 700, 3000, 600);
        child.Move(120, 45, 1000, 255);
        PlaceChild(&child, &host, centreH, centreV, offset.x(), offset.y());
        QCOMPARE(QRectF(child.Left(), child.Top(), child.Width(), child.Height()),
            QRectF(expected, QSizeF(1000, 255)));
    }
};

QTEST_MAIN(tst_Placement)
#include "tst_Placement.moc"
