#include "platform/MultiLineTextBox.h"

#include <QApplication>
#include <QClipboard>
#include <QPlainTextEdit>
#include <QtTest>

using namespace kwFieldDeck;

class tst_MultiLineTextBox : public QObject
{
    Q_OBJECT
private slots:
    void lineBreaksFromOutsideReadAsCrLf_data();
    void lineBreaksFromOutsideReadAsCrLf();
    void selectionCountsALineBreakAsTwoCharacters_data();
    void selectionCountsALineBreakAsTwoCharacters();
    void selTextReplacesTheSelection();
    void nonBreakingSpacesSurvive();
    void pastedTextKeepsOneBreakPerLine();
    void typedLineBreaksArePlainOnes();
    void ctrlTabTypesATabAndTabMovesOn();
};

void tst_MultiLineTextBox::lineBreaksFromOutsideReadAsCrLf_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("read");
    QTest::newRow("CR LF") << "a\r\nb"
                           << "a\r\nb";
    QTest::newRow("LF") << "a\nb\n"
                        << "a\r\nb\r\n";
    QTest::newRow("CR") << "a\rb"
                        << "a\r\nb";
    QTest::newRow("blank lines") << "\r\n\r\n"
                                 << "\r\n\r\n";
}

void tst_MultiLineTextBox::lineBreaksFromOutsideReadAsCrLf()
{
    QFETCH(QString, text);
    QFETCH(QString, read);
    MultiLineTextBox box(QStringLiteral("txt"));
    box.setText(text);
    QCOMPARE(box.Text(), read);
}

void tst_MultiLineTextBox::selectionCountsALineBreakAsTwoCharacters_data()
{
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("length");
    QTest::addColumn<int>("readStart");
    QTest::addColumn<int>("readLength");
    QTest::addColumn<QString>("selected");
    // Text "ab" CR LF "cd" CR LF "e".
    QTest::newRow("across a break") << 1 << 4 << 1 << 4 << "b\r\nc";
    QTest::newRow("second line") << 4 << 2 << 4 << 2 << "cd";
    QTest::newRow("last line") << 8 << 1 << 8 << 1 << "e";
    QTest::newRow("between CR and LF") << 3 << 0 << 4 << 0 << "";
    QTest::newRow("past the end") << 50 << 0 << 9 << 0 << "";
    QTest::newRow("whole text") << 0 << 9 << 0 << 9 << "ab\r\ncd\r\ne";
}

void tst_MultiLineTextBox::selectionCountsALineBreakAsTwoCharacters()
{
    QFETCH(int, start);
    QFETCH(int, length);
    QFETCH(int, readStart);
    QFETCH(int, readLength);
    QFETCH(QString, selected);
    MultiLineTextBox box(QStringLiteral("txt"));
    box.setText(QStringLiteral("ab\r\ncd\r\ne"));
    box.setSelStart(start);
    box.setSelLength(length);
    QCOMPARE(box.SelStart(), readStart);
    QCOMPARE(box.SelLength(), readLength);
    QCOMPARE(box.SelText(), selected);
}

void tst_MultiLineTextBox::selTextReplacesTheSelection()
{
    MultiLineTextBox box(QStringLiteral("txt"));
    box.setText(QStringLiteral("a--b"));
    box.setSelStart(1);
    box.setSelLength(2);
    box.setSelText(QStringLiteral("x\r\ny"));
    QCOMPARE(box.Text(), QStringLiteral("ax\r\nyb"));
    QCOMPARE(box.SelStart(), 5);
    QCOMPARE(box.SelLength(), 0);
}

void tst_MultiLineTextBox::nonBreakingSpacesSurvive()
{
    MultiLineTextBox box(QStringLiteral("txt"));
    const QString text = QStringLiteral("a\u00a0b\r\n\u00a0");
    box.setText(text);
    QCOMPARE(box.Text(), text);
}

void tst_MultiLineTextBox::pastedTextKeepsOneBreakPerLine()
{
    MultiLineTextBox box(QStringLiteral("txt"));
    QGuiApplication::clipboard()->setText(QStringLiteral("1\r\n2"));
    box.plainTextEdit()->paste();
    QCOMPARE(box.Text(), QStringLiteral("1\r\n2"));
}

void tst_MultiLineTextBox::typedLineBreaksArePlainOnes()
{
    MultiLineTextBox box(QStringLiteral("txt"));
    QTest::keyClicks(box.widget(), QStringLiteral("a"));
    QTest::keyClick(box.widget(), Qt::Key_Return, Qt::ShiftModifier);
    QTest::keyClicks(box.widget(), QStringLiteral("b"));
    QCOMPARE(box.Text(), QStringLiteral("a\r\nb"));
    QCOMPARE(box.SelStart(), 4);
}

void tst_MultiLineTextBox::ctrlTabTypesATabAndTabMovesOn()
{
    QWidget window;
    MultiLineTextBox box(QStringLiteral("txt"));
    box.setContainer(&window);
    box.setVisible(true);
    auto *next = new QWidget(&window);
    next->setFocusPolicy(Qt::StrongFocus);
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    box.SetFocus();
    QTest::keyClick(box.widget(), Qt::Key_Tab, Qt::ControlModifier);
    QCOMPARE(box.Text(), QStringLiteral("\t"));
    QTest::keyClick(box.widget(), Qt::Key_Tab);
    QCOMPARE(box.Text(), QStringLiteral("\t"));
    QVERIFY(next->hasFocus());
}

QTEST_MAIN(tst_MultiLineTextBox)
#include "tst_MultiLineTextBox.moc"
