#pragma once

#include "editors/kwEditorControl.h"

namespace kwFieldDeck {

class CommandButton;
class TextBox;

// The frame of the editors made of a text box and a "..." button that opens a dialog: both
// children, their shared arithmetic, the button's open-once-per-arrival handling and the
// properties kept on the text box.
class kwBrowseFieldControl : public kwEditorControl
{
    Q_OBJECT
public:
    OleColor ForeColor() const override;
    void setEnabled(bool enabled) override;
    void setForeColor(OleColor color) override;
    QFont Font() const override;
    void setFont(const QFont &font) override;

signals:
    void Change();

protected:
    kwBrowseFieldControl(const char *controlName);

    // Text1 raises KeyDown and KeyPress through Text1_KeyDown and Text1_KeyPress; an editor
    // whose text box has no key events does not ask for them.
    void forwardTextKeys();
    virtual void Text1_KeyDown(int &KeyCode, int &Shift);
    void Text1_KeyPress(int &KeyAscii);

    Control *focusTarget() override;

    // Opens the editor's dialog.
    virtual void btnBrowse_Click() = 0;
    // Shows the value in Text1 again after the box changed its width; nothing by default.
    virtual void fitText() { }

    PersistedProperty textForeColorProperty();
    PersistedProperty textFontProperty();

    void UserControl_Resize() override;

    TextBox *Text1;
    CommandButton *btnBrowse;

private:
    void btnBrowse_GotFocus();
    void Text1_Change();
    void Text1_GotFocus();
};

} // namespace kwFieldDeck
