#pragma once

#include <QSlider>
#include <QWidget>

namespace kwFieldDeck {

class kwTextBox;

// The editor of a slider row: the number box txtNum and the slider Slider1 beside it, showing
// the same whole number. Typing in the box moves the slider, dragging the slider rewrites the
// box, and "+" and "-" in the box step the value within the range.
class kwSliderValue : public QWidget
{
    Q_OBJECT
public:
    explicit kwSliderValue(QWidget *parent = nullptr);

    qint32 Value() const { return m_Value; }
    // Shows a value, a range and the box's text without raising Change.
    void showState(qint32 value, qint32 sliderValue, qint32 min, qint32 max, const QString &text);
    qint32 sliderValue() const;
    // The part that had the focus last, where the focus goes back to: the slider at first.
    QWidget *activeControl() const;
    void setActiveControl(bool slider) { m_sliderActive = slider; }

    kwTextBox *const txtNum;
    QSlider *const Slider1;

signals:
    void Change();
    void Scroll();
    void HasFocus();

protected:
    void resizeEvent(QResizeEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void Slider1_Change();
    void Slider1_Scroll();
    void txtNum_Change();
    bool txtNum_KeyPress(const QString &typed);
    void showNumber(qint32 n);

    qint32 m_Value = 0;
    bool m_showing = false;
    bool m_sliderActive = true;
};

} // namespace kwFieldDeck
