#include "platform/Timer.h"

#include "platform/Error.h"

namespace kwFieldDeck {

Timer::Timer(const QString &name, QObject *owner)
    : QObject(owner)
{
    setObjectName(name);
    connect(&m_timer, &QTimer::timeout, this, &Timer::Tick);
}

void Timer::setInterval(int interval)
{
    if (interval < 0 || interval > 65535)
        raise(380, QStringLiteral("Invalid property value"));
    m_interval = interval;
    restart();
}

void Timer::setEnabled(bool enabled)
{
    m_enabled = enabled;
    restart();
}

void Timer::restart()
{
    if (m_enabled && m_interval > 0)
        m_timer.start(m_interval);
    else
        m_timer.stop();
}

} // namespace kwFieldDeck
