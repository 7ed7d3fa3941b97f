#include "platform/CheckBox.h"

#include <QCheckBox>
#include <QSignalSpy>
#include <QTest>

using namespace kwFieldDeck;

class tst_CheckBox : public QObject
{
    Q_OBJECT
private slots:
    void userClickChecksAnythingButAChecked_data();
    void userClickChecksAnythingButAChecked();
};

void tst_CheckBox::userClickChecksAnythingButAChecked_data()
{
    QTest::addColumn<qint16>("start");
    QTest::addColumn<qint16>("after");
    QTest::newRow("unchecked") << qint16(0) << qint16(1);
    QTest::newRow("checked") << qint16(1) << qint16(0);
    // A grayed box becomes checked, never unchecked: intended.
    QTest::newRow("grayed") << qint16(2) << qint16(1);
}

void tst_CheckBox::userClickChecksAnythingButAChecked()
{
    QFETCH(qint16, start);
    QFETCH(qint16, after);
    CheckBox check(QStringLiteral("Check1"));
    check.setValue(start);
    QSignalSpy clicks(&check, &Control::Click);
    check.checkBox()->click();
    QCOMPARE(check.Value(), after);
    QCOMPARE(clicks.count(), 1);
}

QTEST_MAIN(tst_CheckBox)
#include "tst_CheckBox.moc"
