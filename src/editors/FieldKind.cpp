#include "editors/FieldKinds_p.h"

#include <QWidget>

#include <kwFieldDeck/lFieldTypes.h>

namespace kwFieldDeck {

const FieldKind *FieldKind::of(qint32 type)
{
    static const TextKind text(false);
    static const TextKind numeric(true);
    static const CheckKind check;
    static const ComboKind combo;
    static const DateKind date;
    static const SliderKind slider;
    static const BrowseKind file(BrowseKind::Browse::File);
    static const BrowseKind folder(BrowseKind::Browse::Folder);
    static const BrowseKind memo(BrowseKind::Browse::Memo);
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
