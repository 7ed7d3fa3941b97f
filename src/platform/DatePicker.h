#pragma once

#include "platform/Control.h"

#include <QDate>
#include <QVariant>

class QDateEdit;

namespace kwFieldDeck {

// The date picker: a date box with a drop-down calendar. Its value is a date; it starts on today.
class DatePicker : public Control
{
    Q_OBJECT
public:
    explicit DatePicker(const QString &name, QObject *owner = nullptr);

    static constexpr const char *ClassId = "MSComCtl2.DTPicker";

    QVariant Value() const;
    void setValue(const QDate &date);
    QDate MinDate() const;
    void setMinDate(const QDate &date);
    QDate MaxDate() const;
    void setMaxDate(const QDate &date);

    // The widget, realized now if the picker has none.
    QDateEdit *dateEdit() const;

signals:
    void Change();

protected:
    QWidget *createWidget() override;
    void attach(QWidget *widget) override;

private:
    void changeDate(const QDate &date);

    QDate m_date = QDate::currentDate();
    QDate m_minDate = QDate(1601, 1, 1);
    QDate m_maxDate = QDate(9999, 12, 31);
};

} // namespace kwFieldDeck
