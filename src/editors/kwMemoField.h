#pragma once

#include "editors/kwEditorControl.h"

namespace kwFieldDeck {

class CommandButton;
class TextBox;

// The editor of a memo field: a read-only box showing the placeholder "(Text)" and a "..."
// button (or F4) that opens the memo editor window on the whole text. The text itself, the
// value, is kept in Text1's tag.
class kwMemoField : public kwEditorControl
{
    Q_OBJECT
    Q_PROPERTY(QString Value READ Value WRITE setValue)
    Q_PROPERTY(QString Title READ Title WRITE setTitle)
    Q_PROPERTY(QString FieldName READ FieldName WRITE setFieldName)
public:
    explicit kwMemoField(QWidget *parent = nullptr);

    QString Value() const;
    void setValue(const QString &text);
    QString Title() const { return m_Title; }
    void setTitle(const QString &title);
    QString FieldName() const { return m_FieldName; }
    void setFieldName(const QString &name) { m_FieldName = name; }

    OleColor ForeColor() const override;
    void setForeColor(OleColor color) override;
    void setEnabled(bool enabled) override;
    QFont Font() const override;
    void setFont(const QFont &font) override;

    void SetFocus();

signals:
    void Change();

protected:
    QVector<PersistedProperty> persistedProperties() override;
    void UserControl_InitProperties() override;
    void UserControl_Resize() override;

private:
    void btnBrowse_Click();
    void btnBrowse_GotFocus();
    void Text1_Change();
    void Text1_GotFocus();
    void Text1_KeyDown(int &KeyCode, int &Shift);
    void Text1_KeyPress(int &KeyAscii);

    TextBox *Text1;
    CommandButton *btnBrowse;
    QString m_Title;
    QString m_FieldName;
};

} // namespace kwFieldDeck
