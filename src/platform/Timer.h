#pragma once

#include <QObject>
#include <QTimer>

namespace kwFieldDeck {

// A timer: Tick (the original's Timer event; a member cannot share its class's name) comes every
// Interval milliseconds while the timer is enabled; an interval of 0 stops it.
class Timer : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int Interval READ Interval WRITE setInterval)
    Q_PROPERTY(bool Enabled READ Enabled WRITE setEnabled)
public:
    explicit Timer(const QString &name, QObject *owner = nullptr);

    int Interval() const { return m_interval; }
    void setInterval(int interval);
    bool Enabled() const { return m_enabled; }
    void setEnabled(bool enabled);

signals:
    void Tick();

private:
    void restart();

    QTimer m_timer;
    int m_interval = 0;
    bool m_enabled = true;
};

} // namespace kwFieldDeck
