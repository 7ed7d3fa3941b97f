#pragma once

#include "platform/Colors.h"
#include "platform/UserControl.h"

#include <QFont>
#include <QPointer>
#include <QString>
#include <QVector>

namespace kwFieldDeck {

class DatePicker;
class Field;
class Fields;
class PictureBox;
class TextBox;
class VScrollBar;
class kwComboField;
class kwFileSelectorField;
class kwFolderSelectorField;
class kwMemoField;
class kwSimpleCheck;
class kwSliderValue;

// The property grid: a scrollable two-column list of fields, names on the left and an editor
// for each field's type on the right. The rows sit on the canvas picInner, which moves inside
// the viewport picOuter beside the scroll bar VScroll1. Geometry is in twips.
class kwPropertyControl : public UserControl
{
    Q_OBJECT
    // 16-bit and single-precision properties are published as int and double: the types that
    // Designer's property editor offers.
    Q_PROPERTY(kwFieldDeck::Fields *Fields READ Fields)
    Q_PROPERTY(quint32 BackColor READ BackColor WRITE setBackColor)
    Q_PROPERTY(quint32 ForeColor READ ForeColor WRITE setForeColor)
    Q_PROPERTY(bool Enabled READ Enabled WRITE setEnabled)
    Q_PROPERTY(QFont Font READ Font WRITE setFont)
    Q_PROPERTY(int BackStyle READ BackStyle WRITE setBackStyle)
    Q_PROPERTY(int BorderStyle READ BorderStyle WRITE setBorderStyle)
    Q_PROPERTY(int ScaleMode READ ScaleMode WRITE setScaleMode)
    Q_PROPERTY(int Appearance READ Appearance WRITE setAppearance)
    Q_PROPERTY(quint32 FieldNameBackColor READ FieldNameBackColor WRITE setFieldNameBackColor)
    Q_PROPERTY(quint32 FieldNameForeColor READ FieldNameForeColor WRITE setFieldNameForeColor)
    Q_PROPERTY(QObject *DescriptionLabel READ DescriptionLabel WRITE setDescriptionLabel)
    Q_PROPERTY(QWidget *Parent READ Parent)
    Q_PROPERTY(QString AppPath READ AppPath WRITE setAppPath)
    Q_PROPERTY(double FieldNameWidth READ FieldNameWidth WRITE setFieldNameWidth)
    Q_PROPERTY(double RowHeight READ RowHeight WRITE setRowHeight)
    Q_PROPERTY(int FirstRow READ FirstRow WRITE setFirstRow)
public:
    explicit kwPropertyControl(QWidget *parent = nullptr);
    ~kwPropertyControl() override;

    // Frame, properties and persistence.
    kwFieldDeck::Fields *Fields();
    OleColor BackColor() const;
    void setBackColor(OleColor color);
    OleColor ForeColor() const { return m_ForeColor; }
    void setForeColor(OleColor color);
    bool Enabled() const { return m_Enabled; }
    // Hides QWidget::setEnabled on purpose: the grid's Enabled is only stored and saved, it
    // never disables the rows.
    void setEnabled(bool enabled);
    QFont Font() const { return m_Font; }
    // Hides QWidget::setFont on purpose: the grid's font also goes to the canvas and every field.
    void setFont(const QFont &font);
    qint16 BackStyle() const { return m_BackStyle; }
    void setBackStyle(qint16 style);
    qint16 BorderStyle() const { return m_BorderStyle; }
    void setBorderStyle(qint16 style);
    qint16 ScaleMode() const;
    void setScaleMode(qint16 mode);
    qint16 Appearance() const;
    void setAppearance(qint16 appearance);
    OleColor FieldNameBackColor() const { return m_FieldNameBackColor; }
    void setFieldNameBackColor(OleColor color);
    OleColor FieldNameForeColor() const { return m_FieldNameForeColor; }
    void setFieldNameForeColor(OleColor color);
    QObject *DescriptionLabel() const { return m_DescriptionLabel; }
    void setDescriptionLabel(QObject *label);
    QWidget *Parent() const;
    QString AppPath() const { return m_AppPath; }
    void setAppPath(const QString &path) { m_AppPath = path; }
    Q_INVOKABLE void SetFocus();

    // Row layout and scrolling.
    Q_INVOKABLE void Refresh(bool Redraw = false);
    float FieldNameWidth() const { return m_FieldNameWidth; }
    void setFieldNameWidth(float width);
    float RowHeight() const { return m_RowHeight; }
    void setRowHeight(float height);
    qint16 FirstRow() const { return m_FirstRow; }
    void setFirstRow(qint16 row);
    Q_INVOKABLE void AutoSizeFieldNameWidths();
    // What a layout gives the grid when its host sets no size: a name column, a value column
    // and a few rows at the current widths and row height (at least three rows).
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

    // Definition strings and files, and field values in the settings store.
    void ReadDef(const QString &DefString);
    Field *AddFieldByDefString(const QString &DefString);
    void LoadDefFile(const QString &FileName);
    void SaveValuesToRegistry(
        const QString &AppName, const QString &Section, const QString &Setting);
    void GetValuesFromRegistry(
        const QString &AppName, const QString &Section, const QString &Setting);

    // Library-internal members.
    PictureBox *InnerPicBox() const { return picInner; }
    PictureBox *OuterPicBox() const { return picOuter; }
    void RaiseChangedEvent(Field *oField);
    // Shows a field's description in the host's description label, when one is set.
    void ShowDescription(const QString &description);
    void CalcSlider();

    TextBox *AddField();
    TextBox *AddTextBox(Field *oField);
    TextBox *AddNumeric(Field *oField);
    DatePicker *AddDatePicker(Field *oField);
    kwSimpleCheck *AddCheckBox(Field *oField);
    kwComboField *AddComboBox(Field *oField);
    kwSliderValue *AddSliderValue(Field *oField);
    kwFileSelectorField *AddFileSelectorField(Field *oField);
    kwFolderSelectorField *AddFolderSelectorField(Field *oField);
    kwMemoField *AddMemoField(Field *oField);

signals:
    // Declared for hosts, never raised: input on the grid belongs to its rows. Intended.
    void Click();
    void DblClick();
    void KeyDown(int &KeyCode, int &Shift);
    void KeyPress(int &KeyAscii);
    void KeyUp(int &KeyCode, int &Shift);
    void MouseDown(int &Button, int &Shift, float &X, float &Y);
    void MouseMove(int &Button, int &Shift, float &X, float &Y);
    void MouseUp(int &Button, int &Shift, float &X, float &Y);
    // An edit of a field, in run mode only.
    void Changed(kwFieldDeck::Field *oField);

protected:
    void UserControl_InitProperties() override;
    void UserControl_ReadProperties(PropertyBag &PropBag) override;
    void UserControl_WriteProperties(PropertyBag &PropBag) const override;
    void UserControl_Resize() override;
    void UserControl_Paint() override;
    bool focusNextPrevChild(bool next) override;

private:
    void VScroll1_Change();
    void VScroll1_Scroll();
    void applyFont(const QFont &font);
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

    PictureBox *picOuter = nullptr;
    PictureBox *picInner = nullptr;
    VScrollBar *VScroll1 = nullptr;

    kwFieldDeck::Fields *m_Fields = nullptr;
    OleColor m_FieldNameBackColor = SystemColor::WindowBackground;
    OleColor m_FieldNameForeColor = SystemColor::WindowText;
    float m_RowHeight = 315;
    float m_FieldNameWidth = 750;
    OleColor m_ForeColor = 0;
    bool m_Enabled = false;
    QFont m_Font;
    qint16 m_BackStyle = 0;
    qint16 m_BorderStyle = 0;
    qint32 m_VisibleRowCount = 0;
    bool m_Busy = false;
    qint16 m_FirstRow = 0;
    QPointer<QObject> m_DescriptionLabel;
    QString m_AppPath;
    Field *m_LastAddedField = nullptr;
    // The rows in canvas order, and those shown now because they are near the viewport.
    QVector<Field *> m_RowOrder;
    bool m_RowOrderSorted = true;
    QVector<Field *> m_RowsShown;
    bool m_TabChainStale = false;
};

} // namespace kwFieldDeck
