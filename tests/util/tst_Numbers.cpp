#include "util/Numbers.h"

#include "platform/Error.h"

#include <QtTest>

#include <limits>

using namespace kwFieldDeck;

class tst_Numbers : public QObject
{
    Q_OBJECT
private slots:
    void stepChangesTheCounterAndReturnsIt_data();
    void stepChangesTheCounterAndReturnsIt();
    void stepPastTheRangeIsOverflowAndKeepsTheCounter_data();
    void stepPastTheRangeIsOverflowAndKeepsTheCounter();
};

void tst_Numbers::stepChangesTheCounterAndReturnsIt_data()
{
    QTest::addColumn<bool>("increment");
    QTest::addColumn<qint32>("start");
    QTest::addColumn<qint32>("step");
    QTest::addColumn<qint32>("expected");
    QTest::newRow("increment by one") << true << 0 << 1 << 1;
    QTest::newRow("increment by several") << true << 10 << 5 << 15;
    QTest::newRow("increment by a negative step") << true << 10 << -3 << 7;
    QTest::newRow("increment across zero") << true << -1 << 2 << 1;
    QTest::newRow("increment up to the top") << true << std::numeric_limits<qint32>::max() - 1 << 1
                                             << std::numeric_limits<qint32>::max();
    QTest::newRow("decrement by one") << false << 0 << 1 << -1;
    QTest::newRow("decrement by several") << false << 10 << 4 << 6;
    QTest::newRow("decrement by a negative step") << false << 10 << -2 << 12;
    QTest::newRow("decrement down to the bottom") << false << std::numeric_limits<qint32>::min() + 1
                                                  << 1 << std::numeric_limits<qint32>::min();
}

void tst_Numbers::stepChangesTheCounterAndReturnsIt()
{
    QFETCH(bool, increment);
    QFETCH(qint32, start);
    QFETCH(qint32, step);
    QFETCH(qint32, expected);
    qint32 counter = start;
    const qint32 returned = increment ? Increment(counter, step) : Decrement(counter, step);
    QCOMPARE(counter, expected);
    QCOMPARE(returned, expected);
}

void tst_Numbers::stepPastTheRangeIsOverflowAndKeepsTheCounter_data()
{
    QTest::addColumn<bool>("increment");
    QTest::addColumn<qint32>("start");
    QTest::addColumn<qint32>("step");
    QTest::newRow("increment past the top") << true << std::numeric_limits<qint32>::max() << 1;
    QTest::newRow("increment below the bottom") << true << std::numeric_limits<qint32>::min() << -1;
    QTest::newRow("decrement below the bottom") << false << std::numeric_limits<qint32>::min() << 1;
    QTest::newRow("decrement past the top") << false << std::numeric_limits<qint32>::max() << -1;
}

void tst_Numbers::stepPastTheRangeIsOverflowAndKeepsTheCounter()
{
    QFETCH(bool, increment);
    QFETCH(qint32, start);
    QFETCH(qint32, step);
    qint32 counter = start;
    int number = 0;
    try {
        increment ? Increment(counter, step) : Decrement(counter, step);
    } catch (const Error &error) {
        number = error.number();
    }
    QCOMPARE(number, int(ErrOverflow));
    QCOMPARE(counter, start);
}

QTEST_GUILESS_MAIN(tst_Numbers)
#include "tst_Numbers.moc"
