#pragma once

#include "platform/Control.h"

class QComboBox;

namespace kwFieldDeck {

// The standard combo box: a list of entries, each a display text with a 32-bit item datum, and
// the selected one (ListIndex, -1 for none). Click comes when the user changes the selection and
// whenever ListIndex is set, to a new entry or the one already selected; adding and clearing
// entries select nothing by themselves.
class ComboBox : public Control
{
    Q_OBJECT
public:
    // Style 0 is the drop-down combo whose text can be typed, 2 the drop-down list.
    explicit ComboBox(const QString &name, QObject *owner = nullptr, qint16 style = 2);

    static constexpr const char *ClassId = "VB.ComboBox";

    void AddItem(const QString &text);
    // The index of the entry added last, -1 before any.
    int NewIndex() const { return m_newIndex; }
    // Indexes outside the list are an invalid property array index (381).
    qint32 ItemData(int i) const;
    void setItemData(int i, qint32 data);
    int ListIndex() const;
    void setListIndex(int index);
    int ListCount() const;
    QString List(int i) const;
    QString Text() const;
    // A drop-down list shows only its entries: the text selects the entry spelled so (in any
    // letter case) and otherwise leaves the selection as it is.
    void setText(const QString &text);
    void Clear();
    qint16 Style() const { return m_style; }

    // The widget, realized now if the box has none.
    QComboBox *comboBox() const;
    // The height, in twips, that a box of this style asks for in a font.
    float naturalHeight(const QFont &font) const;

signals:
    void Change();

protected:
    QWidget *createWidget() override;
    void attach(QWidget *widget) override;

private:
    struct Entry
    {
        QString text;
        qint32 data = 0;
    };
    void checkIndex(int i) const;
    void select(int index);
    void changeEditText(const QString &text);

    QVector<Entry> m_entries;
    QString m_editText;
    int m_listIndex = -1;
    qint16 m_style;
    int m_newIndex = -1;
    bool m_quiet = false;
};

} // namespace kwFieldDeck
