#include "platform/PropertyBag.h"

#include <QSettings>

namespace kwFieldDeck {

namespace {
bool equalsDefault(const QVariant &value, const QVariant &defaultValue)
{
    return defaultValue.isValid() && value == defaultValue;
}
} // namespace

QVariant MemoryPropertyBag::ReadProperty(const QString &name, const QVariant &defaultValue) const
{
    return m_values.value(name, defaultValue);
}

void MemoryPropertyBag::WriteProperty(
    const QString &name, const QVariant &value, const QVariant &defaultValue)
{
    if (equalsDefault(value, defaultValue)) {
        if (m_values.remove(name))
            m_order.removeOne(name);
        return;
    }
    if (!m_values.contains(name))
        m_order.append(name);
    m_values.insert(name, value);
}

void MemoryPropertyBag::clear()
{
    m_values.clear();
    m_order.clear();
}

SettingsPropertyBag::SettingsPropertyBag(QSettings &settings, const QString &group)
    : m_settings(settings)
    , m_group(group)
{
}

QString SettingsPropertyBag::key(const QString &name) const
{
    return m_group.isEmpty() ? name : m_group + QLatin1Char('/') + name;
}

QVariant SettingsPropertyBag::ReadProperty(const QString &name, const QVariant &defaultValue) const
{
    const QVariant stored = m_settings.value(key(name), defaultValue);
    // INI files keep numbers and booleans as text; give them back in the default's kind.
    if (defaultValue.isValid() && stored.typeId() == QMetaType::QString
        && defaultValue.typeId() != QMetaType::QString) {
        QVariant converted = stored;
        if (converted.convert(defaultValue.metaType()))
            return converted;
    }
    return stored;
}

void SettingsPropertyBag::WriteProperty(
    const QString &name, const QVariant &value, const QVariant &defaultValue)
{
    if (equalsDefault(value, defaultValue))
        m_settings.remove(key(name));
    else
        m_settings.setValue(key(name), value);
}

} // namespace kwFieldDeck
