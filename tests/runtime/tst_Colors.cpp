#include "runtime/Colors.h"

#include <QtTest>

using namespace kwFieldDeck;

namespace {
// Every role its own colour, so that a wrong role cannot give the right colour.
const auto roleColour = [](int role) { return QColor(role * 9, 255 - role * 9, 7); };
} // namespace

class tst_Colors : public QObject
{
    Q_OBJECT
private slots:
    void colourIsRgbWithRedLowOrAPaletteRole_data()
    {
        QTest::addColumn<quint32>("value");
        QTest::addColumn<QColor>("colour");
        QTest::newRow("red") << 0x000000FFu << QColor(255, 0, 0);
        QTest::newRow("blue") << 0x00FF0000u << QColor(0, 0, 255);
        QTest::newRow("mixed") << 0x00123456u << QColor(0x56, 0x34, 0x12);
        QTest::newRow("button face") << SystemColor::ButtonFace << roleColour(QPalette::Button);
        QTest::newRow("window background")
            << SystemColor::WindowBackground << roleColour(QPalette::Base);
        QTest::newRow("highlight") << SystemColor::Highlight << roleColour(QPalette::Highlight);
        QTest::newRow("button text") << 0x80000012u << roleColour(QPalette::ButtonText);
    }

    void colourIsRgbWithRedLowOrAPaletteRole()
    {
        QFETCH(quint32, value);
        QFETCH(QColor, colour);
        QPalette palette;
        for (int r = 0; r < QPalette::NColorRoles; ++r)
            palette.setColor(QPalette::Active, QPalette::ColorRole(r), roleColour(r));
        QCOMPARE(toQColor(value, palette), colour);
        if (!isSystemColor(value))
            QCOMPARE(fromQColor(colour), value);
    }
};

QTEST_MAIN(tst_Colors)
#include "tst_Colors.moc"
