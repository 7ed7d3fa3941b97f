#pragma once

#include "platform/Control.h"

class QLineEdit;

namespace kwFieldDeck {

// The standard single-line text box. Appearance 0 is the flat look: a one-pixel line instead of
// the sunken frame, so that adjacent boxes can share one border. MaxLength (0: none) limits what
// the user types, pastes or drops; text set by the program is kept whole.
class TextBox : public Control
{
    Q_OBJECT
public:
    explicit TextBox(const QString &name, QObject *owner = nullptr);

    static constexpr const char *ClassId = "VB.TextBox";

    QString Text() const;
    void setText(const QString &text);
    bool Locked() const;
    void setLocked(bool locked);
    int MaxLength() const;
    void setMaxLength(int length);
    int Appearance() const { return m_appearance; }
    void setAppearance(int appearance);
    // 1 draws the box's frame, 0 none.
    int BorderStyle() const { return m_borderStyle; }
    void setBorderStyle(int style);
    int SelStart() const;
    void setSelStart(int start);
    int SelLength() const;
    void setSelLength(int length);
    QString SelText() const;

    // The widget, realized now if the box has none.
    QLineEdit *lineEdit() const;
    // The height, in twips, of a framed box that shows a line of text in a font.
    static float framedHeight(const QFont &font);

signals:
    void Change();

protected:
    QWidget *createWidget() override;
    void attach(QWidget *widget) override;
    void detach(QWidget *widget) override;

private:
    void applyLook();
    void changeText(const QString &text);

    QString m_text;
    int m_appearance = 1;
    int m_borderStyle = 1;
    int m_maxLength = 0;
    int m_selStart = 0;
    int m_selLength = 0;
    bool m_locked = false;
};

} // namespace kwFieldDeck
