#include "platform/ComboBox.h"

#include "platform/ClassFactory.h"
#include "platform/Error.h"

#include <QComboBox>
#include <QEvent>
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
    : Control(new ListComboBox, name, owner)
    , m_style(style)
{
    Q_UNUSED(registered)
    QComboBox *box = comboBox();
    // A new box is a list already; its geometry is always set, so no size adjust policy.
    if (style != 2)
        box->setEditable(true);
    box->setInsertPolicy(QComboBox::NoInsert);
    connect(box, &QComboBox::currentIndexChanged, this, [this] {
        if (!m_quiet)
            emit Click();
    });
    if (QLineEdit *edit = box->lineEdit())
        connect(edit, &QLineEdit::textChanged, this, &ComboBox::Change);
}

QComboBox *ComboBox::comboBox() const
{
    return static_cast<QComboBox *>(widget());
}

void ComboBox::checkIndex(int i) const
{
    if (i < 0 || i >= ListCount())
        raise(381, QStringLiteral("Invalid property array index"));
}

void ComboBox::AddItem(const QString &text)
{
    // A list selects its first entry by itself when it gets one; here adding selects nothing.
    const int selected = ListIndex();
    m_quiet = true;
    comboBox()->addItem(text, QVariant::fromValue<qint32>(0));
    comboBox()->setCurrentIndex(selected);
    m_quiet = false;
    m_newIndex = ListCount() - 1;
}

qint32 ComboBox::ItemData(int i) const
{
    checkIndex(i);
    return comboBox()->itemData(i).value<qint32>();
}

void ComboBox::setItemData(int i, qint32 data)
{
    checkIndex(i);
    comboBox()->setItemData(i, QVariant::fromValue<qint32>(data));
}

int ComboBox::ListIndex() const
{
    return comboBox()->currentIndex();
}

void ComboBox::setListIndex(int index)
{
    if (index < -1 || index >= ListCount())
        raise(380, QStringLiteral("Invalid property value"));
    // Setting the index delivers the click notification even when it does not move.
    if (index == ListIndex() && !m_quiet)
        emit Click();
    comboBox()->setCurrentIndex(index);
}

int ComboBox::ListCount() const
{
    return comboBox()->count();
}

QString ComboBox::List(int i) const
{
    // Reading past the list gives "", as the platform's List did.
    return i >= 0 && i < ListCount() ? comboBox()->itemText(i) : QString();
}

QString ComboBox::Text() const
{
    return comboBox()->currentText();
}

void ComboBox::setText(const QString &text)
{
    if (comboBox()->isEditable()) {
        comboBox()->setEditText(text);
        return;
    }
    const int found = comboBox()->findText(text, Qt::MatchFixedString);
    if (found >= 0)
        setListIndex(found);
}

void ComboBox::Clear()
{
    m_quiet = true;
    comboBox()->clear();
    m_quiet = false;
    m_newIndex = -1;
}

} // namespace kwFieldDeck
