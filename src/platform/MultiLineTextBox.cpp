#include "platform/MultiLineTextBox.h"

#include "platform/DataObject.h"
#include "platform/LineBreaks.h"

#include <QDropEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QTextBlock>

namespace kwFieldDeck {

namespace {
class MemoTextEdit : public QPlainTextEdit
{
public:
    std::function<void(const QMimeData *)> dropped;
    bool manualDrop = false;

protected:
    void keyPressEvent(QKeyEvent *event) override
    {
        // Ctrl+Tab is how a tab character is typed, since Tab itself moves the focus on.
        if (event->key() == Qt::Key_Tab && event->modifiers() == Qt::ControlModifier) {
            if (!isReadOnly())
                insertPlainText(QStringLiteral("\t"));
            return;
        }
        // Every line break is a plain one, so that each line is one CR LF in the system's text.
        if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
            && event->modifiers() & Qt::ShiftModifier) {
            QKeyEvent plain(event->type(), event->key(), event->modifiers() & ~Qt::ShiftModifier,
                QStringLiteral("\r"));
            QPlainTextEdit::keyPressEvent(&plain);
            return;
        }
        QPlainTextEdit::keyPressEvent(event);
    }

    void insertFromMimeData(const QMimeData *source) override
    {
        if (source->hasText() && !isReadOnly())
            insertPlainText(toLf(source->text()));
    }

    void dragEnterEvent(QDragEnterEvent *event) override
    {
        if (manualDrop)
            event->acceptProposedAction();
        else
            event->ignore();
    }
    void dragMoveEvent(QDragMoveEvent *event) override
    {
        if (manualDrop)
            event->acceptProposedAction();
        else
            event->ignore();
    }
    void dropEvent(QDropEvent *event) override
    {
        if (!manualDrop) {
            event->ignore();
            return;
        }
        event->acceptProposedAction();
        dropped(event->mimeData());
    }
};
} // namespace

MultiLineTextBox::MultiLineTextBox(const QString &name, QObject *owner)
    : Control(new MemoTextEdit, name, owner)
{
    auto *edit = static_cast<MemoTextEdit *>(plainTextEdit());
    edit->setTabChangesFocus(true);
    edit->dropped = [this](const QMimeData *data) { emit OLEDragDrop(DataObject(data)); };
    connect(edit, &QPlainTextEdit::textChanged, this, &MultiLineTextBox::Change);
    setScrollBars(0);
    setOLEDropMode(0);
}

QPlainTextEdit *MultiLineTextBox::plainTextEdit() const
{
    return static_cast<QPlainTextEdit *>(widget());
}

QString MultiLineTextBox::Text() const
{
    // Until the text is edited it reads back as it was set, lone line breaks included.
    if (!plainTextEdit()->document()->isModified())
        return m_setText;
    // Read block by block: the document's plain-text export would turn non-breaking spaces
    // into blanks.
    QString text;
    for (QTextBlock block = plainTextEdit()->document()->firstBlock(); block.isValid();
         block = block.next()) {
        if (block.blockNumber() > 0)
            text += QLatin1String("\r\n");
        text += block.text();
    }
    return text;
}

void MultiLineTextBox::setText(const QString &text)
{
    m_setText = text;
    m_crLfBreaksBefore = { 0 };
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        const bool crLf = c == u'\r' && i + 1 < text.size() && text.at(i + 1) == u'\n';
        if (crLf || c == u'\r' || c == u'\n' || c == QChar::ParagraphSeparator)
            m_crLfBreaksBefore.append(m_crLfBreaksBefore.last() + (crLf ? 1 : 0));
        i += crLf ? 1 : 0;
    }
    plainTextEdit()->setPlainText(toLf(text));
}

int MultiLineTextBox::crLfBreaksBefore(int line) const
{
    if (plainTextEdit()->document()->isModified() || line >= m_crLfBreaksBefore.size())
        return line;
    return m_crLfBreaksBefore.at(line);
}

bool MultiLineTextBox::Locked() const
{
    return plainTextEdit()->isReadOnly();
}
void MultiLineTextBox::setLocked(bool locked)
{
    plainTextEdit()->setReadOnly(locked);
}

void MultiLineTextBox::setScrollBars(int scrollBars)
{
    m_scrollBars = scrollBars;
    QPlainTextEdit *edit = plainTextEdit();
    const bool horizontal = scrollBars & 1;
    const bool vertical = scrollBars & 2;
    edit->setLineWrapMode(horizontal ? QPlainTextEdit::NoWrap : QPlainTextEdit::WidgetWidth);
    edit->setHorizontalScrollBarPolicy(horizontal ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
    edit->setVerticalScrollBarPolicy(vertical ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
}

void MultiLineTextBox::setOLEDropMode(int mode)
{
    m_oleDropMode = mode;
    auto *edit = static_cast<MemoTextEdit *>(plainTextEdit());
    edit->manualDrop = mode == 1;
    edit->setAcceptDrops(mode == 1);
    edit->viewport()->setAcceptDrops(mode == 1);
}

// A widget position plus one for each CR LF before it (a single character there).
int MultiLineTextBox::systemPosition(int widgetPosition) const
{
    return widgetPosition
        + crLfBreaksBefore(plainTextEdit()->document()->findBlock(widgetPosition).blockNumber());
}

int MultiLineTextBox::widgetPosition(int systemPosition) const
{
    const QTextDocument *document = plainTextEdit()->document();
    for (QTextBlock block = document->firstBlock(); block.isValid(); block = block.next()) {
        const int line = block.blockNumber();
        const int lineStart = block.position() + crLfBreaksBefore(line); // in system characters
        const int lineLength = block.length() - 1;
        if (systemPosition <= lineStart + lineLength || !block.next().isValid())
            return block.position() + qBound(0, systemPosition - lineStart, lineLength);
        // A position between CR and LF belongs to the start of the next line.
        if (systemPosition < block.next().position() + crLfBreaksBefore(line + 1))
            return block.next().position();
    }
    return 0;
}

int MultiLineTextBox::SelStart() const
{
    return systemPosition(plainTextEdit()->textCursor().selectionStart());
}

void MultiLineTextBox::setSelStart(int start)
{
    QTextCursor cursor = plainTextEdit()->textCursor();
    cursor.setPosition(widgetPosition(std::max(0, start)));
    plainTextEdit()->setTextCursor(cursor);
}

int MultiLineTextBox::SelLength() const
{
    const QTextCursor cursor = plainTextEdit()->textCursor();
    return systemPosition(cursor.selectionEnd()) - systemPosition(cursor.selectionStart());
}

void MultiLineTextBox::setSelLength(int length)
{
    QTextCursor cursor = plainTextEdit()->textCursor();
    const int start = SelStart();
    cursor.setPosition(widgetPosition(start));
    cursor.setPosition(widgetPosition(start + std::max(0, length)), QTextCursor::KeepAnchor);
    plainTextEdit()->setTextCursor(cursor);
}

QString MultiLineTextBox::SelText() const
{
    return Text().mid(SelStart(), SelLength());
}

void MultiLineTextBox::setSelText(const QString &text)
{
    plainTextEdit()->insertPlainText(toLf(text));
}

} // namespace kwFieldDeck
