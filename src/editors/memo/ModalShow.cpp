#include "editors/memo/ModalShow.h"

#include <QDialog>
#include <QTimer>

namespace kwFieldDeck {

namespace {
ModalShowHook &installedHook()
{
    static ModalShowHook hook;
    return hook;
}
} // namespace

ModalShowHook setModalShowHook(ModalShowHook hook)
{
    ModalShowHook previous = std::move(installedHook());
    installedHook() = std::move(hook);
    return previous;
}

void showModal(QDialog &dialog)
{
    // Queued, so that it runs once exec() has shown the dialog and entered its loop.
    if (ModalShowHook hook = installedHook())
        QTimer::singleShot(0, &dialog, [&dialog, hook = std::move(hook)] { hook(dialog); });
    dialog.exec();
}

} // namespace kwFieldDeck
