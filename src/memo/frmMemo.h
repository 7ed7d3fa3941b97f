#pragma once

#include "platform/Form.h"

namespace kwFieldDeck {

class CommandButton;
class DataObject;
class Menu;
class MultiLineTextBox;
class StatusBar;
class Timer;

// The memo editor window: a multi-line text box with a status bar (line count, caret line and
// column), a small menu, tab characters typed with Tab, file opening and drop, and a font that
// is remembered in the settings store. Every close, by the user or by code, only hides it: the
// text in the box when it closes is the result.
class frmMemo : public Form
{
    Q_OBJECT
    Q_PROPERTY(QString Title READ Title WRITE setTitle)
    Q_PROPERTY(QString Value READ Value WRITE setValue)
public:
    explicit frmMemo(QObject *owner = nullptr);

    QString Title() const;
    void setTitle(const QString &title);
    QString Value() const;
    void setValue(const QString &text);

    // The window's parts, reachable by name as on the original platform.
    CommandButton *const btnTab1;
    MultiLineTextBox *const txtMemo;
    CommandButton *const btnTab2;
    Timer *const Timer1;
    StatusBar *const StatusBar1;
    Menu *const mnuFile;
    Menu *const mnuOpenFile;
    Menu *const mnuEdit;
    Menu *const mnuSelectAll;
    Menu *const mnuBar1;
    Menu *const mnuCopy;
    Menu *const mnuCut;
    Menu *const mnuPaste;
    Menu *const mnuView;
    Menu *const mnuFont;

protected:
    void Form_Load() override;
    void Form_Activate() override;
    void Form_Resize() override;
    void Form_QueryUnload(int &Cancel, int UnloadMode) override;
    void Form_KeyDown(int &KeyCode, int &Shift) override;
    void Form_KeyPress(int &KeyAscii) override;

private:
    qint16 GotFocusMethod() const;
    void SetFont();
    void CalcCursorPos();

    void Timer1_Timer();
    void txtMemo_KeyPress(int &KeyAscii);
    void txtMemo_OLEDragDrop(const DataObject &Data);
    void btnTab1_GotFocus();
    void btnTab2_GotFocus();
    void mnuOpenFile_Click();
    void mnuSelectAll_Click();
    void mnuCopy_Click();
    void mnuCut_Click();
    void mnuPaste_Click();
    void mnuFont_Click();

    QString m_FontName;
    float m_FontSize = 0;
};

} // namespace kwFieldDeck
