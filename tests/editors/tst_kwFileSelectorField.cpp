#include "EditorHost.h"

#include "editors/kwFileSelectorField.h"

#include <QFocusEvent>
#include <QTemporaryDir>

using namespace kwFieldDeck;
using Host = test::EditorHost<kwFileSelectorField>;

class tst_kwFileSelectorField : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase() { QVERIFY(QFile(m_file).open(QIODevice::WriteOnly)); }

    // The dialog opens in the file's folder only when the file exists, else in InitDir.
    void browsingAnswersTheDialogFromTheValue_data()
    {
        QTest::addColumn<QString>("value");
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("inItsFolder");
        QTest::addColumn<QString>("reply");
        QTest::newRow("missing file, chosen")
            << m_dir.filePath("gone.txt") << "gone.txt" << false << m_file;
        QTest::newRow("existing file, cancelled") << m_file << "notes.txt" << true << QString();
    }
    void browsingAnswersTheDialogFromTheValue()
    {
        QFETCH(QString, value);
        QFETCH(QString, name);
        QFETCH(bool, inItsFolder);
        QFETCH(QString, reply);
        Host host(QStringLiteral("kwFileSelectorField"), 60000);
        host.editor->setValue(value);
        host.editor->setInitDir(QStringLiteral("/srv"));
        host.editor->setTitle(QStringLiteral("Pick a log"));
        host.editor->setFilter(QStringLiteral("Logs (*.log)|*.log"));
        test::DialogRecorder dialogs(reply);
        QSignalSpy changes(host.editor, &kwFileSelectorField::Change);
        QSignalSpy changed(host.editor, &WindowlessUserControl::PropertyChanged);
        host.child<CommandButton>("btnBrowse")->pushButton()->click();
        QCOMPARE(dialogs.fileRequests.size(), 1);
        const Dialogs::OpenFileRequest &asked = dialogs.fileRequests.first();
        QCOMPARE(QStringList({ asked.defaultName, asked.startFolder, asked.title, asked.filter }),
            QStringList(
                { name, inItsFolder ? m_dir.path() : "/srv", "Pick a log", "Logs (*.log)|*.log" }));
        // A cancelled dialog changes nothing and raises nothing.
        const QString expected = reply.isEmpty() ? value : reply;
        QCOMPARE(host.editor->Value(), expected);
        QCOMPARE(host.child<TextBox>("Text1")->Text(), expected);
        QCOMPARE(changes.count(), reply.isEmpty() ? 0 : 1);
        QCOMPARE(changed.count(), changes.count());
    }

    void longPathIsShownFittedWhileTheValueKeepsItWhole()
    {
        Host host(QStringLiteral("kwFileSelectorField"));
        const QString path = m_dir.path() + QString("/a rather long folder name").repeated(12)
            + QStringLiteral("/report.txt");
        host.editor->setValue(path);
        const QString shown = host.child<TextBox>("Text1")->Text();
        QVERIFY2(shown.startsWith(QStringLiteral("...")), qPrintable(shown));
        QVERIFY2(shown.endsWith(QStringLiteral("/report.txt")), qPrintable(shown));
        QVERIFY(shown.size() < path.size());
        QCOMPARE(host.editor->Value(), path);
    }

    void eachUserActionOpensOneDialog()
    {
        Host host(QStringLiteral("kwFileSelectorField"));
        QVERIFY(host.show());
        test::DialogRecorder dialogs(m_file);
        QSignalSpy hasFocus(host.editor, &kwFileSelectorField::HasFocus);
        QWidget *button = host.child<CommandButton>("btnBrowse")->widget();
        // The press gives the button the focus, which opens the dialog; its click does not.
        QTest::mouseClick(button, Qt::LeftButton);
        QCOMPARE(dialogs.fileRequests.size(), 1);
        QCOMPARE(hasFocus.count(), 1);
        // Coming back from another window opens nothing.
        QFocusEvent away(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
        QApplication::sendEvent(button, &away);
        QFocusEvent back(QEvent::FocusIn, Qt::ActiveWindowFocusReason);
        QApplication::sendEvent(button, &back);
        // With the focus already there, a click opens it once.
        QTest::mouseClick(button, Qt::LeftButton);
        QCOMPARE(dialogs.fileRequests.size(), 2);
    }

private:
    QTemporaryDir m_dir;
    QString m_file = m_dir.filePath(QStringLiteral("notes.txt"));
};

QTEST_MAIN(tst_kwFileSelectorField)
#include "tst_kwFileSelectorField.moc"
