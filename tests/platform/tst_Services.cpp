#include "platform/Services.h"

#include "platform/Error.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QVBoxLayout>
#include <QtTest>

using namespace kwFieldDeck;

class tst_Services : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void init();
    void tabKeystrokesMoveTheFocus_data();
    void tabKeystrokesMoveTheFocus();
    void keystrokesArePostedNotSent();
    void keystrokesEditTheFocusWidget_data();
    void keystrokesEditTheFocusWidget();
    void modifiersTravelWithTheKey_data();
    void modifiersTravelWithTheKey();
    void unknownKeyNameIsAnInvalidArgument_data();
    void unknownKeyNameIsAnInvalidArgument();
    void screenFontsAreListed();

private:
    QWidget m_window;
    QLineEdit *m_first = nullptr;
    QLineEdit *m_second = nullptr;
    QLineEdit *m_third = nullptr;
    QPlainTextEdit *m_memo = nullptr;
};

void tst_Services::initTestCase()
{
    auto *layout = new QVBoxLayout(&m_window);
    layout->addWidget(m_first = new QLineEdit);
    layout->addWidget(m_second = new QLineEdit);
    layout->addWidget(m_third = new QLineEdit);
    layout->addWidget(m_memo = new QPlainTextEdit);
    m_window.show();
    QVERIFY(QTest::qWaitForWindowActive(&m_window));
}

void tst_Services::init()
{
    for (QLineEdit *edit : { m_first, m_second, m_third })
        edit->clear();
    m_memo->clear();
    m_second->setFocus();
    QVERIFY(m_second->hasFocus());
}

void tst_Services::tabKeystrokesMoveTheFocus_data()
{
    QTest::addColumn<QString>("keys");
    QTest::addColumn<int>("focus"); // 0 first, 1 second, 2 third
    QTest::newRow("{tab}") << "{tab}" << 2;
    QTest::newRow("{TAB}") << "{TAB}" << 2;
    QTest::newRow("+{tab}") << "+{tab}" << 0;
    QTest::newRow("{tab}+{Tab}") << "{tab}+{Tab}" << 1;
}

void tst_Services::tabKeystrokesMoveTheFocus()
{
    QFETCH(QString, keys);
    QFETCH(int, focus);
    const QLineEdit *edits[] = { m_first, m_second, m_third };
    SendKeys(keys);
    DoEvents();
    QTRY_COMPARE(QApplication::focusWidget(), edits[focus]);
}

void tst_Services::keystrokesArePostedNotSent()
{
    SendKeys(QStringLiteral("{tab}"));
    QCOMPARE(QApplication::focusWidget(), m_second);
    DoEvents();
    QCOMPARE(QApplication::focusWidget(), m_third);
}

void tst_Services::keystrokesEditTheFocusWidget_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("keys");
    QTest::addColumn<QString>("after");
    QTest::newRow("characters") << ""
                                << "ab1"
                                << "ab1";
    QTest::newRow("backspace") << "ab\t"
                               << "{Backspace}"
                               << "ab";
    QTest::newRow("braced character") << ""
                                      << "{+}"
                                      << "+";
}

void tst_Services::keystrokesEditTheFocusWidget()
{
    QFETCH(QString, before);
    QFETCH(QString, keys);
    QFETCH(QString, after);
    m_memo->setPlainText(before);
    m_memo->moveCursor(QTextCursor::End);
    m_memo->setFocus();
    SendKeys(keys);
    DoEvents();
    QTRY_COMPARE(m_memo->toPlainText(), after);
}

namespace {
// Records the key presses that reach a widget and keeps them from it.
class KeyRecorder : public QObject
{
public:
    QStringList presses;

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::KeyPress) {
            const auto *key = static_cast<QKeyEvent *>(event);
            presses << QStringLiteral("%1 %2 %3")
                           .arg(key->key(), 0, 16)
                           .arg(int(key->modifiers()), 0, 16)
                           .arg(QString::fromLatin1(key->text().toUtf8().toHex()));
            return true;
        }
        return event->type() == QEvent::KeyRelease;
    }
};
} // namespace

void tst_Services::modifiersTravelWithTheKey_data()
{
    QTest::addColumn<QString>("keys");
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<QString>("text");
    QTest::newRow("tab") << "{tab}" << int(Qt::Key_Tab) << 0 << "\t";
    QTest::newRow("shift+tab") << "+{tab}" << int(Qt::Key_Backtab) << int(Qt::ShiftModifier) << "";
    QTest::newRow("ctrl+tab") << "^{Tab}" << int(Qt::Key_Tab) << int(Qt::ControlModifier) << "\t";
    QTest::newRow("backspace") << "{Backspace}" << int(Qt::Key_Backspace) << 0 << "\b";
    QTest::newRow("alt+F4") << "%{F4}" << int(Qt::Key_F4) << int(Qt::AltModifier) << "";
}

void tst_Services::modifiersTravelWithTheKey()
{
    QFETCH(QString, keys);
    QFETCH(int, key);
    QFETCH(int, modifiers);
    QFETCH(QString, text);
    KeyRecorder recorder;
    m_first->setFocus();
    m_first->installEventFilter(&recorder);
    SendKeys(keys);
    DoEvents();
    m_first->removeEventFilter(&recorder);
    QCOMPARE(recorder.presses,
        QStringList { QStringLiteral("%1 %2 %3")
                          .arg(key, 0, 16)
                          .arg(modifiers, 0, 16)
                          .arg(QString::fromLatin1(text.toUtf8().toHex())) });
}

void tst_Services::unknownKeyNameIsAnInvalidArgument_data()
{
    QTest::addColumn<QString>("keys");
    QTest::newRow("unknown name") << "{nokey}";
    QTest::newRow("unclosed brace") << "{tab";
}

void tst_Services::unknownKeyNameIsAnInvalidArgument()
{
    QFETCH(QString, keys);
    int number = 0;
    try {
        SendKeys(keys);
    } catch (const Error &error) {
        number = error.number();
    }
    QCOMPARE(number, int(ErrInvalidCall));
}

void tst_Services::screenFontsAreListed()
{
    QStringList families = screenFontFamilies();
    QVERIFY(!families.isEmpty());
    QCOMPARE(families.removeDuplicates(), 0);
}

QTEST_MAIN(tst_Services)
#include "tst_Services.moc"
