#pragma once

#include <QCheckBox>

namespace kwFieldDeck {

// The editor of a check-box row: the box Check1 centred on a surface. A click on the surface
// beside the box works as a click on the box.
class kwSimpleCheck : public QWidget
{
    Q_OBJECT
public:
    explicit kwSimpleCheck(QWidget *parent = nullptr);

    // 0 unchecked, 1 checked, 2 grayed.
    qint16 Value() const;
    // Shows a value without raising Click.
    void showValue(qint16 value);

    QCheckBox *const Check1;

signals:
    // The box changed its state through the user.
    void Click();
    void HasFocus();

protected:
    void mouseReleaseEvent(QMouseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool m_showing = false;
};

} // namespace kwFieldDeck
