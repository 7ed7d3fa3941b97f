#pragma once

#include "platform/Control.h"

class QPushButton;

namespace kwFieldDeck {

// The standard push button: a caption and Click.
class CommandButton : public Control
{
    Q_OBJECT
public:
    explicit CommandButton(const QString &name, QObject *owner = nullptr);

    static constexpr const char *ClassId = "VB.CommandButton";

    QString Caption() const;
    void setCaption(const QString &caption);

    // For a button that acts when it gets the focus: when a mouse press is what gave it the
    // focus, that press and its release make no Click, so one press acts once.
    void ignoreFocusingPress();

    // The widget, realized now if the button has none.
    QPushButton *pushButton() const;

protected:
    QWidget *createWidget() override;
    void attach(QWidget *widget) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QString m_caption;
    bool m_ignorePress = false;
};

} // namespace kwFieldDeck
