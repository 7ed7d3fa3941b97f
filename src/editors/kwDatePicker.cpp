#include "editors/kwDatePicker.h"

#include <QFocusEvent>

namespace kwFieldDeck {

kwDatePicker::kwDatePicker(QWidget *parent)
    : QDateEdit(parent)
{
    setCalendarPopup(true);
    connect(this, &QDateEdit::dateChanged, this, [this] {
        if (!m_showing)
            emit Change();
    });
}

void kwDatePicker::showDate(const QDate &date, const QDate &min, const QDate &max)
{
    m_showing = true;
    setDateRange(min, max);
    setDate(date);
    m_showing = false;
}

bool kwDatePicker::focusNextPrevChild(bool next)
{
    return QWidget::focusNextPrevChild(next);
}

void kwDatePicker::focusInEvent(QFocusEvent *event)
{
    QDateEdit::focusInEvent(event);
    const Qt::FocusReason reason = event->reason();
    // The focus coming back from the closed calendar is no new arrival.
    if (reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason)
        emit HasFocus();
}

} // namespace kwFieldDeck
