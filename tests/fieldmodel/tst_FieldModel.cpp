// The rows' data as a host and a user meet it: values, types, limits, colours, collections.

#include "host/ShownGrid.h"

#include <QClipboard>
#include <QComboBox>
#include <QDateEdit>
#include <QMenu>
#include <QtTest>

using namespace kwFieldDeck;
using namespace kwFieldDeck::test;

namespace {
enum UserInput { Typed, PastedByKey, PastedFromMenu };

void pasteFromTheMenu(QLineEdit *edit)
{
    QContextMenuEvent menuEvent(
        QContextMenuEvent::Mouse, QPoint(2, 2), edit->mapToGlobal(QPoint(2, 2)));
    QCoreApplication::sendEvent(edit, &menuEvent);
    QTRY_VERIFY(QApplication::activePopupWidget());
    QWidget *menu = QApplication::activePopupWidget();
    for (QAction *action : menu->actions())
        if (action->text().startsWith(QLatin1String("&Paste")))
            action->trigger();
    menu->close();
}
} // namespace

class tst_FieldModel : public QObject
{
    Q_OBJECT
    std::unique_ptr<ShownGrid> host;
private slots:
    void init() { host = std::make_unique<ShownGrid>(); }
    void cleanup() { host.reset(); }

    // A write that changes the editor raises Changed, field then grid, once the row shows it.
    void valueFollowsTheConventionOfItsType_data()
    {
        // The type, the value before, the value written, what the row shows (a date as a date box
        // shows it), what Value reads and whether Changed comes.
        auto row = columns<int, QString, QVariant, QVariant, QString, bool>();
        const QDate march1(2024, 3, 1), january2(2025, 1, 2);
        row("text 16-bit", ftText, "", qint16(42), "42", "42", true);
        row("text date", ftText, "", march1, "2024-03-01", "2024-03-01", true);
        row("text keeps out a boolean", ftText, "before", true, "before", "true", false);
        row("text keeps out empty", ftText, "before", QVariant(), "before", "", false);
        row("text unchanged", ftText, "old", "old", "old", "old", false);
        row("numeric abc", ftNumeric, "", "abc", "0", "abc", false);
        row("numeric 3.7xyz", ftNumeric, "", "3.7xyz", "3.7", "3.7", true);
        row("check true ", ftCheckBox, "", "true ", "1", "1", true);
        row("check yes clears", ftCheckBox, "1", "yes", "0", "0", true);
        row("check yes on a clear box", ftCheckBox, "", "yes", "0", "yes", false);
        row("check TRUE on a ticked box", ftCheckBox, "1", "TRUE", "1", "1", false);
        row("slider 3.7xyz", ftSlider, "", "3.7xyz", "4", "4", true);
        row("date not a date", ftDate, "2024-03-01", "no date", march1, "no date", false);
        row("date", ftDate, "2024-03-01", january2, january2, "2025-01-02", true);
    }
    void valueFollowsTheConventionOfItsType()
    {
        const auto [type, before, value, shown, read, changes]
            = fetch<int, QString, QVariant, QVariant, QString, bool>();
        Field *field = host->add("Row", lFieldTypes(type), before);
        QStringList heard;
        connect(field, &Field::Changed, this, [&](const QVariant &changedTo) {
            heard << "field " + changedTo.toString() + " shown " + host->readOut(0);
            QCOMPARE(field->Value(), changedTo);
        });
        connect(host->grid, &kwPropertyControl::Changed, this,
            [&](Field *changed) { heard << "grid " + changed->Name(); });
        field->setValue(value);
        const QString text = shown.typeId() == QMetaType::QDate
            ? QLocale().toString(shown.toDate(), QDateEdit().displayFormat())
            : shown.toString();
        QCOMPARE(host->readOut(0), text);
        QCOMPARE(field->Value().toString(), read);
        QCOMPARE(heard,
            changes ? QStringList({ "field " + read + " shown " + text, "grid Row" })
                    : QStringList());
    }

    // A second type warns and still changes; the earlier row stays on the grid (intended).
    void typeIsSetOnceButStillChanges()
    {
        Field *field = host->add("Port", ftText, "abc");
        MessageRecorder messages;
        field->setFieldType(ftText);
        field->setFieldType(ftNumeric);
        QCOMPARE(messages.prompts(),
            QStringList(2, "Field:Port\r\nCan't Change Field Type once it has already been set!"));
        QCOMPARE(messages.messages.last().style, MsgBoxStyle::OKOnly);
        QCOMPARE(messages.messages.last().title, QString());
        QCOMPARE(field->FieldType(), qint32(ftNumeric));
        // One row more, below: the same type again added none.
        QCOMPARE(host->textAt(0), QStringLiteral("abc"));
        QVERIFY(host->textAt(1) != QStringLiteral("(none)"));
        QCOMPARE(host->textAt(2), QStringLiteral("(none)"));
    }

    // Never the text the program sets; a number row takes no size and shows 0 until it has one.
    void sizeLimitsWhatTheUserTypesOrPastes_data()
    {
        // The text arrives by Add, Value or a definition; the selection is its start and length.
        auto row = columns<QString, QPoint, QString, int, QString, QString>();
        row("typing over a selection", "abcde", { 1, 2 }, "xyz", Typed, "axyde", "Add");
        row("paste is cut", "abc", { 3, 0 }, "123456", PastedByKey, "abc12", "Add");
        row("paste into a full box", "abcde", { 2, 0 }, "x", PastedByKey, "abcde", "Add");
        row("paste from the menu", "ab", { 0, 0 }, "123456", PastedFromMenu, "123ab", "Add");
        for (const char *set : { "Add", "Value", "definition" })
            row(qPrintable(QStringLiteral("longer text set by %1 takes no key").arg(set)),
                "1234567890", { 10, 0 }, "x", Typed, "1234567890", set);
        row("a number row takes no size", "0", { 0, 1 }, "1234567", Typed, "1234567", "number");
    }
    void sizeLimitsWhatTheUserTypesOrPastes()
    {
        const auto [before, selection, input, how, after, set]
            = fetch<QString, QPoint, QString, int, QString, QString>();
        if (set == "definition")
            host->grid->ReadDef(
                "ADDFIELD Code\r\nTYPE=TEXT\r\nSIZE=5\r\nVALUE=" + before + "\r\nENDFIELD");
        else
            host->grid->Fields()->Add(
                "Code", set == "number" ? ftNumeric : ftText, 5, set == "Add" ? before : QString());
        Field *field = host->grid->Fields()->Item(1);
        QVERIFY(field);
        if (set == "Value")
            field->setValue(before);
        if (set == "number")
            QCOMPARE(field->Value(), QVariant(0.0));
        auto *edit = qobject_cast<QLineEdit *>(host->click(host->editorPoint(0)));
        QVERIFY(edit);
        QCOMPARE(edit->text(), before);
        edit->setSelection(selection.x(), selection.y());
        QGuiApplication::clipboard()->setText(input);
        if (how == Typed)
            QTest::keyClicks(edit, input);
        else if (how == PastedByKey)
            QTest::keyClick(edit, Qt::Key_V, Qt::ControlModifier);
        else
            pasteFromTheMenu(edit);
        QCOMPARE(edit->text(), after);
        QCOMPARE(field->Value(), set == "number" ? QVariant(after.toDouble()) : QVariant(after));
    }

    // Min reaches a date row's calendar once it is a date, and Max only when Min is one
    // (intended). A row's colours reach its text box; a date box keeps its own (intended).
    void limitsAndColoursReachTheEditor()
    {
        Field *text = host->add("Host", ftText, "abc");
        Field *date = host->add("Start", ftDate, "2024-03-01");
        const QColor colour(0xDD, 0xEE, 0xFF);
        for (Field *field : { text, date })
            field->setBackColor(0x00FFEEDD);
        date->setMax(QDate(2030, 1, 1));
        QCOMPARE(host->click(host->editorPoint(0))->palette().color(QPalette::Base), colour);
        auto *box = qobject_cast<QDateEdit *>(host->click(host->namePoint(1)));
        QVERIFY(box);
        QVERIFY(box->palette().color(QPalette::Base) != colour);
        QVERIFY(box->maximumDate() != QDate(2030, 1, 1));
        date->setMin(QDate(2020, 1, 1));
        date->setMax(QDate(2030, 1, 1));
        QCOMPARE(box->minimumDate(), QDate(2020, 1, 1));
        QCOMPARE(box->maximumDate(), QDate(2030, 1, 1));
    }

    void editorsAreNamedForScreenReaders_data()
    {
        auto row = columns<int>();
        for (int type = ftText; type <= ftMemo; ++type)
            row(QMetaEnum::fromType<lFieldTypes>().valueToKey(type), type);
    }
    void editorsAreNamedForScreenReaders()
    {
        const auto [type] = fetch<int>();
        host->add("Port", lFieldTypes(type), {}, "Port the server listens on");
        host->click(host->namePoint(0));
        int named = 0;
        for (const QWidget *part : host->grid->findChildren<QWidget *>()) {
            if (part->focusPolicy() == Qt::NoFocus)
                continue;
            QCOMPARE(part->accessibleName(), QStringLiteral("Port"));
            QCOMPARE(part->accessibleDescription(), QStringLiteral("Port the server listens on"));
            ++named;
        }
        QVERIFY(named > 0);
    }

    // The list's item data is the number the key starts with; the last Add decides the flag.
    void dropDownEntriesFillTheList_data()
    {
        auto row = columns<QStringList, QStringList, QList<int>, bool>();
        row("keyed then keyless", { "10", "" }, { "10", "1" }, { 10, 1 }, false);
        row("keyless then keyed", { "", "7" }, { "1", "7" }, { 1, 7 }, true);
        row("text key", { "abc" }, { "abc" }, { 0 }, true);
        row("number then text", { "12kg" }, { "12kg" }, { 12 }, true);
    }
    void dropDownEntriesFillTheList()
    {
        const auto [keys, storedKeys, itemData, flag]
            = fetch<QStringList, QStringList, QList<int>, bool>();
        DropDownValues *values = host->add("Unit", ftCombo)->DropDownValues();
        for (int i = 0; i < keys.size(); ++i)
            QCOMPARE(values->Add(keys[i], QStringLiteral("entry %1").arg(i))->Key(), storedKeys[i]);
        QCOMPARE(values->UseComboItemData(), flag);
        host->click(host->namePoint(0));
        auto *list = host->grid->findChild<QComboBox *>();
        QVERIFY(list);
        QCOMPARE(list->count(), keys.size());
        for (int i = 0; i < keys.size(); ++i) {
            QCOMPARE(list->itemText(i), QStringLiteral("entry %1").arg(i));
            QCOMPARE(list->itemData(i).toInt(), itemData[i]);
        }
    }

    // A miss is reported in the collection's name; a removed entry stays listed (intended).
    void collectionsFindByKeyInAnyCase()
    {
        Fields *fields = host->grid->Fields();
        Field *port = host->add("Port"), *name = host->add("name"),
              *mode = host->add("Mode", ftCombo);
        DropDownValues *values = mode->DropDownValues();
        DropDownValue *one = values->Add({}, "One"), *fast = values->Add("Fast", "Fast mode");
        // A key that reads as a number is still a key when given as text.
        DropDownValue *three = values->Add("3", "Three");
        QCOMPARE(fields->Item("PORT"), port);
        QCOMPARE(fields->Item(qint16(2)), name);
        QCOMPARE(host->each(), QStringList({ "Port", "name", "Mode" }));
        QCOMPARE(values->Item("FAST"), fast);
        QCOMPARE(values->Item("3"), three);
        QCOMPARE(values->Item(1), one);
        ErrorRecorder errors;
        QVERIFY(!values->Add("fast", "Second"));
        QCOMPARE(errors.errors.first().number, 457);
        QCOMPARE(errors.sources(), { "Function 'Add' of Class Module 'DropDownValues'" });
        for (const QVariant &missing : { QVariant("nothing"), QVariant(0), QVariant(4) }) {
            QVERIFY(!fields->Item(missing) && !values->Item(missing));
            fields->Remove(missing);
            values->Remove(missing);
        }
        const QStringList once { "Property 'Item' of Class Module 'Fields'",
            "Property 'Item' of Class Module 'DropDownValues'",
            "Sub 'Remove' of Class Module 'Fields'",
            "Sub 'Remove' of Class Module 'DropDownValues'" };
        QCOMPARE(errors.sources().mid(1), once + once + once);
        QCOMPARE(fields->Count(), 3);
        values->Remove(1);
        QCOMPARE(values->Item(1), fast);
        QCOMPARE(QList<DropDownValue *>(values->begin(), values->end()),
            (QList<DropDownValue *> { fast, three }));
        values->Remove("fast");
        QCOMPARE(values->Count(), 1);
        // The key counter is never reset, and a removed key can be used again.
        QCOMPARE(values->Add({}, "Two")->Key(), QStringLiteral("2"));
        QVERIFY(values->Add("FAST", "Fast again"));
        host->click(host->namePoint(2));
        QCOMPARE(host->grid->findChild<QComboBox *>()->count(), 5);
    }

    // Filter goes to the file selector unguarded, so a text row reports it (intended); a
    // collection without its owner reports a missing object.
    void membersOutOfTheirPlace()
    {
        Field *text = host->add("Host");
        ErrorRecorder errors;
        QVERIFY(!text->DropDownValues()->Add("a", "A"));
        QCOMPARE(text->DropDownValues()->Count(), 0);
        text->setInitDir("/tmp");
        text->setTitle("Pick");
        QCOMPARE(text->InitDir() + text->Title(), QString());
        QVERIFY(errors.errors.isEmpty());
        text->setFilter("Text|*.txt");
        QCOMPARE(errors.sources(), { "Property 'Filter' of Class Module 'Field'" });
        DropDownValues orphanValues;
        QVERIFY(!orphanValues.Add("a", "A"));
        QCOMPARE(errors.sources().last(), "Function 'Add' of Class Module 'DropDownValues'");
        Fields orphanFields;
        MessageRecorder messages;
        QVERIFY(!orphanFields.Add("Port", ftText));
        QVERIFY(errors.sources().contains("Property 'FieldType' of Class Module 'Field'"));
        QCOMPARE(errors.sources().last(), "Function 'Add' of Class Module 'Fields'");
        for (const ReportedError &error : errors.errors)
            QCOMPARE(error.number, 91);
        QCOMPARE(orphanFields.Count(), 0);
    }

    // Remove lets go of the row's editor, so a later write is reported; Clear keeps the editors.
    void removeAndClearTakeRowsOut()
    {
        host->addRows(3);
        Fields *fields = host->grid->Fields();
        QPointer<Field> removed = fields->Item(1);
        Field *cleared = fields->Item(3);
        fields->Remove("ROW1");
        QCOMPARE(fields->Item(1)->Name(), QStringLiteral("Row2"));
        QVERIFY(!removed->Visible());
        ErrorRecorder errors;
        removed->setValue("new");
        QCOMPARE(errors.errors.size(), 1);
        QCOMPARE(errors.errors.first().number, 91);
        fields->Clear();
        QCOMPARE(fields->Count(), 0);
        QVERIFY(!cleared->Visible());
        cleared->setValue("new");
        QCOMPARE(errors.errors.size(), 1);
        host->add("Again", ftText, "again");
        QCOMPARE(host->textAt(0), QStringLiteral("again"));
        QCoreApplication::processEvents();
        QVERIFY(removed);
    }
};

QTEST_MAIN(tst_FieldModel)
#include "tst_FieldModel.moc"
