#include "platform/StatusBar.h"

#include "platform/ClassFactory.h"
#include "platform/Error.h"
#include "platform/StatusBarPanel.h"

#include <QEvent>
#include <QLabel>
#include <QStatusBar>

namespace kwFieldDeck {

namespace {
const bool registered = ClassFactory::registerClass(QLatin1String(StatusBar::ClassId),
    [](const QString &name, QObject *owner) -> Control * { return new StatusBar(name, owner); });
} // namespace

StatusBar::StatusBar(const QString &name, QObject *owner)
    : Control(new QStatusBar, name, owner)
{
    statusBar()->setSizeGripEnabled(true);
}

QStatusBar *StatusBar::statusBar() const
{
    return static_cast<QStatusBar *>(widget());
}

StatusBarPanel *StatusBar::AddPanel(int autoSize)
{
    auto *label = new QLabel;
    statusBar()->addWidget(label, autoSize == StatusBarPanel::Spring ? 1 : 0);
    auto *panel = new StatusBarPanel(label, autoSize, this);
    m_panels.append(panel);
    dock();
    return panel;
}

StatusBarPanel *StatusBar::Panels(int index) const
{
    if (index < 1 || index > m_panels.size())
        raise(ErrSubscriptOutOfRange);
    return m_panels.at(index - 1);
}

void StatusBar::dock()
{
    QWidget *container = Container();
    if (container != m_dockedIn) {
        if (m_dockedIn)
            m_dockedIn->removeEventFilter(this);
        m_dockedIn = container;
        if (container)
            container->installEventFilter(this);
    }
    if (!container)
        return;
    const float height = float(statusBar()->sizeHint().height() * twipsPerPixelY());
    const float containerHeight = float(container->height() * twipsPerPixelY());
    const float containerWidth = float(container->width() * twipsPerPixelX());
    Move(0, containerHeight - height, containerWidth, height);
}

bool StatusBar::eventFilter(QObject *watched, QEvent *event)
{
    if ((watched == m_dockedIn && event->type() == QEvent::Resize)
        || (watched == widget() && event->type() == QEvent::ParentChange)) {
        dock();
    }
    return Control::eventFilter(watched, event);
}

} // namespace kwFieldDeck
