#include "platform/Error.h"

#include "TestSupport.h"

#include <QtTest>

#include <stdexcept>

using namespace kwFieldDeck;

class tst_Error : public QObject
{
    Q_OBJECT
private slots:
    void trapReportsTheErrorWithTheSourceText_data();
    void trapReportsTheErrorWithTheSourceText();
    void trapReturnsAnEmptyValue();
    void trapPassesAResultThroughWhenNothingFails();
    void foreignExceptionIsReportedAsAnError();
    void requireOfNullIsObjectRequired();
    void standardNumbersHaveTheRuntimeWording_data();
    void standardNumbersHaveTheRuntimeWording();
    void explicitDescriptionIsKept();
    void handlerIsReplacedAndRestored();
};

void tst_Error::trapReportsTheErrorWithTheSourceText_data()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<int>("number");
    QTest::newRow("sub of a user control")
        << "Sub 'ReadDef' of User Control 'kwPropertyControl'" << 5;
    QTest::newRow("property of a class module") << "Property 'Value' of Class Module 'Field'" << 13;
    QTest::newRow("function of a class module")
        << "Function 'Add' of Class Module 'DropDownValues'" << 457;
    QTest::newRow("sub of a form") << "Sub 'CalcCursorPos' of Form 'frmMemo'" << 9;
}

void tst_Error::trapReportsTheErrorWithTheSourceText()
{
    QFETCH(QString, source);
    QFETCH(int, number);
    test::ErrorRecorder recorder;
    bool after = false;
    const QByteArray sourceText = source.toUtf8();
    trap(sourceText.constData(), [&] {
        raise(number);
        after = true;
    });
    QVERIFY(!after);
    QCOMPARE(recorder.errors.size(), 1);
    QCOMPARE(recorder.errors[0].number, number);
    QCOMPARE(recorder.errors[0].source, source);
    QCOMPARE(recorder.errors[0].description, Error::standardDescription(number));
}

void tst_Error::trapReturnsAnEmptyValue()
{
    test::ErrorRecorder recorder;
    const char *source = "Function 'Item' of Class Module 'Fields'";
    QObject object;
    QCOMPARE(trap(source,
                 [&]() -> QObject * {
                     raise(ErrSubscriptOutOfRange);
                     return &object;
                 }),
        nullptr);
    QCOMPARE(trap(source,
                 []() -> QString {
                     raise(ErrSubscriptOutOfRange);
                     return QStringLiteral("x");
                 }),
        QString());
    QCOMPARE(trap(source,
                 []() -> int {
                     raise(ErrSubscriptOutOfRange);
                     return 7;
                 }),
        0);
    QVERIFY(!trap(source, []() -> QVariant {
        raise(ErrSubscriptOutOfRange);
        return 7;
    }).isValid());
    QCOMPARE(recorder.errors.size(), 4);
}

void tst_Error::trapPassesAResultThroughWhenNothingFails()
{
    test::ErrorRecorder recorder;
    QCOMPARE(trap("Function 'Count' of Class Module 'Fields'", [] { return 42; }), 42);
    QVERIFY(recorder.errors.isEmpty());
}

void tst_Error::foreignExceptionIsReportedAsAnError()
{
    test::ErrorRecorder recorder;
    trap("Sub 'Refresh' of Class Module 'Fields'", [] { throw std::runtime_error("disk gone"); });
    QCOMPARE(recorder.errors.size(), 1);
    QVERIFY(recorder.errors[0].number != 0);
    QCOMPARE(recorder.errors[0].description, QStringLiteral("disk gone"));
    QCOMPARE(recorder.errors[0].source, QStringLiteral("Sub 'Refresh' of Class Module 'Fields'"));
}

void tst_Error::requireOfNullIsObjectRequired()
{
    test::ErrorRecorder recorder;
    QObject *missing = nullptr;
    QObject present;
    QCOMPARE(trap("Sub 'EditField' of Class Module 'Field'", [&] { return require(&present); }),
        &present);
    trap("Sub 'EditField' of Class Module 'Field'", [&] { require(missing)->objectName(); });
    QCOMPARE(recorder.errors.size(), 1);
    QCOMPARE(recorder.errors[0].number, int(ErrObjectRequired));
    QCOMPARE(recorder.errors[0].description,
        QStringLiteral("Object variable or With block variable not set"));
}

void tst_Error::standardNumbersHaveTheRuntimeWording_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("description");
    QTest::newRow("5") << 5 << "Invalid procedure call or argument";
    QTest::newRow("6") << 6 << "Overflow";
    QTest::newRow("9") << 9 << "Subscript out of range";
    QTest::newRow("11") << 11 << "Division by zero";
    QTest::newRow("13") << 13 << "Type mismatch";
    QTest::newRow("91") << 91 << "Object variable or With block variable not set";
    QTest::newRow("429") << 429 << "ActiveX component can't create object";
    QTest::newRow("457") << 457
                         << "This key is already associated with an element of this collection";
}

void tst_Error::standardNumbersHaveTheRuntimeWording()
{
    QFETCH(int, number);
    QFETCH(QString, description);
    const Error error(number);
    QCOMPARE(error.number(), number);
    QCOMPARE(error.description(), description);
}

void tst_Error::explicitDescriptionIsKept()
{
    const Error error(ErrInvalidCall, QStringLiteral("Position must be a number"));
    QCOMPARE(error.description(), QStringLiteral("Position must be a number"));
    QVERIFY(QByteArray(error.what()).contains("Position must be a number"));
}

void tst_Error::handlerIsReplacedAndRestored()
{
    QStringList outer, inner;
    const ErrorReportHandler original = setErrorReportHandler(
        [&](int, const QString &, const QString &source) { outer << source; });
    {
        const ErrorReportHandler previous = setErrorReportHandler(
            [&](int, const QString &, const QString &source) { inner << source; });
        reportError(5, QString(), QStringLiteral("first"));
        setErrorReportHandler(previous);
    }
    reportError(5, QString(), QStringLiteral("second"));
    setErrorReportHandler(original);
    QCOMPARE(inner, QStringList { "first" });
    QCOMPARE(outer, QStringList { "second" });
}

QTEST_GUILESS_MAIN(tst_Error)
#include "tst_Error.moc"
