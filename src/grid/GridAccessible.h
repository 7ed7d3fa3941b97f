#pragma once

#include <QAccessibleWidget>
#include <QHash>

namespace kwFieldDeck {

class GridView;

// What assistive tools see of the grid: a table with a row per field and two cells in each, the
// name cell and the value cell, whether or not the row is on screen. The live editor keeps its
// own accessible parts, named after the field.
class GridAccessible : public QAccessibleWidget, public QAccessibleTableInterface
{
public:
    explicit GridAccessible(GridView *view);
    ~GridAccessible() override;

    static QAccessibleInterface *create(const QString &className, QObject *object);

    void *interface_cast(QAccessible::InterfaceType type) override;
    int childCount() const override;
    QAccessibleInterface *child(int index) const override;
    int indexOfChild(const QAccessibleInterface *child) const override;

    QAccessibleInterface *caption() const override { return nullptr; }
    QAccessibleInterface *summary() const override { return nullptr; }
    QAccessibleInterface *cellAt(int row, int column) const override;
    int selectedCellCount() const override;
    QList<QAccessibleInterface *> selectedCells() const override;
    QString columnDescription(int column) const override;
    QString rowDescription(int row) const override;
    int selectedColumnCount() const override { return 0; }
    int selectedRowCount() const override;
    int columnCount() const override { return 2; }
    int rowCount() const override;
    QList<int> selectedColumns() const override { return {}; }
    QList<int> selectedRows() const override;
    bool isColumnSelected(int) const override { return false; }
    bool isRowSelected(int row) const override;
    bool selectRow(int row) override;
    bool selectColumn(int) override { return false; }
    bool unselectRow(int) override { return false; }
    bool unselectColumn(int) override { return false; }
    void modelChange(QAccessibleTableModelChangeEvent *) override { }

    GridView *view() const;

private:
    // Cells are made when asked for and kept, so that a tool sees the same cell each time.
    mutable QHash<int, QAccessible::Id> m_cells;
};

} // namespace kwFieldDeck
