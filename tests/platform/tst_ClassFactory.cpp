#include "platform/ClassFactory.h"

#include "platform/Control.h"
#include "platform/DatePicker.h"
#include "platform/Error.h"
#include "platform/TextBox.h"
#include "platform/UserControl.h"
#include "platform/VScrollBar.h"

#include "TestSupport.h"

#include <QtTest>

#include <memory>

using namespace kwFieldDeck;

namespace {
// A user control that counts the new-instance notification.
class CountingControl : public UserControl
{
public:
    int initialised = 0;

protected:
    void UserControl_InitProperties() override { ++initialised; }
};
} // namespace

class tst_ClassFactory : public QObject
{
    Q_OBJECT
private slots:
    void standardClassesAreCreatedByIdentifier_data();
    void standardClassesAreCreatedByIdentifier();
    void unknownIdentifierIsError429NamingIt();
    void registeredUserControlIsWrappedAndInitialised();
    void libraryTitleBuildsTheIdentifiers();
};

void tst_ClassFactory::standardClassesAreCreatedByIdentifier_data()
{
    QTest::addColumn<QString>("classId");
    QTest::addColumn<QByteArray>("className");
    QTest::newRow("text box") << "VB.TextBox" << QByteArray("kwFieldDeck::TextBox");
    QTest::newRow("text box, other case") << "vb.textbox" << QByteArray("kwFieldDeck::TextBox");
    QTest::newRow("date picker") << "MSComCtl2.DTPicker" << QByteArray("kwFieldDeck::DatePicker");
    QTest::newRow("scroll bar") << "VB.VScrollBar" << QByteArray("kwFieldDeck::VScrollBar");
}

void tst_ClassFactory::standardClassesAreCreatedByIdentifier()
{
    QFETCH(QString, classId);
    QFETCH(QByteArray, className);
    QObject owner;
    Control *control = ClassFactory::create(classId, QStringLiteral("TextBox7"), &owner);
    QVERIFY(control);
    QCOMPARE(QByteArray(control->metaObject()->className()), className);
    QCOMPARE(control->Name(), QStringLiteral("TextBox7"));
    QCOMPARE(control->parent(), &owner);
    QCOMPARE(Control::of(control->widget()), control);
    QVERIFY(ClassFactory::isRegistered(classId));
}

void tst_ClassFactory::unknownIdentifierIsError429NamingIt()
{
    test::ErrorRecorder recorder;
    QObject owner;
    Control *control = trap("Function 'AddField' of User Control 'kwPropertyControl'", [&] {
        return ClassFactory::create(
            QStringLiteral("kwFieldDeck.kwNoSuchEditor"), QStringLiteral("x1"), &owner);
    });
    QCOMPARE(control, nullptr);
    QVERIFY(!ClassFactory::isRegistered(QStringLiteral("kwFieldDeck.kwNoSuchEditor")));
    QCOMPARE(recorder.errors.size(), 1);
    QCOMPARE(recorder.errors[0].number, int(ErrCannotCreateObject));
    QVERIFY2(recorder.errors[0].description.contains(QLatin1String("kwFieldDeck.kwNoSuchEditor")),
        qPrintable(recorder.errors[0].description));
    QVERIFY(owner.children().isEmpty());
}

void tst_ClassFactory::registeredUserControlIsWrappedAndInitialised()
{
    const QString classId = libraryTitle() + QStringLiteral(".tstCounting");
    QVERIFY(ClassFactory::registerUserControl<CountingControl>(classId));
    QObject owner;
    Control *control
        = ClassFactory::create(classId.toUpper(), QStringLiteral("tstCounting3"), &owner);
    QVERIFY(control);
    auto *userControl = dynamic_cast<CountingControl *>(control->widget());
    QVERIFY(userControl);
    QCOMPARE(userControl->initialised, 1);
    QCOMPARE(userControl->extender(), control);
    control->Move(0, 0, 1500, 300);
    QCOMPARE(userControl->extenderWidth(), 1500.f);
    QCOMPARE(userControl->extenderHeight(), 300.f);
}

void tst_ClassFactory::libraryTitleBuildsTheIdentifiers()
{
    QCOMPARE(libraryTitle(), QStringLiteral("kwFieldDeck"));
}

QTEST_MAIN(tst_ClassFactory)
#include "tst_ClassFactory.moc"
