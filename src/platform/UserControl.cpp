#include "platform/UserControl.h"

#include "platform/ClassFactory.h"
#include "platform/Control.h"
#include "platform/Error.h"
#include "platform/PropertyBag.h"

#include <QApplication>

namespace kwFieldDeck {

namespace {
bool &defaultUserMode()
{
    static bool userMode = true;
    return userMode;
}
} // namespace

void setDefaultAmbientUserMode(bool userMode)
{
    defaultUserMode() = userMode;
}

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

UserControl::UserControl(QWidget *parent)
    : QWidget(parent)
{
    // The host surface shows the button face behind its children.
    QPalette palette = this->palette();
    palette.setColor(
        QPalette::Window, toQColor(SystemColor::ButtonFace, QApplication::palette(this)));
    setPalette(palette);
    setAutoFillBackground(true);
}

UserControl::~UserControl() = default;

Control *UserControl::extender() const
{
    return Control::of(this);
}

float UserControl::extenderWidth() const
{
    if (const Control *outer = extender())
        return outer->Width();
    return float(width() * twipsPerPixelX());
}

float UserControl::extenderHeight() const
{
    if (const Control *outer = extender())
        return outer->Height();
    return float(height() * twipsPerPixelY());
}

float UserControl::ScaleWidth() const
{
    return float(width() * twipsPerPixelX());
}

bool UserControl::ambientUserMode() const
{
    if (m_userMode >= 0)
        return m_userMode == 1;
    for (QWidget *outer = parentWidget(); outer; outer = outer->parentWidget()) {
        if (auto *container = qobject_cast<UserControl *>(outer))
            return container->ambientUserMode();
    }
    return defaultUserMode();
}

void UserControl::setAmbientUserMode(bool userMode)
{
    m_userMode = userMode ? 1 : 0;
}

QFont UserControl::ambientFont() const
{
    return parentWidget() ? parentWidget()->font() : QApplication::font();
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
    return QWidget::eventFilter(watched, event);
}

void UserControl::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    UserControl_Resize();
}

void UserControl::paintEvent(QPaintEvent *event)
{
    QWidget::paintEvent(event);
    UserControl_Paint();
}

} // namespace kwFieldDeck
