#include "FormMessages.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QRegularExpression>

#include <cstdio>

namespace kwFieldDeck {

FormMessages::FormMessages(bool headless)
    : m_headless(headless)
{
    m_previous
        = setMessageBoxHandler([this](const QString &prompt, int style, const QString &title) {
              return answer(prompt, style, title);
          });
}

FormMessages::~FormMessages()
{
    setMessageBoxHandler(std::move(m_previous));
}

void FormMessages::setPathAlias(const QString &standIn, const QString &shownAs)
{
    m_standIn = standIn;
    m_shownAs = shownAs;
}

bool FormMessages::noDisplay()
{
    const QString platform = QGuiApplication::platformName();
    if (platform == QLatin1String("offscreen") || platform == QLatin1String("minimal"))
        return true;
    if (!platform.isEmpty())
        return false;
    return qEnvironmentVariableIsEmpty("DISPLAY") && qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
}

QString FormMessages::asOneLine(const QString &text)
{
    // Every character that a terminal or an editor takes for a line break.
    static const QRegularExpression lineBreaks(
        QStringLiteral("[\\r\\n\\v\\f\\x{85}\\x{2028}\\x{2029}]+"));
    return text.split(lineBreaks, Qt::SkipEmptyParts).join(QLatin1Char(' '));
}

int FormMessages::answer(const QString &prompt, int style, const QString &title)
{
    QString text = prompt;
    if (!m_standIn.isEmpty())
        text.replace(m_standIn, m_shownAs);
    m_messages.append(text);

    if (!m_headless)
        return m_previous(text, style, title);

    const QString shownTitle = title.isEmpty() ? QCoreApplication::applicationName() : title;
    const QByteArray line = (shownTitle + QLatin1String(": ") + asOneLine(text)).toUtf8();
    std::fprintf(stderr, "%s\n", line.constData());
    std::fflush(stderr);
    // Nobody can click: the default button answers.
    return (style & 0x0F) == MsgBoxStyle::YesNo ? MsgBoxResult::Yes : MsgBoxResult::OK;
}

} // namespace kwFieldDeck
