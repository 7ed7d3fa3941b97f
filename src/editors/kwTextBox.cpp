#include "editors/kwTextBox.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QPainter>

#include <limits>

namespace kwFieldDeck {

kwTextBox::kwTextBox(QWidget *parent)
    : QLineEdit(parent)
{
    // The limit is applied to the user's input alone; QLineEdit's own would cut the program's text.
    setMaxLength(std::numeric_limits<int>::max());
    connect(this, &QLineEdit::textChanged, this, [this] {
        if (!m_showing)
            emit Change();
    });
}

void kwTextBox::setFlat(bool flat)
{
    m_flat = flat;
    setFrame(!flat);
    setTextMargins(flat ? 3 : 0, 0, flat ? 2 : 0, 0);
    update();
}

void kwTextBox::showText(const QString &text)
{
    m_showing = true;
    setText(text);
    setCursorPosition(0);
    m_showing = false;
}

// The start of an insertion that fits in the room the limit leaves beside the text that stays
// (all but the selection, which the insertion replaces).
QString kwTextBox::fitting(const QString &insertion) const
{
    if (m_userMaxLength <= 0)
        return insertion;
    const qsizetype kept = text().size() - selectedText().size();
    return insertion.left(std::max<qsizetype>(0, m_userMaxLength - kept));
}

void kwTextBox::pasteFitting(int mode)
{
    const QString fits = fitting(QGuiApplication::clipboard()->text(QClipboard::Mode(mode)));
    if (!isReadOnly() && !fits.isEmpty())
        insert(fits);
}

void kwTextBox::paintEvent(QPaintEvent *event)
{
    QLineEdit::paintEvent(event);
    if (!m_flat)
        return;
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

// A number box takes digits, a point when there is none yet and a sign at the very start;
// editing keys pass, and so does Tab. Pasting, copying and cutting are refused.
bool kwTextBox::refusedByNumberFilter(const QKeyEvent *event) const
{
    if (event->matches(QKeySequence::Paste) || event->matches(QKeySequence::Copy)
        || event->matches(QKeySequence::Cut))
        return true;
    const QString typed = event->text();
    if (typed.isEmpty() || !typed.at(0).isPrint()
        || (event->modifiers() & (Qt::ControlModifier | Qt::MetaModifier))) {
        return false;
    }
    const QChar c = typed.at(0);
    if (c == u'+' || c == u'-')
        return selectionStart() > 0 || (!hasSelectedText() && cursorPosition() != 0);
    if (c == u'.')
        return text().contains(u'.');
    return !(c >= u'0' && c <= u'9');
}

void kwTextBox::keyPressEvent(QKeyEvent *event)
{
    if (m_numeric && refusedByNumberFilter(event)) {
        event->accept();
        return;
    }
    if (m_userMaxLength > 0 && event->matches(QKeySequence::Paste)) {
        pasteFitting(QClipboard::Clipboard);
        event->accept();
        return;
    }
    const QString typed = event->text();
    const bool typing = !typed.isEmpty() && typed.at(0).isPrint()
        && !(event->modifiers() & (Qt::ControlModifier | Qt::MetaModifier));
    if (typing && !isReadOnly() && fitting(typed) != typed) {
        // A full box refuses the key; of several characters only those that fit go in.
        if (!fitting(typed).isEmpty())
            insert(fitting(typed));
        event->accept();
        return;
    }
    QLineEdit::keyPressEvent(event);
}

void kwTextBox::inputMethodEvent(QInputMethodEvent *event)
{
    const QString fits = fitting(event->commitString());
    if (fits == event->commitString()) {
        QLineEdit::inputMethodEvent(event);
        return;
    }
    QInputMethodEvent cut(event->preeditString(), event->attributes());
    cut.setCommitString(fits, event->replacementStart(), event->replacementLength());
    QLineEdit::inputMethodEvent(&cut);
}

void kwTextBox::mouseReleaseEvent(QMouseEvent *event)
{
    if (m_userMaxLength > 0 && event->button() == Qt::MiddleButton && !isReadOnly()
        && QGuiApplication::clipboard()->supportsSelection()) {
        deselect();
        pasteFitting(QClipboard::Selection);
        return;
    }
    QLineEdit::mouseReleaseEvent(event);
}

void kwTextBox::contextMenuEvent(QContextMenuEvent *event)
{
    if (m_userMaxLength <= 0) {
        QLineEdit::contextMenuEvent(event);
        return;
    }
    QMenu *menu = createStandardContextMenu();
    // The menu's Paste is found by the caption QLineEdit gives it, in any language.
    for (QAction *paste : menu->actions()) {
        if (paste->text().section(u'\t', 0, 0) != QLineEdit::tr("&Paste"))
            continue;
        disconnect(paste, &QAction::triggered, nullptr, nullptr);
        connect(paste, &QAction::triggered, this, [this] { pasteFitting(QClipboard::Clipboard); });
    }
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(event->globalPos());
}

void kwTextBox::dropEvent(QDropEvent *event)
{
    const QString dropped = event->mimeData()->text();
    if (fitting(dropped) == dropped) {
        QLineEdit::dropEvent(event);
        return;
    }
    QMimeData fits;
    fits.setText(fitting(dropped));
    QDropEvent cut(
        event->position(), event->possibleActions(), &fits, event->buttons(), event->modifiers());
    cut.setDropAction(event->proposedAction());
    QLineEdit::dropEvent(&cut);
    event->setDropAction(cut.dropAction());
    event->setAccepted(cut.isAccepted());
}

void kwTextBox::focusInEvent(QFocusEvent *event)
{
    QLineEdit::focusInEvent(event);
    emit HasFocus();
}

} // namespace kwFieldDeck
