#pragma once

// Whole files read and written; recorders of message boxes and error reports, each answering its
// seam for its lifetime and restoring the previous handler afterwards.

#include <kwFieldDeck/HostHooks.h>

#include <QFile>
#include <QString>
#include <QVector>

namespace kwFieldDeck::test {

// The whole content of a file, empty when it cannot be read.
inline QByteArray readFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Writes the bytes over the file: its path, or empty when it cannot be written.
inline QString writeFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() ? path : QString();
}

// One text of each recorded item, in order.
template <typename T>
QStringList eachOf(const QVector<T> &items, QString T::*text)
{
    QStringList all;
    for (const T &item : items)
        all << item.*text;
    return all;
}

struct ShownMessage
{
    QString prompt;
    int style = 0;
    QString title;
};

class MessageRecorder
{
public:
    explicit MessageRecorder(int answer = MsgBoxResult::OK)
        : m_previous(setMessageBoxHandler(
            [this, answer](const QString &prompt, int style, const QString &title) {
                messages.append({ prompt, style, title });
                return answer;
            }))
    {
    }
    ~MessageRecorder() { setMessageBoxHandler(std::move(m_previous)); }
    Q_DISABLE_COPY(MessageRecorder)

    QStringList prompts() const { return eachOf(messages, &ShownMessage::prompt); }

    QVector<ShownMessage> messages;

private:
    MessageBoxHandler m_previous;
};

struct ReportedError
{
    int number = 0;
    QString description;
    QString source;
};

class ErrorRecorder
{
public:
    ErrorRecorder()
        : m_previous(setErrorReportHandler(
            [this](int number, const QString &description, const QString &source) {
                errors.append({ number, description, source });
            }))
    {
    }
    ~ErrorRecorder() { setErrorReportHandler(std::move(m_previous)); }
    Q_DISABLE_COPY(ErrorRecorder)

    QStringList sources() const { return eachOf(errors, &ReportedError::source); }

    QVector<ReportedError> errors;

private:
    ErrorReportHandler m_previous;
};

} // namespace kwFieldDeck::test
