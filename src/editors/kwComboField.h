#pragma once

#include "editors/EditorState.h"

#include <QComboBox>

namespace kwFieldDeck {

// The editor of a drop-down row: the list box cbo. Its value is the selected entry's number or
// its text, as UseItemData says.
class kwComboField : public QWidget
{
    Q_OBJECT
public:
    explicit kwComboField(QWidget *parent = nullptr);

    // Shows the entries and the selection without raising Change.
    void showEntries(const QVector<ComboEntry> &entries, int listIndex);

    QComboBox *const cbo;

signals:
    // The user picked an entry; also raised when the box receives the focus (intended).
    void Change();
    void HasFocus();

protected:
    void resizeEvent(QResizeEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool m_showing = false;
};

} // namespace kwFieldDeck
