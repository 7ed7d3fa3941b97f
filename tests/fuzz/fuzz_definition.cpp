// Fuzzes the definition reader by its three ways in, chosen by the first byte: bit 1 LoadDefFile
// (header test, cut after the first line, text decoding), else bit 0 AddFieldByDefString (which
// tidies first), else ReadDef. It checks that rows stack without gaps, that a file without the
// header adds nothing and that a field AddFieldByDefString returns is the last one added.

#include "FuzzGrid.h"

#include "TestSupport.h"

#include <QTemporaryDir>

#include <algorithm>

using namespace kwFieldDeck;
using namespace kwFieldDeck::fuzz;

namespace {
void loadAsFile(FuzzGrid &host, const QByteArray &bytes)
{
    static QTemporaryDir folder;
    const QString path = test::writeFile(folder.filePath(QStringLiteral("fuzz.def")), bytes);
    expect(!path.isEmpty(), "the definition file is written");
    const int reportsBefore = reports;
    host.grid->LoadDefFile(path);
    // Non-ASCII bytes may decode to letters that upper-case into the header; only plain ASCII
    // first lines are judged here.
    const qsizetype lineEnd = bytes.indexOf("\r\n");
    const QByteArray header = lineEnd < 0 ? bytes : bytes.left(lineEnd);
    const bool ascii = std::all_of(header.begin(), header.end(), [](char c) { return c > 0; });
    if (ascii && header.toUpper() != "PROPERTY CONTROL DEFINITION FILE") {
        expect(host.grid->Fields()->Count() == 0, "a file without the header adds no field");
        expect(reports > reportsBefore, "a file without the header is reported");
    }
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size == 0)
        return 0;
    const QByteArray bytes(reinterpret_cast<const char *>(data) + 1, qsizetype(size - 1));
    FuzzGrid host;
    if (data[0] & 2) {
        loadAsFile(host, bytes);
    } else if (data[0] & 1) {
        Field *last = host.grid->AddFieldByDefString(QString::fromUtf8(bytes));
        const int count = host.grid->Fields()->Count();
        // A block whose name is already taken leaves no field to return, so an empty result
        // does not mean that nothing was added; a field returned is the last one added.
        if (last)
            expect(count > 0 && host.grid->Fields()->Item(count) == last,
                "the returned field is the last one added", last->Name());
    } else {
        host.grid->ReadDef(QString::fromUtf8(bytes));
    }
    host.checkRowsStack();
    host.grid->Refresh(true);
    host.checkRowsStack();
    return 0;
}
