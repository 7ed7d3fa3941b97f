#include "runtime/Error.h"

#include <QLoggingCategory>

namespace kwFieldDeck {

Q_LOGGING_CATEGORY(lcErrors, "kwfielddeck.errors")

namespace {
ErrorReportHandler &installedHandler()
{
    static ErrorReportHandler handler;
    return handler;
}
} // namespace

Error::Error(int number, QString description)
    : m_number(number)
    , m_description(description.isEmpty() ? standardDescription(number) : std::move(description))
    , m_what(QStringLiteral("%1: %2").arg(m_number).arg(m_description).toUtf8())
{
}

QString Error::standardDescription(int number)
{
    switch (number) {
    case ErrInvalidCall:
        return QStringLiteral("Invalid procedure call or argument");
    case ErrOverflow:
        return QStringLiteral("Overflow");
    case ErrSubscriptOutOfRange:
        return QStringLiteral("Subscript out of range");
    case ErrDivisionByZero:
        return QStringLiteral("Division by zero");
    case ErrTypeMismatch:
        return QStringLiteral("Type mismatch");
    case ErrFileNotFound:
        return QStringLiteral("File not found");
    case ErrPathNotFound:
        return QStringLiteral("Path not found");
    case ErrObjectRequired:
        return QStringLiteral("Object variable or With block variable not set");
    case ErrCannotCreateObject:
        return QStringLiteral("ActiveX component can't create object");
    case ErrDuplicateKey:
        return QStringLiteral("This key is already associated with an element of this collection");
    default:
        return QStringLiteral("Application-defined or object-defined error");
    }
}

void raise(int number, const QString &description)
{
    throw Error(number, description);
}

ErrorReportHandler setErrorReportHandler(ErrorReportHandler handler)
{
    ErrorReportHandler previous = std::move(installedHandler());
    installedHandler() = std::move(handler);
    return previous;
}

void reportError(int number, const QString &description, const QString &source)
{
    qCWarning(lcErrors).noquote()
        << QStringLiteral("Error %1 (%2) in %3").arg(number).arg(description, source);
    if (const ErrorReportHandler &handler = installedHandler())
        handler(number, description, source);
}

void reportError(const Error &error, const QString &source)
{
    reportError(error.number(), error.description(), source);
}

} // namespace kwFieldDeck
