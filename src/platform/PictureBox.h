#pragma once

#include "platform/Control.h"

namespace kwFieldDeck {

// A plain surface that holds other controls. Appearance 1 draws the sunken three-dimensional
// border, 0 none.
class PictureBox : public Control
{
    Q_OBJECT
public:
    explicit PictureBox(const QString &name, QObject *owner = nullptr);

    static constexpr const char *ClassId = "VB.PictureBox";

    int Appearance() const { return m_appearance; }
    void setAppearance(int appearance);
    // The inner size, inside the border, in twips.
    float ScaleWidth() const;
    float ScaleHeight() const;

private:
    int m_appearance = 1;
};

} // namespace kwFieldDeck
