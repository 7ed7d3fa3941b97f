#pragma once

#include "runtime/Error.h"

#include <functional>

namespace kwFieldDeck::test {

// The number of the error a call raises, 0 when it returns normally.
inline int raisedError(const std::function<void()> &call)
{
    try {
        call();
    } catch (const Error &error) {
        return error.number();
    }
    return 0;
}

} // namespace kwFieldDeck::test
