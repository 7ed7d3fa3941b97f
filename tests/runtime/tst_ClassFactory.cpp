#include "runtime/ClassFactory.h"
#include "runtime/Control.h"
#include "runtime/Error.h"

#include <kwFieldDeck/kwPropertyControl.h>

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
        QTest::addColumn<bool>("exists");
        QTest::newRow("grid") << "kwFieldDeck.kwPropertyControl" << true;
        QTest::newRow("grid, other case") << "KWFIELDDECK.kwpropertycontrol" << true;
        QTest::newRow("a row's editor is no class") << "kwFieldDeck.kwSimpleCheck" << false;
        QTest::newRow("unknown") << "kwFieldDeck.kwNoSuchEditor" << false;
    }

    void classIsCreatedByIdentifierOrIsError429()
    {
        QFETCH(QString, classId);
        QFETCH(bool, exists);
        test::ErrorRecorder recorder;
        QObject owner;
        Control *control = trap("Function 'AddField' of User Control 'kwPropertyControl'",
            [&] { return ClassFactory::create(classId, QStringLiteral("Grid7"), &owner); });
        if (!exists) {
            QCOMPARE(control, nullptr);
            QVERIFY(owner.children().isEmpty());
            QCOMPARE(recorder.errors.size(), 1);
            QCOMPARE(recorder.errors[0].number, int(ErrCannotCreateObject));
            QVERIFY(recorder.errors[0].description.contains(classId));
            return;
        }
        QVERIFY(control);
        QVERIFY(qobject_cast<kwPropertyControl *>(control->widget()));
        QCOMPARE(control->Name(), QStringLiteral("Grid7"));
        QCOMPARE(control->parent(), &owner);
        QCOMPARE(Control::of(control->widget()), control);
        QVERIFY(recorder.errors.isEmpty());
        delete control->widget();
    }
};

QTEST_MAIN(tst_ClassFactory)
#include "tst_ClassFactory.moc"
