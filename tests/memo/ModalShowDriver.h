#pragma once

// While it lives, every memo window shown modally is handed to the handler inside its modal
// loop, so that the handler can work the real window and close it.

#include "editors/memo/ModalShow.h"

#include <QDialog>
#include <QtTest>

namespace kwFieldDeck::test {

struct ModalShowDriver
{
    explicit ModalShowDriver(ModalShowHook handler)
        : previous(setModalShowHook([this, handler](QDialog &dialog) {
            ++shown;
            if (QTest::qWaitForWindowActive(&dialog))
                handler(dialog);
            if (dialog.isVisible()) { // left open, it would block the test for ever
                dialog.hide();
                QTest::qFail("the modal window was left open", __FILE__, __LINE__);
            }
        }))
    {
    }
    ~ModalShowDriver() { setModalShowHook(std::move(previous)); }
    Q_DISABLE_COPY(ModalShowDriver)

    int shown = 0;
    ModalShowHook previous;
};

} // namespace kwFieldDeck::test
