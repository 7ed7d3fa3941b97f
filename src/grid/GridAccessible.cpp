#include "grid/GridAccessible.h"

#include "editors/FieldKind.h"
#include "fieldmodel/Field_p.h"
#include "fieldmodel/Fields_p.h"
#include "grid/GridView.h"
#include "grid/kwPropertyControl_p.h"

namespace kwFieldDeck {

namespace {
// One cell of the table: a row's name cell (column 0) or its value cell (column 1).
class GridCellAccessible : public QAccessibleInterface, public QAccessibleTableCellInterface
{
public:
    GridCellAccessible(GridAccessible *table, Field *field, int row, int column)
        : m_table(table)
        , m_field(field)
        , m_row(row)
        , m_column(column)
    {
    }

    bool isValid() const override { return m_field && m_table->view(); }
    QObject *object() const override { return nullptr; }
    QWindow *window() const override { return m_table->window(); }
    QAccessibleInterface *parent() const override { return m_table; }
    QAccessibleInterface *child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface *) const override { return -1; }
    QAccessibleInterface *childAt(int, int) const override { return nullptr; }
    QAccessible::Role role() const override { return QAccessible::Cell; }
    void setText(QAccessible::Text, const QString &) override { }

    QString text(QAccessible::Text t) const override
    {
        if (!m_field)
            return QString();
        switch (t) {
        case QAccessible::Name:
            return m_field->Name();
        case QAccessible::Description:
            return m_field->Description();
        case QAccessible::Value: {
            if (m_column == 0)
                return QString();
            const FieldPrivate *row = FieldPrivate::get(m_field);
            const FieldKind *kind = row->shownKind();
            return kind ? kind->valueText(row->m_editor) : QString();
        }
        default:
            return QString();
        }
    }

    QAccessible::State state() const override
    {
        QAccessible::State state;
        if (!m_field)
            return state;
        const FieldPrivate *row = FieldPrivate::get(m_field);
        const FieldKind *kind = row->shownKind();
        // A check box row's box stays enabled whatever the row says: intended.
        const bool boxKeepsEnabled = m_column == 1 && kind && !kind->appliesEnabled();
        state.disabled = !m_table->view()->isEnabled() || (!m_field->Enabled() && !boxKeepsEnabled);
        state.invisible = !m_field->Visible();
        state.offscreen = !rect().intersects(m_table->rect());
        if (m_column == 1 && m_field->FieldType() == ftCheckBox) {
            state.checkable = true;
            state.checked = row->m_editor.check == 1;
        }
        state.selected = m_table->isRowSelected(m_row);
        return state;
    }

    QRect rect() const override
    {
        GridView *view = m_table->view();
        const qsizetype at = FieldPrivate::get(m_field)->m_row;
        if (!view || at < 0)
            return QRect();
        const QRect local = m_column == 0 ? view->nameCellRect(at) : view->editorRect(at);
        return QRect(view->mapToGlobal(local.topLeft()), local.size());
    }

    void *interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::TableCellInterface
            ? static_cast<QAccessibleTableCellInterface *>(this)
            : nullptr;
    }

    bool isSelected() const override { return m_table->isRowSelected(m_row); }
    QList<QAccessibleInterface *> columnHeaderCells() const override { return {}; }
    QList<QAccessibleInterface *> rowHeaderCells() const override { return {}; }
    int columnIndex() const override { return m_column; }
    int rowIndex() const override { return m_row; }
    int columnExtent() const override { return 1; }
    int rowExtent() const override { return 1; }
    QAccessibleInterface *table() const override { return m_table; }

private:
    GridAccessible *m_table;
    QPointer<Field> m_field;
    int m_row;
    int m_column;
};

const KeyedCollection<Field> &fieldsOf(const GridView *view)
{
    return FieldsPrivate::get(view->grid()->Fields())->m_fields;
}
} // namespace

GridAccessible::GridAccessible(GridView *view)
    : QAccessibleWidget(view, QAccessible::Table)
{
}

GridAccessible::~GridAccessible()
{
    for (QAccessible::Id id : std::as_const(m_cells))
        QAccessible::deleteAccessibleInterface(id);
}

QAccessibleInterface *GridAccessible::create(const QString &className, QObject *object)
{
    if (className != QLatin1String("kwFieldDeck::GridView"))
        return nullptr;
    return new GridAccessible(static_cast<GridView *>(object));
}

GridView *GridAccessible::view() const
{
    return static_cast<GridView *>(widget());
}

void *GridAccessible::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::TableInterface)
        return static_cast<QAccessibleTableInterface *>(this);
    return QAccessibleWidget::interface_cast(type);
}

int GridAccessible::rowCount() const
{
    return fieldsOf(view()).count();
}

int GridAccessible::childCount() const
{
    return 2 * rowCount();
}

QAccessibleInterface *GridAccessible::cellAt(int row, int column) const
{
    if (row < 0 || row >= rowCount() || column < 0 || column > 1)
        return nullptr;
    Field *field = fieldsOf(view()).at(row);
    const int index = 2 * row + column;
    if (QAccessible::Id id = m_cells.value(index)) {
        auto *cell = static_cast<GridCellAccessible *>(QAccessible::accessibleInterface(id));
        if (cell && cell->isValid() && cell->text(QAccessible::Name) == field->Name())
            return cell;
        QAccessible::deleteAccessibleInterface(id);
    }
    auto *cell = new GridCellAccessible(const_cast<GridAccessible *>(this), field, row, column);
    m_cells.insert(index, QAccessible::registerAccessibleInterface(cell));
    return cell;
}

QAccessibleInterface *GridAccessible::child(int index) const
{
    return cellAt(index / 2, index % 2);
}

int GridAccessible::indexOfChild(const QAccessibleInterface *child) const
{
    if (const auto *cell = const_cast<QAccessibleInterface *>(child)->tableCellInterface())
        return 2 * cell->rowIndex() + cell->columnIndex();
    return -1;
}

QString GridAccessible::columnDescription(int column) const
{
    return column == 0 ? QStringLiteral("Name") : QStringLiteral("Value");
}

QString GridAccessible::rowDescription(int row) const
{
    return row >= 0 && row < rowCount() ? fieldsOf(view()).at(row)->Description() : QString();
}

// The current row, the one whose name cell is highlighted, is the selected one.
bool GridAccessible::isRowSelected(int row) const
{
    return row >= 0 && row < rowCount()
        && fieldsOf(view()).at(row) == kwPropertyControlPrivate::get(view()->grid())->highlighted();
}

QList<int> GridAccessible::selectedRows() const
{
    Field *current = kwPropertyControlPrivate::get(view()->grid())->highlighted();
    const KeyedCollection<Field> &fields = fieldsOf(view());
    for (int row = 0; current && row < fields.count(); ++row) {
        if (fields.at(row) == current)
            return { row };
    }
    return {};
}

int GridAccessible::selectedRowCount() const
{
    return int(selectedRows().size());
}

int GridAccessible::selectedCellCount() const
{
    return 2 * selectedRowCount();
}

QList<QAccessibleInterface *> GridAccessible::selectedCells() const
{
    QList<QAccessibleInterface *> cells;
    for (int row : selectedRows())
        cells << cellAt(row, 0) << cellAt(row, 1);
    return cells;
}

// Selecting a row makes it current, as a click on its name does.
bool GridAccessible::selectRow(int row)
{
    if (row < 0 || row >= rowCount())
        return false;
    FieldPrivate::get(fieldsOf(view()).at(row))->m_FieldNameControl_GotFocus();
    return true;
}

} // namespace kwFieldDeck
