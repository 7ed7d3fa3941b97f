#include "platform/ComboBox.h"

#include "platform/ClassFactory.h"
#include "platform/Error.h"

#include <QComboBox>
#include <QEvent>
#include <QHash>
#include <QLineEdit>
#include <QSignalBlocker>

namespace kwFieldDeck {

namespace {
// A combo box whose drop-down list window is built when it is first opened. Qt builds it at once
// when a list box's font changes, is set non-editable or gets a size adjust policy: some 23 KiB
// a box, most of a drop-down row's memory in a grid of thousands. The window takes its font from
// the box as a child does, so a font reaches it, built or not, without the box's own handling.
class ListComboBox : public QComboBox
{
protected:
    void changeEvent(QEvent *event) override
    {
        if (event->type() == QEvent::FontChange && !isEditable())
            QWidget::changeEvent(event);
        else
            QComboBox::changeEvent(event);
    }
};

const bool registered = ClassFactory::registerClass(QLatin1String(ComboBox::ClassId),
    [](const QString &name, QObject *owner) -> Control * { return new ComboBox(name, owner); });
} // namespace

ComboBox::ComboBox(const QString &name, QObject *owner, qint16 style)
    : Control(name, owner)
    , m_style(style)
{
    Q_UNUSED(registered)
}

QWidget *ComboBox::createWidget()
{
    auto *box = new ListComboBox;
    // A new box is a list already; its geometry is always set, so no size adjust policy.
    if (m_style != 2)
        box->setEditable(true);
    box->setInsertPolicy(QComboBox::NoInsert);
    return box;
}

// Boxes of both styles share a pool: the list or text look is part of the state pushed here.
void ComboBox::attach(QWidget *widget)
{
    auto *box = static_cast<QComboBox *>(widget);
    const QSignalBlocker quiet(box);
    box->setEditable(m_style != 2);
    box->clear();
    for (const Entry &entry : std::as_const(m_entries))
        box->addItem(entry.text, QVariant::fromValue<qint32>(entry.data));
    box->setCurrentIndex(m_listIndex);
    if (QLineEdit *edit = box->lineEdit()) {
        edit->setText(m_editText);
        edit->setCursorPosition(0);
        connect(edit, &QLineEdit::textChanged, this, &ComboBox::changeEditText);
    }
    connect(box, &QComboBox::currentIndexChanged, this, &ComboBox::select);
}

QComboBox *ComboBox::comboBox() const
{
    return static_cast<QComboBox *>(widget());
}

float ComboBox::naturalHeight(const QFont &font) const
{
    static QHash<QString, float> heights;
    const QString key = font.key() + QString::number(m_style);
    auto found = heights.constFind(key);
    if (found != heights.constEnd())
        return *found;
    // Measured once per font and style on a box that is never shown.
    ListComboBox measure;
    measure.setEditable(m_style != 2);
    measure.setFont(font);
    const float height = float(measure.sizeHint().height() * twipsPerPixelY());
    heights.insert(key, height);
    return height;
}

void ComboBox::checkIndex(int i) const
{
    if (i < 0 || i >= ListCount())
        raise(381, QStringLiteral("Invalid property array index"));
}

// The selection moved, by the user or by code; an editable box shows the entry's text.
void ComboBox::select(int index)
{
    m_listIndex = index;
    if (m_style != 2 && !realizedWidget())
        changeEditText(List(index));
    if (!m_quiet)
        emit Click();
}

void ComboBox::changeEditText(const QString &text)
{
    if (text == m_editText && !realizedWidget())
        return;
    m_editText = text;
    emit Change();
}

void ComboBox::AddItem(const QString &text)
{
    // A list selects its first entry by itself when it gets one; here adding selects nothing.
    m_entries.append({ text, 0 });
    if (auto *box = static_cast<QComboBox *>(realizedWidget())) {
        const int selected = m_listIndex;
        m_quiet = true;
        box->addItem(text, QVariant::fromValue<qint32>(0));
        box->setCurrentIndex(selected);
        m_quiet = false;
    }
    m_newIndex = ListCount() - 1;
}

qint32 ComboBox::ItemData(int i) const
{
    checkIndex(i);
    return m_entries.at(i).data;
}

void ComboBox::setItemData(int i, qint32 data)
{
    checkIndex(i);
    m_entries[i].data = data;
    if (auto *box = static_cast<QComboBox *>(realizedWidget()))
        box->setItemData(i, QVariant::fromValue<qint32>(data));
}

int ComboBox::ListIndex() const
{
    return m_listIndex;
}

void ComboBox::setListIndex(int index)
{
    if (index < -1 || index >= ListCount())
        raise(380, QStringLiteral("Invalid property value"));
    // Setting the index delivers the click notification even when it does not move.
    if (index == m_listIndex) {
        if (!m_quiet)
            emit Click();
        return;
    }
    if (auto *box = static_cast<QComboBox *>(realizedWidget()))
        box->setCurrentIndex(index);
    else
        select(index);
}

int ComboBox::ListCount() const
{
    return int(m_entries.size());
}

QString ComboBox::List(int i) const
{
    // Reading past the list gives "", as the platform's List did.
    return i >= 0 && i < ListCount() ? m_entries.at(i).text : QString();
}

QString ComboBox::Text() const
{
    return m_style != 2 ? m_editText : List(m_listIndex);
}

void ComboBox::setText(const QString &text)
{
    if (m_style != 2) {
        if (auto *box = static_cast<QComboBox *>(realizedWidget()))
            box->setEditText(text);
        else
            changeEditText(text);
        return;
    }
    for (int i = 0; i < ListCount(); ++i) {
        if (QString::compare(m_entries.at(i).text, text, Qt::CaseInsensitive) == 0) {
            setListIndex(i);
            return;
        }
    }
}

void ComboBox::Clear()
{
    m_quiet = true;
    m_entries.clear();
    if (auto *box = static_cast<QComboBox *>(realizedWidget()))
        box->clear();
    else if (m_listIndex != -1)
        select(-1);
    m_listIndex = -1;
    m_quiet = false;
    m_newIndex = -1;
}

} // namespace kwFieldDeck
