#include "editors/kwSimpleCheck.h"

#include <QMouseEvent>
#include <QStyle>

#include <algorithm>

namespace kwFieldDeck {

namespace {
// A click checks the box unless it is checked: a grayed box becomes checked, never unchecked.
class ToggleCheckBox : public QCheckBox
{
public:
    using QCheckBox::QCheckBox;

protected:
    void nextCheckState() override
    {
        setCheckState(checkState() == Qt::Checked ? Qt::Unchecked : Qt::Checked);
    }
};

const Qt::CheckState states[] = { Qt::Unchecked, Qt::Checked, Qt::PartiallyChecked };
} // namespace

kwSimpleCheck::kwSimpleCheck(QWidget *parent)
    : QWidget(parent)
    , Check1(new ToggleCheckBox(this))
{
    // The surface is opaque in the canvas colour, as the idle row is painted.
    setAutoFillBackground(true);
    Check1->setObjectName(QStringLiteral("Check1"));
    // Only the box shows: the caption stays empty.
    Check1->setTristate(false);
    Check1->installEventFilter(this);
    Check1->setProperty("kwRowKeys", true);
    connect(Check1, &QCheckBox::stateChanged, this, [this] {
        if (!m_showing)
            emit Click();
    });
}

qint16 kwSimpleCheck::Value() const
{
    switch (Check1->checkState()) {
    case Qt::Checked:
        return 1;
    case Qt::PartiallyChecked:
        return 2;
    default:
        return 0;
    }
}

void kwSimpleCheck::showValue(qint16 value)
{
    m_showing = true;
    Check1->setCheckState(states[std::clamp<int>(value, 0, 2)]);
    m_showing = false;
}

// A click beside the box toggles it as the box would, and puts the focus in the box.
void kwSimpleCheck::mouseReleaseEvent(QMouseEvent *event)
{
    QWidget::mouseReleaseEvent(event);
    if (event->button() != Qt::LeftButton || !rect().contains(event->position().toPoint()))
        return;
    Check1->setFocus(Qt::MouseFocusReason);
    Check1->setCheckState(Check1->checkState() == Qt::Checked ? Qt::Unchecked : Qt::Checked);
}

void kwSimpleCheck::resizeEvent(QResizeEvent *)
{
    // Just the box: a square of the style's indicator, centred both ways.
    const int side = std::max(style()->pixelMetric(QStyle::PM_IndicatorWidth),
        style()->pixelMetric(QStyle::PM_IndicatorHeight));
    Check1->setGeometry(QStyle::alignedRect(
        layoutDirection(), Qt::AlignCenter, QSize(side, side).boundedTo(size()), rect()));
}

bool kwSimpleCheck::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == Check1 && event->type() == QEvent::FocusIn)
        emit HasFocus();
    return QWidget::eventFilter(watched, event);
}

} // namespace kwFieldDeck
