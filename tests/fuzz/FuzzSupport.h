#pragma once

// What every fuzz target shares: a failed expectation stops the run with a message (libFuzzer
// then keeps the input as a crash), and the library's errors are told apart from faults.

#include "runtime/Error.h"

#include <QString>

#include <cstdio>
#include <cstdlib>
#include <initializer_list>

namespace kwFieldDeck::fuzz {

[[noreturn]] inline void fail(const char *what, const QString &detail = QString())
{
    std::fprintf(stderr, "expectation failed: %s %s\n", what, qPrintable(detail));
    std::abort();
}

inline void expect(bool holds, const char *what, const QString &detail = QString())
{
    if (!holds)
        fail(what, detail);
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
        for (int n : numbers)
            if (error.number() == n)
                return false;
        fail(
            "unexpected error number", QString::number(error.number()) + ' ' + error.description());
    }
}

} // namespace kwFieldDeck::fuzz
