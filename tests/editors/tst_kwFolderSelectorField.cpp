#include "EditorHost.h"

#include "editors/kwFolderSelectorField.h"

#include <QDir>
#include <QTemporaryDir>

using namespace kwFieldDeck;
using Host = test::EditorHost<kwFolderSelectorField>;

class tst_kwFolderSelectorField : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase() { QVERIFY(QDir().mkpath(m_deep)); }

    // The dialog starts from the shown text, not the value: a folder shown shortened with
    // "..." names no folder, so it starts in InitDir. Intended.
    void browsingStartsFromTheShownText_data()
    {
        QTest::addColumn<QString>("value");
        QTest::addColumn<QString>("reply");
        QTest::addColumn<QString>("folder");
        QTest::newRow("existing folder, chosen") << m_dir.path() << m_deep << m_dir.path();
        QTest::newRow("missing folder, cancelled") << "/no/such/folder" << QString() << "/srv";
        QTest::newRow("long folder shown shortened") << m_deep << QString() << "/srv";
    }
    void browsingStartsFromTheShownText()
    {
        QFETCH(QString, value);
        QFETCH(QString, reply);
        QFETCH(QString, folder);
        Host host(QStringLiteral("kwFolderSelectorField"), 9000);
        host.editor->setValue(value);
        host.editor->setInitDir(QStringLiteral("/srv"));
        test::DialogRecorder dialogs(reply);
        QSignalSpy changes(host.editor, &kwFolderSelectorField::Change);
        host.child<CommandButton>("btnBrowse")->pushButton()->click();
        QCOMPARE(dialogs.folderRequests.size(), 1);
        QCOMPARE(dialogs.folderRequests[0].startFolder, folder);
        QCOMPARE(dialogs.folderRequests[0].owner, &host.window);
        QCOMPARE(host.editor->Value(), reply.isEmpty() ? value : reply);
        QCOMPARE(changes.count(), reply.isEmpty() ? 0 : 1);
    }

private:
    QTemporaryDir m_dir;
    const QString m_deep = m_dir.path() + QString("/a rather long folder name").repeated(10);
};

QTEST_MAIN(tst_kwFolderSelectorField)
#include "tst_kwFolderSelectorField.moc"
