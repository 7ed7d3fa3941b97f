#include "runtime/Files.h"

#include "runtime/FileSystem.h"

#include <QFile>
#include <QStringDecoder>

#include <sys/stat.h>

namespace kwFieldDeck {

namespace {
// Windows-1252 differs from Latin-1 only in 0x80..0x9F; the five unassigned codes map to the
// control characters of the same value, as Windows itself decodes them.
constexpr char16_t windows1252High[32] = {
    0x20AC,
    0x0081,
    0x201A,
    0x0192,
    0x201E,
    0x2026,
    0x2020,
    0x2021,
    0x02C6,
    0x2030,
    0x0160,
    0x2039,
    0x0152,
    0x008D,
    0x017D,
    0x008F,
    0x0090,
    0x2018,
    0x2019,
    0x201C,
    0x201D,
    0x2022,
    0x2013,
    0x2014,
    0x02DC,
    0x2122,
    0x0161,
    0x203A,
    0x0153,
    0x009D,
    0x017E,
    0x0178,
};

// Only a regular file is read: opening a named pipe waits for a writer that may never come, and
// a device or socket holds no file text.
bool isRegularFile(const QString &resolvedPath)
{
    struct stat status;
    return ::stat(QFile::encodeName(resolvedPath).constData(), &status) == 0
        && S_ISREG(status.st_mode);
}

QString fromWindows1252(const QByteArray &bytes)
{
    QString text(bytes.size(), Qt::Uninitialized);
    QChar *out = text.data();
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        *out++ = byte >= 0x80 && byte < 0xA0 ? QChar(windows1252High[byte - 0x80]) : QChar(byte);
    }
    return text;
}
} // namespace

QString decodeFileText(const QByteArray &bytes)
{
    // Without ConvertInitialBom the decoder drops a leading BOM.
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = utf8.decode(bytes);
    if (!utf8.hasError())
        return text;
    return fromWindows1252(bytes);
}

bool FileExists(const QString &path)
{
    return FileSystem::FileExists(path) && isRegularFile(FileSystem::resolvePath(path));
}

QString ReadWholeFile(const QString &path)
{
    if (path.isEmpty())
        return QString();
    const QString resolved = FileSystem::resolvePath(path);
    if (!isRegularFile(resolved))
        return QString();
    QFile file(resolved);
    if (!file.open(QIODevice::ReadOnly))
        return QString();
    return decodeFileText(file.readAll());
}

} // namespace kwFieldDeck
