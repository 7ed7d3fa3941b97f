#include "platform/ClassFactory.h"
#include "platform/Control.h"
#include "platform/Error.h"

#include "TestSupport.h"

#include <QtTest>

using namespace kwFieldDeck;

class tst_ClassFactory : public QObject
{
    Q_OBJECT
private slots:
    void classIsCreatedByIdentifierOrIsError429_data()
    {
        QTest::addColumn<QString>("classId");
        QTest::addColumn<QByteArray>("className"); // empty: no such class
        QTest::newRow("text box") << "VB.TextBox" << QByteArray("kwFieldDeck::TextBox");
        QTest::newRow("text box, other case") << "vb.textbox" << QByteArray("kwFieldDeck::TextBox");
        QTest::newRow("date picker")
            << "MSComCtl2.DTPicker" << QByteArray("kwFieldDeck::DatePicker");
        QTest::newRow("unknown") << "kwFieldDeck.kwNoSuchEditor" << QByteArray();
    }

    void classIsCreatedByIdentifierOrIsError429()
    {
        QFETCH(QString, classId);
        QFETCH(QByteArray, className);
        test::ErrorRecorder recorder;
        QObject owner;
        Control *control = trap("Function 'AddField' of User Control 'kwPropertyControl'",
            [&] { return ClassFactory::create(classId, QStringLiteral("TextBox7"), &owner); });
        if (className.isEmpty()) {
            QCOMPARE(control, nullptr);
            QVERIFY(owner.children().isEmpty());
            QCOMPARE(recorder.errors.size(), 1);
            QCOMPARE(recorder.errors[0].number, int(ErrCannotCreateObject));
            QVERIFY(recorder.errors[0].description.contains(classId));
            return;
        }
        QVERIFY(control);
        QCOMPARE(QByteArray(control->metaObject()->className()), className);
        QCOMPARE(control->Name(), QStringLiteral("TextBox7"));
        QCOMPARE(control->parent(), &owner);
        QCOMPARE(Control::of(control->widget()), control);
    }
};

QTEST_MAIN(tst_ClassFactory)
#include "tst_ClassFactory.moc"
