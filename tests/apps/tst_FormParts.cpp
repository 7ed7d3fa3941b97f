// The form program's parts in-process: its window, the text of field values, and its answer
// to the library's message boxes with a display and without one.

#include "DefinitionFile.h"
#include "FieldValueText.h"
#include "FormMessages.h"
#include "FormWindow.h"

#include "TestSupport.h"
#include "host/Columns.h"

#include <kwFieldDeck/kwFieldDeck>

#include <QtTest>
#include <QtWidgets>

using namespace kwFieldDeck;
using namespace Qt::StringLiterals;
using kwFieldDeck::test::columns;
using kwFieldDeck::test::fetch;

namespace {
const QDate June1(2024, 6, 1);

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

class tst_FormParts : public QObject
{
    Q_OBJECT
private slots:
    // Escape reaches the window past the live editor of the first row, which has the focus.
    void buttonsKeysAndClosingDecideTheOutcome_data()
    {
        QTest::addColumn<int>("result");
        QTest::newRow("OK") << int(QDialog::Accepted);
        for (const char *action : { "Cancel", "Escape", "closing" })
            QTest::newRow(action) << int(QDialog::Rejected);
    }

    void buttonsKeysAndClosingDecideTheOutcome()
    {
        QFETCH(int, result);
        const QByteArray action = QTest::currentDataTag();
        FormWindow window;
        window.grid()->Fields()->Add("Row 1", ftText, 0, "value", "About the row");
        window.fitToFields();
        // A result that no action gives, so a window that ignores the action is caught.
        window.setResult(-1);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        if (action == "Escape")
            QTest::keyClick(&window, Qt::Key_Escape);
        else if (action == "closing")
            window.close();
        else
            window.buttons()
                ->button(action == "OK" ? QDialogButtonBox::Ok : QDialogButtonBox::Cancel)
                ->click();
        QCOMPARE(window.result(), result);
        QVERIFY(!window.isVisible());
    }

    // Each shipped definition loads without a message, every row with a help text, and opens
    // with the first row's description below the grid, as --screenshot shows it.
    void theFirstRowsDescriptionShowsBelowTheGrid_data()
    {
        QTest::addColumn<QString>("definition");
        for (const char *name : { "showcase.kwdef", "connection.kwdef" })
            QTest::newRow(name) << qEnvironmentVariable("KW_EXAMPLES_DIR") + '/' + name;
    }

    void theFirstRowsDescriptionShowsBelowTheGrid()
    {
        QFETCH(QString, definition);
        FormMessages messages(true);
        FormWindow window;
        QCOMPARE(loadDefinitionFile(*window.grid(), definition, messages), QString());
        QVERIFY(messages.messages().isEmpty());
        for (Field *field : *window.grid()->Fields())
            QVERIFY2(!field->Description().isEmpty(), qPrintable(field->Name()));
        window.fitToFields();
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        QTRY_COMPARE(
            window.descriptionLabel()->text(), window.grid()->Fields()->Item(1)->Description());
        QVERIFY(window.descriptionLabel()->geometry().top() >= window.grid()->geometry().bottom());
    }

    // The plain value's kind is compared too: it decides what the JSON holds.
    void textAndPlainValueByKindAndType_data()
    {
        // The field type, the value, its text and its plain value.
        const auto row = columns<int, QVariant, QString, QVariant>();
        // Other types: a number, boolean or empty stays a number; a text that reads as one, text.
        row("empty", 0, QVariant(), "", 0.0);
        row("text of a number", ftText, "12", "12", "12");
        row("32-bit", ftMemo, QVariant::fromValue<qint32>(70000), "70000", 70000.0);
        row("double to 15 digits", 0, 0.1 + 0.2, "0.3", 0.1 + 0.2);
        row("large double", 0, 1e20, "1e+20", 1e20);
        row("true", ftText, true, "True", -1.0);
        row("date", ftText, June1, "2024-06-01", "2024-06-01");
        row("midnight", 0, QDateTime(June1, QTime(0, 0)), "2024-06-01", "2024-06-01");
        // Number and slider: the number the whole text reads as, else the one it starts with.
        row("number, leading", ftNumeric, " 3.7xyz", " 3.7xyz", 3.7);
        row("number, none", ftSlider, "abc", "abc", 0.0);
        row("number, date", ftSlider, June1, "2024-06-01", 2024.0);
        // Check box: ticked by "True" or a leading number other than 0, as the box shows it.
        row("check, TRUE", ftCheckBox, " true ", " true ", 1);
        row("check, zero with blanks", ftCheckBox, " 0.0 ", " 0.0 ", 0);
        row("check, leading 2", ftCheckBox, "2abc", "2abc", 1);
        row("check, false", ftCheckBox, false, "False", 0);
        row("check, half", ftCheckBox, 0.5, "0.5", 1);
        // Date: a date, or a text in one of the forms the date field reads.
        row("date field, date and time", ftDate, QDateTime(June1, QTime(10, 30)),
            "2024-06-01 10:30:00", June1);
        for (const char *text : { "2024-06-01", "6/1/2024", "1.6.2024", "1 June 2024",
                 "June 1, 2024", "Jun 1, 2024", "1 Jun 2024", "2024/6/1", "2024-06-01 10:30",
                 "2024-06-01T10:30:00", " 2024-06-01 " })
            row(text, ftDate, text, text, June1);
        for (const char *text : { "junk", "0099-01-01", "2024-02-30", "2024-06-01 25:00", "12" })
            row(text, ftDate, text, text, QDate());
    }

    void textAndPlainValueByKindAndType()
    {
        const auto [type, value, text, plain] = fetch<int, QVariant, QString, QVariant>();
        QCOMPARE(valueText(value), text);
        const QVariant got = plainValue(value, lFieldTypes(type));
        QCOMPARE(got.metaType(), plain.metaType());
        QCOMPARE(got, plain);
    }

    // An object has no text: both calls report error 13 and return an empty result, never throw.
    void anObjectIsReportedNotThrown()
    {
        test::ErrorRecorder errors;
        const QVariant object = QVariant::fromValue<QObject *>(this);
        QCOMPARE(valueText(object), QString());
        QCOMPARE(plainValue(object, ftText), QVariant());
        QCOMPARE(errors.errors.size(), 2);
        for (const test::ReportedError &error : errors.errors)
            QCOMPARE(error.number, 13);
    }

    // Presets reach fields in any case, as text (a date field keeps it); lines and JSON keep the
    // grid's order, a number no text, a non-date date "".
    void printsPresetFieldsAsLinesAndAsJson()
    {
        kwPropertyControl grid;
        Fields &fields = *grid.Fields();
        fields.Add(u"Zeta \"z\""_s, ftText, 0, u"Ada \\ ünï"_s);
        fields.Add(u"Sum"_s, ftNumeric, 0, u"2.5"_s);
        fields.Add(u"On"_s, ftCheckBox, 0, u"TRUE"_s);
        fields.Add(u"Day"_s, ftDate, 0, u"2024-06-01"_s);
        fields.Add(u"Never"_s, ftDate, 0, u"junk"_s);
        QCOMPARE(applyPresets(fields, { { "Colour", "red" }, { "day", "6/1/2024" } }),
            QStringList { "Colour" });
        QCOMPARE(valueLines(fields),
            QStringList(
                { "Zeta \"z\"=Ada \\ ünï", "Sum=2.5", "On=1", "Day=6/1/2024", "Never=junk" }));
        QCOMPARE(valuesAsJson(fields),
            QByteArray("{\"Zeta \\\"z\\\"\":\"Ada \\\\ ünï\",\"Sum\":2.5,\"On\":1,"
                       "\"Day\":\"2024-06-01\",\"Never\":\"\"}"));
        QCOMPARE(valuesAsJson(*kwPropertyControl().Fields()), QByteArray("{}"));
    }

    void withoutADisplayTheDefaultButtonAnswers()
    {
        const std::pair<int, int> boxes[]
            = { { MsgBoxStyle::OKCancel + MsgBoxStyle::Exclamation, MsgBoxResult::OK },
                  { MsgBoxStyle::YesNo + MsgBoxStyle::Question, MsgBoxResult::Yes } };
        for (const auto &[style, answer] : boxes) {
            FormMessages messages(true);
            QCOMPARE(askInstalledHandler(u"Plain"_s, style), answer);
        }
    }

    // It gets the prompt with a stand-in's path shown as the user's, and is installed again when
    // the program's handler goes.
    void aHandlerInstalledBeforeAnswersTheBox()
    {
        const test::MessageRecorder before(MsgBoxResult::No);
        {
            FormMessages messages(false);
            messages.setPathAlias(u"/tmp/copy"_s, u"/home"_s);
            QCOMPARE(
                askInstalledHandler(u"Keep /tmp/copy?"_s, MsgBoxStyle::YesNo), MsgBoxResult::No);
            QCOMPARE(messages.messages(), QStringList { "Keep /home?" });
        }
        askInstalledHandler(u"After"_s, MsgBoxStyle::OKOnly);
        QCOMPARE(before.prompts(), QStringList({ "Keep /home?", "After" }));
    }

    // Its icon, buttons and title (the program's name when none is given); the click answers.
    void withADisplayTheLibrarysBoxIsShown_data()
    {
        QTest::addColumn<Box>("row");
        const auto row = [](const char *name, const Box &box) { QTest::newRow(name) << box; };
        using M = QMessageBox;
        namespace S = MsgBoxStyle;
        namespace R = MsgBoxResult;
        const int yesNo = M::Yes | M::No;
        row("critical, OK", { S::Critical, "kwPropertyControl", M::Critical, M::Ok, M::Ok, R::OK });
        row("no icon, no title", { S::OKOnly, "", M::NoIcon, M::Ok, M::Ok, R::OK });
        row("question, No", { S::Question + S::YesNo, "Ask", M::Question, yesNo, M::No, R::No });
        row("information, Yes",
            { S::Information + S::YesNo, "Ask", M::Information, yesNo, M::Yes, R::Yes });
        row("exclamation, Cancel",
            { S::Exclamation + S::OKCancel, "Warn", M::Warning, M::Ok | M::Cancel, M::Cancel,
                R::Cancel });
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

QTEST_MAIN(tst_FormParts)
#include "tst_FormParts.moc"
