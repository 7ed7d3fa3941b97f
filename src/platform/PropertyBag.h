#pragma once

#include <QHash>
#include <QString>
#include <QStringList>
#include <QVariant>

class QSettings;

namespace kwFieldDeck {

// Where a control keeps its persisted properties: read a named value with a default, write a
// named value with a default (a value equal to its default may be left out).
class PropertyBag
{
public:
    virtual ~PropertyBag() = default;
    virtual QVariant ReadProperty(const QString &name, const QVariant &defaultValue = {}) const = 0;
    virtual void WriteProperty(
        const QString &name, const QVariant &value, const QVariant &defaultValue = {})
        = 0;
};

// An in-memory bag, for hosts that keep properties themselves and for tests.
class MemoryPropertyBag : public PropertyBag
{
public:
    QVariant ReadProperty(const QString &name, const QVariant &defaultValue = {}) const override;
    void WriteProperty(
        const QString &name, const QVariant &value, const QVariant &defaultValue = {}) override;

    bool contains(const QString &name) const { return m_values.contains(name); }
    QStringList names() const { return m_order; }
    void clear();

private:
    QHash<QString, QVariant> m_values;
    QStringList m_order;
};

// A bag kept in one group of a QSettings file.
class SettingsPropertyBag : public PropertyBag
{
public:
    SettingsPropertyBag(QSettings &settings, const QString &group);

    QVariant ReadProperty(const QString &name, const QVariant &defaultValue = {}) const override;
    void WriteProperty(
        const QString &name, const QVariant &value, const QVariant &defaultValue = {}) override;

private:
    QString key(const QString &name) const;

    QSettings &m_settings;
    QString m_group;
};

} // namespace kwFieldDeck
