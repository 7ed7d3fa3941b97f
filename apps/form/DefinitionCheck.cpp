#include "DefinitionCheck.h"

#include "DefinitionFile.h"
#include "FormMessages.h"

#include <kwFieldDeck/Field>
#include <kwFieldDeck/Fields>
#include <kwFieldDeck/HostHooks>
#include <kwFieldDeck/kwPropertyControl>

#include <QFileInfo>
#include <QHash>
#include <QStringDecoder>
#include <QTemporaryDir>

#include <optional>

namespace kwFieldDeck {

namespace {
const QByteArray CrLf = "\r\n";

// What one load left behind.
struct Load
{
    QStringList notices;
    // Fields made, kept or refused: a block whose field was refused as a duplicate was completed
    // all the same.
    int fieldsMade = 0;
    int fieldCount = 0;
};

// Takes the message boxes and error reports for its lifetime, each as one text, with the path of
// a stand-in shown as the user's file.
class NoticeRecorder
{
public:
    NoticeRecorder(const QString &standIn, const QString &shownAs)
        : m_standIn(standIn)
        , m_shownAs(shownAs)
    {
        m_previousBox = setMessageBoxHandler([this](const QString &prompt, int, const QString &) {
            record(prompt);
            // A load asks nothing; its boxes have OK alone.
            return MsgBoxResult::OK;
        });
        m_previousReport = setErrorReportHandler(
            [this](int number, const QString &description, const QString &source) {
                // Worded as the library's own log line.
                record(QStringLiteral("Error %1 (%2) in %3").arg(number).arg(description, source));
            });
    }
    ~NoticeRecorder()
    {
        setMessageBoxHandler(std::move(m_previousBox));
        setErrorReportHandler(std::move(m_previousReport));
    }
    NoticeRecorder(const NoticeRecorder &) = delete;
    NoticeRecorder &operator=(const NoticeRecorder &) = delete;

    QStringList notices() const { return m_notices; }

private:
    void record(const QString &text)
    {
        m_notices.append(
            m_standIn == m_shownAs ? text : QString(text).replace(m_standIn, m_shownAs));
    }

    QString m_standIn, m_shownAs;
    QStringList m_notices;
    MessageBoxHandler m_previousBox;
    ErrorReportHandler m_previousReport;
};

// Keeps Qt's log quiet for its lifetime: what a load logs again, the first load logged already.
class QuietLog
{
public:
    QuietLog()
        : m_previous(
            qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {}))
    {
    }
    ~QuietLog() { qInstallMessageHandler(m_previous); }
    QuietLog(const QuietLog &) = delete;
    QuietLog &operator=(const QuietLog &) = delete;

private:
    QtMessageHandler m_previous;
};

Load loadInNewGrid(const QString &path, const QString &definitionFolder, const QString &shownAs)
{
    const NoticeRecorder recorder(path, shownAs);
    kwPropertyControl grid;
    {
        const CurrentFolder folder(definitionFolder);
        grid.LoadDefFile(path);
    }
    return { recorder.notices(), int(grid.findChildren<Field *>().size()), grid.Fields()->Count() };
}

// The text as the grid reads the file: UTF-8 when the bytes are valid UTF-8, else Windows-1252.
QString definitionText(const QByteArray &bytes, bool &utf8)
{
    QStringDecoder fromUtf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = fromUtf8(bytes);
    utf8 = !fromUtf8.hasError();
    if (utf8)
        return text;
    QStringDecoder from1252("windows-1252");
    // Latin-1 differs from Windows-1252 in 0x80..0x9F alone, so without that codec only a name
    // holding one of those characters is printed otherwise.
    return from1252.isValid() ? QString(from1252(bytes)) : QString::fromLatin1(bytes);
}

QString trimBlanks(const QString &text)
{
    qsizetype start = 0, end = text.size();
    while (start < end && text.at(start) == QLatin1Char(' '))
        ++start;
    while (end > start && text.at(end - 1) == QLatin1Char(' '))
        --end;
    return text.mid(start, end - start);
}

// The name a line opens a field block with, read as the grid reads a line between blocks:
// "ADDFIELD name" or "ADD FIELD name", "" for a bare "ADDFIELD"; nothing for any other line.
std::optional<QString> blockOpenedBy(const QString &text)
{
    const QString line = trimBlanks(text).remove(QLatin1Char('\t'));
    if (line.section(QLatin1Char(' '), 0, 0).toUpper() == QLatin1String("ADDFIELD")) {
        const qsizetype blank = line.indexOf(QLatin1Char(' '));
        return blank < 0 ? QString() : trimBlanks(line.mid(blank));
    }
    if (line.left(9).toUpper() == QLatin1String("ADD FIELD"))
        return trimBlanks(line.mid(9));
    return std::nullopt;
}

// Loads the whole definition once, and parts of it (the header and its first lines) as often as
// it takes to place each notice.
class DefinitionChecker
{
public:
    DefinitionChecker(const QFileInfo &file, QByteArray bytes, bool converted)
        : m_file(file)
        , m_bytes(std::move(bytes))
        , m_converted(converted)
    {
        m_lines = definitionText(m_bytes, m_utf8).split(QString::fromLatin1(CrLf));
        for (qsizetype at = m_bytes.indexOf(CrLf); at >= 0; at = m_bytes.indexOf(CrLf, at + 2))
            m_partEnds.append(at + 2);
    }

    DefinitionCheck run();

private:
    int bodyLines() const { return int(m_partEnds.size()); }
    QString writePart(int lines);
    Load loadThrough(int lines);
    int lineOfNotice(int notice, int from);
    int lastCompletionBefore(int line);
    QString fieldAtLine(int line);

    QFileInfo m_file;
    QByteArray m_bytes;
    bool m_converted;
    bool m_utf8 = true;
    // The header is line 0, the body's lines follow.
    QStringList m_lines;
    // Where the header and its first n lines end, n = 0, 1, ... up to the last line break.
    QVector<qsizetype> m_partEnds;
    QTemporaryDir m_standIns;
    QHash<int, Load> m_loads;
};

DefinitionCheck DefinitionChecker::run()
{
    if (!m_standIns.isValid())
        return { QStringLiteral("no temporary folder to load it from"), {}, 0 };
    const QString stated = m_file.absoluteFilePath();
    QString loadPath = stated;
    if (m_converted) {
        loadPath = m_standIns.filePath(m_file.fileName());
        const QString unwritten = writeStandIn(loadPath, m_bytes);
        if (!unwritten.isEmpty())
            return { QStringLiteral("its CR LF copy cannot be written (%1)").arg(unwritten), {},
                0 };
    }
    const Load whole = loadInNewGrid(loadPath, m_file.absolutePath(), stated);
    m_loads.insert(bodyLines(), whole);

    DefinitionCheck check;
    check.fieldCount = whole.fieldCount;
    const QuietLog quiet;
    int line = 0;
    for (int notice = 0; notice < whole.notices.size(); ++notice) {
        line = lineOfNotice(notice, line);
        check.notices.append({ fieldAtLine(line), whole.notices.at(notice) });
    }
    return check;
}

// The header and the first lines of the body, as a file the grid loads in place of the user's.
QString DefinitionChecker::writePart(int lines)
{
    QByteArray part = lines < bodyLines() ? m_bytes.left(m_partEnds.at(lines)) : m_bytes;
    // A part of a Windows-1252 file may happen to be valid UTF-8 and read otherwise; one more
    // line with a byte that UTF-8 never has keeps it Windows-1252. Such a line raises nothing,
    // between blocks, in a block or among its items.
    if (!m_utf8 && lines < bodyLines())
        part.append('\xFF');
    const QString path = m_standIns.filePath(m_file.fileName());
    const QString unwritten = writeStandIn(path, part);
    return unwritten.isEmpty() ? path : QString();
}

// Each load is a fresh grid reading from the start, so what it raises is what the whole load
// raised up to that line.
Load DefinitionChecker::loadThrough(int lines)
{
    lines = std::min(lines, bodyLines());
    if (!m_loads.contains(lines)) {
        // A part that cannot be written counts as raising nothing: its notices are then placed
        // on a later line, never lost.
        const QString path = writePart(lines);
        m_loads.insert(
            lines, path.isEmpty() ? Load() : loadInNewGrid(path, m_file.absolutePath(), path));
    }
    return m_loads.value(lines);
}

// The line whose reading raised the notice (0: the header), found by halving: the notices of
// a part only grow as the part grows.
int DefinitionChecker::lineOfNotice(int notice, int from)
{
    int low = from, high = bodyLines();
    while (low < high) {
        const int middle = low + (high - low) / 2;
        if (loadThrough(middle).notices.size() > notice)
            high = middle;
        else
            low = middle + 1;
    }
    return low;
}

// The last line before this one that completed a block, 0 when none did. Completing a block
// always makes a field, and a block stays open until one is made.
int DefinitionChecker::lastCompletionBefore(int line)
{
    const int made = loadThrough(line - 1).fieldsMade;
    int low = 0, high = line - 1;
    while (low < high) {
        const int middle = low + (high - low) / 2;
        if (loadThrough(middle).fieldsMade >= made)
            high = middle;
        else
            low = middle + 1;
    }
    return low;
}

// The block open while the line was read: the first one opened after the last completion
// before it, none when no line up to this one opens a block.
QString DefinitionChecker::fieldAtLine(int line)
{
    if (line == 0)
        return QString();
    for (int at = lastCompletionBefore(line) + 1; at <= line; ++at) {
        if (const std::optional<QString> name = blockOpenedBy(m_lines.value(at)))
            return *name;
    }
    return QString();
}
} // namespace

DefinitionCheck checkDefinitionFile(const QString &fileName)
{
    const QFileInfo file(fileName);
    QByteArray bytes;
    bool converted = false;
    const QString unreadable = readDefinitionBytes(file, bytes, converted);
    if (!unreadable.isEmpty())
        return { unreadable, {}, 0 };
    return DefinitionChecker(file, std::move(bytes), converted).run();
}

QString noticeLine(const LoadNotice &notice)
{
    return FormMessages::asOneLine(notice.field) + QLatin1String(": ")
        + FormMessages::asOneLine(notice.text);
}

} // namespace kwFieldDeck
