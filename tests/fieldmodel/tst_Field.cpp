// One row's field: the set-once type, the value conventions of each type, its limits and look.

#include "grid/UserGrid.h"

#include "editors/kwSimpleCheck.h"
#include "fieldmodel/DropDownValues_p.h"
#include "fieldmodel/lFieldTypes_p.h"

#include <QClipboard>
#include <QLineEdit>
#include <QtTest>

using namespace kwFieldDeck;
using kwFieldDeck::test::GridHost;
using kwFieldDeck::test::UserGrid;

enum UserInput { Typed, PastedByKey, PastedFromMenu };

// What the type's editor shows: text, check or slider value, combo position or picker date.
static QString shownBy(Field *field)
{
    const EditorState &shown = GridHost::state(field);
    switch (field->FieldType()) {
    case ftText:
    case ftNumeric:
        return shown.text;
    case ftCheckBox:
        return QString::number(shown.check);
    case ftCombo:
        return QString::number(shown.listIndex);
    case ftDate:
        return shown.date.toString(Qt::ISODate);
    case ftSlider:
        return QString::number(shown.number);
    default:
        return QString();
    }
}

// The rows on the grid's canvas, hidden ones and those of earlier types too.
static qsizetype rowsOn(const GridHost &host)
{
    return host.d()->canvasRows().size();
}

class tst_Field : public QObject
{
    Q_OBJECT

private slots:
    void typeIsSetOnceButStillChanges()
    {
        GridHost host;
        Field *field = host.add("Port");
        const qsizetype rows = rowsOn(host);
        test::MessageRecorder messages;
        field->setFieldType(ftText);
        QCOMPARE(rowsOn(host), rows);
        field->setFieldType(ftNumeric);
        const QString warning
            = "Field:Port\r\nCan't Change Field Type once it has already been set!";
        QCOMPARE(messages.prompts(), QStringList({ warning, warning }));
        QCOMPARE(messages.messages.last().style, MsgBoxStyle::OKOnly);
        QCOMPARE(messages.messages.last().title, QString());
        QCOMPARE(field->FieldType(), qint32(ftNumeric));
        // The earlier name cell and editor stay on the grid: intended.
        QCOMPARE(rowsOn(host), rows + 1);
        QCOMPARE(host.d()->canvasRows().at(rows - 1).field, field);
        QVERIFY(host.row(field).top > host.d()->canvasRows().at(rows - 1).top);
    }

    void valueFollowsTheConventionOfItsType_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QStringList>("keys");
        QTest::addColumn<QString>("before");
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<QString>("read");
        auto row
            = [](const char *name, lFieldTypes type, const QString &before, const QVariant &value,
                  const char *shown, const char *read, const QStringList &keys = {}) {
                  QTest::newRow(name) << int(type) << keys << before << value << shown << read;
              };
        row("text 16-bit", ftText, "", int16Value(42), "42", "42");
        row("text date", ftText, "", QDate(2024, 3, 1), "2024-03-01", "2024-03-01");
        row("text keeps out a boolean", ftText, "before", true, "before", "true");
        row("text keeps out empty", ftText, "before", QVariant(), "before", "");
        // An editor that changes runs its change chain, which stores the editor's own value.
        row("numeric 12abc", ftNumeric, "", "12abc", "12", "12");
        row("numeric abc", ftNumeric, "", "abc", "0", "abc");
        row("numeric 3.7xyz", ftNumeric, "", "3.7xyz", "3.7", "3.7");
        row("check true ", ftCheckBox, "", "true ", "1", "1");
        row("check yes clears", ftCheckBox, "1", "yes", "0", "0");
        row("check yes on a clear box", ftCheckBox, "", "yes", "0", "yes");
        row("check TRUE on a ticked box", ftCheckBox, "1", "TRUE", "1", "1");
        row("slider 3.7xyz", ftSlider, "", "3.7xyz", "4", "4");
        row("date not a date", ftDate, "2024-03-01", "no date", "2024-03-01", "no date");
        row("date", ftDate, "2024-03-01", QDate(2025, 1, 2), "2025-01-02", "2025-01-02");
        row("combo all keyed reads item data", ftCombo, "", "20", "1", "20", { "10", "20" });
        row("combo keyless last reads the text", ftCombo, "", "1", "1", "entry 1", { "10", "" });
    }

    void valueFollowsTheConventionOfItsType()
    {
        QFETCH(int, type);
        QFETCH(QStringList, keys);
        QFETCH(QString, before);
        QFETCH(QVariant, value);
        QFETCH(QString, shown);
        QFETCH(QString, read);
        GridHost host;
        Field *field = host.add("Row", lFieldTypes(type), before);
        for (int i = 0; i < keys.size(); ++i)
            field->DropDownValues()->Add(keys[i], QStringLiteral("entry %1").arg(i));
        field->setValue(value);
        QCOMPARE(shownBy(field), shown);
        QCOMPARE(field->Value().toString(), read);
    }

    // The host's write runs the same chain as an edit: the field's Changed, then the grid's, once
    // the editor shows the new value; a write the editor does not take raises nothing.
    void hostWriteRunsTheChangeChainOnce_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<int>("changes");
        auto row = [](const char *name, lFieldTypes type, const QVariant &value, const char *shown,
                       int changes) {
            QTest::newRow(name) << int(type) << value << QString::fromLatin1(shown) << changes;
        };
        row("text", ftText, "new", "new", 1);
        row("text unchanged", ftText, "old", "old", 0);
        row("numeric", ftNumeric, "12", "12", 1);
        row("check", ftCheckBox, "1", "1", 1);
        row("check unchanged", ftCheckBox, "0", "0", 0);
        row("combo", ftCombo, "20", "1", 1);
        row("date", ftDate, QDate(2025, 1, 2), "2025-01-02", 1);
        row("date that is no date", ftDate, "soon", "2024-03-01", 0);
        row("slider", ftSlider, "7", "7", 1);
    }

    void hostWriteRunsTheChangeChainOnce()
    {
        QFETCH(int, type);
        QFETCH(QVariant, value);
        QFETCH(QString, shown);
        QFETCH(int, changes);
        GridHost host;
        const lFieldTypes fieldType = lFieldTypes(type);
        const QString before = fieldType == ftDate ? QStringLiteral("2024-03-01")
            : fieldType == ftText                  ? QStringLiteral("old")
                                                   : QString();
        Field *field = host.add("Row", fieldType, before);
        if (fieldType == ftCombo) {
            field->DropDownValues()->Add(QStringLiteral("10"), QStringLiteral("ten"));
            field->DropDownValues()->Add(QStringLiteral("20"), QStringLiteral("twenty"));
        }
        QStringList heard;
        connect(field, &Field::Changed, this, [&](const QVariant &changedTo) {
            heard << QStringLiteral("field %1 shown %2").arg(changedTo.toString(), shownBy(field));
            QCOMPARE(field->Value(), changedTo);
        });
        connect(host.grid, &kwPropertyControl::Changed, this,
            [&](Field *changed) { heard << QStringLiteral("grid %1").arg(changed->Name()); });
        field->setValue(value);
        QStringList expected;
        for (int i = 0; i < changes; ++i)
            expected << QStringLiteral("field %1 shown %2").arg(field->Value().toString(), shown)
                     << QStringLiteral("grid Row");
        QCOMPARE(heard, expected);
        QCOMPARE(shownBy(field), shown);
    }

    void clickingACheckGivesOneSixteenBitChange()
    {
        UserGrid host;
        Field *field = host.add("Enabled", ftCheckBox);
        QSignalSpy gridChanged(host.grid, &kwPropertyControl::Changed);
        QSignalSpy fieldChanged(field, &Field::Changed);
        QTest::mouseClick(host.view(), Qt::LeftButton, {},
            host.view()->editorRect(FieldPrivate::get(field)->m_row).center());
        QCOMPARE(GridHost::state(field).check, qint16(1));
        QCOMPARE(gridChanged.count(), 1);
        QCOMPARE(fieldChanged.count(), 1);
        const QVariant changedTo = fieldChanged.first().first();
        QCOMPARE(changedTo.typeId(), QMetaType::Short);
        QCOMPARE(changedTo.toInt(), 1);
        QCOMPARE(field->Value(), changedTo);
    }

    void limitsReachDateAndSliderEditors()
    {
        GridHost host;
        Field *slider = host.add("Level", ftSlider);
        slider->setMin(2);
        slider->setMax("50");
        QCOMPARE(GridHost::state(slider).sliderMin, 2);
        QCOMPARE(GridHost::state(slider).sliderMax, 50);
        Field *field = host.add("Start", ftDate, "2024-03-01");
        const QDate latest = GridHost::state(field).maxDate;
        // Min is still the number 0, not a date, so Max does not reach the picker: intended.
        field->setMax(QDate(2030, 1, 1));
        QCOMPARE(GridHost::state(field).maxDate, latest);
        field->setMin(QDate(2020, 1, 1));
        QCOMPARE(GridHost::state(field).minDate, QDate(2020, 1, 1));
        field->setMax(QDate(2030, 1, 1));
        QCOMPARE(GridHost::state(field).maxDate, QDate(2030, 1, 1));
    }

    void sizeKeepsTextSetByTheProgramWhole_data()
    {
        QTest::addColumn<QString>("how");
        QTest::newRow("Add") << "Add";
        QTest::newRow("Value") << "Value";
        QTest::newRow("definition") << "definition";
    }

    void sizeKeepsTextSetByTheProgramWhole()
    {
        QFETCH(QString, how);
        GridHost host;
        const QString value = QStringLiteral("1234567890");
        if (how == "definition")
            host.grid->ReadDef(
                test::defText("ADDFIELD Code|TYPE=TEXT|SIZE=5|VALUE=" + value + "|ENDFIELD"));
        else
            host.grid->Fields()->Add("Code", ftText, 5, how == "Add" ? value : "12");
        Field *field = host.field("Code");
        QVERIFY(field);
        if (how == "Value")
            field->setValue(value);
        QCOMPARE(GridHost::state(field).maxLength, 5);
        QCOMPARE(GridHost::state(field).text, value);
        QCOMPARE(field->Value(), textValue(value));
    }

    void sizeLimitsWhatTheUserTypesOrPastes_data()
    {
        QTest::addColumn<QString>("before");
        QTest::addColumn<int>("selStart");
        QTest::addColumn<int>("selLength");
        QTest::addColumn<QString>("input");
        QTest::addColumn<UserInput>("how");
        QTest::addColumn<QString>("after");
        QTest::newRow("typing stops") << "" << 0 << 0 << "abcdefg" << Typed << "abcde";
        QTest::newRow("typing over a selection") << "abcde" << 1 << 2 << "xyz" << Typed << "axyde";
        QTest::newRow("longer set text takes no key")
            << "1234567" << 7 << 0 << "x" << Typed << "1234567";
        QTest::newRow("paste is cut") << "abc" << 3 << 0 << "123456" << PastedByKey << "abc12";
        QTest::newRow("paste over all")
            << "abcde" << 0 << 5 << "123456789" << PastedByKey << "12345";
        QTest::newRow("paste into a full box")
            << "abcde" << 2 << 0 << "x" << PastedByKey << "abcde";
        QTest::newRow("paste from the menu")
            << "ab" << 0 << 0 << "123456" << PastedFromMenu << "123ab";
    }

    void sizeLimitsWhatTheUserTypesOrPastes()
    {
        QFETCH(QString, before);
        QFETCH(int, selStart);
        QFETCH(int, selLength);
        QFETCH(QString, input);
        QFETCH(UserInput, how);
        QFETCH(QString, after);
        UserGrid host;
        QVERIFY(host.shown);
        Field *field = host.grid->Fields()->Add("Code", ftText, 5, before);
        field->SetFocus();
        auto *edit = qobject_cast<QLineEdit *>(host.editorOf(field));
        QVERIFY(edit);
        QTRY_VERIFY(edit->hasFocus());
        edit->setSelection(selStart, selLength);
        QGuiApplication::clipboard()->setText(input);
        if (how == Typed) {
            QTest::keyClicks(edit, input);
        } else if (how == PastedByKey) {
            QTest::keyClick(edit, Qt::Key_V, Qt::ControlModifier);
        } else {
            QContextMenuEvent menuEvent(
                QContextMenuEvent::Mouse, QPoint(2, 2), edit->mapToGlobal(QPoint(2, 2)));
            QCoreApplication::sendEvent(edit, &menuEvent);
            QTRY_VERIFY(QApplication::activePopupWidget());
            QWidget *menu = QApplication::activePopupWidget();
            const QList<QAction *> actions = menu->actions();
            auto paste = std::find_if(actions.begin(), actions.end(),
                [](QAction *action) { return action->text().startsWith("&Paste"); });
            QVERIFY(paste != actions.end());
            (*paste)->trigger();
            menu->close();
        }
        QCOMPARE(edit->text(), after);
        QCOMPARE(field->Value(), textValue(after));
    }

    void enabledVisibleAndColoursReachTheRow()
    {
        UserGrid host;
        Field *text = host.add("Host");
        Field *date = host.add("Start", ftDate);
        const EditorState dateBefore = GridHost::state(date);
        for (Field *field : { text, date }) {
            field->setEnabled(false);
            field->setBackColor(0x00FFEEDD);
            // A disabled row's editor is disabled when it is live.
            QVERIFY(!host.editorOf(field)->isEnabled());
            // A hidden row is not there for the pointer or the eye.
            const QPoint place
                = host.view()->nameCellRect(FieldPrivate::get(field)->m_row).center();
            QCOMPARE(host.view()->rowAt(place), FieldPrivate::get(field)->m_row);
            field->setVisible(false);
            QCOMPARE(host.view()->rowAt(place), qsizetype(-1));
        }
        QVERIFY(!GridHost::state(text).enabled);
        QVERIFY(!GridHost::state(date).enabled);
        QCOMPARE(GridHost::state(text).backColor, OleColor(0x00FFEEDD));
        // The date picker keeps its own colours: intended.
        QCOMPARE(GridHost::state(date).backColor, dateBefore.backColor);
        QCOMPARE(GridHost::state(date).colorsSet, false);
    }

    void membersForOtherTypesOnATextField()
    {
        UserGrid host;
        QVERIFY(host.shown);
        host.addRows(2);
        Field *text = host.grid->Fields()->Item(2);
        test::ErrorRecorder errors;
        text->setInitDir("/tmp");
        text->setTitle("Pick");
        QCOMPARE(text->InitDir(), QString());
        QCOMPARE(text->Title(), QString());
        QVERIFY(errors.errors.isEmpty());
        // Min moves the focus to a text field's box, and Filter goes to the file selector
        // unguarded, so a text field reports it: both intended.
        text->setMin(1);
        QCOMPARE(host.focusedField(), text);
        text->setFilter("Text|*.txt");
        QCOMPARE(errors.sources(), QStringList { "Property 'Filter' of Class Module 'Field'" });
        QCOMPARE(errors.errors.first().number, 91);
    }

    void killReleasesTheEditorButTheRowStays()
    {
        GridHost host;
        Field *text = host.add("Host", ftText, "abc");
        // Kill only lets go of the editor; the row stays on the grid as it was.
        FieldPrivate::get(text)->Kill();
        QVERIFY(!FieldPrivate::get(text)->editorKind());
        QVERIFY(FieldPrivate::get(text)->shownKind());
        QVERIFY(FieldPrivate::get(text)->hasNameCell());
        test::ErrorRecorder errors;
        text->setValue("new");
        QCOMPARE(GridHost::state(text).text, QStringLiteral("abc"));
        QCOMPARE(errors.errors.size(), 1);
        QCOMPARE(errors.errors.first().number, 91);
    }

    void editorsAreNamedForScreenReaders_data()
    {
        QTest::addColumn<int>("type");
        const QStringList names = fieldTypeNames().split(QLatin1Char(','));
        for (int type = ftText; type <= ftMemo; ++type)
            QTest::newRow(qPrintable(names[type - 1])) << type;
    }

    void editorsAreNamedForScreenReaders()
    {
        QFETCH(int, type);
        UserGrid host;
        Field *field = host.add("Port", lFieldTypes(type), {}, "TCP port");
        field->setDescription("Port the server listens on");
        // Every part of the row's live editor that takes the focus says which field it edits.
        QWidget *root = host.editorOf(field);
        QList<QWidget *> parts = root->findChildren<QWidget *>();
        parts.prepend(root);
        int named = 0;
        for (const QWidget *part : std::as_const(parts)) {
            if (part->focusPolicy() == Qt::NoFocus)
                continue;
            QCOMPARE(part->accessibleName(), QStringLiteral("Port"));
            QCOMPARE(part->accessibleDescription(), QStringLiteral("Port the server listens on"));
            ++named;
        }
        QVERIFY(named > 0);
    }
};

QTEST_MAIN(tst_Field)
#include "tst_Field.moc"
