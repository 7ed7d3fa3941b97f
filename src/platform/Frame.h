#pragma once

#include "platform/Control.h"

class QGroupBox;

namespace kwFieldDeck {

// A frame: a captioned border around a group of controls, which use it as their container.
class Frame : public Control
{
    Q_OBJECT
    Q_PROPERTY(QString Caption READ Caption WRITE setCaption)
public:
    explicit Frame(const QString &name, QObject *owner = nullptr);

    QString Caption() const;
    void setCaption(const QString &caption);

    QGroupBox *groupBox() const;
};

} // namespace kwFieldDeck
