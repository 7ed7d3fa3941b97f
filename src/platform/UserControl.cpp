#include "platform/UserControl.h"

#include "platform/ClassFactory.h"
#include "platform/Control.h"
#include "platform/Error.h"
#include "platform/PropertyBag.h"

#include <QApplication>

#include <utility>

namespace kwFieldDeck {

namespace {
// A user control's few children are found by looking through them; the grid's many by name.
constexpr qsizetype HashedFrom = 16;
} // namespace

Control *ControlCollection::create(const QString &classId, const QString &name)
{
    if (Item(name))
        raise(727, QStringLiteral("There is already a control with the name '%1'").arg(name));
    Control *control = ClassFactory::create(classId, name, m_owner);
    m_controls.append(control);
    if (m_controls.size() == HashedFrom) {
        for (Control *each : std::as_const(m_controls))
            m_byName.insert({ each->Name() }, each);
    } else if (m_controls.size() > HashedFrom) {
        m_byName.insert({ name }, control);
    }
    return control;
}

Control *ControlCollection::Add(const QString &classId, const QString &name, QWidget *container)
{
    Control *control = create(classId, name);
    control->setContainer(container);
    return control;
}

Control *ControlCollection::Add(const QString &classId, const QString &name, Control *container)
{
    Control *control = create(classId, name);
    control->setContainer(container);
    return control;
}

void ControlCollection::deleteAll()
{
    const QVector<Control *> controls = std::exchange(m_controls, {});
    m_byName.clear();
    qDeleteAll(controls);
}

Control *ControlCollection::Item(const QString &name) const
{
    if (m_controls.size() >= HashedFrom)
        return m_byName.value({ name });
    for (Control *control : m_controls) {
        if (control->Name().compare(name, Qt::CaseInsensitive) == 0)
            return control;
    }
    return nullptr;
}

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
void UserControl::readProperties(PropertyBag &bag)
{
    UserControl_ReadProperties(bag);
}
void UserControl::writeProperties(PropertyBag &bag) const
{
    UserControl_WriteProperties(bag);
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
