#include "platform/VScrollBar.h"

#include <QScrollBar>

namespace kwFieldDeck {

VScrollBar::VScrollBar(const QString &name, QObject *owner)
    : Control(new QScrollBar(Qt::Vertical), name, owner)
{
    QScrollBar *bar = scrollBar();
    bar->setTracking(false);
    bar->setRange(0, 32767);
    bar->setSingleStep(1);
    bar->setPageStep(1);
    connect(bar, &QScrollBar::valueChanged, this, &VScrollBar::Change);
    connect(bar, &QScrollBar::sliderMoved, this, &VScrollBar::Scroll);
}

QScrollBar *VScrollBar::scrollBar() const
{
    return static_cast<QScrollBar *>(widget());
}

int VScrollBar::Min() const
{
    return scrollBar()->minimum();
}
void VScrollBar::setMin(int min)
{
    scrollBar()->setMinimum(min);
}
int VScrollBar::Max() const
{
    return scrollBar()->maximum();
}
void VScrollBar::setMax(int max)
{
    scrollBar()->setMaximum(max);
}
int VScrollBar::Value() const
{
    return scrollBar()->sliderPosition();
}
void VScrollBar::setValue(int value)
{
    scrollBar()->setValue(value);
}
int VScrollBar::SmallChange() const
{
    return scrollBar()->singleStep();
}
void VScrollBar::setSmallChange(int step)
{
    scrollBar()->setSingleStep(step);
}
int VScrollBar::LargeChange() const
{
    return scrollBar()->pageStep();
}
void VScrollBar::setLargeChange(int step)
{
    scrollBar()->setPageStep(step);
}

} // namespace kwFieldDeck
