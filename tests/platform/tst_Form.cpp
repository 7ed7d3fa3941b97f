#include "platform/Form.h"

#include <QtTest>

using namespace kwFieldDeck;

namespace {
// A window that records its unload steps and answers its query step as told.
class RecordingForm : public Form
{
public:
    using Form::Form;
    QStringList steps;
    int cancelQuery = 0;

protected:
    void Form_QueryUnload(int &Cancel, int UnloadMode) override
    {
        steps << QStringLiteral("QueryUnload %1").arg(UnloadMode);
        Cancel = cancelQuery;
    }
    void Form_Unload(int &) override { steps << QStringLiteral("Unload"); }
};
} // namespace

class tst_Form : public QObject
{
    Q_OBJECT
private slots:
    void unloadAsksTheQueryStepWhichMayCancel_data()
    {
        QTest::addColumn<bool>("byCloseButton");
        QTest::addColumn<int>("cancel");
        QTest::addColumn<QStringList>("steps");
        QTest::newRow("close button") << true << 0 << QStringList { "QueryUnload 0", "Unload" };
        QTest::newRow("close button cancelled") << true << 1 << QStringList { "QueryUnload 0" };
        QTest::newRow("code") << false << 0 << QStringList { "QueryUnload 1", "Unload" };
        QTest::newRow("code cancelled") << false << 1 << QStringList { "QueryUnload 1" };
    }

    void unloadAsksTheQueryStepWhichMayCancel()
    {
        QFETCH(bool, byCloseButton);
        QFETCH(int, cancel);
        QFETCH(QStringList, steps);
        RecordingForm form(QStringLiteral("frmTest"));
        form.Show();
        form.cancelQuery = cancel;
        if (byCloseButton)
            form.window()->close();
        else
            form.Unload();
        QCOMPARE(form.steps, steps);
        QCOMPARE(form.Visible(), bool(cancel));
        QCOMPARE(form.isLoaded(), bool(cancel));
    }
};

QTEST_MAIN(tst_Form)
#include "tst_Form.moc"
