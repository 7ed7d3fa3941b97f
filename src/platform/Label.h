#pragma once

#include "platform/Control.h"

class QLabel;

namespace kwFieldDeck {

// A label: a caption drawn in the control's font and colours; it never takes the focus.
class Label : public Control
{
    Q_OBJECT
    Q_PROPERTY(QString Caption READ Caption WRITE setCaption)
public:
    explicit Label(const QString &name, QObject *owner = nullptr);

    QString Caption() const;
    void setCaption(const QString &caption);
    // 0 left, 1 right, 2 centre.
    int Alignment() const { return m_alignment; }
    void setAlignment(int alignment);

    QLabel *label() const;

private:
    int m_alignment = 0;
};

} // namespace kwFieldDeck
