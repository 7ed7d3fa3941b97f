#include "editors/kwFileSelectorField.h"

#include "platform/FileSystem.h"
#include "platform/TextBox.h"
#include "platform/Values.h"
#include "util/FileDialogs.h"
#include "util/FitPath.h"

namespace kwFieldDeck {

namespace {
const bool registered = registerEditor<kwFileSelectorField>("kwFileSelectorField");

const QString defaultTitle = QStringLiteral("Select A File From Below");
const QString defaultInitDir = QStringLiteral("C:\\");
const QString defaultFilter = QStringLiteral("All Files (*.*)|*.*");
} // namespace

kwFileSelectorField::kwFileSelectorField()
    : kwBrowseFieldControl("kwFileSelectorField")
{
    Q_UNUSED(registered)
    forwardTextKeys();
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

QString kwFileSelectorField::FitFilename(TextBox *ctl, const QString &path)
{
    return trap(source("Function", "FitFilename").constData(), [&] {
        if (path.isEmpty())
            return QString();
        int width = 0;
        // Only a parent in twips gives the box's width in pixels; any other unit leaves 0.
        const auto *parent = WindowlessUserControl::of(require(ctl)->containerControl());
        if (!parent || parent->surfaceScaleMode() == 1)
            width = roundToInt32(ctl->Width() / twipsPerPixelX() - 5);
        // Measured in the host surface's font, not the box's: intended.
        QString fitted = FitPath(extender()->Font(), width, path);
        const qsizetype nul = fitted.indexOf(QChar(0));
        return nul >= 0 ? fitted.left(nul) : fitted;
    });
}

QVector<kwEditorControl::PersistedProperty> kwFileSelectorField::persistedProperties()
{
    // "Value" is the shown, possibly shortened text, and the tag is not restored: intended.
    return {
        surfaceBackColorProperty(SystemColor::ButtonFace),
        textForeColorProperty(),
        enabledMemberProperty(false),
        textFontProperty(),
        surfaceBackStyleProperty(),
        surfaceBorderStyleProperty(),
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
        scaleModeProperty(),
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

void kwFileSelectorField::fitText()
{
    Text1->setText(FitFilename(Text1, Text1->Tag()));
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

} // namespace kwFieldDeck
