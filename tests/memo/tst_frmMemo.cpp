#include "editors/memo/frmChooseFont.h"
#include "editors/memo/frmMemo.h"
#include "memo/ModalShowDriver.h"
#include "runtime/SettingsStore.h"
#include <QFontDatabase>

#include "TestSupport.h"

#include <QtTest>
#include <QtWidgets>

using namespace kwFieldDeck;

namespace {
QString fontOf(const frmMemo &memo)
{
    const QFont font = memo.txtMemo->font();
    return font.family() + QLatin1Char('|') + QString::number(font.pointSizeF());
}

void store(const char *key, const QString &value)
{
    SettingsStore::SaveSetting(QCoreApplication::applicationName(), "Settings", key, value);
}

// The window as a user meets it: shown and active, holding the text given.
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
        QTest::addColumn<QString>("text");
        QTest::addColumn<QKeySequence>("keys");
        QTest::addColumn<QString>("position");
        QTest::addColumn<QString>("lines");
        QTest::addColumn<QString>("value");
        auto row = [](const char *name, const char *text, const char *keys, const char *position,
                       const char *lines, const char *value) {
            QTest::newRow(name) << text << QKeySequence(keys) << position << lines << value;
        };
        row("empty", "", "", "  Ln 1, Col 1  ", "1 Line", "");
        row("two lines", "ab\r\ncd", "Ctrl+End", "  Ln 2, Col 3  ", "2 Lines", "ab\r\ncd");
        row("blank", "a\r\n\r\nb", "Ctrl+Home, Down", "  Ln 2, Col 1  ", "3 Lines", "a\r\n\r\nb");
        // The position is the selection's start, not where the caret ended up.
        row("selection", "ab\r\ncd", "Ctrl+Home, Ctrl+Shift+End", "  Ln 1, Col 1  ", "2 Lines",
            "ab\r\ncd");
        row("LF edited", "ab\ncd", "Ctrl+End, !", "  Ln 2, Col 4  ", "2 Lines", "ab\r\ncd!");
        row("CR edited", "ab\rcd", "Ctrl+End, !", "  Ln 2, Col 4  ", "2 Lines", "ab\r\ncd!");
        row("mixed edited", "ab\r\ncd\r\rf", "Ctrl+End, !", "  Ln 4, Col 3  ", "4 Lines",
            "ab\r\ncd\r\n\r\nf!");
        row("Tab", "ab", "Ctrl+End, Tab", "  Ln 1, Col 4  ", "1 Line", "ab\t");
        row("Shift+Tab after Tab", "ab", "Ctrl+End, Tab, Shift+Backtab", "  Ln 1, Col 3  ",
            "1 Line", "ab");
    }
    void statusBarAndValueFollowTheKeys()
    {
        QFETCH(QString, text);
        QFETCH(QKeySequence, keys);
        QFETCH(QString, position);
        QFETCH(QString, lines);
        QFETCH(QString, value);
        frmMemo memo;
        QVERIFY(showActive(memo, text));
        QTRY_VERIFY(memo.txtMemo->hasFocus());
        QTest::keySequence(memo.txtMemo, keys);
        QTRY_COMPARE(memo.StatusBar1->findChild<QLabel *>("Panel3")->text(), position);
        QCOMPARE(memo.StatusBar1->findChild<QLabel *>("Panel2")->text(), lines);
        QTRY_COMPARE(memo.Value(), value);
        QVERIFY(memo.txtMemo->hasFocus());
    }

    void storedFontIsAppliedExceptSizesOfFiveOrLess_data()
    {
        QTest::addColumn<QString>("size");
        QTest::addColumn<bool>("applied");
        QTest::newRow("4") << "4" << false;
        QTest::newRow("5") << "5" << false;
        QTest::newRow("5.5") << "5.5" << true;
    }
    void storedFontIsAppliedExceptSizesOfFiveOrLess()
    {
        QFETCH(QString, size);
        QFETCH(bool, applied);
        store("FontName", QStringLiteral("Serif Test Face"));
        store("FontSize", size);
        // The size a text box has by itself, which a size not applied leaves.
        const double before = QPlainTextEdit().font().pointSizeF();
        frmMemo memo;
        QCOMPARE(memo.txtMemo->font().family(), QStringLiteral("Serif Test Face"));
        QCOMPARE(memo.txtMemo->font().pointSizeF(), applied ? size.toDouble() : before);
    }

    // Copy and Cut follow the selection on the status tick; the desktop's clipboard holds LF.
    void cutAndPasteGoThroughTheClipboardWhileCopyAndCutFollowTheSelection()
    {
        frmMemo memo;
        QVERIFY(showActive(memo, QStringLiteral("a\r\nb")));
        QTRY_VERIFY(!memo.mnuCopy->isEnabled() && !memo.mnuCut->isEnabled());
        QTest::keyClick(memo.txtMemo, Qt::Key_A, Qt::ControlModifier);
        QTRY_VERIFY(memo.mnuCopy->isEnabled() && memo.mnuCut->isEnabled());
        memo.mnuCut->trigger();
        QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("a\nb"));
        QCOMPARE(memo.Value(), QString());
        QTRY_VERIFY(!memo.mnuCopy->isEnabled() && !memo.mnuCut->isEnabled());
        memo.mnuPaste->trigger();
        memo.mnuPaste->trigger();
        QCOMPARE(memo.Value(), QStringLiteral("a\r\nba\r\nb"));
    }

    // The window sees its keys first: Ctrl+A selects all the text wherever the focus is.
    void ctrlASelectsAllWhereverTheFocusIs()
    {
        frmMemo memo;
        QVERIFY(showActive(memo, QStringLiteral("a\r\nb")));
        memo.setFocus();
        QTRY_VERIFY(memo.hasFocus());
        QTest::keyClick(&memo, Qt::Key_A, Qt::ControlModifier);
        QCOMPARE(memo.txtMemo->textCursor().selectedText().size(), 3);
    }

    void droppedFilesReplaceTheTextOnlyWhenOneExists_data()
    {
        QTest::addColumn<QStringList>("files");
        QTest::addColumn<QString>("expected");
        QVERIFY(!test::writeFile(m_file, "line one\nline two").isEmpty());
        QTest::newRow("one file") << QStringList { m_file } << "line one\r\nline two";
        QTest::newRow("two files") << QStringList { m_file, m_file } << "kept";
    }
    void droppedFilesReplaceTheTextOnlyWhenOneExists()
    {
        QFETCH(QStringList, files);
        QFETCH(QString, expected);
        frmMemo memo;
        QVERIFY(showActive(memo, QStringLiteral("kept")));
        QMimeData data;
        for (const QString &path : files)
            data.setUrls(data.urls() << QUrl::fromLocalFile(path));
        QWidget *viewport = memo.txtMemo->viewport();
        QDragEnterEvent enter({ 10, 10 }, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(viewport, &enter);
        QDropEvent drop(QPointF(10, 10), Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(viewport, &drop);
        QCOMPARE(memo.Value(), expected);
    }

    // A user who only changes the size keeps the memo's font name, even one not listed exactly.
    void fontChoiceIsKeptForTheNextWindowAlsoInANewProcess_data()
    {
        QTest::addColumn<QString>("storedName");
        QTest::addColumn<int>("pick");
        QTest::addColumn<QString>("button");
        QTest::addColumn<bool>("damagedStore");
        QTest::addColumn<QString>("expected");
        const QStringList families = QFontDatabase::families();
        const int other = families.first() == QLatin1String("MS Sans Serif") ? 1 : 0;
        const QString picked = families.value(other) + QStringLiteral("|14");
        const QString unchanged = QStringLiteral("MS Sans Serif|10");
        QTest::newRow("Ok") << "" << other << "btnOk" << false << picked;
        QTest::newRow("Cancel changes nothing") << "" << other << "btnCancel" << false << unchanged;
        QTest::newRow("close button") << "" << int(families.size() - 1) << "" << false << unchanged;
        // A store edited by hand is kept aside; both font values still reach the new one.
        QTest::newRow("Ok, store with a note line") << "" << other << "btnOk" << true << picked;
        QTest::newRow("Ok, no pick") << "" << -1 << "btnOk" << false << "MS Sans Serif|11";
        for (const QString &family : families) {
            const QString name = family.toUpper() != family ? family.toUpper() : family.toLower();
            if (name != family && !families.contains(name)) {
                QTest::newRow("Ok, no pick, stored name in another letter case")
                    << name << -1 << "btnOk" << false << name + "|11";
                break;
            }
        }
    }
    void fontChoiceIsKeptForTheNextWindowAlsoInANewProcess()
    {
        QFETCH(QString, storedName);
        QFETCH(int, pick);
        QFETCH(QString, button);
        QFETCH(bool, damagedStore);
        QFETCH(QString, expected);
        if (!storedName.isEmpty())
            store("FontName", storedName);
        const QString family = QFontDatabase::families().value(pick);
        test::ModalShowDriver driver([&](QDialog &dialog) {
            auto &chooser = static_cast<frmChooseFont &>(dialog);
            auto *fonts = dialog.findChild<QListWidget *>(QStringLiteral("lstFonts"));
            auto *size = dialog.findChild<QComboBox *>(QStringLiteral("cboSize"));
            QCOMPARE(fonts->count(), QFontDatabase::families().size());
            if (pick >= 0) {
                test::clickRow(fonts, pick);
                QTest::keyClicks(size, QStringLiteral("14"));
                QCOMPARE(chooser.lblSample->font().family(), family);
                QCOMPARE(chooser.lblSample->font().pointSizeF(), 14.0);
            } else {
                fonts->setFocus(Qt::TabFocusReason);
                QTest::keyClick(size, Qt::Key_Down);
            }
            if (button.isEmpty())
                dialog.close();
            else
                QTest::mouseClick(dialog.findChild<QPushButton *>(button), Qt::LeftButton);
            QVERIFY(!dialog.isVisible());
            QCOMPARE(chooser.Cancelled(), button != QLatin1String("btnOk"));
            if (pick >= 0) {
                QCOMPARE(chooser.Font_Name(), family);
                QCOMPARE(chooser.Font_Size(), 14.0f);
            }
        });
        frmMemo memo;
        QVERIFY(showActive(memo, QStringLiteral("kept")));
        memo.mnuFont->trigger();
        QCOMPARE(driver.shown, 1);
        QCOMPARE(fontOf(memo), expected);
        if (damagedStore) {
            const QString store = SettingsStore::filePath(QCoreApplication::applicationName());
            QVERIFY(QDir().mkpath(QFileInfo(store).absolutePath()));
            QVERIFY(!test::writeFile(store, "# my settings\n[Other]\nkept=1\n").isEmpty());
        }
        // Escape hides the window, keeping the text and storing the font.
        QTest::keyClick(memo.txtMemo, Qt::Key_Escape);
        QVERIFY(!memo.isVisible());
        QCOMPARE(memo.Value(), QStringLiteral("kept"));
        frmMemo next;
        QCOMPARE(fontOf(next), expected);
        QProcess child;
        child.start(QCoreApplication::applicationFilePath(), { QStringLiteral("--print-font") });
        QVERIFY(child.waitForFinished(30000));
        QCOMPARE(QString::fromUtf8(child.readAllStandardOutput()).trimmed(), expected);
    }

    // An entry is selected only when equal to the value written; else the selection stays.
    void chooserSelectsOnlyAnEqualEntry_data()
    {
        QTest::addColumn<QByteArray>("property");
        QTest::addColumn<QVariant>("first");
        QTest::addColumn<QVariant>("then");
        QTest::addColumn<QString>("selected");
        const QStringList families = QFontDatabase::families();
        const QString a = families.value(0), b = families.value(1);
        auto row = [](const char *name, const char *property, const QVariant &first,
                       const QVariant &then, const QString &selected) {
            QTest::newRow(name) << QByteArray(property) << first << then << selected;
        };
        row("listed font", "Font_Name", a, b, b);
        row("font in another letter case", "Font_Name", a,
            b.toLower() != b ? b.toLower() : b.toUpper(), a);
        row("unknown font", "Font_Name", a, "No Such Face", a);
        row("listed size", "Font_Size", 12.0f, 14.0f, "14");
        row("size not listed", "Font_Size", 12.0f, 13.0f, "12");
    }
    void chooserSelectsOnlyAnEqualEntry()
    {
        QFETCH(QByteArray, property);
        QFETCH(QVariant, first);
        QFETCH(QVariant, then);
        QFETCH(QString, selected);
        frmChooseFont chooser;
        QVERIFY(chooser.setProperty(property, first));
        QVERIFY(chooser.setProperty(property, then));
        QCOMPARE(chooser.property(property), then);
        QStringList shown { chooser.cboSize->currentText() };
        if (property == "Font_Name") {
            shown.clear();
            for (const QListWidgetItem *item : chooser.lstFonts->selectedItems())
                shown << item->text();
        }
        QCOMPARE(shown, QStringList { selected });
    }

private:
    QTemporaryDir m_dir;
    const QString m_file = m_dir.filePath(QStringLiteral("dropped.txt"));
};

// Run as "--print-font", the program prints the font a new memo window takes from the settings
// store, so that a test can check what another process remembers.
int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    if (app.arguments().contains(QStringLiteral("--print-font"))) {
        frmMemo memo;
        QTextStream(stdout) << fontOf(memo) << Qt::endl;
        return 0;
    }
    tst_frmMemo test;
    QTEST_SET_MAIN_SOURCE_PATH
    return QTest::qExec(&test, argc, argv);
}

#include "tst_frmMemo.moc"
