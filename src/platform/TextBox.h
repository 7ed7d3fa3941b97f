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
    int SelStart() const;
    void setSelStart(int start);
    int SelLength() const;
    void setSelLength(int length);
    QString SelText() const;

    QLineEdit *lineEdit() const;

signals:
    void Change();

private:
    int m_appearance = 1;
    int m_maxLength = 0;
};

} // namespace kwFieldDeck
