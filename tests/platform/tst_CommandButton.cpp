#include "platform/CommandButton.h"

#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

using namespace kwFieldDeck;

class tst_CommandButton : public QObject
{
    Q_OBJECT
private slots:
    void focusingPressIsIgnoredOnlyWhenThePressGaveTheFocus_data();
    void focusingPressIsIgnoredOnlyWhenThePressGaveTheFocus();
};

void tst_CommandButton::focusingPressIsIgnoredOnlyWhenThePressGaveTheFocus_data()
{
    QTest::addColumn<bool>("focusedFirst");
    QTest::addColumn<int>("clicks");
    QTest::newRow("press gives the focus") << false << 0;
    QTest::newRow("focus was there") << true << 1;
}

void tst_CommandButton::focusingPressIsIgnoredOnlyWhenThePressGaveTheFocus()
{
    QFETCH(bool, focusedFirst);
    QFETCH(int, clicks);
    QWidget window;
    auto *elsewhere = new QLineEdit(&window);
    elsewhere->setGeometry(0, 40, 80, 20);
    CommandButton button(QStringLiteral("btnBrowse"));
    button.setCaption(QStringLiteral("..."));
    button.setContainer(&window);
    button.Move(0, 0, 255, 255);
    button.setVisible(true);
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    if (focusedFirst)
        button.SetFocus();
    else
        elsewhere->setFocus();
    connect(&button, &Control::GotFocus, &button, &CommandButton::ignoreFocusingPress);
    QSignalSpy clickSpy(&button, &Control::Click);
    QTest::mouseClick(button.widget(), Qt::LeftButton);
    QCOMPARE(clickSpy.count(), clicks);
    // The next press is a click of its own.
    QTest::mouseClick(button.widget(), Qt::LeftButton);
    QCOMPARE(clickSpy.count(), clicks + 1);
    QCOMPARE(button.Caption(), QStringLiteral("..."));
}

QTEST_MAIN(tst_CommandButton)
#include "tst_CommandButton.moc"
