#pragma once

#include <QPushButton>
#include <QWidget>

namespace kwFieldDeck {

class kwTextBox;

// The editor of a file, folder or memo row: the box Text1 and the "..." button btnBrowse at its
// right end, which browses for the row's value. Arriving at the button browses at once.
class kwBrowseField : public QWidget
{
    Q_OBJECT
public:
    // A memo's box only shows a placeholder, and F4 in it browses too.
    enum class Box { Path, Memo };
    explicit kwBrowseField(Box box, QWidget *parent = nullptr);

    kwTextBox *const Text1;
    QPushButton *const btnBrowse;

signals:
    // The user changed the box's text.
    void Change();
    void HasFocus();
    // The button was clicked or reached, or F4 was pressed in a memo's box.
    void Browse();

protected:
    void resizeEvent(QResizeEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    const bool m_browseOnF4;
};

} // namespace kwFieldDeck
