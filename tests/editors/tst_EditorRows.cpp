// Check-box, slider and drop-down rows as a user meets them, in a shown window: clicks where the
// idle row is painted, keys in the row's live editor, and the host's writes of Value, Min and Max.

#include "RowParts.h"

#include <QComboBox>
#include <QLineEdit>
#include <QSlider>
#include <QtTest>

using namespace kwFieldDeck;
using test::UserGrid;

namespace {
// A drop-down whose entries carry the numbers 3, 7, 7 and 0, or (from a definition that gives
// no keys) are matched by their texts.
Field *addColours(UserGrid &user, bool byNumber)
{
    if (!byNumber) {
        user.grid->ReadDef(test::defText(
            "ADDFIELD Colour|TYPE=COMBO|ADDCOMBOITEMS|Red|Blue|red|Zero|ENDCOMBOITEMS|ENDFIELD"));
        return user.field(QStringLiteral("Colour"));
    }
    Field *field = user.add(QStringLiteral("Colour"), ftCombo);
    const QList<QPair<const char *, const char *>> entries
        = { { "3", "Red" }, { "7", "Blue" }, { "7b", "red" }, { "0", "Zero" } };
    for (const auto &[key, text] : entries)
        field->DropDownValues()->Add(QLatin1String(key), QLatin1String(text));
    return field;
}

QString focusedPart()
{
    return QApplication::focusWidget() ? QApplication::focusWidget()->objectName() : QString();
}
} // namespace

class tst_EditorRows : public QObject
{
    Q_OBJECT
private slots:
    // A grayed box becomes checked, never unchecked: intended.
    void clickOnOrBesideTheBoxTogglesItAndPutsTheFocusInIt_data()
    {
        QTest::addColumn<bool>("onTheBox");
        QTest::addColumn<int>("start");
        QTest::addColumn<int>("after");
        for (const bool onTheBox : { true, false }) {
            const char *where = onTheBox ? "box" : "beside the box";
            QTest::addRow("%s, unchecked", where) << onTheBox << 0 << 1;
            QTest::addRow("%s, checked", where) << onTheBox << 1 << 0;
            QTest::addRow("%s, grayed", where) << onTheBox << 2 << 1;
        }
    }
    void clickOnOrBesideTheBoxTogglesItAndPutsTheFocusInIt()
    {
        QFETCH(bool, onTheBox);
        QFETCH(int, start);
        QFETCH(int, after);
        UserGrid user;
        QVERIFY(user.shown);
        user.addOfType(ftText, QStringLiteral("Before"));
        Field *check = user.add(QStringLiteral("Check"), ftCheckBox, QString::number(start % 2));
        // A host cannot gray a box; a row whose editor holds a grayed one shows it so.
        if (start == 2)
            test::GridHost::state(check).check = 2;
        QSignalSpy changed(user.grid, &kwPropertyControl::Changed);
        const QRect editor = user.view()->editorRect(FieldPrivate::get(check)->m_row);
        const QPoint point = onTheBox ? test::paintedPoint(user, check, "Check1")
                                      : QPoint(editor.left() + 3, editor.center().y());
        QVERIFY(test::clickAt(user, point, "Check1"));
        QCOMPARE(check->Value().toInt(), after);
        QCOMPARE(changed.count(), 1);
        // Beside the box as on it, the click puts the focus in the box, so Space works next.
        QTRY_COMPARE(focusedPart(), QStringLiteral("Check1"));
        QCOMPARE(user.focusedField(), check);
        test::press(Qt::Key_Space);
        QCOMPARE(check->Value().toInt(), 1 - after);
        QCOMPARE(changed.count(), 2);
        // The same click on the live editor toggles the box once.
        QVERIFY(test::clickAt(user, point, "Check1"));
        QCOMPARE(check->Value().toInt(), after);
        QCOMPARE(changed.count(), 3);
        // A write reports a change only when it changes the box.
        check->setValue(after);
        QCOMPARE(changed.count(), 3);
        check->setValue(1 - after);
        QCOMPARE(changed.count(), 4);
        QCOMPARE(test::GridHost::state(check).check, 1 - after);
    }

    // "+" and "-" step within the range and are swallowed, so a sign can never be typed.
    void typingInTheNumberBoxMovesTheSlider_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<int>("min");
        QTest::addColumn<int>("start");
        QTest::addColumn<int>("expected");
        QTest::newRow("+ at Max stays") << "+" << 0 << 10 << 10;
        QTest::newRow("+ steps up") << "+" << 0 << 4 << 5;
        QTest::newRow("- steps down") << "-" << 0 << 4 << 3;
        QTest::newRow("- at a raised Min stays") << "-" << 5 << 5 << 5;
        QTest::newRow("only digits are typed") << "0x. 7" << 0 << 1 << 7;
        QTest::newRow("past Max brought into range") << "25" << 0 << 1 << 10;
    }
    void typingInTheNumberBoxMovesTheSlider()
    {
        QFETCH(QString, typed);
        QFETCH(int, min);
        QFETCH(int, start);
        QFETCH(int, expected);
        UserGrid user;
        QVERIFY(user.shown);
        Field *slider = user.add(QStringLiteral("Volume"), ftSlider);
        slider->setMax(10);
        slider->setMin(min);
        slider->setValue(start);
        auto *box = qobject_cast<QLineEdit *>(test::clickPart(user, slider, "txtNum"));
        QVERIFY(box);
        QTRY_VERIFY(box->hasFocus());
        QTest::keyClick(box, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(box, typed);
        QCOMPARE(box->text(), QString::number(expected));
        QCOMPARE(slider->Value(), QVariant(expected));
        QCOMPARE(box->parentWidget()->findChild<QSlider *>(QStringLiteral("Slider1"))->value(),
            expected);
        // The row keeps what its editor showed once the editor goes to another row.
        user.d()->rowEditor().release();
        QCOMPARE(test::GridHost::state(slider).text, QString::number(expected));
        QCOMPARE(test::GridHost::state(slider).sliderValue, expected);
    }

    // Only Min keeps the pair in order; Max is taken as given. A value outside the range is
    // brought into it, and a value that a new range moves is reported.
    void aValueIsKeptInTheRange_data()
    {
        QTest::addColumn<int>("value");
        QTest::addColumn<bool>("maxFirst");
        QTest::addColumn<QVariant>("min");
        QTest::addColumn<QVariant>("max");
        QTest::addColumn<QList<int>>("range");
        QTest::addColumn<int>("expected");
        QTest::addColumn<int>("changes");
        const QVariant none;
        QTest::newRow("Min equal to Max raises Max")
            << 3 << true << QVariant(10) << QVariant(10) << QList<int> { 10, 11 } << 10 << 1;
        QTest::newRow("Max below Min is taken as given")
            << 6 << false << QVariant(5) << QVariant(2) << QList<int> { 5, 2 } << 5 << 1;
        QTest::newRow("a new Max brings the value down")
            << 8 << true << none << QVariant(5) << QList<int> { 0, 5 } << 5 << 1;
        QTest::newRow("a new Min brings the value up")
            << 2 << false << QVariant(4) << none << QList<int> { 4, 10 } << 4 << 1;
        QTest::newRow("a value in range stays")
            << 3 << true << QVariant(1) << QVariant(8) << QList<int> { 1, 8 } << 3 << 0;
        QTest::newRow("a value written past Max comes down")
            << 25 << true << none << none << QList<int> { 0, 10 } << 10 << 0;
    }
    void aValueIsKeptInTheRange()
    {
        QFETCH(int, value);
        QFETCH(bool, maxFirst);
        QFETCH(QVariant, min);
        QFETCH(QVariant, max);
        QFETCH(QList<int>, range);
        QFETCH(int, expected);
        QFETCH(int, changes);
        UserGrid user;
        Field *slider = user.add(QStringLiteral("Volume"), ftSlider);
        slider->setValue(value);
        QSignalSpy changed(slider, &Field::Changed);
        if (maxFirst && max.isValid())
            slider->setMax(max);
        if (min.isValid())
            slider->setMin(min);
        if (!maxFirst && max.isValid())
            slider->setMax(max);
        const EditorState &shown = test::GridHost::state(slider);
        QCOMPARE(QList<int>({ shown.sliderMin, shown.sliderMax }), range);
        QCOMPARE(slider->Value(), QVariant(expected));
        QCOMPARE(shown.text, QString::number(expected));
        QCOMPARE(changed.count(), changes);
        auto *bar = user.editorOf(slider)->findChild<QSlider *>(QStringLiteral("Slider1"));
        QCOMPARE(bar->value(), expected);
    }

    // A value matching nothing keeps the selection and reports nothing; one matching the entry
    // already chosen is reported again: intended.
    void valueSelectsTheFirstMatchingEntry_data()
    {
        QTest::addColumn<bool>("byNumber");
        QTest::addColumn<QString>("value");
        QTest::addColumn<int>("index");
        QTest::addColumn<QString>("read");
        QTest::addColumn<bool>("matched");
        QTest::newRow("number 7, first of two") << true << "7" << 1 << "7" << true;
        QTest::newRow("number 7 followed by letters") << true << "7abc" << 1 << "7" << true;
        QTest::newRow("number 7.5 matches nothing") << true << "7.5" << 3 << "0" << false;
        QTest::newRow("no leading number matches 0") << true << "abc" << 3 << "0" << true;
        QTest::newRow("text in other case, first of two") << false << "RED" << 0 << "Red" << true;
        QTest::newRow("no such text") << false << "Green" << 3 << "Zero" << false;
    }
    void valueSelectsTheFirstMatchingEntry()
    {
        QFETCH(bool, byNumber);
        QFETCH(QString, value);
        QFETCH(int, index);
        QFETCH(QString, read);
        QFETCH(bool, matched);
        UserGrid user;
        Field *colour = addColours(user, byNumber);
        QVERIFY(colour);
        colour->setValue(byNumber ? QStringLiteral("0") : QStringLiteral("zero"));
        QCOMPARE(test::GridHost::state(colour).listIndex, 3);
        QSignalSpy changed(user.grid, &kwPropertyControl::Changed);
        colour->setValue(value);
        QCOMPARE(test::GridHost::state(colour).listIndex, index);
        QCOMPARE(colour->Value().toString(), read);
        QCOMPARE(changed.count(), matched ? 1 : 0);
        // The user sees the same entry chosen in the row's editor.
        auto *box = user.editorOf(colour)->findChild<QComboBox *>(QStringLiteral("cbo"));
        QCOMPARE(box->currentIndex(), index);
    }

    // Entering the box reports a change before the row takes the focus: intended. The focus
    // coming back from the closed list reports nothing; a pick reports the new value.
    void enteringTheBoxReportsAChangeBeforeTheRowIsFocused()
    {
        UserGrid user;
        QVERIFY(user.shown);
        Field *before = user.addOfType(ftText, QStringLiteral("Before"));
        Field *colour = addColours(user, true);
        colour->setValue(3);
        QStringList events;
        connect(user.grid, &kwPropertyControl::Changed, this, [&](Field *field) {
            events << field->Name() + QLatin1Char(' ') + field->Value().toString() + " in "
                    + user.highlighted().value(0)->Name();
        });
        before->SetFocus();
        test::press(Qt::Key_Tab);
        QCOMPARE(user.focusedField(), colour);
        QCOMPARE(focusedPart(), QStringLiteral("cbo"));
        QCOMPARE(user.highlighted(), QVector<Field *> { colour });
        test::press(Qt::Key_F4);
        QTRY_VERIFY(QApplication::activePopupWidget());
        user.closePopup();
        QTRY_COMPARE(focusedPart(), QStringLiteral("cbo"));
        test::press(Qt::Key_Down);
        QCOMPARE(events, QStringList({ "Colour 3 in Before", "Colour 7 in Colour" }));
        QCOMPARE(test::GridHost::state(colour).listIndex, 1);
    }

    // Up and Down in a box that has no use of its own for them move to the row above or below;
    // Down in a slider's number box passes over the slider.
    void upAndDownLeaveTheRow_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QString>("part");
        QTest::addColumn<bool>("down");
        for (const bool down : { true, false }) {
            const char *key = down ? "Down" : "Up";
            QTest::addRow("check box, %s", key) << int(ftCheckBox) << "Check1" << down;
            QTest::addRow("slider's number box, %s", key) << int(ftSlider) << "txtNum" << down;
            QTest::addRow("memo box, %s", key) << int(ftMemo) << "Text1" << down;
        }
    }
    void upAndDownLeaveTheRow()
    {
        QFETCH(int, type);
        QFETCH(QString, part);
        QFETCH(bool, down);
        UserGrid user;
        QVERIFY(user.shown);
        Field *before = user.addOfType(ftText, QStringLiteral("Before"));
        Field *target = user.addOfType(type, QStringLiteral("Target"));
        Field *after = user.addOfType(ftText, QStringLiteral("After"));
        const QVariant value = target->Value();
        QVERIFY(test::clickPart(user, target, qPrintable(part)));
        QTRY_COMPARE(focusedPart(), part);
        // The click itself changed the box; the keys change nothing more.
        const QVariant clicked = target->Value();
        test::press(down ? Qt::Key_Down : Qt::Key_Up);
        QCOMPARE(user.focusedField(), down ? after : before);
        QCOMPARE(target->Value(), clicked);
        QCOMPARE(user.dialogs, 0);
        if (type != ftCheckBox)
            QCOMPARE(clicked, value);
    }
};

QTEST_MAIN(tst_EditorRows)
#include "tst_EditorRows.moc"
