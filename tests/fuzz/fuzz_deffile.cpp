// Fuzzes definition files: the input is written to a file and LoadDefFile reads it, so the
// header test, the cut after the first line and the file's text decoding all see it.

#include "FuzzGrid.h"

#include <QFile>
#include <QTemporaryDir>

#include <algorithm>

using namespace kwFieldDeck;
using namespace kwFieldDeck::fuzz;

namespace {
QString definitionFile()
{
    static QTemporaryDir folder;
    return folder.filePath(QStringLiteral("fuzz.def"));
}
} // namespace

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    startApplication(argc, argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    QFile file(definitionFile());
    expect(file.open(QIODevice::WriteOnly | QIODevice::Truncate), "the definition file is written");
    file.write(reinterpret_cast<const char *>(data), qint64(size));
    file.close();

    FuzzGrid host;
    const int reportsBefore = seams().messages + seams().errors;
    host.grid->LoadDefFile(definitionFile());
    // A file whose first line is not the header adds nothing.
    const QByteArray bytes(reinterpret_cast<const char *>(data), qsizetype(size));
    const qsizetype lineEnd = bytes.indexOf("\r\n");
    const QByteArray header = lineEnd < 0 ? bytes : bytes.left(lineEnd);
    // Non-ASCII bytes may decode to letters that upper-case into the header; only plain ASCII
    // first lines are judged here.
    const bool ascii = std::all_of(header.begin(), header.end(), [](char c) { return c > 0; });
    if (ascii && header.toUpper() != "PROPERTY CONTROL DEFINITION FILE") {
        expect(host.grid->Fields()->Count() == 0, "a file without the header adds no field");
        expect(seams().messages + seams().errors > reportsBefore,
            "a file without the header is reported");
    }
    host.checkRowsStack();
    return 0;
}
