#include "platform/StatusBarPanel.h"

#include "platform/Control.h"

#include <QLabel>

namespace kwFieldDeck {

StatusBarPanel::StatusBarPanel(QLabel *label, int autoSize, QObject *owner)
    : QObject(owner)
    , m_label(label)
    , m_autoSize(autoSize)
{
    label->setTextFormat(Qt::PlainText);
    label->setFrameStyle(QFrame::Panel | QFrame::Sunken);
}

QString StatusBarPanel::Text() const
{
    return m_label->text();
}
void StatusBarPanel::setText(const QString &text)
{
    m_label->setText(text);
}

float StatusBarPanel::MinWidth() const
{
    return float(m_label->minimumWidth() * twipsPerPixelX());
}
void StatusBarPanel::setMinWidth(float width)
{
    m_label->setMinimumWidth(twipsToPixelsX(width));
}

} // namespace kwFieldDeck
