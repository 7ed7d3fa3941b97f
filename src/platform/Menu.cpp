#include "platform/Menu.h"

#include "platform/Error.h"

#include <QAction>
#include <QMenu>

namespace kwFieldDeck {

Menu::Menu(QMenu *menu, const QString &name, QObject *owner)
    : Menu(menu->menuAction(), name, owner)
{
    m_menu = menu;
}

Menu::Menu(QAction *action, const QString &name, QObject *owner)
    : QObject(owner)
    , m_action(action)
{
    setObjectName(name);
    action->setObjectName(name);
    connect(action, &QAction::triggered, this, &Menu::Click);
}

QString Menu::Caption() const
{
    return m_action->isSeparator() ? QStringLiteral("-") : m_action->text();
}

void Menu::setCaption(const QString &caption)
{
    m_action->setSeparator(caption == QLatin1String("-"));
    m_action->setText(caption);
}

bool Menu::Enabled() const
{
    return m_action->isEnabled();
}
void Menu::setEnabled(bool enabled)
{
    m_action->setEnabled(enabled);
}
bool Menu::Visible() const
{
    return m_action->isVisible();
}
void Menu::setVisible(bool visible)
{
    m_action->setVisible(visible);
}

Menu *Menu::addItem(const QString &name, const QString &caption)
{
    QAction *action = require(m_menu)->addAction(caption);
    auto *item = new Menu(action, name, parent());
    item->setCaption(caption);
    return item;
}

} // namespace kwFieldDeck
