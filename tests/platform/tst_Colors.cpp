#include "platform/Colors.h"

#include <QtTest>

using namespace kwFieldDeck;

class tst_Colors : public QObject
{
    Q_OBJECT
private slots:
    void rgbValueHasRedInTheLowByte_data();
    void rgbValueHasRedInTheLowByte();
    void systemColourIsLookedUpInThePalette_data();
    void systemColourIsLookedUpInThePalette();
    void systemColourFollowsADarkPalette();
    void systemColourIsRecognisedByItsTopBit();
};

void tst_Colors::rgbValueHasRedInTheLowByte_data()
{
    QTest::addColumn<quint32>("value");
    QTest::addColumn<QColor>("colour");
    QTest::newRow("red") << 0x000000FFu << QColor(255, 0, 0);
    QTest::newRow("green") << 0x0000FF00u << QColor(0, 255, 0);
    QTest::newRow("blue") << 0x00FF0000u << QColor(0, 0, 255);
    QTest::newRow("mixed") << 0x00123456u << QColor(0x56, 0x34, 0x12);
    QTest::newRow("black") << 0x00000000u << QColor(0, 0, 0);
    QTest::newRow("white") << 0x00FFFFFFu << QColor(255, 255, 255);
}

void tst_Colors::rgbValueHasRedInTheLowByte()
{
    QFETCH(quint32, value);
    QFETCH(QColor, colour);
    QCOMPARE(toQColor(value, QPalette()), colour);
    QCOMPARE(fromQColor(colour), value);
}

void tst_Colors::systemColourIsLookedUpInThePalette_data()
{
    QTest::addColumn<quint32>("value");
    QTest::addColumn<int>("role");
    QTest::newRow("button face") << SystemColor::ButtonFace << int(QPalette::Button);
    QTest::newRow("window background") << SystemColor::WindowBackground << int(QPalette::Base);
    QTest::newRow("window text") << SystemColor::WindowText << int(QPalette::Text);
    QTest::newRow("highlight") << SystemColor::Highlight << int(QPalette::Highlight);
    QTest::newRow("highlight text") << SystemColor::HighlightText << int(QPalette::HighlightedText);
    QTest::newRow("button text") << 0x80000012u << int(QPalette::ButtonText);
}

void tst_Colors::systemColourIsLookedUpInThePalette()
{
    QFETCH(quint32, value);
    QFETCH(int, role);
    QCOMPARE(int(paletteRoleOf(value)), role);
    // Every role its own colour, so that a wrong role cannot give the right colour.
    QPalette palette;
    for (int r = 0; r < QPalette::NColorRoles; ++r)
        palette.setColor(QPalette::Active, QPalette::ColorRole(r), QColor(r * 9, 255 - r * 9, 7));
    QCOMPARE(toQColor(value, palette), palette.color(QPalette::Active, QPalette::ColorRole(role)));
}

void tst_Colors::systemColourFollowsADarkPalette()
{
    QPalette dark;
    dark.setColor(QPalette::Base, QColor(30, 30, 30));
    dark.setColor(QPalette::Text, QColor(230, 230, 230));
    QCOMPARE(toQColor(SystemColor::WindowBackground, dark), QColor(30, 30, 30));
    QCOMPARE(toQColor(SystemColor::WindowText, dark), QColor(230, 230, 230));
}

void tst_Colors::systemColourIsRecognisedByItsTopBit()
{
    QVERIFY(isSystemColor(SystemColor::ButtonFace));
    QVERIFY(isSystemColor(0x80000000u));
    QVERIFY(!isSystemColor(0x00FFFFFFu));
    QVERIFY(!isSystemColor(0x7FFFFFFFu));
}

QTEST_MAIN(tst_Colors)
#include "tst_Colors.moc"
