#include "TestSupport.h"
#include "memo/ModalShowDriver.h"
#include "memo/frmChooseFont.h"
#include "memo/frmMemo.h"
#include "platform/ComboBox.h"
#include "platform/CommandButton.h"
#include "platform/Dialogs.h"
#include "platform/ListBox.h"
#include "platform/Menu.h"
#include "platform/MultiLineTextBox.h"
#include "platform/Services.h"
#include "platform/SettingsStore.h"
#include "platform/StatusBar.h"
#include "platform/StatusBarPanel.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

using namespace kwFieldDeck;

namespace {
const QString settingsSection = QStringLiteral("Settings");

QString appName()
{
    return QCoreApplication::applicationName();
}

QString stored(const QString &key)
{
    return SettingsStore::GetSetting(appName(), settingsSection, key, QStringLiteral("<none>"));
}

// A family of the screen fonts other than the given one.
QString otherFamily(const QString &than)
{
    for (const QString &family : screenFontFamilies()) {
        if (family != than)
            return family;
    }
    return QString();
}

QWidget *memoEdit(const frmMemo &memo)
{
    return memo.txtMemo->widget();
}
} // namespace

class tst_frmMemo : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void statusBarShowsCaretLineAndLineCount_data();
    void statusBarShowsCaretLineAndLineCount();
    void storedFontIsAppliedExceptSizesOfFiveOrLess_data();
    void storedFontIsAppliedExceptSizesOfFiveOrLess();
    void withNothingStoredTheFontIsMsSansSerifTen();
    void tabInsertsATabAndShiftTabRightAfterRemovesIt();
    void tabWithASelectionOnlyReturnsToTheBox();
    void shiftTabAtTheStartDeletesNothing();
    void droppedDataReplacesTheTextOnlyForOneExistingFile_data();
    void droppedDataReplacesTheTextOnlyForOneExistingFile();
    void escapeHidesTheWindowKeepingTheTextAndStoresTheFont();
    void closeButtonOnlyHidesTheWindow();
    void menusCarryTheirCaptionsInOrder();
    void ctrlASelectsTheWholeText();
    void copyCutAndPasteGoThroughTheClipboard();
    void copyAndCutAreEnabledOnlyWithASelection();
    void openTextFileReplacesTheTextWithTheChosenFile_data();
    void openTextFileReplacesTheTextWithTheChosenFile();
    void fontChosenInOneWindowIsUsedByTheNextAlsoInANewProcess();
    void cancelInTheFontChooserChangesNothing();

private:
    QTemporaryDir m_dir;
};

void tst_frmMemo::init()
{
    QFile::remove(SettingsStore::filePath(appName()));
}

void tst_frmMemo::statusBarShowsCaretLineAndLineCount_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("caret");
    QTest::addColumn<QString>("position");
    QTest::addColumn<QString>("lines");
    QTest::newRow("empty") << QString() << 0 << "  Ln 1, Col 1  "
                           << "1 Line";
    QTest::newRow("end of the second line") << "ab\r\ncd" << 6 << "  Ln 2, Col 3  "
                                            << "2 Lines";
    QTest::newRow("start of the second line") << "ab\r\ncd" << 4 << "  Ln 2, Col 1  "
                                              << "2 Lines";
    QTest::newRow("inside one line") << "abc" << 2 << "  Ln 1, Col 3  "
                                     << "1 Line";
    QTest::newRow("empty middle line") << "a\r\n\r\nb" << 3 << "  Ln 2, Col 1  "
                                       << "3 Lines";
}

void tst_frmMemo::statusBarShowsCaretLineAndLineCount()
{
    QFETCH(QString, text);
    QFETCH(int, caret);
    QFETCH(QString, position);
    QFETCH(QString, lines);
    frmMemo memo;
    memo.setValue(text);
    memo.txtMemo->setSelStart(caret);
    // Timer1 refreshes the status bar by itself.
    QTRY_COMPARE(memo.StatusBar1->Panels(3)->Text(), position);
    QCOMPARE(memo.StatusBar1->Panels(2)->Text(), lines);
}

void tst_frmMemo::storedFontIsAppliedExceptSizesOfFiveOrLess_data()
{
    QTest::addColumn<QString>("size");
    QTest::addColumn<bool>("applied");
    QTest::newRow("4") << "4" << false;
    QTest::newRow("5") << "5" << false;
    QTest::newRow("5.5") << "5.5" << true;
    QTest::newRow("17") << "17" << true;
}

void tst_frmMemo::storedFontIsAppliedExceptSizesOfFiveOrLess()
{
    QFETCH(QString, size);
    QFETCH(bool, applied);
    SettingsStore::SaveSetting(
        appName(), settingsSection, QStringLiteral("FontName"), QStringLiteral("Serif Test Face"));
    SettingsStore::SaveSetting(appName(), settingsSection, QStringLiteral("FontSize"), size);
    frmMemo memo;
    const double before = memo.txtMemo->Font().pointSizeF();
    memo.Load();
    QCOMPARE(memo.txtMemo->Font().family(), QStringLiteral("Serif Test Face"));
    QCOMPARE(memo.txtMemo->Font().pointSizeF(), applied ? size.toDouble() : before);
}

void tst_frmMemo::withNothingStoredTheFontIsMsSansSerifTen()
{
    frmMemo memo;
    memo.Load();
    QCOMPARE(memo.txtMemo->Font().family(), QStringLiteral("MS Sans Serif"));
    QCOMPARE(memo.txtMemo->Font().pointSizeF(), 10.0);
    QVERIFY(!memo.txtMemo->Font().bold());
}

void tst_frmMemo::tabInsertsATabAndShiftTabRightAfterRemovesIt()
{
    frmMemo memo;
    memo.Show();
    QVERIFY(QTest::qWaitForWindowActive(memo.window()));
    QTRY_VERIFY(memoEdit(memo)->hasFocus());
    QTest::keyClicks(memoEdit(memo), QStringLiteral("ab"));

    QTest::keyClick(memoEdit(memo), Qt::Key_Tab);
    QTRY_COMPARE(memo.Value(), QStringLiteral("ab\t"));
    QVERIFY(memoEdit(memo)->hasFocus());
    QCOMPARE(memo.txtMemo->SelStart(), 3);

    QTest::keyClick(memoEdit(memo), Qt::Key_Backtab, Qt::ShiftModifier);
    QTRY_COMPARE(memo.Value(), QStringLiteral("ab"));
    QVERIFY(memoEdit(memo)->hasFocus());
}

void tst_frmMemo::tabWithASelectionOnlyReturnsToTheBox()
{
    frmMemo memo;
    memo.setValue(QStringLiteral("abc"));
    memo.Show();
    QVERIFY(QTest::qWaitForWindowActive(memo.window()));
    memo.txtMemo->setSelStart(1);
    memo.txtMemo->setSelLength(1);
    QTest::keyClick(memoEdit(memo), Qt::Key_Tab);
    QTRY_VERIFY(memoEdit(memo)->hasFocus());
    QCoreApplication::processEvents();
    QCOMPARE(memo.Value(), QStringLiteral("abc"));
}

void tst_frmMemo::shiftTabAtTheStartDeletesNothing()
{
    test::ErrorRecorder errors;
    frmMemo memo;
    memo.setValue(QStringLiteral("\tx"));
    memo.Show();
    QVERIFY(QTest::qWaitForWindowActive(memo.window()));
    memo.txtMemo->setSelStart(0);
    QTest::keyClick(memoEdit(memo), Qt::Key_Backtab, Qt::ShiftModifier);
    QTRY_VERIFY(memoEdit(memo)->hasFocus());
    QCoreApplication::processEvents();
    QCOMPARE(memo.Value(), QStringLiteral("\tx"));
    QCOMPARE(errors.sources(), QStringList { "Sub 'btnTab1_GotFocus' of Form 'frmMemo'" });
}

void tst_frmMemo::droppedDataReplacesTheTextOnlyForOneExistingFile_data()
{
    QVERIFY(m_dir.isValid());
    const QString first = m_dir.filePath(QStringLiteral("first.txt"));
    const QString second = m_dir.filePath(QStringLiteral("second.txt"));
    for (const QString &path : { first, second }) {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("line one\nline two");
    }
    QTest::addColumn<QStringList>("files");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    QTest::newRow("one existing file")
        << QStringList { first } << QString() << "line one\r\nline two";
    QTest::newRow("two files") << QStringList { first, second } << QString() << "kept";
    QTest::newRow("one missing file")
        << QStringList { m_dir.filePath(QStringLiteral("missing.txt")) } << QString() << "kept";
    QTest::newRow("text only") << QStringList() << "dropped words"
                               << "kept";
}

void tst_frmMemo::droppedDataReplacesTheTextOnlyForOneExistingFile()
{
    QFETCH(QStringList, files);
    QFETCH(QString, text);
    QFETCH(QString, expected);
    frmMemo memo;
    memo.setValue(QStringLiteral("kept"));
    memo.Show();
    QMimeData data;
    QList<QUrl> urls;
    for (const QString &path : files)
        urls << QUrl::fromLocalFile(path);
    if (!urls.isEmpty())
        data.setUrls(urls);
    if (!text.isEmpty())
        data.setText(text);
    auto *edit = static_cast<QPlainTextEdit *>(memoEdit(memo));
    const QPointF where(10, 10);
    QDragEnterEvent enter(where.toPoint(), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(edit->viewport(), &enter);
    QDropEvent drop(where, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(edit->viewport(), &drop);
    QCOMPARE(memo.Value(), expected);
}

void tst_frmMemo::escapeHidesTheWindowKeepingTheTextAndStoresTheFont()
{
    frmMemo memo;
    memo.setValue(QStringLiteral("first\r\nsecond"));
    memo.Show();
    QVERIFY(QTest::qWaitForWindowActive(memo.window()));
    memo.txtMemo->setSelStart(int(memo.Value().size()));
    QTest::keyClicks(memoEdit(memo), QStringLiteral("!"));
    QTest::keyClick(memoEdit(memo), Qt::Key_Escape);
    QVERIFY(!memo.Visible());
    QCOMPARE(memo.Value(), QStringLiteral("first\r\nsecond!"));
    QCOMPARE(stored(QStringLiteral("FontName")), QStringLiteral("MS Sans Serif"));
    QCOMPARE(stored(QStringLiteral("FontSize")), QStringLiteral("10"));
}

void tst_frmMemo::closeButtonOnlyHidesTheWindow()
{
    frmMemo memo;
    memo.Show();
    memo.setValue(QStringLiteral("text"));
    QVERIFY(memo.window()->close() == false);
    QVERIFY(!memo.Visible());
    QVERIFY(memo.isLoaded());
    QCOMPARE(memo.Value(), QStringLiteral("text"));
    QCOMPARE(stored(QStringLiteral("FontSize")), QStringLiteral("10"));
}

void tst_frmMemo::menusCarryTheirCaptionsInOrder()
{
    frmMemo memo;
    QStringList captions;
    for (QAction *title : memo.menuBar()->actions()) {
        captions << title->text();
        for (QAction *item : title->menu()->actions())
            captions << (item->isSeparator() ? QStringLiteral("-")
                                             : QStringLiteral("  ") + item->text());
    }
    QCOMPARE(captions,
        (QStringList { "File", "  Open Text File", "Edit", "  Select All", "-", "  Copy", "  Cut",
            "  Paste", "View", "  Font" }));
    QCOMPARE(memo.mnuBar1->Caption(), QStringLiteral("-"));
}

void tst_frmMemo::ctrlASelectsTheWholeText()
{
    frmMemo memo;
    memo.setValue(QStringLiteral("ab\r\ncd"));
    memo.Show();
    QVERIFY(QTest::qWaitForWindowActive(memo.window()));
    QTest::keyClick(memoEdit(memo), Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(memo.txtMemo->SelStart(), 0);
    QCOMPARE(memo.txtMemo->SelLength(), 6);
}

void tst_frmMemo::copyCutAndPasteGoThroughTheClipboard()
{
    frmMemo memo;
    memo.setValue(QStringLiteral("ab\r\ncd ef"));
    QGuiApplication::clipboard()->setText(QStringLiteral("untouched"));
    memo.txtMemo->setSelStart(2);
    memo.mnuCopy->action()->trigger();
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("untouched"));

    memo.txtMemo->setSelStart(0);
    memo.txtMemo->setSelLength(6);
    memo.mnuCopy->action()->trigger();
    // Other programs get the desktop's line breaks.
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("ab\ncd"));
    memo.mnuCut->action()->trigger();
    QCOMPARE(memo.Value(), QStringLiteral(" ef"));
    memo.txtMemo->setSelStart(3);
    memo.mnuPaste->action()->trigger();
    QCOMPARE(memo.Value(), QStringLiteral(" efab\r\ncd"));
}

void tst_frmMemo::copyAndCutAreEnabledOnlyWithASelection()
{
    frmMemo memo;
    memo.setValue(QStringLiteral("words"));
    QTRY_VERIFY(!memo.mnuCopy->Enabled());
    QVERIFY(!memo.mnuCut->Enabled());
    memo.txtMemo->setSelLength(1);
    QTRY_VERIFY(memo.mnuCopy->Enabled());
    QVERIFY(memo.mnuCut->Enabled());
}

void tst_frmMemo::openTextFileReplacesTheTextWithTheChosenFile_data()
{
    QVERIFY(m_dir.isValid());
    const QString path = m_dir.filePath(QStringLiteral("notes.txt"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("from\r\nfile");
    QTest::addColumn<QString>("chosen");
    QTest::addColumn<QString>("expected");
    QTest::newRow("existing file") << path << "from\r\nfile";
    QTest::newRow("cancelled") << QString() << "kept";
    QTest::newRow("missing file") << m_dir.filePath(QStringLiteral("gone.txt")) << "kept";
}

void tst_frmMemo::openTextFileReplacesTheTextWithTheChosenFile()
{
    QFETCH(QString, chosen);
    QFETCH(QString, expected);
    QVector<Dialogs::OpenFileRequest> requests;
    Dialogs::setOpenFileHandler([&](const Dialogs::OpenFileRequest &request) {
        requests << request;
        return chosen;
    });
    frmMemo memo;
    memo.setValue(QStringLiteral("kept"));
    memo.mnuOpenFile->action()->trigger();
    Dialogs::setOpenFileHandler({});
    QCOMPARE(memo.Value(), expected);
    QCOMPARE(requests.size(), 1);
    QCOMPARE(requests[0].defaultName, QString());
    QCOMPARE(requests[0].startFolder, QStringLiteral("C:\\"));
    QCOMPARE(requests[0].title, QStringLiteral("Select A Text File From Below"));
    QCOMPARE(requests[0].filter, QStringLiteral("Text Files (*.txt)|*.txt|All Files (*.*)|*.*"));
}

void tst_frmMemo::fontChosenInOneWindowIsUsedByTheNextAlsoInANewProcess()
{
    const QString family = otherFamily(QStringLiteral("MS Sans Serif"));
    QVERIFY(!family.isEmpty());
    {
        test::ModalShowDriver driver([&](Form &form) {
            auto *chooser = qobject_cast<frmChooseFont *>(&form);
            QVERIFY(chooser);
            QCOMPARE(chooser->Font_Size(), 10.0f);
            chooser->lstFonts->setListIndex(int(screenFontFamilies().indexOf(family)));
            chooser->cboSize->setListIndex(8); // "14"
            QTest::mouseClick(chooser->btnOk->widget(), Qt::LeftButton);
        });
        frmMemo memo;
        memo.Show();
        memo.mnuFont->action()->trigger();
        QCOMPARE(driver.shown, 1);
        QCOMPARE(memo.txtMemo->Font().family(), family);
        QCOMPARE(memo.txtMemo->Font().pointSizeF(), 14.0);
        memo.Unload();
    }
    QCOMPARE(stored(QStringLiteral("FontSize")), QStringLiteral("14"));

    frmMemo next;
    next.Load();
    QCOMPARE(next.txtMemo->Font().family(), family);
    QCOMPARE(next.txtMemo->Font().pointSizeF(), 14.0);

    QProcess child;
    child.start(QCoreApplication::applicationFilePath(), { QStringLiteral("--print-memo-font") });
    QVERIFY(child.waitForFinished(30000));
    QCOMPARE(child.exitCode(), 0);
    QCOMPARE(
        QString::fromUtf8(child.readAllStandardOutput()).trimmed(), family + QStringLiteral("|14"));
}

void tst_frmMemo::cancelInTheFontChooserChangesNothing()
{
    const QString family = otherFamily(QStringLiteral("MS Sans Serif"));
    test::ModalShowDriver driver([&](Form &form) {
        auto *chooser = qobject_cast<frmChooseFont *>(&form);
        QVERIFY(chooser);
        chooser->lstFonts->setListIndex(int(screenFontFamilies().indexOf(family)));
        chooser->cboSize->setListIndex(19); // "72"
        QTest::mouseClick(chooser->btnCancel->widget(), Qt::LeftButton);
    });
    frmMemo memo;
    memo.Show();
    const QFont before = memo.txtMemo->Font();
    memo.mnuFont->action()->trigger();
    QCOMPARE(driver.shown, 1);
    QCOMPARE(memo.txtMemo->Font(), before);
    memo.Unload();
    QCOMPARE(stored(QStringLiteral("FontName")), QStringLiteral("MS Sans Serif"));
    QCOMPARE(stored(QStringLiteral("FontSize")), QStringLiteral("10"));
}

// Run as "--print-memo-font", the program prints the font a new memo window takes from the
// settings store, so that a test can check what another process remembers.
int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    if (app.arguments().contains(QStringLiteral("--print-memo-font"))) {
        frmMemo memo;
        memo.Load();
        const QFont font = memo.txtMemo->Font();
        QTextStream(stdout) << font.family() << '|' << font.pointSizeF() << Qt::endl;
        return 0;
    }
    tst_frmMemo test;
    QTEST_SET_MAIN_SOURCE_PATH
    return QTest::qExec(&test, argc, argv);
}

#include "tst_frmMemo.moc"
