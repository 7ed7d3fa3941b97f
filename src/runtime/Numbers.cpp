#include "runtime/Numbers.h"

#include "runtime/Error.h"

namespace kwFieldDeck {

qint32 Increment(qint32 &value, qint32 step)
{
    qint32 result;
    if (qAddOverflow(value, step, &result))
        raise(ErrOverflow);
    value = result;
    return value;
}

} // namespace kwFieldDeck
