// The form program's answer to the library's message boxes: each message is kept with the
// user's path in it; with a display the box is shown (or a handler installed before answers),
// without one the default button answers.

#include "FormMessages.h"

#include "TestSupport.h"

#include <kwFieldDeck/HostHooks>

#include <QMessageBox>
#include <QPushButton>
#include <QtTest>

using namespace kwFieldDeck;

namespace {
// Calls the message-box handler installed now, as the library calls it for a box.
int askInstalledHandler(const QString &prompt, int style, const QString &title = {})
{
    MessageBoxHandler installed = setMessageBoxHandler({});
    setMessageBoxHandler(installed);
    return installed ? installed(prompt, style, title) : -1;
}
} // namespace

class tst_FormMessages : public QObject
{
    Q_OBJECT
private slots:
    // Each message is kept, a stand-in's path shown as the user's while there is one.
    void withoutADisplayTheDefaultButtonAnswers_data()
    {
        QTest::addColumn<int>("style");
        QTest::addColumn<int>("answer");
        QTest::newRow("OK") << MsgBoxStyle::OKOnly << MsgBoxResult::OK;
        QTest::newRow("OK, Cancel")
            << MsgBoxStyle::OKCancel + MsgBoxStyle::Exclamation << MsgBoxResult::OK;
        QTest::newRow("Yes, No") << MsgBoxStyle::YesNo + MsgBoxStyle::Question << MsgBoxResult::Yes;
    }

    void withoutADisplayTheDefaultButtonAnswers()
    {
        QFETCH(int, style);
        QFETCH(int, answer);
        FormMessages messages(true);
        messages.setPathAlias(QStringLiteral("/tmp/copy/a.kwdef"), QStringLiteral("/home/a.kwdef"));
        QCOMPARE(askInstalledHandler(QStringLiteral("Open /tmp/copy/a.kwdef?"), style), answer);
        messages.setPathAlias(QString(), QString());
        askInstalledHandler(QStringLiteral("Plain"), style);
        QCOMPARE(messages.messages(), QStringList({ "Open /home/a.kwdef?", "Plain" }));
    }

    // And is installed again when the program's handler goes.
    void aHandlerInstalledBeforeAnswersTheBox()
    {
        const test::MessageRecorder before(MsgBoxResult::No);
        {
            FormMessages messages(false);
            messages.setPathAlias(QStringLiteral("/tmp/copy"), QStringLiteral("/home"));
            const int style = MsgBoxStyle::YesNo + MsgBoxStyle::Question;
            QCOMPARE(askInstalledHandler(QStringLiteral("Keep /tmp/copy?"), style, "Title"),
                MsgBoxResult::No);
            QCOMPARE(before.messages.size(), 1);
            QCOMPARE(before.messages.at(0).style, style);
            QCOMPARE(before.messages.at(0).title, QStringLiteral("Title"));
            QCOMPARE(messages.messages(), QStringList { "Keep /home?" });
        }
        askInstalledHandler(QStringLiteral("After"), MsgBoxStyle::OKOnly);
        QCOMPARE(before.prompts(), QStringList({ "Keep /home?", "After" }));
    }

    // Its icon, buttons and title (the program's name when none is given); the click answers.
    void withADisplayTheLibrarysBoxIsShown_data()
    {
        QTest::addColumn<int>("style");
        QTest::addColumn<QString>("title");
        QTest::addColumn<int>("icon");
        QTest::addColumn<int>("buttons");
        QTest::addColumn<int>("clicked");
        QTest::addColumn<int>("answer");
        const int ok = QMessageBox::Ok, yesNo = QMessageBox::Yes | QMessageBox::No;
        auto row = [](const char *name, int style, const char *title, QMessageBox::Icon icon,
                       int buttons, QMessageBox::StandardButton clicked, int answer) {
            QTest::newRow(name) << style << title << int(icon) << buttons << int(clicked) << answer;
        };
        row("critical, OK", MsgBoxStyle::Critical, "kwPropertyControl", QMessageBox::Critical, ok,
            QMessageBox::Ok, MsgBoxResult::OK);
        row("no icon, no title", MsgBoxStyle::OKOnly, "", QMessageBox::NoIcon, ok, QMessageBox::Ok,
            MsgBoxResult::OK);
        row("question, No", MsgBoxStyle::Question + MsgBoxStyle::YesNo, "Ask",
            QMessageBox::Question, yesNo, QMessageBox::No, MsgBoxResult::No);
        row("information, Yes", MsgBoxStyle::Information + MsgBoxStyle::YesNo, "Ask",
            QMessageBox::Information, yesNo, QMessageBox::Yes, MsgBoxResult::Yes);
        row("exclamation, Cancel", MsgBoxStyle::Exclamation + MsgBoxStyle::OKCancel, "Warn",
            QMessageBox::Warning, QMessageBox::Ok | QMessageBox::Cancel, QMessageBox::Cancel,
            MsgBoxResult::Cancel);
    }

    void withADisplayTheLibrarysBoxIsShown()
    {
        QFETCH(int, style);
        QFETCH(QString, title);
        QFETCH(int, clicked);
        QFETCH(int, answer);
        const MessageBoxHandler before = setMessageBoxHandler({});
        FormMessages messages(false);
        // Always answered, so a wrong box fails below rather than leaving the test waiting.
        QVariantList shown;
        QTimer poll;
        connect(&poll, &QTimer::timeout, [&] {
            auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            if (!box || !shown.isEmpty())
                return;
            shown = { int(box->icon()), int(box->standardButtons()), box->windowTitle(),
                box->text() };
            if (QAbstractButton *button = box->button(QMessageBox::StandardButton(clicked)))
                button->click();
            else
                box->reject();
        });
        poll.start(10);
        QCOMPARE(askInstalledHandler(QStringLiteral("The prompt"), style, title), answer);
        setMessageBoxHandler(before);
        QFETCH(int, icon);
        QFETCH(int, buttons);
        QCOMPARE(shown,
            QVariantList({ icon, buttons,
                title.isEmpty() ? QCoreApplication::applicationName() : title, "The prompt" }));
        QCOMPARE(messages.messages(), QStringList { "The prompt" });
    }
};

QTEST_MAIN(tst_FormMessages)
#include "tst_FormMessages.moc"
