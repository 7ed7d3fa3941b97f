#pragma once

#include <kwFieldDeck/Global.h>

#include <QColor>
#include <QPalette>

namespace kwFieldDeck {

namespace SystemColor {
constexpr OleColor ButtonFace = 0x8000000F;
constexpr OleColor WindowBackground = 0x80000005;
constexpr OleColor WindowText = 0x80000008;
constexpr OleColor Highlight = 0x8000000D;
constexpr OleColor HighlightText = 0x8000000E;
} // namespace SystemColor

constexpr bool isSystemColor(OleColor color)
{
    return color & 0x80000000u;
}

// The palette role that stands in for a system colour index (5 window background -> Base,
// 8 window text -> Text, 13 highlight -> Highlight, ...), so a dark desktop theme just works.
QPalette::ColorRole paletteRoleOf(OleColor systemColor);

// The colour on screen, system colours looked up in the given palette.
QColor toQColor(OleColor color, const QPalette &palette);
OleColor fromQColor(const QColor &color);

} // namespace kwFieldDeck
