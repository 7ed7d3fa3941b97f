#pragma once

#include "platform/Control.h"

class QSlider;

namespace kwFieldDeck {

// The horizontal slider of the common controls: a whole-number Value between Min and Max.
// Change comes when the value settles (a click, a key, the end of a drag, or code); Scroll while
// the thumb is dragged, when Value already reads the thumb's position; Click on a mouse click.
// Min and Max read back as they were set, even when Max is below Min; a value outside the range
// is brought into it.
class Slider : public Control
{
    Q_OBJECT
public:
    explicit Slider(const QString &name, QObject *owner = nullptr);

    static constexpr const char *ClassId = "MSComctlLib.Slider";

    qint32 Value() const;
    void setValue(qint32 value);
    qint32 Min() const { return m_min; }
    void setMin(qint32 min);
    qint32 Max() const { return m_max; }
    void setMax(qint32 max);

    // The widget, realized now if the slider has none.
    QSlider *slider() const;

signals:
    void Change();
    void Scroll();

protected:
    QWidget *createWidget() override;
    void attach(QWidget *widget) override;
    void detach(QWidget *widget) override;

private:
    void applyRange();
    void changeValue(int value);

    qint32 m_value = 0;
    qint32 m_min = 0;
    qint32 m_max = 10;
};

} // namespace kwFieldDeck
