#include "runtime/UserControl.h"

#include "runtime/Control.h"
#include "runtime/Error.h"

#include <QApplication>

namespace kwFieldDeck {

UserControl::UserControl(QWidget *surface)
    : m_surface(surface)
{
    // The host surface shows the button face behind its children.
    QPalette palette = surface->palette();
    palette.setColor(
        QPalette::Window, toQColor(SystemColor::ButtonFace, QApplication::palette(surface)));
    surface->setPalette(palette);
    surface->setAutoFillBackground(true);
    surface->installEventFilter(this);
}

UserControl::~UserControl() = default;

Control *UserControl::extender() const
{
    return Control::of(m_surface);
}

float UserControl::extenderWidth() const
{
    if (const Control *outer = extender())
        return outer->Width();
    return float(m_surface->width() * twipsPerPixelX());
}

float UserControl::extenderHeight() const
{
    if (const Control *outer = extender())
        return outer->Height();
    return float(m_surface->height() * twipsPerPixelY());
}

float UserControl::ScaleWidth() const
{
    return float(m_surface->width() * twipsPerPixelX());
}

QFont UserControl::ambientFont() const
{
    return m_surface->parentWidget() ? m_surface->parentWidget()->font() : QApplication::font();
}

void UserControl::initNew()
{
    UserControl_InitProperties();
}

void UserControl::paintThrough(QWidget *child)
{
    child->installEventFilter(this);
}

bool UserControl::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_surface) {
        // The surface's own events: its handlers run as its resize and paint handlers would.
        if (event->type() == QEvent::Resize)
            UserControl_Resize();
        else if (event->type() == QEvent::Paint)
            UserControl_Paint();
        return false;
    }
    if (event->type() == QEvent::Paint && !m_paintPending) {
        m_paintPending = true;
        QMetaObject::invokeMethod(
            this,
            [this] {
                m_paintPending = false;
                UserControl_Paint();
            },
            Qt::QueuedConnection);
    }
    return false;
}

} // namespace kwFieldDeck
