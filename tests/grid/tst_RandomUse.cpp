// Thousands of random user and host actions on a shown grid of every field type. After each one
// the grid must still answer, highlight at most one row, name only its own fields in Changed,
// and read back what the host wrote as the field's type says.
//
// KW_RANDOM_SEED replays a run (the seed is printed when one fails); KW_RANDOM_ACTIONS sets how
// many actions a run takes.

#include "grid/UserGrid.h"

#include "runtime/Clipboard.h"
#include "runtime/Values.h"

#include <QLineEdit>

#include <QPointer>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QScrollBar>
#include <QtTest>

using namespace kwFieldDeck;
using kwFieldDeck::test::UserGrid;

namespace {
quint32 seedToUse()
{
    bool given = false;
    const quint32 seed = qEnvironmentVariable("KW_RANDOM_SEED").toUInt(&given);
    return given ? seed : QRandomGenerator::global()->generate();
}

int actionsToTake()
{
    const int actions = qEnvironmentVariableIntValue("KW_RANDOM_ACTIONS");
    return actions > 0 ? actions : 3000;
}

// What a host's write must read back as, for the field's type.
bool readsBackAsWritten(const Field *field, const QVariant &written)
{
    const QVariant read = field->Value();
    switch (field->FieldType()) {
    case ftNumeric:
    case ftSlider:
        return leadingNumber(textOf(read)) == leadingNumber(textOf(written));
    case ftCheckBox:
        return (leadingNumber(textOf(read)) != 0) == (leadingNumber(textOf(written)) != 0);
    case ftDate:
        return isDate(read) && toDate(read) == written.toDate();
    case ftCombo:
        return textOf(read) == textOf(written);
    default:
        return read.toString() == written.toString();
    }
}

// A number box that shows what its key filter refuses: the text, or empty. The row being edited
// shows its live editor's text, every other row its kept text.
QString refusedCharacterShown(const UserGrid &user)
{
    static const QRegularExpression numeric(QStringLiteral("^[-+.0-9]*$"));
    const QWidget *live = user.d()->rowEditor().editor();
    for (Field *field : *user.grid->Fields()) {
        if (field->FieldType() != ftNumeric && field->FieldType() != ftSlider)
            continue;
        QString shown = test::GridHost::state(field).text;
        if (live && user.d()->rowEditor().row() == field) {
            const auto *box = qobject_cast<const QLineEdit *>(live);
            if (!box)
                box = live->findChild<QLineEdit *>(QStringLiteral("txtNum"));
            shown = box->text();
        }
        if (!numeric.match(shown).hasMatch())
            return field->Name() + QStringLiteral(": ") + shown;
    }
    return {};
}

class RandomUser
{
public:
    RandomUser(UserGrid &user, quint32 seed)
        : m_user(user)
        , m_random(seed)
    {
    }

    // One action; returns what it did, for the failure message.
    QString act()
    {
        switch (pick(10)) {
        case 0:
        case 1:
        case 2:
            return pressKey();
        case 3:
            return typeText();
        case 4:
        case 5:
            return click();
        case 6:
            return scroll();
        case 7:
        case 8:
            return writeValue();
        default:
            return changeRows();
        }
    }

    QVariant lastWritten;
    Field *lastWrittenField = nullptr;

private:
    int pick(int count) { return int(m_random.bounded(quint32(count))); }

    Field *anyField()
    {
        Fields *fields = m_user.grid->Fields();
        return fields->Count() ? FieldsPrivate::get(fields)->m_fields.at(pick(fields->Count()))
                               : nullptr;
    }

    QString pressKey()
    {
        static const QVector<QPair<Qt::Key, Qt::KeyboardModifiers>> keys = {
            { Qt::Key_Tab, Qt::NoModifier },
            { Qt::Key_Tab, Qt::ShiftModifier },
            { Qt::Key_Up, Qt::NoModifier },
            { Qt::Key_Down, Qt::NoModifier },
            { Qt::Key_Escape, Qt::NoModifier },
            { Qt::Key_F4, Qt::NoModifier },
            { Qt::Key_Space, Qt::NoModifier },
            { Qt::Key_V, Qt::ControlModifier },
            { Qt::Key_Left, Qt::NoModifier },
            { Qt::Key_Right, Qt::NoModifier },
            { Qt::Key_Backtab, Qt::ShiftModifier },
            { Qt::Key_PageUp, Qt::NoModifier },
            { Qt::Key_PageDown, Qt::NoModifier },
            { Qt::Key_Home, Qt::ControlModifier },
            { Qt::Key_End, Qt::ControlModifier },
        };
        const auto &[key, modifiers] = keys.at(pick(int(keys.size())));
        if (key == Qt::Key_V)
            Clipboard::SetText(pick(2) ? QStringLiteral("pasted text") : QStringLiteral("42"));
        QWidget *focus = QApplication::focusWidget();
        if (!focus)
            return QStringLiteral("key with no focus");
        if (key == Qt::Key_V) {
            // As the desktop delivers it: Ctrl+V types the control character 22.
            QTest::sendKeyEvent(QTest::Click, focus, key, QString(QChar(22)), modifiers);
            return QStringLiteral("Ctrl+V");
        }
        QTest::keyClick(focus, key, modifiers);
        return QStringLiteral("key %1+%2").arg(int(modifiers)).arg(int(key));
    }

    QString typeText()
    {
        static const QString characters = QStringLiteral("ab1.-+ 9x");
        QWidget *focus = QApplication::focusWidget();
        if (!focus)
            return QStringLiteral("typing with no focus");
        const QChar c = characters.at(pick(int(characters.size())));
        QTest::keyClicks(focus, QString(c));
        return QStringLiteral("typed ") + c;
    }

    QString click()
    {
        // A user clicks what is on the screen: somewhere on a name cell or an editor of a row in
        // view, idle or live.
        const QRect view = m_user.view()->rect();
        const float scale = float(twipsPerPixelY());
        QVector<qsizetype> rows;
        for (qsizetype row : m_user.d()->rowsBetween(
                 -m_user.canvasTop(), float(view.height()) * scale - m_user.canvasTop())) {
            if (m_user.d()->canvasRows().at(row).field->Visible())
                rows << row;
        }
        if (rows.isEmpty())
            return QStringLiteral("nothing to click");
        const qsizetype row = rows.at(pick(int(rows.size())));
        const QRect area
            = pick(3) ? m_user.view()->editorRect(row) : m_user.view()->nameCellRect(row);
        const QRect target = area.intersected(view);
        if (target.isEmpty())
            return QStringLiteral("nothing to click");
        const QPoint point(
            target.left() + pick(target.width()), target.top() + pick(target.height()));
        QWidget *widget = m_user.view()->childAt(point);
        if (!widget)
            widget = m_user.view();
        QTest::mouseClick(widget, Qt::LeftButton, {}, widget->mapFrom(m_user.view(), point));
        return QStringLiteral("clicked %1 at %2,%3 of %4")
            .arg(widget->objectName())
            .arg(point.x())
            .arg(point.y())
            .arg(m_user.d()->canvasRows().at(row).field->Name());
    }

    QString scroll()
    {
        QScrollBar *bar = m_user.scrollBar();
        if (!bar->isEnabled())
            return QStringLiteral("nothing to scroll");
        if (pick(2)) {
            bar->setValue(pick(bar->maximum() + 1));
            return QStringLiteral("scrolled to %1").arg(bar->value());
        }
        // The wheel, over any point of the view.
        const QPoint point(pick(m_user.view()->width()), pick(m_user.view()->height()));
        QWidget *widget = m_user.view()->childAt(point);
        if (!widget)
            widget = m_user.view();
        const QPoint local = widget->mapFrom(m_user.view(), point);
        QWheelEvent wheel(local, widget->mapToGlobal(local), QPoint(),
            QPoint(0, pick(2) ? 120 : -120), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
            false);
        QApplication::sendEvent(widget, &wheel);
        return QStringLiteral("wheel at %1,%2").arg(point.x()).arg(point.y());
    }

    QString writeValue()
    {
        Field *field = anyField();
        if (!field)
            return QStringLiteral("no field to write");
        lastWrittenField = field;
        switch (field->FieldType()) {
        case ftNumeric:
            lastWritten = QString::number(pick(2000) - 1000) + QStringLiteral(".5");
            break;
        case ftCheckBox:
            lastWritten = pick(2);
            break;
        case ftCombo:
            lastWritten = QString::number(1 + pick(2));
            break;
        case ftDate:
            lastWritten = QDate(1990 + pick(40), 1 + pick(12), 1 + pick(28));
            break;
        case ftSlider:
            lastWritten = pick(11);
            break;
        case ftMemo:
            lastWritten = QStringLiteral("line %1\r\nline two").arg(pick(100));
            break;
        default:
            lastWritten = QStringLiteral("value %1 is longer than its size").arg(pick(100));
            break;
        }
        field->setValue(lastWritten);
        return QStringLiteral("wrote %1 to %2").arg(lastWritten.toString(), field->Name());
    }

    QString changeRows()
    {
        Fields *fields = m_user.grid->Fields();
        switch (pick(3)) {
        case 0:
            m_user.grid->setFirstRow(qint16(pick(fields->Count() + 1)));
            return QStringLiteral("FirstRow %1").arg(m_user.grid->FirstRow());
        case 1:
            if (fields->Count() > 3) {
                const QString name = anyField()->Name();
                fields->Remove(name);
                layOutSometimes();
                return QStringLiteral("removed ") + name;
            }
            [[fallthrough]];
        default: {
            const test::FieldKind &kind
                = test::everyFieldType().at(pick(int(test::everyFieldType().size())));
            const QString name
                = QStringLiteral("Added%1%2").arg(QLatin1String(kind.name)).arg(++m_added);
            Field *field = m_user.addOfType(kind.type, name);
            if (kind.type == ftText)
                field->setSize(5);
            layOutSometimes();
            return QStringLiteral("added ") + name;
        }
        }
    }

    // A host lays the grid out after changing its rows, or leaves that for later.
    void layOutSometimes()
    {
        if (pick(2))
            m_user.grid->Refresh(true);
    }

    UserGrid &m_user;
    QRandomGenerator m_random;
    int m_added = 0;
};
} // namespace

class tst_RandomUse : public QObject
{
    Q_OBJECT
private slots:
    void randomActionsLeaveTheGridConsistent()
    {
        const quint32 seed = seedToUse();
        const int actions = actionsToTake();
        UserGrid user(1800);
        QVERIFY(user.shown);
        user.dialogAnswer = QStringLiteral("/tmp");
        user.addEveryType();
        user.addEveryType(QStringLiteral("2"));
        user.grid->Refresh(true);
        // A field added raises Changed as its value is set, before it joins the collection; by
        // the end of the step every field named must be one of the grid's.
        QVector<QPointer<Field>> changed;
        QObject::connect(user.grid, &kwPropertyControl::Changed, user.grid,
            [&](Field *field) { changed << field; });
        const auto foreign = [&]() -> QString {
            const auto &fields = *user.grid->Fields();
            for (const QPointer<Field> &field : std::as_const(changed)) {
                if (std::find(fields.begin(), fields.end(), field.data()) == fields.end())
                    return field ? field->Name() : QStringLiteral("(deleted)");
            }
            return {};
        };
        RandomUser random(user, seed);
        QStringList done;
        bool hadFocus = false;
        for (int step = 0; step < actions; ++step) {
            random.lastWrittenField = nullptr;
            changed.clear();
            done << random.act();
            if (done.size() > 8)
                done.removeFirst();
            QCoreApplication::processEvents();
            // A list or calendar left open closes when the user goes on elsewhere.
            user.closePopup();
            const auto replay = [&] {
                return QStringLiteral("seed %1 (KW_RANDOM_SEED=%1 replays it), step %2, after: %3")
                    .arg(seed)
                    .arg(step)
                    .arg(done.join(QStringLiteral("; ")))
                    .toUtf8();
            };
            QVERIFY2(user.highlighted().size() <= 1, replay().constData());
            const QString stranger = foreign();
            QVERIFY2(
                stranger.isEmpty(), (replay() + " Changed named " + stranger.toUtf8()).constData());
            if (Field *written = random.lastWrittenField) {
                QVERIFY2(readsBackAsWritten(written, random.lastWritten),
                    (replay() + " read back " + written->Value().toString().toUtf8()).constData());
                // Writing a drop-down an entry it has clicks it, moved or not.
                QVERIFY2(written->FieldType() != ftCombo || changed.contains(written),
                    (replay() + " raised no Changed").constData());
            }
            const QString refused = refusedCharacterShown(user);
            QVERIFY2(refused.isEmpty(), (replay() + " shows " + refused.toUtf8()).constData());
            // Once a row has the focus, the window keeps it, and the row that has it is the one
            // highlighted.
            hadFocus = hadFocus || QApplication::focusWidget();
            QVERIFY2(!hadFocus || QApplication::focusWidget(),
                (replay() + " lost the focus").constData());
            if (Field *focused = user.focusedField())
                QVERIFY2(user.highlighted() == QVector<Field *> { focused },
                    (replay() + " focus is in " + focused->Name().toUtf8()).constData());
        }
    }
};

QTEST_MAIN(tst_RandomUse)
#include "tst_RandomUse.moc"
