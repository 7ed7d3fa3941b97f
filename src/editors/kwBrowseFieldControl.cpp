#include "editors/kwBrowseFieldControl.h"

#include "platform/CommandButton.h"
#include "platform/TextBox.h"

namespace kwFieldDeck {

kwBrowseFieldControl::kwBrowseFieldControl(const char *controlName)
    : kwEditorControl(controlName)
{
    Text1 = addChild<TextBox>("Text1");
    btnBrowse = addChild<CommandButton>("btnBrowse");
    btnBrowse->setCaption(QStringLiteral("..."));
    btnBrowse->Move(0, 0, 255, 255);

    connect(btnBrowse, &Control::Click, this, [this] { btnBrowse_Click(); });
    connect(btnBrowse, &Control::GotFocus, this, &kwBrowseFieldControl::btnBrowse_GotFocus);
    connect(Text1, &TextBox::Change, this, &kwBrowseFieldControl::Text1_Change);
    connect(Text1, &Control::GotFocus, this, &kwBrowseFieldControl::Text1_GotFocus);
}

void kwBrowseFieldControl::forwardTextKeys()
{
    connect(Text1, &Control::KeyDown, this,
        [this](int &KeyCode, int &Shift) { Text1_KeyDown(KeyCode, Shift); });
    connect(Text1, &Control::KeyPress, this, &kwBrowseFieldControl::Text1_KeyPress);
}

OleColor kwBrowseFieldControl::ForeColor() const
{
    return trap(source("Property", "ForeColor").constData(), [&] { return Text1->ForeColor(); });
}

void kwBrowseFieldControl::setForeColor(OleColor color)
{
    changeProperty("ForeColor", [&] { Text1->setForeColor(color); });
}

QFont kwBrowseFieldControl::Font() const
{
    return trap(source("Property", "Font").constData(), [&] { return Text1->Font(); });
}

void kwBrowseFieldControl::setFont(const QFont &font)
{
    changeProperty("Font", [&] { Text1->setFont(font); });
}

Control *kwBrowseFieldControl::focusTarget()
{
    return Text1;
}

void kwBrowseFieldControl::setEnabled(bool enabled)
{
    changeProperty("Enabled", [&] {
        m_Enabled = enabled;
        Text1->setEnabled(enabled);
        btnBrowse->setEnabled(enabled);
    });
}

kwEditorControl::PersistedProperty kwBrowseFieldControl::textForeColorProperty()
{
    return colorProperty(
        "ForeColor", SystemColor::WindowText, [this] { return Text1->ForeColor(); },
        [this](OleColor c) { Text1->setForeColor(c); });
}

kwEditorControl::PersistedProperty kwBrowseFieldControl::textFontProperty()
{
    return fontProperty(
        "Font", [this] { return Text1->Font(); }, [this](const QFont &f) { Text1->setFont(f); });
}

void kwBrowseFieldControl::UserControl_Resize()
{
    trap(source("Sub", "UserControl_Resize").constData(), [&] {
        Text1->setLeft(0);
        Text1->setTop(15);
        Text1->setWidth(extenderWidth() - (btnBrowse->Width() + 20));
        Text1->setHeight(extenderHeight() - 15);
        btnBrowse->setLeft(extenderWidth() - btnBrowse->Width());
        fitText();
    });
}

void kwBrowseFieldControl::btnBrowse_GotFocus()
{
    // The window becoming active again after the dialog is no new arrival at the button.
    if (btnBrowse->focusReturned())
        return;
    trap(source("Sub", "btnBrowse_GotFocus").constData(), [&] {
        // Arriving at the button opens the dialog at once: intended. A press that brought the
        // focus must not open it a second time with its click.
        btnBrowse->ignoreFocusingPress();
        btnBrowse_Click();
        emit HasFocus();
    });
}

void kwBrowseFieldControl::Text1_Change()
{
    trap(source("Sub", "Text1_Change").constData(), [&] { emit Change(); });
}

void kwBrowseFieldControl::Text1_GotFocus()
{
    trap(source("Sub", "Text1_GotFocus").constData(), [&] { emit HasFocus(); });
}

void kwBrowseFieldControl::Text1_KeyDown(int &KeyCode, int &Shift)
{
    trap(source("Sub", "Text1_KeyDown").constData(), [&] { emit KeyDown(KeyCode, Shift); });
}

void kwBrowseFieldControl::Text1_KeyPress(int &KeyAscii)
{
    trap(source("Sub", "Text1_KeyPress").constData(), [&] { emit KeyPress(KeyAscii); });
}

} // namespace kwFieldDeck
