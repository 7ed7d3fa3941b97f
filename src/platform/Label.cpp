#include "platform/Label.h"

#include "platform/Error.h"

#include <QLabel>

namespace kwFieldDeck {

Label::Label(const QString &name, QObject *owner)
    : Control(new QLabel, name, owner)
{
    label()->setTextFormat(Qt::PlainText);
    setBackColor(SystemColor::ButtonFace);
    setForeColor(SystemColor::WindowText);
    setAlignment(0);
}

QLabel *Label::label() const
{
    return static_cast<QLabel *>(widget());
}

QString Label::Caption() const
{
    return label()->text();
}
void Label::setCaption(const QString &caption)
{
    label()->setText(caption);
}

void Label::setAlignment(int alignment)
{
    static const Qt::Alignment horizontal[] = { Qt::AlignLeft, Qt::AlignRight, Qt::AlignHCenter };
    if (alignment < 0 || alignment > 2)
        raise(380, QStringLiteral("Invalid property value"));
    m_alignment = alignment;
    label()->setAlignment(horizontal[alignment] | Qt::AlignTop);
}

} // namespace kwFieldDeck
