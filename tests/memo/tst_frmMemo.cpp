#include "editors/memo/frmChooseFont.h"
#include "editors/memo/frmMemo.h"
#include "memo/ModalShowDriver.h"
#include "runtime/SettingsStore.h"
#include <QFontDatabase>

#include "TestSupport.h"

#include <QtTest>
#include <QtWidgets>

using namespace kwFieldDeck;

static QString fontOf(const frmMemo &memo)
{
    const QFont font = memo.txtMemo->font();
    return font.family() + QLatin1Char('|') + QString::number(font.pointSizeF());
}

class tst_frmMemo : public QObject
{
    Q_OBJECT
private slots:
    void init() { QFile::remove(SettingsStore::filePath(QCoreApplication::applicationName())); }

    void statusBarShowsCaretLineAndLineCount_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QKeySequence>("keys");
        QTest::addColumn<QString>("position");
        QTest::addColumn<QString>("lines");
        QTest::newRow("empty") << QString() << QKeySequence() << QString("  Ln 1, Col 1  ")
                               << "1 Line";
        QTest::newRow("two lines")
            << "ab\r\ncd" << QKeySequence("Ctrl+End") << QString("  Ln 2, Col 3  ") << "2 Lines";
        QTest::newRow("blank") << "a\r\n\r\nb" << QKeySequence("Ctrl+Home, Down")
                               << QString("  Ln 2, Col 1  ") << "3 Lines";
        // The position is the selection's start, not where the caret ended up.
        QTest::newRow("selection") << "ab\r\ncd" << QKeySequence("Ctrl+Home, Ctrl+Shift+End")
                                   << QString("  Ln 1, Col 1  ") << "2 Lines";
    }
    void statusBarShowsCaretLineAndLineCount()
    {
        QFETCH(QString, text);
        QFETCH(QKeySequence, keys);
        QFETCH(QString, position);
        QFETCH(QString, lines);
        frmMemo memo;
        memo.setValue(text);
        memo.show();
        memo.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&memo));
        QTest::keySequence(memo.txtMemo, keys);
        // Timer1 refreshes the status bar by itself.
        const auto *panel2 = memo.StatusBar1->findChild<QLabel *>(QStringLiteral("Panel2"));
        const auto *panel3 = memo.StatusBar1->findChild<QLabel *>(QStringLiteral("Panel3"));
        QTRY_COMPARE(panel3->text(), position);
        QCOMPARE(panel2->text(), lines);
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
        const QString app = QCoreApplication::applicationName();
        SettingsStore::SaveSetting(app, "Settings", "FontName", QStringLiteral("Serif Test Face"));
        SettingsStore::SaveSetting(app, "Settings", "FontSize", size);
        // The size a text box has by itself, which a size not applied leaves.
        const double before = QPlainTextEdit().font().pointSizeF();
        frmMemo memo;
        QCOMPARE(memo.txtMemo->font().family(), QStringLiteral("Serif Test Face"));
        QCOMPARE(memo.txtMemo->font().pointSizeF(), applied ? size.toDouble() : before);
    }

    void tabInsertsATabAndShiftTabRightAfterRemovesIt()
    {
        frmMemo memo;
        memo.show();
        memo.activateWindow();
        QWidget *edit = memo.txtMemo;
        QTRY_VERIFY(edit->hasFocus());
        QTest::keyClicks(edit, QStringLiteral("ab"));
        QTest::keyClick(edit, Qt::Key_Tab);
        QTRY_COMPARE(memo.Value(), QStringLiteral("ab\t"));
        QVERIFY(edit->hasFocus());
        QTest::keyClick(edit, Qt::Key_Backtab, Qt::ShiftModifier);
        QTRY_COMPARE(memo.Value(), QStringLiteral("ab"));
        QVERIFY(edit->hasFocus());
    }

    // Copy and Cut follow the selection on the status tick; the desktop's clipboard holds LF.
    void cutAndPasteGoThroughTheClipboardWhileCopyAndCutFollowTheSelection()
    {
        frmMemo memo;
        memo.setValue(QStringLiteral("a\r\nb"));
        memo.show();
        memo.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&memo));
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

    // Text read back unedited keeps its breaks (tst_kwMemoField); once edited, every break is CR
    // LF.
    void anEditWritesEveryBreakAsCrLf_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("edited");
        QTest::newRow("LF") << "ab\ncd"
                            << "ab\r\ncd!";
        QTest::newRow("CR") << "ab\rcd"
                            << "ab\r\ncd!";
        QTest::newRow("mixed") << "ab\r\ncd\r\rf"
                               << "ab\r\ncd\r\n\r\nf!";
    }
    void anEditWritesEveryBreakAsCrLf()
    {
        QFETCH(QString, text);
        QFETCH(QString, edited);
        frmMemo memo;
        memo.setValue(text);
        QTest::keyClick(memo.txtMemo, Qt::Key_End, Qt::ControlModifier);
        QTest::keyClicks(memo.txtMemo, QStringLiteral("!"));
        QCOMPARE(memo.Value(), edited);
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
        memo.setValue(QStringLiteral("kept"));
        memo.show();
        memo.activateWindow();
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

    // The font chooser's answer is what this window, the next one and a new process use.
    void fontChoiceIsKeptForTheNextWindowAlsoInANewProcess_data()
    {
        QTest::addColumn<bool>("ok");
        QTest::addColumn<bool>("damagedStore");
        QTest::newRow("Ok") << true << false;
        QTest::newRow("Cancel changes nothing") << false << false;
        // A store edited by hand is kept aside; both font values still reach the new one.
        QTest::newRow("Ok, store with a note line") << true << true;
    }
    void fontChoiceIsKeptForTheNextWindowAlsoInANewProcess()
    {
        QFETCH(bool, ok);
        QFETCH(bool, damagedStore);
        const QStringList families = QFontDatabase::families();
        const int other = families.first() == QLatin1String("MS Sans Serif") ? 1 : 0;
        const QString expected = ok ? families.value(other) + QStringLiteral("|14")
                                    : QStringLiteral("MS Sans Serif|10");
        test::ModalShowDriver driver([&](QDialog &dialog) {
            auto &chooser = static_cast<frmChooseFont &>(dialog);
            test::clickRow(chooser.lstFonts, other);
            QTest::keyClicks(chooser.cboSize, QStringLiteral("14"));
            QTest::mouseClick(ok ? chooser.btnOk : chooser.btnCancel, Qt::LeftButton);
        });
        frmMemo memo;
        memo.setValue(QStringLiteral("kept"));
        memo.show();
        memo.activateWindow();
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

    // A user who opens the chooser, lets the font list take the focus and changes only the size
    // keeps the memo's font name, also when the stored name matches no listed font exactly.
    void okWithoutAPickKeepsTheFontName_data()
    {
        QTest::addColumn<QString>("stored");
        QTest::addColumn<QString>("expected");
        QTest::newRow("default font") << QString() << "MS Sans Serif|11";
        const QStringList families = QFontDatabase::families();
        for (const QString &family : families) {
            const QString other = family.toUpper() != family ? family.toUpper() : family.toLower();
            if (other != family && !families.contains(other)) {
                QTest::newRow("stored name in another letter case") << other << other + "|11";
                break;
            }
        }
    }
    void okWithoutAPickKeepsTheFontName()
    {
        QFETCH(QString, stored);
        QFETCH(QString, expected);
        const QString app = QCoreApplication::applicationName();
        if (!stored.isEmpty())
            SettingsStore::SaveSetting(app, "Settings", "FontName", stored);
        test::ModalShowDriver driver([&](QDialog &dialog) {
            auto *fonts = dialog.findChild<QListWidget *>(QStringLiteral("lstFonts"));
            fonts->setFocus(Qt::TabFocusReason);
            QTest::keyClick(dialog.findChild<QComboBox *>(QStringLiteral("cboSize")), Qt::Key_Down);
            QTest::mouseClick(
                dialog.findChild<QPushButton *>(QStringLiteral("btnOk")), Qt::LeftButton);
        });
        frmMemo memo;
        memo.show();
        memo.activateWindow();
        memo.mnuFont->trigger();
        QCOMPARE(driver.shown, 1);
        QCOMPARE(fontOf(memo), expected);
        QTest::keyClick(memo.txtMemo, Qt::Key_Escape);
        QCOMPARE(SettingsStore::GetSetting(app, "Settings", "FontName") + "|11", expected);
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
