#include "grid/GridView.h"

#include "editors/FieldKind.h"
#include "editors/RowPainter.h"
#include "fieldmodel/Field_p.h"
#include "grid/GridAccessible.h"
#include "grid/kwPropertyControl_p.h"
#include "runtime/Error.h"
#include "runtime/Twips.h"

#include <QApplication>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>
#include <QWheelEvent>

namespace kwFieldDeck {

namespace {
// A name cell shows its field's name with one trailing blank, off the cell's right border.
QString nameCellText(const Field *field)
{
    return field->Name() + QLatin1Char(' ');
}

// Three rows a notch, as Qt's item views scroll.
constexpr int RowsPerWheelNotch = 3;
} // namespace

GridView::GridView(kwPropertyControlPrivate *grid, QWidget *parent)
    : QFrame(parent)
    , m_grid(grid)
{
    setObjectName(QStringLiteral("picOuter"));
    // Assistive tools see every row as two cells of a table.
    static const bool factoryInstalled
        = (QAccessible::installFactory(&GridAccessible::create), true);
    Q_UNUSED(factoryInstalled)
    setAutoFillBackground(true);
    setMouseTracking(false);
}

kwPropertyControl *GridView::grid() const
{
    return m_grid->q_func();
}

QRect GridView::nameCellRect(qsizetype row) const
{
    const CanvasRow &cell = m_grid->canvasRows().at(row);
    const QPoint origin = canvasOrigin();
    return QRect(origin.x(),
        origin.y() + twipsToPixelsY(m_grid->canvasTop()) + twipsToPixelsY(cell.top),
        std::max(0, twipsToPixelsX(cell.width)), std::max(0, twipsToPixelsY(cell.height)));
}

QRect GridView::editorRect(qsizetype row) const
{
    const CanvasRow &cell = m_grid->canvasRows().at(row);
    const QPoint origin = canvasOrigin();
    return QRect(origin.x() + twipsToPixelsX(cell.editorLeft),
        origin.y() + twipsToPixelsY(m_grid->canvasTop()) + twipsToPixelsY(cell.top),
        std::max(0, twipsToPixelsX(cell.editorWidth)),
        std::max(0, twipsToPixelsY(cell.editorHeight)));
}

qsizetype GridView::rowAt(const QPoint &point) const
{
    const float y
        = float((point.y() - canvasOrigin().y()) * twipsPerPixelY()) - m_grid->canvasTop();
    const qsizetype row = m_grid->rowAt(y);
    if (row < 0)
        return -1;
    return nameCellRect(row).united(editorRect(row)).contains(point) ? row : -1;
}

void GridView::updateRow(qsizetype row)
{
    // A row out of view needs no painting: most rows of a large grid built at once are.
    const CanvasRow &cell = m_grid->canvasRows().at(row);
    const float top = m_grid->canvasTop() + cell.top;
    if (top > float(height() * twipsPerPixelY()) || top + cell.height < 0)
        return;
    update(nameCellRect(row).united(editorRect(row)));
}

void GridView::paintNameCell(QPainter &painter, qsizetype row) const
{
    const Field *field = m_grid->canvasRows().at(row).field;
    QPalette palette = m_grid->canvasPalette();
    const bool highlighted
        = field == m_grid->highlighted() && FieldPrivate::get(field)->m_row == row;
    const QColor back = highlighted ? palette.color(QPalette::Active, QPalette::Highlight)
                                    : m_grid->screenColor(m_grid->FieldNameBackColor());
    const QColor fore = highlighted ? palette.color(QPalette::Active, QPalette::HighlightedText)
                                    : m_grid->screenColor(m_grid->FieldNameForeColor());
    for (QPalette::ColorGroup group :
        { QPalette::Active, QPalette::Inactive, QPalette::Disabled }) {
        palette.setColor(group, QPalette::Base, back);
        if (group != QPalette::Disabled)
            palette.setColor(group, QPalette::Text, fore);
    }
    RowPainter::lineEdit(&painter, this, nameCellRect(row), nameCellText(field), palette,
        m_grid->Font(), field->Enabled() && isEnabled(), RowPainter::Frame::Flat);
}

void GridView::paintEditor(QPainter &painter, qsizetype row) const
{
    const Field *field = m_grid->canvasRows().at(row).field;
    const FieldPrivate *data = FieldPrivate::get(field);
    const FieldKind *kind = data->shownKind();
    // The row with the live editor shows the editor itself.
    if (!kind || (m_grid->rowEditor().row() == field && data->m_row == row))
        return;
    EditorPaint paint;
    paint.painter = &painter;
    paint.widget = this;
    paint.rect = editorRect(row);
    paint.palette = m_grid->canvasPalette();
    kind->applyColors(paint.palette, data->m_editor);
    paint.font = m_grid->Font();
    paint.enabled = isEnabled() && (!kind->appliesEnabled() || data->m_editor.enabled);
    kind->paint(paint, data->m_editor);
}

void GridView::paintEvent(QPaintEvent *event)
{
    QFrame::paintEvent(event);
    QPainter painter(this);
    const QRect area = event->rect();
    painter.setClipRect(area);
    const float scale = float(twipsPerPixelY());
    const float top = float(area.top() - canvasOrigin().y() - 1) * scale - m_grid->canvasTop();
    const float bottom
        = float(area.bottom() - canvasOrigin().y() + 1) * scale - m_grid->canvasTop();
    for (qsizetype row : m_grid->rowsBetween(top, bottom)) {
        if (!m_grid->canvasRows().at(row).field->Visible())
            continue;
        paintNameCell(painter, row);
        paintEditor(painter, row);
    }
}

// A press on an idle row's editor gives the row the live editor, then lands on the part under
// the pointer, which gets the moves and the release that follow.
bool GridView::forwardMouse(QMouseEvent *event)
{
    QWidget *target = m_mouseTarget;
    if (!target)
        return false;
    // A press that the part passes back up (a disabled part does) ends here.
    if (m_forwarding || !target->isEnabled())
        return true;
    m_forwarding = true;
    const QPointF local = target->mapFrom(this, event->position());
    QMouseEvent forwarded(event->type(), local, event->globalPosition(), event->button(),
        event->buttons(), event->modifiers());
    QApplication::sendEvent(target, &forwarded);
    m_forwarding = false;
    return true;
}

void GridView::mousePressEvent(QMouseEvent *event)
{
    if (m_forwarding)
        return;
    m_mouseTarget = nullptr;
    const QPoint point = event->position().toPoint();
    // A press over the live editor is its own, also one that it let pass (on its surface beside
    // its parts): the row below the border line that rows share must not take it.
    QWidget *editor = m_grid->rowEditor().editor();
    if (!editor || !editor->isVisible() || !editor->geometry().contains(point)) {
        const qsizetype row = rowAt(point);
        if (row < 0 || event->button() != Qt::LeftButton) {
            QFrame::mousePressEvent(event);
            return;
        }
        Field *field = m_grid->canvasRows().at(row).field;
        if (!editorRect(row).contains(point) || !FieldPrivate::get(field)->editorKind()
            || FieldPrivate::get(field)->m_row != row) {
            // A click on the name cell makes the row current.
            trap("Sub 'm_FieldNameControl_GotFocus' of Class Module 'Field'",
                [&] { FieldPrivate::get(field)->m_FieldNameControl_GotFocus(); });
            return;
        }
        m_grid->rowEditor().bind(field);
        editor = m_grid->rowEditor().editor();
        if (!editor)
            return;
    }
    QWidget *part = editor->childAt(editor->mapFrom(this, point));
    m_mouseTarget = part ? part : editor;
    // A handed-on press gives no focus by itself: the part that a click focuses takes it here.
    for (QWidget *focusing = m_mouseTarget; focusing; focusing = focusing->parentWidget()) {
        if (focusing->focusPolicy() & Qt::ClickFocus) {
            focusing->setFocus(Qt::MouseFocusReason);
            break;
        }
        if (focusing == editor)
            break;
    }
    forwardMouse(event);
}

void GridView::mouseMoveEvent(QMouseEvent *event)
{
    if (!forwardMouse(event))
        QFrame::mouseMoveEvent(event);
}

void GridView::mouseReleaseEvent(QMouseEvent *event)
{
    if (!forwardMouse(event))
        QFrame::mouseReleaseEvent(event);
    m_mouseTarget = nullptr;
}

void GridView::mouseDoubleClickEvent(QMouseEvent *event)
{
    // A double click is a second press to whatever the first one reached.
    mousePressEvent(event);
}

void GridView::scrollByWheel(QWheelEvent *event)
{
    QScrollBar *bar = m_grid->scrollBar();
    m_wheelRemainder += event->angleDelta().y();
    const int notches = m_wheelRemainder / QWheelEvent::DefaultDeltasPerStep;
    m_wheelRemainder -= notches * QWheelEvent::DefaultDeltasPerStep;
    event->accept();
    if (notches == 0 || !bar->isEnabled())
        return;
    bar->setValue(bar->value() - notches * RowsPerWheelNotch);
}

void GridView::wheelEvent(QWheelEvent *event)
{
    scrollByWheel(event);
}

bool GridView::event(QEvent *event)
{
    if (event->type() == QEvent::ToolTip) {
        auto *help = static_cast<QHelpEvent *>(event);
        const qsizetype row = rowAt(help->pos());
        // A name cell's tool tip is its field's description.
        if (row >= 0 && nameCellRect(row).contains(help->pos())
            && !m_grid->canvasRows().at(row).field->Description().isEmpty())
            QToolTip::showText(help->globalPos(), m_grid->canvasRows().at(row).field->Description(),
                this, nameCellRect(row));
        else
            QToolTip::hideText();
        return true;
    }
    return QFrame::event(event);
}

} // namespace kwFieldDeck
