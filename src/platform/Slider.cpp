#include "platform/Slider.h"

#include "platform/ClassFactory.h"

#include <QMouseEvent>
#include <QSignalBlocker>
#include <QSlider>

#include <algorithm>

namespace kwFieldDeck {

namespace {
// A slider that reports a mouse click on itself to the control it is realized for.
class ClickSlider : public QSlider
{
public:
    ClickSlider()
        : QSlider(Qt::Horizontal)
    {
    }

    Slider *owner = nullptr;

protected:
    void mouseReleaseEvent(QMouseEvent *event) override
    {
        QSlider::mouseReleaseEvent(event);
        if (owner && event->button() == Qt::LeftButton
            && rect().contains(event->position().toPoint()))
            emit owner->Click();
    }
};

const bool registered = ClassFactory::registerClass(QLatin1String(Slider::ClassId),
    [](const QString &name, QObject *owner) -> Control * { return new Slider(name, owner); });
} // namespace

Slider::Slider(const QString &name, QObject *owner)
    : Control(name, owner)
{
    Q_UNUSED(registered)
}

QWidget *Slider::createWidget()
{
    auto *bar = new ClickSlider;
    bar->setTracking(false);
    // Without tick marks the groove runs through the middle, in line with text beside it.
    bar->setTickPosition(QSlider::NoTicks);
    bar->setSingleStep(1);
    bar->setPageStep(5);
    return bar;
}

void Slider::attach(QWidget *widget)
{
    auto *bar = static_cast<QSlider *>(widget);
    {
        const QSignalBlocker quiet(bar);
        applyRange();
        bar->setValue(m_value);
    }
    connect(bar, &QSlider::valueChanged, this, &Slider::changeValue);
    connect(bar, &QSlider::sliderMoved, this, &Slider::Scroll);
    static_cast<ClickSlider *>(bar)->owner = this;
}

void Slider::detach(QWidget *widget)
{
    static_cast<ClickSlider *>(widget)->owner = nullptr;
}

QSlider *Slider::slider() const
{
    return static_cast<QSlider *>(widget());
}

void Slider::changeValue(int value)
{
    m_value = value;
    emit Change();
}

qint32 Slider::Value() const
{
    // While the thumb is dragged, Value is where the thumb is.
    const auto *bar = static_cast<const QSlider *>(realizedWidget());
    return bar ? bar->sliderPosition() : m_value;
}

void Slider::setValue(qint32 value)
{
    // While the thumb is dragged, Value is where the thumb is: setting that is no change.
    if (value == Value())
        return;
    if (auto *bar = static_cast<QSlider *>(realizedWidget()))
        bar->setValue(value);
    else if (std::clamp(value, std::min(m_min, m_max), std::max(m_min, m_max)) != m_value)
        changeValue(std::clamp(value, std::min(m_min, m_max), std::max(m_min, m_max)));
}

void Slider::setMin(qint32 min)
{
    m_min = min;
    applyRange();
}

void Slider::setMax(qint32 max)
{
    m_max = max;
    applyRange();
}

void Slider::applyRange()
{
    const qint32 low = std::min(m_min, m_max), high = std::max(m_min, m_max);
    if (auto *bar = static_cast<QSlider *>(realizedWidget())) {
        bar->setRange(low, high);
        bar->setTickInterval(std::max(1, (high - low) / 10));
    } else if (std::clamp(m_value, low, high) != m_value) {
        // A value outside the new range is brought into it, as the widget does.
        changeValue(std::clamp(m_value, low, high));
    }
}

} // namespace kwFieldDeck
