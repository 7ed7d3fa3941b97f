#include "platform/MultiLineTextBox.h"

#include <QtTest>

using namespace kwFieldDeck;

class tst_MultiLineTextBox : public QObject
{
    Q_OBJECT
private slots:
    void unEditedTextAndSelectionCountBreaksAsSet_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("start");
        QTest::addColumn<int>("length");
        QTest::addColumn<int>("readStart");
        QTest::addColumn<int>("readLength");
        QTest::addColumn<QString>("selected");
        const QString crlf = QStringLiteral("ab\r\ncd\r\ne");
        QTest::newRow("CR LF, across a break") << crlf << 1 << 4 << 1 << 4 << "b\r\nc";
        QTest::newRow("LF, across a break") << "ab\ncd\ne" << 1 << 3 << 1 << 3 << "b\nc";
        QTest::newRow("CR, whole text") << "ab\rcd\re" << 0 << 9 << 0 << 7 << "ab\rcd\re";
        QTest::newRow("mixed") << "ab\ncd\r\ne\rf" << 3 << 5 << 3 << 5 << "cd\r\ne";
        QTest::newRow("between CR and LF") << crlf << 3 << 0 << 4 << 0 << "";
        QTest::newRow("between CR and LF, then LF") << "a\r\n\nb" << 2 << 2 << 3 << 2 << "\nb";
        QTest::newRow("past the end") << crlf << 50 << 0 << 9 << 0 << "";
    }

    void unEditedTextAndSelectionCountBreaksAsSet()
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
        QCOMPARE(box.Text(), text);
        QCOMPARE(box.SelStart(), readStart);
        QCOMPARE(box.SelLength(), readLength);
        QCOMPARE(box.SelText(), selected);
    }

    void anEditWritesEveryBreakAsCrLf_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("edited");
        QTest::newRow("LF") << "ab\ncd"
                            << "ab\r\ncd!";
        QTest::newRow("CR") << "ab\rcd"
                            << "ab\r\ncd!";
        QTest::newRow("mixed") << "ab\r\ncd\r\rf"
                               << "ab\r\ncd\r\n\r\nf!";
    }

    void anEditWritesEveryBreakAsCrLf()
    {
        QFETCH(QString, text);
        QFETCH(QString, edited);
        MultiLineTextBox box(QStringLiteral("txt"));
        box.setText(text);
        box.setSelStart(int(text.size()));
        box.setSelText(QStringLiteral("!"));
        QCOMPARE(box.Text(), edited);
        QCOMPARE(box.SelStart(), int(edited.size()));
    }
};

QTEST_MAIN(tst_MultiLineTextBox)
#include "tst_MultiLineTextBox.moc"
