#include "EditorHost.h"
#include "TestSupport.h"

#include "editors/kwFolderSelectorField.h"
#include "platform/CommandButton.h"
#include "platform/PropertyBag.h"
#include "platform/TextBox.h"

#include <QDir>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace kwFieldDeck;
using Host = test::EditorHost<kwFolderSelectorField>;
using test::DialogRecorder;

class tst_kwFolderSelectorField : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void browsingStartsFromTheShownText_data();
    void browsingStartsFromTheShownText();
    void chosenFolderBecomesTheValue();
    void cancelledDialogChangesNothing();
    void eachUserActionOpensOneDialog();
    void layoutPutsTheButtonAtTheRight();
    void enabledReachesBothChildren();
    void emptyBagYieldsDefaults();
    void bagLosesTitleAndInitDirAndShowsValueOnlyWhenSet();

private:
    QTemporaryDir m_dir;
    QString m_deep;
};

void tst_kwFolderSelectorField::initTestCase()
{
    QVERIFY(m_dir.isValid());
    QString relative;
    for (int i = 0; i < 10; ++i)
        relative += QStringLiteral("a rather long folder name %1/").arg(i);
    QVERIFY(QDir(m_dir.path()).mkpath(relative));
    m_deep = QDir::cleanPath(m_dir.filePath(relative));
}

void tst_kwFolderSelectorField::browsingStartsFromTheShownText_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<bool>("startsThere");
    QTest::newRow("empty value") << QString() << false;
    QTest::newRow("short existing folder") << m_dir.path() << true;
    QTest::newRow("missing folder") << "/no/such/folder" << false;
    // Shortened with "...", the shown text names no folder: the dialog starts in InitDir.
    QTest::newRow("long folder shown shortened") << m_deep << false;
}

void tst_kwFolderSelectorField::browsingStartsFromTheShownText()
{
    QFETCH(QString, value);
    QFETCH(bool, startsThere);
    Host host("kwFolderSelectorField", 9000);
    host.editor->setValue(value);
    host.editor->setInitDir(QStringLiteral("/srv/start"));
    host.editor->setTitle(QStringLiteral("Pick a folder"));
    DialogRecorder dialogs;
    host.child<CommandButton>("btnBrowse")->pushButton()->click();
    QCOMPARE(dialogs.folderRequests.size(), 1);
    const Dialogs::BrowseFolderRequest &request = dialogs.folderRequests.first();
    QCOMPARE(request.startFolder, startsThere ? value : QStringLiteral("/srv/start"));
    QCOMPARE(request.title, QStringLiteral("Pick a folder"));
    QCOMPARE(request.owner, &host.window);
}

void tst_kwFolderSelectorField::chosenFolderBecomesTheValue()
{
    Host host("kwFolderSelectorField");
    DialogRecorder dialogs(m_deep);
    QSignalSpy changes(host.editor, &kwFolderSelectorField::Change);
    host.child<CommandButton>("btnBrowse")->pushButton()->click();
    QCOMPARE(host.editor->Value(), m_deep);
    auto *box = host.child<TextBox>("Text1");
    QCOMPARE(box->Tag(), m_deep);
    QVERIFY2(box->Text().startsWith(QStringLiteral("...")), qPrintable(box->Text()));
    QCOMPARE(changes.count(), 1);
}

void tst_kwFolderSelectorField::cancelledDialogChangesNothing()
{
    Host host("kwFolderSelectorField", 9000);
    host.editor->setValue(m_dir.path());
    DialogRecorder dialogs;
    QSignalSpy changes(host.editor, &kwFolderSelectorField::Change);
    QSignalSpy changed(host.editor, &UserControl::PropertyChanged);
    host.child<CommandButton>("btnBrowse")->pushButton()->click();
    QCOMPARE(dialogs.folderRequests.size(), 1);
    QCOMPARE(host.editor->Value(), m_dir.path());
    QCOMPARE(host.child<TextBox>("Text1")->Text(), m_dir.path());
    QCOMPARE(changes.count(), 0);
    QCOMPARE(changed.count(), 0);
}

void tst_kwFolderSelectorField::eachUserActionOpensOneDialog()
{
    Host host("kwFolderSelectorField");
    QVERIFY(host.show());
    DialogRecorder dialogs(m_dir.path());
    QSignalSpy hasFocus(host.editor, &kwFolderSelectorField::HasFocus);
    QWidget *button = host.child<CommandButton>("btnBrowse")->widget();
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(dialogs.folderRequests.size(), 1);
    QCOMPARE(hasFocus.count(), 1);
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(dialogs.folderRequests.size(), 2);
}

void tst_kwFolderSelectorField::layoutPutsTheButtonAtTheRight()
{
    Host host("kwFolderSelectorField", 4000, 315);
    auto *box = host.child<TextBox>("Text1");
    auto *button = host.child<CommandButton>("btnBrowse");
    QCOMPARE(box->Width(), 4000.0f - 275);
    QCOMPARE(box->Height(), 300.0f);
    QCOMPARE(button->Left(), 4000.0f - 255);
}

void tst_kwFolderSelectorField::enabledReachesBothChildren()
{
    Host host("kwFolderSelectorField");
    host.editor->setEnabled(false);
    QVERIFY(!host.child<TextBox>("Text1")->Enabled());
    QVERIFY(!host.child<CommandButton>("btnBrowse")->Enabled());
    host.editor->setEnabled(true);
    QVERIFY(host.child<TextBox>("Text1")->Enabled());
    QVERIFY(host.child<CommandButton>("btnBrowse")->Enabled());
}

void tst_kwFolderSelectorField::emptyBagYieldsDefaults()
{
    Host host("kwFolderSelectorField");
    host.editor->setBackColor(0x0000FF);
    host.editor->setBorderStyle(0);
    host.editor->setBackStyle(1);
    host.editor->setValue(QStringLiteral("/srv"));
    MemoryPropertyBag empty;
    host.editor->readProperties(empty);
    QCOMPARE(host.editor->BackColor(), SystemColor::WindowBackground);
    QCOMPARE(host.editor->ForeColor(), SystemColor::WindowText);
    QCOMPARE(host.editor->Enabled(), true);
    QCOMPARE(host.editor->Font(), host.editor->ambientFont());
    QCOMPARE(host.editor->BackStyle(), qint16(0));
    QCOMPARE(host.editor->BorderStyle(), qint16(1));
    QCOMPARE(host.editor->ContainerHwnd(), 0);
    QCOMPARE(host.editor->ScaleMode(), qint16(1));
    QCOMPARE(host.editor->Value(), QString());
}

void tst_kwFolderSelectorField::bagLosesTitleAndInitDirAndShowsValueOnlyWhenSet()
{
    Host first("kwFolderSelectorField");
    first.editor->setValue(m_dir.path());
    first.editor->setTitle(QStringLiteral("Pick"));
    first.editor->setInitDir(QStringLiteral("/srv"));
    first.editor->setBorderStyle(0);
    first.editor->setForeColor(0x00FF00);
    MemoryPropertyBag bag;
    first.editor->writeProperties(bag);
    QVERIFY(!bag.contains(QStringLiteral("Title")));
    QVERIFY(!bag.contains(QStringLiteral("InitDir")));

    Host second("kwFolderSelectorField");
    second.editor->readProperties(bag);
    QCOMPARE(second.editor->Value(), m_dir.path());
    QCOMPARE(second.child<TextBox>("Text1")->Text(), QString());
    QCOMPARE(second.editor->Title(), QString());
    QCOMPARE(second.editor->InitDir(), QString());
    QCOMPARE(second.editor->BorderStyle(), qint16(0));
    QCOMPARE(second.editor->ForeColor(), OleColor(0x00FF00));
}

QTEST_MAIN(tst_kwFolderSelectorField)
#include "tst_kwFolderSelectorField.moc"
