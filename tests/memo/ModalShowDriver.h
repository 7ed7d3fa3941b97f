#pragma once

// Answers the modal windows of a test: while it lives, every window shown modally is handed to
// the given handler inside its modal loop, on the real window, so the handler can work it and
// close it. The previous hook comes back afterwards.

#include "platform/Form.h"

#include <QtTest>

namespace kwFieldDeck::test {

class ModalShowDriver
{
public:
    explicit ModalShowDriver(Form::ModalShowHook handler)
        : m_previous(Form::setModalShowHook([this, handler](Form &form) {
            ++shown;
            if (QTest::qWaitForWindowActive(form.window()))
                handler(form);
            else
                QTest::qFail("the modal window never became active", __FILE__, __LINE__);
            // A window left open would block the test for ever.
            for (int i = 0; i < 200 && form.Visible(); ++i)
                QTest::qWait(10);
            if (form.Visible()) {
                form.Hide();
                QTest::qFail("the modal window was left open", __FILE__, __LINE__);
            }
        }))
    {
    }
    ~ModalShowDriver() { Form::setModalShowHook(std::move(m_previous)); }
    ModalShowDriver(const ModalShowDriver &) = delete;
    ModalShowDriver &operator=(const ModalShowDriver &) = delete;

    int shown = 0;

private:
    Form::ModalShowHook m_previous;
};

} // namespace kwFieldDeck::test
