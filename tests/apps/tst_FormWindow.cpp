#include "FormWindow.h"

#include "fieldmodel/Field.h"
#include "fieldmodel/Fields.h"
#include "grid/kwPropertyControl.h"
#include "platform/Control.h"
#include "platform/TextBox.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QtTest>

using namespace kwFieldDeck;

class tst_FormWindow : public QObject
{
    Q_OBJECT
private slots:
    void buttonsKeysAndClosingDecideTheOutcome_data();
    void buttonsKeysAndClosingDecideTheOutcome();
    void theCurrentRowsDescriptionShowsBelowTheGrid();
    void fittingShowsEveryRowAndTheLongestName();
    void manyRowsStopGrowingTheWindow();
    void offscreenRenderingHasTheWindowsSize();

private:
    static void addRows(FormWindow &window, int count);
};

void tst_FormWindow::addRows(FormWindow &window, int count)
{
    for (int i = 1; i <= count; ++i)
        window.grid()->Fields()->Add(QStringLiteral("Row %1").arg(i), ftText, 0,
            QStringLiteral("value %1").arg(i), QStringLiteral("About row %1").arg(i));
}

void tst_FormWindow::buttonsKeysAndClosingDecideTheOutcome_data()
{
    QTest::addColumn<QString>("action");
    QTest::addColumn<int>("result");
    QTest::newRow("OK") << "ok" << int(QDialog::Accepted);
    QTest::newRow("Cancel") << "cancel" << int(QDialog::Rejected);
    QTest::newRow("Escape") << "escape" << int(QDialog::Rejected);
    QTest::newRow("closing") << "close" << int(QDialog::Rejected);
}

void tst_FormWindow::buttonsKeysAndClosingDecideTheOutcome()
{
    QFETCH(QString, action);
    QFETCH(int, result);
    FormWindow window;
    addRows(window, 2);
    window.fitToFields();
    // A result that no action gives, so a window that ignores the action is caught.
    window.setResult(-1);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));

    if (action == "ok")
        window.buttons()->button(QDialogButtonBox::Ok)->click();
    else if (action == "cancel")
        window.buttons()->button(QDialogButtonBox::Cancel)->click();
    else if (action == "escape")
        QTest::keyClick(&window, Qt::Key_Escape);
    else
        window.close();

    QCOMPARE(window.result(), result);
    QVERIFY(!window.isVisible());
}

void tst_FormWindow::theCurrentRowsDescriptionShowsBelowTheGrid()
{
    FormWindow window;
    addRows(window, 3);
    window.fitToFields();
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QTRY_COMPARE(window.descriptionLabel()->text(), QStringLiteral("About row 1"));

    window.grid()->Fields()->Item(QStringLiteral("Row 3"))->SetFocus();
    QTRY_COMPARE(window.descriptionLabel()->text(), QStringLiteral("About row 3"));
    QVERIFY(window.descriptionLabel()->geometry().top() >= window.grid()->geometry().bottom());
}

void tst_FormWindow::fittingShowsEveryRowAndTheLongestName()
{
    FormWindow window;
    addRows(window, 6);
    window.grid()->Fields()->Add(QStringLiteral("A rather long field name"), ftText);
    window.fitToFields();
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));

    kwPropertyControl *grid = window.grid();
    const float gridHeight = grid->height() * twipsPerPixelY();
    for (Field *field : *grid->Fields()) {
        TextBox *label = field->FieldNameControl();
        QVERIFY2(label->Top() + label->Height() <= gridHeight, qPrintable(field->Name()));
        QVERIFY2(label->widget()->isVisible(), qPrintable(field->Name()));
        QVERIFY2(field->EditorControl()->widget()->isVisible(), qPrintable(field->Name()));
    }
    QVERIFY2(!grid->Controls().Item("VScroll1")->Enabled(), "no scrolling needed");
    const double longest = textWidthTwips(grid->Font(), QStringLiteral("A rather long field name"));
    QVERIFY(grid->FieldNameWidth() >= longest);
    QVERIFY(grid->width() * twipsPerPixelX() > grid->FieldNameWidth() + 2000);
}

void tst_FormWindow::manyRowsStopGrowingTheWindow()
{
    FormWindow few, many;
    addRows(few, 16);
    addRows(many, 200);
    few.fitToFields();
    many.fitToFields();
    QCOMPARE(many.sizeHint().height(), few.sizeHint().height());
    QVERIFY(many.height() < 1000);
}

void tst_FormWindow::offscreenRenderingHasTheWindowsSize()
{
    FormWindow window;
    addRows(window, 4);
    window.fitToFields();
    const QImage image = window.renderOffscreen();
    QVERIFY(!image.isNull());
    QCOMPARE(image.size() / image.devicePixelRatio(), window.size());
    QCOMPARE(window.descriptionLabel()->text(), QStringLiteral("About row 1"));
}

QTEST_MAIN(tst_FormWindow)
#include "tst_FormWindow.moc"
