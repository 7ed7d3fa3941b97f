#include "platform/DatePicker.h"

#include "platform/Error.h"

#include <QDateEdit>

namespace kwFieldDeck {

namespace {
// One Tab leaves the picker, as it leaves every other row's editor; Left and Right move
// between the day, month and year.
class RowDateEdit : public QDateEdit
{
public:
    RowDateEdit()
        : QDateEdit(QDate::currentDate())
    {
    }

protected:
    bool focusNextPrevChild(bool next) override { return QWidget::focusNextPrevChild(next); }
};
} // namespace

DatePicker::DatePicker(const QString &name, QObject *owner)
    : Control(new RowDateEdit, name, owner)
{
    QDateEdit *edit = dateEdit();
    edit->setCalendarPopup(true);
    edit->setMinimumDate(QDate(1601, 1, 1));
    edit->setMaximumDate(QDate(9999, 12, 31));
    connect(edit, &QDateEdit::dateChanged, this, &DatePicker::Change);
}

QDateEdit *DatePicker::dateEdit() const { return static_cast<QDateEdit *>(widget()); }

QVariant DatePicker::Value() const { return dateEdit()->date(); }

void DatePicker::setValue(const QDate &date)
{
    if (!date.isValid() || date < dateEdit()->minimumDate() || date > dateEdit()->maximumDate())
        raise(380, QStringLiteral("Invalid property value"));
    dateEdit()->setDate(date);
}

QDate DatePicker::MinDate() const { return dateEdit()->minimumDate(); }
void DatePicker::setMinDate(const QDate &date) { dateEdit()->setMinimumDate(date); }
QDate DatePicker::MaxDate() const { return dateEdit()->maximumDate(); }
void DatePicker::setMaxDate(const QDate &date) { dateEdit()->setMaximumDate(date); }

} // namespace kwFieldDeck
