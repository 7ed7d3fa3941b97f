#pragma once

#include "platform/Control.h"

class QScrollBar;

namespace kwFieldDeck {

// A vertical scroll bar. Change comes when the value settles (a click, a key, the end of a drag,
// or code); Scroll while the thumb is dragged, when Value already reads the thumb's position.
class VScrollBar : public Control
{
    Q_OBJECT
public:
    explicit VScrollBar(const QString &name, QObject *owner = nullptr);

    static constexpr const char *ClassId = "VB.VScrollBar";

    int Min() const;
    void setMin(int min);
    int Max() const;
    void setMax(int max);
    int Value() const;
    void setValue(int value);
    int SmallChange() const;
    void setSmallChange(int step);
    int LargeChange() const;
    void setLargeChange(int step);

    QScrollBar *scrollBar() const;

signals:
    void Change();
    void Scroll();
};

} // namespace kwFieldDeck
