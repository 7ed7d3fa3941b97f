#pragma once

#include "editors/kwBrowseFieldControl.h"

namespace kwFieldDeck {

class TextBox;

// The editor of a file field: a text box showing the chosen path shortened to fit, and a "..."
// button that opens the file-open dialog. The full path, the value, is kept in Text1's tag.
class kwFileSelectorField : public kwBrowseFieldControl
{
    Q_OBJECT
    Q_PROPERTY(QString Value READ Value WRITE setValue)
    Q_PROPERTY(QString Title READ Title WRITE setTitle)
    Q_PROPERTY(QString InitDir READ InitDir WRITE setInitDir)
    Q_PROPERTY(QString Filter READ Filter WRITE setFilter)
public:
    kwFileSelectorField();

    QString Value() const;
    void setValue(const QString &path);
    QString Title() const { return m_Title; }
    void setTitle(const QString &title);
    QString InitDir() const { return m_InitDir; }
    void setInitDir(const QString &folder);
    QString Filter() const { return m_Filter; }
    void setFilter(const QString &filter);

    // The path shortened with "..." to the box's width, measured in the host surface's font.
    QString FitFilename(TextBox *ctl, const QString &path);

protected:
    QVector<PersistedProperty> persistedProperties() override;
    void UserControl_InitProperties() override;
    void fitText() override;

private:
    void btnBrowse_Click() override;

    QString m_Title;
    QString m_InitDir;
    QString m_Filter;
};

} // namespace kwFieldDeck
