#include "platform/TextBox.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHash>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QPainter>

#include <limits>

namespace kwFieldDeck {

namespace {
// QLineEdit that can draw itself flat (no frame of the style, a single line in the mid colour)
// and that applies the text box's maximum length only to what the user types, pastes or drops.
// Text set by the program is kept whole, as on the original platform; QLineEdit's own maxLength
// would cut it, so the widget's limit stays out of reach.
class TextBoxEdit : public QLineEdit
{
public:
    bool flat = false;
    int userMaxLength = 0; // 0: no limit

    TextBoxEdit() { setMaxLength(std::numeric_limits<int>::max()); }

    // The start of an insertion that fits in the room the limit leaves beside the text that
    // stays (all but the selection, which the insertion replaces).
    QString fitting(const QString &insertion) const
    {
        if (userMaxLength <= 0)
            return insertion;
        const qsizetype kept = text().size() - selectedText().size();
        return insertion.left(std::max<qsizetype>(0, userMaxLength - kept));
    }

    void pasteFitting(QClipboard::Mode mode)
    {
        const QString fits = fitting(QGuiApplication::clipboard()->text(mode));
        if (!isReadOnly() && !fits.isEmpty())
            insert(fits);
    }

protected:
    void paintEvent(QPaintEvent *event) override
    {
        QLineEdit::paintEvent(event);
        if (!flat)
            return;
        QPainter painter(this);
        painter.setPen(palette().color(QPalette::Mid));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }

    void keyPressEvent(QKeyEvent *event) override
    {
        if (userMaxLength > 0 && event->matches(QKeySequence::Paste)) {
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

    void inputMethodEvent(QInputMethodEvent *event) override
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

    void mouseReleaseEvent(QMouseEvent *event) override
    {
        if (userMaxLength > 0 && event->button() == Qt::MiddleButton && !isReadOnly()
            && QGuiApplication::clipboard()->supportsSelection()) {
            deselect();
            pasteFitting(QClipboard::Selection);
            return;
        }
        QLineEdit::mouseReleaseEvent(event);
    }

    void contextMenuEvent(QContextMenuEvent *event) override
    {
        if (userMaxLength <= 0) {
            QLineEdit::contextMenuEvent(event);
            return;
        }
        QMenu *menu = createStandardContextMenu();
        // The menu's Paste is found by the caption QLineEdit gives it, in any language.
        for (QAction *paste : menu->actions()) {
            if (paste->text().section(u'\t', 0, 0) != QLineEdit::tr("&Paste"))
                continue;
            disconnect(paste, &QAction::triggered, nullptr, nullptr);
            connect(
                paste, &QAction::triggered, this, [this] { pasteFitting(QClipboard::Clipboard); });
        }
        menu->setAttribute(Qt::WA_DeleteOnClose);
        menu->popup(event->globalPos());
    }

    void dropEvent(QDropEvent *event) override
    {
        const QString dropped = event->mimeData()->text();
        if (fitting(dropped) == dropped) {
            QLineEdit::dropEvent(event);
            return;
        }
        QMimeData fits;
        fits.setText(fitting(dropped));
        QDropEvent cut(event->position(), event->possibleActions(), &fits, event->buttons(),
            event->modifiers());
        cut.setDropAction(event->proposedAction());
        QLineEdit::dropEvent(&cut);
        event->setDropAction(cut.dropAction());
        event->setAccepted(cut.isAccepted());
    }
};
} // namespace

TextBox::TextBox(const QString &name, QObject *owner)
    : Control(name, owner)
{
}

QWidget *TextBox::createWidget()
{
    return new TextBoxEdit;
}

void TextBox::attach(QWidget *widget)
{
    auto *edit = static_cast<TextBoxEdit *>(widget);
    edit->setText(m_text);
    edit->setReadOnly(m_locked);
    edit->userMaxLength = m_maxLength;
    applyLook();
    if (m_selLength)
        edit->setSelection(m_selStart, m_selLength);
    else
        edit->setCursorPosition(m_selStart);
    connect(edit, &QLineEdit::textChanged, this, &TextBox::changeText);
}

void TextBox::detach(QWidget *)
{
    m_selStart = SelStart();
    m_selLength = SelLength();
}

QLineEdit *TextBox::lineEdit() const
{
    return static_cast<QLineEdit *>(widget());
}

void TextBox::changeText(const QString &text)
{
    m_text = text;
    emit Change();
}

QString TextBox::Text() const
{
    return m_text;
}

void TextBox::setText(const QString &text)
{
    m_selStart = m_selLength = 0;
    if (QWidget *widget = realizedWidget()) {
        auto *edit = static_cast<QLineEdit *>(widget);
        edit->setText(text);
        edit->setCursorPosition(0);
    } else if (text != m_text) {
        changeText(text);
    }
}

bool TextBox::Locked() const
{
    return m_locked;
}

void TextBox::setLocked(bool locked)
{
    m_locked = locked;
    if (QWidget *widget = realizedWidget())
        static_cast<QLineEdit *>(widget)->setReadOnly(locked);
}

int TextBox::MaxLength() const
{
    return m_maxLength;
}

void TextBox::setMaxLength(int length)
{
    m_maxLength = std::max(0, length);
    if (QWidget *widget = realizedWidget())
        static_cast<TextBoxEdit *>(widget)->userMaxLength = m_maxLength;
}

void TextBox::setAppearance(int appearance)
{
    m_appearance = appearance;
    applyLook();
}

void TextBox::setBorderStyle(int style)
{
    m_borderStyle = style;
    applyLook();
}

void TextBox::applyLook()
{
    auto *edit = static_cast<TextBoxEdit *>(realizedWidget());
    if (!edit)
        return;
    const bool flat = m_appearance == 0;
    edit->flat = flat;
    edit->setFrame(!flat && m_borderStyle != 0);
    edit->setTextMargins(flat ? 3 : 0, 0, flat ? 2 : 0, 0);
    edit->update();
}

float TextBox::framedHeight(const QFont &font)
{
    static QHash<QString, float> heights;
    const QString key = font.key();
    auto found = heights.constFind(key);
    if (found != heights.constEnd())
        return *found;
    // Measured once per font on a box that is never shown.
    static TextBoxEdit *measure = new TextBoxEdit;
    measure->setFont(font);
    const float height = float(measure->minimumSizeHint().height() * twipsPerPixelY());
    heights.insert(key, height);
    return height;
}

int TextBox::SelStart() const
{
    const auto *edit = static_cast<const QLineEdit *>(realizedWidget());
    if (!edit)
        return m_selStart;
    return edit->hasSelectedText() ? edit->selectionStart() : edit->cursorPosition();
}

void TextBox::setSelStart(int start)
{
    m_selStart = std::clamp(start, 0, int(m_text.size()));
    m_selLength = 0;
    if (QWidget *widget = realizedWidget())
        static_cast<QLineEdit *>(widget)->setCursorPosition(start);
}

int TextBox::SelLength() const
{
    const auto *edit = static_cast<const QLineEdit *>(realizedWidget());
    return edit ? int(edit->selectedText().size()) : m_selLength;
}

void TextBox::setSelLength(int length)
{
    const int start = SelStart();
    m_selLength = std::clamp(length, 0, int(m_text.size()) - start);
    if (QWidget *widget = realizedWidget())
        static_cast<QLineEdit *>(widget)->setSelection(start, length);
}

QString TextBox::SelText() const
{
    return m_text.mid(SelStart(), SelLength());
}

} // namespace kwFieldDeck
