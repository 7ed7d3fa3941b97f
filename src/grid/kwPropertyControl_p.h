#pragma once

#include <kwFieldDeck/kwPropertyControl.h>

#include "fieldmodel/FieldHost.h"
#include "platform/Colors.h"
#include "platform/UserControl.h"

#include <QFont>
#include <QPointer>
#include <QString>
#include <QVector>

namespace kwFieldDeck {

class Control;
class PictureBox;
class VScrollBar;

// The grid's state and its workings: the rows sit on the canvas picInner, which moves inside
// the viewport picOuter beside the scroll bar VScroll1, all on the grid's widget (the surface).
// Geometry is in twips.
class kwPropertyControlPrivate : public UserControl, public FieldHost
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
    OleColor BackColor() const;
    void setBackColor(OleColor color);
    void setForeColor(OleColor color);
    void setStoredEnabled(bool enabled);
    QFont Font() const override { return m_Font; }
    // The widget's font changed (QWidget::setFont, the parent, the Font property).
    void widgetFontChanged();
    void setBackStyle(qint16 style);
    void setBorderStyle(qint16 style);
    qint16 ScaleMode() const;
    void setScaleMode(qint16 mode);
    qint16 Appearance() const;
    void setAppearance(qint16 appearance);
    OleColor FieldNameBackColor() const override { return m_FieldNameBackColor; }
    void setFieldNameBackColor(OleColor color);
    OleColor FieldNameForeColor() const override { return m_FieldNameForeColor; }
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
    void RealizeNextRow(bool next);

    PictureBox *InnerPicBox() const { return picInner; }
    PictureBox *OuterPicBox() const { return picOuter; }
    void CalcSlider();

    // What the fields ask of their grid.
    TextBox *AddField() override;
    TextBox *AddTextBox(Field *oField) override;
    TextBox *AddNumeric(Field *oField) override;
    DatePicker *AddDatePicker(Field *oField) override;
    kwSimpleCheck *AddCheckBox(Field *oField) override;
    kwComboField *AddComboBox(Field *oField) override;
    kwSliderValue *AddSliderValue(Field *oField) override;
    kwFileSelectorField *AddFileSelectorField(Field *oField) override;
    kwFolderSelectorField *AddFolderSelectorField(Field *oField) override;
    kwMemoField *AddMemoField(Field *oField) override;
    void ScrollIntoView(const TextBox *label) override;
    void ShowDescription(const QString &description) override;
    void RaiseChangedEvent(Field *oField) override;

    // The colours of a new grid, also what a reset gives back and what a save leaves out.
    static constexpr OleColor DefaultBackColor = SystemColor::ButtonFace;
    static constexpr OleColor DefaultForeColor = 0;
    static constexpr OleColor DefaultFieldNameBackColor = SystemColor::WindowBackground;
    static constexpr OleColor DefaultFieldNameForeColor = SystemColor::WindowText;
    QColor screenColor(OleColor color) const;
    static OleColor oleColorOr(const QColor &color, OleColor fallback);

    OleColor m_FieldNameBackColor = DefaultFieldNameBackColor;
    OleColor m_FieldNameForeColor = DefaultFieldNameForeColor;
    float m_RowHeight = 315;
    float m_FieldNameWidth = 750;
    OleColor m_ForeColor = DefaultForeColor;
    bool m_Enabled = false;
    QFont m_Font;
    qint16 m_BackStyle = 0;
    qint16 m_BorderStyle = 0;
    qint16 m_FirstRow = 0;
    QPointer<QObject> m_DescriptionLabel;
    QString m_AppPath;
    // The definition property's text and the fields it added.
    QString m_Definition;
    QVector<QPointer<Field>> m_DefinitionFields;

protected:
    void UserControl_InitProperties() override;
    void UserControl_ReadProperties(PropertyBag &PropBag) override;
    void UserControl_WriteProperties(PropertyBag &PropBag) const override;
    void UserControl_Resize() override;
    void UserControl_Paint() override;

private:
    void VScroll1_Change();
    void VScroll1_Scroll();
    void applyFont();
    float TopOfNewRow();
    float EditorWidth(float margin) const;
    QSize SizeForRows(int rows, float valueWidth) const;
    TextBox *addTextEditor(const QString &kind, Field *oField);
    Control *addLibraryEditor(const QString &className, Field *oField);
    void EnterRow(Field *oField, Control *editor);
    void ShowRowsInView();
    float ViewReach() const;
    bool IsNearView(const Control *label) const;
    void stackRow(Field *field, const Control *nextRow);
    void ChainRows();
    qsizetype RowIndex(Field *field) const;
    void CleanDefString(QString &DefString);

    kwPropertyControl *q_ptr;
    PictureBox *picOuter = nullptr;
    PictureBox *picInner = nullptr;
    VScrollBar *VScroll1 = nullptr;

    kwFieldDeck::Fields *m_Fields = nullptr;
    qint32 m_VisibleRowCount = 0;
    bool m_Busy = false;
    Field *m_LastAddedField = nullptr;
    // The rows in canvas order, and those shown now because they are near the viewport.
    QVector<Field *> m_RowOrder;
    bool m_RowOrderSorted = true;
    QVector<Field *> m_RowsShown;
    bool m_TabChainStale = false;
};

} // namespace kwFieldDeck
