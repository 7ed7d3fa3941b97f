#pragma once

#include <QLineEdit>

namespace kwFieldDeck {

// The single-line box of a row: the text and number editors, and the text part of the slider,
// file, folder and memo editors. Drawn flat, it has a single line in the mid colour for a frame.
// Its maximum length holds only for what the user types, pastes or drops: text set by the
// program is kept whole. A number box takes digits, one point and a leading sign only.
class kwTextBox : public QLineEdit
{
    Q_OBJECT
public:
    explicit kwTextBox(QWidget *parent = nullptr);

    void setFlat(bool flat);
    void setUserMaxLength(int length) { m_userMaxLength = length; }
    void setNumeric(bool numeric) { m_numeric = numeric; }
    // Sets the text as the program does: the caret goes to the start, and no Change is raised.
    void showText(const QString &text);

signals:
    // The user changed the text.
    void Change();
    void HasFocus();

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void inputMethodEvent(QInputMethodEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;

private:
    QString fitting(const QString &insertion) const;
    void pasteFitting(int mode);
    bool refusedByNumberFilter(const QKeyEvent *event) const;

    int m_userMaxLength = 0; // 0: no limit
    bool m_flat = false;
    bool m_numeric = false;
    bool m_showing = false;
};

} // namespace kwFieldDeck
