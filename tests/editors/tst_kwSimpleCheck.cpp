#include "EditorHost.h"

#include "editors/kwSimpleCheck.h"
#include "platform/CheckBox.h"

using namespace kwFieldDeck;
using Host = test::EditorHost<kwSimpleCheck>;

class tst_kwSimpleCheck : public QObject
{
    Q_OBJECT
private slots:
    void clickTogglesTheBoxAndRaisesOneClick_data()
    {
        QTest::addColumn<bool>("onTheBox");
        QTest::addColumn<qint16>("start");
        QTest::addColumn<qint16>("after");
        // A grayed box becomes checked, never unchecked: intended.
        for (const bool onTheBox : { true, false }) {
            const char *where = onTheBox ? "box" : "surface";
            QTest::addRow("%s, unchecked", where) << onTheBox << qint16(0) << qint16(1);
            QTest::addRow("%s, checked", where) << onTheBox << qint16(1) << qint16(0);
            QTest::addRow("%s, grayed", where) << onTheBox << qint16(2) << qint16(1);
        }
    }
    void clickTogglesTheBoxAndRaisesOneClick()
    {
        QFETCH(bool, onTheBox);
        QFETCH(qint16, start);
        QFETCH(qint16, after);
        Host host(QStringLiteral("kwSimpleCheck"));
        QVERIFY(host.show());
        host.editor->setValue(start);
        QSignalSpy clicks(host.editor, &kwSimpleCheck::Click);
        auto *check = host.child<CheckBox>("Check1");
        // The box sits centred in the cell.
        QCOMPARE(check->Left(), (3000 - check->Width()) / 2);
        QCOMPARE(check->Top(), (315 - check->Height()) / 2);
        QTest::mouseClick(
            onTheBox ? check->widget() : host.surface(), Qt::LeftButton, {}, QPoint(3, 6));
        QCOMPARE(host.editor->Value(), after);
        QCOMPARE(clicks.count(), 1);
        // Beside the box as on it, the click puts the focus in the box, so Space works next.
        QTRY_VERIFY(check->hasFocus());
        // Setting the value raises Click only when it changes.
        host.editor->setValue(after);
        QCOMPARE(clicks.count(), 1);
        host.editor->setValue(start);
        QCOMPARE(clicks.count(), 2);
        QCOMPARE(check->Value(), start);
    }
};

QTEST_MAIN(tst_kwSimpleCheck)
#include "tst_kwSimpleCheck.moc"
