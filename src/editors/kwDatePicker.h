#pragma once

#include <QDateEdit>

namespace kwFieldDeck {

// The editor of a date row: a date box with a drop-down calendar. Left and Right move between
// its day, month and year, and one Tab leaves it as it leaves every other row's editor.
class kwDatePicker : public QDateEdit
{
    Q_OBJECT
public:
    explicit kwDatePicker(QWidget *parent = nullptr);

    // Shows a date and a range without raising Change.
    void showDate(const QDate &date, const QDate &min, const QDate &max);

signals:
    // The user changed the date.
    void Change();
    void HasFocus();

protected:
    bool focusNextPrevChild(bool next) override;
    void focusInEvent(QFocusEvent *event) override;

private:
    bool m_showing = false;
};

} // namespace kwFieldDeck
