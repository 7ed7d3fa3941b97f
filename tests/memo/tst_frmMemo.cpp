#include "editors/memo/frmChooseFont.h"
#include "editors/memo/frmMemo.h"
#include "memo/ModalShowDriver.h"
#include "runtime/SettingsStore.h"

#include "TestSupport.h"

#include <QtTest>
#include <QtWidgets>

using namespace kwFieldDeck;
using namespace Qt::StringLiterals;

namespace {
const auto fontOf = [](const frmMemo &memo) {
    return memo.txtMemo->font().family() + '|' + QString::number(memo.txtMemo->font().pointSizeF());
};

const auto store = [](const char *key, const QString &value) {
    SettingsStore::SaveSetting(QCoreApplication::applicationName(), "Settings", key, value);
};

struct Typing
{
    const char *text, *keys;
    int line, column;
    const char *lines, *value;
};

struct FontPick
{
    QString storedName;
    int pick;
    const char *button;
    QString expected;
};

bool showActive(frmMemo &memo, const QString &text = {})
{
    memo.setValue(text);
    memo.show();
    memo.activateWindow();
    return QTest::qWaitForWindowActive(&memo);
}
} // namespace

class tst_frmMemo : public QObject
{
    Q_OBJECT
private slots:
    void init() { QFile::remove(SettingsStore::filePath(QCoreApplication::applicationName())); }

    // Unedited text keeps its breaks (also through a memo row, tst_EditorRows); edited, CR LF.
    void statusBarAndValueFollowTheKeys_data()
    {
        QTest::addColumn<Typing>("row");
        const auto row
            = [](const char *name, const Typing &typing) { QTest::newRow(name) << typing; };
        row("empty", { "", "", 1, 1, "1 Line", "" });
        row("blank", { "a\r\n\r\nb", "Ctrl+Home, Down", 2, 1, "3 Lines", "a\r\n\r\nb" });
        // The position is the selection's start, not where the caret ended up.
        row("selection", { "ab\r\ncd", "Ctrl+Home, Ctrl+Shift+End", 1, 1, "2 Lines", "ab\r\ncd" });
        row("mixed edited",
            { "ab\ncd\r\n\rf", "Ctrl+End, !", 4, 3, "4 Lines", "ab\r\ncd\r\n\r\nf!" });
        row("Tab", { "ab", "Ctrl+End, Tab", 1, 4, "1 Line", "ab\t" });
        row("Shift+Tab after Tab", { "ab", "Ctrl+End, Tab, Shift+Backtab", 1, 3, "1 Line", "ab" });
    }
    void statusBarAndValueFollowTheKeys()
    {
        QFETCH(Typing, row);
        frmMemo memo;
        QVERIFY(showActive(memo, row.text));
        QTRY_VERIFY(memo.txtMemo->hasFocus());
        QTest::keySequence(memo.txtMemo, QKeySequence(row.keys));
        QTRY_COMPARE(memo.StatusBar1->findChild<QLabel *>("Panel3")->text(),
            u"  Ln %1, Col %2  "_s.arg(row.line).arg(row.column));
        QCOMPARE(memo.StatusBar1->findChild<QLabel *>("Panel2")->text(), row.lines);
        QTRY_COMPARE(memo.Value(), row.value);
        QVERIFY(memo.txtMemo->hasFocus());
    }

    void storedFontIsAppliedExceptSizesOfFiveOrLess()
    {
        // The size a text box has by itself, which a size not applied leaves.
        const double before = QPlainTextEdit().font().pointSizeF();
        const std::pair<double, bool> sizes[] = { { 5, false }, { 5.5, true } };
        for (const auto &[size, applied] : sizes) {
            store("FontName", u"Serif Test Face"_s);
            store("FontSize", QString::number(size));
            frmMemo memo;
            QCOMPARE(fontOf(memo), "Serif Test Face|" + QString::number(applied ? size : before));
        }
    }

    // The window sees its keys first: Ctrl+A selects all the text wherever the focus is. Copy and
    // Cut follow the selection on the status tick; the desktop's clipboard holds LF.
    void ctrlASelectsAllForCutAndPasteThroughTheClipboard()
    {
        frmMemo memo;
        QVERIFY(showActive(memo, u"a\r\nb"_s));
        QTRY_VERIFY(!memo.mnuCopy->isEnabled() && !memo.mnuCut->isEnabled());
        memo.setFocus();
        QTRY_VERIFY(memo.hasFocus());
        QTest::keyClick(&memo, Qt::Key_A, Qt::ControlModifier);
        QTRY_VERIFY(memo.mnuCopy->isEnabled() && memo.mnuCut->isEnabled());
        memo.mnuCut->trigger();
        QCOMPARE(QGuiApplication::clipboard()->text(), u"a\nb"_s);
        QCOMPARE(memo.Value(), QString());
        QTRY_VERIFY(!memo.mnuCopy->isEnabled() && !memo.mnuCut->isEnabled());
        memo.mnuPaste->trigger();
        memo.mnuPaste->trigger();
        QCOMPARE(memo.Value(), u"a\r\nba\r\nb"_s);
    }

    void droppedFilesReplaceTheTextOnlyWhenOneExists()
    {
        QTemporaryDir dir;
        const QString file = test::writeFile(dir.filePath(u"dropped.txt"_s), "line one\nline two");
        const std::pair<int, const char *> drops[]
            = { { 1, "line one\r\nline two" }, { 2, "kept" } };
        for (const auto &[count, expected] : drops) {
            frmMemo memo;
            QVERIFY(showActive(memo, u"kept"_s));
            QMimeData data;
            data.setUrls(QList<QUrl>(count, QUrl::fromLocalFile(file)));
            QWidget *viewport = memo.txtMemo->viewport();
            QDragEnterEvent enter({ 10, 10 }, Qt::CopyAction, &data, Qt::LeftButton, {});
            QCoreApplication::sendEvent(viewport, &enter);
            QDropEvent drop(QPointF(10, 10), Qt::CopyAction, &data, Qt::LeftButton, {});
            QCoreApplication::sendEvent(viewport, &drop);
            QCOMPARE(memo.Value(), expected);
        }
    }

    // A user who only changes the size keeps the memo's font name, even one not listed exactly.
    void fontChoiceIsKeptForTheNextWindow_data()
    {
        QTest::addColumn<FontPick>("row");
        const QStringList families = QFontDatabase::families();
        const int other = families.first() == "MS Sans Serif"_L1 ? 1 : 0;
        const QString picked = families.value(other) + "|14", unchanged = u"MS Sans Serif|10"_s;
        QTest::newRow("Ok") << FontPick { {}, other, "btnOk", picked };
        QTest::newRow("Cancel changes nothing") << FontPick { {}, other, "btnCancel", unchanged };
        QTest::newRow("close button") << FontPick { {}, int(families.size() - 1), "", unchanged };
        QTest::newRow("Ok, no pick") << FontPick { {}, -1, "btnOk", u"MS Sans Serif|11"_s };
        for (const QString &family : families) {
            const QString name = family.toUpper() != family ? family.toUpper() : family.toLower();
            if (name != family && !families.contains(name)) {
                QTest::newRow("Ok, no pick, stored name in another letter case")
                    << FontPick { name, -1, "btnOk", name + "|11" };
                break;
            }
        }
    }
    void fontChoiceIsKeptForTheNextWindow()
    {
        QFETCH(FontPick, row);
        if (!row.storedName.isEmpty())
            store("FontName", row.storedName);
        const QString family = QFontDatabase::families().value(row.pick);
        test::ModalShowDriver driver([&](QDialog &dialog) {
            auto &chooser = static_cast<frmChooseFont &>(dialog);
            QListWidget *fonts = chooser.lstFonts;
            QCOMPARE(fonts->count(), QFontDatabase::families().size());
            if (row.pick >= 0) {
                // A user's click on the row, scrolled into view first.
                fonts->scrollToItem(fonts->item(row.pick));
                QTest::mouseClick(fonts->viewport(), Qt::LeftButton, {},
                    fonts->visualItemRect(fonts->item(row.pick)).center());
                QTest::keyClicks(chooser.cboSize, u"14"_s);
                QCOMPARE(chooser.lblSample->font().family(), family);
                QCOMPARE(chooser.lblSample->font().pointSizeF(), 14.0);
            } else {
                fonts->setFocus(Qt::TabFocusReason);
                QTest::keyClick(chooser.cboSize, Qt::Key_Down);
            }
            if (!*row.button)
                dialog.close();
            else
                QTest::mouseClick(dialog.findChild<QPushButton *>(row.button), Qt::LeftButton);
        });
        frmMemo memo;
        QVERIFY(showActive(memo, u"kept"_s));
        memo.mnuFont->trigger();
        QCOMPARE(driver.shown, 1);
        QCOMPARE(fontOf(memo), row.expected);
        // Escape hides the window, keeping the text and storing the font.
        QTest::keyClick(memo.txtMemo, Qt::Key_Escape);
        QVERIFY(!memo.isVisible());
        QCOMPARE(memo.Value(), u"kept"_s);
        frmMemo next;
        QCOMPARE(fontOf(next), row.expected);
    }

    // An entry is selected only when equal to the value written; else the selection stays.
    void chooserSelectsOnlyAnEqualEntry()
    {
        const QStringList families = QFontDatabase::families();
        frmChooseFont chooser;
        chooser.setFont_Name(families.value(0));
        chooser.setFont_Name(families.value(1));
        QCOMPARE(chooser.lstFonts->selectedItems().size(), 1);
        QCOMPARE(chooser.lstFonts->selectedItems().at(0)->text(), families.value(1));
        chooser.setFont_Size(12);
        chooser.setFont_Size(13);
        QCOMPARE(chooser.Font_Size(), 13.0f);
        QCOMPARE(chooser.cboSize->currentText(), u"12"_s);
    }
};

QTEST_MAIN(tst_frmMemo)

#include "tst_frmMemo.moc"
