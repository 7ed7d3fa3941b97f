#include "platform/Form.h"

#include "platform/Menu.h"

#include <QAction>
#include <QLineEdit>
#include <QtTest>

using namespace kwFieldDeck;

namespace {
// A window that records its steps and answers its query step as told.
class RecordingForm : public Form
{
public:
    RecordingForm()
        : Form(QStringLiteral("frmTest"))
        , edit(new QLineEdit(client()))
    {
        setClientSize(3000, 1500);
    }

    QStringList steps;
    int cancelQuery = 0;
    int swallowKeyCode = 0;
    QLineEdit *edit;

protected:
    void Form_Load() override { steps << QStringLiteral("Load"); }
    void Form_Activate() override { steps << QStringLiteral("Activate"); }
    void Form_QueryUnload(int &Cancel, int UnloadMode) override
    {
        steps << QStringLiteral("QueryUnload %1").arg(UnloadMode);
        Cancel = cancelQuery;
    }
    void Form_Unload(int &) override { steps << QStringLiteral("Unload"); }
    void Form_KeyDown(int &KeyCode, int &Shift) override
    {
        steps << QStringLiteral("KeyDown %1 %2").arg(KeyCode).arg(Shift);
        if (KeyCode == swallowKeyCode)
            KeyCode = 0;
    }
    void Form_KeyPress(int &KeyAscii) override
    {
        steps << QStringLiteral("KeyPress %1").arg(KeyAscii);
    }
};
} // namespace

class tst_Form : public QObject
{
    Q_OBJECT
private slots:
    void unloadAsksTheQueryStepWithItsMode_data();
    void unloadAsksTheQueryStepWithItsMode();
    void modalShowReturnsWhenTheWindowIsHidden();
    void keyPreviewSeesEachKeyOnceBeforeTheControl();
    void menuItemsClickAndCarryCaptions();
};

void tst_Form::unloadAsksTheQueryStepWithItsMode_data()
{
    QTest::addColumn<bool>("byCloseButton");
    QTest::addColumn<int>("cancel");
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<bool>("visible");
    QTest::newRow("close button") << true << 0 << QStringList { "QueryUnload 0", "Unload" }
                                  << false;
    QTest::newRow("close button cancelled") << true << 1 << QStringList { "QueryUnload 0" } << true;
    QTest::newRow("code") << false << 0 << QStringList { "QueryUnload 1", "Unload" } << false;
    QTest::newRow("code cancelled") << false << 1 << QStringList { "QueryUnload 1" } << true;
}

void tst_Form::unloadAsksTheQueryStepWithItsMode()
{
    QFETCH(bool, byCloseButton);
    QFETCH(int, cancel);
    QFETCH(QStringList, steps);
    QFETCH(bool, visible);
    RecordingForm form;
    form.Show();
    QCOMPARE(form.steps, (QStringList { "Load", "Activate" }));
    form.steps.clear();
    form.cancelQuery = cancel;
    if (byCloseButton)
        form.window()->close();
    else
        form.Unload();
    QCOMPARE(form.steps, steps);
    QCOMPARE(form.Visible(), visible);
    QCOMPARE(form.isLoaded(), visible);
}

void tst_Form::modalShowReturnsWhenTheWindowIsHidden()
{
    int hooked = 0;
    const Form::ModalShowHook previous = Form::setModalShowHook([&](Form &shown) {
        ++hooked;
        QVERIFY(shown.Visible());
        QCOMPARE(shown.window()->windowModality(), Qt::ApplicationModal);
        shown.Hide();
    });
    RecordingForm form;
    form.Show(Form::Modal);
    Form::setModalShowHook(previous);
    QCOMPARE(hooked, 1);
    QVERIFY(!form.Visible());
    QVERIFY(form.isLoaded());
    QCOMPARE(form.steps, (QStringList { "Load", "Activate" }));
}

void tst_Form::keyPreviewSeesEachKeyOnceBeforeTheControl()
{
    RecordingForm form;
    form.setKeyPreview(true);
    form.Show();
    QVERIFY(QTest::qWaitForWindowActive(form.window()));
    form.edit->setFocus();
    form.steps.clear();
    QTest::keyClick(form.edit, Qt::Key_X);
    QCOMPARE(form.steps, (QStringList { "KeyDown 88 0", "KeyPress 120" }));
    QCOMPARE(form.edit->text(), QStringLiteral("x"));
    form.steps.clear();
    form.swallowKeyCode = 89;
    QTest::keyClick(form.edit, Qt::Key_Y);
    QCOMPARE(form.steps, (QStringList { "KeyDown 89 0" }));
    QCOMPARE(form.edit->text(), QStringLiteral("x"));
    form.setKeyPreview(false);
    form.steps.clear();
    QTest::keyClick(form.edit, Qt::Key_Z);
    QVERIFY(form.steps.isEmpty());
}

void tst_Form::menuItemsClickAndCarryCaptions()
{
    RecordingForm form;
    Menu *title = form.addMenu(QStringLiteral("mnuFile"), QStringLiteral("File"));
    Menu *item = title->addItem(QStringLiteral("mnuOpen"), QStringLiteral("Open"));
    Menu *bar = title->addItem(QStringLiteral("mnuBar"), QStringLiteral("-"));
    QSignalSpy clicks(item, &Menu::Click);
    item->action()->trigger();
    QCOMPARE(clicks.count(), 1);
    QCOMPARE(title->Caption(), QStringLiteral("File"));
    QCOMPARE(item->Caption(), QStringLiteral("Open"));
    QVERIFY(bar->action()->isSeparator());
    item->setEnabled(false);
    item->action()->trigger();
    QCOMPARE(clicks.count(), 1);
}

QTEST_MAIN(tst_Form)
#include "tst_Form.moc"
