#pragma once

#include <kwFieldDeck/kwfielddeck_export.h>

#include <QtGlobal>

/*!
    \file Global.h
    \brief What every kwFieldDeck header needs: the export macro and the colour type.
*/

/*!
    \namespace kwFieldDeck
    \brief The property grid kwPropertyControl, its fields and the hooks a host installs.
*/
namespace kwFieldDeck {

/*!
    A colour as the grid's properties and settings files keep it: red in the low byte
    (`0x00BBGGRR`), or, with the top bit set, a system colour by index (`0x8000000F` is the
    button face, `0x80000005` the window background, `0x80000008` the window text). System
    colours follow the application's palette, so a dark desktop theme just works.
*/
using OleColor = quint32;

} // namespace kwFieldDeck
