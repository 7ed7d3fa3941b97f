#pragma once

#include <functional>

class QDialog;

namespace kwFieldDeck {

// The seam for the memo windows' modal shows: with a hook installed, the dialog is still shown
// modally, and the hook receives it inside its modal loop so that a test can work the real
// window; the show returns once the dialog is hidden. Returns the previous hook.
using ModalShowHook = std::function<void(QDialog &dialog)>;
ModalShowHook setModalShowHook(ModalShowHook hook);

// Shows the dialog modally and returns when it is hidden.
void showModal(QDialog &dialog);

} // namespace kwFieldDeck
