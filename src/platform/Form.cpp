#include "platform/Form.h"

#include "platform/Control.h"
#include "platform/Error.h"
#include "platform/Menu.h"

#include <QApplication>
#include <QCloseEvent>
#include <QEventLoop>
#include <QKeyEvent>
#include <QMenuBar>
#include <QScreen>
#include <QTimer>
#include <QVBoxLayout>
#include <QWidget>

namespace kwFieldDeck {

namespace {
Form::ModalShowHook &installedHook()
{
    static Form::ModalShowHook hook;
    return hook;
}

// Key preview needs every key of the application before it reaches the focused control; a
// separate filter object keeps those events apart from the window's own.
class KeyPreviewFilter : public QObject
{
public:
    using Preview = std::function<bool(QObject *, QEvent *)>;
    KeyPreviewFilter(Preview preview, QObject *parent)
        : QObject(parent)
        , m_preview(std::move(preview))
    {
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::KeyPress && m_preview(watched, event))
            return true;
        return QObject::eventFilter(watched, event);
    }

private:
    Preview m_preview;
};
} // namespace

Form::Form(const QString &name, QObject *owner)
    : QObject(owner)
    , m_window(new QWidget(nullptr, Qt::Window))
    , m_client(new QWidget(m_window))
{
    setObjectName(name);
    m_window->setObjectName(name);
    m_client->setObjectName(name + QStringLiteral("_client"));
    auto *layout = new QVBoxLayout(m_window);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_client);
    m_window->installEventFilter(this);
    m_client->installEventFilter(this);
}

Form::~Form()
{
    // The window's last events must not reach a window class that is already gone.
    m_window->removeEventFilter(this);
    m_client->removeEventFilter(this);
    delete m_window;
}

QWidget *Form::window() const
{
    return m_window;
}
QWidget *Form::client() const
{
    return m_client;
}

QString Form::Caption() const
{
    return m_window->windowTitle();
}
void Form::setCaption(const QString &caption)
{
    m_window->setWindowTitle(caption);
}

void Form::setKeyPreview(bool keyPreview)
{
    if (keyPreview == m_keyPreview)
        return;
    m_keyPreview = keyPreview;
    if (keyPreview) {
        qApp->installEventFilter(new KeyPreviewFilter(
            [this](QObject *receiver, QEvent *event) { return previewKey(receiver, event); },
            this));
    } else {
        qDeleteAll(findChildren<KeyPreviewFilter *>(QString(), Qt::FindDirectChildrenOnly));
    }
}

void Form::setBorderStyle(int style)
{
    if (style != Sizable && style != FixedDialog)
        raise(380, QStringLiteral("Invalid property value"));
    m_borderStyle = style;
    applyBorderStyle();
}

void Form::applyBorderStyle()
{
    const bool wasVisible = m_window->isVisible();
    m_window->setWindowFlags(
        m_borderStyle == FixedDialog ? Qt::Dialog | Qt::MSWindowsFixedSizeDialogHint : Qt::Window);
    if (m_borderStyle == FixedDialog) {
        m_window->setFixedSize(m_window->size());
    } else {
        m_window->setMinimumSize(0, 0);
        m_window->setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    }
    if (wasVisible)
        m_window->show();
}

QFont Form::Font() const
{
    return m_window->font();
}
void Form::setFont(const QFont &font)
{
    m_window->setFont(font);
}

bool Form::Visible() const
{
    return m_window->isVisible();
}

float Form::ScaleWidth() const
{
    return float(m_client->width() * twipsPerPixelX());
}
float Form::ScaleHeight() const
{
    return float(m_client->height() * twipsPerPixelY());
}

void Form::setClientSize(float width, float height)
{
    const int menuHeight = m_menuBar ? m_menuBar->sizeHint().height() : 0;
    const QSize size(twipsToPixelsX(width), twipsToPixelsY(height) + menuHeight);
    if (m_borderStyle == FixedDialog)
        m_window->setFixedSize(size);
    else
        m_window->resize(size);
    m_client->resize(size.width(), size.height() - menuHeight);
}

QMenuBar *Form::menuBar() const
{
    return m_menuBar;
}

Menu *Form::addMenu(const QString &name, const QString &caption)
{
    if (!m_menuBar) {
        m_menuBar = new QMenuBar(m_window);
        static_cast<QVBoxLayout *>(m_window->layout())->setMenuBar(m_menuBar);
    }
    QMenu *menu = m_menuBar->addMenu(caption);
    return new Menu(menu, name, this);
}

void Form::Load()
{
    if (m_loaded)
        return;
    m_loaded = true;
    Form_Load();
}

void Form::Show(int modal)
{
    if (modal && m_modalLoop)
        raise(400, QStringLiteral("Form already displayed; can't show modally"));
    Load();
    if (!m_window->isVisible())
        m_window->setWindowModality(modal ? Qt::ApplicationModal : Qt::NonModal);
    if (!m_window->testAttribute(Qt::WA_Moved)) {
        // Centred over the window that opens it, or over the screen, unless it was placed.
        const QWidget *owner = QApplication::activeWindow();
        const QRect area = owner
            ? owner->frameGeometry()
            : (m_window->screen() ? m_window->screen()->availableGeometry() : QRect());
        if (area.isValid())
            m_window->move(area.center() - m_window->rect().center());
    }
    m_window->show();
    m_window->raise();
    m_window->activateWindow();
    Form_Activate();
    if (!modal)
        return;
    QEventLoop loop;
    m_modalLoop = &loop;
    if (const ModalShowHook hook = installedHook())
        QTimer::singleShot(0, this, [this, hook] { hook(*this); });
    if (m_window->isVisible())
        loop.exec(QEventLoop::DialogExec);
    m_modalLoop = nullptr;
}

void Form::Hide()
{
    m_window->hide();
}

void Form::Unload()
{
    unloadFor(FormCode);
}

bool Form::unloadFor(int unloadMode)
{
    int cancel = 0;
    Form_QueryUnload(cancel, unloadMode);
    if (cancel)
        return false;
    Form_Unload(cancel);
    if (cancel)
        return false;
    m_loaded = false;
    m_window->hide();
    return true;
}

Form::ModalShowHook Form::setModalShowHook(ModalShowHook hook)
{
    ModalShowHook previous = std::move(installedHook());
    installedHook() = std::move(hook);
    return previous;
}

bool Form::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_window) {
        switch (event->type()) {
        case QEvent::Close:
            // The close command is an unload that the query step may cancel.
            event->ignore();
            unloadFor(FormControlMenu);
            return true;
        case QEvent::Hide:
            if (m_modalLoop && !m_window->isVisible())
                m_modalLoop->quit();
            break;
        default:
            break;
        }
    } else if (watched == m_client && event->type() == QEvent::Resize) {
        Form_Resize();
    }
    return QObject::eventFilter(watched, event);
}

// The window's key handlers run first, once per key: only for the delivery to the focused
// control (or the window when nothing has focus), not again while the key travels to parents.
bool Form::previewKey(QObject *receiver, QEvent *event)
{
    QWidget *focus = QApplication::focusWidget();
    if (!receiver->isWidgetType() || receiver != (focus ? focus : m_window)
        || static_cast<QWidget *>(receiver)->window() != m_window) {
        return false;
    }
    auto *key = static_cast<QKeyEvent *>(event);
    int code = keyCodeOf(key->key());
    int shift = shiftStateOf(key->modifiers());
    if (code) {
        Form_KeyDown(code, shift);
        if (code == 0)
            return true;
    }
    int ascii = typedCharacter(*key);
    if (!ascii)
        return false;
    Form_KeyPress(ascii);
    return ascii == 0;
}

} // namespace kwFieldDeck
