#include "EditorHost.h"
#include "TestSupport.h"

#include "editors/kwFileSelectorField.h"
#include "platform/CommandButton.h"
#include "platform/PropertyBag.h"
#include "platform/TextBox.h"

#include <QDir>
#include <QFile>
#include <QFocusEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace kwFieldDeck;
using Host = test::EditorHost<kwFileSelectorField>;
using test::DialogRecorder;

namespace {
QString longPath(const QTemporaryDir &dir)
{
    QString path = dir.path();
    for (int i = 0; i < 12; ++i)
        path += QStringLiteral("/a rather long folder name %1").arg(i);
    return path + QStringLiteral("/report.txt");
}
} // namespace

class tst_kwFileSelectorField : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void dialogStartsWhereThePathSays_data();
    void dialogStartsWhereThePathSays();
    void chosenFileBecomesTheValue();
    void cancelledDialogChangesNothing();
    void longPathShowsEllipsisAndKeepsFullValue();
    void shorteningFollowsTheWidth();
    void scaleModeOtherThanTwipsFitsToNoWidth();
    void eachUserActionOpensOneDialog();
    void windowActivationDoesNotReopenTheDialog();
    void keysOfTheBoxGoToTheField();
    void layoutPutsTheButtonAtTheRight();
    void enabledReachesBothChildren();
    void emptyBagYieldsDefaults();
    void bagKeepsTheShownTextNotTheTag();

private:
    QTemporaryDir m_dir;
    QString m_file;
};

void tst_kwFileSelectorField::initTestCase()
{
    QVERIFY(m_dir.isValid());
    m_file = m_dir.filePath(QStringLiteral("notes.txt"));
    QFile file(m_file);
    QVERIFY(file.open(QIODevice::WriteOnly));
}

void tst_kwFileSelectorField::dialogStartsWhereThePathSays_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("inParentFolder");
    QTest::newRow("empty value") << QString() << QString() << false;
    QTest::newRow("existing file") << m_file << "notes.txt" << true;
    QTest::newRow("missing file in existing folder")
        << m_dir.filePath(QStringLiteral("gone.txt")) << "gone.txt" << false;
    QTest::newRow("missing folder") << "/no/such/folder/x.txt"
                                    << "x.txt" << false;
    QTest::newRow("backslashes") << "C:\\Data\\x.txt"
                                 << "x.txt" << false;
}

void tst_kwFileSelectorField::dialogStartsWhereThePathSays()
{
    QFETCH(QString, value);
    QFETCH(QString, name);
    QFETCH(bool, inParentFolder);
    Host host("kwFileSelectorField");
    host.editor->setValue(value);
    host.editor->setInitDir(QStringLiteral("/srv/start"));
    host.editor->setTitle(QStringLiteral("Pick a log"));
    host.editor->setFilter(QStringLiteral("Logs (*.log)|*.log"));
    DialogRecorder dialogs;
    host.child<CommandButton>("btnBrowse")->pushButton()->click();
    QCOMPARE(dialogs.fileRequests.size(), 1);
    const Dialogs::OpenFileRequest &request = dialogs.fileRequests.first();
    QCOMPARE(request.defaultName, name);
    QCOMPARE(request.startFolder, inParentFolder ? m_dir.path() : QStringLiteral("/srv/start"));
    QCOMPARE(request.title, QStringLiteral("Pick a log"));
    QCOMPARE(request.filter, QStringLiteral("Logs (*.log)|*.log"));
    QCOMPARE(request.flags, 0);
}

void tst_kwFileSelectorField::chosenFileBecomesTheValue()
{
    Host host("kwFileSelectorField");
    DialogRecorder dialogs(m_file);
    QSignalSpy changes(host.editor, &kwFileSelectorField::Change);
    host.child<CommandButton>("btnBrowse")->pushButton()->click();
    QCOMPARE(host.editor->Value(), m_file);
    QCOMPARE(host.child<TextBox>("Text1")->Tag(), m_file);
    QCOMPARE(changes.count(), 1);
}

void tst_kwFileSelectorField::cancelledDialogChangesNothing()
{
    Host host("kwFileSelectorField");
    host.editor->setValue(m_file);
    auto *box = host.child<TextBox>("Text1");
    const QString shown = box->Text();
    DialogRecorder dialogs;
    QSignalSpy changes(host.editor, &kwFileSelectorField::Change);
    QSignalSpy changed(host.editor, &UserControl::PropertyChanged);
    host.child<CommandButton>("btnBrowse")->pushButton()->click();
    QCOMPARE(dialogs.fileRequests.size(), 1);
    QCOMPARE(host.editor->Value(), m_file);
    QCOMPARE(box->Tag(), m_file);
    QCOMPARE(box->Text(), shown);
    QCOMPARE(changes.count(), 0);
    QCOMPARE(changed.count(), 0);
}

void tst_kwFileSelectorField::longPathShowsEllipsisAndKeepsFullValue()
{
    Host host("kwFileSelectorField");
    const QString path = longPath(m_dir);
    host.editor->setValue(path);
    const QString shown = host.child<TextBox>("Text1")->Text();
    QVERIFY2(shown.startsWith(QStringLiteral("...")), qPrintable(shown));
    QVERIFY2(shown.endsWith(QStringLiteral("/report.txt")), qPrintable(shown));
    QVERIFY(shown.size() < path.size());
    QCOMPARE(host.editor->Value(), path);
}

void tst_kwFileSelectorField::shorteningFollowsTheWidth()
{
    Host host("kwFileSelectorField", 2000);
    const QString path = longPath(m_dir);
    host.editor->setValue(path);
    const QString narrow = host.child<TextBox>("Text1")->Text();
    host.editor->Move(0, 450, 60000);
    const QString wide = host.child<TextBox>("Text1")->Text();
    QVERIFY2(wide.size() > narrow.size(), qPrintable(wide));
    QCOMPARE(wide, path);
    QCOMPARE(host.editor->Value(), path);
}

void tst_kwFileSelectorField::scaleModeOtherThanTwipsFitsToNoWidth()
{
    Host host("kwFileSelectorField", 60000);
    host.editor->setScaleMode(3);
    QCOMPARE(host.editor->FitFilename(host.child<TextBox>("Text1"), m_file),
        QStringLiteral(".../notes.txt"));
    host.editor->setScaleMode(1);
    QCOMPARE(host.editor->FitFilename(host.child<TextBox>("Text1"), m_file), m_file);
    QCOMPARE(host.editor->FitFilename(host.child<TextBox>("Text1"), QString()), QString());
}

void tst_kwFileSelectorField::eachUserActionOpensOneDialog()
{
    Host host("kwFileSelectorField");
    QVERIFY(host.show());
    DialogRecorder dialogs(m_file);
    QSignalSpy hasFocus(host.editor, &kwFileSelectorField::HasFocus);
    QWidget *button = host.child<CommandButton>("btnBrowse")->widget();
    // The press gives the button the focus, which opens the dialog; its click does not.
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(dialogs.fileRequests.size(), 1);
    QCOMPARE(hasFocus.count(), 1);
    // With the focus already there, a click opens it once.
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(dialogs.fileRequests.size(), 2);
    // Tabbing onto the button opens it once.
    host.child<TextBox>("Text1")->SetFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), button);
    QCOMPARE(dialogs.fileRequests.size(), 3);
}

void tst_kwFileSelectorField::windowActivationDoesNotReopenTheDialog()
{
    Host host("kwFileSelectorField");
    QVERIFY(host.show());
    DialogRecorder dialogs;
    QWidget *button = host.child<CommandButton>("btnBrowse")->widget();
    QFocusEvent back(QEvent::FocusIn, Qt::ActiveWindowFocusReason);
    QApplication::sendEvent(button, &back);
    QCOMPARE(dialogs.fileRequests.size(), 0);
}

void tst_kwFileSelectorField::keysOfTheBoxGoToTheField()
{
    Host host("kwFileSelectorField");
    QVERIFY(host.show());
    auto *box = host.child<TextBox>("Text1");
    box->SetFocus();
    QVector<int> keyCodes;
    connect(host.editor, &kwFileSelectorField::KeyDown, this,
        [&](int &KeyCode, int &) { keyCodes << KeyCode; });
    // The field's handler swallows what it does not want typed.
    connect(host.editor, &kwFileSelectorField::KeyPress, this, [](int &KeyAscii) {
        if (KeyAscii == 'x')
            KeyAscii = 0;
    });
    QTest::keyClicks(box->widget(), QStringLiteral("axb"));
    QCOMPARE(box->Text(), QStringLiteral("ab"));
    QCOMPARE(keyCodes, QVector<int>({ 'A', 'X', 'B' }));
}

void tst_kwFileSelectorField::layoutPutsTheButtonAtTheRight()
{
    Host host("kwFileSelectorField", 3000, 315);
    auto *box = host.child<TextBox>("Text1");
    auto *button = host.child<CommandButton>("btnBrowse");
    QCOMPARE(box->Left(), 0.0f);
    QCOMPARE(box->Top(), 15.0f);
    QCOMPARE(box->Width(), 3000.0f - 275);
    QCOMPARE(box->Height(), 300.0f);
    QCOMPARE(button->Left(), 3000.0f - 255);
    QCOMPARE(button->Top(), 0.0f);
    QCOMPARE(button->Width(), 255.0f);
    QCOMPARE(button->Caption(), QStringLiteral("..."));
}

void tst_kwFileSelectorField::enabledReachesBothChildren()
{
    Host host("kwFileSelectorField");
    host.editor->setEnabled(true);
    QVERIFY(host.child<TextBox>("Text1")->Enabled());
    host.editor->setEnabled(false);
    QVERIFY(!host.child<TextBox>("Text1")->Enabled());
    QVERIFY(!host.child<CommandButton>("btnBrowse")->Enabled());
    QCOMPARE(host.editor->Enabled(), false);
}

void tst_kwFileSelectorField::emptyBagYieldsDefaults()
{
    Host host("kwFileSelectorField");
    host.editor->setTitle(QStringLiteral("t"));
    host.editor->setInitDir(QStringLiteral("/x"));
    host.editor->setFilter(QStringLiteral("f|*.f"));
    host.editor->setForeColor(0x00FF00);
    host.editor->setScaleMode(3);
    MemoryPropertyBag empty;
    host.editor->readProperties(empty);
    QCOMPARE(host.editor->Title(), QStringLiteral("Select A File From Below"));
    QCOMPARE(host.editor->InitDir(), QStringLiteral("C:\\"));
    QCOMPARE(host.editor->Filter(), QStringLiteral("All Files (*.*)|*.*"));
    QCOMPARE(host.editor->BackColor(), SystemColor::ButtonFace);
    QCOMPARE(host.editor->ForeColor(), SystemColor::WindowText);
    QCOMPARE(host.editor->Enabled(), false);
    QCOMPARE(host.editor->Font(), host.editor->ambientFont());
    QCOMPARE(host.editor->BackStyle(), qint16(1));
    QCOMPARE(host.editor->BorderStyle(), qint16(0));
    QCOMPARE(host.editor->ScaleMode(), qint16(1));
    QCOMPARE(host.child<TextBox>("Text1")->Text(), QString());
}

void tst_kwFileSelectorField::bagKeepsTheShownTextNotTheTag()
{
    Host first("kwFileSelectorField");
    const QString path = longPath(m_dir);
    first.editor->setValue(path);
    first.editor->setTitle(QStringLiteral("Pick"));
    first.editor->setInitDir(QStringLiteral("/srv"));
    first.editor->setFilter(QStringLiteral("Text (*.txt)|*.txt"));
    MemoryPropertyBag bag;
    first.editor->writeProperties(bag);
    const QString shown = first.child<TextBox>("Text1")->Text();
    QCOMPARE(bag.ReadProperty(QStringLiteral("Value")).toString(), shown);

    Host second("kwFileSelectorField");
    second.editor->readProperties(bag);
    QCOMPARE(second.child<TextBox>("Text1")->Text(), shown);
    QCOMPARE(second.editor->Value(), QString());
    QCOMPARE(second.editor->Title(), QStringLiteral("Pick"));
    QCOMPARE(second.editor->InitDir(), QStringLiteral("/srv"));
    QCOMPARE(second.editor->Filter(), QStringLiteral("Text (*.txt)|*.txt"));
}

QTEST_MAIN(tst_kwFileSelectorField)
#include "tst_kwFileSelectorField.moc"
