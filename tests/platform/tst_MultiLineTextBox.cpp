#include "platform/MultiLineTextBox.h"

#include <QtTest>

using namespace kwFieldDeck;

class tst_MultiLineTextBox : public QObject
{
    Q_OBJECT
private slots:
    void textAndSelectionAreInCrLfTerms_data();
    void textAndSelectionAreInCrLfTerms();
};

void tst_MultiLineTextBox::textAndSelectionAreInCrLfTerms_data()
{
    QTest::addColumn<QString>("text"); // always "ab" CR LF "cd" CR LF "e" once read back
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("length");
    QTest::addColumn<int>("readStart");
    QTest::addColumn<int>("readLength");
    QTest::addColumn<QString>("selected");
    const QString crlf = QStringLiteral("ab\r\ncd\r\ne");
    QTest::newRow("CR LF, across a break") << crlf << 1 << 4 << 1 << 4 << "b\r\nc";
    QTest::newRow("LF, across a break") << "ab\ncd\ne" << 1 << 4 << 1 << 4 << "b\r\nc";
    QTest::newRow("CR, whole text") << "ab\rcd\re" << 0 << 9 << 0 << 9 << crlf;
    QTest::newRow("between CR and LF") << crlf << 3 << 0 << 4 << 0 << "";
    QTest::newRow("past the end") << crlf << 50 << 0 << 9 << 0 << "";
}

void tst_MultiLineTextBox::textAndSelectionAreInCrLfTerms()
{
    QFETCH(QString, text);
    QFETCH(int, start);
    QFETCH(int, length);
    QFETCH(int, readStart);
    QFETCH(int, readLength);
    QFETCH(QString, selected);
    MultiLineTextBox box(QStringLiteral("txt"));
    box.setText(text);
    box.setSelStart(start);
    box.setSelLength(length);
    QCOMPARE(box.Text(), QStringLiteral("ab\r\ncd\r\ne"));
    QCOMPARE(box.SelStart(), readStart);
    QCOMPARE(box.SelLength(), readLength);
    QCOMPARE(box.SelText(), selected);
}

QTEST_MAIN(tst_MultiLineTextBox)
#include "tst_MultiLineTextBox.moc"
