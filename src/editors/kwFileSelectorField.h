#pragma once

#include "editors/kwEditorControl.h"

namespace kwFieldDeck {

class CommandButton;
class TextBox;

// The editor of a file field: a text box showing the chosen path shortened to fit, and a "..."
// button that opens the file-open dialog. The full path, the value, is kept in Text1's tag.
class kwFileSelectorField : public kwEditorControl
{
    Q_OBJECT
    Q_PROPERTY(QString Value READ Value WRITE setValue)
    Q_PROPERTY(QString Title READ Title WRITE setTitle)
    Q_PROPERTY(QString InitDir READ InitDir WRITE setInitDir)
    Q_PROPERTY(QString Filter READ Filter WRITE setFilter)
public:
    explicit kwFileSelectorField(QWidget *parent = nullptr);

    QString Value() const;
    void setValue(const QString &path);
    QString Title() const { return m_Title; }
    void setTitle(const QString &title);
    QString InitDir() const { return m_InitDir; }
    void setInitDir(const QString &folder);
    QString Filter() const { return m_Filter; }
    void setFilter(const QString &filter);

    OleColor ForeColor() const override;
    void setForeColor(OleColor color) override;
    void setEnabled(bool enabled) override;
    QFont Font() const override;
    void setFont(const QFont &font) override;

    void SetFocus();
    // The path shortened with "..." to the box's width, measured in the host surface's font.
    QString FitFilename(TextBox *ctl, const QString &path);

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
    QString m_InitDir;
    QString m_Filter;
};

} // namespace kwFieldDeck
