#pragma once

#include "editors/kwEditorControl.h"

namespace kwFieldDeck {

class CheckBox;

// The editor of a check-box field: one check box, Check1, centred on the host surface. A click
// anywhere on the editor toggles it; Up and Down move to the neighbouring rows.
class kwSimpleCheck : public kwEditorControl
{
    Q_OBJECT
    Q_PROPERTY(qint16 Value READ Value WRITE setValue)
public:
    kwSimpleCheck();

    // 0 unchecked, 1 checked, 2 grayed.
    qint16 Value() const;
    void setValue(qint16 value);

    // Raised: Click (every change of the box's state) and HasFocus. KeyDown is declared by the
    // frame and never raised: Up and Down are turned into Shift+Tab and Tab here.

protected:
    QVector<PersistedProperty> persistedProperties() override;
    void UserControl_InitProperties() override;
    void UserControl_Resize() override;
    void UserControl_Click() override;
    void UserControl_GotFocus() override;
    void UserControl_KeyPress(QKeyEvent *event) override;

private:
    void Check1_Click();
    void Check1_GotFocus();
    void Check1_KeyDown(int &KeyCode, int &Shift);

    CheckBox *Check1;
};

} // namespace kwFieldDeck
