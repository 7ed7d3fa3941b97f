#include "platform/Accessibility.h"

#include "platform/Control.h"

#include <QWidget>

namespace kwFieldDeck {

void setAccessibleText(QObject *controlOrWidget, const QString &name, const QString &description)
{
    QWidget *widget = qobject_cast<QWidget *>(controlOrWidget);
    if (const auto *control = qobject_cast<Control *>(controlOrWidget))
        widget = control->widget();
    if (!widget)
        return;
    widget->setAccessibleName(name);
    widget->setAccessibleDescription(description);
    const QList<QWidget *> parts = widget->findChildren<QWidget *>();
    for (QWidget *part : parts) {
        if (part->focusPolicy() == Qt::NoFocus)
            continue;
        part->setAccessibleName(name);
        part->setAccessibleDescription(description);
    }
}

} // namespace kwFieldDeck
