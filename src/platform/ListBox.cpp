#include "platform/ListBox.h"

#include "platform/Error.h"

#include <QListWidget>

namespace kwFieldDeck {

ListBox::ListBox(const QString &name, QObject *owner)
    : Control(new QListWidget, name, owner)
{
    listWidget()->setSelectionMode(QAbstractItemView::SingleSelection);
    connect(listWidget(), &QListWidget::currentRowChanged, this, [this](int row) {
        if (row >= 0)
            emit Click();
    });
}

QListWidget *ListBox::listWidget() const
{
    return static_cast<QListWidget *>(widget());
}

void ListBox::AddItem(const QString &text)
{
    listWidget()->addItem(text);
    m_newIndex = listWidget()->count() - 1;
}

void ListBox::Clear()
{
    listWidget()->clear();
    m_newIndex = -1;
}

int ListBox::ListCount() const
{
    return listWidget()->count();
}

QString ListBox::List(int index) const
{
    const QListWidgetItem *item = listWidget()->item(index);
    return item ? item->text() : QString();
}

int ListBox::ListIndex() const
{
    return listWidget()->currentRow();
}

void ListBox::setListIndex(int index)
{
    if (index < -1 || index >= ListCount())
        raise(380, QStringLiteral("Invalid property value"));
    listWidget()->setCurrentRow(index);
    if (index >= 0)
        listWidget()->scrollToItem(listWidget()->item(index));
}

QString ListBox::Text() const
{
    return List(ListIndex());
}

} // namespace kwFieldDeck
