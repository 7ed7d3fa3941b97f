// Text pieces and counts, counters that overflow, whole files decoded, and paths fitted to a
// width.

#include "runtime/Files.h"
#include "runtime/FitPath.h"
#include "runtime/Numbers.h"
#include "runtime/Text.h"

#include "TestSupport.h"
#include "runtime/RaisedError.h"

#include <QFontMetrics>
#include <QtTest>

#include <limits>

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

class tst_TextAndFiles : public QObject
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

    void stepChangesTheCounterOrOverflowsKeepingIt_data()
    {
        QTest::addColumn<bool>("increment");
        QTest::addColumn<qint32>("start");
        QTest::addColumn<qint32>("step");
        QTest::addColumn<qint32>("expected"); // the start again when it overflows
        QTest::addColumn<int>("error");
        const qint32 top = std::numeric_limits<qint32>::max();
        const qint32 bottom = std::numeric_limits<qint32>::min();
        const int overflow = ErrOverflow;
        QTest::newRow("increment by several") << true << 10 << 5 << 15 << 0;
        QTest::newRow("increment by a negative step") << true << 10 << -3 << 7 << 0;
        QTest::newRow("increment up to the top") << true << top - 1 << 1 << top << 0;
        QTest::newRow("decrement down to the bottom") << false << bottom + 1 << 1 << bottom << 0;
        QTest::newRow("increment past the top") << true << top << 1 << top << overflow;
        QTest::newRow("increment below the bottom") << true << bottom << -1 << bottom << overflow;
        QTest::newRow("decrement below the bottom") << false << bottom << 1 << bottom << overflow;
        QTest::newRow("decrement past the top") << false << top << -1 << top << overflow;
    }

    void stepChangesTheCounterOrOverflowsKeepingIt()
    {
        QFETCH(bool, increment);
        QFETCH(qint32, start);
        QFETCH(qint32, step);
        QFETCH(qint32, expected);
        QFETCH(int, error);
        qint32 counter = start;
        qint32 returned = 0;
        QCOMPARE(test::raisedError([&] {
            returned = increment ? Increment(counter, step) : Decrement(counter, step);
        }),
            error);
        QCOMPARE(counter, expected);
        QCOMPARE(returned, error ? 0 : expected);
    }

    void readWholeFileDecodesItsBytes_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("expected");
        // Plain UTF-8, its byte-order mark and Windows-1252 letters: tst_DefinitionReader.
        QTest::newRow("Windows-1252 high codes")
            << QByteArray("\x80 \x85 \x93q\x94 \x96 \x99 \x9F")
            << QStringLiteral("\u20AC \u2026 \u201Cq\u201D \u2013 \u2122 \u0178");
        QTest::newRow("invalid UTF-8 anywhere makes all Windows-1252")
            << QByteArray("\xC3\xA9 and \xE9") << QStringLiteral("\u00C3\u00A9 and \u00E9");
    }

    void readWholeFileDecodesItsBytes()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, expected);
        QVERIFY(!test::writeFile(m_dir.filePath(QStringLiteral("Decode.TXT")), bytes).isEmpty());
        // Read as written on another system: backslashes and other letter case.
        QCOMPARE(ReadWholeFile(m_dir.path() + QStringLiteral("\\decode.txt")), expected);
        QCOMPARE(ReadWholeFile(m_dir.filePath(QStringLiteral("missing.txt"))), QString());
    }

    void pathIsFittedKeepingItsFileName_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<int>("narrower"); // pixels less than the whole path; -2: half of it
        QTest::addColumn<QString>("fileName");
        const QString slashes
            = QStringLiteral("/home/user/projects/field deck/examples/settings.def");
        const QString backslashes = QStringLiteral("C:\\Program Files\\Vendor\\data\\table.mdb");
        QTest::newRow("fits") << slashes << 0 << "/settings.def";
        QTest::newRow("one pixel too narrow") << slashes << 1 << "/settings.def";
        QTest::newRow("half the width") << slashes << -2 << "/settings.def";
        QTest::newRow("no width at all") << slashes << 100000 << "/settings.def";
        QTest::newRow("backslashes, one pixel too narrow") << backslashes << 1 << "\\table.mdb";
        QTest::newRow("backslashes, half the width") << backslashes << -2 << "\\table.mdb";
    }

    void pathIsFittedKeepingItsFileName()
    {
        QFETCH(QString, path);
        QFETCH(int, narrower);
        QFETCH(QString, fileName);
        const QFont font;
        const QFontMetrics metrics(font);
        const int full = metrics.horizontalAdvance(path);
        const int width = qMax(0, narrower < 0 ? full / -narrower : full - narrower);
        const QString fitted = FitPath(font, width, path);
        if (width >= full)
            QCOMPARE(fitted, path);
        QVERIFY2(fitted.endsWith(fileName), qPrintable(fitted));
        if (fitted == path)
            return;
        // "..." and the end of the path from a separator on: as many folders as fit, the file name
        // even when it alone does not fit.
        QVERIFY2(fitted.startsWith(QLatin1String("...")) && path.endsWith(fitted.mid(3)),
            qPrintable(fitted));
        QCOMPARE(fitted.at(3), fileName.at(0));
        QVERIFY2(metrics.horizontalAdvance(fitted) <= width || fitted.mid(3) == fileName,
            qPrintable(fitted));
        const qsizetype longer = path.lastIndexOf(fileName.at(0), path.size() - fitted.size() + 2);
        if (longer > 3) // the next folder would still leave a shorter text than the path
            QVERIFY2(metrics.horizontalAdvance(QStringLiteral("...") + path.mid(longer)) > width,
                qPrintable(fitted));
    }

private:
    QTemporaryDir m_dir;
};

QTEST_MAIN(tst_TextAndFiles)
#include "tst_TextAndFiles.moc"
