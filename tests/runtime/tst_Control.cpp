#include "runtime/Control.h"

#include <QLineEdit>
#include <QtTest>

using namespace kwFieldDeck;

class tst_Control : public QObject
{
    Q_OBJECT
private slots:
    void geometryIsKeptAsSetAndPlacedAtRoundedPixels_data()
    {
        QTest::addColumn<QRectF>("twips");
        QTest::addColumn<QRect>("pixels");
        QTest::newRow("whole pixels") << QRectF(150, 300, 1500, 315) << QRect(10, 20, 100, 21);
        QTest::newRow("thirds of a pixel")
            << QRectF(100, 1234.5, 2000, 290) << QRect(7, 82, 133, 19);
        QTest::newRow("halves away from 0") << QRectF(22.5, 37.5, 52.5, 7.5) << QRect(2, 3, 4, 1);
        QTest::newRow("negative position") << QRectF(-100, -7.4f, 0, 0) << QRect(-7, 0, 0, 0);
    }

    void geometryIsKeptAsSetAndPlacedAtRoundedPixels()
    {
        QFETCH(QRectF, twips);
        QFETCH(QRect, pixels);
        if (twipsPerPixelX() != 15.0 || twipsPerPixelY() != 15.0)
            QSKIP("The pixel expectations are for a 96 DPI screen");
        Control set(new QLineEdit, QStringLiteral("Text1"));
        Control moved(new QLineEdit, QStringLiteral("Text2"));
        set.setContainer(&m_window);
        moved.setContainer(&m_window);
        set.setLeft(twips.left());
        set.setTop(twips.top());
        set.setWidth(twips.width());
        set.setHeight(twips.height());
        moved.Move(twips.left(), twips.top(), twips.width(), twips.height());
        for (const Control *box : { &set, &moved }) {
            QCOMPARE(QRectF(box->Left(), box->Top(), box->Width(), box->Height()), twips);
            QCOMPARE(box->widget()->geometry(), pixels);
        }
        moved.Move(twips.left() + 15, twips.top());
        QCOMPARE(moved.Width(), float(twips.width()));
        QCOMPARE(moved.widget()->geometry(), pixels.translated(1, 0));
    }

    void keyHandlersSwallowOrReplaceAKey()
    {
        auto *edit = new QLineEdit;
        Control box(edit, QStringLiteral("Numeric1"));
        box.setContainer(&m_window);
        QString seen;
        connect(&box, &Control::KeyDown, this, [](int &keyCode, int &) {
            if (keyCode == 'Q' || keyCode == KeyCode::Backspace)
                keyCode = 0;
        });
        connect(&box, &Control::KeyPress, this, [&](int &keyAscii) {
            seen += QChar(keyAscii);
            keyAscii = keyAscii == 'x' ? 0 : keyAscii == 'a' ? 'b' : keyAscii;
        });
        QTest::keyClicks(edit, QStringLiteral("xa1Q"));
        QTest::keyClick(edit, Qt::Key_Backspace);
        // A key swallowed on its way down never arrives as a character.
        QCOMPARE(seen, QStringLiteral("xa1"));
        QCOMPARE(edit->text(), QStringLiteral("b1"));
    }

private:
    QWidget m_window;
};

QTEST_MAIN(tst_Control)
#include "tst_Control.moc"
