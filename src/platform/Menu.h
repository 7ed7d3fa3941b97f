#pragma once

#include <QObject>
#include <QString>

class QAction;
class QMenu;

namespace kwFieldDeck {

// A menu of a window: a title on the menu bar, or an item under one. The caption "-" makes an
// item a separator. Click comes when the user (or code, through the action) chooses it.
class Menu : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString Caption READ Caption WRITE setCaption)
    Q_PROPERTY(bool Enabled READ Enabled WRITE setEnabled)
    Q_PROPERTY(bool Visible READ Visible WRITE setVisible)
public:
    // A title on the menu bar, holding the given drop-down menu.
    Menu(QMenu *menu, const QString &name, QObject *owner);

    QString Name() const { return objectName(); }
    QString Caption() const;
    void setCaption(const QString &caption);
    bool Enabled() const;
    void setEnabled(bool enabled);
    bool Visible() const;
    void setVisible(bool visible);

    // An item of this title's drop-down menu, in order.
    Menu *addItem(const QString &name, const QString &caption);

    QAction *action() const { return m_action; }
    QMenu *menu() const { return m_menu; }

signals:
    void Click();

private:
    Menu(QAction *action, const QString &name, QObject *owner);

    QAction *m_action;
    QMenu *m_menu = nullptr;
};

} // namespace kwFieldDeck
