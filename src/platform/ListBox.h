#pragma once

#include "platform/Control.h"

class QListWidget;

namespace kwFieldDeck {

// The list box: a list of texts with one selected entry. Click comes whenever the selection
// changes, by the user or by setting ListIndex, as on the original platform.
class ListBox : public Control
{
    Q_OBJECT
    Q_PROPERTY(int ListIndex READ ListIndex WRITE setListIndex NOTIFY Click)
public:
    explicit ListBox(const QString &name, QObject *owner = nullptr);

    void AddItem(const QString &text);
    void Clear();
    int ListCount() const;
    // The entry's text; an index outside the list reads as empty.
    QString List(int index) const;
    // The selected entry, -1 when none.
    int ListIndex() const;
    void setListIndex(int index);
    int NewIndex() const { return m_newIndex; }
    // The selected entry's text.
    QString Text() const;

    QListWidget *listWidget() const;

signals:
    void Click();

private:
    int m_newIndex = -1;
};

} // namespace kwFieldDeck
