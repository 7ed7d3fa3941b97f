// Each field type's editor as a user meets it in a shown window, and the host's writes to it.

#include "grid/UserGrid.h"

#include "editors/memo/frmMemo.h"

#include <QComboBox>
#include <QDir>
#include <QPlainTextEdit>
#include <QSlider>
#include <QTemporaryDir>
#include <QtTest>

using namespace kwFieldDeck;
using namespace kwFieldDeck::test;

namespace {
QString focusedPart()
{
    return QApplication::focusWidget() ? QApplication::focusWidget()->objectName() : QString();
}
} // namespace

class tst_EditorRows : public QObject
{
    Q_OBJECT
    std::unique_ptr<UserGrid> user;
private slots:
    void initTestCase() { QVERIFY(QDir().mkpath(m_deep)); }
    void init() { user = std::make_unique<UserGrid>(); }
    void cleanup() { user.reset(); }

    // A grayed box becomes checked, never unchecked: intended.
    void clickOnOrBesideTheBoxTogglesItAndPutsTheFocusInIt_data()
    {
        // On the box or beside it, the box's state before and after.
        auto row = columns<bool, int, int>();
        row("box, checked", true, 1, 0);
        row("box, grayed", true, 2, 1);
        row("beside the box, checked", false, 1, 0);
    }
    void clickOnOrBesideTheBoxTogglesItAndPutsTheFocusInIt()
    {
        const auto [onTheBox, start, after] = fetch<bool, int, int>();
        user->addOfType(ftText, QStringLiteral("Before"));
        Field *check = user->add(QStringLiteral("Check"), ftCheckBox, QString::number(start % 2));
        // A host cannot gray a box; a row whose editor holds a grayed one shows it so.
        if (start == 2)
            GridHost::state(check).check = 2;
        QSignalSpy changed(user->grid, &kwPropertyControl::Changed);
        const QRect editor = user->view()->editorRect(FieldPrivate::get(check)->m_row);
        const QPoint point = onTheBox ? paintedPoint(check, "Check1")
                                      : QPoint(editor.left() + 3, editor.center().y());
        QVERIFY(clickAt(point, "Check1"));
        QCOMPARE(check->Value().toInt(), after);
        QCOMPARE(changed.count(), 1);
        QTRY_COMPARE(focusedPart(), QStringLiteral("Check1"));
        QCOMPARE(user->focusedField(), check);
        user->press(Qt::Key_Space);
        QCOMPARE(check->Value().toInt(), 1 - after);
        QCOMPARE(changed.count(), 2);
        QVERIFY(clickAt(point, "Check1"));
        QCOMPARE(check->Value().toInt(), after);
        QCOMPARE(changed.count(), 3);
    }

    // Min keeps the pair in order, Max is taken as given; "+" and "-" step and are never typed.
    void theSliderKeepsItsValueInItsRange_data()
    {
        // The writes, the keys typed, the range kept, the value and the Changed count.
        auto row = columns<QStringList, QString, QList<int>, int, int>();
        row("Min equal to Max raises it", { "Value=3", "Max=10", "Min=10" }, "", { 10, 11 }, 10, 2);
        row("Max below Min is taken as given", { "Value=6", "Min=5", "Max=2" }, "", { 5, 2 }, 5, 2);
        row("a new Max brings the value down", { "Value=8", "Max=5" }, "", { 0, 5 }, 5, 2);
        row("a new Min brings the value up", { "Value=2", "Min=4" }, "", { 4, 10 }, 4, 2);
        row("a value written past Max comes down", { "Value=25" }, "", { 0, 10 }, 10, 1);
        row("+ at Max stays", { "Value=10" }, "+", { 0, 10 }, 10, 1);
        row("- steps down", { "Value=4" }, "-", { 0, 10 }, 3, 2);
        row("- at a raised Min stays", { "Value=5", "Min=5" }, "-", { 5, 10 }, 5, 1);
        row("only digits are typed", { "Value=1" }, "0x. 7", { 0, 10 }, 7, 3);
        row("typed past Max brought into range", { "Value=1" }, "25", { 0, 10 }, 10, 3);
    }
    void theSliderKeepsItsValueInItsRange()
    {
        const auto [writes, typed, range, expected, changes]
            = fetch<QStringList, QString, QList<int>, int, int>();
        Field *slider = user->add(QStringLiteral("Volume"), ftSlider);
        QSignalSpy changed(slider, &Field::Changed);
        for (const QString &write : writes)
            slider->setProperty(
                qPrintable(write.section('=', 0, 0)), write.section('=', 1).toInt());
        auto *box = qobject_cast<QLineEdit *>(typed.isEmpty()
                ? user->editorOf(slider)->findChild<QWidget *>(QStringLiteral("txtNum"))
                : clickPart(slider, "txtNum"));
        QVERIFY(box);
        if (!typed.isEmpty()) {
            QTRY_VERIFY(box->hasFocus());
            QTest::keyClick(box, Qt::Key_A, Qt::ControlModifier);
            QTest::keyClicks(box, typed);
        }
        QCOMPARE(slider->Value(), QVariant(expected));
        QCOMPARE(box->text(), QString::number(expected));
        QCOMPARE(box->parentWidget()->findChild<QSlider *>("Slider1")->value(), expected);
        QCOMPARE(changed.count(), changes);
        // The row keeps what its editor showed once the editor goes to another row.
        user->d()->rowEditor().release();
        const EditorState &shown = GridHost::state(slider);
        QCOMPARE(QList<int>({ shown.sliderMin, shown.sliderMax }), range);
        QCOMPARE(shown.text, QString::number(expected));
        QCOMPARE(shown.sliderValue, expected);
    }

    // No match keeps the selection silently; the entry already chosen is reported again (intended).
    void valueSelectsTheFirstMatchingEntry_data()
    {
        // Keyed entries or not, the value, the entry chosen, Value read and whether it matched.
        auto row = columns<bool, QString, int, QString, bool>();
        row("number 7 followed by letters", true, "7abc", 1, "7", true);
        row("number 7.5 matches nothing", true, "7.5", 3, "0", false);
        row("no leading number matches 0", true, "abc", 3, "0", true);
        row("text in other case, first of two", false, "RED", 0, "Red", true);
        row("no such text", false, "Green", 3, "Zero", false);
    }
    void valueSelectsTheFirstMatchingEntry()
    {
        const auto [byNumber, value, index, read, matched]
            = fetch<bool, QString, int, QString, bool>();
        Field *colour = addColours(byNumber);
        QVERIFY(colour);
        colour->setValue(byNumber ? QStringLiteral("0") : QStringLiteral("zero"));
        QSignalSpy changed(user->grid, &kwPropertyControl::Changed);
        colour->setValue(value);
        QCOMPARE(colour->Value().toString(), read);
        QCOMPARE(changed.count(), matched ? 1 : 0);
        // The user sees the same entry chosen in the row's editor.
        auto *box = user->editorOf(colour)->findChild<QComboBox *>(QStringLiteral("cbo"));
        QCOMPARE(box->currentIndex(), index);
    }

    // Entering the box reports a change before the row takes the focus: intended.
    void enteringTheBoxReportsAChangeBeforeTheRowIsFocused()
    {
        Field *before = user->addOfType(ftText, QStringLiteral("Before"));
        Field *colour = addColours(true);
        colour->setValue(3);
        QStringList events;
        connect(user->grid, &kwPropertyControl::Changed, this, [&](Field *field) {
            events << field->Name() + QLatin1Char(' ') + field->Value().toString() + " in "
                    + user->d()->highlighted()->Name();
        });
        before->SetFocus();
        user->press(Qt::Key_Tab);
        QCOMPARE(user->focusedField(), colour);
        QCOMPARE(focusedPart(), QStringLiteral("cbo"));
        QCOMPARE(user->d()->highlighted(), colour);
        user->press(Qt::Key_F4);
        QTRY_VERIFY(QApplication::activePopupWidget());
        user->closePopup();
        QTRY_COMPARE(focusedPart(), QStringLiteral("cbo"));
        user->press(Qt::Key_Down);
        QCOMPARE(events, QStringList({ "Colour 3 in Before", "Colour 7 in Colour" }));
    }

    // Keys a box has no use for move to the next row; Down passes over a slider's own slider.
    void upAndDownLeaveTheRow_data()
    {
        auto row = columns<int, QString, bool>();
        row("check box, Up", ftCheckBox, "Check1", false);
        row("slider's number box, Down", ftSlider, "txtNum", true);
        row("memo box, Down", ftMemo, "Text1", true);
    }
    void upAndDownLeaveTheRow()
    {
        const auto [type, part, down] = fetch<int, QString, bool>();
        Field *before = user->addOfType(ftText, QStringLiteral("Before"));
        Field *target = user->addOfType(type, QStringLiteral("Target"));
        Field *after = user->addOfType(ftText, QStringLiteral("After"));
        const QVariant value = target->Value();
        QVERIFY(clickPart(target, qPrintable(part)));
        QTRY_COMPARE(focusedPart(), part);
        // The click itself changed the box; the keys change nothing more.
        const QVariant clicked = target->Value();
        user->press(down ? Qt::Key_Down : Qt::Key_Up);
        QCOMPARE(user->focusedField(), down ? after : before);
        QCOMPARE(target->Value(), clicked);
        QCOMPARE(user->dialogs, 0);
        if (type != ftCheckBox)
            QCOMPARE(clicked, value);
    }

    // A folder shown shortened with "..." names none, so its dialog starts in InitDir (intended).
    void theBrowseButtonAsksFromTheRow_data()
    {
        // The type, the value, the dialog's reply, the folder and file name it starts from.
        auto row = columns<int, QString, QString, QString, QString>();
        const int file = ftFileSelector, folder = ftFolderSelector;
        row("existing file, cancelled", file, m_file, "", m_dir.path(), "notes.txt");
        row("no file, chosen", file, "", m_file, "/srv", "");
        row("long missing file, cancelled", file, m_deep + "/report.txt", "", "/srv", "report.txt");
        row("existing folder, chosen", folder, m_dir.path(), m_deep, m_dir.path(), "");
        row("missing folder, cancelled", folder, "/no/such/folder", "", "/srv", "");
        row("long folder shown shortened", folder, m_deep, "", "/srv", "");
    }
    void theBrowseButtonAsksFromTheRow()
    {
        const auto [type, value, reply, folder, name]
            = fetch<int, QString, QString, QString, QString>();
        QVERIFY(QFile(m_file).open(QIODevice::WriteOnly));
        Field *field = user->add(QStringLiteral("Log"), lFieldTypes(type), value);
        field->setInitDir(QStringLiteral("/srv"));
        if (type == ftFileSelector) {
            field->setTitle(QStringLiteral("Pick a log"));
            field->setFilter(QStringLiteral("Logs (*.log)|*.log"));
        }
        // The grid's host puts the previous seams back when it goes.
        QVector<Dialogs::OpenFileRequest> files;
        QVector<Dialogs::BrowseFolderRequest> folders;
        Dialogs::setOpenFileHandler(
            [&, reply = reply](const auto &asked) { return files << asked, reply; });
        Dialogs::setBrowseFolderHandler(
            [&, reply = reply](const auto &asked) { return folders << asked, reply; });
        QSignalSpy changed(user->grid, &kwPropertyControl::Changed);
        QWidget *button = clickPart(field, "btnBrowse");
        QVERIFY(button);
        if (type == ftFileSelector) {
            QCOMPARE(files.size(), 1);
            const Dialogs::OpenFileRequest &asked = files.first();
            QCOMPARE(
                QStringList({ asked.defaultName, asked.startFolder, asked.title, asked.filter }),
                QStringList({ name, folder, "Pick a log", "Logs (*.log)|*.log" }));
        } else {
            QCOMPARE(folders.size(), 1);
            QCOMPARE(folders[0].startFolder, folder);
            QCOMPARE(folders[0].owner, &user->window);
        }
        const QString expected = reply.isEmpty() ? value : reply;
        QCOMPARE(field->Value().toString(), expected);
        QCOMPARE(changed.count(), reply.isEmpty() ? 0 : 1);
        QCOMPARE(user->focusedField(), field);
        // A long path is shown fitted to the box, its end kept, while the value keeps it whole.
        const QString shown = shownText(field);
        const bool fitted = expected.startsWith(m_deep);
        QCOMPARE(shown.startsWith(QLatin1String("...")), fitted);
        QVERIFY2(fitted ? expected.endsWith(shown.mid(3)) : shown == expected, qPrintable(shown));
        QTRY_VERIFY(button->hasFocus());
        QFocusEvent away(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
        QApplication::sendEvent(button, &away);
        QFocusEvent back(QEvent::FocusIn, Qt::ActiveWindowFocusReason);
        QApplication::sendEvent(button, &back);
        QCOMPARE(files.size() + folders.size(), 1);
        QTest::mouseClick(button, Qt::LeftButton, {}, pointToClick(button));
        QCOMPARE(files.size() + folders.size(), 2);
    }

    // No cancel: closing reports a change even unedited; the field names the window (intended).
    void theMemoWindowGivesTheRowItsText_data()
    {
        // The value, whether the user edits it, closes with Escape, and the value after.
        auto row = columns<QString, bool, bool, QString>();
        row("edited, Escape", "a\r\nb", true, true, "a\r\nb\r\nc");
        // Every kind of line end, kept as it is.
        const QString ends = QStringLiteral("a\r\nb\nc\rd\n\re\r\r\n");
        row("line ends, Escape", ends, false, true, ends);
        row("line ends, F4 and the close command", ends, false, false, ends);
    }
    void theMemoWindowGivesTheRowItsText()
    {
        const auto [value, edit, escape, expected] = fetch<QString, bool, bool, QString>();
        Field *memo = user->add(QStringLiteral("Remarks"), ftMemo, value);
        memo->setTitle(QStringLiteral("Something else"));
        QStringList captions;
        ModalShowDriver window([&, edit = edit, escape = escape](QDialog &dialog) {
            captions << static_cast<frmMemo &>(dialog).Title();
            auto *text = dialog.findChild<QPlainTextEdit *>(QStringLiteral("txtMemo"));
            if (edit)
                QTest::keySequence(text, QKeySequence(QStringLiteral("Ctrl+End, Return, C")));
            if (escape)
                QTest::keyClick(text, Qt::Key_Escape);
            else
                dialog.close();
            // The desktop gives the activation back to the grid's window.
            QVERIFY(user->show());
        });
        QStringList valuesAtChange;
        connect(user->grid, &kwPropertyControl::Changed, this,
            [&](Field *field) { valuesAtChange << field->Value().toString(); });
        if (escape) {
            QVERIFY(clickPart(memo, "btnBrowse"));
        } else {
            memo->SetFocus();
            QCOMPARE(user->focusedField(), memo);
            user->press(Qt::Key_F4, Qt::ShiftModifier);
            QCOMPARE(window.shown, 0);
            user->press(Qt::Key_F4);
        }
        QCOMPARE(window.shown, 1);
        QCOMPARE(captions, QStringList { "Field: Remarks" });
        QCOMPARE(memo->Value().toString(), expected);
        QCOMPARE(valuesAtChange, QStringList { expected });
        QCOMPARE(shownText(memo), QStringLiteral("(Text)"));
        QCOMPARE(user->focusedField(), memo);
    }

private:
    // Where an idle row paints an editor part: the live editor measures it, then is given back.
    QPoint paintedPoint(Field *field, const char *name)
    {
        const QWidget *part = user->editorOf(field)->findChild<QWidget *>(QLatin1String(name));
        const QPoint point = part ? part->mapTo(user->view(), pointToClick(part)) : QPoint();
        user->d()->rowEditor().release();
        return point;
    }

    // Clicks the view there; the named part of the live editor the click reached.
    QWidget *clickAt(const QPoint &point, const char *name)
    {
        QTest::mouseClick(user->view(), Qt::LeftButton, {}, point);
        QCoreApplication::processEvents();
        const QWidget *editor = user->d()->rowEditor().editor();
        return editor ? editor->findChild<QWidget *>(QLatin1String(name)) : nullptr;
    }
    QWidget *clickPart(Field *field, const char *name)
    {
        return clickAt(paintedPoint(field, name), name);
    }

    QString shownText(Field *field)
    {
        return user->editorOf(field)->findChild<QLineEdit *>(QStringLiteral("Text1"))->text();
    }

    // Entries numbered 3, 7, 7 and 0, or (without keys) matched by their texts.
    Field *addColours(bool byNumber)
    {
        user->grid->ReadDef(defText(
            QStringLiteral("ADDFIELD Colour|TYPE=COMBO|ADDCOMBOITEMS|%1|ENDCOMBOITEMS|ENDFIELD")
                .arg(byNumber ? "3=Red|7=Blue|7b=red|0=Zero" : "Red|Blue|red|Zero")));
        return user->field(QStringLiteral("Colour"));
    }

    // A short name, so that a file in it always fits the box whatever letters it gets.
    QTemporaryDir m_dir { QDir::tempPath() + QStringLiteral("/kw-XXXXXX") };
    const QString m_file = m_dir.filePath(QStringLiteral("notes.txt"));
    const QString m_deep = m_dir.path() + QString("/a rather long folder name").repeated(10);
};

QTEST_MAIN(tst_EditorRows)
#include "tst_EditorRows.moc"
