#include "editors/kwMemoField.h"

#include "memo/frmMemo.h"
#include "platform/ClassFactory.h"
#include "platform/CommandButton.h"
#include "platform/TextBox.h"

namespace kwFieldDeck {

namespace {
const bool registered = ClassFactory::registerUserControl<kwMemoField>(
    libraryTitle() + QLatin1String(".kwMemoField"));

const QString placeholder = QStringLiteral("(Text)");
} // namespace

kwMemoField::kwMemoField(QWidget *parent)
    : kwEditorControl("kwMemoField", parent)
{
    Q_UNUSED(registered)
    Text1 = addChild<TextBox>("Text1");
    btnBrowse = addChild<CommandButton>("btnBrowse");
    // The row shows only the placeholder; the text is edited in the memo window.
    Text1->setLocked(true);
    btnBrowse->setCaption(QStringLiteral("..."));
    btnBrowse->Move(0, 0, 255, 255);

    connect(btnBrowse, &Control::Click, this, &kwMemoField::btnBrowse_Click);
    connect(btnBrowse, &Control::GotFocus, this, &kwMemoField::btnBrowse_GotFocus);
    connect(Text1, &TextBox::Change, this, &kwMemoField::Text1_Change);
    connect(Text1, &Control::GotFocus, this, &kwMemoField::Text1_GotFocus);
    connect(Text1, &Control::KeyDown, this, &kwMemoField::Text1_KeyDown);
    connect(Text1, &Control::KeyPress, this, &kwMemoField::Text1_KeyPress);
}

QString kwMemoField::Value() const
{
    return trap(source("Property", "Value").constData(), [&] { return Text1->Tag(); });
}

void kwMemoField::setValue(const QString &text)
{
    changeProperty("Value", [&] {
        Text1->setTag(text);
        Text1->setText(placeholder);
    });
}

void kwMemoField::setTitle(const QString &title)
{
    // Kept and persisted only; the memo window is captioned by the field name. Intended.
    changeProperty("Title", [&] { m_Title = title; });
}

OleColor kwMemoField::ForeColor() const
{
    return trap(source("Property", "ForeColor").constData(), [&] { return Text1->ForeColor(); });
}

void kwMemoField::setForeColor(OleColor color)
{
    changeProperty("ForeColor", [&] { Text1->setForeColor(color); });
}

void kwMemoField::setEnabled(bool enabled)
{
    changeProperty("Enabled", [&] {
        m_Enabled = enabled;
        Text1->setEnabled(enabled);
        btnBrowse->setEnabled(enabled);
    });
}

QFont kwMemoField::Font() const
{
    return trap(source("Property", "Font").constData(), [&] { return Text1->Font(); });
}

void kwMemoField::setFont(const QFont &font)
{
    changeProperty("Font", [&] { Text1->setFont(font); });
}

void kwMemoField::SetFocus()
{
    trap(source("Sub", "SetFocus").constData(), [&] { Text1->SetFocus(); });
}

QVector<kwEditorControl::PersistedProperty> kwMemoField::persistedProperties()
{
    return {
        colorProperty(
            "BackColor", SystemColor::ButtonFace, [this] { return surfaceBackColor(); },
            [this](OleColor c) { setSurfaceBackColor(c); }),
        colorProperty(
            "ForeColor", SystemColor::WindowText, [this] { return Text1->ForeColor(); },
            [this](OleColor c) { Text1->setForeColor(c); }),
        boolProperty(
            "Enabled", true, [this] { return m_Enabled; }, [this](bool e) { m_Enabled = e; }),
        fontProperty(
            "Font", [this] { return Text1->Font(); },
            [this](const QFont &f) { Text1->setFont(f); }),
        int16Property(
            "BackStyle", 1, [this] { return qint16(surfaceBackStyle()); },
            [this](qint16 s) { setSurfaceBackStyle(s); }),
        int16Property(
            "BorderStyle", 0, [this] { return qint16(surfaceBorderStyle()); },
            [this](qint16 s) { setSurfaceBorderStyle(s); }),
        // Written only: reading skips the value and empties the box instead, so a memo never
        // comes back from a property bag; the grid assigns values at run time. Intended.
        textProperty(
            "Value", QString(), [this] { return Text1->Tag(); },
            [this](const QString &) { Text1->setText(QString()); }),
        textProperty(
            "Title", QString(), [this] { return m_Title; },
            [this](const QString &t) { m_Title = t; }),
        int16Property(
            "ScaleMode", 1, [this] { return qint16(surfaceScaleMode()); },
            [this](qint16 m) { setSurfaceScaleMode(m); }),
    };
}

void kwMemoField::UserControl_InitProperties()
{
    trap(source("Sub", "UserControl_InitProperties").constData(), [&] {
        m_Enabled = true;
        m_Title.clear();
    });
}

void kwMemoField::UserControl_Resize()
{
    trap(source("Sub", "UserControl_Resize").constData(), [&] {
        Text1->setLeft(0);
        Text1->setTop(15);
        Text1->setWidth(extenderWidth() - (btnBrowse->Width() + 20));
        Text1->setHeight(extenderHeight() - 15);
        btnBrowse->setLeft(extenderWidth() - btnBrowse->Width());
    });
}

void kwMemoField::btnBrowse_Click()
{
    trap(source("Sub", "btnBrowse_Click").constData(), [&] {
        frmMemo memo;
        memo.setTitle(QStringLiteral("Field: ") + m_FieldName);
        memo.setValue(Text1->Tag());
        memo.Show(Form::Modal);
        // The window has no cancel: the text it holds when it closes is the new value.
        Text1->setTag(memo.Value());
        Text1->setText(placeholder);
        // Raised explicitly, since the placeholder usually stays the same.
        emit Change();
    });
}

void kwMemoField::btnBrowse_GotFocus()
{
    // The window becoming active again after the editor closed is no new arrival at the button.
    if (isFocusReturn(btnBrowse))
        return;
    trap(source("Sub", "btnBrowse_GotFocus").constData(), [&] {
        // Arriving at the button opens the editor at once: intended. A press that brought the
        // focus must not open it a second time with its click.
        btnBrowse->ignoreFocusingPress();
        btnBrowse_Click();
        emit HasFocus();
    });
}

void kwMemoField::Text1_Change()
{
    trap(source("Sub", "Text1_Change").constData(), [&] { emit Change(); });
}

void kwMemoField::Text1_GotFocus()
{
    trap(source("Sub", "Text1_GotFocus").constData(), [&] { emit HasFocus(); });
}

void kwMemoField::Text1_KeyDown(int &KeyCode, int &Shift)
{
    trap(source("Sub", "Text1_KeyDown").constData(), [&] {
        if (moveToNeighbourRow(KeyCode))
            return;
        if (KeyCode == KeyCode::F4 && Shift == 0)
            btnBrowse_Click();
    });
}

void kwMemoField::Text1_KeyPress(int &KeyAscii)
{
    trap(source("Sub", "Text1_KeyPress").constData(), [&] { emit KeyPress(KeyAscii); });
}

} // namespace kwFieldDeck
