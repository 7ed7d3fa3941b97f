#include "platform/CheckBox.h"

#include "platform/ClassFactory.h"
#include "platform/Error.h"

#include <QApplication>
#include <QCheckBox>
#include <QStyle>

#include <algorithm>

namespace kwFieldDeck {

namespace {
// A box that the user's click checks unless it is checked: a grayed box becomes checked, never
// unchecked, as the platform's automatic check box did.
class ToggleCheckBox : public QCheckBox
{
protected:
    void nextCheckState() override
    {
        setCheckState(checkState() == Qt::Checked ? Qt::Unchecked : Qt::Checked);
    }
};

const bool registered = ClassFactory::registerClass(QLatin1String(CheckBox::ClassId),
    [](const QString &name, QObject *owner) -> Control * { return new CheckBox(name, owner); });
} // namespace

CheckBox::CheckBox(const QString &name, QObject *owner)
    : Control(name, owner)
{
    Q_UNUSED(registered)
}

QWidget *CheckBox::createWidget()
{
    auto *box = new ToggleCheckBox;
    box->setTristate(false);
    return box;
}

namespace {
const Qt::CheckState states[] = { Qt::Unchecked, Qt::Checked, Qt::PartiallyChecked };
} // namespace

void CheckBox::attach(QWidget *widget)
{
    auto *box = static_cast<QCheckBox *>(widget);
    box->setText(m_caption);
    box->setCheckState(states[m_value]);
    connect(box, &QCheckBox::stateChanged, this, &CheckBox::changeState);
}

QCheckBox *CheckBox::checkBox() const
{
    return static_cast<QCheckBox *>(widget());
}

void CheckBox::changeState(int state)
{
    m_value = state == Qt::Checked ? 1 : state == Qt::PartiallyChecked ? 2 : 0;
    emit Click();
}

qint16 CheckBox::Value() const
{
    return m_value;
}

void CheckBox::setValue(qint16 value)
{
    if (value < 0 || value > 2)
        raise(380, QStringLiteral("Invalid property value"));
    if (QWidget *widget = realizedWidget())
        static_cast<QCheckBox *>(widget)->setCheckState(states[value]);
    else if (value != m_value)
        changeState(states[value]);
}

QString CheckBox::Caption() const
{
    return m_caption;
}

void CheckBox::setCaption(const QString &caption)
{
    m_caption = caption;
    if (QWidget *widget = realizedWidget())
        static_cast<QCheckBox *>(widget)->setText(caption);
}

float CheckBox::boxSide() const
{
    const QStyle *style = QApplication::style();
    const int width = style->pixelMetric(QStyle::PM_IndicatorWidth);
    const int height = style->pixelMetric(QStyle::PM_IndicatorHeight);
    return float(std::max(width, height) * twipsPerPixelX());
}

} // namespace kwFieldDeck
