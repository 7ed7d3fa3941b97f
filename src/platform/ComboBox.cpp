#include "platform/ComboBox.h"

#include "platform/ClassFactory.h"
#include "platform/Error.h"

#include <QComboBox>
#include <QLineEdit>
#include <QSignalBlocker>

namespace kwFieldDeck {

namespace {
const bool registered = ClassFactory::registerClass(QLatin1String(ComboBox::ClassId),
    [](const QString &name, QObject *owner) -> Control * { return new ComboBox(name, owner); });
} // namespace

ComboBox::ComboBox(const QString &name, QObject *owner, qint16 style)
    : Control(new QComboBox, name, owner)
    , m_style(style)
{
    Q_UNUSED(registered)
    QComboBox *box = comboBox();
    box->setEditable(style != 2);
    box->setInsertPolicy(QComboBox::NoInsert);
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
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
