// Thousands of random user and host actions on a shown grid of every field type. After each one
// the grid must still answer, highlight at most one row, name only its own fields in Changed,
// and read back what the host wrote as the field's type says.
//
// KW_RANDOM_SEED replays a run (the seed is printed when one fails); KW_RANDOM_ACTIONS sets how
// many actions a run takes.

#include "grid/UserGrid.h"

#include "editors/kwSliderValue.h"
#include "platform/Clipboard.h"
#include "platform/TextBox.h"
#include "platform/Values.h"

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

// A number box that shows what its key filter refuses: the text, or empty.
QString refusedCharacterShown(const Fields &fields)
{
    static const QRegularExpression numeric(QStringLiteral("^[-+.0-9]*$"));
    for (Field *field : fields) {
        QString shown;
        if (field->FieldType() == ftNumeric)
            shown = FieldPrivate::get(field)->ValueNumeric()->Text();
        else if (field->FieldType() == ftSlider)
            shown = static_cast<TextBox *>(
                FieldPrivate::get(field)->ValueSlider()->Controls().Item(QStringLiteral("txtNum")))
                        ->Text();
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
        // A user clicks what is on the screen: a name cell or an editor part of a row in view.
        QVector<QPair<Field *, Control *>> onScreen;
        for (Field *field : *m_user.grid->Fields()) {
            QVector<Control *> parts = UserGrid::focusableParts(field);
            parts << FieldPrivate::get(field)->FieldNameControl();
            for (Control *part : parts) {
                if (part->widget()->isVisible())
                    onScreen.append({ field, part });
            }
        }
        if (onScreen.isEmpty())
            return QStringLiteral("nothing to click");
        const auto &[field, part] = onScreen.at(pick(int(onScreen.size())));
        QTest::mouseClick(part->widget(), Qt::LeftButton, {}, test::pointToClick(part->widget()));
        return QStringLiteral("clicked %1 of %2").arg(part->Name(), field->Name());
    }

    QString scroll()
    {
        auto *bar = qobject_cast<QScrollBar *>(m_user.scrollBar()->widget());
        if (!bar->isEnabled())
            return QStringLiteral("nothing to scroll");
        bar->setValue(pick(bar->maximum() + 1));
        return QStringLiteral("scrolled to %1").arg(bar->value());
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
            const QString refused = refusedCharacterShown(*user.grid->Fields());
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
