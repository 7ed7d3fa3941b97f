// The form program's answer to the library's message boxes, with a display and without one.

#include "FormMessages.h"

#include "TestSupport.h"

#include <kwFieldDeck/HostHooks>

#include <QtTest>
#include <QtWidgets>

using namespace kwFieldDeck;
using namespace Qt::StringLiterals;

namespace {
struct Box
{
    int style;
    const char *title;
    int icon, buttons, clicked, answer;
};

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
        messages.setPathAlias(u"/tmp/copy/a.kwdef"_s, u"/home/a.kwdef"_s);
        QCOMPARE(askInstalledHandler(u"Open /tmp/copy/a.kwdef?"_s, style), answer);
        messages.setPathAlias(QString(), QString());
        askInstalledHandler(u"Plain"_s, style);
        QCOMPARE(messages.messages(), QStringList({ "Open /home/a.kwdef?", "Plain" }));
    }

    // And is installed again when the program's handler goes.
    void aHandlerInstalledBeforeAnswersTheBox()
    {
        const test::MessageRecorder before(MsgBoxResult::No);
        {
            FormMessages messages(false);
            messages.setPathAlias(u"/tmp/copy"_s, u"/home"_s);
            const int style = MsgBoxStyle::YesNo + MsgBoxStyle::Question;
            QCOMPARE(askInstalledHandler(u"Keep /tmp/copy?"_s, style, "Title"), MsgBoxResult::No);
            QCOMPARE(before.messages.size(), 1);
            QCOMPARE(before.messages.at(0).style, style);
            QCOMPARE(before.messages.at(0).title, u"Title"_s);
            QCOMPARE(messages.messages(), QStringList { "Keep /home?" });
        }
        askInstalledHandler(u"After"_s, MsgBoxStyle::OKOnly);
        QCOMPARE(before.prompts(), QStringList({ "Keep /home?", "After" }));
    }

    // Its icon, buttons and title (the program's name when none is given); the click answers.
    void withADisplayTheLibrarysBoxIsShown_data()
    {
        QTest::addColumn<Box>("row");
        const int ok = QMessageBox::Ok, yesNo = QMessageBox::Yes | QMessageBox::No;
        const auto row = [](const char *name, const Box &box) { QTest::newRow(name) << box; };
        using M = QMessageBox;
        row("critical, OK",
            { MsgBoxStyle::Critical, "kwPropertyControl", M::Critical, ok, M::Ok,
                MsgBoxResult::OK });
        row("no icon, no title",
            { MsgBoxStyle::OKOnly, "", M::NoIcon, ok, M::Ok, MsgBoxResult::OK });
        row("question, No",
            { MsgBoxStyle::Question + MsgBoxStyle::YesNo, "Ask", M::Question, yesNo, M::No,
                MsgBoxResult::No });
        row("information, Yes",
            { MsgBoxStyle::Information + MsgBoxStyle::YesNo, "Ask", M::Information, yesNo, M::Yes,
                MsgBoxResult::Yes });
        row("exclamation, Cancel",
            { MsgBoxStyle::Exclamation + MsgBoxStyle::OKCancel, "Warn", M::Warning,
                M::Ok | M::Cancel, M::Cancel, MsgBoxResult::Cancel });
    }

    void withADisplayTheLibrarysBoxIsShown()
    {
        QFETCH(Box, row);
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
            if (QAbstractButton *button = box->button(QMessageBox::StandardButton(row.clicked)))
                button->click();
            else
                box->reject();
        });
        poll.start(10);
        QCOMPARE(askInstalledHandler(u"The prompt"_s, row.style, row.title), row.answer);
        setMessageBoxHandler(before);
        QCOMPARE(shown,
            QVariantList({ row.icon, row.buttons,
                *row.title ? row.title : QCoreApplication::applicationName(), "The prompt" }));
        QCOMPARE(messages.messages(), QStringList { "The prompt" });
    }
};

QTEST_MAIN(tst_FormMessages)
#include "tst_FormMessages.moc"
