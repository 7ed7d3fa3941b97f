#include "runtime/Error.h"

#include "TestSupport.h"

#include <QtTest>

#include <stdexcept>

using namespace kwFieldDeck;

namespace {
// A body that fails before it can return its value.
template <typename T>
T failing(int number, T value)
{
    raise(number);
    return value;
}
} // namespace

class tst_Error : public QObject
{
    Q_OBJECT
private slots:
    void trapReportsWithTheSourceTextAndReturnsAnEmptyValue()
    {
        test::ErrorRecorder recorder;
        const char *source = "Function 'Item' of Class Module 'Fields'";
        QObject object;
        QCOMPARE(trap(source, [&] { return failing<QObject *>(ErrSubscriptOutOfRange, &object); }),
            nullptr);
        QCOMPARE(
            trap(source, [] { return failing(ErrTypeMismatch, QStringLiteral("x")); }), QString());
        QCOMPARE(trap(source, [] { return failing(ErrOverflow, 7); }), 0);
        QVERIFY(!trap(source, [] { return failing(ErrDuplicateKey, QVariant(7)); }).isValid());
        QCOMPARE(trap(source, [] { return 42; }), 42);
        QCOMPARE(trap(source, [&] { return require(&object); }), &object);
        QObject *missing = nullptr;
        trap(source, [&] { require(missing)->objectName(); });
        trap(source, [] { throw std::runtime_error("disk gone"); });
        QCOMPARE(recorder.sources(), QStringList(6, QString::fromLatin1(source)));
        QStringList descriptions;
        for (const test::ReportedError &error : recorder.errors)
            descriptions << QStringLiteral("%1 %2").arg(error.number).arg(error.description);
        QCOMPARE(descriptions,
            (QStringList { "9 Subscript out of range", "13 Type mismatch", "6 Overflow",
                "457 This key is already associated with an element of this collection",
                "91 Object variable or With block variable not set", "51 disk gone" }));
    }
};

QTEST_GUILESS_MAIN(tst_Error)
#include "tst_Error.moc"
