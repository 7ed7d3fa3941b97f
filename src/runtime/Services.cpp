#include "runtime/Services.h"

#include "runtime/Error.h"

#include <QApplication>
#include <QFontDatabase>
#include <QKeyEvent>
#include <QWidget>

namespace kwFieldDeck {

namespace {
int qtKeyOf(const QString &name)
{
    static const QHash<QString, int> keys = {
        { QStringLiteral("tab"), Qt::Key_Tab },
        { QStringLiteral("backspace"), Qt::Key_Backspace },
        { QStringLiteral("bs"), Qt::Key_Backspace },
        { QStringLiteral("enter"), Qt::Key_Return },
        { QStringLiteral("esc"), Qt::Key_Escape },
        { QStringLiteral("escape"), Qt::Key_Escape },
        { QStringLiteral("up"), Qt::Key_Up },
        { QStringLiteral("down"), Qt::Key_Down },
        { QStringLiteral("left"), Qt::Key_Left },
        { QStringLiteral("right"), Qt::Key_Right },
        { QStringLiteral("home"), Qt::Key_Home },
        { QStringLiteral("end"), Qt::Key_End },
        { QStringLiteral("delete"), Qt::Key_Delete },
        { QStringLiteral("del"), Qt::Key_Delete },
        { QStringLiteral("f4"), Qt::Key_F4 },
    };
    return keys.value(name.toLower(), 0);
}

QString textOf(int key, Qt::KeyboardModifiers modifiers)
{
    switch (key) {
    case Qt::Key_Tab:
        return modifiers & Qt::ShiftModifier ? QString() : QStringLiteral("\t");
    case Qt::Key_Backspace:
        return QStringLiteral("\b");
    case Qt::Key_Return:
        return QStringLiteral("\r");
    case Qt::Key_Escape:
        return QString(QChar(27));
    default:
        return QString();
    }
}

void postKey(int key, Qt::KeyboardModifiers modifiers, const QString &text)
{
    QWidget *target = QApplication::focusWidget();
    if (!target)
        return;
    if (key == Qt::Key_Tab && modifiers & Qt::ShiftModifier)
        key = Qt::Key_Backtab;
    QCoreApplication::postEvent(target, new QKeyEvent(QEvent::KeyPress, key, modifiers, text));
    QCoreApplication::postEvent(target, new QKeyEvent(QEvent::KeyRelease, key, modifiers, text));
}
} // namespace

void SendKeys(const QString &keys)
{
    Qt::KeyboardModifiers modifiers;
    for (int i = 0; i < keys.size(); ++i) {
        const QChar c = keys[i];
        if (c == QLatin1Char('+')) {
            modifiers |= Qt::ShiftModifier;
        } else if (c == QLatin1Char('^')) {
            modifiers |= Qt::ControlModifier;
        } else if (c == QLatin1Char('%')) {
            modifiers |= Qt::AltModifier;
        } else if (c == QLatin1Char('{')) {
            const int close = keys.indexOf(QLatin1Char('}'), i + 1);
            if (close < 0)
                raise(ErrInvalidCall);
            const QString name = keys.mid(i + 1, close - i - 1);
            const int key = qtKeyOf(name);
            if (key)
                postKey(key, modifiers, textOf(key, modifiers));
            else if (name.size() == 1)
                postKey(0, modifiers, name);
            else
                raise(ErrInvalidCall);
            modifiers = {};
            i = close;
        } else {
            postKey(0, modifiers, QString(c));
            modifiers = {};
        }
    }
}

QStringList screenFontFamilies()
{
    return QFontDatabase::families();
}

} // namespace kwFieldDeck
