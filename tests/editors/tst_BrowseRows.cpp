// File, folder and memo rows as a user meets them, in a shown window: the "..." button clicked
// where the idle row paints it, F4, the dialogs' answers and the memo window worked by keys.

#include "RowParts.h"

#include "editors/memo/frmMemo.h"

#include <QDir>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTemporaryDir>
#include <QtTest>

using namespace kwFieldDeck;
using test::UserGrid;

namespace {
// Answers the file-open and folder-browse dialogs with a fixed reply ("" is a cancel) and keeps
// every request, for as long as it lives.
struct DialogRecorder
{
    explicit DialogRecorder(const QString &reply = QString())
        : reply(reply)
    {
    }
    ~DialogRecorder()
    {
        Dialogs::setOpenFileHandler(std::move(previousFile));
        Dialogs::setBrowseFolderHandler(std::move(previousFolder));
    }
    QString reply;
    QVector<Dialogs::OpenFileRequest> fileRequests;
    QVector<Dialogs::BrowseFolderRequest> folderRequests;
    Dialogs::OpenFileHandler previousFile = Dialogs::setOpenFileHandler([this](const auto &r) {
        fileRequests.append(r);
        return reply;
    });
    Dialogs::BrowseFolderHandler previousFolder
        = Dialogs::setBrowseFolderHandler([this](const auto &r) {
              folderRequests.append(r);
              return reply;
          });
};

// Works each memo window shown with the handler, then gives the activation back to the grid's
// window as the desktop would.
struct MemoWindow : test::ModalShowDriver
{
    MemoWindow(UserGrid &user, std::function<void(frmMemo &)> handler)
        : ModalShowDriver([&user, handler](QDialog &dialog) {
            handler(static_cast<frmMemo &>(dialog));
            dialog.hide();
            user.window.activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(&user.window));
        })
    {
    }
};

QPlainTextEdit *memoText(QDialog &dialog)
{
    return dialog.findChild<QPlainTextEdit *>(QStringLiteral("txtMemo"));
}

QString shownText(UserGrid &user, Field *field)
{
    return user.editorOf(field)->findChild<QLineEdit *>(QStringLiteral("Text1"))->text();
}
} // namespace

class tst_BrowseRows : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase()
    {
        QVERIFY(QFile(m_file).open(QIODevice::WriteOnly));
        QVERIFY(QDir().mkpath(m_deep));
    }

    // The dialog opens in the file's folder only when the file exists, else in InitDir; a
    // cancelled dialog changes nothing and reports nothing.
    void fileBrowseStartsFromTheValue_data()
    {
        QTest::addColumn<QString>("value");
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("inItsFolder");
        QTest::addColumn<QString>("reply");
        QTest::newRow("missing file, chosen")
            << m_dir.filePath("gone.txt") << "gone.txt" << false << m_file;
        QTest::newRow("existing file, cancelled") << m_file << "notes.txt" << true << QString();
        QTest::newRow("no file, chosen") << QString() << QString() << false << m_file;
    }
    void fileBrowseStartsFromTheValue()
    {
        QFETCH(QString, value);
        QFETCH(QString, name);
        QFETCH(bool, inItsFolder);
        QFETCH(QString, reply);
        UserGrid user;
        QVERIFY(user.shown);
        Field *file = user.add(QStringLiteral("Log"), ftFileSelector, value);
        file->setInitDir(QStringLiteral("/srv"));
        file->setTitle(QStringLiteral("Pick a log"));
        file->setFilter(QStringLiteral("Logs (*.log)|*.log"));
        DialogRecorder dialogs(reply);
        QSignalSpy changed(user.grid, &kwPropertyControl::Changed);
        QVERIFY(test::clickPart(user, file, "btnBrowse"));
        QCOMPARE(dialogs.fileRequests.size(), 1);
        const Dialogs::OpenFileRequest &asked = dialogs.fileRequests.first();
        QCOMPARE(QStringList({ asked.defaultName, asked.startFolder, asked.title, asked.filter }),
            QStringList(
                { name, inItsFolder ? m_dir.path() : "/srv", "Pick a log", "Logs (*.log)|*.log" }));
        const QString expected = reply.isEmpty() ? value : reply;
        QCOMPARE(file->Value().toString(), expected);
        QCOMPARE(shownText(user, file), expected);
        QCOMPARE(changed.count(), reply.isEmpty() ? 0 : 1);
        QCOMPARE(user.focusedField(), file);
    }

    // Text typed into a file row's box is not its value: the chosen path stays (intended).
    void typedTextIsNotAFileRowsValue()
    {
        UserGrid user;
        QVERIFY(user.shown);
        Field *file = user.add(QStringLiteral("Log"), ftFileSelector, m_file);
        QSignalSpy changed(file, &Field::Changed);
        QWidget *box = test::clickPart(user, file, "Text1");
        QVERIFY(box);
        QTRY_VERIFY(box->hasFocus());
        QTest::keyClicks(box, QStringLiteral("typed"));
        QCOMPARE(file->Value().toString(), m_file);
        for (const QList<QVariant> &reported : std::as_const(changed))
            QCOMPARE(reported.at(0).toString(), m_file);
        QCOMPARE(user.dialogs, 0);
    }

    void longPathIsShownFittedWhileTheValueKeepsItWhole()
    {
        UserGrid user;
        const QString path = m_deep + QStringLiteral("/report.txt");
        Field *file = user.add(QStringLiteral("Log"), ftFileSelector, path);
        const QString shown = shownText(user, file);
        QVERIFY2(shown.startsWith(QStringLiteral("...")), qPrintable(shown));
        QVERIFY2(shown.endsWith(QStringLiteral("/report.txt")), qPrintable(shown));
        QVERIFY(shown.size() < path.size());
        QCOMPARE(file->Value().toString(), path);
    }

    // The press gives the button the focus, which opens nothing; its click opens the dialog
    // once. The focus coming back from another window opens nothing either.
    void eachClickOnTheButtonOpensOneDialog()
    {
        UserGrid user;
        QVERIFY(user.shown);
        Field *file = user.add(QStringLiteral("Log"), ftFileSelector);
        QWidget *button = test::clickPart(user, file, "btnBrowse");
        QVERIFY(button);
        QCOMPARE(user.dialogs, 1);
        QTRY_VERIFY(button->hasFocus());
        QFocusEvent away(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
        QApplication::sendEvent(button, &away);
        QFocusEvent back(QEvent::FocusIn, Qt::ActiveWindowFocusReason);
        QApplication::sendEvent(button, &back);
        QCOMPARE(user.dialogs, 1);
        QTest::mouseClick(button, Qt::LeftButton, {}, test::pointToClick(button));
        QCOMPARE(user.dialogs, 2);
    }

    // The dialog starts from the shown text, not the value: a folder shown shortened with "..."
    // names no folder, so it starts in InitDir. Intended.
    void folderBrowseStartsFromTheShownText_data()
    {
        QTest::addColumn<QString>("value");
        QTest::addColumn<QString>("reply");
        QTest::addColumn<QString>("folder");
        QTest::newRow("existing folder, chosen") << m_dir.path() << m_deep << m_dir.path();
        QTest::newRow("missing folder, cancelled") << "/no/such/folder" << QString() << "/srv";
        QTest::newRow("long folder shown shortened") << m_deep << QString() << "/srv";
    }
    void folderBrowseStartsFromTheShownText()
    {
        QFETCH(QString, value);
        QFETCH(QString, reply);
        QFETCH(QString, folder);
        UserGrid user;
        QVERIFY(user.shown);
        Field *field = user.add(QStringLiteral("Logs"), ftFolderSelector, value);
        field->setInitDir(QStringLiteral("/srv"));
        DialogRecorder dialogs(reply);
        QSignalSpy changed(user.grid, &kwPropertyControl::Changed);
        QVERIFY(test::clickPart(user, field, "btnBrowse"));
        QCOMPARE(dialogs.folderRequests.size(), 1);
        QCOMPARE(dialogs.folderRequests[0].startFolder, folder);
        QCOMPARE(dialogs.folderRequests[0].owner, &user.window);
        QCOMPARE(field->Value().toString(), reply.isEmpty() ? value : reply);
        QCOMPARE(changed.count(), reply.isEmpty() ? 0 : 1);
    }

    // The window has no cancel: Escape keeps the edited text, and the row reports it.
    void memoWindowEditsTheTextAndEscapeKeepsIt()
    {
        UserGrid user;
        QVERIFY(user.shown);
        Field *memo = user.add(QStringLiteral("Remarks"), ftMemo, QStringLiteral("a\r\nb"));
        QCOMPARE(shownText(user, memo), QStringLiteral("(Text)"));
        MemoWindow window(user, [](frmMemo &dialog) {
            QPlainTextEdit *text = memoText(dialog);
            QTest::keyClick(text, Qt::Key_End, Qt::ControlModifier);
            QTest::keyClick(text, Qt::Key_Return);
            QTest::keyClicks(text, QStringLiteral("c"));
            QTest::keyClick(text, Qt::Key_Escape);
        });
        QStringList valuesAtChange;
        connect(user.grid, &kwPropertyControl::Changed, this,
            [&](Field *field) { valuesAtChange << field->Value().toString(); });
        QVERIFY(test::clickPart(user, memo, "btnBrowse"));
        QCOMPARE(window.shown, 1);
        QCOMPARE(memo->Value().toString(), QStringLiteral("a\r\nb\r\nc"));
        QCOMPARE(valuesAtChange, QStringList { QStringLiteral("a\r\nb\r\nc") });
        QCOMPARE(shownText(user, memo), QStringLiteral("(Text)"));
    }

    // Line breaks other than CR LF come back as they were, whichever way the window closes.
    void closingWithoutAnEditKeepsTheValueByteForByte_data()
    {
        QTest::addColumn<QString>("value");
        QTest::addColumn<bool>("escape");
        const QVector<QPair<const char *, QString>> values { { "lone LF", "a\nb" },
            { "lone CR", "a\rb" }, { "mixed", "a\r\nb\nc\rd\n\re\r\r\n" }, { "trailing LF", "a\n" },
            { "CR LF", "a\r\nb" } };
        for (const auto &[name, value] : values) {
            QTest::addRow("%s, Escape", name) << value << true;
            QTest::addRow("%s, close command", name) << value << false;
        }
    }
    void closingWithoutAnEditKeepsTheValueByteForByte()
    {
        QFETCH(QString, value);
        QFETCH(bool, escape);
        UserGrid user;
        QVERIFY(user.shown);
        Field *memo = user.add(QStringLiteral("Remarks"), ftMemo, value);
        MemoWindow window(user, [&](frmMemo &dialog) {
            if (escape)
                QTest::keyClick(memoText(dialog), Qt::Key_Escape);
            else
                dialog.close();
        });
        QStringList valuesAtChange;
        connect(user.grid, &kwPropertyControl::Changed, this,
            [&](Field *field) { valuesAtChange << field->Value().toString(); });
        QVERIFY(test::clickPart(user, memo, "btnBrowse"));
        QCOMPARE(window.shown, 1);
        QCOMPARE(memo->Value().toString(), value);
        // The close still reports a change, as after every visit to the window: intended.
        QCOMPARE(valuesAtChange, QStringList { value });
    }

    // Title captions nothing: the window is named after the field (intended).
    void f4WithoutShiftOpensTheWindowCaptionedByTheFieldName()
    {
        UserGrid user;
        QVERIFY(user.shown);
        Field *memo = user.add(QStringLiteral("Remarks"), ftMemo, QStringLiteral("x"));
        memo->setTitle(QStringLiteral("Something else"));
        QStringList captions;
        MemoWindow window(user, [&](frmMemo &dialog) { captions << dialog.Title(); });
        memo->SetFocus();
        QCOMPARE(user.focusedField(), memo);
        test::press(Qt::Key_F4, Qt::ShiftModifier);
        QCOMPARE(window.shown, 0);
        test::press(Qt::Key_F4);
        QCOMPARE(captions, QStringList { "Field: Remarks" });
        QCOMPARE(user.focusedField(), memo);
    }

private:
    QTemporaryDir m_dir;
    const QString m_file = m_dir.filePath(QStringLiteral("notes.txt"));
    const QString m_deep = m_dir.path() + QString("/a rather long folder name").repeated(10);
};

QTEST_MAIN(tst_BrowseRows)
#include "tst_BrowseRows.moc"
