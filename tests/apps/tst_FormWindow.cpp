// The form window where no run of the program can click: the user's answer, the row description.

#include "DefinitionFile.h"
#include "FormMessages.h"
#include "FormWindow.h"

#include <kwFieldDeck/kwFieldDeck>

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
        QTest::addColumn<int>("result");
        QTest::newRow("OK") << int(QDialog::Accepted);
        QTest::newRow("Cancel") << int(QDialog::Rejected);
        QTest::newRow("Escape") << int(QDialog::Rejected);
        QTest::newRow("closing") << int(QDialog::Rejected);
    }

    void buttonsKeysAndClosingDecideTheOutcome()
    {
        QFETCH(int, result);
        const QByteArray action = QTest::currentDataTag();
        FormWindow window;
        for (const char *name : { "Row 1", "Row 2" })
            window.grid()->Fields()->Add(name, ftText, 0, "value", "About the row");
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
};

QTEST_MAIN(tst_FormWindow)
#include "tst_FormWindow.moc"
