#include "util/Text.h"

#include <QtTest>

using namespace kwFieldDeck;

class tst_Text : public QObject
{
    Q_OBJECT
private slots:
    void pieceCutsAtEveryDelimiter_data();
    void pieceCutsAtEveryDelimiter();
    void removeTabsDropsOnlyTabs_data();
    void removeTabsDropsOnlyTabs();
    void listPositionIsOneBasedAndZeroWhenAbsent_data();
    void listPositionIsOneBasedAndZeroWhenAbsent();
    void lineCountCountsCrLfPairsPlusOne_data();
    void lineCountCountsCrLfPairsPlusOne();
};

void tst_Text::pieceCutsAtEveryDelimiter_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("delimiter");
    QTest::addColumn<int>("n");
    QTest::addColumn<QString>("expected");

    QTest::newRow("first") << "KEY=value"
                           << "=" << 1 << "KEY";
    QTest::newRow("second") << "KEY=value"
                            << "=" << 2 << "value";
    QTest::newRow("later delimiters stay apart") << "a=b=c"
                                                 << "=" << 2 << "b";
    QTest::newRow("last") << "a=b=c"
                          << "=" << 3 << "c";
    QTest::newRow("fewer parts") << "a=b=c"
                                 << "=" << 4 << "";
    QTest::newRow("no delimiter, first part is the text") << "ADDFIELD"
                                                          << " " << 1 << "ADDFIELD";
    QTest::newRow("no delimiter, second part") << "ADDFIELD"
                                               << " " << 2 << "";
    QTest::newRow("empty part between delimiters") << "a==b"
                                                   << "=" << 2 << "";
    QTest::newRow("after adjacent delimiters") << "a==b"
                                               << "=" << 3 << "b";
    QTest::newRow("untrimmed") << " NAME = x y "
                               << "=" << 2 << " x y ";
    QTest::newRow("trailing delimiter gives an empty last part") << "a|"
                                                                 << "|" << 2 << "";
    QTest::newRow("leading delimiter gives an empty first part") << "|a"
                                                                 << "|" << 1 << "";
    QTest::newRow("delimiter of several characters") << "a\r\nb\r\nc"
                                                     << "\r\n"
                                                     << 3 << "c";
    QTest::newRow("empty text") << ""
                                << "=" << 1 << "";
    QTest::newRow("part zero") << "a=b"
                               << "=" << 0 << "";
}

void tst_Text::pieceCutsAtEveryDelimiter()
{
    QFETCH(QString, text);
    QFETCH(QString, delimiter);
    QFETCH(int, n);
    QFETCH(QString, expected);
    QCOMPARE(Piece(text, delimiter, n), expected);
}

void tst_Text::removeTabsDropsOnlyTabs_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    QTest::newRow("indented key") << "\t\tTYPE=TEXT"
                                  << "TYPE=TEXT";
    QTest::newRow("tabs inside") << "a\tb\tc"
                                 << "abc";
    QTest::newRow("blanks and line ends kept") << " a \r\n\tb "
                                               << " a \r\nb ";
    QTest::newRow("no tabs") << "plain"
                             << "plain";
    QTest::newRow("only tabs") << "\t\t"
                               << "";
}

void tst_Text::removeTabsDropsOnlyTabs()
{
    QFETCH(QString, text);
    QFETCH(QString, expected);
    QCOMPARE(RemoveTabs(text), expected);
}

void tst_Text::listPositionIsOneBasedAndZeroWhenAbsent_data()
{
    const QString types = QStringLiteral(
        "TEXT,NUMERIC,CHECKBOX,COMBO,DATE,SLIDER,FILESELECTOR,FOLDERSELECTOR,MEMO");
    QTest::addColumn<QString>("list");
    QTest::addColumn<QString>("word");
    QTest::addColumn<int>("expected");
    QTest::newRow("first") << types << "TEXT" << 1;
    QTest::newRow("middle") << types << "DATE" << 5;
    QTest::newRow("last") << types << "MEMO" << 9;
    QTest::newRow("a part of an item is not the item") << types << "FILE" << 0;
    QTest::newRow("letter case counts") << types << "Memo" << 0;
    QTest::newRow("empty word") << types << "" << 0;
    QTest::newRow("two items together") << types << "TEXT,NUMERIC" << 0;
    QTest::newRow("repeated item finds the first") << "A,B,A"
                                                   << "A" << 1;
}

void tst_Text::listPositionIsOneBasedAndZeroWhenAbsent()
{
    QFETCH(QString, list);
    QFETCH(QString, word);
    QFETCH(int, expected);
    QCOMPARE(ListPosition(list, word), expected);
}

void tst_Text::lineCountCountsCrLfPairsPlusOne_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("expected");
    QTest::newRow("empty") << "" << 1;
    QTest::newRow("one line") << "abc" << 1;
    QTest::newRow("two lines") << "ab\r\ncd" << 2;
    QTest::newRow("ends with a line break") << "ab\r\n" << 2;
    QTest::newRow("empty lines") << "\r\n\r\n" << 3;
    QTest::newRow("bare LF is not a line break") << "a\nb\nc" << 1;
    QTest::newRow("bare CR is not a line break") << "a\rb" << 1;
    QTest::newRow("CR CR LF holds one pair") << "a\r\r\nb" << 2;
}

void tst_Text::lineCountCountsCrLfPairsPlusOne()
{
    QFETCH(QString, text);
    QFETCH(int, expected);
    QCOMPARE(LineCount(text), expected);
}

QTEST_GUILESS_MAIN(tst_Text)
#include "tst_Text.moc"
