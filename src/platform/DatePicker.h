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

    QDateEdit *dateEdit() const;

signals:
    void Change();
};

} // namespace kwFieldDeck
