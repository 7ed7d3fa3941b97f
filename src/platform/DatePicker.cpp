#include "platform/DatePicker.h"

#include "platform/Error.h"

#include <QDateEdit>
#include <QSignalBlocker>

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
    : Control(name, owner)
{
}

QWidget *DatePicker::createWidget()
{
    auto *edit = new RowDateEdit;
    edit->setCalendarPopup(true);
    return edit;
}

void DatePicker::attach(QWidget *widget)
{
    auto *edit = static_cast<QDateEdit *>(widget);
    {
        const QSignalBlocker quiet(edit);
        edit->setDateRange(m_minDate, m_maxDate);
        edit->setDate(m_date);
    }
    connect(edit, &QDateEdit::dateChanged, this, &DatePicker::changeDate);
}

QDateEdit *DatePicker::dateEdit() const
{
    return static_cast<QDateEdit *>(widget());
}

void DatePicker::changeDate(const QDate &date)
{
    m_date = date;
    emit Change();
}

QVariant DatePicker::Value() const
{
    return m_date;
}

void DatePicker::setValue(const QDate &date)
{
    if (!date.isValid() || date < m_minDate || date > m_maxDate)
        raise(380, QStringLiteral("Invalid property value"));
    if (auto *edit = static_cast<QDateEdit *>(realizedWidget()))
        edit->setDate(date);
    else if (date != m_date)
        changeDate(date);
}

QDate DatePicker::MinDate() const
{
    return m_minDate;
}

void DatePicker::setMinDate(const QDate &date)
{
    m_minDate = date;
    if (m_maxDate < date)
        m_maxDate = date;
    if (auto *edit = static_cast<QDateEdit *>(realizedWidget()))
        edit->setMinimumDate(date);
    else if (m_date < date)
        changeDate(date);
}

QDate DatePicker::MaxDate() const
{
    return m_maxDate;
}

void DatePicker::setMaxDate(const QDate &date)
{
    m_maxDate = date;
    if (m_minDate > date)
        m_minDate = date;
    if (auto *edit = static_cast<QDateEdit *>(realizedWidget()))
        edit->setMaximumDate(date);
    else if (m_date > date)
        changeDate(date);
}

} // namespace kwFieldDeck
