#pragma once

#include <QFrame>
#include <QPointer>

namespace kwFieldDeck {

class Field;
class kwPropertyControlPrivate;

// The viewport picOuter: it paints the rows that lie in it with the style, in their state, and
// hands the mouse and the wheel to the rows. A press on an idle row's editor gives that row the
// live editor first and then lands on it, so the first click acts as on a live widget.
class GridView : public QFrame
{
    Q_OBJECT
public:
    explicit GridView(kwPropertyControlPrivate *grid, QWidget *parent);

    // Where the canvas's left edge and its row 0 lie when it is not scrolled: at the viewport's
    // own corner, over its frame, as a child placed at 0, 0 lies.
    QPoint canvasOrigin() const { return QPoint(0, 0); }
    // The rectangles of a canvas row's name cell and editor, in this widget.
    QRect nameCellRect(qsizetype row) const;
    QRect editorRect(qsizetype row) const;
    // The canvas row under a point, or -1.
    qsizetype rowAt(const QPoint &point) const;
    void updateRow(qsizetype row);
    void scrollByWheel(QWheelEvent *event);

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    bool event(QEvent *event) override;

private:
    void paintNameCell(QPainter &painter, qsizetype row) const;
    void paintEditor(QPainter &painter, qsizetype row) const;
    bool forwardMouse(QMouseEvent *event);

    kwPropertyControlPrivate *m_grid;
    // The part of the live editor that a press was handed to: the moves and the release that
    // follow go to it as well.
    QPointer<QWidget> m_mouseTarget;
    int m_wheelRemainder = 0;
    bool m_forwarding = false;
};

} // namespace kwFieldDeck
