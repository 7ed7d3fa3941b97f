#include "editors/kwFolderSelectorField.h"

#include "platform/CommandButton.h"
#include "platform/FileSystem.h"
#include "platform/TextBox.h"
#include "util/FileDialogs.h"
#include "util/FitPath.h"

#include <QLineEdit>

namespace kwFieldDeck {

namespace {
const bool registered = registerEditor<kwFolderSelectorField>("kwFolderSelectorField");
} // namespace

kwFolderSelectorField::kwFolderSelectorField()
    : kwBrowseFieldControl("kwFolderSelectorField")
{
    // Text1's keys raise no events here, unlike the other selectors: intended.
    Q_UNUSED(registered)
}

void kwFolderSelectorField::setValue(const QString &path)
{
    changeProperty("Value", [&] {
        m_Value = path;
        Text1->setTag(path);
        Text1->setText(FitPath(Text1, Text1->Tag()));
    });
}

void kwFolderSelectorField::setTitle(const QString &title)
{
    changeProperty("Title", [&] { m_Title = title; });
}

void kwFolderSelectorField::setInitDir(const QString &folder)
{
    changeProperty("InitDir", [&] { m_InitDir = folder; });
}

OleColor kwFolderSelectorField::BackColor() const
{
    return trap(source("Property", "BackColor").constData(), [&] { return Text1->BackColor(); });
}

void kwFolderSelectorField::setBackColor(OleColor color)
{
    changeProperty("BackColor", [&] { Text1->setBackColor(color); });
}

bool kwFolderSelectorField::Enabled() const
{
    return extender()->Enabled();
}

void kwFolderSelectorField::setEnabled(bool enabled)
{
    changeProperty("Enabled", [&] {
        Text1->setEnabled(enabled);
        btnBrowse->setEnabled(enabled);
    });
}

void kwFolderSelectorField::setSurfaceEnabled(bool enabled)
{
    extender()->setEnabled(enabled);
}

void kwFolderSelectorField::setBackStyle(qint16 style)
{
    changeProperty("BackStyle", [&] { m_BackStyle = style; });
}

qint16 kwFolderSelectorField::BorderStyle() const
{
    return qint16(Text1->BorderStyle());
}

void kwFolderSelectorField::setBorderStyle(qint16 style)
{
    changeProperty("BorderStyle", [&] { Text1->setBorderStyle(style != 0 ? 1 : 0); });
}

QVector<kwEditorControl::PersistedProperty> kwFolderSelectorField::persistedProperties()
{
    // Title and InitDir are not persisted, and a read Value shows only after the next
    // assignment: intended.
    return {
        colorProperty(
            "BackColor", SystemColor::WindowBackground, [this] { return Text1->BackColor(); },
            [this](OleColor c) { Text1->setBackColor(c); }),
        textForeColorProperty(),
        boolProperty(
            "Enabled", true, [this] { return extender()->Enabled(); },
            [this](bool e) { setSurfaceEnabled(e); }),
        textFontProperty(),
        int16Property(
            "BackStyle", 0, [this] { return m_BackStyle; }, [this](qint16 s) { m_BackStyle = s; }),
        int16Property(
            "BorderStyle", 1, [this] { return BorderStyle(); },
            [this](qint16 s) { Text1->setBorderStyle(s != 0 ? 1 : 0); }),
        containerHwndProperty(),
        scaleModeProperty(),
        textProperty(
            "Value", QString(), [this] { return m_Value; },
            [this](const QString &v) { m_Value = v; }),
    };
}

void kwFolderSelectorField::UserControl_InitProperties()
{
    trap(source("Sub", "UserControl_InitProperties").constData(), [&] {
        m_BackStyle = 0;
        m_ContainerHwnd = 0;
        m_Value.clear();
    });
}

void kwFolderSelectorField::fitText()
{
    Text1->setText(FitPath(Text1, Text1->Tag()));
}

void kwFolderSelectorField::btnBrowse_Click()
{
    trap(source("Sub", "btnBrowse_Click").constData(), [&] {
        // The shown text, not the tag: a shortened path names no folder, so the dialog then
        // starts in InitDir. Intended.
        const QString current = Text1->Text();
        // The window that hosts the grid owns the dialog.
        QWidget *owner = window();
        QString folder;
        if (!current.isEmpty() && FileSystem::FolderExists(current))
            folder = BrowseForFolder(owner, m_Title, current);
        else
            folder = BrowseForFolder(owner, m_Title, m_InitDir);
        if (!folder.isEmpty())
            setValue(folder);
    });
}

} // namespace kwFieldDeck
