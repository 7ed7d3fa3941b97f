#include "runtime/MessageBox.h"

#include <QApplication>
#include <QMessageBox>

namespace kwFieldDeck {

namespace {
MessageBoxHandler &installedHandler()
{
    static MessageBoxHandler handler;
    return handler;
}

QMessageBox::Icon iconOf(int style)
{
    switch (style & 0x70) {
    case MsgBoxStyle::Critical:
        return QMessageBox::Critical;
    case MsgBoxStyle::Question:
        return QMessageBox::Question;
    case MsgBoxStyle::Exclamation:
        return QMessageBox::Warning;
    case MsgBoxStyle::Information:
        return QMessageBox::Information;
    default:
        return QMessageBox::NoIcon;
    }
}

int showMessageBox(const QString &prompt, int style, const QString &title)
{
    QMessageBox box(
        iconOf(style), title.isEmpty() ? QCoreApplication::applicationName() : title, prompt);
    switch (style & 0x0F) {
    case MsgBoxStyle::OKCancel:
        box.setStandardButtons(QMessageBox::Ok | QMessageBox::Cancel);
        break;
    case MsgBoxStyle::YesNo:
        box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
        break;
    default:
        box.setStandardButtons(QMessageBox::Ok);
        break;
    }
    switch (box.exec()) {
    case QMessageBox::Cancel:
        return MsgBoxResult::Cancel;
    case QMessageBox::Yes:
        return MsgBoxResult::Yes;
    case QMessageBox::No:
        return MsgBoxResult::No;
    default:
        return MsgBoxResult::OK;
    }
}
} // namespace

int MsgBox(const QString &prompt, int style, const QString &title)
{
    if (const MessageBoxHandler &handler = installedHandler())
        return handler(prompt, style, title);
    return showMessageBox(prompt, style, title);
}

MessageBoxHandler setMessageBoxHandler(MessageBoxHandler handler)
{
    MessageBoxHandler previous = std::move(installedHandler());
    installedHandler() = std::move(handler);
    return previous ? previous : MessageBoxHandler(showMessageBox);
}

} // namespace kwFieldDeck
