#include "editors/kwSliderValue.h"

#include "editors/kwTextBox.h"
#include "runtime/Twips.h"
#include "runtime/Values.h"

#include <QKeyEvent>

#include <algorithm>

namespace kwFieldDeck {

namespace {
// The number box is 615 twips wide; the slider starts 20 twips after it and 15 below the top.
constexpr double NumberBoxWidth = 615;
constexpr double SliderGap = 20;
constexpr double SliderTop = 15;
} // namespace

kwSliderValue::kwSliderValue(QWidget *parent)
    : QWidget(parent)
    , txtNum(new kwTextBox(this))
    , Slider1(new QSlider(Qt::Horizontal, this))
{
    // The surface is opaque in the canvas colour, as the idle row is painted.
    setAutoFillBackground(true);
    txtNum->setObjectName(QStringLiteral("txtNum"));
    Slider1->setObjectName(QStringLiteral("Slider1"));
    txtNum->setProperty("kwRowKeys", true);
    // The slider reports its value when the drag ends, and its position while it is dragged.
    Slider1->setTracking(false);
    Slider1->setTickPosition(QSlider::NoTicks);
    Slider1->setSingleStep(1);
    Slider1->setPageStep(5);
    Slider1->setRange(0, 10);
    txtNum->installEventFilter(this);
    Slider1->installEventFilter(this);
    connect(Slider1, &QSlider::valueChanged, this, &kwSliderValue::Slider1_Change);
    connect(Slider1, &QSlider::sliderMoved, this, &kwSliderValue::Slider1_Scroll);
    connect(txtNum, &kwTextBox::Change, this, &kwSliderValue::txtNum_Change);
}

qint32 kwSliderValue::sliderValue() const
{
    // While the thumb is dragged, the value is where the thumb is.
    return Slider1->sliderPosition();
}

QWidget *kwSliderValue::activeControl() const
{
    return m_sliderActive ? static_cast<QWidget *>(Slider1) : txtNum;
}

void kwSliderValue::showState(
    qint32 value, qint32 sliderValue, qint32 min, qint32 max, const QString &text)
{
    m_showing = true;
    m_Value = value;
    Slider1->setRange(std::min(min, max), std::max(min, max));
    Slider1->setValue(sliderValue);
    txtNum->showText(text);
    m_showing = false;
}

void kwSliderValue::showNumber(qint32 n)
{
    const QString text = QString::number(n);
    if (txtNum->text() == text)
        return;
    txtNum->setText(text);
    // Typing goes on at the end of the rewritten number rather than before it.
    if (txtNum->hasFocus())
        txtNum->setCursorPosition(int(text.size()));
}

void kwSliderValue::Slider1_Change()
{
    if (m_showing)
        return;
    m_Value = sliderValue();
    showNumber(m_Value);
    emit Change();
}

void kwSliderValue::Slider1_Scroll()
{
    if (m_showing)
        return;
    m_Value = sliderValue();
    showNumber(m_Value);
    emit Change();
    emit Scroll();
}

void kwSliderValue::txtNum_Change()
{
    // A number outside the range is brought into it by the slider, which then rewrites the box.
    const qint32 wanted = roundToInt32(leadingNumber(txtNum->text()));
    if (wanted != sliderValue())
        Slider1->setValue(wanted);
}

// Digits, Tab and Backspace pass; "+" and "-" step within the range and are swallowed, so a
// sign can never be typed (intended); every other character is swallowed.
bool kwSliderValue::txtNum_KeyPress(const QString &typed)
{
    if (typed.isEmpty() || !typed.at(0).isPrint())
        return false;
    const QChar c = typed.at(0);
    if (c >= u'0' && c <= u'9')
        return false;
    if (c == u'+' || c == u'-') {
        qint32 n = roundToInt32(leadingNumber(txtNum->text()));
        n = c == u'+' ? std::min(n + 1, Slider1->maximum()) : std::max(n - 1, Slider1->minimum());
        showNumber(n);
    }
    return true;
}

void kwSliderValue::resizeEvent(QResizeEvent *)
{
    const int numberWidth = twipsToPixelsX(NumberBoxWidth);
    const int sliderLeft = twipsToPixelsX(NumberBoxWidth + SliderGap);
    const int sliderTop = twipsToPixelsY(SliderTop);
    Slider1->setGeometry(sliderLeft, sliderTop, std::max(0, width() - sliderLeft),
        std::max(0, height() - sliderTop));
    // One line of the box's text with its frame, within the cell, centred from top to bottom.
    const int line = std::min(txtNum->sizeHint().height(), height());
    txtNum->setGeometry(0, (height() - line) / 2, numberWidth, line);
}

bool kwSliderValue::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::FocusIn) {
        m_sliderActive = watched == Slider1;
        emit HasFocus();
    } else if (watched == txtNum && event->type() == QEvent::KeyPress) {
        auto *key = static_cast<QKeyEvent *>(event);
        // The box takes digits only: pasting, copying and cutting are refused too.
        if (key->matches(QKeySequence::Paste) || key->matches(QKeySequence::Copy)
            || key->matches(QKeySequence::Cut))
            return true;
        const bool command = key->modifiers() & (Qt::ControlModifier | Qt::MetaModifier);
        if (!command && txtNum_KeyPress(key->text()))
            return true;
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace kwFieldDeck
