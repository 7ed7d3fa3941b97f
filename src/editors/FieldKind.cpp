#include "editors/FieldKinds_p.h"

#include <QWidget>

#include <kwFieldDeck/lFieldTypes.h>

namespace kwFieldDeck {

const FieldKind *FieldKind::of(qint32 type)
{
    static const TextKind text(false,
        { "Function 'AddTextBox' of User Control 'kwPropertyControl'",
            "Sub 'm_ValueTextBox_Change' of Class Module 'Field'" });
    static const TextKind numeric(true,
        { "Function 'AddNumeric' of User Control 'kwPropertyControl'",
            "Sub 'm_ValueNumeric_Change' of Class Module 'Field'" });
    static const CheckKind check({ "Function 'AddCheckBox' of User Control 'kwPropertyControl'",
        "Sub 'm_ValueCheckBox_Click' of Class Module 'Field'" });
    static const ComboKind combo({ "Function 'AddComboBox' of User Control 'kwPropertyControl'",
        "Sub 'm_ValueComboBox_Change' of Class Module 'Field'" });
    static const DateKind date({ "Function 'AddDatePicker' of User Control 'kwPropertyControl'",
        "Sub 'm_ValueDate_Change' of Class Module 'Field'" });
    static const SliderKind slider(
        { "Function 'AddSliderValue' of User Control 'kwPropertyControl'",
            "Sub 'm_SliderValue_Change' of Class Module 'Field'" });
    static const BrowseKind file(BrowseKind::Browse::File,
        { "Function 'AddFileSelectorField' of User Control 'kwPropertyControl'",
            "Sub 'm_FileSelector_Change' of Class Module 'Field'" });
    static const BrowseKind folder(BrowseKind::Browse::Folder,
        { "Function 'AddFolderSelectorField' of User Control 'kwPropertyControl'",
            "Sub 'm_FolderSelector_Change' of Class Module 'Field'" });
    static const BrowseKind memo(BrowseKind::Browse::Memo,
        { "Function 'AddMemoField' of User Control 'kwPropertyControl'",
            "Sub 'm_Memo_Change' of Class Module 'Field'" });
    static const FieldKind *const kinds[]
        = { &text, &numeric, &check, &combo, &date, &slider, &file, &folder, &memo };
    return type >= ftText && type <= ftMemo ? kinds[type - ftText] : nullptr;
}

// The editor itself when it takes the focus, else its first part that does.
QWidget *FieldKind::focusTarget(QWidget *editor) const
{
    if (editor->focusPolicy() != Qt::NoFocus)
        return editor;
    for (QWidget *part : editor->findChildren<QWidget *>(Qt::FindDirectChildrenOnly)) {
        if (part->focusPolicy() != Qt::NoFocus)
            return part;
    }
    return editor;
}

} // namespace kwFieldDeck
