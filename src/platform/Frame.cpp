#include "platform/Frame.h"

#include <QGroupBox>

namespace kwFieldDeck {

Frame::Frame(const QString &name, QObject *owner)
    : Control(new QGroupBox, name, owner)
{
    setBackColor(SystemColor::ButtonFace);
}

QGroupBox *Frame::groupBox() const
{
    return static_cast<QGroupBox *>(widget());
}

QString Frame::Caption() const
{
    return groupBox()->title();
}
void Frame::setCaption(const QString &caption)
{
    groupBox()->setTitle(caption);
}

} // namespace kwFieldDeck
