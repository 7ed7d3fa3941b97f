#include "platform/TextBox.h"

#include <QLineEdit>
#include <QPainter>

namespace kwFieldDeck {

namespace {
// QLineEdit that can draw itself flat: no frame of the style, a single line in the mid colour.
class FlatLineEdit : public QLineEdit
{
public:
    bool flat = false;

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
};
} // namespace

TextBox::TextBox(const QString &name, QObject *owner)
    : Control(new FlatLineEdit, name, owner)
{
    connect(lineEdit(), &QLineEdit::textChanged, this, &TextBox::Change);
}

QLineEdit *TextBox::lineEdit() const { return static_cast<QLineEdit *>(widget()); }

QString TextBox::Text() const { return lineEdit()->text(); }

void TextBox::setText(const QString &text)
{
    lineEdit()->setText(text);
    lineEdit()->setCursorPosition(0);
}

bool TextBox::Locked() const { return lineEdit()->isReadOnly(); }
void TextBox::setLocked(bool locked) { lineEdit()->setReadOnly(locked); }

int TextBox::MaxLength() const
{
    const int length = lineEdit()->maxLength();
    return length == 32767 ? 0 : length;
}

void TextBox::setMaxLength(int length) { lineEdit()->setMaxLength(length > 0 ? length : 32767); }

void TextBox::setAppearance(int appearance)
{
    m_appearance = appearance;
    auto *edit = static_cast<FlatLineEdit *>(lineEdit());
    edit->flat = appearance == 0;
    edit->setFrame(appearance != 0);
    edit->setTextMargins(appearance == 0 ? 3 : 0, 0, appearance == 0 ? 2 : 0, 0);
    edit->update();
}

int TextBox::SelStart() const
{
    return lineEdit()->hasSelectedText() ? lineEdit()->selectionStart()
                                         : lineEdit()->cursorPosition();
}

void TextBox::setSelStart(int start) { lineEdit()->setCursorPosition(start); }

int TextBox::SelLength() const { return int(lineEdit()->selectedText().size()); }

void TextBox::setSelLength(int length) { lineEdit()->setSelection(SelStart(), length); }

QString TextBox::SelText() const { return lineEdit()->selectedText(); }

} // namespace kwFieldDeck
