// The form program's answer to the library's message boxes: each message is kept with the
// user's path in it; with a display the box is shown (or a handler installed before answers),
// without one the default button answers.

#include "FormMessages.h"

#include "TestSupport.h"

#include <kwFieldDeck/Fields>
#include <kwFieldDeck/HostHooks>
#include <kwFieldDeck/kwPropertyControl>

#include <QMessageBox>
#include <QPushButton>
#include <QtTest>

using namespace kwFieldDeck;

namespace {
// Calls the message-box handler installed now, as the library calls it for a box.
int askInstalledHandler(const QString &prompt, int style, const QString &title)
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
    void theLibrarysMessagesAreKeptWithTheUsersPath()
    {
        FormMessages messages(true);
        messages.setPathAlias(QStringLiteral("/tmp/copy/a.kwdef"), QStringLiteral("/home/a.kwdef"));
        askInstalledHandler(QStringLiteral("Can't Open /tmp/copy/a.kwdef"), MsgBoxStyle::Critical,
            QStringLiteral("kwPropertyControl"));
        messages.setPathAlias(QString(), QString());
        kwPropertyControl grid;
        grid.Fields()->Add(QStringLiteral("Port"), ftText);
        grid.Fields()->Add(QStringLiteral("PORT"), ftText);
        QCOMPARE(messages.messages(),
            QStringList({ "Can't Open /home/a.kwdef",
                "Field: PORT already exists in Fields Collection!" }));
    }

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
        QCOMPARE(askInstalledHandler(QStringLiteral("Go on?"), style, QString()), answer);
        QCOMPARE(messages.messages(), QStringList { "Go on?" });
    }

    // A handler that a host or a test installed before the program's answers in its place.
    void aHandlerInstalledBeforeAnswersTheBox()
    {
        const test::MessageRecorder before(MsgBoxResult::No);
        {
            FormMessages messages(false);
            messages.setPathAlias(QStringLiteral("/tmp/copy"), QStringLiteral("/home"));
            const int style = MsgBoxStyle::YesNo + MsgBoxStyle::Question;
            QCOMPARE(askInstalledHandler(
                         QStringLiteral("Keep /tmp/copy?"), style, QStringLiteral("Title")),
                MsgBoxResult::No);
            QCOMPARE(before.messages.size(), 1);
            QCOMPARE(before.messages.at(0).prompt, QStringLiteral("Keep /home?"));
            QCOMPARE(before.messages.at(0).style, style);
            QCOMPARE(before.messages.at(0).title, QStringLiteral("Title"));
            QCOMPARE(messages.messages(), QStringList { "Keep /home?" });
        }
        // The program's handler is gone with it.
        askInstalledHandler(QStringLiteral("After"), MsgBoxStyle::OKOnly, QString());
        QCOMPARE(before.prompts(), QStringList({ "Keep /home?", "After" }));
    }

    // With a display and no other handler, the box is the library's own: its icon, buttons and
    // title (the program's name when none is given), and the button clicked is the answer.
    void withADisplayTheLibrarysBoxIsShown_data()
    {
        QTest::addColumn<int>("style");
        QTest::addColumn<QString>("title");
        QTest::addColumn<int>("icon");
        QTest::addColumn<int>("buttons");
        QTest::addColumn<int>("clicked");
        QTest::addColumn<int>("answer");
        QTest::newRow("critical, OK")
            << MsgBoxStyle::Critical + MsgBoxStyle::OKOnly << "kwPropertyControl"
            << int(QMessageBox::Critical) << int(QMessageBox::Ok) << int(QMessageBox::Ok)
            << MsgBoxResult::OK;
        QTest::newRow("no icon, no title")
            << MsgBoxStyle::OKOnly << "" << int(QMessageBox::NoIcon) << int(QMessageBox::Ok)
            << int(QMessageBox::Ok) << MsgBoxResult::OK;
        QTest::newRow("question, Yes and No")
            << MsgBoxStyle::Question + MsgBoxStyle::YesNo << "Ask" << int(QMessageBox::Question)
            << int(QMessageBox::Yes | QMessageBox::No) << int(QMessageBox::No) << MsgBoxResult::No;
        QTest::newRow("information, Yes")
            << MsgBoxStyle::Information + MsgBoxStyle::YesNo << "Ask"
            << int(QMessageBox::Information) << int(QMessageBox::Yes | QMessageBox::No)
            << int(QMessageBox::Yes) << MsgBoxResult::Yes;
        QTest::newRow("exclamation, OK and Cancel")
            << MsgBoxStyle::Exclamation + MsgBoxStyle::OKCancel << "Warn"
            << int(QMessageBox::Warning) << int(QMessageBox::Ok | QMessageBox::Cancel)
            << int(QMessageBox::Cancel) << MsgBoxResult::Cancel;
    }

    void withADisplayTheLibrarysBoxIsShown()
    {
        QFETCH(int, style);
        QFETCH(QString, title);
        QFETCH(int, icon);
        QFETCH(int, buttons);
        QFETCH(int, clicked);
        QFETCH(int, answer);
        const MessageBoxHandler before = setMessageBoxHandler({});
        FormMessages messages(false);

        // What the box showed, read while it is open; it is always answered, so a wrong box
        // fails the comparisons below rather than leaving the test waiting.
        bool shown = false;
        int shownIcon = -1, shownButtons = -1;
        QString shownTitle, shownText;
        QTimer poll;
        connect(&poll, &QTimer::timeout, [&] {
            auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            if (!box || shown)
                return;
            shown = true;
            shownIcon = int(box->icon());
            shownButtons = int(box->standardButtons());
            shownTitle = box->windowTitle();
            shownText = box->text();
            if (QAbstractButton *button = box->button(QMessageBox::StandardButton(clicked)))
                button->click();
            else
                box->reject();
        });
        poll.start(10);
        QCOMPARE(askInstalledHandler(QStringLiteral("The prompt"), style, title), answer);
        QVERIFY(shown);
        QCOMPARE(shownIcon, icon);
        QCOMPARE(shownButtons, buttons);
        QCOMPARE(shownTitle, title.isEmpty() ? QCoreApplication::applicationName() : title);
        QCOMPARE(shownText, QStringLiteral("The prompt"));
        QCOMPARE(messages.messages(), QStringList { "The prompt" });
        setMessageBoxHandler(before);
    }
};

QTEST_MAIN(tst_FormMessages)
#include "tst_FormMessages.moc"
