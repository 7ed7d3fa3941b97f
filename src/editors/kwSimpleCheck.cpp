#include "editors/kwSimpleCheck.h"

#include "platform/CheckBox.h"
#include "platform/Services.h"
#include "util/Placement.h"

#include <QKeyEvent>

#include <algorithm>

namespace kwFieldDeck {

namespace {
const bool registered = registerEditor<kwSimpleCheck>("kwSimpleCheck");
} // namespace

kwSimpleCheck::kwSimpleCheck()
    : kwEditorControl("kwSimpleCheck")
{
    Q_UNUSED(registered)
    Check1 = addChild<CheckBox>("Check1");
    // Only the box shows; the caption stays outside the 200 by 200 twips, or outside the square
    // that the style's box needs where that is larger.
    Check1->setCaption(QStringLiteral("Check1"));
    const float side = std::max(200.0f, Check1->boxSide());
    Check1->Move(0, 0, side, side);
    connect(Check1, &Control::Click, this, &kwSimpleCheck::Check1_Click);
    connect(Check1, &Control::GotFocus, this, &kwSimpleCheck::Check1_GotFocus);
    connect(Check1, &Control::KeyDown, this, &kwSimpleCheck::Check1_KeyDown);
}

qint16 kwSimpleCheck::Value() const
{
    return trap(source("Property", "Value").constData(), [&] { return Check1->Value(); });
}

void kwSimpleCheck::setValue(qint16 value)
{
    changeProperty("Value", [&] { Check1->setValue(value); });
}

QVector<kwEditorControl::PersistedProperty> kwSimpleCheck::persistedProperties()
{
    return {
        surfaceBackColorProperty(SystemColor::ButtonFace),
        foreColorMemberProperty(),
        enabledMemberProperty(false),
        fontProperty(
            "Font", [this] { return m_Font; }, [this](const QFont &f) { m_Font = f; }),
        surfaceBackStyleProperty(),
        surfaceBorderStyleProperty(),
        int16Property(
            "Value", 0, [this] { return Check1->Value(); },
            [this](qint16 v) { Check1->setValue(v); }),
    };
}

void kwSimpleCheck::UserControl_InitProperties()
{
    trap(source("Sub", "UserControl_InitProperties").constData(), [&] {
        // Stored and persisted, deliberately not applied to Check1.
        m_ForeColor = 0;
        m_Enabled = false;
        m_Font = ambientFont();
    });
}

void kwSimpleCheck::UserControl_Resize()
{
    trap(source("Sub", "UserControl_Resize").constData(),
        [&] { PlaceChild(Check1, this, true, true, 0, 0); });
}

void kwSimpleCheck::UserControl_Click()
{
    trap(source("Sub", "UserControl_Click").constData(), [&] {
        // A grayed box becomes checked, never unchecked: intended.
        Check1->setValue(Check1->Value() == 1 ? 0 : 1);
    });
}

void kwSimpleCheck::UserControl_GotFocus()
{
    trap(source("Sub", "UserControl_GotFocus").constData(), [&] {
        emit HasFocus();
        Check1->SetFocus();
    });
}

void kwSimpleCheck::UserControl_KeyPress(QKeyEvent *event)
{
    trap(source("Sub", "UserControl_KeyDown").constData(), [&] {
        int code = keyCodeOf(event->key());
        if (!moveToNeighbourRow(code))
            event->ignore();
    });
}

void kwSimpleCheck::Check1_Click()
{
    trap(source("Sub", "Check1_Click").constData(), [&] { emit Click(); });
}

void kwSimpleCheck::Check1_GotFocus()
{
    trap(source("Sub", "Check1_GotFocus").constData(), [&] { emit HasFocus(); });
}

void kwSimpleCheck::Check1_KeyDown(int &KeyCode, int &Shift)
{
    Q_UNUSED(Shift)
    trap(source("Sub", "Check1_KeyDown").constData(), [&] { moveToNeighbourRow(KeyCode); });
}

} // namespace kwFieldDeck
