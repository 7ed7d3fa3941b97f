#include "platform/Clipboard.h"

#include "platform/Error.h"
#include "platform/LineBreaks.h"

#include <QClipboard>
#include <QGuiApplication>

namespace kwFieldDeck::Clipboard {

namespace {
QClipboard *clipboard()
{
    return require(QGuiApplication::clipboard());
}
} // namespace

void Clear()
{
    clipboard()->clear();
}

void SetText(const QString &text)
{
    clipboard()->setText(toLf(text));
}

QString GetText()
{
    return toCrLf(clipboard()->text());
}

} // namespace kwFieldDeck::Clipboard
