#pragma once

#include "editors/kwBrowseFieldControl.h"

namespace kwFieldDeck {

// The editor of a memo field: a read-only box showing the placeholder "(Text)" and a "..."
// button (or F4) that opens the memo editor window on the whole text. The text itself, the
// value, is kept in Text1's tag.
class kwMemoField : public kwBrowseFieldControl
{
    Q_OBJECT
    Q_PROPERTY(QString Value READ Value WRITE setValue)
    Q_PROPERTY(QString Title READ Title WRITE setTitle)
    Q_PROPERTY(QString FieldName READ FieldName WRITE setFieldName)
public:
    kwMemoField();

    QString Value() const;
    void setValue(const QString &text);
    QString Title() const { return m_Title; }
    void setTitle(const QString &title);
    QString FieldName() const { return m_FieldName; }
    void setFieldName(const QString &name) { m_FieldName = name; }

protected:
    QVector<PersistedProperty> persistedProperties() override;
    void UserControl_InitProperties() override;

private:
    void btnBrowse_Click() override;
    void Text1_KeyDown(int &KeyCode, int &Shift) override;

    QString m_Title;
    QString m_FieldName;
};

} // namespace kwFieldDeck
