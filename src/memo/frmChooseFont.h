#pragma once

#include "platform/Form.h"

namespace kwFieldDeck {

class ComboBox;
class CommandButton;
class Frame;
class Label;
class ListBox;

// The font chooser of the memo editor window: the screen fonts, a fixed list of sizes and a
// sample. The caller sets Font_Name and Font_Size, shows it modally and, unless Cancelled, takes
// the two back.
class frmChooseFont : public Form
{
    Q_OBJECT
    Q_PROPERTY(QString Font_Name READ Font_Name WRITE setFont_Name)
    Q_PROPERTY(float Font_Size READ Font_Size WRITE setFont_Size)
public:
    explicit frmChooseFont(QObject *owner = nullptr);

    QString Font_Name() const { return m_FontName; }
    // Selects the first listed font spelled exactly so; no other selection change.
    void setFont_Name(const QString &name);
    float Font_Size() const { return m_FontSize; }
    // Selects the first size of equal value; no other selection change.
    void setFont_Size(float size);
    bool Cancelled() const { return m_Cancelled; }

    // The window's parts, reachable by name as on the original platform.
    ListBox *const lstFonts;
    ComboBox *const cboSize;
    Label *const Label2;
    Frame *const Frame1;
    Label *const lblSample;
    CommandButton *const btnOk;
    CommandButton *const btnCancel;

protected:
    void Form_Load() override;
    void Form_QueryUnload(int &Cancel, int UnloadMode) override;

private:
    void LoadFonts();
    void lstFonts_Click();
    void cboSize_Click();
    void btnOk_Click();
    void btnCancel_Click();

    QString m_FontName;
    float m_FontSize = 0;
    bool m_Cancelled = false;
};

} // namespace kwFieldDeck
