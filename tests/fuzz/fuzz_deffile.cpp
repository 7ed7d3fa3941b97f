// Fuzzes definition files: the input is written to a file and LoadDefFile reads it, so the
// header test, the cut after the first line and the file's text decoding all see it.

#include "FuzzGrid.h"

#include "TestSupport.h"

#include <QTemporaryDir>

#include <algorithm>

using namespace kwFieldDeck;
using namespace kwFieldDeck::fuzz;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static QTemporaryDir folder;
    const QByteArray bytes(reinterpret_cast<const char *>(data), qsizetype(size));
    const QString path = test::writeFile(folder.filePath(QStringLiteral("fuzz.def")), bytes);
    expect(!path.isEmpty(), "the definition file is written");
    FuzzGrid host;
    const int reportsBefore = reports;
    host.grid->LoadDefFile(path);
    // A file whose first line is not the header adds nothing. Non-ASCII bytes may decode to
    // letters that upper-case into the header; only plain ASCII first lines are judged here.
    const qsizetype lineEnd = bytes.indexOf("\r\n");
    const QByteArray header = lineEnd < 0 ? bytes : bytes.left(lineEnd);
    const bool ascii = std::all_of(header.begin(), header.end(), [](char c) { return c > 0; });
    if (ascii && header.toUpper() != "PROPERTY CONTROL DEFINITION FILE") {
        expect(host.grid->Fields()->Count() == 0, "a file without the header adds no field");
        expect(reports > reportsBefore, "a file without the header is reported");
    }
    host.checkRowsStack();
    return 0;
}
