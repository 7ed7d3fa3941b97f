#include "runtime/Numbers.h"

#include "runtime/RaisedError.h"

#include <QtTest>

#include <limits>

using namespace kwFieldDeck;

class tst_Numbers : public QObject
{
    Q_OBJECT
private slots:
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
};

QTEST_GUILESS_MAIN(tst_Numbers)
#include "tst_Numbers.moc"
