// The live editor: made for the row the focus goes to, shown over that row, and given back when
// the focus moves on. Its value moves in the field type's two functions, UpdateControl and
// GetValueFromControl.

#include "grid/RowEditor.h"

#include "editors/FieldKind.h"
#include "fieldmodel/Field_p.h"
#include "grid/GridView.h"
#include "grid/kwPropertyControl_p.h"
#include "runtime/Error.h"
#include "runtime/Twips.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QScrollBar>
#include <QSlider>

namespace kwFieldDeck {

// What one live editor reports, to the row it was made for; once the editor has left the row,
// its late reports go nowhere.
struct RowBinding final : EditorEvents
{
    Field *field = nullptr;
    QPointer<QWidget> editor;
    EditorState orphan;

    EditorState &state() override { return field ? FieldPrivate::get(field)->m_editor : orphan; }
    QString fieldName() const override { return field ? field->Name() : QString(); }
    void editorChanged() override;
    void editorFocused() override;
};

void RowBinding::editorChanged()
{
    if (field && editor)
        FieldPrivate::get(field)->takeEditorChange(editor);
}

void RowBinding::editorFocused()
{
    if (!field)
        return;
    trap("Sub 'm_FieldNameControl_GotFocus' of Class Module 'Field'",
        [&] { FieldPrivate::get(field)->m_FieldNameControl_GotFocus(); });
}

RowEditor::RowEditor(kwPropertyControlPrivate *grid)
    : m_grid(grid)
{
}

RowEditor::~RowEditor()
{
    if (m_binding)
        m_binding->field = nullptr;
}

Field *RowEditor::row() const
{
    return m_binding && m_editor ? m_binding->field : nullptr;
}

bool RowEditor::holdsFocus() const
{
    const QWidget *focus = QApplication::focusWidget();
    return m_editor && focus && (focus == m_editor || m_editor->isAncestorOf(focus));
}

// The parts that take the focus, in their order; they take it from a click or from the grid,
// never from the window's own tab order, which the grid keeps.
QList<QWidget *> RowEditor::parts() const
{
    QList<QWidget *> found;
    if (!m_editor)
        return found;
    // An editor that takes the focus itself is one part, whatever its inner widgets.
    if (m_editor->focusPolicy() != Qt::NoFocus)
        return { m_editor };
    for (QWidget *part : m_editor->findChildren<QWidget *>(Qt::FindDirectChildrenOnly)) {
        if (part->focusPolicy() != Qt::NoFocus)
            found << part;
    }
    return found;
}

void RowEditor::bind(Field *field)
{
    if (row() == field) {
        refresh(field);
        place();
        return;
    }
    FieldPrivate *row = FieldPrivate::get(field);
    const FieldKind *kind = row->editorKind();
    QPointer<QWidget> old = m_editor;
    keepState();
    if (m_binding)
        m_binding->field = nullptr;
    m_binding = nullptr;
    m_editor = nullptr;
    if (!kind) {
        if (old) {
            old->hide();
            old->deleteLater();
        }
        return;
    }
    auto *binding = new RowBinding;
    binding->field = field;
    QWidget *editor = kind->createEditor(m_grid->view(), binding);
    binding->editor = editor;
    connect(editor, &QObject::destroyed, editor, [binding] { delete binding; });
    editor->setFont(m_grid->Font());
    QPalette palette = m_grid->canvasPalette();
    kind->applyColors(palette, row->m_editor);
    editor->setPalette(palette);
    if (kind->appliesEnabled())
        editor->setEnabled(row->m_editor.enabled);
    QList<QWidget *> descendants = editor->findChildren<QWidget *>();
    descendants.prepend(editor);
    for (QWidget *part : std::as_const(descendants)) {
        if (part->focusPolicy() != Qt::NoFocus) {
            part->setFocusPolicy(Qt::ClickFocus);
            // Assistive tools name each part after the field it edits.
            part->setAccessibleName(field->Name());
            part->setAccessibleDescription(field->Description());
        }
        part->installEventFilter(this);
    }
    m_binding = binding;
    m_editor = editor;
    kind->UpdateControl(editor, row->m_editor);
    place();
    editor->show();
    if (old) {
        // The old editor goes once the focus has left it, so that no focus move follows.
        if (old->isAncestorOf(QApplication::focusWidget()) || old == QApplication::focusWidget())
            parkFocus();
        old->hide();
        old->deleteLater();
    }
}

// The grid itself holds the focus while an editor that had it goes.
void RowEditor::parkFocus()
{
    m_movingFocus = true;
    m_grid->q_func()->setFocus(Qt::OtherFocusReason);
    m_movingFocus = false;
}

// What the editor shows that it reported as no change (a number typed that the slider already
// had) stays with the row it leaves.
void RowEditor::keepState()
{
    Field *field = row();
    const FieldKind *kind = field ? FieldPrivate::get(field)->editorKind() : nullptr;
    if (kind)
        kind->GetValueFromControl(m_editor, FieldPrivate::get(field)->m_editor);
}

void RowEditor::release()
{
    keepState();
    if (m_binding)
        m_binding->field = nullptr;
    m_binding = nullptr;
    if (QWidget *old = m_editor) {
        if (holdsFocus())
            parkFocus();
        m_editor = nullptr;
        old->hide();
        old->deleteLater();
    }
}

void RowEditor::focus(Field *field)
{
    if (row() == field && holdsFocus())
        return;
    bind(field);
    const FieldKind *kind = FieldPrivate::get(field)->editorKind();
    if (m_editor && kind)
        kind->focusTarget(m_editor)->setFocus(Qt::OtherFocusReason);
}

void RowEditor::enter(Field *field, bool backwards)
{
    bind(field);
    const QList<QWidget *> all = parts();
    if (all.isEmpty())
        return;
    if (backwards)
        all.last()->setFocus(Qt::BacktabFocusReason);
    else
        all.first()->setFocus(Qt::TabFocusReason);
}

void RowEditor::place()
{
    Field *field = row();
    if (!field)
        return;
    const qsizetype at = m_grid->rowOf(field);
    if (at < 0 || !field->Visible()) {
        m_editor->hide();
        return;
    }
    const CanvasRow &cell = m_grid->canvasRows().at(at);
    const QPoint origin = m_grid->view()->canvasOrigin();
    const QSize size = m_editor->size();
    m_editor->setGeometry(origin.x() + twipsToPixelsX(cell.editorLeft),
        origin.y() + twipsToPixelsY(m_grid->canvasTop()) + twipsToPixelsY(cell.top),
        std::max(0, twipsToPixelsX(cell.editorWidth)),
        std::max(0, twipsToPixelsY(cell.editorHeight)));
    // A path is fitted to the box's width, which only now is known.
    const FieldKind *kind = FieldPrivate::get(field)->editorKind();
    if (kind && m_editor->size() != size)
        kind->UpdateControl(m_editor, FieldPrivate::get(field)->m_editor);
    m_editor->show();
}

void RowEditor::refresh(Field *field)
{
    if (row() != field || !m_editor)
        return;
    FieldPrivate *rowData = FieldPrivate::get(field);
    const FieldKind *kind = rowData->editorKind();
    if (!kind)
        return;
    if (kind->appliesEnabled())
        m_editor->setEnabled(rowData->m_editor.enabled);
    QPalette palette = m_grid->canvasPalette();
    kind->applyColors(palette, rowData->m_editor);
    m_editor->setPalette(palette);
    kind->UpdateControl(m_editor, rowData->m_editor);
}

// The widget before or after the grid in the window's tab order takes the focus.
void RowEditor::leaveGrid(bool next)
{
    QWidget *grid = m_grid->q_func();
    QWidget *candidate = grid;
    do {
        candidate = next ? candidate->nextInFocusChain() : candidate->previousInFocusChain();
        if (candidate == grid)
            return;
    } while (grid->isAncestorOf(candidate) || !(candidate->focusPolicy() & Qt::TabFocus)
        || !candidate->isVisibleTo(grid->window()) || !candidate->isEnabled());
    candidate->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
}

void RowEditor::moveByTab(QWidget *part, bool next)
{
    const QList<QWidget *> all = parts();
    qsizetype at = all.indexOf(part);
    for (qsizetype i = 0; at < 0 && i < all.size(); ++i) {
        if (all.at(i)->isAncestorOf(part))
            at = i;
    }
    if (at >= 0 && next && at + 1 < all.size()) {
        all.at(at + 1)->setFocus(Qt::TabFocusReason);
        return;
    }
    if (at > 0 && !next) {
        all.at(at - 1)->setFocus(Qt::BacktabFocusReason);
        return;
    }
    moveToRow(next ? 1 : -1);
}

void RowEditor::moveToRow(int steps)
{
    Field *from = row();
    if (!from)
        return;
    if (Field *to = m_grid->neighbourRow(from, steps))
        enter(to, steps == -1);
    else if (steps == 1 || steps == -1)
        leaveGrid(steps > 0);
}

void RowEditor::moveToEnd(bool last)
{
    if (Field *to = m_grid->firstOrLastRow(last))
        enter(to, false);
}

namespace {
// Parts that have a use of their own for the page keys: a slider steps by a page, a list and a
// date move their value.
bool usesPageKeys(const QWidget *part)
{
    return qobject_cast<const QSlider *>(part) || qobject_cast<const QComboBox *>(part)
        || qobject_cast<const QAbstractSpinBox *>(part);
}
} // namespace

bool RowEditor::handleKey(QWidget *part, const QKeyEvent *key)
{
    const Qt::KeyboardModifiers modifiers
        = key->modifiers() & (Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier);
    switch (key->key()) {
    case Qt::Key_Tab:
        if (modifiers & (Qt::ControlModifier | Qt::AltModifier))
            return false;
        moveByTab(part, !(modifiers & Qt::ShiftModifier));
        return true;
    case Qt::Key_Backtab:
        moveByTab(part, false);
        return true;
    case Qt::Key_Up:
    case Qt::Key_Down:
        // Up and Down move between rows from the boxes that have no use of their own for them.
        if (modifiers != Qt::NoModifier || !part->property("kwRowKeys").toBool())
            return false;
        moveToRow(key->key() == Qt::Key_Up ? -1 : 1);
        return true;
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        if (modifiers != Qt::NoModifier || usesPageKeys(part))
            return false;
        moveToRow(key->key() == Qt::Key_PageUp ? -m_grid->rowsPerPage() : m_grid->rowsPerPage());
        return true;
    case Qt::Key_Home:
    case Qt::Key_End:
        if (modifiers != Qt::ControlModifier)
            return false;
        moveToEnd(key->key() == Qt::Key_End);
        return true;
    default:
        return false;
    }
}

bool RowEditor::eventFilter(QObject *watched, QEvent *event)
{
    auto *part = qobject_cast<QWidget *>(watched);
    if (!part || !m_editor || !(part == m_editor || m_editor->isAncestorOf(part)))
        return false;
    switch (event->type()) {
    case QEvent::KeyPress:
        return handleKey(part, static_cast<QKeyEvent *>(event));
    case QEvent::Wheel:
        // An editor that is not being edited never takes the wheel: the grid scrolls.
        if (holdsFocus() && part->hasFocus())
            return false;
        m_grid->view()->scrollByWheel(static_cast<QWheelEvent *>(event));
        return true;
    default:
        return false;
    }
}

} // namespace kwFieldDeck
