#pragma once

#include "platform/Control.h"

class QCheckBox;

namespace kwFieldDeck {

// The standard check box. Value 0 is unchecked, 1 checked, 2 grayed; a click by the user checks a
// box that is not checked (a grayed one included) and clears a checked one. Click comes on every
// change of the state, whether by the user or by code.
class CheckBox : public Control
{
    Q_OBJECT
public:
    explicit CheckBox(const QString &name, QObject *owner = nullptr);

    static constexpr const char *ClassId = "VB.CheckBox";

    qint16 Value() const;
    // Outside 0..2 is an invalid property value (380).
    void setValue(qint16 value);
    QString Caption() const;
    void setCaption(const QString &caption);
    // The side, in twips, of the square in which the box shows whole without its caption.
    float boxSide() const;

    // The widget, realized now if the box has none.
    QCheckBox *checkBox() const;

protected:
    QWidget *createWidget() override;
    void attach(QWidget *widget) override;

private:
    void changeState(int state);

    QString m_caption;
    qint16 m_value = 0;
};

} // namespace kwFieldDeck
