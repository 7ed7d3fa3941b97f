#pragma once

#include "runtime/Colors.h"

#include <QFont>
#include <QString>

namespace kwFieldDeck {

class Field;

// What the fields ask of the grid they are rows of; the grid implements it. A field has its
// name cell placed, its row painted and brought into view, the focus put in its editor, its
// description shown and its edits announced; the collection takes the grid's font and name-cell
// colours and has the rows laid out.
class FieldHost
{
public:
    // Places a name cell for the field below the last row.
    virtual void AddField(Field *oField) = 0;
    // The row's look or state changed: it is painted again, and its live editor shows it.
    virtual void rowChanged(Field *oField) = 0;
    // The row was shown or hidden: the rows are laid out again at the next full layout.
    virtual void rowShownOrHidden(Field *oField) = 0;
    // Puts the focus in the row's editor, unless the editor holds it already.
    virtual void FocusRowEditor(Field *oField) = 0;
    // Scrolls row by row until the field's row is wholly in view.
    virtual void ScrollIntoView(Field *oField) = 0;
    // Gives the field's name cell the highlight, or with null takes it from every name cell.
    virtual void setHighlighted(Field *oField) = 0;
    // Shows a field's description in the host's description label, when one is set.
    virtual void ShowDescription(const QString &description) = 0;
    // Raises the grid's Changed for an edit of the field, in run mode only.
    virtual void RaiseChangedEvent(Field *oField) = 0;

    virtual QFont Font() const = 0;
    virtual void Refresh(bool Redraw) = 0;

protected:
    ~FieldHost() = default;
};

} // namespace kwFieldDeck
