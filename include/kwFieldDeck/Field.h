#pragma once

#include <kwFieldDeck/lFieldTypes.h>

#include <QObject>
#include <QVariant>

#include <memory>

/*!
    \file Field.h
    \brief One row of the grid.
*/

namespace kwFieldDeck {

class DropDownValues;
class FieldPrivate;

/*!
    \brief One row of the grid: a name, a type, a value, limits and look, shown as a name cell
    and an editor that suits the type.

    Fields are made by Fields::Add() (or a definition), never by a host's `new`: the grid makes
    the row's cells together with the field. The field keeps its value current while the user
    edits, and every change its editor reports (an edit of the user, or a setValue() that
    changes what the editor shows) raises Changed here and kwPropertyControl::Changed on the
    grid.

    A property that does not apply to the field's type is stored or ignored as each one says. A
    failure inside a call (such as a missing editor) is reported through the error report (see
    setErrorReportHandler()), and the call returns an empty result.
*/
class KWFIELDDECK_EXPORT Field : public QObject
{
    Q_OBJECT
    //! The name shown in the name cell and used as the field's key in Fields.
    Q_PROPERTY(QString Name READ Name WRITE setName)
    //! The text shown as the name cell's tool tip and in the host's description label.
    Q_PROPERTY(QString Description READ Description WRITE setDescription)
    //! The most characters a text field takes; 0 for no limit.
    Q_PROPERTY(qint32 Size READ Size WRITE setSize)
    //! The type that decides the editor; set once.
    Q_PROPERTY(kwFieldDeck::lFieldTypes FieldType READ FieldType WRITE setFieldType)
    //! The value; Value() says what each type holds.
    Q_PROPERTY(QVariant Value READ Value WRITE setValue NOTIFY Changed)
    //! The lower limit of a slider or date field.
    Q_PROPERTY(QVariant Min READ Min WRITE setMin)
    //! The upper limit of a slider or date field.
    Q_PROPERTY(QVariant Max READ Max WRITE setMax)
    //! Whether the user can edit the field.
    Q_PROPERTY(bool Enabled READ Enabled WRITE setEnabled)
    //! Whether the row is shown.
    Q_PROPERTY(bool Visible READ Visible WRITE setVisible)
    //! The editor's text colour, as an OleColor.
    Q_PROPERTY(quint32 ForeColor READ ForeColor WRITE setForeColor)
    //! The editor's background colour, as an OleColor.
    Q_PROPERTY(quint32 BackColor READ BackColor WRITE setBackColor)
    //! The folder a file or folder field's dialog opens in.
    Q_PROPERTY(QString InitDir READ InitDir WRITE setInitDir)
    //! The title of a file or folder field's dialog.
    Q_PROPERTY(QString Title READ Title WRITE setTitle)
    //! The file types a file field's dialog offers.
    Q_PROPERTY(QString Filter READ Filter WRITE setFilter)
    //! The entries of a drop-down field.
    Q_PROPERTY(kwFieldDeck::DropDownValues *DropDownValues READ DropDownValues CONSTANT)
public:
    //! A field of no grid, a child of \a parent. Fields::Add() makes fields with their rows; a
    //! field made here has none, and setting its name or type reports error 91.
    explicit Field(QObject *parent = nullptr);
    ~Field() override;

    //! The field's name.
    QString Name() const;
    /*!
        Sets the name that the name cell shows. The field stays under the key it was added
        with in Fields.
    */
    void setName(const QString &name);
    //! The field's description.
    QString Description() const;
    //! Sets the description: the name cell's tool tip, and what the grid's description label
    //! shows while the row has the focus.
    void setDescription(const QString &description);
    //! The most characters a text field takes; 0 for no limit.
    qint32 Size() const;
    //! Sets the most characters the user can type into a text field (other types only store
    //! it). A longer value set by the host is kept whole.
    void setSize(qint32 size);
    //! The field's type; 0 before it is set.
    lFieldTypes FieldType() const;
    /*!
        Sets the type, which makes the row: a name cell and the editor for \a type. A field's
        type is meant to be set once: setting it again shows the message "Field:<name>",
        "Can't Change Field Type once it has already been set!" and, when \a type differs,
        then makes a second name cell and editor; the first ones stay on the grid. A value that
        is no lFieldTypes gives a row with a name cell and no editor.
    */
    void setFieldType(lFieldTypes type);

    /*!
        The value. A drop-down field reads it from its editor. While
        DropDownValues::UseComboItemData() is true, that is the chosen entry's key as a number
        in text form ("0" for a key that does not start with a number, empty with no entry
        chosen), or the entry's text when a definition gave the entries without keys; otherwise
        it is the chosen entry's text.

        A file or folder field's value is the path last chosen in its dialog or given to
        setValue(); text the user types into the row's box is shown, but is not the value.

        The other types give the value last stored. setValue() stores what it is given; an
        edit of the user, or a setValue() that changed what the editor shows, stores the
        editor's value: text for text, file, folder and memo fields, a double for a number
        field, 1 or 0 (a qint16) for a check box, a QDate for a date field, an int for a slider.
        An object given to setValue() is returned as it is, by every type.
    */
    QVariant Value() const;
    /*!
        Stores \a value and shows it in the editor, in the editor's own form. A text field shows
        a text, number or date (another kind, such as a boolean, is stored only); a number field
        shows the number at the start of the value's text, 0 when there is none; a check box is
        ticked by "True" (then stored as "1") or by a value whose text starts with a number
        other than 0; a drop-down selects the entry whose key, read as a number, equals the
        value read as a number (when a definition gave entries without keys: the entry whose
        text is the value, in any letter case); a date field shows a date or a text that reads
        as one (another value is stored only, and a date outside Min() and Max() is reported as
        error 380); a slider takes the number, rounded to a whole one and kept within its range
        (0 to 10 until setMin() or setMax() is called, so set the limits first).

        When this changes what the editor shows, the editor's value replaces the stored one
        (see Value()), and Changed and kwPropertyControl::Changed are raised as for an edit of
        the user. A drop-down raises them whenever an entry matches, also the one already
        chosen; a memo field, whose row shows only a placeholder, never raises them here.
    */
    void setValue(const QVariant &value);

    //! The lower limit.
    QVariant Min() const;
    //! Stores the lower limit and passes it to a slider (as a whole number) or a date field
    //! (when it is a date). An enabled text field takes the keyboard focus instead, which moves
    //! the focus away from wherever it was. Default 0.
    void setMin(const QVariant &min);
    //! The upper limit. Default 100, which a new slider does not take: its range is 0 to 10
    //! until setMin() or setMax() is called.
    QVariant Max() const;
    //! Stores the upper limit and passes it to a slider (as a whole number) or a date field; a
    //! date field takes it only when Min() is a date.
    void setMax(const QVariant &max);

    //! Whether the user can edit the field. Default true.
    bool Enabled() const;
    /*!
        Enables or disables the row's name cell and its editor, except a check box: its box
        keeps taking clicks, and only the setting is stored. To lock a check box row, disable
        the grid (QWidget::setEnabled()) or take the row out.
    */
    void setEnabled(bool enabled);
    //! Whether the row is shown. Default true.
    bool Visible() const;
    /*!
        Shows or hides the name cell and the editor. The rows below keep their places until the
        grid is laid out again (kwPropertyControl::Refresh(true)).
    */
    void setVisible(bool visible);
    //! The editor's text colour. Default black.
    OleColor ForeColor() const;
    //! Sets the editor's text colour; a date field only stores it.
    void setForeColor(OleColor color);
    //! The editor's background colour. Default white.
    OleColor BackColor() const;
    //! Sets the editor's background colour; a date field only stores it.
    void setBackColor(OleColor color);

    //! The folder a file or folder field's dialog opens in; empty for other types.
    QString InitDir() const;
    //! Sets the folder a file or folder field's dialog opens in; other types ignore it.
    void setInitDir(const QString &dir);
    //! The title of a file or folder field's dialog; empty for other types.
    QString Title() const;
    //! Sets the title of a file or folder field's dialog; other types ignore it.
    void setTitle(const QString &title);
    /*!
        The file types a file field's dialog offers, as pairs of description and patterns
        separated by bars: "Text files (*.txt)|*.txt|All files|*.*". Other types report error
        91 and return empty text.
    */
    QString Filter() const;
    //! Sets the file types of a file field's dialog; other types report error 91.
    void setFilter(const QString &filter);

    //! The entries of a drop-down field; made when first asked for.
    kwFieldDeck::DropDownValues *DropDownValues() const;

    //! Puts the keyboard focus into the field's editor. A slider field, and a disabled text or
    //! number field, keep the focus where it is.
    Q_INVOKABLE void SetFocus();

signals:
    //! The editor reported a change: an edit of the user, or a setValue() that changed what the
    //! editor shows. \a Value is the new value; kwPropertyControl::Changed follows.
    void Changed(const QVariant &Value);

private:
    friend class FieldPrivate;
    Q_DECLARE_PRIVATE(Field)
    const std::unique_ptr<FieldPrivate> d_ptr;
};

} // namespace kwFieldDeck
