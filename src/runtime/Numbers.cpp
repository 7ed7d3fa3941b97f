#include "runtime/Numbers.h"

#include "runtime/Error.h"

namespace kwFieldDeck {

namespace {
// Applies a checked 32-bit operation to the counter; on overflow the counter keeps its value.
template <typename Operation>
qint32 applyStep(qint32 &value, qint32 by, Operation overflows)
{
    qint32 result;
    if (overflows(value, by, &result))
        raise(ErrOverflow);
    value = result;
    return value;
}
} // namespace

qint32 Increment(qint32 &value, qint32 step)
{
    return applyStep(
        value, step, [](qint32 a, qint32 b, qint32 *r) { return qAddOverflow(a, b, r); });
}

qint32 Decrement(qint32 &value, qint32 step)
{
    return applyStep(
        value, step, [](qint32 a, qint32 b, qint32 *r) { return qSubOverflow(a, b, r); });
}

} // namespace kwFieldDeck
