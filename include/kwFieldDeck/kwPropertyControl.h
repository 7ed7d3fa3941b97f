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

    A host adds rows with Fields()->Add(), from a definition (ReadDef(), AddFieldByDefString())
    or from a definition file (LoadDefFile()); each new row is placed below the last one at
    once. Refresh(true) lays all rows out again and takes the new ones into the scroll range.
    The host hears of every edit through Changed, and keeps the values in the per-user settings
    store with SaveValuesToRegistry() and GetValuesFromRegistry().

    \code
    auto *grid = new kwFieldDeck::kwPropertyControl(window);
    grid->Fields()->Add("Port", kwFieldDeck::ftNumeric, 0, "8080", "The port to listen on");
    grid->ReadDef("ADDFIELD Verbose\r\nTYPE=CHECKBOX\r\nVALUE=1\r\nENDFIELD");
    grid->Refresh(true);
    QObject::connect(grid, &kwFieldDeck::kwPropertyControl::Changed, [](kwFieldDeck::Field *f) {
        qDebug() << f->Name() << f->Value();
    });
    \endcode

    Sizes are in twips: 1440 to the inch, 15 to a pixel on a 96 dpi screen. Colours are
    OleColor values. Rows are data that the grid paints, and only the row being edited has a
    live editor, so a grid of many thousands of rows builds and scrolls quickly; the scroll
    range is a 16-bit number, so a grid of more than about 32,000 rows reports an overflow
    (error 6) when it computes the range. A failure inside a call is reported through the error
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
    //! A flag that the grid only stores and saves; QWidget's `enabled` is the one that disables.
    Q_PROPERTY(bool Enabled READ storedEnabled WRITE setStoredEnabled DESIGNABLE false)
    //! The font of the name cells and editors: QWidget's `font` under the name saved forms use.
    Q_PROPERTY(QFont Font READ Font WRITE writeFont DESIGNABLE false)
    //! A back style that the grid only stores, as a number (see backStyle).
    Q_PROPERTY(int BackStyle READ BackStyle WRITE setBackStyle DESIGNABLE false)
    //! A border style that the grid only stores, as a number (see borderStyle).
    Q_PROPERTY(int BorderStyle READ BorderStyle WRITE setBorderStyle DESIGNABLE false)
    //! The coordinate unit, as a number (see scaleMode).
    Q_PROPERTY(int ScaleMode READ ScaleMode WRITE setScaleMode DESIGNABLE false)
    //! The viewport's border, as a number (see appearance).
    Q_PROPERTY(int Appearance READ Appearance WRITE setAppearance DESIGNABLE false)
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
    //! The width of the name column, in whole twips.
    Q_PROPERTY(int FieldNameWidth READ fieldNameWidthTwips WRITE setFieldNameWidth)
    //! The height of every row, in whole twips.
    Q_PROPERTY(int RowHeight READ rowHeightTwips WRITE setRowHeight)
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
    // The four codes by name, as Designer's property editor shows them; the numeric properties
    // above hold the same values for code, for saving and for forms saved before.
    //! BackStyle by name: a back style that the grid only stores.
    Q_PROPERTY(BackStyleCode backStyle READ BackStyle WRITE setBackStyle)
    //! BorderStyle by name: a border style that the grid only stores.
    Q_PROPERTY(BorderStyleCode borderStyle READ BorderStyle WRITE setBorderStyle)
    //! ScaleMode by name: the coordinate unit; the grid lays out in twips whatever it says.
    Q_PROPERTY(ScaleModeCode scaleMode READ ScaleMode WRITE setScaleMode)
    //! Appearance by name: the viewport's border, flat or sunken.
    Q_PROPERTY(AppearanceCode appearance READ Appearance WRITE setAppearance)
    //! The definition text whose fields the grid shows; Designer edits it as lines of text.
    Q_PROPERTY(QString definition READ definition WRITE setDefinition)
public:
    //! The codes of BackStyle(), which the grid only stores.
    enum BackStyleCode : int {
        Transparent = 0, //!< The default.
        Opaque = 1,
    };
    Q_ENUM(BackStyleCode)
    //! The codes of BorderStyle(), which the grid only stores.
    enum BorderStyleCode : int {
        NoBorder = 0, //!< The default.
        FixedSingle = 1, //!< A single line.
    };
    Q_ENUM(BorderStyleCode)
    //! The codes of ScaleMode(); every size of the grid is in twips whatever the code.
    enum ScaleModeCode : int {
        UserScale = 0, //!< Units of the host's own choosing.
        Twips = 1, //!< 1440 to the inch; the default and the grid's unit.
        Points = 2, //!< 72 to the inch.
        Pixels = 3, //!< Pixels of the screen.
        Characters = 4, //!< 120 twips across and 240 down.
        Inches = 5,
        Millimeters = 6,
        Centimeters = 7,
    };
    Q_ENUM(ScaleModeCode)
    //! The codes of Appearance().
    enum AppearanceCode : int {
        Flat = 0, //!< A flat viewport without a border.
        ThreeD = 1, //!< A sunken border round the viewport; the default.
    };
    Q_ENUM(AppearanceCode)

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
    /*!
        A flag the grid stores and saves as its `Enabled` property, without using it. Default
        false, on a grid that is enabled all the same. QWidget::setEnabled() and isEnabled() are
        the ones that enable and disable the grid and its rows, as for every widget.
    */
    bool storedEnabled() const;
    //! Stores the flag; nothing on screen changes.
    void setStoredEnabled(bool enabled);
    /*!
        The font of the name cells and editors, which is the widget's font(). Default the font of
        the grid's parent when the grid was made (the application's font without a parent).
        QWidget::setFont(), a font that the grid's parent passes on, or the `Font` property
        changes it for every row and the rows to come.
    */
    QFont Font() const;
    //! A back style the grid stores and saves. Default Transparent.
    BackStyleCode BackStyle() const;
    //! Stores a back style (any number, not only the named codes).
    void setBackStyle(qint16 style);
    //! A border style the grid stores and saves. Default NoBorder.
    BorderStyleCode BorderStyle() const;
    //! Stores a border style (any number, not only the named codes).
    void setBorderStyle(qint16 style);
    //! The coordinate unit. Default Twips, the unit every size of the grid is in.
    ScaleModeCode ScaleMode() const;
    //! Stores a coordinate unit; the grid keeps laying out in twips, and its next repaint sets
    //! the unit back to 1.
    void setScaleMode(qint16 mode);
    //! The viewport's border: Flat or ThreeD (sunken, the default).
    AppearanceCode Appearance() const;
    //! Sets the viewport's border: 0 flat, 1 sunken; another value is reported as error 380.
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
    //! Gives the grid the keyboard focus, then calls Field::SetFocus() of the first field. A grid
    //! with no field reports error 9.
    Q_INVOKABLE void SetFocus();

    /*!
        Sets the scroll bar's range from the rows of the last full layout (a 16-bit number: more
        than about 32,767 rows are reported as an overflow, error 6). With \a Redraw true
        it first lays the rows out again: one below the other in the order of Fields, hidden
        rows left out, each name cell FieldNameWidth() wide and RowHeight() high with its editor
        beside it. Only the rows added since the last layout are placed, unless rows were shown,
        hidden or removed, or the sizes changed; no widget is touched. Without \a Redraw only
        the range is set, and the rows stay where they are.

        The grid lays itself out when it is resized, by setFieldNameWidth(),
        AutoSizeFieldNameWidths() and Fields::Clear(). Call Refresh(true) after adding rows (they
        are placed, but enter the scroll range only here), after showing or hiding rows, after
        Fields::Remove() and after setRowHeight().
    */
    Q_INVOKABLE void Refresh(bool Redraw = false);
    //! The width of the name column, in twips. Default 750.
    float FieldNameWidth() const;
    /*!
        Sets the width of the name column, in twips, and lays the rows out again. A width that,
        with the scroll bar's, is more than the grid's width is ignored without a report.
    */
    void setFieldNameWidth(float width);
    //! The height of every row, in twips. Default 315.
    float RowHeight() const;
    //! Sets the height of every row, in twips. Scrolling uses it at once; the rows take it at
    //! the next Refresh(true), and editors made before keep their heights.
    void setRowHeight(float height);
    //! FieldNameWidth() rounded to whole twips, as the `FieldNameWidth` property shows it.
    int fieldNameWidthTwips() const;
    //! RowHeight() rounded to whole twips, as the `RowHeight` property shows it.
    int rowHeightTwips() const;
    //! The row at the top of the view, counted from 0: a 16-bit number, as the scroll range is.
    qint16 FirstRow() const;
    //! Scrolls so that \a row (counted from 0) is at the top of the view. The row is not
    //! checked against the rows there are, and the scroll bar keeps its position until the user
    //! moves it.
    void setFirstRow(qint16 row);
    //! Makes the name column 1.2 times as wide as the widest name in the grid's font (hidden
    //! fields count; 0 with no field) and lays the rows out again. The grid's width is not
    //! checked, unlike in setFieldNameWidth().
    Q_INVOKABLE void AutoSizeFieldNameWidths();
    //! A name column, a value column and eight rows at the current widths and row height.
    QSize sizeHint() const override;
    //! Three rows and a value column half as wide as in sizeHint().
    QSize minimumSizeHint() const override;

    /*!
        Adds the fields of the definition \a DefString, one per block, in order, each with
        Fields::Add(). The text is read line by line, lines separated by CR LF:

        \code
        FIELDNAMEWIDTH=1800
        ADDFIELD Size
        TYPE=COMBO
        VALUE=2
        ADDCOMBOITEMS
        1=Small
        2=Medium
        ENDCOMBOITEMS
        ENDFIELD
        \endcode

        A block runs from `ADDFIELD name` to `ENDFIELD`, with `KEY=value` lines between (TYPE,
        VALUE, DESCRIPTION, SIZE, MIN, MAX, ENABLED, TITLE, INITDIR, FILTER, DB, TABLE, LISTFIELD,
        VALUEFIELD) and a drop-down's entries between `ADDCOMBOITEMS` and `ENDCOMBOITEMS`;
        `FIELDNAMEWIDTH=` and `ROWHEIGHT=` outside a block store those sizes without laying the
        rows out. Keywords are read in any letter case, every value but VALUE and DESCRIPTION
        upper-cased, the blanks around a line and every tab ignored, and lines that mean nothing
        skipped.
        `DESCRIPTION=` (this library's addition) gives the field its help text, its letter case
        kept as VALUE's is. A field's VALUE is given before its MIN and MAX, so a slider's VALUE
        is kept within 0 to 10. The main page's \ref definition-language "definition language"
        lists every key.

        A block without a name or TYPE ("No FieldName or Type Defined!") or with an unknown
        TYPE (titled "Invalid Field Type") is shown in a message box and stays open, so the
        lines that follow are read as further keys of it; a drop-down whose database file,
        TABLE or LISTFIELD is missing is shown too and stays without entries. Reading goes on
        after each message. Other failures, such as an ADDFIELD line without a name, end the
        reading with an error report; the fields added until then stay.
    */
    void ReadDef(const QString &DefString);
    /*!
        Reads \a DefString as ReadDef() does, once the blanks around its lines and its empty
        lines are dropped, and returns the field that was added last, or null when no block
        added one (a duplicate name in the last block among them).
    */
    Field *AddFieldByDefString(const QString &DefString);
    /*!
        Adds the fields of the definition file \a FileName: a first line
        `Property Control Definition File` (in any letter case, nothing else on the line), then
        a definition as ReadDef() reads it, with CR LF line ends; a relative DB in it is looked
        for beside the file first. The rows are not laid out again.

        A file that does not exist shows the message "Can't Open kwProperty Control Definition
        file." with its name, and is then reported as error 9, as an empty file is. A file with
        another first line (a file with bare LF line ends among them) shows that message with
        "File Format Does not Match!" and adds nothing.
    */
    void LoadDefFile(const QString &FileName);
    //! The text last given to setDefinition(), as it was given; empty at first.
    QString definition() const;
    /*!
        Shows the fields of the definition text \a text, the `definition` property that Designer
        edits and a `.ui` file keeps: the fields that the previous text added are taken out
        (Fields::Remove()), \a text is read with ReadDef(), its lines separated by LF or CR LF,
        and the rows are laid out again. Fields added in any other way stay as they are. The
        messages and reports are those of ReadDef(); a row that a duplicate name left on the
        grid stays there (see Fields::Add()).
    */
    void setDefinition(const QString &text);
    /*!
        Saves the values of all fields as one text in the per-user settings store, under the
        application \a AppName, the section \a Section and the key \a Setting: a line
        `Name=Value` for each field in the order of Fields, lines separated by CR LF, a CR LF
        inside a value written as "%CRLF%". The store keeps one INI file per application name,
        `kwFieldDeck/<AppName>.ini` in the user's configuration folder.

        Blanks around the three names are ignored; an empty one shows "AppName is not
        optional!" (or "Section ...", "Setting ...") in a message box and nothing is saved. A
        file that cannot be written is reported as error 75, and the previous file stays whole.
    */
    void SaveValuesToRegistry(
        const QString &AppName, const QString &Section, const QString &Setting);
    /*!
        Reads the text that SaveValuesToRegistry() stored under \a AppName, \a Section and
        \a Setting, and gives each field it names the value stored for it with
        Field::setValue(), which converts it for the field's type and raises Changed as a
        host's write does. A stored name that no field has is reported as error 5 and skipped;
        fields that the text does not name keep their values. Empty names show the messages of
        SaveValuesToRegistry() and change nothing.
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
    //! Declared for hosts that connect to it; never raised, since input belongs to the rows.
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
        The value of the field \a oField changed. Raised after the field's own Field::Changed,
        once for each change the field's editor reports: every edit of the user (each keystroke
        in a text box, each step of a slider) and every write of the host that changes what the
        editor shows (Field::setValue(), and through it Fields::Add(), ReadDef() and
        GetValuesFromRegistry(); see Field::setValue()). A drop-down field also raises it when
        its box receives the focus. Raised in run mode only (see ambientUserMode()).
    */
    void Changed(kwFieldDeck::Field *oField);

protected:
    //! Moves the focus through the rows; the row the focus goes to is made ready first.
    bool focusNextPrevChild(bool next) override;
    //! Passes a new font on to every row.
    void changeEvent(QEvent *event) override;

private:
    // The Font property's writer: QWidget::setFont() under the name that saved forms use.
    void writeFont(const QFont &font);
    Q_DECLARE_PRIVATE(kwPropertyControl)
    const std::unique_ptr<kwPropertyControlPrivate> d_ptr;
};

} // namespace kwFieldDeck
