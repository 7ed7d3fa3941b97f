#include "editors/kwComboField.h"

#include "platform/ComboBox.h"
#include "platform/Values.h"

#include <algorithm>

namespace kwFieldDeck {

namespace {
const bool registered = registerEditor<kwComboField>("kwComboField");
} // namespace

kwComboField::kwComboField()
    : kwEditorControl("kwComboField")
{
    Q_UNUSED(registered)
    cbo = addChild<ComboBox>("cbo");
    connect(cbo, &Control::Click, this, &kwComboField::cbo_Click);
    connect(cbo, &Control::GotFocus, this, &kwComboField::cbo_GotFocus);
}

QString kwComboField::Value() const
{
    return trap(source("Property", "Value").constData(), [&] {
        if (!m_UseItemData)
            return cbo->Text();
        const int index = cbo->ListIndex();
        return index >= 0 ? QString::number(cbo->ItemData(index)) : QString();
    });
}

void kwComboField::setValue(const QString &value)
{
    trap(source("Property", "Value").constData(), [&] {
        m_Value = value;
        const int count = cbo->ListCount();
        if (m_UseItemData) {
            const double wanted = leadingNumber(value);
            for (int i = 0; i < count; ++i) {
                if (double(cbo->ItemData(i)) == wanted) {
                    cbo->setListIndex(i);
                    return;
                }
            }
        } else {
            const QString wanted = value.toUpper();
            for (int i = 0; i < count; ++i) {
                if (cbo->List(i).toUpper() == wanted) {
                    cbo->setListIndex(i);
                    return;
                }
            }
        }
        // Property-changed only when nothing matched, and the selection stays: intended.
        propertyChanged(QStringLiteral("Value"));
    });
}

qint16 kwComboField::Style() const
{
    return trap(source("Property", "Style").constData(), [&] { return cbo->Style(); });
}

void kwComboField::setEnabled(bool enabled)
{
    changeProperty("Enabled", [&] {
        m_Enabled = enabled;
        cbo->setEnabled(enabled);
    });
}

QFont kwComboField::Font() const
{
    return trap(source("Property", "Font").constData(), [&] { return cbo->Font(); });
}

void kwComboField::setFont(const QFont &font)
{
    changeProperty("Font", [&] { cbo->setFont(font); });
}

Control *kwComboField::focusTarget()
{
    return cbo;
}

QVector<kwEditorControl::PersistedProperty> kwComboField::persistedProperties()
{
    // Three names come twice with other targets and defaults; the later write of a name wins
    // in the bag. Intended.
    return {
        surfaceBackColorProperty(SystemColor::ButtonFace),
        colorProperty(
            "ForeColor", SystemColor::WindowText, [this] { return cbo->ForeColor(); },
            [this](OleColor c) { cbo->setForeColor(c); }),
        enabledMemberProperty(false),
        fontProperty(
            "Font", [this] { return cbo->Font(); }, [this](const QFont &f) { cbo->setFont(f); }),
        surfaceBackStyleProperty(),
        surfaceBorderStyleProperty(),
        textProperty(
            "Value", QString(), [this] { return cbo->Text(); },
            [this](const QString &t) { cbo->setText(t); }),
        scaleModeProperty(),
        foreColorMemberProperty(),
        fontProperty(
            "Font", [this] { return cbo->Font(); }, [this](const QFont &f) { cbo->setFont(f); }),
        textProperty(
            "Value", QString(), [this] { return m_Value; },
            [this](const QString &v) { m_Value = v; }),
    };
}

void kwComboField::UserControl_InitProperties()
{
    trap(source("Sub", "UserControl_InitProperties").constData(), [&] {
        m_Enabled = false;
        m_ForeColor = 0;
        m_Value.clear();
    });
}

void kwComboField::UserControl_Resize()
{
    trap(source("Sub", "UserControl_Resize").constData(), [&] {
        cbo->setLeft(0);
        cbo->setTop(15);
        cbo->setWidth(ScaleWidth() - 20);
        // The height follows the combo box's font, within the cell.
        const float natural = cbo->naturalHeight(cbo->Font());
        cbo->setHeight(std::max(0.0f, std::min(natural, extenderHeight() - 15)));
    });
}

void kwComboField::cbo_Click()
{
    trap(source("Sub", "cbo_Click").constData(), [&] {
        // Reads the entry at ListIndex without checking that one is selected, as intended.
        m_Value = m_UseItemData ? QString::number(cbo->ItemData(cbo->ListIndex())) : cbo->Text();
        emit Change();
    });
}

void kwComboField::cbo_GotFocus()
{
    // The focus coming back from the closed list or another window is no new arrival.
    if (cbo->focusReturned())
        return;
    trap(source("Sub", "cbo_GotFocus").constData(), [&] {
        // Entering the box always reports a change first, then the focus: intended.
        emit Change();
        emit HasFocus();
    });
}

} // namespace kwFieldDeck
