#include "memo/ModalShowDriver.h"
#include "memo/frmChooseFont.h"
#include "memo/frmMemo.h"
#include "platform/ComboBox.h"
#include "platform/CommandButton.h"
#include "platform/ListBox.h"
#include "platform/Menu.h"
#include "platform/MultiLineTextBox.h"
#include "platform/Services.h"
#include "platform/SettingsStore.h"
#include "platform/StatusBar.h"
#include "platform/StatusBarPanel.h"

#include "TestSupport.h"

#include <QtTest>
#include <QtWidgets>

using namespace kwFieldDeck;

static QString fontOf(const frmMemo &memo)
{
    const QFont font = memo.txtMemo->Font();
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
        QTest::addColumn<int>("caret");
        QTest::addColumn<QString>("position");
        QTest::addColumn<QString>("lines");
        QTest::newRow("empty") << QString() << 0 << QString("  Ln 1, Col 1  ") << "1 Line";
        QTest::newRow("two lines") << "ab\r\ncd" << 6 << QString("  Ln 2, Col 3  ") << "2 Lines";
        QTest::newRow("blank") << "a\r\n\r\nb" << 3 << QString("  Ln 2, Col 1  ") << "3 Lines";
    }
    void statusBarShowsCaretLineAndLineCount()
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
        frmMemo memo;
        const double before = memo.txtMemo->Font().pointSizeF();
        memo.Load();
        QCOMPARE(memo.txtMemo->Font().family(), QStringLiteral("Serif Test Face"));
        QCOMPARE(memo.txtMemo->Font().pointSizeF(), applied ? size.toDouble() : before);
    }

    void tabInsertsATabAndShiftTabRightAfterRemovesIt()
    {
        frmMemo memo;
        memo.Show();
        QWidget *edit = memo.txtMemo->widget();
        QTRY_VERIFY(edit->hasFocus());
        QTest::keyClicks(edit, QStringLiteral("ab"));
        QTest::keyClick(edit, Qt::Key_Tab);
        QTRY_COMPARE(memo.Value(), QStringLiteral("ab\t"));
        QVERIFY(edit->hasFocus());
        QTest::keyClick(edit, Qt::Key_Backtab, Qt::ShiftModifier);
        QTRY_COMPARE(memo.Value(), QStringLiteral("ab"));
        QVERIFY(edit->hasFocus());
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
        memo.Show();
        QMimeData data;
        for (const QString &path : files)
            data.setUrls(data.urls() << QUrl::fromLocalFile(path));
        QWidget *viewport = static_cast<QPlainTextEdit *>(memo.txtMemo->widget())->viewport();
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
        const QStringList families = screenFontFamilies();
        const int other = families.first() == QLatin1String("MS Sans Serif") ? 1 : 0;
        const QString expected = ok ? families.value(other) + QStringLiteral("|14")
                                    : QStringLiteral("MS Sans Serif|10");
        test::ModalShowDriver driver([&](Form &form) {
            auto &chooser = static_cast<frmChooseFont &>(form);
            chooser.lstFonts->setListIndex(other);
            chooser.cboSize->setListIndex(8); // "14"
            QTest::mouseClick((ok ? chooser.btnOk : chooser.btnCancel)->widget(), Qt::LeftButton);
        });
        frmMemo memo;
        memo.setValue(QStringLiteral("kept"));
        memo.Show();
        memo.mnuFont->action()->trigger();
        QCOMPARE(driver.shown, 1);
        QCOMPARE(fontOf(memo), expected);
        if (damagedStore) {
            const QString store = SettingsStore::filePath(QCoreApplication::applicationName());
            QVERIFY(QDir().mkpath(QFileInfo(store).absolutePath()));
            QVERIFY(!test::writeFile(store, "# my settings\n[Other]\nkept=1\n").isEmpty());
        }
        // Escape hides the window, keeping the text and storing the font.
        QTest::keyClick(memo.txtMemo->widget(), Qt::Key_Escape);
        QVERIFY(!memo.Visible());
        QCOMPARE(memo.Value(), QStringLiteral("kept"));
        frmMemo next;
        next.Load();
        QCOMPARE(fontOf(next), expected);
        QProcess child;
        child.start(QCoreApplication::applicationFilePath(), { QStringLiteral("--print-font") });
        QVERIFY(child.waitForFinished(30000));
        QCOMPARE(QString::fromUtf8(child.readAllStandardOutput()).trimmed(), expected);
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
        memo.Load();
        QTextStream(stdout) << fontOf(memo) << Qt::endl;
        return 0;
    }
    tst_frmMemo test;
    QTEST_SET_MAIN_SOURCE_PATH
    return QTest::qExec(&test, argc, argv);
}

#include "tst_frmMemo.moc"
