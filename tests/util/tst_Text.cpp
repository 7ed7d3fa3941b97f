#include "runtime/Text.h"

#include <QtTest>

using namespace kwFieldDeck;

namespace {
enum Operation { PieceOf, PositionIn, LinesOf };

void row(const char *name, int operation, const char *text, const char *argument, int n,
    const char *expected)
{
    QTest::newRow(name) << operation << QString::fromUtf8(text) << QString::fromUtf8(argument) << n
                        << QString::fromUtf8(expected);
}
} // namespace

class tst_Text : public QObject
{
    Q_OBJECT
private slots:
    void textOperationGivesItsResult_data()
    {
        QTest::addColumn<int>("operation");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("argument"); // delimiter of a piece, word of a list position
        QTest::addColumn<int>("n");
        QTest::addColumn<QString>("expected");
        const char *types
            = "TEXT,NUMERIC,CHECKBOX,COMBO,DATE,SLIDER,FILESELECTOR,FOLDERSELECTOR,MEMO";
        row("second piece", PieceOf, "KEY=value", "=", 2, "value");
        row("fewer parts", PieceOf, "a=b=c", "=", 4, "");
        row("no delimiter", PieceOf, "ADDFIELD", " ", 1, "ADDFIELD");
        row("after adjacent delimiters", PieceOf, "a==b", "=", 3, "b");
        row("untrimmed", PieceOf, " NAME = x y ", "=", 2, " x y ");
        row("CR LF delimiter", PieceOf, "a\r\nb\r\nc", "\r\n", 3, "c");
        row("list position", PositionIn, types, "DATE", 0, "5");
        row("part of an item", PositionIn, types, "FILE", 0, "0");
        row("letter case counts", PositionIn, types, "Memo", 0, "0");
        row("first of a repeated item", PositionIn, "A,B,A", "A", 0, "1");
        row("no text is one line", LinesOf, "", "", 0, "1");
        row("ends with CR LF", LinesOf, "ab\r\n", "", 0, "2");
        row("empty lines", LinesOf, "\r\n\r\n", "", 0, "3");
        row("bare LF and CR", LinesOf, "a\nb\rc", "", 0, "1");
        row("CR CR LF", LinesOf, "a\r\r\nb", "", 0, "2");
    }

    void textOperationGivesItsResult()
    {
        QFETCH(int, operation);
        QFETCH(QString, text);
        QFETCH(QString, argument);
        QFETCH(int, n);
        QFETCH(QString, expected);
        if (operation == PieceOf)
            QCOMPARE(Piece(text, argument, n), expected);
        else if (operation == PositionIn)
            QCOMPARE(QString::number(ListPosition(text, argument)), expected);
        else
            QCOMPARE(QString::number(LineCount(text)), expected);
    }
};

QTEST_GUILESS_MAIN(tst_Text)
#include "tst_Text.moc"
