#include "platform/Control.h"

#include "platform/Error.h"
#include "platform/TextBox.h"

#include "RaisedError.h"

#include <QLineEdit>
#include <QtTest>

using namespace kwFieldDeck;

using test::raisedError;

class tst_Control : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void geometryIsKeptAsSetAndPlacedAtRoundedPixels_data();
    void geometryIsKeptAsSetAndPlacedAtRoundedPixels();
    void negativeSizeIsInvalidAndChangesNothing();
    void moveInToAContainerKeepsTheGeometry();
    void keyPressHandlerSwallowsOrReplacesACharacter();
    void keyDownHandlerSwallowsAKey();
    void keyHandlersReceiveCodeAndShiftState_data();
    void keyHandlersReceiveCodeAndShiftState();
    void setFocusNeedsAVisibleEnabledControl();
    void focusEventsFollowTheFocus();
    void wrapperIsFoundFromItsWidget();

private:
    QWidget m_window;
};

void tst_Control::initTestCase()
{
    if (twipsPerPixelX() != 15.0 || twipsPerPixelY() != 15.0)
        QSKIP("The pixel expectations are for a 96 DPI screen");
    m_window.resize(400, 300);
    m_window.show();
    QVERIFY(QTest::qWaitForWindowActive(&m_window));
}

void tst_Control::geometryIsKeptAsSetAndPlacedAtRoundedPixels_data()
{
    QTest::addColumn<float>("left");
    QTest::addColumn<float>("top");
    QTest::addColumn<float>("width");
    QTest::addColumn<float>("height");
    QTest::addColumn<QRect>("pixels");
    QTest::newRow("whole pixels") << 150.f << 300.f << 1500.f << 315.f << QRect(10, 20, 100, 21);
    QTest::newRow("thirds of a pixel")
        << 100.f << 1234.5f << 2000.f << 290.f << QRect(7, 82, 133, 19);
    QTest::newRow("halves round away from zero")
        << 22.5f << 37.5f << 52.5f << 7.5f << QRect(2, 3, 4, 1);
    QTest::newRow("negative position") << -100.f << -7.4f << 0.f << 0.f << QRect(-7, 0, 0, 0);
}

void tst_Control::geometryIsKeptAsSetAndPlacedAtRoundedPixels()
{
    QFETCH(float, left);
    QFETCH(float, top);
    QFETCH(float, width);
    QFETCH(float, height);
    QFETCH(QRect, pixels);
    TextBox box(QStringLiteral("Text1"));
    box.setContainer(&m_window);
    box.setLeft(left);
    box.setTop(top);
    box.setWidth(width);
    box.setHeight(height);
    QCOMPARE(box.Left(), left);
    QCOMPARE(box.Top(), top);
    QCOMPARE(box.Width(), width);
    QCOMPARE(box.Height(), height);
    QCOMPARE(box.widget()->geometry(), pixels);

    TextBox moved(QStringLiteral("Text2"));
    moved.setContainer(&m_window);
    moved.Move(left, top, width, height);
    QCOMPARE(moved.Left(), left);
    QCOMPARE(moved.Height(), height);
    QCOMPARE(moved.widget()->geometry(), pixels);
    moved.Move(left + 15, top);
    QCOMPARE(moved.Width(), width);
    QCOMPARE(moved.widget()->geometry(), pixels.translated(1, 0));
}

void tst_Control::negativeSizeIsInvalidAndChangesNothing()
{
    TextBox box(QStringLiteral("Text1"));
    box.Move(30, 45, 600, 300);
    QCOMPARE(raisedError([&] { box.setWidth(-1); }), int(ErrInvalidCall));
    QCOMPARE(raisedError([&] { box.setHeight(-15); }), int(ErrInvalidCall));
    QCOMPARE(raisedError([&] { box.Move(0, 0, -5, 10); }), int(ErrInvalidCall));
    QCOMPARE(box.Left(), 30.f);
    QCOMPARE(box.Width(), 600.f);
    QCOMPARE(box.Height(), 300.f);
}

void tst_Control::moveInToAContainerKeepsTheGeometry()
{
    TextBox box(QStringLiteral("Text1"));
    box.Move(150, 150, 1500, 300);
    box.setVisible(false);
    QWidget inner(&m_window);
    box.setContainer(&inner);
    QCOMPARE(box.Container(), &inner);
    QCOMPARE(box.widget()->geometry(), QRect(10, 10, 100, 20));
    QVERIFY(!box.Visible());
    QVERIFY(box.widget()->isHidden());
}

void tst_Control::keyPressHandlerSwallowsOrReplacesACharacter()
{
    TextBox box(QStringLiteral("Numeric1"));
    box.setContainer(&m_window);
    box.Move(0, 0, 1500, 300);
    QString seen;
    connect(&box, &Control::KeyPress, this, [&](int &keyAscii) {
        seen += QChar(keyAscii);
        if (keyAscii == 'x')
            keyAscii = 0;
        else if (keyAscii == 'a')
            keyAscii = 'b';
    });
    QTest::keyClicks(box.lineEdit(), QStringLiteral("xa1y"));
    QCOMPARE(seen, QStringLiteral("xa1y"));
    QCOMPARE(box.Text(), QStringLiteral("b1y"));
}

void tst_Control::keyDownHandlerSwallowsAKey()
{
    TextBox box(QStringLiteral("Text1"));
    box.setContainer(&m_window);
    box.setText(QStringLiteral("ab"));
    box.lineEdit()->setCursorPosition(2);
    int presses = 0;
    connect(&box, &Control::KeyDown, this, [](int &keyCode, int &) {
        if (keyCode == 'Q' || keyCode == KeyCode::Backspace)
            keyCode = 0;
    });
    connect(&box, &Control::KeyPress, this, [&](int &) { ++presses; });
    QTest::keyClick(box.lineEdit(), Qt::Key_Q);
    QTest::keyClick(box.lineEdit(), Qt::Key_Backspace);
    QCOMPARE(box.Text(), QStringLiteral("ab"));
    QCOMPARE(presses, 0);
    QTest::keyClick(box.lineEdit(), Qt::Key_Z);
    QCOMPARE(box.Text(), QStringLiteral("abz"));
    QCOMPARE(presses, 1);
}

void tst_Control::keyHandlersReceiveCodeAndShiftState_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<int>("keyCode");
    QTest::addColumn<int>("shift");
    QTest::newRow("Up") << int(Qt::Key_Up) << int(Qt::NoModifier) << KeyCode::Up << 0;
    QTest::newRow("Down") << int(Qt::Key_Down) << int(Qt::NoModifier) << KeyCode::Down << 0;
    QTest::newRow("Shift+Up") << int(Qt::Key_Up) << int(Qt::ShiftModifier) << KeyCode::Up
                              << ShiftState::Shift;
    QTest::newRow("Ctrl+A") << int(Qt::Key_A) << int(Qt::ControlModifier) << 65 << ShiftState::Ctrl;
    QTest::newRow("F4") << int(Qt::Key_F4) << int(Qt::NoModifier) << KeyCode::F4 << 0;
    QTest::newRow("Alt+Shift+Delete")
        << int(Qt::Key_Delete) << int(Qt::AltModifier | Qt::ShiftModifier) << KeyCode::Delete
        << (ShiftState::Alt | ShiftState::Shift);
}

void tst_Control::keyHandlersReceiveCodeAndShiftState()
{
    QFETCH(int, key);
    QFETCH(int, modifiers);
    QFETCH(int, keyCode);
    QFETCH(int, shift);
    TextBox box(QStringLiteral("Text1"));
    box.setContainer(&m_window);
    QList<QPair<int, int>> downs, ups;
    connect(&box, &Control::KeyDown, this, [&](int &code, int &state) {
        downs.append({ code, state });
    });
    connect(&box, &Control::KeyUp, this, [&](int &code, int &state) {
        ups.append({ code, state });
    });
    QTest::keyClick(box.lineEdit(), Qt::Key(key), Qt::KeyboardModifiers(modifiers));
    // Modifier keys are keys of their own, reported before the key they modify.
    QVERIFY(!downs.isEmpty());
    QCOMPARE(downs.last(), qMakePair(keyCode, shift));
    for (qsizetype i = 0; i + 1 < downs.size(); ++i)
        QVERIFY(QList<int>({ KeyCode::Shift, KeyCode::Control, KeyCode::Alt })
                    .contains(downs[i].first));
    QVERIFY(!ups.isEmpty());
    QCOMPARE(ups.first(), qMakePair(keyCode, shift));
}

void tst_Control::setFocusNeedsAVisibleEnabledControl()
{
    TextBox box(QStringLiteral("Text1"));
    box.setContainer(&m_window);
    box.setVisible(false);
    QCOMPARE(raisedError([&] { box.SetFocus(); }), int(ErrInvalidCall));
    box.setVisible(true);
    box.setEnabled(false);
    QCOMPARE(raisedError([&] { box.SetFocus(); }), int(ErrInvalidCall));
    QVERIFY(!box.hasFocus());
    box.setEnabled(true);
    QCOMPARE(raisedError([&] { box.SetFocus(); }), 0);
    QVERIFY(box.hasFocus());
}

void tst_Control::focusEventsFollowTheFocus()
{
    TextBox first(QStringLiteral("Text1"));
    TextBox second(QStringLiteral("Text2"));
    first.setContainer(&m_window);
    second.setContainer(&m_window);
    // Controls made at run time start hidden, as they did on the original platform.
    QVERIFY(!first.Visible());
    first.setVisible(true);
    second.setVisible(true);
    QStringList events;
    connect(&first, &Control::GotFocus, this, [&] { events << "Text1 got"; });
    connect(&first, &Control::LostFocus, this, [&] { events << "Text1 lost"; });
    connect(&second, &Control::GotFocus, this, [&] { events << "Text2 got"; });
    first.SetFocus();
    QTest::keyClick(first.lineEdit(), Qt::Key_Tab);
    QTRY_VERIFY(second.hasFocus());
    QCOMPARE(events, (QStringList { "Text1 got", "Text1 lost", "Text2 got" }));
    QCOMPARE(second.lastFocusReason(), Qt::TabFocusReason);
}

void tst_Control::wrapperIsFoundFromItsWidget()
{
    auto *box = new TextBox(QStringLiteral("Text1"));
    QWidget *widget = box->widget();
    QCOMPARE(Control::of(widget), box);
    QWidget plain;
    QCOMPARE(Control::of(&plain), nullptr);
    QCOMPARE(Control::of(nullptr), nullptr);
    delete box;
}

QTEST_MAIN(tst_Control)
#include "tst_Control.moc"
