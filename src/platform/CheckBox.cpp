#include "platform/CheckBox.h"

#include "platform/ClassFactory.h"
#include "platform/Error.h"

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
    : Control(new ToggleCheckBox, name, owner)
{
    Q_UNUSED(registered)
    checkBox()->setTristate(false);
    connect(checkBox(), &QCheckBox::stateChanged, this, &Control::Click);
}

QCheckBox *CheckBox::checkBox() const
{
    return static_cast<QCheckBox *>(widget());
}

qint16 CheckBox::Value() const
{
    switch (checkBox()->checkState()) {
    case Qt::Checked:
        return 1;
    case Qt::PartiallyChecked:
        return 2;
    default:
        return 0;
    }
}

void CheckBox::setValue(qint16 value)
{
    static const Qt::CheckState states[] = { Qt::Unchecked, Qt::Checked, Qt::PartiallyChecked };
    if (value < 0 || value > 2)
        raise(380, QStringLiteral("Invalid property value"));
    checkBox()->setCheckState(states[value]);
}

QString CheckBox::Caption() const
{
    return checkBox()->text();
}
void CheckBox::setCaption(const QString &caption)
{
    checkBox()->setText(caption);
}

float CheckBox::boxSide() const
{
    const QStyle *style = checkBox()->style();
    const int width = style->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, checkBox());
    const int height = style->pixelMetric(QStyle::PM_IndicatorHeight, nullptr, checkBox());
    return float(std::max(width, height) * twipsPerPixelX());
}

} // namespace kwFieldDeck
