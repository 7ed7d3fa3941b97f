#include "platform/CommandButton.h"

#include "platform/ClassFactory.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QPushButton>

namespace kwFieldDeck {

namespace {
const bool registered = ClassFactory::registerClass(
    QLatin1String(CommandButton::ClassId), [](const QString &name, QObject *owner) -> Control * {
        return new CommandButton(name, owner);
    });
} // namespace

CommandButton::CommandButton(const QString &name, QObject *owner)
    : Control(name, owner)
{
    Q_UNUSED(registered)
}

QWidget *CommandButton::createWidget()
{
    auto *button = new QPushButton;
    button->setAutoDefault(false);
    return button;
}

void CommandButton::attach(QWidget *widget)
{
    auto *button = static_cast<QPushButton *>(widget);
    button->setText(m_caption);
    connect(button, &QPushButton::clicked, this, &Control::Click);
}

QPushButton *CommandButton::pushButton() const
{
    return static_cast<QPushButton *>(widget());
}

QString CommandButton::Caption() const
{
    return m_caption;
}

void CommandButton::setCaption(const QString &caption)
{
    m_caption = caption;
    if (auto *button = static_cast<QPushButton *>(realizedWidget()))
        button->setText(caption);
}

void CommandButton::ignoreFocusingPress()
{
    // A mouse press gives the focus before the button sees the press itself.
    if (lastFocusReason() == Qt::MouseFocusReason)
        m_ignorePress = true;
}

bool CommandButton::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == realizedWidget() && m_ignorePress) {
        switch (event->type()) {
        case QEvent::MouseButtonPress:
            // When the button was released while a dialog was open, no release follows.
            if (!(QGuiApplication::mouseButtons() & static_cast<QMouseEvent *>(event)->button()))
                m_ignorePress = false;
            return true;
        case QEvent::MouseButtonRelease:
            m_ignorePress = false;
            return true;
        default:
            break;
        }
    }
    return Control::eventFilter(watched, event);
}

} // namespace kwFieldDeck
