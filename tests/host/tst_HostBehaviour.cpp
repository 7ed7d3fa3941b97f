// The README's "Behaviour a host should know", met through the public API in a shown window.

#include "ShownGrid.h"

#include <QDir>
#include <QLibraryInfo>
#include <QRegularExpression>
#include <QtTest>

using namespace kwFieldDeck;
using namespace kwFieldDeck::test;

namespace {
QString withoutComments(const QString &path)
{
    QString text = QString::fromUtf8(readFile(path));
    text.remove(QRegularExpression(
        QStringLiteral("/\\*.*?\\*/"), QRegularExpression::DotMatchesEverythingOption));
    return text.remove(QRegularExpression(QStringLiteral("//[^\\n]*")));
}

// The names a text declares or calls as functions (overrides and Qt macros left out), and its
// properties.
QSet<QString> namesIn(const QString &text)
{
    static const QRegularExpression name(QStringLiteral(
        "Q_PROPERTY\\([^)]*?(\\w+)\\s+(READ|MEMBER)|(\\b(?!Q_)[A-Za-z_]\\w*)\\s*\\("));
    QSet<QString> names;
    for (const QString &statement : text.split(QLatin1Char(';')))
        for (const QRegularExpressionMatch &m : name.globalMatch(statement))
            if (!m.captured(1).isEmpty() || !statement.contains(QLatin1String("override")))
                names << m.captured(1) + m.captured(3);
    return names;
}

QSet<QString> qtNames(const char *header)
{
    return namesIn(withoutComments(QLibraryInfo::path(QLibraryInfo::HeadersPath) + "/" + header));
}
} // namespace

class tst_HostBehaviour : public QObject
{
    Q_OBJECT
    std::unique_ptr<ShownGrid> host;
private slots:
    void init() { host = std::make_unique<ShownGrid>(); }
    void cleanup() { host.reset(); }

    // No public class hides a name its Qt base uses: a Qt developer's grid->setEnabled(false) or
    // field->setParent(x) must do what it does on any object. Every installed header is read.
    void publicClassHidesNoQtName()
    {
        const QSet<QString> object = qtNames("QtCore/qobject.h");
        const QSet<QString> widget
            = object + qtNames("QtWidgets/qwidget.h") + qtNames("QtGui/qpaintdevice.h");
        const QRegularExpression head(QStringLiteral(
            "\\bclass\\s+KWFIELDDECK_EXPORT\\s+(\\w+)\\s*:\\s*public\\s+(\\w+)\\s*\\{"));
        const QDir dir(QStringLiteral(KW_PUBLIC_HEADERS));
        QSet<QString> seen;
        for (const QString &header : dir.entryList({ QStringLiteral("*.h") })) {
            const QString text = withoutComments(dir.filePath(header));
            for (const QRegularExpressionMatch &m : head.globalMatch(text)) {
                QSet<QString> names = namesIn(text.mid(m.capturedEnd()));
                names.remove(m.captured(1));
                seen += names;
                const QSet<QString> &qt
                    = m.captured(2) == QLatin1String("QWidget") ? widget : object;
                QVERIFY2(!names.intersects(qt),
                    qPrintable(
                        m.captured(1) + ": " + QSet(names).intersect(qt).values().join(", ")));
            }
        }
        // The reading sees what matters; a broken one fails here rather than passing unseen.
        for (const char *name : { "setParent", "objectName", "setEnabled", "font", "enabled" })
            QVERIFY2(widget.contains(QLatin1String(name)) && !object.contains("setFont"), name);
        for (const char *name :
            { "storedEnabled", "ReadDef", "Add", "Changed", "Font", "definition" })
            QVERIFY2(seen.contains(QLatin1String(name)), name);
    }

    // The stored Enabled flag keeps no input out; a check box row's own Enabled does not either.
    // The grid's own input signals are declared and never raised: input belongs to the rows.
    void disabledGridOrRowTakesNoInput_data()
    {
        // How the input is refused, and whether the text and the check box still take it.
        auto row = columns<QString, bool, bool>();
        row("setEnabled(false)", "widget", false, false);
        row("stored flag false", "stored", true, true);
        row("rows disabled", "rows", false, true);
    }
    void disabledGridOrRowTakesNoInput()
    {
        const auto [how, textTakes, checkTakes] = fetch<QString, bool, bool>();
        Field *text = host->add("Host", ftText, "abc");
        Field *check = host->add("On", ftCheckBox, "0");
        host->grid->Refresh(true);
        QApplication::processEvents();
        if (how == "widget") {
            host->grid->setEnabled(false);
            // The stored flag follows the widget down, and alone does not bring it back.
            QVERIFY(!host->grid->storedEnabled());
            host->grid->setStoredEnabled(true);
            QVERIFY(!host->grid->isEnabled());
            QCOMPARE(host->grid->property("Enabled"), QVariant(true));
        } else if (how == "stored") {
            host->grid->setStoredEnabled(false);
        } else if (how == "rows") {
            text->setEnabled(false);
            check->setEnabled(false);
        }
        QApplication::processEvents();
        // Every part of every row is in Qt's disabled state, which styles paint greyed.
        for (const QWidget *part : host->grid->findChildren<QWidget *>())
            if (how != "rows" && part->objectName() != QLatin1String("VScroll1"))
                QVERIFY2(part->isEnabled() == textTakes, qPrintable(part->objectName()));
        QSignalSpy changed(host->grid, &kwPropertyControl::Changed);
        QSignalSpy checked(check, &Field::Changed);
        int raised = 0;
        const auto watch
            = [&](auto... s) { (connect(host->grid, s, this, [&] { ++raised; }), ...); };
        using G = kwPropertyControl;
        watch(&G::Click, &G::DblClick, &G::KeyDown, &G::KeyPress, &G::KeyUp, &G::MouseDown,
            &G::MouseMove, &G::MouseUp);
        QWidget *focus = host->click(host->editorPoint(0));
        QTest::keyClick(focus ? focus : host->grid, Qt::Key_End);
        QTest::keyClicks(QApplication::focusWidget(), "x");
        host->click(host->editorPoint(1));
        QCOMPARE(text->Value().toString(), textTakes ? "abcx" : "abc");
        QCOMPARE(changed.size(), int(textTakes) + int(checkTakes));
        QCOMPARE(checked.size(), int(checkTakes));
        QCOMPARE(check->Value().toInt(), int(checkTakes));
        // A click gives the check box's value as a 16-bit number, which Value then reads.
        if (checkTakes) {
            QCOMPARE(check->Value().typeId(), int(QMetaType::Short));
            QCOMPARE(checked.first().first(), check->Value());
        }
        host->click(host->namePoint(3)); // below the rows
        QCOMPARE(raised, 0);
    }

    // A font set on the grid in any of Qt's ways reaches the rows there are and the rows to come.
    void fontSetOnTheGridReachesEveryRow_data()
    {
        auto row = columns<QString>();
        row("Font property", "property");
        row("from the parent", "parent");
    }
    void fontSetOnTheGridReachesEveryRow()
    {
        const auto [how] = fetch<QString>();
        host->add("Before", ftText, "before");
        const QFont font(QStringLiteral("DejaVu Serif"), 15);
        if (how == "property")
            QVERIFY(host->grid->setProperty("Font", font));
        else
            host->window.setFont(font);
        host->add("After", ftText, "after");
        host->grid->Refresh(true);
        QCOMPARE(host->grid->Font(), host->grid->font());
        for (int row : { 0, 1 }) {
            const QWidget *editor = host->click(host->editorPoint(row));
            QVERIFY(editor);
            QCOMPARE(editor->font().family(), font.family());
            QCOMPARE(editor->font().pointSize(), 15);
        }
    }

    // A new text takes out the fields the last one added and leaves the host's fields alone.
    void definitionPropertyReplacesOnlyItsOwnFields_data()
    {
        auto row = columns<QString, QStringList>();
        row("CR LF", defText("ADDFIELD B|TYPE=TEXT|VALUE=b|ENDFIELD"), { "Code", "Later", "B" });
        row("empty text", QString(), { "Code", "Later" });
        row("the same name again", "ADDFIELD A1\nTYPE=NUMERIC\nVALUE=7\nENDFIELD",
            { "Code", "Later", "A1" });
    }
    void definitionPropertyReplacesOnlyItsOwnFields()
    {
        const auto [second, fields] = fetch<QString, QStringList>();
        host->add("Code", ftText, "code");
        const QString first = QStringLiteral("ADDFIELD A1\nTYPE=TEXT\nVALUE=a1\nENDFIELD\n"
                                             "ADDFIELD A2\nTYPE=CHECKBOX\nVALUE=1\nENDFIELD");
        QVERIFY(host->grid->setProperty("definition", first));
        host->add("Later", ftText, "later");
        QCOMPARE(host->each(), QStringList({ "Code", "A1", "A2", "Later" }));
        MessageRecorder messages;
        host->grid->setDefinition(second);
        QVERIFY(messages.messages.isEmpty());
        QCOMPARE(host->grid->property("definition").toString(), second);
        QCOMPARE(host->each(), fields);
        // The rows are laid out again: the remaining rows close up, in order.
        for (int row = 0; row < fields.size(); ++row)
            if (Field *field = host->grid->Fields()->Item(row + 1); field->FieldType() == ftText)
                QCOMPARE(host->textAt(row), field->Value().toString());
    }

    // Text typed into a file row's box is not its value; only the dialog sets that.
    void fileRowValueComesOnlyFromTheDialog()
    {
        Field *field = host->add("Path", ftFileSelector, "/tmp");
        host->grid->Refresh(true);
        QVERIFY(qobject_cast<QLineEdit *>(host->click(host->editorPoint(0))));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_End);
        QTest::keyClicks(QApplication::focusWidget(), "/typed");
        QCOMPARE(ShownGrid::focusedText(), QStringLiteral("/tmp/typed"));
        QCOMPARE(field->Value().toString(), QStringLiteral("/tmp"));
    }

    // Only Refresh(true) takes new rows into the range; setFirstRow() and Clear() keep the bar.
    void scrollPositionFollowsTheHostsCalls()
    {
        host->addRows(2);
        host->grid->Refresh(true);
        QVERIFY(!host->scrollBar()->isEnabled());
        host->addRows(10);
        host->grid->Refresh();
        QApplication::processEvents();
        QVERIFY(!host->scrollBar()->isEnabled());
        host->grid->Refresh(true);
        QVERIFY(host->scrollBar()->isEnabled());
        host->grid->setFirstRow(4);
        QApplication::processEvents();
        QCOMPARE(host->scrollBar()->value(), 0);
        QCOMPARE(host->textAt(0), QStringLiteral("v5"));
        host->scrollBar()->setValue(3);
        QCOMPARE(host->grid->FirstRow(), qint16(3));
        host->grid->Fields()->Clear();
        QCOMPARE(host->grid->FirstRow(), qint16(3));
        QCOMPARE(host->scrollBar()->value(), 3);
        host->addRows(12);
        host->grid->Refresh(true);
        const int first = host->grid->FirstRow();
        QVERIFY(first > 0);
        QCOMPARE(host->textAt(0), QStringLiteral("v%1").arg(first + 1));
    }

    // The first row and the scroll range are 16-bit numbers: past 32,767 the range overflows.
    void scrollRangeOverflowsPast32767Rows_data()
    {
        auto row = columns<int, bool>();
        row("32,000", 32000, false);
        row("33,000", 33000, true);
    }
    void scrollRangeOverflowsPast32767Rows()
    {
        const auto [rows, overflows] = fetch<int, bool>();
        QString definition;
        for (int i = 0; i < rows; ++i)
            definition += QStringLiteral("ADDFIELD R%1\r\nTYPE=TEXT\r\nENDFIELD\r\n").arg(i);
        host->grid->ReadDef(definition);
        ErrorRecorder errors;
        host->grid->Refresh(true);
        QCOMPARE(errors.errors.size(), int(overflows));
        if (overflows)
            QCOMPARE(errors.errors.first().number, 6);
        else
            QVERIFY(host->scrollBar()->maximum() > 31000);
    }

    // A hidden or removed row leaves a gap, which clicks pass through, until Refresh(true).
    void onlyAFullRefreshClosesAGap_data()
    {
        auto row = columns<bool>();
        row("hidden", false);
        row("removed", true);
    }
    void onlyAFullRefreshClosesAGap()
    {
        const auto [remove] = fetch<bool>();
        host->addRows(3);
        host->grid->Refresh(true);
        if (remove)
            host->grid->Fields()->Remove(2);
        else
            host->grid->Fields()->Item(2)->setVisible(false);
        host->grid->Refresh();
        QCOMPARE(host->textAt(2), QStringLiteral("v3"));
        QCOMPARE(host->textAt(1), QStringLiteral("(none)"));
        host->grid->Refresh(true);
        QCOMPARE(host->textAt(1), QStringLiteral("v3"));
    }

    // Setting Min of an enabled text field moves the focus into it; other types only store it.
    void textFieldMinTakesTheFocus_data()
    {
        auto row = columns<int, bool>();
        row("text", ftText, true);
        row("numeric", ftNumeric, false);
    }
    void textFieldMinTakesTheFocus()
    {
        const auto [type, moves] = fetch<int, bool>();
        Field *first = host->add("First", lFieldTypes(type), "7");
        host->add("Second", ftText, "second");
        host->grid->Refresh(true);
        QCOMPARE(host->textAt(1), QStringLiteral("second"));
        first->setMin(1);
        QApplication::processEvents();
        QCOMPARE(ShownGrid::focusedText(), moves ? "7" : "second");
    }

    // The refused row stays below the last row, where the next field's row covers it.
    void duplicateNameLeavesItsRow()
    {
        QVERIFY(host->add("Port", ftText, "80"));
        MessageRecorder messages;
        ErrorRecorder errors;
        QVERIFY(!host->add("port", ftText, "refused"));
        QVERIFY(errors.errors.isEmpty());
        QCOMPARE(messages.prompts(), { "Field: port already exists in Fields Collection!" });
        QCOMPARE(messages.messages.first().style, MsgBoxStyle::OKOnly);
        QCOMPARE(messages.messages.first().title, QString());
        QCOMPARE(host->grid->Fields()->Count(), 1);
        QCOMPARE(host->textAt(1), QStringLiteral("refused"));
        host->add("Next", ftText, "next");
        host->grid->Refresh(true);
        QCOMPARE(host->textAt(1), QStringLiteral("next"));
    }

    // While the range is still 0 to 10; a host that sets the limits first keeps its value.
    void sliderValueIsTakenBeforeItsRange_data()
    {
        auto row = columns<QString, int>();
        row("definition", "definition", 10);
        row("limits first", "limits first", 30);
    }
    void sliderValueIsTakenBeforeItsRange()
    {
        const auto [how, value] = fetch<QString, int>();
        Field *slider = nullptr;
        if (how == "definition") {
            slider = host->grid->AddFieldByDefString(QStringLiteral(
                "ADDFIELD Timeout\r\nTYPE=SLIDER\r\nMIN=1\r\nMAX=120\r\nVALUE=30\r\nENDFIELD"));
        } else {
            slider = host->add("Timeout", ftSlider);
            slider->setMin(1);
            slider->setMax(120);
            slider->setValue(30);
        }
        QVERIFY(slider);
        QCOMPARE(slider->Max().toInt(), 120);
        QCOMPARE(slider->Value().toInt(), value);
        host->grid->Refresh(true);
        QCOMPARE(host->textAt(0), QString::number(value));
    }

    // A name column that leaves no room for the scroll bar is refused without a word.
    void tooWideANameColumnIsIgnored()
    {
        ErrorRecorder errors;
        host->grid->setFieldNameWidth(1200);
        QCOMPARE(host->grid->FieldNameWidth(), 1200.0f);
        host->grid->setFieldNameWidth(20000);
        QCOMPARE(host->grid->FieldNameWidth(), 1200.0f);
        QVERIFY(errors.errors.isEmpty());
    }
};

QTEST_MAIN(tst_HostBehaviour)
#include "tst_HostBehaviour.moc"
