#pragma once

#include "editors/kwEditorControl.h"

namespace kwFieldDeck {

class Control;
class Slider;
class TextBox;

// The editor of a slider field: a number box, txtNum, on the left and a horizontal slider,
// Slider1, filling the rest. Both show the same whole number between Min and Max; "+" and "-"
// typed in the box step it by one.
class kwSliderValue : public kwEditorControl
{
    Q_OBJECT
    Q_PROPERTY(qint32 Value READ Value WRITE setValue)
    Q_PROPERTY(qint32 Min READ Min WRITE setMin)
    Q_PROPERTY(qint32 Max READ Max WRITE setMax)
public:
    kwSliderValue();

    qint32 Value() const { return m_Value; }
    void setValue(qint32 value);
    qint32 Min() const;
    void setMin(qint32 min);
    qint32 Max() const;
    void setMax(qint32 max);

    OleColor BackColor() const override { return m_BackColor; }
    void setBackColor(OleColor color) override;
    void setEnabled(bool enabled) override;
    QFont Font() const override;
    void setFont(const QFont &font) override;
    qint16 BackStyle() const override { return m_BackStyle; }
    void setBackStyle(qint16 style) override;
    qint16 BorderStyle() const override { return m_BorderStyle; }
    void setBorderStyle(qint16 style) override;

signals:
    void Change();
    void Scroll();

protected:
    // The child that last had the focus (the slider until one had it).
    Control *focusTarget() override;
    QVector<PersistedProperty> persistedProperties() override;
    void UserControl_Resize() override;

private:
    void Slider1_Change();
    void Slider1_Scroll();
    void Slider1_Click();
    void Slider1_GotFocus();
    void txtNum_GotFocus();
    void txtNum_Change();
    void txtNum_KeyPress(int &KeyAscii);
    void txtNum_KeyDown(int &KeyCode, int &Shift);
    void showSliderValue();
    void showNumber(qint32 n);

    TextBox *txtNum;
    Slider *Slider1;
    qint32 m_Value = 0;
    Control *m_ActiveControl = nullptr;
};

} // namespace kwFieldDeck
