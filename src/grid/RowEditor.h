#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

namespace kwFieldDeck {

class Field;
class kwPropertyControlPrivate;
struct RowBinding;

// The live editor: a real widget, made by the row's field type, that shows one row's state and
// takes the user's input. The row with the focus has it, and a row that is clicked gets it
// before the click lands. Tab, Shift+Tab, Up, Down and the page keys move it from row to row.
class RowEditor : public QObject
{
    Q_OBJECT
public:
    explicit RowEditor(kwPropertyControlPrivate *grid);
    ~RowEditor() override;

    Field *row() const;
    QWidget *editor() const { return m_editor; }
    // Makes the live editor show the row, without moving the focus.
    void bind(Field *field);
    // Lets go of the editor: a row that is gone or hidden keeps no widget.
    void release();
    // Puts the focus in the row's editor, unless it holds the focus already.
    void focus(Field *field);
    // The focus enters a row from another one or from outside the grid: at its first part, or at
    // its last one going backwards.
    void enter(Field *field, bool backwards);
    bool holdsFocus() const;
    // Whether the editor is passing the focus to the grid itself on its way elsewhere.
    bool movingFocus() const { return m_movingFocus; }
    // Places the editor over its row, after a scroll or a new layout.
    void place();
    // The row's state changed from outside the editor: the editor shows it.
    void refresh(Field *field);
    // Leaves the grid for the widget before or after it in the window's tab order.
    void leaveGrid(bool next);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool handleKey(QWidget *part, const QKeyEvent *key);
    void moveByTab(QWidget *part, bool next);
    void moveToRow(int steps);
    void moveToEnd(bool last);
    QList<QWidget *> parts() const;
    void parkFocus();
    void keepState();

    kwPropertyControlPrivate *m_grid;
    QPointer<QWidget> m_editor;
    RowBinding *m_binding = nullptr;
    bool m_movingFocus = false;
};

} // namespace kwFieldDeck
