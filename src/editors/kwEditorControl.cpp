#include "editors/kwEditorControl.h"

#include "platform/Control.h"
#include "platform/PropertyBag.h"
#include "platform/Services.h"
#include "platform/Values.h"

#include <QHash>

#include <cmath>
#include <utility>

namespace kwFieldDeck {

kwEditorControl::kwEditorControl(const char *controlName)
    : m_controlName(controlName)
{
}

kwEditorControl::~kwEditorControl() = default;

const QByteArray &kwEditorControl::source(const char *kind, const char *name) const
{
    // Keyed by the literals' addresses: each call site passes the same ones every time.
    using Key = std::pair<const char *, std::pair<const char *, const char *>>;
    static QHash<Key, QByteArray> sources;
    const Key key { m_controlName, { kind, name } };
    auto found = sources.find(key);
    if (found == sources.end())
        found = sources.insert(
            key, QByteArray(kind) + " '" + name + "' of User Control '" + m_controlName + '\'');
    return *found;
}

OleColor kwEditorControl::BackColor() const
{
    return surfaceBackColor();
}

void kwEditorControl::setBackColor(OleColor color)
{
    changeProperty("BackColor", [&] { setSurfaceBackColor(color); });
}

OleColor kwEditorControl::ForeColor() const
{
    return m_ForeColor;
}

void kwEditorControl::setForeColor(OleColor color)
{
    changeProperty("ForeColor", [&] { m_ForeColor = color; });
}

bool kwEditorControl::Enabled() const
{
    return m_Enabled;
}

void kwEditorControl::setEnabled(bool enabled)
{
    changeProperty("Enabled", [&] { m_Enabled = enabled; });
}

QFont kwEditorControl::Font() const
{
    return m_Font;
}

void kwEditorControl::setFont(const QFont &font)
{
    changeProperty("Font", [&] { m_Font = font; });
}

qint16 kwEditorControl::BackStyle() const
{
    return qint16(surfaceBackStyle());
}

void kwEditorControl::setBackStyle(qint16 style)
{
    changeProperty("BackStyle", [&] { setSurfaceBackStyle(style); });
}

qint16 kwEditorControl::BorderStyle() const
{
    return qint16(surfaceBorderStyle());
}

void kwEditorControl::setBorderStyle(qint16 style)
{
    changeProperty("BorderStyle", [&] { setSurfaceBorderStyle(style); });
}

void kwEditorControl::Move(
    float Left, float Top, std::optional<float> Width, std::optional<float> Height)
{
    trap(source("Sub", "Move").constData(),
        [&] { require(extender())->Move(Left, Top, Width, Height); });
}

QWidget *kwEditorControl::Container() const
{
    return trap(source("Property", "Container").constData(),
        [&] { return require(extender())->Container(); });
}

void kwEditorControl::setContainer(QWidget *container)
{
    trap(source("Property", "Container").constData(),
        [&] { require(extender())->setContainer(container); });
}

float kwEditorControl::Top() const
{
    return trap(source("Property", "Top").constData(), [&] { return require(extender())->Top(); });
}

void kwEditorControl::setTop(float top)
{
    trap(source("Property", "Top").constData(), [&] { require(extender())->setTop(top); });
}

float kwEditorControl::Left() const
{
    return trap(
        source("Property", "Left").constData(), [&] { return require(extender())->Left(); });
}

void kwEditorControl::setLeft(float left)
{
    trap(source("Property", "Left").constData(), [&] { require(extender())->setLeft(left); });
}

float kwEditorControl::Height() const
{
    return trap(
        source("Property", "Height").constData(), [&] { return require(extender())->Height(); });
}

void kwEditorControl::setHeight(float height)
{
    trap(source("Property", "Height").constData(), [&] { require(extender())->setHeight(height); });
}

float kwEditorControl::Width() const
{
    return ScaleWidth();
}

void kwEditorControl::setWidth(float width)
{
    trap(source("Property", "Width").constData(), [&] {
        if (width < 0)
            kwFieldDeck::raise(ErrInvalidCall);
        resizeSurface(width);
    });
}

bool kwEditorControl::Visible() const
{
    return trap(
        source("Property", "Visible").constData(), [&] { return require(extender())->Visible(); });
}

void kwEditorControl::setContainerHwnd(qint32 hwnd)
{
    changeProperty("ContainerHwnd", [&] { m_ContainerHwnd = hwnd; });
}

qint16 kwEditorControl::ScaleMode() const
{
    return qint16(surfaceScaleMode());
}

void kwEditorControl::setScaleMode(qint16 mode)
{
    changeProperty("ScaleMode", [&] { setSurfaceScaleMode(mode); });
}

void kwEditorControl::SetFocus()
{
    const Control *outer = extender();
    if (outer && outer->hasFocus())
        return;
    trap(source("Sub", "SetFocus").constData(), [&] { require(focusTarget())->SetFocus(); });
}

Control *kwEditorControl::focusTarget()
{
    return extender();
}

bool kwEditorControl::moveToNeighbourRow(int &KeyCode, const QString &forward)
{
    switch (KeyCode) {
    case KeyCode::Up:
        KeyCode = 0;
        SendKeys(QStringLiteral("+{tab}"));
        return true;
    case KeyCode::Down:
        KeyCode = 0;
        SendKeys(forward);
        return true;
    default:
        return false;
    }
}

kwEditorControl::PersistedProperty kwEditorControl::colorProperty(const char *name,
    OleColor defaultValue, std::function<OleColor()> take, std::function<void(OleColor)> give)
{
    return { QString::fromLatin1(name), QVariant::fromValue<OleColor>(defaultValue),
        [take] { return QVariant::fromValue<OleColor>(take()); },
        [give](const QVariant &v) { give(OleColor(qint64(std::llround(toDouble(v))))); } };
}

kwEditorControl::PersistedProperty kwEditorControl::boolProperty(
    const char *name, bool defaultValue, std::function<bool()> take, std::function<void(bool)> give)
{
    return { QString::fromLatin1(name), QVariant(defaultValue), [take] { return QVariant(take()); },
        [give](const QVariant &v) { give(toBool(v)); } };
}

kwEditorControl::PersistedProperty kwEditorControl::int16Property(const char *name,
    qint16 defaultValue, std::function<qint16()> take, std::function<void(qint16)> give)
{
    return { QString::fromLatin1(name), int16Value(defaultValue),
        [take] { return int16Value(take()); }, [give](const QVariant &v) { give(toInt16(v)); } };
}

kwEditorControl::PersistedProperty kwEditorControl::int32Property(const char *name,
    qint32 defaultValue, std::function<qint32()> take, std::function<void(qint32)> give)
{
    return { QString::fromLatin1(name), int32Value(defaultValue),
        [take] { return int32Value(take()); }, [give](const QVariant &v) { give(toInt32(v)); } };
}

kwEditorControl::PersistedProperty kwEditorControl::textProperty(const char *name,
    const QString &defaultValue, std::function<QString()> take,
    std::function<void(const QString &)> give)
{
    return { QString::fromLatin1(name), textValue(defaultValue),
        [take] { return textValue(take()); }, [give](const QVariant &v) { give(textOf(v)); } };
}

kwEditorControl::PersistedProperty kwEditorControl::fontProperty(
    const char *name, std::function<QFont()> take, std::function<void(const QFont &)> give) const
{
    return { QString::fromLatin1(name), QVariant(ambientFont()),
        [take] { return QVariant(take()); },
        [give](const QVariant &v) { give(v.value<QFont>()); } };
}

kwEditorControl::PersistedProperty kwEditorControl::surfaceBackColorProperty(OleColor defaultValue)
{
    return colorProperty(
        "BackColor", defaultValue, [this] { return surfaceBackColor(); },
        [this](OleColor c) { setSurfaceBackColor(c); });
}

kwEditorControl::PersistedProperty kwEditorControl::surfaceBackStyleProperty()
{
    return int16Property(
        "BackStyle", 1, [this] { return qint16(surfaceBackStyle()); },
        [this](qint16 s) { setSurfaceBackStyle(s); });
}

kwEditorControl::PersistedProperty kwEditorControl::surfaceBorderStyleProperty()
{
    return int16Property(
        "BorderStyle", 0, [this] { return qint16(surfaceBorderStyle()); },
        [this](qint16 s) { setSurfaceBorderStyle(s); });
}

kwEditorControl::PersistedProperty kwEditorControl::scaleModeProperty()
{
    return int16Property(
        "ScaleMode", 1, [this] { return qint16(surfaceScaleMode()); },
        [this](qint16 m) { setSurfaceScaleMode(m); });
}

kwEditorControl::PersistedProperty kwEditorControl::foreColorMemberProperty()
{
    return colorProperty(
        "ForeColor", 0, [this] { return m_ForeColor; }, [this](OleColor c) { m_ForeColor = c; });
}

kwEditorControl::PersistedProperty kwEditorControl::enabledMemberProperty(bool defaultValue)
{
    return boolProperty(
        "Enabled", defaultValue, [this] { return m_Enabled; }, [this](bool e) { m_Enabled = e; });
}

kwEditorControl::PersistedProperty kwEditorControl::containerHwndProperty()
{
    return int32Property(
        "ContainerHwnd", 0, [this] { return m_ContainerHwnd; },
        [this](qint32 h) { m_ContainerHwnd = h; });
}

void kwEditorControl::UserControl_ReadProperties(PropertyBag &bag)
{
    trap(source("Sub", "UserControl_ReadProperties").constData(), [&] {
        for (const PersistedProperty &property : persistedProperties())
            property.give(bag.ReadProperty(property.name, property.defaultValue));
    });
}

void kwEditorControl::UserControl_WriteProperties(PropertyBag &bag) const
{
    trap(source("Sub", "UserControl_WriteProperties").constData(), [&] {
        // The table also says how to assign, so building it needs the non-const control;
        // writing only takes values from it.
        const auto properties = const_cast<kwEditorControl *>(this)->persistedProperties();
        for (const PersistedProperty &property : properties)
            bag.WriteProperty(property.name, property.take(), property.defaultValue);
    });
}

} // namespace kwFieldDeck
