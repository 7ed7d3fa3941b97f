// The form window where no run of the program can click: the user's answer, the row description.

#include "DefinitionFile.h"
#include "FormMessages.h"
#include "FormWindow.h"

#include <kwFieldDeck/Field>
#include <kwFieldDeck/Fields>
#include <kwFieldDeck/kwPropertyControl>

#include <QtTest>
#include <QtWidgets>

using namespace kwFieldDeck;

class tst_FormWindow : public QObject
{
    Q_OBJECT
private slots:
    // Escape reaches the window past the live editor of the first row, which has the focus.
    void buttonsKeysAndClosingDecideTheOutcome_data()
    {
        QTest::addColumn<QString>("action");
        QTest::addColumn<int>("result");
        QTest::newRow("OK") << "ok" << int(QDialog::Accepted);
        QTest::newRow("Cancel") << "cancel" << int(QDialog::Rejected);
        QTest::newRow("Escape") << "escape" << int(QDialog::Rejected);
        QTest::newRow("closing") << "close" << int(QDialog::Rejected);
    }

    void buttonsKeysAndClosingDecideTheOutcome()
    {
        QFETCH(QString, action);
        QFETCH(int, result);
        FormWindow window;
        for (const char *name : { "Row 1", "Row 2" })
            window.grid()->Fields()->Add(name, ftText, 0, "value", "About the row");
        window.fitToFields();
        // A result that no action gives, so a window that ignores the action is caught.
        window.setResult(-1);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        if (action == "ok" || action == "cancel")
            window.buttons()
                ->button(action == "ok" ? QDialogButtonBox::Ok : QDialogButtonBox::Cancel)
                ->click();
        else if (action == "escape")
            QTest::keyClick(&window, Qt::Key_Escape);
        else
            window.close();
        QCOMPARE(window.result(), result);
        QVERIFY(!window.isVisible());
    }

    // The window opens with the first row's description below the grid, as --screenshot shows
    // it; each shipped definition loads without a message and gives every row a help text.
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
};

QTEST_MAIN(tst_FormWindow)
#include "tst_FormWindow.moc"
