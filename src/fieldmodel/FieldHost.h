#pragma once

#include "platform/Colors.h"

#include <QFont>
#include <QString>

namespace kwFieldDeck {

class DatePicker;
class Field;
class TextBox;
class kwComboField;
class kwFileSelectorField;
class kwFolderSelectorField;
class kwMemoField;
class kwSimpleCheck;
class kwSliderValue;

// What the fields ask of the grid they are rows of; the grid implements it. A field has its
// name cell and editor made, brings its row into view, shows its description and announces its
// edits; the collection takes the grid's font and name-cell colours and has the rows laid out.
class FieldHost
{
public:
    virtual TextBox *AddField() = 0;
    virtual TextBox *AddTextBox(Field *oField) = 0;
    virtual TextBox *AddNumeric(Field *oField) = 0;
    virtual DatePicker *AddDatePicker(Field *oField) = 0;
    virtual kwSimpleCheck *AddCheckBox(Field *oField) = 0;
    virtual kwComboField *AddComboBox(Field *oField) = 0;
    virtual kwSliderValue *AddSliderValue(Field *oField) = 0;
    virtual kwFileSelectorField *AddFileSelectorField(Field *oField) = 0;
    virtual kwFolderSelectorField *AddFolderSelectorField(Field *oField) = 0;
    virtual kwMemoField *AddMemoField(Field *oField) = 0;

    // Scrolls row by row until the row of this name cell is wholly in view.
    virtual void ScrollIntoView(const TextBox *label) = 0;
    // Shows a field's description in the host's description label, when one is set.
    virtual void ShowDescription(const QString &description) = 0;
    // Raises the grid's Changed for an edit of the field, in run mode only.
    virtual void RaiseChangedEvent(Field *oField) = 0;

    virtual QFont Font() const = 0;
    virtual OleColor FieldNameBackColor() const = 0;
    virtual OleColor FieldNameForeColor() const = 0;
    virtual void Refresh(bool Redraw) = 0;

protected:
    ~FieldHost() = default;
};

} // namespace kwFieldDeck
