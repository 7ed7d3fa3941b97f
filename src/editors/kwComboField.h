#pragma once

#include "editors/kwEditorControl.h"

namespace kwFieldDeck {

class ComboBox;

// The editor of a drop-down field: one combo box, cbo, filled by its field. The value is the
// selected entry's item datum as text, or the entry's text, as UseItemData says.
class kwComboField : public kwEditorControl
{
    Q_OBJECT
    Q_PROPERTY(QString Value READ Value WRITE setValue)
    Q_PROPERTY(bool UseItemData READ UseItemData WRITE setUseItemData)
    Q_PROPERTY(qint16 Style READ Style)
public:
    kwComboField();

    QString Value() const;
    void setValue(const QString &value);
    bool UseItemData() const { return m_UseItemData; }
    void setUseItemData(bool useItemData) { m_UseItemData = useItemData; }
    // The combo box itself, for the field to fill.
    ComboBox *ComboControl() const { return cbo; }
    qint16 Style() const;

    void setEnabled(bool enabled) override;
    QFont Font() const override;
    void setFont(const QFont &font) override;

signals:
    void Change();

protected:
    Control *focusTarget() override;
    QVector<PersistedProperty> persistedProperties() override;
    void UserControl_InitProperties() override;
    void UserControl_Resize() override;

private:
    void cbo_Click();
    void cbo_GotFocus();

    ComboBox *cbo;
    QString m_Value;
    bool m_UseItemData = true;
};

} // namespace kwFieldDeck
