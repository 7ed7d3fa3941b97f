#include "platform/PictureBox.h"

#include "platform/Error.h"

#include <QFrame>

namespace kwFieldDeck {

PictureBox::PictureBox(const QString &name, QObject *owner)
    : Control(new QFrame, name, owner)
{
    widget()->setAutoFillBackground(true);
    setBackColor(SystemColor::ButtonFace);
    setAppearance(1);
}

void PictureBox::setAppearance(int appearance)
{
    if (appearance != 0 && appearance != 1)
        raise(380, QStringLiteral("Invalid property value"));
    m_appearance = appearance;
    auto *frame = static_cast<QFrame *>(widget());
    frame->setFrameStyle(appearance == 1 ? QFrame::StyledPanel | QFrame::Sunken : QFrame::NoFrame);
}

float PictureBox::ScaleWidth() const
{
    const auto *frame = static_cast<QFrame *>(widget());
    return Width() - float(2 * frame->frameWidth() * twipsPerPixelX());
}

float PictureBox::ScaleHeight() const
{
    const auto *frame = static_cast<QFrame *>(widget());
    return Height() - float(2 * frame->frameWidth() * twipsPerPixelY());
}

} // namespace kwFieldDeck
