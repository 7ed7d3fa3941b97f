// The grid's field collection: Add and its duplicate message, lookups, Remove and Clear.

#include "grid/GridHost.h"

#include <QtTest>

using namespace kwFieldDeck;
using kwFieldDeck::test::GridHost;

class tst_Fields : public QObject
{
    Q_OBJECT

private slots:
    void namesIgnoreCaseAndADuplicateIsRefused()
    {
        GridHost host;
        Fields *fields = host.grid->Fields();
        test::MessageRecorder messages;
        test::ErrorRecorder errors;
        Field *port = host.add("Port");
        QVERIFY(!host.add("port"));
        QCOMPARE(messages.messages.size(), 1);
        QCOMPARE(messages.messages.first().prompt,
            QStringLiteral("Field: port already exists in Fields Collection!"));
        QCOMPARE(messages.messages.first().style, MsgBoxStyle::OKOnly);
        QCOMPARE(messages.messages.first().title, QString());
        QCOMPARE(fields->Count(), 1);
        QVERIFY(errors.errors.isEmpty());
        Field *name = host.add("name");
        QCOMPARE(fields->Item("PORT"), port);
        QCOMPARE(fields->Item(int16Value(2)), name);
        QCOMPARE(QList<Field *>(fields->begin(), fields->end()), (QList<Field *> { port, name }));
    }

    // What Add gives a text field is the size test's; the description, the interaction test's.
    void aNumericFieldAddedWithoutAValueShowsZeroAndTakesNoSize()
    {
        GridHost host;
        QVERIFY(host.shown);
        Field *numeric = host.grid->Fields()->Add("Port", ftNumeric, 5);
        QCOMPARE(numeric->Value(), doubleValue(0));
        QCOMPARE(GridHost::state(numeric).text, QStringLiteral("0"));
        // The size of 5 limits nothing a user types.
        numeric->SetFocus();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("1234567"));
        QCOMPARE(numeric->Value(), doubleValue(1234567));
    }

    void missingItemIsReportedAndNull()
    {
        GridHost host;
        host.add("Port");
        test::ErrorRecorder errors;
        for (const QVariant &missing : { QVariant("Nothing"), QVariant(0), QVariant(2) }) {
            QVERIFY(!host.grid->Fields()->Item(missing));
            host.grid->Fields()->Remove(missing);
            QCOMPARE(errors.sources().mid(errors.sources().size() - 2),
                (QStringList { "Property 'Item' of Class Module 'Fields'",
                    "Sub 'Remove' of Class Module 'Fields'" }));
        }
        QCOMPARE(host.grid->Fields()->Count(), 1);
    }

    void removeAndClearHideTheRows()
    {
        GridHost host;
        host.addRows(3);
        host.grid->Refresh(true);
        Fields *fields = host.grid->Fields();
        QPointer<Field> first = fields->Item(1);
        Field *last = fields->Item(3);
        const qsizetype firstRow = FieldPrivate::get(first)->m_row;
        fields->Remove("ROW1");
        QCOMPARE(fields->Item(1)->Name(), QStringLiteral("Row2"));
        // The rows below keep their places until the next layout: intended.
        QCOMPARE(host.row(fields->Item(1)).top, 300.0f);
        QCOMPARE(host.d()->canvasHeight(), 900.0f);
        // The removed row stays on the canvas, hidden, and its field has no editor any more.
        QCOMPARE(host.d()->canvasRows().at(firstRow).field, first.data());
        QVERIFY(!first->Visible());
        QVERIFY(!FieldPrivate::get(first)->editorKind());
        QCoreApplication::processEvents();
        QVERIFY(first); // a host may still hold the removed field
        // Clear hides the rows but keeps their editors, unlike Remove, and lays out.
        fields->Clear();
        QCOMPARE(fields->Count(), 0);
        QVERIFY(!last->Visible());
        QVERIFY(FieldPrivate::get(last)->editorKind());
        QCOMPARE(host.d()->canvasHeight(), 0.0f);
        QCOMPARE(host.row(host.add("Again")).top, 0.0f);
    }

    void addWithoutGridIsReported()
    {
        Fields fields;
        test::ErrorRecorder errors;
        test::MessageRecorder messages;
        QVERIFY(!fields.Add("Port", ftText));
        QVERIFY(errors.sources().contains("Property 'FieldType' of Class Module 'Field'"));
        QCOMPARE(
            errors.sources().last(), QStringLiteral("Function 'Add' of Class Module 'Fields'"));
        QCOMPARE(errors.errors.last().number, 91);
        QCOMPARE(fields.Count(), 0);
    }
};

QTEST_MAIN(tst_Fields)
#include "tst_Fields.moc"
