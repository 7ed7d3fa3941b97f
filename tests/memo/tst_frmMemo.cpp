#include "editors/memo/frmChooseFont.h"
#include "editors/memo/frmMemo.h"
#include "memo/ModalShowDriver.h"
#include "runtime/SettingsStore.h"

#include "TestSupport.h"
#include "host/Columns.h"

#include <QtTest>
#include <QtWidgets>

using namespace kwFieldDeck;
using namespace kwFieldDeck::test;
using namespace Qt::StringLiterals;

namespace {
const auto fontOf = [](const frmMemo &memo) {
    return memo.txtMemo->font().family() + '|' + QString::number(memo.txtMemo->font().pointSizeF());
};

const auto store = [](const char *key, const QString &value) {
    SettingsStore::SaveSetting(QCoreApplication::applicationName(), "Settings", key, value);
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
        // The text, the keys, the line and column shown, the number of lines and the value after.
        auto row = columns<QString, QString, int, int, QString, QString>();
        row("empty", "", "", 1, 1, "1 Line", "");
        row("blank", "a\r\n\r\nb", "Ctrl+Home, Down", 2, 1, "3 Lines", "a\r\n\r\nb");
        // The position is the selection's start, not where the caret ended up.
        row("selection", "ab\r\ncd", "Ctrl+Home, Ctrl+Shift+End", 1, 1, "2 Lines", "ab\r\ncd");
        row("mixed edited", "ab\ncd\r\n\rf", "Ctrl+End, !", 4, 3, "4 Lines", "ab\r\ncd\r\n\r\nf!");
        row("Tab", "ab", "Ctrl+End, Tab", 1, 4, "1 Line", "ab\t");
        row("Shift+Tab after Tab", "ab", "Ctrl+End, Tab, Shift+Backtab", 1, 3, "1 Line", "ab");
    }
    void statusBarAndValueFollowTheKeys()
    {
        const auto [text, keys, line, column, lines, value]
            = fetch<QString, QString, int, int, QString, QString>();
        frmMemo memo;
        QVERIFY(showActive(memo, text));
        QTRY_VERIFY(memo.txtMemo->hasFocus());
        QTest::keySequence(memo.txtMemo, QKeySequence(keys));
        QTRY_COMPARE(memo.StatusBar1->findChild<QLabel *>("Panel3")->text(),
            u"  Ln %1, Col %2  "_s.arg(line).arg(column));
        QCOMPARE(memo.StatusBar1->findChild<QLabel *>("Panel2")->text(), lines);
        QTRY_COMPARE(memo.Value(), value);
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
        const QString file = writeFile(dir.filePath(u"dropped.txt"_s), "line one\nline two");
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
        // The font name stored, the list's row picked (-1: none), the button, the font after.
        auto row = columns<QString, int, QString, QString>();
        const QStringList families = QFontDatabase::families();
        const int other = families.first() == "MS Sans Serif"_L1 ? 1 : 0;
        const QString picked = families.value(other) + "|14", unchanged = u"MS Sans Serif|10"_s;
        row("Ok", {}, other, "btnOk", picked);
        row("Cancel changes nothing", {}, other, "btnCancel", unchanged);
        row("close button", {}, int(families.size() - 1), "", unchanged);
        row("Ok, no pick", {}, -1, "btnOk", u"MS Sans Serif|11"_s);
        for (const QString &family : families) {
            const QString name = family.toUpper() != family ? family.toUpper() : family.toLower();
            if (name != family && !families.contains(name)) {
                row("Ok, no pick, stored name in another letter case", name, -1, "btnOk",
                    name + "|11");
                break;
            }
        }
    }
    void fontChoiceIsKeptForTheNextWindow()
    {
        const auto [storedName, pick, button, expected] = fetch<QString, int, QString, QString>();
        if (!storedName.isEmpty())
            store("FontName", storedName);
        const QString family = QFontDatabase::families().value(pick);
        ModalShowDriver driver([&, pick = pick, button = button](QDialog &dialog) {
            auto &chooser = static_cast<frmChooseFont &>(dialog);
            QListWidget *fonts = chooser.lstFonts;
            QCOMPARE(fonts->count(), QFontDatabase::families().size());
            if (pick >= 0) {
                // A user's click on the row, scrolled into view first.
                fonts->scrollToItem(fonts->item(pick));
                QTest::mouseClick(fonts->viewport(), Qt::LeftButton, {},
                    fonts->visualItemRect(fonts->item(pick)).center());
                QTest::keyClicks(chooser.cboSize, u"14"_s);
                QCOMPARE(chooser.lblSample->font().family(), family);
                QCOMPARE(chooser.lblSample->font().pointSizeF(), 14.0);
            } else {
                fonts->setFocus(Qt::TabFocusReason);
                QTest::keyClick(chooser.cboSize, Qt::Key_Down);
            }
            if (button.isEmpty())
                dialog.close();
            else
                QTest::mouseClick(dialog.findChild<QPushButton *>(button), Qt::LeftButton);
        });
        frmMemo memo;
        QVERIFY(showActive(memo, u"kept"_s));
        memo.mnuFont->trigger();
        QCOMPARE(driver.shown, 1);
        QCOMPARE(fontOf(memo), expected);
        // Escape hides the window, keeping the text and storing the font.
        QTest::keyClick(memo.txtMemo, Qt::Key_Escape);
        QVERIFY(!memo.isVisible());
        QCOMPARE(memo.Value(), u"kept"_s);
        frmMemo next;
        QCOMPARE(fontOf(next), expected);
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
