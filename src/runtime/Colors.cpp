#include "runtime/Colors.h"

namespace kwFieldDeck {

QPalette::ColorRole paletteRoleOf(OleColor systemColor)
{
    switch (systemColor & 0xFF) {
    case 0: // scroll bar
    case 15: // button face
        return QPalette::Button;
    case 1: // desktop
    case 4: // menu
    case 12: // application workspace
        return QPalette::Window;
    case 5: // window background
        return QPalette::Base;
    case 6: // window frame
    case 16: // button shadow
        return QPalette::Dark;
    case 7: // menu text
    case 9: // caption text
        return QPalette::WindowText;
    case 8: // window text
        return QPalette::Text;
    case 13:
        return QPalette::Highlight;
    case 14:
        return QPalette::HighlightedText;
    case 17: // gray text
        return QPalette::PlaceholderText;
    case 18: // button text
        return QPalette::ButtonText;
    case 20: // button highlight
        return QPalette::Light;
    case 21: // 3D dark shadow
        return QPalette::Shadow;
    case 22: // 3D light
        return QPalette::Midlight;
    case 23: // tool-tip text
        return QPalette::ToolTipText;
    case 24: // tool-tip background
        return QPalette::ToolTipBase;
    default:
        return QPalette::Window;
    }
}

QColor toQColor(OleColor color, const QPalette &palette)
{
    if (isSystemColor(color))
        return palette.color(QPalette::Active, paletteRoleOf(color));
    return QColor(int(color & 0xFF), int((color >> 8) & 0xFF), int((color >> 16) & 0xFF));
}

OleColor fromQColor(const QColor &color)
{
    const QColor rgb = color.toRgb();
    return OleColor(rgb.red()) | (OleColor(rgb.green()) << 8) | (OleColor(rgb.blue()) << 16);
}

} // namespace kwFieldDeck
