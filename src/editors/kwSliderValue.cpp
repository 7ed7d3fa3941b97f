#include "editors/kwSliderValue.h"

#include "platform/Services.h"
#include "platform/Slider.h"
#include "platform/TextBox.h"
#include "platform/Values.h"
#include "util/Numbers.h"
#include "util/Placement.h"

#include <QLineEdit>

#include <algorithm>

namespace kwFieldDeck {

namespace {
const bool registered = registerEditor<kwSliderValue>("kwSliderValue");
} // namespace

kwSliderValue::kwSliderValue()
    : kwEditorControl("kwSliderValue")
{
    Q_UNUSED(registered)
    // Created first, txtNum comes before Slider1 in the tab order.
    txtNum = addChild<TextBox>("txtNum");
    Slider1 = addChild<Slider>("Slider1");
    txtNum->setText(QStringLiteral("Text1"));
    txtNum->Move(0, 0, 615, 315);
    Slider1->Move(635, 0, 2000, 315);
    m_ActiveControl = Slider1;

    connect(Slider1, &Slider::Change, this, &kwSliderValue::Slider1_Change);
    connect(Slider1, &Slider::Scroll, this, &kwSliderValue::Slider1_Scroll);
    connect(Slider1, &Control::Click, this, &kwSliderValue::Slider1_Click);
    connect(Slider1, &Control::GotFocus, this, &kwSliderValue::Slider1_GotFocus);
    connect(txtNum, &Control::GotFocus, this, &kwSliderValue::txtNum_GotFocus);
    connect(txtNum, &TextBox::Change, this, &kwSliderValue::txtNum_Change);
    connect(txtNum, &Control::KeyPress, this, &kwSliderValue::txtNum_KeyPress);
    connect(txtNum, &Control::KeyDown, this, &kwSliderValue::txtNum_KeyDown);
}

void kwSliderValue::setValue(qint32 value)
{
    changeProperty("Value", [&] {
        m_Value = value;
        Slider1->setValue(m_Value);
        txtNum->setText(QString::number(m_Value));
    });
}

qint32 kwSliderValue::Min() const
{
    return trap(source("Property", "Min").constData(), [&] { return Slider1->Min(); });
}

void kwSliderValue::setMin(qint32 min)
{
    changeProperty("Min", [&] {
        // Only Min keeps the pair in order; Max is taken as given. Intended.
        if (Slider1->Max() <= min) {
            qint32 max = min;
            Slider1->setMax(Increment(max, 1));
        }
        Slider1->setMin(min);
    });
}

qint32 kwSliderValue::Max() const
{
    return trap(source("Property", "Max").constData(), [&] { return Slider1->Max(); });
}

void kwSliderValue::setMax(qint32 max)
{
    changeProperty("Max", [&] { Slider1->setMax(max); });
}

void kwSliderValue::setBackColor(OleColor color)
{
    changeProperty("BackColor", [&] { m_BackColor = color; });
}

void kwSliderValue::setEnabled(bool enabled)
{
    changeProperty("Enabled", [&] {
        m_Enabled = enabled;
        txtNum->setEnabled(enabled);
        Slider1->setEnabled(enabled);
    });
}

QFont kwSliderValue::Font() const
{
    return trap(source("Property", "Font").constData(), [&] { return txtNum->Font(); });
}

void kwSliderValue::setFont(const QFont &font)
{
    changeProperty("Font", [&] { txtNum->setFont(font); });
}

void kwSliderValue::setBackStyle(qint16 style)
{
    changeProperty("BackStyle", [&] { m_BackStyle = style; });
}

void kwSliderValue::setBorderStyle(qint16 style)
{
    changeProperty("BorderStyle", [&] { m_BorderStyle = style; });
}

Control *kwSliderValue::focusTarget()
{
    if (!m_ActiveControl)
        m_ActiveControl = txtNum;
    return m_ActiveControl;
}

QVector<kwEditorControl::PersistedProperty> kwSliderValue::persistedProperties()
{
    // Reading fills the members only: a read Enabled reaches no child and a read Value shows
    // only when Value is set again; Max is applied before Min without Min's guard. Intended.
    return {
        colorProperty(
            "BackColor", 0, [this] { return m_BackColor; },
            [this](OleColor c) { m_BackColor = c; }),
        foreColorMemberProperty(),
        enabledMemberProperty(false),
        int16Property(
            "BackStyle", 0, [this] { return m_BackStyle; }, [this](qint16 s) { m_BackStyle = s; }),
        int16Property(
            "BorderStyle", 0, [this] { return m_BorderStyle; },
            [this](qint16 s) { m_BorderStyle = s; }),
        int32Property(
            "Value", 0, [this] { return m_Value; }, [this](qint32 v) { m_Value = v; }),
        containerHwndProperty(),
        int32Property(
            "Max", 10, [this] { return Slider1->Max(); }, [this](qint32 m) { Slider1->setMax(m); }),
        int32Property(
            "Min", 0, [this] { return Slider1->Min(); }, [this](qint32 m) { Slider1->setMin(m); }),
        fontProperty(
            "Font", [this] { return txtNum->Font(); },
            [this](const QFont &f) { txtNum->setFont(f); }),
    };
}

void kwSliderValue::UserControl_Resize()
{
    trap(source("Sub", "UserControl_Resize").constData(), [&] {
        Slider1->setLeft(txtNum->Width() + 20);
        Slider1->setTop(15);
        Slider1->setWidth(extenderWidth() - (txtNum->Width() + 20));
        Slider1->setHeight(extenderHeight() - 15);
        // One line of the box's text, with the frame around it so that the line shows whole,
        // within the cell.
        const float line = float(textHeightTwips(txtNum->Font(), QStringLiteral("H")));
        const float framed = TextBox::framedHeight(txtNum->Font());
        txtNum->setHeight(std::max(0.0f, std::min(std::max(line, framed), extenderHeight())));
        PlaceChild(txtNum, this, false, true, 0, 0);
        txtNum->setLeft(0);
    });
}

// The slider's value in the box, in canonical form, and as the control's value.
void kwSliderValue::showSliderValue()
{
    m_Value = Slider1->Value();
    showNumber(m_Value);
}

void kwSliderValue::showNumber(qint32 n)
{
    const QString text = QString::number(n);
    if (txtNum->Text() == text)
        return;
    txtNum->setText(text);
    // Typing goes on at the end of the rewritten number rather than before it.
    if (txtNum->hasFocus())
        txtNum->setSelStart(int(text.size()));
}

void kwSliderValue::Slider1_Change()
{
    trap(source("Sub", "Slider1_Change").constData(), [&] {
        showSliderValue();
        emit Change();
    });
}

void kwSliderValue::Slider1_Scroll()
{
    trap(source("Sub", "Slider1_Scroll").constData(), [&] {
        showSliderValue();
        emit Change();
        emit Scroll();
    });
}

void kwSliderValue::Slider1_Click()
{
    trap(source("Sub", "Slider1_Click").constData(), [&] { emit Click(); });
}

void kwSliderValue::Slider1_GotFocus()
{
    trap(source("Sub", "Slider1_GotFocus").constData(), [&] {
        m_ActiveControl = Slider1;
        emit HasFocus();
    });
}

void kwSliderValue::txtNum_GotFocus()
{
    trap(source("Sub", "txtNum_GotFocus").constData(), [&] {
        m_ActiveControl = txtNum;
        emit HasFocus();
    });
}

void kwSliderValue::txtNum_Change()
{
    trap(source("Sub", "txtNum_Change").constData(), [&] {
        if (QWidget *box = txtNum->realizedWidget())
            box->update();
        // A number outside Min..Max is brought into the range by the slider, which then
        // rewrites the box: a Qt slider clamps rather than refuses.
        Slider1->setValue(roundToInt32(leadingNumber(txtNum->Text())));
        DoEvents();
    });
}

void kwSliderValue::txtNum_KeyPress(int &KeyAscii)
{
    trap(source("Sub", "txtNum_KeyPress").constData(), [&] {
        const int typed = KeyAscii;
        if ((typed >= '0' && typed <= '9') || typed == KeyCode::Tab || typed == KeyCode::Backspace)
            return;
        // "+" and "-" always step within the range, so a sign can never be typed: intended.
        if (typed == '+' || typed == '-') {
            qint32 n = roundToInt32(leadingNumber(txtNum->Text()));
            if (typed == '+') {
                if (Increment(n, 1) > Slider1->Max())
                    n = Slider1->Max();
            } else if (Decrement(n, 1) < Slider1->Min()) {
                n = Slider1->Min();
            }
            showNumber(n);
        }
        KeyAscii = 0;
    });
}

void kwSliderValue::txtNum_KeyDown(int &KeyCode, int &Shift)
{
    Q_UNUSED(Shift)
    // Down tabs twice, over Slider1 to the next row: intended.
    trap(source("Sub", "txtNum_KeyDown").constData(),
        [&] { moveToNeighbourRow(KeyCode, QStringLiteral("{tab}{Tab}")); });
}

} // namespace kwFieldDeck
