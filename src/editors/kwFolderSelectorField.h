#pragma once

#include "editors/kwBrowseFieldControl.h"

namespace kwFieldDeck {

// The editor of a folder field: a text box showing the chosen folder shortened to fit, and a
// "..." button that opens the folder-browse dialog.
class kwFolderSelectorField : public kwBrowseFieldControl
{
    Q_OBJECT
    Q_PROPERTY(QString Value READ Value WRITE setValue)
    Q_PROPERTY(QString Title READ Title WRITE setTitle)
    Q_PROPERTY(QString InitDir READ InitDir WRITE setInitDir)
public:
    kwFolderSelectorField();

    QString Value() const { return m_Value; }
    void setValue(const QString &path);
    // Neither is persisted.
    QString Title() const { return m_Title; }
    void setTitle(const QString &title);
    QString InitDir() const { return m_InitDir; }
    void setInitDir(const QString &folder);

    OleColor BackColor() const override;
    void setBackColor(OleColor color) override;
    bool Enabled() const override;
    void setEnabled(bool enabled) override;
    qint16 BackStyle() const override { return m_BackStyle; }
    void setBackStyle(qint16 style) override;
    qint16 BorderStyle() const override;
    void setBorderStyle(qint16 style) override;

protected:
    QVector<PersistedProperty> persistedProperties() override;
    void UserControl_InitProperties() override;
    void fitText() override;

private:
    void btnBrowse_Click() override;
    void setSurfaceEnabled(bool enabled);

    QString m_Value;
    QString m_Title;
    QString m_InitDir;
};

} // namespace kwFieldDeck
