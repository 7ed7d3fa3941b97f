#pragma once

#include <kwFieldDeck/HostHooks.h>

#include <QString>

#include <exception>
#include <functional>
#include <type_traits>

namespace kwFieldDeck {

// The error numbers that hosts know, so that reports read as they expect.
enum ErrorNumber : int {
    ErrInvalidCall = 5,
    ErrOverflow = 6,
    ErrSubscriptOutOfRange = 9,
    ErrDivisionByZero = 11,
    ErrTypeMismatch = 13,
    ErrFileNotFound = 53,
    ErrPathNotFound = 76,
    ErrObjectRequired = 91,
    ErrDuplicateKey = 457,
    ErrCannotCreateObject = 429,
    ErrDatabase = 3000,
};

// A failure inside the library: a number and a description, as the error report expects.
class Error : public std::exception
{
public:
    explicit Error(int number, QString description = QString());

    int number() const { return m_number; }
    QString description() const { return m_description; }
    const char *what() const noexcept override { return m_what.constData(); }

    // The runtime's own wording for the numbers above.
    static QString standardDescription(int number);

private:
    int m_number;
    QString m_description;
    QByteArray m_what;
};

[[noreturn]] void raise(int number, const QString &description = QString());

// A null reference is error 91, never a crash.
template <typename T>
T *require(T *object)
{
    if (!object)
        raise(ErrObjectRequired);
    return object;
}

// The error-report operation: one log line, then the installed handler.
void reportError(int number, const QString &description, const QString &source);
void reportError(const Error &error, const QString &source);

// The error trap every procedure wraps its body in: an error is reported with the procedure's
// source text ("Sub 'ReadDef' of User Control 'kwPropertyControl'") and the procedure then ends
// normally, returning an empty result.
template <typename Body>
auto trap(const char *source, Body &&body) -> decltype(body())
{
    using Result = decltype(body());
    try {
        return body();
    } catch (const Error &error) {
        reportError(error, QString::fromUtf8(source));
    } catch (const std::exception &error) {
        reportError(Error(51, QString::fromUtf8(error.what())), QString::fromUtf8(source));
    }
    if constexpr (!std::is_void_v<Result>)
        return Result {};
}

} // namespace kwFieldDeck
