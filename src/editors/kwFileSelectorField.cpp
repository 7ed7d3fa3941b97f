#include "editors/kwFileSelectorField.h"

#include "platform/ClassFactory.h"
#include "platform/CommandButton.h"
#include "platform/FileSystem.h"
#include "platform/TextBox.h"
#include "platform/Values.h"
#include "util/FileDialogs.h"
#include "util/FitPath.h"

namespace kwFieldDeck {

namespace {
const bool registered = ClassFactory::registerUserControl<kwFileSelectorField>(
    libraryTitle() + QLatin1String(".kwFileSelectorField"));

const QString defaultTitle = QStringLiteral("Select A File From Below");
const QString defaultInitDir = QStringLiteral("C:\\");
const QString defaultFilter = QStringLiteral("All Files (*.*)|*.*");
} // namespace

kwFileSelectorField::kwFileSelectorField(QWidget *parent)
    : kwEditorControl("kwFileSelectorField", parent)
{
    Q_UNUSED(registered)
    Text1 = addChild<TextBox>("Text1");
    btnBrowse = addChild<CommandButton>("btnBrowse");
    btnBrowse->setCaption(QStringLiteral("..."));
    btnBrowse->Move(0, 0, 255, 255);

    connect(btnBrowse, &Control::Click, this, &kwFileSelectorField::btnBrowse_Click);
    connect(btnBrowse, &Control::GotFocus, this, &kwFileSelectorField::btnBrowse_GotFocus);
    connect(Text1, &TextBox::Change, this, &kwFileSelectorField::Text1_Change);
    connect(Text1, &Control::GotFocus, this, &kwFileSelectorField::Text1_GotFocus);
    connect(Text1, &Control::KeyDown, this, &kwFileSelectorField::Text1_KeyDown);
    connect(Text1, &Control::KeyPress, this, &kwFileSelectorField::Text1_KeyPress);
}

QString kwFileSelectorField::Value() const
{
    return trap(source("Property", "Value").constData(), [&] { return Text1->Tag(); });
}

void kwFileSelectorField::setValue(const QString &path)
{
    changeProperty("Value", [&] {
        Text1->setTag(path);
        Text1->setText(FitFilename(Text1, path));
    });
}

void kwFileSelectorField::setTitle(const QString &title)
{
    changeProperty("Title", [&] { m_Title = title; });
}

void kwFileSelectorField::setInitDir(const QString &folder)
{
    changeProperty("InitDir", [&] { m_InitDir = folder; });
}

void kwFileSelectorField::setFilter(const QString &filter)
{
    changeProperty("Filter", [&] { m_Filter = filter; });
}

OleColor kwFileSelectorField::ForeColor() const
{
    return trap(source("Property", "ForeColor").constData(), [&] { return Text1->ForeColor(); });
}

void kwFileSelectorField::setForeColor(OleColor color)
{
    changeProperty("ForeColor", [&] { Text1->setForeColor(color); });
}

void kwFileSelectorField::setEnabled(bool enabled)
{
    changeProperty("Enabled", [&] {
        m_Enabled = enabled;
        Text1->setEnabled(enabled);
        btnBrowse->setEnabled(enabled);
    });
}

QFont kwFileSelectorField::Font() const
{
    return trap(source("Property", "Font").constData(), [&] { return Text1->Font(); });
}

void kwFileSelectorField::setFont(const QFont &font)
{
    changeProperty("Font", [&] { Text1->setFont(font); });
}

void kwFileSelectorField::SetFocus()
{
    trap(source("Sub", "SetFocus").constData(), [&] { Text1->SetFocus(); });
}

QString kwFileSelectorField::FitFilename(TextBox *ctl, const QString &path)
{
    return trap(source("Function", "FitFilename").constData(), [&] {
        if (path.isEmpty())
            return QString();
        int width = 0;
        // Only a parent in twips gives the box's width in pixels; any other unit leaves 0.
        const auto *parent = qobject_cast<const UserControl *>(require(ctl)->Container());
        if (!parent || parent->surfaceScaleMode() == 1)
            width = roundToInt32(ctl->Width() / twipsPerPixelX() - 5);
        // Measured in the host surface's font, not the box's: intended.
        QString fitted = FitPath(QWidget::font(), width, path);
        const qsizetype nul = fitted.indexOf(QChar(0));
        return nul >= 0 ? fitted.left(nul) : fitted;
    });
}

QVector<kwEditorControl::PersistedProperty> kwFileSelectorField::persistedProperties()
{
    // "Value" is the shown, possibly shortened text, and the tag is not restored: intended.
    return {
        colorProperty(
            "BackColor", SystemColor::ButtonFace, [this] { return surfaceBackColor(); },
            [this](OleColor c) { setSurfaceBackColor(c); }),
        colorProperty(
            "ForeColor", SystemColor::WindowText, [this] { return Text1->ForeColor(); },
            [this](OleColor c) { Text1->setForeColor(c); }),
        boolProperty(
            "Enabled", false, [this] { return m_Enabled; }, [this](bool e) { m_Enabled = e; }),
        fontProperty(
            "Font", [this] { return Text1->Font(); },
            [this](const QFont &f) { Text1->setFont(f); }),
        int16Property(
            "BackStyle", 1, [this] { return qint16(surfaceBackStyle()); },
            [this](qint16 s) { setSurfaceBackStyle(s); }),
        int16Property(
            "BorderStyle", 0, [this] { return qint16(surfaceBorderStyle()); },
            [this](qint16 s) { setSurfaceBorderStyle(s); }),
        textProperty(
            "Value", QString(), [this] { return Text1->Text(); },
            [this](const QString &t) { Text1->setText(t); }),
        textProperty(
            "Title", defaultTitle, [this] { return m_Title; },
            [this](const QString &t) { m_Title = t; }),
        textProperty(
            "InitDir", defaultInitDir, [this] { return m_InitDir; },
            [this](const QString &d) { m_InitDir = d; }),
        textProperty(
            "Filter", defaultFilter, [this] { return m_Filter; },
            [this](const QString &f) { m_Filter = f; }),
        int16Property(
            "ScaleMode", 1, [this] { return qint16(surfaceScaleMode()); },
            [this](qint16 m) { setSurfaceScaleMode(m); }),
    };
}

void kwFileSelectorField::UserControl_InitProperties()
{
    trap(source("Sub", "UserControl_InitProperties").constData(), [&] {
        m_Enabled = false;
        m_Title = defaultTitle;
        m_InitDir = defaultInitDir;
        m_Filter = defaultFilter;
    });
}

void kwFileSelectorField::UserControl_Resize()
{
    trap(source("Sub", "UserControl_Resize").constData(), [&] {
        Text1->setLeft(0);
        Text1->setTop(15);
        Text1->setWidth(extenderWidth() - (btnBrowse->Width() + 20));
        Text1->setHeight(extenderHeight() - 15);
        btnBrowse->setLeft(extenderWidth() - btnBrowse->Width());
        Text1->setText(FitFilename(Text1, Text1->Tag()));
    });
}

void kwFileSelectorField::btnBrowse_Click()
{
    trap(source("Sub", "btnBrowse_Click").constData(), [&] {
        const QString path = Text1->Tag();
        QString chosen;
        if (!path.isEmpty()) {
            // Either separator ends the folder part: paths here may be written either way.
            const QString name = path.mid(
                qMax(path.lastIndexOf(QLatin1Char('\\')), path.lastIndexOf(QLatin1Char('/'))) + 1);
            const QString folder = FileSystem::GetParentFolderName(path);
            if (FileSystem::FileExists(path) && FileSystem::FolderExists(folder))
                chosen = OpenFileDialog(name, folder, m_Title, m_Filter, 0);
            else
                chosen = OpenFileDialog(name, m_InitDir, m_Title, m_Filter, 0);
        } else {
            chosen = OpenFileDialog(QString(), m_InitDir, m_Title, m_Filter, 0);
        }
        if (!chosen.isEmpty())
            setValue(chosen);
    });
}

void kwFileSelectorField::btnBrowse_GotFocus()
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

void kwFileSelectorField::Text1_Change()
{
    trap(source("Sub", "Text1_Change").constData(), [&] { emit Change(); });
}

void kwFileSelectorField::Text1_GotFocus()
{
    trap(source("Sub", "Text1_GotFocus").constData(), [&] { emit HasFocus(); });
}

void kwFileSelectorField::Text1_KeyDown(int &KeyCode, int &Shift)
{
    trap(source("Sub", "Text1_KeyDown").constData(), [&] { emit KeyDown(KeyCode, Shift); });
}

void kwFileSelectorField::Text1_KeyPress(int &KeyAscii)
{
    trap(source("Sub", "Text1_KeyPress").constData(), [&] { emit KeyPress(KeyAscii); });
}

} // namespace kwFieldDeck
