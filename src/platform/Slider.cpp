#include "platform/Slider.h"

#include "platform/ClassFactory.h"

#include <QMouseEvent>
#include <QSlider>

#include <algorithm>

namespace kwFieldDeck {

namespace {
// A slider that reports a mouse click on itself.
class ClickSlider : public QSlider
{
public:
    explicit ClickSlider(Slider *owner)
        : QSlider(Qt::Horizontal)
        , m_owner(owner)
    {
    }

protected:
    void mouseReleaseEvent(QMouseEvent *event) override
    {
        QSlider::mouseReleaseEvent(event);
        if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()))
            emit m_owner->Click();
    }

private:
    Slider *m_owner;
};

const bool registered = ClassFactory::registerClass(QLatin1String(Slider::ClassId),
    [](const QString &name, QObject *owner) -> Control * { return new Slider(name, owner); });
} // namespace

Slider::Slider(const QString &name, QObject *owner)
    : Control(new ClickSlider(this), name, owner)
{
    Q_UNUSED(registered)
    QSlider *bar = slider();
    bar->setTracking(false);
    // Without tick marks the groove runs through the middle, in line with text beside it.
    bar->setTickPosition(QSlider::NoTicks);
    bar->setSingleStep(1);
    bar->setPageStep(5);
    applyRange();
    connect(bar, &QSlider::valueChanged, this, &Slider::Change);
    connect(bar, &QSlider::sliderMoved, this, &Slider::Scroll);
}

QSlider *Slider::slider() const
{
    return static_cast<QSlider *>(widget());
}

qint32 Slider::Value() const
{
    return slider()->sliderPosition();
}

void Slider::setValue(qint32 value)
{
    // While the thumb is dragged, Value is where the thumb is: setting that is no change.
    if (value != Value())
        slider()->setValue(value);
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
    slider()->setRange(std::min(m_min, m_max), std::max(m_min, m_max));
    slider()->setTickInterval(std::max(1, (slider()->maximum() - slider()->minimum()) / 10));
}

} // namespace kwFieldDeck
