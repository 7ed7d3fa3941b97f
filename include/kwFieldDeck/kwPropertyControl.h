#pragma once

#include <kwFieldDeck/Global.h>

#include <QColor>
#include <QFont>
#include <QString>
#include <QWidget>

#include <memory>

/*!
    \file kwPropertyControl.h
    \brief The property grid.
*/

namespace kwFieldDeck {

class Field;
class Fields;
class kwPropertyControlPrivate;

/*!
    \brief The property grid: a scrollable two-column list of named settings, names on the left
    and on the right an editor that suits each field's type.

    A host adds rows with Fields()->Add(), with a definition string (ReadDef(),
    AddFieldByDefString()) or from a definition file (LoadDefFile()), lays them out with
    Refresh(), hears of every edit through Changed, and keeps the values in the per-user
    settings store with SaveValuesToRegistry() and GetValuesFromRegistry().

    \code
    auto *grid = new kwFieldDeck::kwPropertyControl(window);
    grid->Fields()->Add("Port", kwFieldDeck::ftNumeric, 0, "8080", "The port to listen on");
    grid->ReadDef("{Name=Verbose}{Type=CHECKBOX}{Value=1}");
    grid->Refresh();
    QObject::connect(grid, &kwFieldDeck::kwPropertyControl::Changed,
                     [](kwFieldDeck::Field *field) { qDebug() << field->Name() << field->Value();
   }); \endcode

    Sizes are in twips: 1440 to the inch, 15 to a pixel on a 96 dpi screen. Colours are
    OleColor values. Rows are data until they come near the view, so a grid of many thousands
    of rows builds and scrolls quickly. A failure inside a call is reported through the error
    report (see setErrorReportHandler()) and the call ends normally with an empty result;
    messages meant for the user (such as a definition file's faults) are shown in message boxes
    (see setMessageBoxHandler()).
*/
class KWFIELDDECK_EXPORT kwPropertyControl : public QWidget
{
    Q_OBJECT
    //! The grid's fields.
    Q_PROPERTY(kwFieldDeck::Fields *Fields READ Fields)
    //! The colour behind the rows, as an OleColor.
    Q_PROPERTY(quint32 BackColor READ BackColor WRITE setBackColor DESIGNABLE false)
    //! A text colour that the grid only stores, as an OleColor.
    Q_PROPERTY(quint32 ForeColor READ ForeColor WRITE setForeColor DESIGNABLE false)
    //! A flag that the grid only stores and saves; the rows stay enabled.
    Q_PROPERTY(bool Enabled READ Enabled WRITE setEnabled)
    //! The font of the name cells and editors.
    Q_PROPERTY(QFont Font READ Font WRITE setFont)
    //! A back style that the grid only stores (0 transparent, 1 opaque).
    Q_PROPERTY(int BackStyle READ BackStyle WRITE setBackStyle)
    //! A border style that the grid only stores (0 none, 1 single).
    Q_PROPERTY(int BorderStyle READ BorderStyle WRITE setBorderStyle)
    //! The coordinate unit; 1 (twips) is the only one the grid lays out in.
    Q_PROPERTY(int ScaleMode READ ScaleMode WRITE setScaleMode)
    //! The viewport's border: 0 flat, 1 sunken.
    Q_PROPERTY(int Appearance READ Appearance WRITE setAppearance)
    //! The background of the name cells, as an OleColor.
    Q_PROPERTY(quint32 FieldNameBackColor READ FieldNameBackColor WRITE setFieldNameBackColor
            DESIGNABLE false)
    //! The text colour of the name cells, as an OleColor.
    Q_PROPERTY(quint32 FieldNameForeColor READ FieldNameForeColor WRITE setFieldNameForeColor
            DESIGNABLE false)
    //! The object that shows the description of the row with the focus.
    Q_PROPERTY(
        QObject *DescriptionLabel READ DescriptionLabel WRITE setDescriptionLabel DESIGNABLE false)
    //! The window the grid is on.
    Q_PROPERTY(QWidget *Parent READ Parent)
    //! A folder the host keeps with the grid; the grid only stores it.
    Q_PROPERTY(QString AppPath READ AppPath WRITE setAppPath)
    //! The width of the name column, in twips.
    Q_PROPERTY(double FieldNameWidth READ FieldNameWidth WRITE setFieldNameWidth)
    //! The height of every row, in twips.
    Q_PROPERTY(double RowHeight READ RowHeight WRITE setRowHeight)
    //! The row at the top of the view, counted from 0.
    Q_PROPERTY(int FirstRow READ FirstRow WRITE setFirstRow)
    //! Whether the host runs (true) or designs a form (false); only a running grid raises Changed.
    Q_PROPERTY(bool ambientUserMode READ ambientUserMode WRITE setAmbientUserMode DESIGNABLE false)
    // The four colours as Designer's colour editor shows them; the OleColor properties above
    // hold the same values for code and for saving.
    //! The colour behind the rows as it shows on screen; reset gives back the button face.
    Q_PROPERTY(QColor backgroundColor READ backgroundColor WRITE setBackgroundColor RESET
            resetBackgroundColor)
    //! The stored text colour as a QColor; reset gives back black.
    Q_PROPERTY(QColor foregroundColor READ foregroundColor WRITE setForegroundColor RESET
            resetForegroundColor)
    //! The background of the name cells as it shows on screen; reset gives back the window colour.
    Q_PROPERTY(QColor fieldNameBackgroundColor READ fieldNameBackgroundColor WRITE
            setFieldNameBackgroundColor RESET resetFieldNameBackgroundColor)
    //! The text colour of the name cells as it shows on screen; reset gives back the window text.
    Q_PROPERTY(QColor fieldNameForegroundColor READ fieldNameForegroundColor WRITE
            setFieldNameForegroundColor RESET resetFieldNameForegroundColor)
public:
    //! An empty grid, a child of \a parent, with the properties of a new instance.
    explicit kwPropertyControl(QWidget *parent = nullptr);
    ~kwPropertyControl() override;

    //! The grid's fields, in order and by name.
    kwFieldDeck::Fields *Fields();
    //! The colour behind the rows. Default the button face (`0x8000000F`).
    OleColor BackColor() const;
    //! Sets the colour behind the rows.
    void setBackColor(OleColor color);
    //! A text colour the grid stores and saves, without using it. Default 0.
    OleColor ForeColor() const;
    //! Stores a text colour.
    void setForeColor(OleColor color);
    //! A flag the grid stores and saves, without using it. Default false.
    bool Enabled() const;
    /*!
        Stores the flag. This hides QWidget::setEnabled() on purpose: the grid's Enabled never
        disables the rows; use Field::setEnabled() for that.
    */
    void setEnabled(bool enabled);
    //! The font of the name cells and editors. Default the font of the grid's parent.
    QFont Font() const;
    //! Sets the font of the grid and of every row. This hides QWidget::setFont() on purpose.
    void setFont(const QFont &font);
    //! A back style the grid stores and saves (0 transparent, 1 opaque). Default 0.
    qint16 BackStyle() const;
    //! Stores a back style.
    void setBackStyle(qint16 style);
    //! A border style the grid stores and saves (0 none, 1 single). Default 0.
    qint16 BorderStyle() const;
    //! Stores a border style.
    void setBorderStyle(qint16 style);
    //! The coordinate unit. Default 1, twips, the unit every size of the grid is in.
    qint16 ScaleMode() const;
    //! Sets the coordinate unit; the grid keeps laying out in twips.
    void setScaleMode(qint16 mode);
    //! The viewport's border: 0 flat, 1 sunken (the default).
    qint16 Appearance() const;
    //! Sets the viewport's border: 0 flat, 1 sunken.
    void setAppearance(qint16 appearance);
    //! The background of the name cells. Default the window background (`0x80000005`).
    OleColor FieldNameBackColor() const;
    //! Sets the background of every name cell, also of the rows to come.
    void setFieldNameBackColor(OleColor color);
    //! The text colour of the name cells. Default the window text (`0x80000008`).
    OleColor FieldNameForeColor() const;
    //! Sets the text colour of every name cell, also of the rows to come.
    void setFieldNameForeColor(OleColor color);
    //! The object that shows the description of the row with the focus, or null.
    QObject *DescriptionLabel() const;
    /*!
        Sets the object that shows the description of the row with the focus: its "Caption"
        property is set when it has one, else its "text" (a QLabel). The grid does not own it.
    */
    void setDescriptionLabel(QObject *label);
    //! The window the grid is on.
    QWidget *Parent() const;
    //! A folder the host keeps with the grid; the grid only stores it.
    QString AppPath() const;
    //! Stores a folder for the host.
    void setAppPath(const QString &path);
    //! Whether the host runs (true, the default) or designs a form (false).
    bool ambientUserMode() const;
    //! Tells the grid whether its host runs; a grid on a form being designed raises no Changed.
    void setAmbientUserMode(bool userMode);
    //! Puts the keyboard focus into the first field's editor; a grid with no field reports error 9.
    Q_INVOKABLE void SetFocus();

    /*!
        Lays the rows out again: one below the other in the order of Fields, hidden rows left
        out, each name cell FieldNameWidth() wide and each row RowHeight() high, and sets the
        scroll bar's range. \a Redraw is accepted and not needed: the grid repaints by itself.
    */
    Q_INVOKABLE void Refresh(bool Redraw = false);
    //! The width of the name column, in twips. Default 750.
    float FieldNameWidth() const;
    /*!
        Sets the width of the name column, in twips, and lays the rows out again. A width that
        leaves no room for the scroll bar is refused.
    */
    void setFieldNameWidth(float width);
    //! The height of every row, in twips. Default 315.
    float RowHeight() const;
    //! Sets the height of every row, in twips, and lays the rows out again.
    void setRowHeight(float height);
    //! The row at the top of the view, counted from 0.
    qint16 FirstRow() const;
    //! Scrolls so that \a row (counted from 0) is at the top of the view, as far as it goes.
    void setFirstRow(qint16 row);
    //! Makes the name column just wide enough for the longest name.
    Q_INVOKABLE void AutoSizeFieldNameWidths();
    //! A name column, a value column and eight rows at the current widths and row height.
    QSize sizeHint() const override;
    //! Room for three rows.
    QSize minimumSizeHint() const override;

    /*!
        Adds the fields of a definition string: blocks of `{Key=Value}` pairs (Name, Type,
        Size, Value, Description, Min, Max, Filter, InitDir, Title, Items, ...), a new block at
        each Name. A fault in a block (an unknown type, a bad number) is shown in a message box
        and the block's field is left as far as it got; the other blocks are read on.
    */
    void ReadDef(const QString &DefString);
    //! Adds the one field of a definition string (as ReadDef() reads it) and returns it, or null.
    Field *AddFieldByDefString(const QString &DefString);
    /*!
        Adds the fields of the definition file \a FileName (text as ReadDef() reads it, over
        any number of lines) and lays the grid out. A file that cannot be read shows a message
        and adds nothing.
    */
    void LoadDefFile(const QString &FileName);
    /*!
        Saves every field's value in the per-user settings store (QSettings), under the
        application \a AppName and the group \a Section, as \a Setting followed by the field's
        name. A store that cannot be written is reported (see setErrorReportHandler()); no
        stored value is lost.
    */
    void SaveValuesToRegistry(
        const QString &AppName, const QString &Section, const QString &Setting);
    /*!
        Gives every field the value stored by SaveValuesToRegistry() under the same names; a
        field with no stored value keeps its value. Like any write of a value it raises Changed.
    */
    void GetValuesFromRegistry(
        const QString &AppName, const QString &Section, const QString &Setting);

    /*!
        The colour behind the rows as it shows on screen: BackColor() with a system colour
        looked up in the application's palette (the button colour by default).
    */
    QColor backgroundColor() const;
    /*!
        Sets the colour behind the rows to \a color, kept as an explicit OleColor in
        BackColor(); the alpha channel is dropped. An invalid \a color restores the default, as
        resetBackgroundColor() does.
    */
    void setBackgroundColor(const QColor &color);
    //! Gives the rows the system button face (`0x8000000F`) behind them again.
    void resetBackgroundColor();
    //! The text colour that the grid stores, ForeColor(), as a QColor. Default black.
    QColor foregroundColor() const;
    /*!
        Stores \a color as an explicit OleColor in ForeColor(); the alpha channel is dropped and
        nothing is repainted. An invalid \a color restores the default, black.
    */
    void setForegroundColor(const QColor &color);
    //! Stores the default text colour again: 0, black.
    void resetForegroundColor();
    /*!
        The background of the name cells as it shows on screen: FieldNameBackColor() with a
        system colour looked up in the application's palette (the base colour of text entry
        widgets by default).
    */
    QColor fieldNameBackgroundColor() const;
    /*!
        Sets the background of every name cell, also of the rows to come, to \a color, kept as an
        explicit OleColor in FieldNameBackColor(); the alpha channel is dropped. An invalid
        \a color restores the default, as resetFieldNameBackgroundColor() does.
    */
    void setFieldNameBackgroundColor(const QColor &color);
    //! Gives the name cells the system window background (`0x80000005`) again.
    void resetFieldNameBackgroundColor();
    /*!
        The text colour of the name cells as it shows on screen: FieldNameForeColor() with a
        system colour looked up in the application's palette (its text colour by default).
    */
    QColor fieldNameForegroundColor() const;
    /*!
        Sets the text colour of every name cell, also of the rows to come, to \a color, kept as an
        explicit OleColor in FieldNameForeColor(); the alpha channel is dropped. An invalid
        \a color restores the default, as resetFieldNameForegroundColor() does.
    */
    void setFieldNameForegroundColor(const QColor &color);
    //! Gives the name cells the system window text colour (`0x80000008`) again.
    void resetFieldNameForegroundColor();

signals:
    //! Declared for hosts of the original control; never raised, since input belongs to the rows.
    void Click();
    //! Declared for hosts; never raised.
    void DblClick();
    //! Declared for hosts; never raised.
    void KeyDown(int &KeyCode, int &Shift);
    //! Declared for hosts; never raised.
    void KeyPress(int &KeyAscii);
    //! Declared for hosts; never raised.
    void KeyUp(int &KeyCode, int &Shift);
    //! Declared for hosts; never raised.
    void MouseDown(int &Button, int &Shift, float &X, float &Y);
    //! Declared for hosts; never raised.
    void MouseMove(int &Button, int &Shift, float &X, float &Y);
    //! Declared for hosts; never raised.
    void MouseUp(int &Button, int &Shift, float &X, float &Y);
    /*!
        A field's value changed, by the user's edit or by the host's write (Field::setValue(),
        GetValuesFromRegistry()); \a oField is the field. Raised in run mode only (see
        ambientUserMode()), after the field's own Field::Changed.
    */
    void Changed(kwFieldDeck::Field *oField);

protected:
    //! Moves the focus through the rows; the row the focus goes to is made ready first.
    bool focusNextPrevChild(bool next) override;

private:
    Q_DECLARE_PRIVATE(kwPropertyControl)
    const std::unique_ptr<kwPropertyControlPrivate> d_ptr;
};

} // namespace kwFieldDeck
