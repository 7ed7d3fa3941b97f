// The rows edited in a single box: text, number and date.

#include "editors/FieldKinds_p.h"

#include "editors/RowPainter.h"
#include "editors/kwDatePicker.h"
#include "editors/kwTextBox.h"
#include "runtime/Error.h"
#include "runtime/Values.h"

#include <QElapsedTimer>

namespace kwFieldDeck {

namespace {
// Text set by the program is shown from the start of the box.
void showTextIn(kwTextBox *box, const QString &text)
{
    if (box->text() != text)
        box->showText(text);
}
} // namespace

TextKind::TextKind(bool numeric, Sources sources)
    : FieldKind(sources)
    , m_numeric(numeric)
{
}

void TextKind::create(EditorState &state, const QVariant &value) const
{
    state.text = textOf(value);
}

void TextKind::showValue(QVariant &stored, EditorState &state, Changes &changes) const
{
    QString text;
    if (m_numeric) {
        text = textOf(doubleValue(leadingNumber(textOf(stored))));
    } else {
        switch (kindOf(stored)) {
        case ValueKind::Text:
        case ValueKind::Int16:
        case ValueKind::Int32:
        case ValueKind::Single:
        case ValueKind::Double:
        case ValueKind::Date:
            text = textOf(stored);
            break;
        default:
            // Empty, boolean and object values are stored but not shown: intended.
            return;
        }
    }
    if (text == state.text)
        return;
    state.text = text;
    changes << reportedValue(state);
}

QVariant TextKind::reportedValue(const EditorState &state) const
{
    if (m_numeric)
        return doubleValue(leadingNumber(state.text));
    return textValue(state.text);
}

QString TextKind::valueText(const EditorState &state) const
{
    return state.text;
}

void TextKind::applyColors(QPalette &palette, const EditorState &state) const
{
    if (!state.colorsSet)
        return;
    const QColor back = toQColor(state.backColor, palette);
    const QColor fore = toQColor(state.foreColor, palette);
    for (QPalette::ColorGroup group :
        { QPalette::Active, QPalette::Inactive, QPalette::Disabled }) {
        palette.setColor(group, QPalette::Base, back);
        if (group != QPalette::Disabled)
            palette.setColor(group, QPalette::Text, fore);
    }
}

void TextKind::paint(const EditorPaint &paint, const EditorState &state) const
{
    RowPainter::lineEdit(paint.painter, paint.widget, paint.rect, state.text, paint.palette,
        paint.font, paint.enabled, RowPainter::Frame::Flat);
}

QWidget *TextKind::createEditor(QWidget *parent, EditorEvents *events) const
{
    auto *box = new kwTextBox(parent);
    box->setObjectName(m_numeric ? QStringLiteral("Numeric") : QStringLiteral("TextBox"));
    box->setFlat(true);
    box->setNumeric(m_numeric);
    box->setProperty("kwRowKeys", true);
    QObject::connect(box, &kwTextBox::Change, box, [events] { events->editorChanged(); });
    QObject::connect(box, &kwTextBox::HasFocus, box, [events] { events->editorFocused(); });
    return box;
}

void TextKind::UpdateControl(QWidget *editor, const EditorState &state) const
{
    auto *box = static_cast<kwTextBox *>(editor);
    box->setUserMaxLength(m_numeric ? 0 : state.maxLength);
    showTextIn(box, state.text);
}

void TextKind::GetValueFromControl(QWidget *editor, EditorState &state) const
{
    state.text = static_cast<kwTextBox *>(editor)->text();
}

namespace {
const QDate EarliestDate(1601, 1, 1);

// Today, read from the clock at most once a second: reading the local date consults the time
// zone files, which thousands of date rows made at once would do thousands of times.
QDate today()
{
    static QElapsedTimer sinceRead;
    static QDate date;
    if (!sinceRead.isValid() || sinceRead.elapsed() > 1000) {
        date = QDate::currentDate();
        sinceRead.start();
    }
    return date;
}
const QDate LatestDate(9999, 12, 31);

// The picker refuses a date outside its range.
void checkInRange(const EditorState &state, const QDate &date)
{
    if (!date.isValid() || date < state.minDate || date > state.maxDate)
        raise(380, QStringLiteral("Invalid property value"));
}

void moveDate(EditorState &state, const QDate &date, Changes &changes)
{
    if (date == state.date)
        return;
    state.date = date;
    changes << QVariant(state.date);
}
} // namespace

void DateKind::create(EditorState &state, const QVariant &value) const
{
    // A new picker shows today until it is given a date.
    state.date = today();
    state.minDate = EarliestDate;
    state.maxDate = LatestDate;
    if (isDate(value)) {
        const QDate date = toDate(value);
        checkInRange(state, date);
        state.date = date;
    }
}

void DateKind::showValue(QVariant &stored, EditorState &state, Changes &changes) const
{
    if (!isDate(stored))
        return;
    const QDate date = toDate(stored);
    checkInRange(state, date);
    moveDate(state, date, changes);
}

void DateKind::applyMin(const QVariant &min, EditorState &state, Changes &changes) const
{
    if (!isDate(min))
        return;
    const QDate date = toDate(min);
    state.minDate = date;
    if (state.maxDate < date)
        state.maxDate = date;
    if (state.date < date)
        moveDate(state, date, changes);
}

// Max reaches the picker only when Min is a date: intended.
void DateKind::applyMax(
    const QVariant &min, const QVariant &max, EditorState &state, Changes &changes) const
{
    if (!isDate(min))
        return;
    const QDate date = toDate(max);
    state.maxDate = date;
    if (state.minDate > date)
        state.minDate = date;
    if (state.date > date)
        moveDate(state, date, changes);
}

// An empty picker's value is passed on as it comes.
QVariant DateKind::reportedValue(const EditorState &state) const
{
    return QVariant(state.date);
}

QString DateKind::valueText(const EditorState &state) const
{
    return RowPainter::dateText(state.date);
}

void DateKind::paint(const EditorPaint &paint, const EditorState &state) const
{
    RowPainter::comboBox(paint.painter, paint.widget, paint.rect, RowPainter::dateText(state.date),
        paint.palette, paint.font, paint.enabled, RowPainter::Combo::Editable);
}

QWidget *DateKind::createEditor(QWidget *parent, EditorEvents *events) const
{
    auto *picker = new kwDatePicker(parent);
    picker->setObjectName(QStringLiteral("DTPicker"));
    QObject::connect(picker, &kwDatePicker::Change, picker, [events] { events->editorChanged(); });
    QObject::connect(
        picker, &kwDatePicker::HasFocus, picker, [events] { events->editorFocused(); });
    return picker;
}

void DateKind::UpdateControl(QWidget *editor, const EditorState &state) const
{
    static_cast<kwDatePicker *>(editor)->showDate(state.date, state.minDate, state.maxDate);
}

void DateKind::GetValueFromControl(QWidget *editor, EditorState &state) const
{
    state.date = static_cast<kwDatePicker *>(editor)->date();
}

} // namespace kwFieldDeck
