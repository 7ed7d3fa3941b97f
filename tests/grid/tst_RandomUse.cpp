// Random user and host actions on a grid of every type; the invariants are checked after each.
// KW_RANDOM_SEED replays a run (a failure prints it); KW_RANDOM_ACTIONS sets the actions.

#include "grid/UserGrid.h"

#include "runtime/Clipboard.h"
#include "runtime/Values.h"

#include <QPointer>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QtTest>

using namespace kwFieldDeck;
using namespace kwFieldDeck::test;

namespace {
// What a host's write must read back as, for the field's type.
bool readsBackAsWritten(const Field *field, const QVariant &written)
{
    const int type = field->FieldType();
    const QString read = textOf(field->Value());
    const double number = leadingNumber(read), wrote = leadingNumber(textOf(written));
    if (type == ftDate)
        return isDate(field->Value()) && toDate(field->Value()) == written.toDate();
    if (type == ftCheckBox)
        return (number != 0) == (wrote != 0);
    return type == ftNumeric || type == ftSlider ? number == wrote : read == textOf(written);
}

// A number box's shown text (live editor or kept) with a character its key filter refuses.
QString refusedCharacterShown(const UserGrid &user)
{
    static const QRegularExpression numeric(QStringLiteral("^[-+.0-9]*$"));
    const QWidget *live = user.d()->rowEditor().editor();
    for (Field *field : *user.grid->Fields()) {
        if (field->FieldType() != ftNumeric && field->FieldType() != ftSlider)
            continue;
        QString shown = GridHost::state(field).text;
        if (live && user.d()->rowEditor().row() == field) {
            const auto *box = qobject_cast<const QLineEdit *>(live);
            shown = (box ? box : live->findChild<QLineEdit *>(QStringLiteral("txtNum")))->text();
        }
        if (!numeric.match(shown).hasMatch())
            return field->Name() + QStringLiteral(": ") + shown;
    }
    return {};
}

struct RandomUser
{
    UserGrid &m_user;
    QRandomGenerator m_random;
    int m_added = 0;
    QVariant lastWritten = {};
    Field *lastWrittenField = nullptr;

    // One action, weighted; returns what it did, for the failure message.
    QString act()
    {
        const int n = pick(10);
        return n < 4 ? key() : n < 6 ? click() : n < 8 ? write() : n < 9 ? scroll() : changeRows();
    }

    int pick(int count) { return int(m_random.bounded(quint32(count))); }

    Field *anyField()
    {
        const int count = m_user.grid->Fields()->Count();
        return count ? m_user.grid->Fields()->Item(1 + pick(count)) : nullptr;
    }

    // A key that moves, opens, closes or ticks, a pasted text or a typed character.
    QString key()
    {
        static const QStringList keys = { "Tab", "Shift+Tab", "Shift+Backtab", "Up", "Down", "Left",
            "Right", "PgUp", "PgDown", "Ctrl+Home", "Ctrl+End", "Esc", "F4", "Space", "Ctrl+V", "A",
            "X", "1", "9", ".", "-", "+" };
        const QString name = keys.at(pick(int(keys.size())));
        const QKeyCombination pressed = QKeySequence(name)[0];
        const auto [key, modifiers] = std::pair(pressed.key(), pressed.keyboardModifiers());
        QWidget *focus = QApplication::focusWidget();
        if (!focus)
            return QStringLiteral("key with no focus");
        if (key == Qt::Key_V) {
            Clipboard::SetText(pick(2) ? QStringLiteral("pasted text") : QStringLiteral("42"));
            // As the desktop delivers it: Ctrl+V types the control character 22.
            QTest::sendKeyEvent(QTest::Click, focus, key, QString(QChar(22)), modifiers);
        } else {
            QTest::keyClick(focus, key, modifiers);
        }
        return "key " + name;
    }

    // A user clicks what is on the screen, and turns the wheel over it: anywhere in the view.
    QPoint anywhere()
    {
        return QPoint(pick(m_user.view()->width()), pick(m_user.view()->height()));
    }

    QString click()
    {
        const QPoint point = anywhere();
        QWidget *widget = m_user.view()->childAt(point);
        widget = widget ? widget : m_user.view();
        QTest::mouseClick(widget, Qt::LeftButton, {}, widget->mapFrom(m_user.view(), point));
        return QString::asprintf(
            "clicked %s at %d,%d", qPrintable(widget->objectName()), point.x(), point.y());
    }

    QString scroll()
    {
        QScrollBar *bar = m_user.scrollBar();
        if (pick(2) && bar->isEnabled()) {
            bar->setValue(pick(bar->maximum() + 1));
            return QStringLiteral("scrolled to %1").arg(bar->value());
        }
        const QPoint point = anywhere();
        m_user.turnWheel(point, pick(2) ? 1 : -1);
        return QString::asprintf("wheel at %d,%d", point.x(), point.y());
    }

    // A value of the field's type; a text longer than a text field's size.
    QString write()
    {
        if (!(lastWrittenField = anyField()))
            return QStringLiteral("no field to write");
        const int n = pick(2000);
        const QString text = QStringLiteral("value %1 is longer than its size").arg(n);
        const QVariant values[] = { text, QString::number(n - 1000) + QStringLiteral(".5"), n % 2,
            QString::number(1 + n % 2), QDate(1990 + n % 40, 1 + n % 12, 1 + n % 28), n % 11, text,
            text, QStringLiteral("line %1\r\nline two").arg(n) };
        lastWritten = values[lastWrittenField->FieldType() - 1];
        lastWrittenField->setValue(lastWritten);
        return "wrote " + lastWritten.toString() + " to " + lastWrittenField->Name();
    }

    // A host moves the first row, removes or adds one, and lays out at once or later.
    QString changeRows()
    {
        Fields *fields = m_user.grid->Fields();
        QString done;
        if (const int choice = pick(3); choice == 0) {
            m_user.grid->setFirstRow(qint16(pick(fields->Count() + 1)));
            return QStringLiteral("FirstRow %1").arg(m_user.grid->FirstRow());
        } else if (choice == 1 && fields->Count() > 3) {
            done = anyField()->Name();
            fields->Remove(done);
            done.prepend(QStringLiteral("removed "));
        } else {
            const int type = ftText + pick(9);
            done = QStringLiteral("Added%1%2").arg(UserGrid::typeName(type)).arg(++m_added);
            Field *field = m_user.addOfType(type, done);
            if (type == ftText)
                field->setSize(5);
            done.prepend(QStringLiteral("added "));
        }
        if (pick(2))
            m_user.grid->Refresh(true);
        return done;
    }
};
} // namespace

class tst_RandomUse : public QObject
{
    Q_OBJECT
private slots:
    void randomActionsLeaveTheGridConsistent()
    {
        const QByteArray given = qgetenv("KW_RANDOM_SEED");
        const quint32 seed
            = given.isEmpty() ? QRandomGenerator::global()->generate() : given.toUInt();
        const int actions = qEnvironmentVariableIntValue("KW_RANDOM_ACTIONS");
        UserGrid user(1800);
        user.dialogAnswer = QStringLiteral("/tmp");
        for (int type = ftText; type <= ftMemo; ++type) {
            user.addOfType(type, UserGrid::typeName(type));
            user.addOfType(type, UserGrid::typeName(type) + '2');
        }
        user.grid->Refresh(true);
        // A field added raises Changed before it joins; by the step's end it must be there.
        QVector<QPointer<Field>> changed;
        QObject::connect(user.grid, &kwPropertyControl::Changed, user.grid,
            [&](Field *field) { changed << field; });
        RandomUser random { user, QRandomGenerator(seed) };
        QStringList done;
        bool hadFocus = false;
        for (int step = 0; step < (actions > 0 ? actions : 3000); ++step) {
            random.lastWrittenField = nullptr;
            changed.clear();
            done << random.act();
            if (done.size() > 8)
                done.removeFirst();
            QCoreApplication::processEvents();
            // A list or calendar left open closes when the user goes on elsewhere.
            user.closePopup();
            QString problem;
            const Fields &fields = *user.grid->Fields();
            for (const QPointer<Field> &field : std::as_const(changed))
                if (std::find(fields.begin(), fields.end(), field.data()) == fields.end())
                    problem = " Changed named " + (field ? field->Name() : "(deleted)");
            if (Field *written = random.lastWrittenField) {
                if (!readsBackAsWritten(written, random.lastWritten))
                    problem = " read back " + written->Value().toString();
                // Writing a drop-down an entry it has clicks it, moved or not.
                else if (written->FieldType() == ftCombo && !changed.contains(written))
                    problem = " raised no Changed";
            }
            if (const QString refused = refusedCharacterShown(user); !refused.isEmpty())
                problem = " shows " + refused;
            hadFocus = hadFocus || QApplication::focusWidget();
            if (hadFocus && !QApplication::focusWidget())
                problem = " lost the focus";
            // The row with the focus is the one highlighted.
            Field *focused = user.focusedField();
            if (focused && user.d()->highlighted() != focused)
                problem = " focus is in " + focused->Name();
            const QString at = QStringLiteral("seed %1 (KW_RANDOM_SEED=%1 replays it), step %2");
            QVERIFY2(problem.isEmpty(),
                qPrintable(at.arg(seed).arg(step) + ", after: " + done.join("; ") + problem));
        }
    }
};

QTEST_MAIN(tst_RandomUse)
#include "tst_RandomUse.moc"
