// Drop-down rows: the list box cbo, whose value is the selected entry's number or its text.

#include "editors/FieldKinds_p.h"

#include "editors/RowPainter.h"
#include "editors/kwComboField.h"
#include "runtime/Twips.h"
#include "runtime/Values.h"

#include <algorithm>

namespace kwFieldDeck {

QString ComboKind::comboValue(const EditorState &state)
{
    if (!state.useItemData)
        return shownText(state);
    return state.listIndex >= 0 ? QString::number(state.entries.at(state.listIndex).itemData)
                                : QString();
}

QString ComboKind::shownText(const EditorState &state)
{
    return state.listIndex >= 0 ? state.entries.at(state.listIndex).text : QString();
}

void ComboKind::create(EditorState &state, const QVariant &value) const
{
    Changes ignored;
    select(textOf(value), state, ignored);
}

// The first entry that matches the value is selected, which the box reports as a pick even
// when it was selected already; with none, the selection stays.
bool ComboKind::select(const QString &value, EditorState &state, Changes &changes)
{
    state.comboValue = value;
    qsizetype found = -1;
    if (state.useItemData) {
        const double wanted = leadingNumber(value);
        for (qsizetype i = 0; i < state.entries.size() && found < 0; ++i) {
            if (double(state.entries.at(i).itemData) == wanted)
                found = i;
        }
    } else {
        const QString wanted = value.toUpper();
        for (qsizetype i = 0; i < state.entries.size() && found < 0; ++i) {
            if (state.entries.at(i).text.toUpper() == wanted)
                found = i;
        }
    }
    if (found < 0)
        return false;
    state.listIndex = qint16(found);
    state.comboValue = comboValue(state);
    changes << textValue(comboValue(state));
    return true;
}

void ComboKind::showValue(QVariant &stored, EditorState &state, Changes &changes) const
{
    select(textOf(stored), state, changes);
}

QVariant ComboKind::reportedValue(const EditorState &state) const
{
    return textValue(comboValue(state));
}

QString ComboKind::valueText(const EditorState &state) const
{
    return shownText(state);
}

void ComboKind::paint(const EditorPaint &paint, const EditorState &state) const
{
    RowPainter::surface(paint.painter, paint.rect, paint.palette);
    const int top = twipsToPixelsY(15);
    const QRect box(paint.rect.left(), paint.rect.top() + top,
        std::max(0, paint.rect.width() - twipsToPixelsX(20)),
        std::max(0, std::min(RowPainter::comboBoxHeight(paint.font), paint.rect.height() - top)));
    RowPainter::comboBox(paint.painter, paint.widget, box, shownText(state), paint.palette,
        paint.font, paint.enabled);
}

QWidget *ComboKind::createEditor(QWidget *parent, EditorEvents *events) const
{
    auto *combo = new kwComboField(parent);
    combo->setObjectName(QStringLiteral("kwComboField"));
    QObject::connect(combo, &kwComboField::Change, combo, [events] { events->editorChanged(); });
    QObject::connect(combo, &kwComboField::HasFocus, combo, [events] { events->editorFocused(); });
    return combo;
}

void ComboKind::UpdateControl(QWidget *editor, const EditorState &state) const
{
    auto *combo = static_cast<kwComboField *>(editor);
    bool same = combo->cbo->count() == state.entries.size()
        && combo->cbo->currentIndex() == state.listIndex;
    for (qsizetype i = 0; same && i < state.entries.size(); ++i)
        same = combo->cbo->itemText(int(i)) == state.entries.at(i).text;
    if (!same)
        combo->showEntries(state.entries, state.listIndex);
}

// A pick: the box's value follows the entry, read without checking that one is selected.
void ComboKind::GetValueFromControl(QWidget *editor, EditorState &state) const
{
    const int index = static_cast<kwComboField *>(editor)->cbo->currentIndex();
    state.listIndex = qint16(index);
    if (index >= 0)
        state.comboValue = comboValue(state);
}

} // namespace kwFieldDeck
