#include "runtime/Control.h"

#include "runtime/Error.h"

#include <QApplication>
#include <QFocusEvent>
#include <QFontMetricsF>
#include <QHash>
#include <QKeyEvent>
#include <QResizeEvent>
#include <QScreen>

#include <cmath>

namespace kwFieldDeck {

namespace {
const char *const wrapperProperty = "_kwControl";
const char *const poolProperty = "_kwWidgetPool";
const char *const focusPolicyProperty = "_kwFocusPolicy";

// The widgets released in a container, hidden and waiting by kind for the next control of that
// kind to be realized there. It lives in the container and goes with it.
class WidgetPool : public QObject
{
public:
    static WidgetPool *in(QWidget *container, bool create)
    {
        auto *pool
            = static_cast<WidgetPool *>(container->property(poolProperty).value<QObject *>());
        if (!pool && create) {
            pool = new WidgetPool;
            pool->setParent(container);
            container->setProperty(poolProperty, QVariant::fromValue<QObject *>(pool));
        }
        return pool;
    }

    QWidget *take(const void *kind)
    {
        auto found = m_free.find(kind);
        while (found != m_free.end() && !found->isEmpty()) {
            if (QWidget *widget = found->takeLast())
                return widget;
        }
        return nullptr;
    }

    void put(const void *kind, QWidget *widget) { m_free[kind].append(widget); }

private:
    QHash<const void *, QVector<QPointer<QWidget>>> m_free;
};

} // namespace

int keyCodeOf(int qtKey)
{
    if (qtKey >= Qt::Key_A && qtKey <= Qt::Key_Z)
        return 'A' + (qtKey - Qt::Key_A);
    if (qtKey >= Qt::Key_0 && qtKey <= Qt::Key_9)
        return '0' + (qtKey - Qt::Key_0);
    if (qtKey >= Qt::Key_F1 && qtKey <= Qt::Key_F24)
        return KeyCode::F1 + (qtKey - Qt::Key_F1);
    switch (qtKey) {
    case Qt::Key_Backspace:
        return KeyCode::Backspace;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return KeyCode::Tab;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return KeyCode::Return;
    case Qt::Key_Shift:
        return KeyCode::Shift;
    case Qt::Key_Control:
        return KeyCode::Control;
    case Qt::Key_Alt:
        return KeyCode::Alt;
    case Qt::Key_Escape:
        return KeyCode::Escape;
    case Qt::Key_Space:
        return KeyCode::Space;
    case Qt::Key_PageUp:
        return KeyCode::PageUp;
    case Qt::Key_PageDown:
        return KeyCode::PageDown;
    case Qt::Key_End:
        return KeyCode::End;
    case Qt::Key_Home:
        return KeyCode::Home;
    case Qt::Key_Left:
        return KeyCode::Left;
    case Qt::Key_Up:
        return KeyCode::Up;
    case Qt::Key_Right:
        return KeyCode::Right;
    case Qt::Key_Down:
        return KeyCode::Down;
    case Qt::Key_Insert:
        return KeyCode::Insert;
    case Qt::Key_Delete:
        return KeyCode::Delete;
    default:
        return 0;
    }
}

int shiftStateOf(Qt::KeyboardModifiers modifiers)
{
    int shift = 0;
    if (modifiers & Qt::ShiftModifier)
        shift |= ShiftState::Shift;
    if (modifiers & Qt::ControlModifier)
        shift |= ShiftState::Ctrl;
    if (modifiers & Qt::AltModifier)
        shift |= ShiftState::Alt;
    return shift;
}

Control::Control(QWidget *widget, const QString &name, QObject *owner)
    : QObject(owner)
    , m_name(name)
    , m_ownWidget(true)
{
    m_width = float(widget->width() * twipsPerPixelX());
    m_height = float(widget->height() * twipsPerPixelY());
    m_visible = !widget->isHidden();
    m_enabled = widget->isEnabled();
    bind(widget);
}

Control::Control(const QString &name, QObject *owner)
    : QObject(owner)
    , m_name(name)
{
}

Control::~Control()
{
    if (m_surface)
        m_surface->m_children.removeOne(this);
    for (Control *child : std::as_const(m_children))
        child->m_surface = nullptr;
    if (!m_widget)
        return;
    // A control being destroyed hears nothing more from its widget, not even the focus leaving.
    m_widget->removeEventFilter(this);
    disconnect(m_widget, nullptr, this, nullptr);
    if (m_ownWidget) {
        m_widget->setProperty(wrapperProperty, QVariant());
        if (!m_widget->parent())
            delete m_widget;
    } else {
        release();
    }
}

Control *Control::of(const QWidget *widget)
{
    return widget ? qobject_cast<Control *>(widget->property(wrapperProperty).value<QObject *>())
                  : nullptr;
}

QWidget *Control::widget() const
{
    return const_cast<Control *>(this)->realize();
}

QWidget *Control::Container() const
{
    return m_surface ? m_surface->m_widget.data() : m_container.data();
}

void Control::setContainer(QWidget *container)
{
    if (m_surface) {
        m_surface->m_children.removeOne(this);
        m_surface = nullptr;
    }
    m_container = container;
    if (m_widget) {
        m_widget->setParent(container);
        placeWidget();
    }
    updateWidget();
    showWidget();
}

void Control::setContainer(Control *surface)
{
    if (m_surface == surface)
        return;
    if (m_surface)
        m_surface->m_children.removeOne(this);
    if (!m_ownWidget)
        release();
    m_container = nullptr;
    m_surface = surface;
    if (surface)
        surface->m_children.append(this);
    if (m_ownWidget && m_widget) {
        m_widget->setParent(Container());
        placeWidget();
        showWidget();
    }
    updateWidget();
}

void Control::updateWidget()
{
    if (m_ownWidget)
        return;
    if (m_visible && m_inView && Container())
        realize();
    else if (!m_visible || !m_inView)
        release();
}

QWidget *Control::realize()
{
    if (m_ownWidget)
        return m_widget;
    // A part of a user control without a window of its own lives in that control's widget.
    if (m_surface && !m_surface->m_widget)
        m_surface->realize();
    QWidget *container = Container();
    if (m_widget) {
        if (container && m_widget->parentWidget() != container) {
            m_widget->setParent(container);
            placeWidget();
            showWidget();
        }
        return m_widget;
    }
    WidgetPool *pool = container ? WidgetPool::in(container, false) : nullptr;
    QWidget *widget = pool ? pool->take(widgetKind()) : nullptr;
    if (!widget) {
        widget = createWidget();
        if (!widget)
            return nullptr;
        widget->setProperty(focusPolicyProperty, int(widget->focusPolicy()));
        widget->setParent(container);
    }
    bind(widget);
    for (Control *child : std::as_const(m_children))
        child->updateWidget();
    applyAccessibleText();
    return widget;
}

void Control::bind(QWidget *widget)
{
    m_widget = widget;
    widget->setObjectName(m_name);
    widget->setProperty(wrapperProperty, QVariant::fromValue<QObject *>(this));
    widget->installEventFilter(this);
    if (m_ownWidget)
        return;
    placeWidget();
    widget->setEnabled(m_enabled);
    widget->setFocusPolicy(m_tabStopSet
            ? (m_tabStop ? Qt::StrongFocus : Qt::ClickFocus)
            : Qt::FocusPolicy(widget->property(focusPolicyProperty).toInt()));
    if (m_colorsSet)
        applyColors();
    else
        widget->setPalette(QPalette());
    applyFont();
    widget->setToolTip(m_toolTip);
    attach(widget);
    showWidget();
}

void Control::release()
{
    if (!m_widget || m_ownWidget)
        return;
    QWidget *widget = m_widget;
    // Hidden whole and still bound, so that a focus inside leaves the control as it leaves any
    // hidden control, past all of its parts.
    widget->hide();
    if (m_widget != widget)
        return;
    for (Control *child : std::as_const(m_children))
        child->release();
    detach(widget);
    disconnect(widget, nullptr, this, nullptr);
    widget->removeEventFilter(this);
    widget->setProperty(wrapperProperty, QVariant());
    m_widget = nullptr;
    if (QWidget *container = widget->parentWidget())
        WidgetPool::in(container, true)->put(widgetKind(), widget);
    else
        delete widget;
}

void Control::placeWidget()
{
    if (!m_widget)
        return;
    const int x = twipsToPixelsX(m_left);
    const int y = twipsToPixelsY(m_top);
    const int w = std::max(0, twipsToPixelsX(m_width));
    const int h = std::max(0, twipsToPixelsY(m_height));
    const QSize oldSize = m_widget->size();
    m_widget->setGeometry(x, y, w, h);
    // A hidden widget hears of its new size only when shown; a control lays out its children as
    // soon as it is sized, shown or not.
    if (m_widget->testAttribute(Qt::WA_PendingResizeEvent) && m_widget->size() != oldSize) {
        m_widget->setAttribute(Qt::WA_PendingResizeEvent, false);
        QResizeEvent resized(m_widget->size(), oldSize);
        QCoreApplication::sendEvent(m_widget, &resized);
    }
}

void Control::geometryChanged(int oldWidth, int oldHeight)
{
    placeWidget();
    if (twipsToPixelsX(m_width) != oldWidth || twipsToPixelsY(m_height) != oldHeight)
        resized();
}

void Control::setLeft(float left)
{
    m_left = left;
    placeWidget();
}

void Control::setTop(float top)
{
    m_top = top;
    placeWidget();
}

void Control::setWidth(float width)
{
    if (width < 0)
        raise(ErrInvalidCall);
    const int oldWidth = twipsToPixelsX(m_width), oldHeight = twipsToPixelsY(m_height);
    m_width = width;
    geometryChanged(oldWidth, oldHeight);
}

void Control::setHeight(float height)
{
    if (height < 0)
        raise(ErrInvalidCall);
    const int oldWidth = twipsToPixelsX(m_width), oldHeight = twipsToPixelsY(m_height);
    m_height = height;
    geometryChanged(oldWidth, oldHeight);
}

void Control::Move(float left, float top, std::optional<float> width, std::optional<float> height)
{
    if ((width && *width < 0) || (height && *height < 0))
        raise(ErrInvalidCall);
    const int oldWidth = twipsToPixelsX(m_width), oldHeight = twipsToPixelsY(m_height);
    m_left = left;
    m_top = top;
    if (width)
        m_width = *width;
    if (height)
        m_height = *height;
    geometryChanged(oldWidth, oldHeight);
}

void Control::setVisible(bool visible)
{
    m_visible = visible;
    updateWidget();
    showWidget();
}

void Control::setInView(bool inView)
{
    if (m_inView == inView)
        return;
    m_inView = inView;
    updateWidget();
    showWidget();
}

void Control::stackUnder(const Control *other)
{
    if (m_widget && other && other->m_widget)
        m_widget->stackUnder(other->m_widget);
}

void Control::showWidget()
{
    if (m_widget)
        m_widget->setVisible(m_visible && m_inView);
}

bool Control::Enabled() const
{
    if (m_widget)
        return m_widget->isEnabledTo(nullptr);
    return m_enabled && (!m_surface || m_surface->Enabled());
}

void Control::setEnabled(bool enabled)
{
    m_enabled = enabled;
    if (m_widget)
        m_widget->setEnabled(enabled);
}

bool Control::TabStop() const
{
    if (m_widget)
        return m_widget->focusPolicy() & Qt::TabFocus;
    return m_tabStopSet ? m_tabStop : true;
}

void Control::setTabStop(bool tabStop)
{
    m_tabStop = tabStop;
    m_tabStopSet = true;
    if (m_widget)
        m_widget->setFocusPolicy(tabStop ? Qt::StrongFocus : Qt::ClickFocus);
}

void Control::setBackColor(OleColor color)
{
    m_backColor = color;
    m_colorsSet = true;
    applyColors();
}

void Control::setForeColor(OleColor color)
{
    m_foreColor = color;
    m_colorsSet = true;
    applyColors();
}

void Control::applyColors()
{
    if (!m_widget)
        return;
    QPalette palette = m_widget->palette();
    const QPalette system = QApplication::palette(m_widget);
    const QColor back = toQColor(m_backColor, system);
    const QColor fore = toQColor(m_foreColor, system);
    for (QPalette::ColorRole role : { QPalette::Base, QPalette::Window, QPalette::Button })
        palette.setColor(role, back);
    for (QPalette::ColorRole role : { QPalette::Text, QPalette::WindowText, QPalette::ButtonText })
        palette.setColor(role, fore);
    m_widget->setPalette(palette);
}

QFont Control::Font() const
{
    if (m_fontSet)
        return m_font;
    if (m_widget)
        return m_widget->font();
    if (m_surface)
        return m_surface->Font();
    return m_container ? m_container->font() : QApplication::font();
}

void Control::setFont(const QFont &font)
{
    m_font = font;
    m_fontSet = true;
    applyFont();
}

void Control::applyFont()
{
    if (m_widget)
        m_widget->setFont(m_fontSet ? m_font : QFont());
}

void Control::setToolTipText(const QString &text)
{
    m_toolTip = text;
    if (m_widget)
        m_widget->setToolTip(text);
}

void Control::setAccessibleText(const QString &name, const QString &description)
{
    m_accessibleName = name;
    m_accessibleDescription = description;
    applyAccessibleText();
}

void Control::applyAccessibleText()
{
    if (!m_widget || (m_accessibleName.isEmpty() && m_accessibleDescription.isEmpty()))
        return;
    m_widget->setAccessibleName(m_accessibleName);
    m_widget->setAccessibleDescription(m_accessibleDescription);
    const QList<QWidget *> parts = m_widget->findChildren<QWidget *>();
    for (QWidget *part : parts) {
        if (part->focusPolicy() == Qt::NoFocus)
            continue;
        part->setAccessibleName(m_accessibleName);
        part->setAccessibleDescription(m_accessibleDescription);
    }
}

QVector<QWidget *> Control::tabWidgets() const
{
    QVector<QWidget *> widgets;
    if (!m_widget)
        return widgets;
    if (m_widget->focusPolicy() != Qt::NoFocus)
        widgets.append(m_widget);
    for (const Control *child : m_children)
        widgets += child->tabWidgets();
    return widgets;
}

void Control::SetFocus()
{
    // The row-focus routine asks again from every focus event of its row; a control that holds
    // the focus already, itself or in a child, keeps it where it is.
    if (hasFocus())
        return;
    if (!m_visible || !Enabled())
        raise(ErrInvalidCall, QStringLiteral("Invalid procedure call or argument"));
    // A control out of its container's view is realized for the focus; the container then
    // brings it into view as its focus arrives.
    for (Control *part = this; part; part = part->m_surface)
        part->setInView(true);
    QWidget *w = require(widget());
    w->setFocus(Qt::OtherFocusReason);
}

bool Control::hasFocus() const
{
    if (!m_widget)
        return false;
    // The window's focus widget, which keeps the focus while a dialog or another window is
    // active and gets it back when the window is active again.
    const QWidget *focus = m_widget->window()->focusWidget();
    return focus && (focus == m_widget || m_widget->isAncestorOf(focus));
}

bool Control::focusReturned() const
{
    const auto awayToWindow = [](Qt::FocusReason reason) {
        return reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason;
    };
    return awayToWindow(m_focusReason) && awayToWindow(m_lostFocusReason);
}

bool Control::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_widget)
        return QObject::eventFilter(watched, event);
    switch (event->type()) {
    case QEvent::FocusIn:
        m_focusReason = static_cast<QFocusEvent *>(event)->reason();
        emit GotFocus();
        break;
    case QEvent::FocusOut:
        m_lostFocusReason = static_cast<QFocusEvent *>(event)->reason();
        emit LostFocus();
        break;
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
        return filterKey(watched, event);
    case QEvent::MouseButtonDblClick:
        emit DblClick();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

// The character a key press types, as key handlers saw it: Ctrl with a letter types the control
// character (Ctrl+C 3, Ctrl+V 22, Ctrl+X 24), so that key filters can refuse a paste. Tab is the
// focus's, not a character; 0 for a key that types nothing.
int typedCharacter(const QKeyEvent &key)
{
    const Qt::KeyboardModifiers modifiers = key.modifiers();
    if ((modifiers & Qt::ControlModifier) && !(modifiers & Qt::AltModifier)
        && key.key() >= Qt::Key_A && key.key() <= Qt::Key_Z)
        return 1 + (key.key() - Qt::Key_A);
    const QString text = key.text();
    if (text.size() != 1 || text[0] == QLatin1Char('\t'))
        return 0;
    const QChar c = text[0];
    return c.isPrint() || c.unicode() < 32 ? c.unicode() : 0;
}

// Key down, then the typed character; a handler that zeroes either swallows the key. A handler
// that replaces the character has the new one typed instead.
bool Control::filterKey(QObject *watched, QEvent *event)
{
    auto *key = static_cast<QKeyEvent *>(event);
    if (m_resending)
        return false;
    if (event->type() == QEvent::ShortcutOverride) {
        // Keys that a handler may take must reach it before any shortcut does.
        return false;
    }
    int code = keyCodeOf(key->key());
    int shift = shiftStateOf(key->modifiers());
    if (event->type() == QEvent::KeyRelease) {
        if (code) {
            emit KeyUp(code, shift);
            return code == 0;
        }
        return false;
    }
    if (code) {
        emit KeyDown(code, shift);
        if (code == 0)
            return true;
    }
    int ascii = typedCharacter(*key);
    if (!ascii)
        return false;
    const int original = ascii;
    emit KeyPress(ascii);
    if (ascii == 0)
        return true;
    if (ascii != original) {
        QKeyEvent replaced(QEvent::KeyPress, 0, key->modifiers(), QString(QChar(ascii)));
        m_resending = true;
        QCoreApplication::sendEvent(watched, &replaced);
        m_resending = false;
        return true;
    }
    return false;
}

} // namespace kwFieldDeck
