// Every field type reached every way a user or host reaches a row, in a shown window with real
// key presses and mouse clicks: the focus lands in that row's editor, that row alone is
// highlighted, its description shows, and the next Tab moves on to the next row.

#include "grid/UserGrid.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QLineEdit>
#include <QtTest>

using namespace kwFieldDeck;
using kwFieldDeck::test::UserGrid;

namespace {
enum class Way {
    ShownFirst,
    GridSetFocus,
    TabFromPrevious,
    BacktabFromNext,
    DownFromPrevious,
    UpFromNext,
    ClickName,
    ClickPart,
    SetFocusNear,
    SetFocusFar,
};

// Rows above the target when it is to start far from the view.
constexpr int FarRows = 40;

bool startsFirst(Way way)
{
    return way == Way::ShownFirst || way == Way::GridSetFocus;
}

// Whether the way ends on the row's "..." button, which opens its dialog once.
bool endsOnButton(int type, Way way, const QString &part)
{
    if (!test::hasBrowseButton(type))
        return false;
    return way == Way::BacktabFromNext || way == Way::UpFromNext
        || (way == Way::ClickPart && part == QLatin1String("btnBrowse"));
}

void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
{
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    // Up and Down arrive as synthesised keys, posted.
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
}
} // namespace

Q_DECLARE_METATYPE(Way)

class tst_RowInteraction : public QObject
{
    Q_OBJECT
private slots:
    void everyTypeEveryWayIn_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<Way>("way");
        QTest::addColumn<QString>("part");
        const QVector<QPair<Way, const char *>> ways = {
            { Way::ShownFirst, "shown first" },
            { Way::GridSetFocus, "grid SetFocus" },
            { Way::TabFromPrevious, "Tab" },
            { Way::BacktabFromNext, "Shift+Tab" },
            { Way::DownFromPrevious, "Down" },
            { Way::UpFromNext, "Up" },
            { Way::ClickName, "click name" },
            { Way::SetFocusNear, "SetFocus near" },
            { Way::SetFocusFar, "SetFocus far" },
        };
        for (const test::FieldKind &kind : test::everyFieldType()) {
            for (const auto &[way, wayName] : ways) {
                // A slider field does not take the focus from SetFocus: intended.
                if (kind.type == ftSlider
                    && (way == Way::GridSetFocus || way == Way::SetFocusNear
                        || way == Way::SetFocusFar))
                    continue;
                QTest::addRow("%s, %s", kind.name, wayName) << int(kind.type) << way << QString();
            }
            for (const QString &part : partsOf(kind.type))
                QTest::addRow("%s, click %s", kind.name, qPrintable(part))
                    << int(kind.type) << Way::ClickPart << part;
        }
    }

    void everyTypeEveryWayIn()
    {
        QFETCH(int, type);
        QFETCH(Way, way);
        QFETCH(QString, part);
        UserGrid user(2400, way != Way::ShownFirst);
        QVERIFY(user.shown || way == Way::ShownFirst);
        if (way == Way::SetFocusFar)
            user.addRows(FarRows);
        Field *before
            = startsFirst(way) ? nullptr : user.addOfType(ftText, QStringLiteral("Before"));
        Field *target = user.addOfType(type, QStringLiteral("Target"));
        Field *after = user.addOfType(ftText, QStringLiteral("After"));
        user.addOfType(ftText, QStringLiteral("Last"));
        user.grid->Refresh(true);

        switch (way) {
        case Way::ShownFirst:
            QVERIFY(user.show());
            break;
        case Way::GridSetFocus:
            user.grid->SetFocus();
            break;
        case Way::TabFromPrevious:
        case Way::DownFromPrevious:
            before->SetFocus();
            QCOMPARE(user.focusedField(), before);
            press(way == Way::TabFromPrevious ? Qt::Key_Tab : Qt::Key_Down);
            break;
        case Way::BacktabFromNext:
        case Way::UpFromNext:
            after->SetFocus();
            QCOMPARE(user.focusedField(), after);
            press(way == Way::UpFromNext ? Qt::Key_Up : Qt::Key_Tab,
                way == Way::UpFromNext ? Qt::NoModifier : Qt::ShiftModifier);
            break;
        case Way::ClickName:
            QTest::mouseClick(user.view(), Qt::LeftButton, {}, user.nameCellPoint(target));
            break;
        case Way::ClickPart: {
            // The row is idle: the click lands on the view where the part is painted.
            const QPoint point = pointOfPart(user, target, part);
            QVERIFY(!point.isNull());
            QTest::mouseClick(user.view(), Qt::LeftButton, {}, point);
            user.closePopup();
            break;
        }
        case Way::SetFocusNear:
        case Way::SetFocusFar:
            target->SetFocus();
            break;
        }
        QCoreApplication::processEvents();

        QTRY_COMPARE_WITH_TIMEOUT(user.focusedField(), target, 500);
        QCOMPARE(user.highlighted(), QVector<Field *> { target });
        QCOMPARE(user.description.text(), QStringLiteral("About Target"));
        QCOMPARE(user.dialogs, endsOnButton(type, way, part) ? 1 : 0);
        const QRect inView = user.view()->rect();
        const QWidget *editor = user.d()->rowEditor().editor();
        QVERIFY(inView.contains(QRect(editor->mapTo(user.view(), QPoint(0, 0)), editor->size())));

        // Tab moves on within the row's editor, then to the next row.
        for (int tabs = 0; tabs < 2 && user.focusedField() == target; ++tabs)
            press(Qt::Key_Tab);
        QCOMPARE(user.focusedField(), after);
        QCOMPARE(user.highlighted(), QVector<Field *> { after });
        QCOMPARE(user.description.text(), QStringLiteral("About After"));
    }

    // One Tab or Shift+Tab from the previous or next row crosses a date row; the arrow keys
    // move between its day, month and year.
    void tabCrossesADateRowWhoseArrowsMoveBetweenItsParts()
    {
        UserGrid user;
        QVERIFY(user.shown);
        Field *before = user.addOfType(ftText, QStringLiteral("Before"));
        Field *date = user.addOfType(ftDate, QStringLiteral("Date"));
        Field *after = user.addOfType(ftText, QStringLiteral("After"));
        before->SetFocus();
        press(Qt::Key_Tab);
        QCOMPARE(user.focusedField(), date);
        auto *edit = qobject_cast<QDateEdit *>(user.d()->rowEditor().editor());
        QVERIFY(edit);
        const QDateTimeEdit::Section first = edit->currentSection();
        press(Qt::Key_Right);
        press(Qt::Key_Right);
        press(Qt::Key_Right);
        QVERIFY(edit->currentSection() != first);
        QCOMPARE(user.focusedField(), date);
        press(Qt::Key_Tab);
        QCOMPARE(user.focusedField(), after);
        press(Qt::Key_Tab, Qt::ShiftModifier);
        QCOMPARE(user.focusedField(), date);
        press(Qt::Key_Tab, Qt::ShiftModifier);
        QCOMPARE(user.focusedField(), before);
    }

private:
    static QStringList partsOf(int type)
    {
        switch (type) {
        case ftCheckBox:
            return { QStringLiteral("Check1") };
        case ftCombo:
            return { QStringLiteral("cbo") };
        case ftSlider:
            return { QStringLiteral("txtNum"), QStringLiteral("Slider1") };
        case ftFileSelector:
        case ftFolderSelector:
        case ftMemo:
            return { QStringLiteral("Text1"), QStringLiteral("btnBrowse") };
        default:
            return { QStringLiteral("editor") };
        }
    }

    // Where a part of an idle row's editor is painted, in the view: the row's live editor is made
    // to measure it, then given back.
    static QPoint pointOfPart(UserGrid &user, Field *field, const QString &name)
    {
        QPoint point;
        for (QWidget *part : user.focusableParts(field)) {
            if (part->objectName() == name || name == QLatin1String("editor"))
                point = part->mapTo(user.view(), test::pointToClick(part));
            if (!point.isNull())
                break;
        }
        user.d()->rowEditor().release();
        return point;
    }
};

QTEST_MAIN(tst_RowInteraction)
#include "tst_RowInteraction.moc"
