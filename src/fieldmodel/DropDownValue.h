#pragma once

#include <QObject>
#include <QString>

namespace kwFieldDeck {

// One entry of a drop-down field: its key in the collection and the text the list shows.
class DropDownValue : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString Key READ Key WRITE setKey)
    Q_PROPERTY(QString DisplayValue READ DisplayValue WRITE setDisplayValue)
public:
    explicit DropDownValue(QObject *parent = nullptr);

    QString Key() const { return m_Key; }
    void setKey(const QString &key) { m_Key = key; }
    QString DisplayValue() const { return m_DisplayValue; }
    void setDisplayValue(const QString &value) { m_DisplayValue = value; }

private:
    QString m_Key;
    QString m_DisplayValue;
};

} // namespace kwFieldDeck
