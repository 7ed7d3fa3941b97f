#pragma once

// What every fuzz target shares: a failed expectation stops the run with a message (libFuzzer
// then keeps the input as a crash), and the library's errors are told apart from faults.

#include "runtime/Error.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace kwFieldDeck::fuzz {

inline void expect(bool holds, const char *what, const QString &detail = QString())
{
    if (holds)
        return;
    std::fprintf(stderr, "expectation failed: %s %s\n", what, qPrintable(detail));
    std::abort();
}

// Runs a conversion that may refuse its input with one of the given error numbers; any other
// error is a fault. Returns whether the body completed.
template <typename Body>
bool refusesOnlyWith(std::initializer_list<int> numbers, Body &&body)
{
    try {
        body();
        return true;
    } catch (const Error &error) {
        expect(std::count(numbers.begin(), numbers.end(), error.number()) > 0,
            "unexpected error number", QString::number(error.number()) + ' ' + error.description());
        return false;
    }
}

} // namespace kwFieldDeck::fuzz
