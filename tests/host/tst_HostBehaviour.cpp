// What a host meets when it uses the grid through its public API, in a shown window with real
// key presses and clicks: the behaviour that the README's "Behaviour a host should know" lists.
// Rows are reached where a user sees them: row k's top is k times (RowHeight - 15) twips, its
// name cell starts at 0 and its editor at FieldNameWidth - 25.

#include <kwFieldDeck/kwFieldDeck>

#include <QApplication>
#include <QLineEdit>
#include <QScreen>
#include <QScrollBar>
#include <QSignalSpy>
#include <QtTest>

#include <type_traits>

using namespace kwFieldDeck;

namespace {

int pixels(double twips)
{
    return int(twips * QGuiApplication::primaryScreen()->logicalDotsPerInchY() / 1440.0);
}

// A window with one flat grid in it, shown and active.
struct Host
{
    explicit Host(int heightInRows = 8)
    {
        window.resize(420, pixels(heightInRows * 300.0) + 6);
        grid = new kwPropertyControl(&window);
        grid->setAppearance(kwPropertyControl::Flat);
        grid->setGeometry(0, 0, 420, window.height());
        window.show();
        QApplication::setActiveWindow(&window);
        shown = QTest::qWaitForWindowActive(&window);
    }

    Field *add(const QString &name, lFieldTypes type = ftText, const QString &value = {})
    {
        return grid->Fields()->Add(name, type, 0, value);
    }

    void addRows(int count, const QString &prefix = QStringLiteral("Row"))
    {
        for (int i = 0; i < count; ++i)
            add(prefix + QString::number(i), ftText, QStringLiteral("v%1").arg(i));
    }

    QPoint rowPoint(int index, double xTwips) const
    {
        const double pitch = grid->RowHeight() - 15;
        return QPoint(pixels(xTwips), pixels(index * pitch) + pixels(grid->RowHeight()) / 2);
    }
    QPoint editorPoint(int index) const
    {
        return rowPoint(index, grid->FieldNameWidth() - 25 + 300);
    }
    QPoint namePoint(int index) const { return rowPoint(index, 150); }
    // The middle of a row's editor, where a check box row has its box: the editor ends 40
    // twips before the scroll bar, which is 255 wide.
    QPoint boxPoint(int index) const
    {
        const double gridWidth
            = grid->width() * 1440.0 / QGuiApplication::primaryScreen()->logicalDotsPerInchX();
        const double left = grid->FieldNameWidth() - 25;
        const double right = gridWidth - 255 - 40;
        return rowPoint(index, (left + right) / 2);
    }

    // Moves the mouse there and clicks whatever widget the user would hit.
    void click(const QPoint &inGrid)
    {
        QTest::mouseMove(grid, inGrid);
        QWidget *target = grid->childAt(inGrid);
        if (!target)
            target = grid;
        QTest::mouseClick(target, Qt::LeftButton, {}, target->mapFrom(grid, inGrid));
        QApplication::processEvents();
    }

    // The text of the line edit that has the focus inside the grid, or "(none)".
    static QString focusedText()
    {
        QWidget *focus = QApplication::focusWidget();
        if (auto *edit = qobject_cast<QLineEdit *>(focus))
            return edit->text();
        if (focus) {
            if (auto *inner = focus->findChild<QLineEdit *>())
                return inner->text();
        }
        return QStringLiteral("(none)");
    }

    QString textAt(int index)
    {
        click(editorPoint(index));
        return focusedText();
    }

    void type(const QString &text)
    {
        if (QWidget *focus = QApplication::focusWidget())
            QTest::keyClicks(focus, text);
        QApplication::processEvents();
    }

    QScrollBar *scrollBar() const { return grid->findChild<QScrollBar *>(); }

    QWidget window;
    kwPropertyControl *grid = nullptr;
    bool shown = false;
};

class ErrorRecorder
{
public:
    ErrorRecorder()
        : m_previous(setErrorReportHandler(
            [this](int number, const QString &, const QString &) { numbers << number; }))
    {
    }
    ~ErrorRecorder() { setErrorReportHandler(std::move(m_previous)); }
    ErrorRecorder(const ErrorRecorder &) = delete;
    ErrorRecorder &operator=(const ErrorRecorder &) = delete;
    QList<int> numbers;

private:
    ErrorReportHandler m_previous;
};

class MessageRecorder
{
public:
    MessageRecorder()
        : m_previous(setMessageBoxHandler([this](const QString &prompt, int, const QString &) {
            prompts << prompt;
            return MsgBoxResult::OK;
        }))
    {
    }
    ~MessageRecorder() { setMessageBoxHandler(std::move(m_previous)); }
    MessageRecorder(const MessageRecorder &) = delete;
    MessageRecorder &operator=(const MessageRecorder &) = delete;
    QStringList prompts;

private:
    MessageBoxHandler m_previous;
};

QStringList names(kwPropertyControl *grid)
{
    QStringList all;
    for (Field *field : *grid->Fields())
        all << field->Name();
    return all;
}

} // namespace

class tst_HostBehaviour : public QObject
{
    Q_OBJECT
private slots:
    // QWidget::setEnabled(false) greys the whole grid and keeps keys and clicks from its rows;
    // the stored Enabled flag does neither.
    void disabledGridTakesNoInput_data()
    {
        QTest::addColumn<QString>("how");
        QTest::addColumn<bool>("takesInput");
        QTest::newRow("enabled") << "none" << true;
        QTest::newRow("setEnabled(false)") << "widget" << false;
        QTest::newRow("stored flag false") << "stored" << true;
    }
    void disabledGridTakesNoInput()
    {
        QFETCH(QString, how);
        QFETCH(bool, takesInput);
        Host host;
        QVERIFY(host.shown);
        Field *text = host.add("Host", ftText, "abc");
        Field *check = host.add("On", ftCheckBox, "0");
        host.grid->Refresh(true);
        QApplication::processEvents();
        if (how == "widget")
            host.grid->setEnabled(false);
        else if (how == "stored")
            host.grid->setStoredEnabled(false);
        QApplication::processEvents();
        // Every part of every row is in Qt's disabled state, which styles paint greyed.
        for (const QWidget *part : host.grid->findChildren<QWidget *>()) {
            if (part->objectName() != QLatin1String("VScroll1"))
                QVERIFY2(part->isEnabled() == takesInput, qPrintable(part->objectName()));
        }
        QSignalSpy changed(host.grid, &kwPropertyControl::Changed);

        host.click(host.editorPoint(0));
        QTest::keyClick(
            QApplication::focusWidget() ? QApplication::focusWidget() : host.grid, Qt::Key_End);
        host.type("x");
        host.click(host.boxPoint(1));
        QCOMPARE(text->Value().toString(), takesInput ? "abcx" : "abc");
        QCOMPARE(check->Value().toInt(), takesInput ? 1 : 0);
        QCOMPARE(changed.isEmpty(), !takesInput);
    }

    // A click beside a check box, which ticks it on an enabled grid, does nothing on a
    // disabled one.
    void disabledGridIgnoresAClickBesideACheckBox()
    {
        Host host;
        QVERIFY(host.shown);
        Field *check = host.add("On", ftCheckBox, "0");
        host.grid->Refresh(true);
        host.click(host.editorPoint(0));
        QCOMPARE(check->Value().toInt(), 1);
        host.grid->setEnabled(false);
        host.click(host.editorPoint(0));
        QCOMPARE(check->Value().toInt(), 1);
    }

    // A font set on the grid in any of Qt's ways reaches the rows there are and the rows to come.
    void fontSetOnTheGridReachesEveryRow_data()
    {
        QTest::addColumn<QString>("how");
        QTest::newRow("setFont") << "setFont";
        QTest::newRow("Font property") << "property";
        QTest::newRow("from the parent") << "parent";
    }
    void fontSetOnTheGridReachesEveryRow()
    {
        QFETCH(QString, how);
        Host host;
        QVERIFY(host.shown);
        host.add("Before", ftText, "before");
        const QFont font(QStringLiteral("DejaVu Serif"), 15);
        if (how == "setFont")
            host.grid->setFont(font);
        else if (how == "property")
            QVERIFY(host.grid->setProperty("Font", font));
        else
            host.window.setFont(font);
        host.add("After", ftText, "after");
        host.grid->Refresh(true);
        QCOMPARE(host.grid->Font(), host.grid->font());
        for (int row : { 0, 1 }) {
            host.click(host.editorPoint(row));
            QVERIFY(QApplication::focusWidget());
            QCOMPARE(QApplication::focusWidget()->font().family(), font.family());
            QCOMPARE(QApplication::focusWidget()->font().pointSize(), 15);
        }
    }

    // The definition property shows its own fields: a new text takes out the fields the last one
    // added and leaves the host's fields alone.
    void definitionPropertyReplacesOnlyItsOwnFields_data()
    {
        QTest::addColumn<QString>("second");
        QTest::addColumn<QStringList>("fields");
        const QString oneField = QStringLiteral("ADDFIELD B\nTYPE=TEXT\nVALUE=b\nENDFIELD");
        QTest::newRow("another text") << oneField << QStringList { "Code", "Later", "B" };
        QTest::newRow("CR LF lines")
            << QString(oneField).replace("\n", "\r\n") << QStringList { "Code", "Later", "B" };
        QTest::newRow("empty text") << QString() << QStringList { "Code", "Later" };
        QTest::newRow("the same name again")
            << QStringLiteral("ADDFIELD A1\nTYPE=NUMERIC\nVALUE=7\nENDFIELD")
            << QStringList { "Code", "Later", "A1" };
    }
    void definitionPropertyReplacesOnlyItsOwnFields()
    {
        QFETCH(QString, second);
        QFETCH(QStringList, fields);
        Host host;
        QVERIFY(host.shown);
        host.add("Code", ftText, "code");
        const QString first = QStringLiteral("ADDFIELD A1\nTYPE=TEXT\nVALUE=a1\nENDFIELD\n"
                                             "ADDFIELD A2\nTYPE=CHECKBOX\nVALUE=1\nENDFIELD");
        QVERIFY(host.grid->setProperty("definition", first));
        host.add("Later", ftText, "later");
        QCOMPARE(names(host.grid), QStringList({ "Code", "A1", "A2", "Later" }));
        QCOMPARE(host.grid->definition(), first);
        MessageRecorder messages;
        host.grid->setDefinition(second);
        QVERIFY(messages.prompts.isEmpty());
        QCOMPARE(host.grid->property("definition").toString(), second);
        QCOMPARE(names(host.grid), fields);
        // The rows are laid out again: the remaining rows close up, in order.
        for (int row = 0; row < fields.size(); ++row) {
            const QString value = host.grid->Fields()->Item(row + 1)->Value().toString();
            if (host.grid->Fields()->Item(row + 1)->FieldType() == ftText)
                QCOMPARE(host.textAt(row), value);
        }
    }

    // A check box row's Enabled is stored, but its box keeps taking clicks; other rows refuse.
    void checkBoxRowEnabledIsOnlyStored_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QString>("value");
        QTest::addColumn<QString>("afterInput");
        QTest::newRow("check box") << int(ftCheckBox) << "0"
                                   << "1";
        QTest::newRow("text") << int(ftText) << "abc"
                              << "abc";
    }
    void checkBoxRowEnabledIsOnlyStored()
    {
        QFETCH(int, type);
        QFETCH(QString, value);
        QFETCH(QString, afterInput);
        Host host;
        QVERIFY(host.shown);
        host.add("First", ftText, "first");
        Field *field = host.add("Disabled", lFieldTypes(type), value);
        host.grid->Refresh(true);
        field->setEnabled(false);
        QVERIFY(!field->Enabled());
        host.click(host.editorPoint(0));
        host.click(host.editorPoint(1));
        host.type("x");
        QCOMPARE(field->Value().toString(), afterInput);
    }

    // Text typed into a file or folder row's box is not its value; only the dialog sets that.
    void fileRowValueComesOnlyFromTheDialog_data()
    {
        QTest::addColumn<int>("type");
        QTest::newRow("file") << int(ftFileSelector);
        QTest::newRow("folder") << int(ftFolderSelector);
    }
    void fileRowValueComesOnlyFromTheDialog()
    {
        QFETCH(int, type);
        Host host;
        QVERIFY(host.shown);
        Field *field = host.add("Path", lFieldTypes(type), "/tmp");
        host.grid->Refresh(true);
        host.click(host.editorPoint(0));
        QVERIFY(qobject_cast<QLineEdit *>(QApplication::focusWidget()));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_End);
        host.type("/typed");
        QCOMPARE(Host::focusedText(), QStringLiteral("/tmp/typed"));
        QCOMPARE(field->Value().toString(), QStringLiteral("/tmp"));
    }

    // setFirstRow() moves the rows in view; the scroll bar stays where it was.
    void firstRowFromCodeLeavesTheScrollBar()
    {
        Host host(5);
        QVERIFY(host.shown);
        host.addRows(12);
        host.grid->Refresh(true);
        QVERIFY(host.scrollBar() && host.scrollBar()->maximum() > 0);
        QCOMPARE(host.textAt(0), QStringLiteral("v0"));
        host.grid->setFirstRow(4);
        QApplication::processEvents();
        QCOMPARE(host.grid->FirstRow(), qint16(4));
        QCOMPARE(host.scrollBar()->value(), 0);
        QCOMPARE(host.textAt(0), QStringLiteral("v4"));
    }

    // The first row and the scroll range are 16-bit numbers: past 32,767 the range overflows.
    void scrollRangeOverflowsPast32767Rows_data()
    {
        QTest::addColumn<int>("rows");
        QTest::addColumn<bool>("overflows");
        QTest::newRow("32,000") << 32000 << false;
        QTest::newRow("33,000") << 33000 << true;
    }
    void scrollRangeOverflowsPast32767Rows()
    {
        static_assert(
            std::is_same_v<decltype(std::declval<kwPropertyControl>().FirstRow()), qint16>);
        QFETCH(int, rows);
        QFETCH(bool, overflows);
        Host host(5);
        QVERIFY(host.shown);
        QString definition;
        for (int i = 0; i < rows; ++i)
            definition += QStringLiteral("ADDFIELD R%1\r\nTYPE=TEXT\r\nENDFIELD\r\n").arg(i);
        host.grid->ReadDef(definition);
        QCOMPARE(host.grid->Fields()->Count(), rows);
        ErrorRecorder errors;
        host.grid->Refresh(true);
        QCOMPARE(errors.numbers.contains(6), overflows);
        if (!overflows)
            QVERIFY(host.scrollBar()->maximum() > 31000);
    }

    // Fields::Clear() keeps the scroll position, so rows added afterwards do not show from the
    // top; setFirstRow(0) brings the first row back.
    void clearKeepsTheScrollPosition()
    {
        Host host(5);
        QVERIFY(host.shown);
        host.addRows(12);
        host.grid->Refresh(true);
        host.scrollBar()->setValue(4);
        QCOMPARE(host.grid->FirstRow(), qint16(4));
        host.grid->Fields()->Clear();
        QCOMPARE(host.grid->FirstRow(), qint16(4));
        QCOMPARE(host.scrollBar()->value(), 4);
        host.addRows(12, QStringLiteral("New"));
        host.grid->Refresh(true);
        const int first = host.grid->FirstRow();
        QVERIFY(first > 0);
        QCOMPARE(host.textAt(0), QStringLiteral("v%1").arg(first));
        host.grid->setFirstRow(0);
        QCOMPARE(host.textAt(0), QStringLiteral("v0"));
    }

    // Refresh() without true leaves the rows where they are: a hidden or removed row leaves a
    // gap until Refresh(true).
    void onlyAFullRefreshClosesAGap_data()
    {
        QTest::addColumn<bool>("remove");
        QTest::newRow("hidden") << false;
        QTest::newRow("removed") << true;
    }
    void onlyAFullRefreshClosesAGap()
    {
        QFETCH(bool, remove);
        Host host;
        QVERIFY(host.shown);
        host.addRows(3);
        host.grid->Refresh(true);
        if (remove)
            host.grid->Fields()->Remove(2);
        else
            host.grid->Fields()->Item(2)->setVisible(false);
        host.grid->Refresh();
        QCOMPARE(host.textAt(2), QStringLiteral("v2"));
        host.grid->Refresh(true);
        QCOMPARE(host.textAt(1), QStringLiteral("v2"));
    }

    // Rows added after a layout are placed at once but scroll into reach only after
    // Refresh(true).
    void newRowsEnterTheScrollRangeAtTheNextFullRefresh()
    {
        Host host(5);
        QVERIFY(host.shown);
        host.addRows(2);
        host.grid->Refresh(true);
        QVERIFY(!host.scrollBar()->isEnabled());
        host.addRows(10, QStringLiteral("More"));
        host.grid->Refresh();
        QApplication::processEvents();
        QVERIFY(!host.scrollBar()->isEnabled());
        host.grid->Refresh(true);
        QVERIFY(host.scrollBar()->isEnabled());
        QVERIFY(host.scrollBar()->maximum() >= 12 - 5);
    }

    // Setting Min of an enabled text field moves the focus into it; other types only store it.
    void textFieldMinTakesTheFocus_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<bool>("moves");
        QTest::newRow("text") << int(ftText) << true;
        QTest::newRow("numeric") << int(ftNumeric) << false;
    }
    void textFieldMinTakesTheFocus()
    {
        QFETCH(int, type);
        QFETCH(bool, moves);
        Host host;
        QVERIFY(host.shown);
        Field *first = host.add("First", lFieldTypes(type), "7");
        host.add("Second", ftText, "second");
        host.grid->Refresh(true);
        QCOMPARE(host.textAt(1), QStringLiteral("second"));
        first->setMin(1);
        QApplication::processEvents();
        QCOMPARE(Host::focusedText(), moves ? "7" : "second");
    }

    // A duplicate name is refused with a message, but its row stays on the grid below the last
    // row, where the next field's row then covers it.
    void duplicateNameLeavesItsRow()
    {
        Host host;
        QVERIFY(host.shown);
        QVERIFY(host.add("Port", ftText, "80"));
        {
            MessageRecorder messages;
            QVERIFY(!host.add("port", ftText, "refused"));
            QCOMPARE(messages.prompts,
                QStringList { QStringLiteral("Field: port already exists in Fields Collection!") });
        }
        QCOMPARE(host.grid->Fields()->Count(), 1);
        QCOMPARE(host.textAt(1), QStringLiteral("refused"));
        host.add("Next", ftText, "next");
        host.grid->Refresh(true);
        QCOMPARE(host.textAt(1), QStringLiteral("next"));
    }

    // A drop-down raises Changed when its row takes the focus, with no value changed, and when
    // the host sets the entry already chosen.
    void dropDownRaisesChangedOnFocus()
    {
        Host host;
        QVERIFY(host.shown);
        host.add("Name", ftText, "n");
        Field *size = host.add("Size", ftCombo);
        size->DropDownValues()->Add("1", "Small");
        size->DropDownValues()->Add("2", "Large");
        size->setValue("2");
        host.grid->Refresh(true);
        host.click(host.editorPoint(0));
        QSignalSpy changed(host.grid, &kwPropertyControl::Changed);
        host.click(host.namePoint(1));
        QVERIFY(!changed.isEmpty());
        QCOMPARE(changed.first().first().value<Field *>(), size);
        QCOMPARE(size->Value().toString(), QStringLiteral("2"));
        changed.clear();
        size->setValue("2");
        QCOMPARE(changed.size(), 1);
    }

    // The grid's own input signals are declared and never raised: input belongs to the rows.
    void gridInputSignalsAreNeverRaised()
    {
        Host host;
        QVERIFY(host.shown);
        Field *text = host.add("Name", ftText, "n");
        host.grid->Refresh(true);
        int raised = 0;
        const auto count = [&raised] { ++raised; };
        connect(host.grid, &kwPropertyControl::Click, this, count);
        connect(host.grid, &kwPropertyControl::DblClick, this, count);
        connect(host.grid, &kwPropertyControl::KeyDown, this, count);
        connect(host.grid, &kwPropertyControl::KeyPress, this, count);
        connect(host.grid, &kwPropertyControl::KeyUp, this, count);
        connect(host.grid, &kwPropertyControl::MouseDown, this, count);
        connect(host.grid, &kwPropertyControl::MouseMove, this, count);
        connect(host.grid, &kwPropertyControl::MouseUp, this, count);
        host.click(host.editorPoint(0));
        host.click(host.namePoint(3));
        host.click(host.editorPoint(0));
        host.type("xy");
        QCOMPARE(text->Value().toString(), QStringLiteral("nxy"));
        QCOMPARE(raised, 0);
    }

    // A slider's value is given before its limits, while its range is still 0 to 10, so a
    // definition's VALUE beyond 10 arrives as 10; a host that sets the limits first keeps it.
    void sliderValueIsTakenBeforeItsRange_data()
    {
        QTest::addColumn<QString>("how");
        QTest::addColumn<int>("value");
        QTest::newRow("definition") << "definition" << 10;
        QTest::newRow("Fields::Add") << "add" << 10;
        QTest::newRow("limits first") << "limits first" << 30;
    }
    void sliderValueIsTakenBeforeItsRange()
    {
        QFETCH(QString, how);
        QFETCH(int, value);
        Host host;
        QVERIFY(host.shown);
        Field *slider = nullptr;
        if (how == "definition") {
            slider = host.grid->AddFieldByDefString(QStringLiteral(
                "ADDFIELD Timeout\r\nTYPE=SLIDER\r\nMIN=1\r\nMAX=120\r\nVALUE=30\r\nENDFIELD"));
        } else {
            slider = host.add("Timeout", ftSlider, how == "add" ? "30" : "");
            slider->setMin(1);
            slider->setMax(120);
            if (how != "add")
                slider->setValue(30);
        }
        QVERIFY(slider);
        QCOMPARE(slider->Max().toInt(), 120);
        QCOMPARE(slider->Value().toInt(), value);
        host.grid->Refresh(true);
        QCOMPARE(host.textAt(0), QString::number(value));
    }

    // A name column that leaves no room for the scroll bar is refused without a word.
    void tooWideANameColumnIsIgnored()
    {
        Host host;
        QVERIFY(host.shown);
        ErrorRecorder errors;
        host.grid->setFieldNameWidth(1200);
        QCOMPARE(host.grid->FieldNameWidth(), 1200.0f);
        host.grid->setFieldNameWidth(20000);
        QCOMPARE(host.grid->FieldNameWidth(), 1200.0f);
        QVERIFY(errors.numbers.isEmpty());
    }
};

QTEST_MAIN(tst_HostBehaviour)
#include "tst_HostBehaviour.moc"
