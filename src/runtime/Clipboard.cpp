#include "runtime/Clipboard.h"

#include "runtime/Error.h"
#include "runtime/LineBreaks.h"

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
