// Fuzzes the definition reader: ReadDef with the text as it comes, or AddFieldByDefString, which
// tidies it first (the input's first byte chooses). Besides crashes, hangs and sanitizer reports
// it checks that the rows stack without gaps and that a field AddFieldByDefString returns is the
// one that was added last.

#include "FuzzGrid.h"

using namespace kwFieldDeck;
using namespace kwFieldDeck::fuzz;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size == 0)
        return 0;
    const QString definition
        = QString::fromUtf8(reinterpret_cast<const char *>(data) + 1, qsizetype(size - 1));
    FuzzGrid host;
    if (data[0] & 1) {
        Field *last = host.grid->AddFieldByDefString(definition);
        const int count = host.grid->Fields()->Count();
        // A block whose name is already taken leaves no field to return, so an empty result
        // does not mean that nothing was added; a field returned is the last one added.
        if (last)
            expect(count > 0 && host.grid->Fields()->Item(count) == last,
                "the returned field is the last one added", last->Name());
    } else {
        host.grid->ReadDef(definition);
    }
    host.checkRowsStack();
    host.grid->Refresh(true);
    host.checkRowsStack();
    return 0;
}
