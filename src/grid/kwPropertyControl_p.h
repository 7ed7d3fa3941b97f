#pragma once

#include <kwFieldDeck/kwPropertyControl.h>

#include "fieldmodel/FieldHost.h"
#include "grid/RowEditor.h"
#include "runtime/Colors.h"

#include <QFont>
#include <QPointer>
#include <QSizeF>
#include <QString>
#include <QVector>

class QScrollBar;

namespace kwFieldDeck {

class GridView;

// A name cell of the grid and the editor beside it, in twips on the canvas. A field has one
// from when its type is set; a field whose type is set again gets another, and the first stays
// where it was (intended), as do the rows of removed fields, hidden.
struct CanvasRow
{
    Field *field = nullptr;
    float top = 0;
    float height = 0;
    float width = 0;
    float editorLeft = 0;
    float editorWidth = 0;
    float editorHeight = 0;
};

// The grid's state and its workings. The rows are data, painted by the viewport picOuter with
// the style; the canvas they lie on is scrolled by the scroll bar VScroll1, and the row with
// the focus has a live editor (RowEditor). Geometry is in twips.
class kwPropertyControlPrivate : public QObject, public FieldHost
{
    Q_OBJECT
public:
    Q_DECLARE_PUBLIC(kwPropertyControl)

    explicit kwPropertyControlPrivate(kwPropertyControl *grid);
    ~kwPropertyControlPrivate() override;

    static kwPropertyControlPrivate *get(kwPropertyControl *grid) { return grid->d_func(); }
    static const kwPropertyControlPrivate *get(const kwPropertyControl *grid)
    {
        return grid->d_func();
    }

    // The properties behind the public accessors.
    kwFieldDeck::Fields *Fields() const { return m_Fields; }
    OleColor BackColor() const { return m_BackColor; }
    void setBackColor(OleColor color);
    QFont Font() const override { return m_Font; }
    // The widget's font changed (QWidget::setFont, the parent, the Font property).
    void widgetFontChanged();
    qint16 Appearance() const { return m_Appearance; }
    void setAppearance(qint16 appearance);
    OleColor FieldNameBackColor() const { return m_FieldNameBackColor; }
    void setFieldNameBackColor(OleColor color);
    OleColor FieldNameForeColor() const { return m_FieldNameForeColor; }
    void setFieldNameForeColor(OleColor color);
    void SetFocus();
    void Refresh(bool Redraw) override;
    void setFieldNameWidth(float width);
    void setRowHeight(float height);
    void setFirstRow(qint16 row);
    void AutoSizeFieldNameWidths();
    QSize sizeHint() const;
    QSize minimumSizeHint() const;
    void ReadDef(const QString &DefString);
    Field *AddFieldByDefString(const QString &DefString);
    void LoadDefFile(const QString &FileName);
    void setDefinition(const QString &text);
    void SaveValuesToRegistry(
        const QString &AppName, const QString &Section, const QString &Setting);
    void GetValuesFromRegistry(
        const QString &AppName, const QString &Section, const QString &Setting);
    void CalcSlider();

    // What the fields ask of their grid.
    void AddField(Field *oField) override;
    void rowChanged(Field *oField) override;
    void rowShownOrHidden(Field *oField) override;
    void FocusRowEditor(Field *oField) override;
    void ScrollIntoView(Field *oField) override;
    void setHighlighted(Field *oField) override;
    void ShowDescription(const QString &description) override;
    void RaiseChangedEvent(Field *oField) override;

    // The view's side.
    QScrollBar *scrollBar() const { return VScroll1; }
    GridView *view() const { return picOuter; }
    RowEditor &rowEditor() { return m_rowEditor; }
    const QVector<CanvasRow> &canvasRows() const { return m_canvas; }
    // The canvas row that is the field's current name cell, or -1.
    qsizetype rowOf(const Field *field) const;
    // The row at a height of the canvas, in twips, or -1; and the rows that lie between two
    // heights, in the order they are painted.
    qsizetype rowAt(float canvasY) const;
    QVector<qsizetype> rowsBetween(float top, float bottom) const;
    // Where the canvas lies in the viewport: its top, in twips (0 or less when scrolled).
    float canvasTop() const { return m_canvasTop; }
    // How far down the laid-out rows reach, in twips.
    float canvasHeight() const { return m_canvasHeight; }
    float pitch() const { return m_RowHeight - SharedBorder; }
    Field *highlighted() const { return m_highlighted; }
    // The rows that Tab, Up, Down and the page keys move through: visible rows with an editor,
    // in the order of the canvas.
    Field *neighbourRow(Field *from, int steps) const;
    Field *firstOrLastRow(bool last) const;
    int rowsPerPage() const;
    // The colours that the canvas and every idle editor start from.
    QPalette canvasPalette() const;

    // The colours of a new grid, also what a reset gives back and what a save leaves out.
    static constexpr OleColor DefaultBackColor = SystemColor::ButtonFace;
    static constexpr OleColor DefaultForeColor = 0;
    static constexpr OleColor DefaultFieldNameBackColor = SystemColor::WindowBackground;
    static constexpr OleColor DefaultFieldNameForeColor = SystemColor::WindowText;
    // Adjacent rows share one border line of 15 twips; editors overlap the name column by 25.
    static constexpr float SharedBorder = 15;
    static constexpr float EditorOverlap = 25;
    QColor screenColor(OleColor color) const;
    static OleColor oleColorOr(const QColor &color, OleColor fallback);

    OleColor m_BackColor = DefaultBackColor;
    OleColor m_FieldNameBackColor = DefaultFieldNameBackColor;
    OleColor m_FieldNameForeColor = DefaultFieldNameForeColor;
    float m_RowHeight = 315;
    float m_FieldNameWidth = 750;
    OleColor m_ForeColor = DefaultForeColor;
    bool m_Enabled = false;
    QFont m_Font;
    qint16 m_BackStyle = 0;
    qint16 m_BorderStyle = 0;
    qint16 m_Appearance = 1;
    qint16 m_FirstRow = 0;
    QPointer<QObject> m_DescriptionLabel;
    QString m_AppPath;
    // The definition property's text and the fields it added.
    QString m_Definition;
    QVector<QPointer<Field>> m_DefinitionFields;

    // Whether the host runs rather than designs (Designer designs): Changed is raised in run
    // mode only.
    bool m_userMode = true;
    qint16 m_ScaleMode = 1;

    // A new grid's properties.
    void UserControl_InitProperties();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

public:
    bool focusNextPrevChild(bool next);

private:
    // The grid's size changed; the viewport was painted.
    void UserControl_Resize();
    void UserControl_Paint();
    float outerWidth() const;
    float outerHeight() const;
    void VScroll1_Change();
    void VScroll1_Scroll();
    void applyFont();
    void applyColors();
    void applyAppearance(qint16 appearance);
    void moveCanvas(float top);
    float TopOfNewRow() const;
    float viewportWidth() const;
    float viewportHeight() const;
    float EditorWidth(float margin) const;
    QSize SizeForRows(int rows, float valueWidth) const;
    void layRow(CanvasRow &row, float top);
    void CleanDefString(QString &DefString);

    kwPropertyControl *q_ptr;
    GridView *picOuter = nullptr;
    QScrollBar *VScroll1 = nullptr;
    RowEditor m_rowEditor;

    kwFieldDeck::Fields *m_Fields = nullptr;
    QVector<CanvasRow> m_canvas;
    // The rows laid out by the last full layout, in canvas order, and whether anything since
    // (a row shown or hidden, removed, retyped, a new row height) calls for a new one; rows
    // added since are laid out after them.
    QVector<qsizetype> m_laidRows;
    qsizetype m_laidUpTo = 0;
    int m_laidFieldCount = 0;
    // Where the next laid-out row goes: below the last one of the layout.
    float m_laidBottom = 0;
    bool m_layoutStale = false;
    bool m_paintPending = false;
    QSizeF m_viewportSize;
    float m_canvasTop = 0;
    float m_canvasHeight = 0;
    qint32 m_VisibleRowCount = 0;
    bool m_Busy = false;
    Field *m_LastAddedField = nullptr;
    Field *m_highlighted = nullptr;
};

} // namespace kwFieldDeck
