#include "platform/WindowlessUserControl.h"

#include "platform/Control.h"

#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace kwFieldDeck {

namespace {
// The widget of a host surface: its back colour unless transparent, and a one-pixel border for
// border style 1.
class SurfaceWidget : public QWidget
{
public:
    bool bordered = false;

protected:
    void paintEvent(QPaintEvent *event) override
    {
        QWidget::paintEvent(event);
        if (!bordered)
            return;
        QPainter painter(this);
        painter.setPen(palette().color(QPalette::Dark));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
};
} // namespace

// The extender of a user control without a window: its widget is the host surface, pooled per
// kind of user control with the children's widgets left on it, and the surface's focus, keys,
// clicks and size reach the user control from here.
class SurfaceExtender : public Control
{
public:
    explicit SurfaceExtender(WindowlessUserControl *userControl)
        : Control(QString(), nullptr)
        , m_userControl(userControl)
    {
        userControl->setParent(this);
    }

    WindowlessUserControl *userControl() const { return m_userControl; }
    using Control::setName;

    void applySurface()
    {
        auto *surface = static_cast<SurfaceWidget *>(realizedWidget());
        if (!surface)
            return;
        QPalette palette;
        palette.setColor(
            QPalette::Window, toQColor(m_userControl->m_backColor, QApplication::palette()));
        surface->setPalette(palette);
        // Back style 0 is transparent: the container shows through.
        surface->setAutoFillBackground(m_userControl->m_backStyle != 0);
        surface->bordered = m_userControl->m_borderStyle == 1;
        surface->update();
    }

protected:
    QWidget *createWidget() override
    {
        auto *surface = new SurfaceWidget;
        // The focus belongs to the children; the surface takes it only when given it in code.
        surface->setFocusPolicy(Qt::NoFocus);
        return surface;
    }

    const void *widgetKind() const override { return m_userControl->metaObject(); }

    void attach(QWidget *widget) override
    {
        applySurface();
        if (widget->width() != m_userControl->m_surfaceWidth)
            widget->resize(m_userControl->m_surfaceWidth, widget->height());
    }

    // The user control's own colours are on the surface.
    void applyColors() override { }

    void resized() override
    {
        m_userControl->m_surfaceWidth = twipsToPixelsX(Width());
        m_userControl->surfaceResized();
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        const bool taken = Control::eventFilter(watched, event);
        if (taken || watched != realizedWidget())
            return taken;
        switch (event->type()) {
        case QEvent::FocusIn:
            m_userControl->UserControl_GotFocus();
            break;
        case QEvent::KeyPress:
            m_userControl->UserControl_KeyPress(static_cast<QKeyEvent *>(event));
            return event->isAccepted();
        case QEvent::MouseButtonRelease: {
            const auto *mouse = static_cast<QMouseEvent *>(event);
            if (mouse->button() == Qt::LeftButton
                && realizedWidget()->rect().contains(mouse->position().toPoint()))
                m_userControl->UserControl_Click();
            break;
        }
        default:
            break;
        }
        return false;
    }

private:
    WindowlessUserControl *m_userControl;
};

// The extender exists from the start, so that the constructor can put children on its surface;
// it gets its name and owner when the class factory places it.
WindowlessUserControl::WindowlessUserControl()
    : m_extender(new SurfaceExtender(this))
    , m_controls(this)
{
    // A new user control has the size of a new window, so that its children have room until
    // the container gives it its own size.
    constexpr int DesignWidth = 640, DesignHeight = 480;
    m_extender->Move(
        0, 0, float(DesignWidth * twipsPerPixelX()), float(DesignHeight * twipsPerPixelY()));
}

WindowlessUserControl::~WindowlessUserControl() = default;

Control *WindowlessUserControl::makeExtender(const QString &name, QObject *owner)
{
    static_cast<SurfaceExtender *>(m_extender)->setName(name);
    m_extender->setParent(owner);
    return m_extender;
}

WindowlessUserControl *WindowlessUserControl::of(const Control *extender)
{
    const auto *surface = dynamic_cast<const SurfaceExtender *>(extender);
    return surface ? surface->userControl() : nullptr;
}

float WindowlessUserControl::extenderWidth() const
{
    return m_extender->Width();
}
float WindowlessUserControl::extenderHeight() const
{
    return m_extender->Height();
}

float WindowlessUserControl::ScaleWidth() const
{
    return float(m_surfaceWidth * twipsPerPixelX());
}

void WindowlessUserControl::resizeSurface(float width)
{
    const int pixels = twipsToPixelsX(width);
    if (pixels == m_surfaceWidth)
        return;
    m_surfaceWidth = pixels;
    if (QWidget *surface = m_extender->realizedWidget())
        surface->resize(pixels, surface->height());
    surfaceResized();
}

void WindowlessUserControl::surfaceResized()
{
    UserControl_Resize();
}

void WindowlessUserControl::setSurfaceBackColor(OleColor color)
{
    m_backColor = color;
    static_cast<SurfaceExtender *>(m_extender)->applySurface();
}

void WindowlessUserControl::setSurfaceBackStyle(int style)
{
    m_backStyle = style;
    static_cast<SurfaceExtender *>(m_extender)->applySurface();
}

void WindowlessUserControl::setSurfaceBorderStyle(int style)
{
    m_borderStyle = style;
    static_cast<SurfaceExtender *>(m_extender)->applySurface();
}

QFont WindowlessUserControl::ambientFont() const
{
    const QWidget *container = m_extender->Container();
    return container ? container->font() : QApplication::font();
}

QWidget *WindowlessUserControl::window() const
{
    const QWidget *container = m_extender->Container();
    return container ? container->window() : nullptr;
}

} // namespace kwFieldDeck
