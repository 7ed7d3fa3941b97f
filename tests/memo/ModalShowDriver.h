#pragma once

// While it lives, every window shown modally is handed to the handler inside its modal loop, so
// that the handler can work the real window and close it.

#include "platform/Form.h"

#include <QtTest>

namespace kwFieldDeck::test {

struct ModalShowDriver
{
    explicit ModalShowDriver(Form::ModalShowHook handler)
        : previous(Form::setModalShowHook([this, handler](Form &form) {
            ++shown;
            if (QTest::qWaitForWindowActive(form.window()))
                handler(form);
            if (form.Visible()) { // left open, it would block the test for ever
                form.Hide();
                QTest::qFail("the modal window was left open", __FILE__, __LINE__);
            }
        }))
    {
    }
    ~ModalShowDriver() { Form::setModalShowHook(std::move(previous)); }
    Q_DISABLE_COPY(ModalShowDriver)

    int shown = 0;
    Form::ModalShowHook previous;
};

} // namespace kwFieldDeck::test
