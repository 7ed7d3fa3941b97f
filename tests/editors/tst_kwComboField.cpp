#include "EditorHost.h"
#include "TestSupport.h"

#include "editors/kwComboField.h"
#include "platform/ComboBox.h"
#include "platform/PropertyBag.h"

#include <QComboBox>
#include <QFocusEvent>
#include <QSignalSpy>
#include <QTest>

using namespace kwFieldDeck;
using Host = test::EditorHost<kwComboField>;

namespace {
void fill(ComboBox *combo, const QStringList &texts, const QList<int> &data)
{
    for (int i = 0; i < texts.size(); ++i) {
        combo->AddItem(texts[i]);
        combo->setItemData(combo->NewIndex(), data[i]);
    }
}
} // namespace

class tst_kwComboField : public QObject
{
    Q_OBJECT
private slots:
    void valueSelectsTheFirstEntryWithThatItemData_data();
    void valueSelectsTheFirstEntryWithThatItemData();
    void valueSelectsTheEntryWithThatTextInAnyCase_data();
    void valueSelectsTheEntryWithThatTextInAnyCase();
    void unmatchedValueKeepsTheSelectionAndRaisesNoChange();
    void matchedValueRaisesChangeAndNoPropertyChanged();
    void pickingAnEntryRaisesChange();
    void focusRaisesChangeThenHasFocus();
    void fillingTheListSelectsNothing();
    void layoutFillsTheCell();
    void enabledReachesTheBoxForeColorDoesNot();
    void emptyBagYieldsDefaults();
    void doubleNamesKeepTheLaterTargets();
};

void tst_kwComboField::valueSelectsTheFirstEntryWithThatItemData_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("read");
    QTest::newRow("7") << "7" << 1 << "7";
    QTest::newRow("7 followed by letters") << "7abc" << 1 << "7";
    QTest::newRow("7.5") << "7.5" << -1 << "";
    QTest::newRow("3") << "3" << 0 << "3";
    QTest::newRow("no leading number matches 0") << "abc" << 3 << "0";
}

void tst_kwComboField::valueSelectsTheFirstEntryWithThatItemData()
{
    QFETCH(QString, value);
    QFETCH(int, index);
    QFETCH(QString, read);
    Host host("kwComboField");
    fill(host.editor->ComboControl(), { "three", "seven", "seven again", "zero" }, { 3, 7, 7, 0 });
    host.editor->setValue(value);
    QCOMPARE(host.editor->ComboControl()->ListIndex(), index);
    QCOMPARE(host.editor->Value(), read);
}

void tst_kwComboField::valueSelectsTheEntryWithThatTextInAnyCase_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<int>("index");
    QTest::newRow("same spelling") << "Blue" << 1;
    QTest::newRow("other case") << "bLUE" << 1;
    QTest::newRow("first of two") << "RED" << 0;
    QTest::newRow("no such entry") << "Green" << -1;
}

void tst_kwComboField::valueSelectsTheEntryWithThatTextInAnyCase()
{
    QFETCH(QString, value);
    QFETCH(int, index);
    Host host("kwComboField");
    host.editor->setUseItemData(false);
    fill(host.editor->ComboControl(), { "Red", "Blue", "red" }, { 1, 2, 3 });
    host.editor->setValue(value);
    QCOMPARE(host.editor->ComboControl()->ListIndex(), index);
    QCOMPARE(host.editor->Value(), host.editor->ComboControl()->Text());
}

void tst_kwComboField::unmatchedValueKeepsTheSelectionAndRaisesNoChange()
{
    Host host("kwComboField");
    fill(host.editor->ComboControl(), { "three", "seven" }, { 3, 7 });
    host.editor->setValue(QStringLiteral("7"));
    QSignalSpy changes(host.editor, &kwComboField::Change);
    QSignalSpy changed(host.editor, &UserControl::PropertyChanged);
    host.editor->setValue(QStringLiteral("9"));
    QCOMPARE(host.editor->ComboControl()->ListIndex(), 1);
    // Reading gives the kept selection, not the value just set.
    QCOMPARE(host.editor->Value(), QStringLiteral("7"));
    QCOMPARE(changes.count(), 0);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.at(0).at(0).toString(), QStringLiteral("Value"));
}

void tst_kwComboField::matchedValueRaisesChangeAndNoPropertyChanged()
{
    Host host("kwComboField");
    fill(host.editor->ComboControl(), { "three", "seven" }, { 3, 7 });
    QSignalSpy changes(host.editor, &kwComboField::Change);
    QSignalSpy changed(host.editor, &UserControl::PropertyChanged);
    host.editor->setValue(QStringLiteral("3"));
    QCOMPARE(changes.count(), 1);
    QCOMPARE(changed.count(), 0);
}

void tst_kwComboField::pickingAnEntryRaisesChange()
{
    Host host("kwComboField");
    QVERIFY(host.show());
    fill(host.editor->ComboControl(), { "three", "seven" }, { 3, 7 });
    host.editor->setValue(QStringLiteral("3"));
    QSignalSpy changes(host.editor, &kwComboField::Change);
    QWidget *box = host.editor->ComboControl()->widget();
    box->setFocus();
    changes.clear();
    QTest::keyClick(box, Qt::Key_Down);
    QCOMPARE(host.editor->ComboControl()->ListIndex(), 1);
    QCOMPARE(host.editor->Value(), QStringLiteral("7"));
    QCOMPARE(changes.count(), 1);
}

void tst_kwComboField::focusRaisesChangeThenHasFocus()
{
    Host host("kwComboField");
    QVERIFY(host.show());
    QStringList events;
    connect(host.editor, &kwComboField::Change, this, [&] { events << "Change"; });
    connect(host.editor, &kwComboField::HasFocus, this, [&] { events << "HasFocus"; });
    host.editor->SetFocus();
    QCOMPARE(QApplication::focusWidget(), host.editor->ComboControl()->widget());
    QCOMPARE(events, QStringList({ "Change", "HasFocus" }));
    // The focus coming back when the list closes reports nothing.
    QFocusEvent back(QEvent::FocusIn, Qt::PopupFocusReason);
    QApplication::sendEvent(host.editor->ComboControl()->widget(), &back);
    QCOMPARE(events.size(), 2);
}

void tst_kwComboField::fillingTheListSelectsNothing()
{
    Host host("kwComboField");
    QSignalSpy changes(host.editor, &kwComboField::Change);
    test::ErrorRecorder errors;
    fill(host.editor->ComboControl(), { "a", "b" }, { 1, 2 });
    QCOMPARE(host.editor->ComboControl()->ListIndex(), -1);
    QCOMPARE(host.editor->ComboControl()->NewIndex(), 1);
    host.editor->ComboControl()->Clear();
    QCOMPARE(host.editor->ComboControl()->ListCount(), 0);
    QCOMPARE(changes.count(), 0);
    QVERIFY(errors.errors.isEmpty());
}

void tst_kwComboField::layoutFillsTheCell()
{
    Host host("kwComboField", 3000, 315);
    ComboBox *combo = host.editor->ComboControl();
    QCOMPARE(combo->Left(), 0.0f);
    QCOMPARE(combo->Top(), 15.0f);
    QCOMPARE(combo->Width(), host.editor->ScaleWidth() - 20);
    QVERIFY(combo->Height() > 0);
    QCOMPARE(host.editor->Style(), qint16(2));
}

void tst_kwComboField::enabledReachesTheBoxForeColorDoesNot()
{
    Host host("kwComboField");
    const OleColor boxColor = host.editor->ComboControl()->ForeColor();
    host.editor->setEnabled(false);
    host.editor->setForeColor(0x0000FF);
    QVERIFY(!host.editor->ComboControl()->Enabled());
    QCOMPARE(host.editor->ComboControl()->ForeColor(), boxColor);
    QCOMPARE(host.editor->ForeColor(), OleColor(0x0000FF));
}

void tst_kwComboField::emptyBagYieldsDefaults()
{
    Host host("kwComboField");
    host.editor->setForeColor(0x00FF00);
    host.editor->setEnabled(true);
    host.editor->setBackColor(0x0000FF);
    MemoryPropertyBag empty;
    host.editor->readProperties(empty);
    QCOMPARE(host.editor->BackColor(), SystemColor::ButtonFace);
    QCOMPARE(host.editor->ComboControl()->ForeColor(), SystemColor::WindowText);
    QCOMPARE(host.editor->ForeColor(), OleColor(0));
    QCOMPARE(host.editor->Enabled(), false);
    QCOMPARE(host.editor->Font(), host.editor->ambientFont());
    QCOMPARE(host.editor->BackStyle(), qint16(1));
    QCOMPARE(host.editor->BorderStyle(), qint16(0));
    QCOMPARE(host.editor->ScaleMode(), qint16(1));
}

void tst_kwComboField::doubleNamesKeepTheLaterTargets()
{
    Host first("kwComboField");
    fill(first.editor->ComboControl(), { "three", "seven" }, { 3, 7 });
    first.editor->setValue(QStringLiteral("7"));
    first.editor->setValue(QStringLiteral("42"));
    first.editor->setForeColor(0x00FF00);
    first.editor->setEnabled(true);
    MemoryPropertyBag bag;
    first.editor->writeProperties(bag);
    // The later write of each name wins: the member fore colour and the value last set.
    QCOMPARE(bag.ReadProperty(QStringLiteral("ForeColor")).toUInt(), 0x00FF00u);
    QCOMPARE(bag.ReadProperty(QStringLiteral("Value")).toString(), QStringLiteral("42"));

    Host second("kwComboField");
    fill(second.editor->ComboControl(), { "three", "seven" }, { 3, 7 });
    second.editor->readProperties(bag);
    QCOMPARE(second.editor->ForeColor(), OleColor(0x00FF00));
    QCOMPARE(second.editor->Enabled(), true);
    MemoryPropertyBag again;
    second.editor->writeProperties(again);
    QStringList names = again.names();
    QStringList expected = bag.names();
    names.sort();
    expected.sort();
    QCOMPARE(names, expected);
    for (const QString &name : bag.names())
        QCOMPARE(again.ReadProperty(name), bag.ReadProperty(name));
}

QTEST_MAIN(tst_kwComboField)
#include "tst_kwComboField.moc"
