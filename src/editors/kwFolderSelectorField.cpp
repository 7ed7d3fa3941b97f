#include "editors/kwFolderSelectorField.h"

#include "platform/ClassFactory.h"
#include "platform/CommandButton.h"
#include "platform/FileSystem.h"
#include "platform/TextBox.h"
#include "util/FileDialogs.h"
#include "util/FitPath.h"

#include <QLineEdit>

namespace kwFieldDeck {

namespace {
const bool registered = ClassFactory::registerUserControl<kwFolderSelectorField>(
    libraryTitle() + QLatin1String(".kwFolderSelectorField"));
} // namespace

kwFolderSelectorField::kwFolderSelectorField(QWidget *parent)
    : kwEditorControl("kwFolderSelectorField", parent)
{
    Q_UNUSED(registered)
    Text1 = addChild<TextBox>("Text1");
    btnBrowse = addChild<CommandButton>("btnBrowse");
    btnBrowse->setCaption(QStringLiteral("..."));
    btnBrowse->Move(0, 0, 255, 255);

    connect(btnBrowse, &Control::Click, this, &kwFolderSelectorField::btnBrowse_Click);
    connect(btnBrowse, &Control::GotFocus, this, &kwFolderSelectorField::btnBrowse_GotFocus);
    connect(Text1, &TextBox::Change, this, &kwFolderSelectorField::Text1_Change);
    connect(Text1, &Control::GotFocus, this, &kwFolderSelectorField::Text1_GotFocus);
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

OleColor kwFolderSelectorField::ForeColor() const
{
    return trap(source("Property", "ForeColor").constData(), [&] { return Text1->ForeColor(); });
}

void kwFolderSelectorField::setForeColor(OleColor color)
{
    changeProperty("ForeColor", [&] { Text1->setForeColor(color); });
}

bool kwFolderSelectorField::Enabled() const
{
    return QWidget::isEnabled();
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
    QWidget::setEnabled(enabled);
}

QFont kwFolderSelectorField::Font() const
{
    return trap(source("Property", "Font").constData(), [&] { return Text1->Font(); });
}

void kwFolderSelectorField::setFont(const QFont &font)
{
    changeProperty("Font", [&] { Text1->setFont(font); });
}

void kwFolderSelectorField::setBackStyle(qint16 style)
{
    changeProperty("BackStyle", [&] { m_BackStyle = style; });
}

qint16 kwFolderSelectorField::BorderStyle() const
{
    return Text1->lineEdit()->hasFrame() ? 1 : 0;
}

void kwFolderSelectorField::setBorderStyle(qint16 style)
{
    changeProperty("BorderStyle", [&] { Text1->lineEdit()->setFrame(style != 0); });
}

void kwFolderSelectorField::SetFocus()
{
    trap(source("Sub", "SetFocus").constData(), [&] { Text1->SetFocus(); });
}

QVector<kwEditorControl::PersistedProperty> kwFolderSelectorField::persistedProperties()
{
    // Title and InitDir are not persisted, and a read Value shows only after the next
    // assignment: intended.
    return {
        colorProperty(
            "BackColor", SystemColor::WindowBackground, [this] { return Text1->BackColor(); },
            [this](OleColor c) { Text1->setBackColor(c); }),
        colorProperty(
            "ForeColor", SystemColor::WindowText, [this] { return Text1->ForeColor(); },
            [this](OleColor c) { Text1->setForeColor(c); }),
        boolProperty(
            "Enabled", true, [this] { return QWidget::isEnabled(); },
            [this](bool e) { setSurfaceEnabled(e); }),
        fontProperty(
            "Font", [this] { return Text1->Font(); },
            [this](const QFont &f) { Text1->setFont(f); }),
        int16Property(
            "BackStyle", 0, [this] { return m_BackStyle; }, [this](qint16 s) { m_BackStyle = s; }),
        int16Property(
            "BorderStyle", 1, [this] { return BorderStyle(); },
            [this](qint16 s) { Text1->lineEdit()->setFrame(s != 0); }),
        int32Property(
            "ContainerHwnd", 0, [this] { return m_ContainerHwnd; },
            [this](qint32 h) { m_ContainerHwnd = h; }),
        int16Property(
            "ScaleMode", 1, [this] { return qint16(surfaceScaleMode()); },
            [this](qint16 m) { setSurfaceScaleMode(m); }),
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

void kwFolderSelectorField::UserControl_Resize()
{
    trap(source("Sub", "UserControl_Resize").constData(), [&] {
        Text1->setLeft(0);
        Text1->setTop(15);
        Text1->setWidth(extenderWidth() - (btnBrowse->Width() + 20));
        Text1->setHeight(extenderHeight() - 15);
        btnBrowse->setLeft(extenderWidth() - btnBrowse->Width());
        Text1->setText(FitPath(Text1, Text1->Tag()));
    });
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

void kwFolderSelectorField::btnBrowse_GotFocus()
{
    // The window becoming active again after the dialog is no new arrival at the button.
    if (isFocusReturn(btnBrowse))
        return;
    trap(source("Sub", "btnBrowse_GotFocus").constData(), [&] {
        // Arriving at the button opens the dialog at once: intended. A press that brought the
        // focus must not open it a second time with its click.
        btnBrowse->ignoreFocusingPress();
        btnBrowse_Click();
        emit HasFocus();
    });
}

void kwFolderSelectorField::Text1_Change()
{
    trap(source("Sub", "Text1_Change").constData(), [&] { emit Change(); });
}

void kwFolderSelectorField::Text1_GotFocus()
{
    trap(source("Sub", "Text1_GotFocus").constData(), [&] { emit HasFocus(); });
}

} // namespace kwFieldDeck
