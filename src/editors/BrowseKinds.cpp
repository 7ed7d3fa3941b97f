// File, folder and memo rows: the box Text1 and the "..." button btnBrowse. A file or folder
// row's value is the path the dialog gave, shown fitted to the box; text typed into the box is
// not the value (intended). A memo row shows a placeholder and keeps its text apart.

#include "editors/FieldKinds_p.h"

#include "editors/RowPainter.h"
#include "editors/kwBrowseField.h"
#include "editors/kwTextBox.h"
#include "editors/memo/ModalShow.h"
#include "editors/memo/frmMemo.h"
#include "runtime/FileDialogs.h"
#include "runtime/FileSystem.h"
#include "runtime/FitPath.h"
#include "runtime/Twips.h"
#include "runtime/Values.h"

#include <algorithm>

namespace kwFieldDeck {

namespace {
const QString MemoPlaceholder = QStringLiteral("(Text)");
constexpr double ButtonSide = 255;
constexpr double ButtonGap = 20;
constexpr double BoxTop = 15;
// What the box's text was set to, to tell it from what the user typed since.
const char *const ShownProperty = "kwShown";
} // namespace

BrowseKind::BrowseKind(Browse browse, Sources sources)
    : FieldKind(sources)
    , m_browse(browse)
{
}

// The value's text in the box: a path as it is (fitted only where it is shown), a memo's
// placeholder. Whether the box's text changed is what the editor reports.
bool BrowseKind::setPath(EditorState &state, const QString &path) const
{
    state.tag = path;
    const QString text = m_browse == Browse::Memo ? MemoPlaceholder : path;
    if (text == state.text)
        return false;
    state.text = text;
    return true;
}

void BrowseKind::create(EditorState &state, const QVariant &value) const
{
    if (m_browse == Browse::File) {
        state.title = QStringLiteral("Select A File From Below");
        state.initDir = QStringLiteral("C:\\");
        state.filter = QStringLiteral("All Files (*.*)|*.*");
    }
    setPath(state, textOf(value));
}

void BrowseKind::showValue(QVariant &stored, EditorState &state, Changes &changes) const
{
    if (setPath(state, textOf(stored)))
        changes << reportedValue(state);
}

QVariant BrowseKind::reportedValue(const EditorState &state) const
{
    return textValue(state.tag);
}

QString BrowseKind::valueText(const EditorState &state) const
{
    return state.tag;
}

// A path is fitted to the box's width less 5 pixels, in the row's font; a memo shows its
// placeholder, and text the user typed shows as typed.
QString BrowseKind::shownText(const EditorState &state, const QFont &font, int boxWidth) const
{
    if (m_browse == Browse::Memo || state.text != state.tag)
        return state.text;
    return FitPath(font, boxWidth - 5, state.text);
}

// The box shows the editor's text colour, and a folder's box its back colour too.
void BrowseKind::applyColors(QPalette &palette, const EditorState &state) const
{
    if (!state.colorsSet)
        return;
    const QColor back = toQColor(state.backColor, palette);
    const QColor fore = toQColor(state.foreColor, palette);
    for (QPalette::ColorGroup group : { QPalette::Active, QPalette::Inactive }) {
        palette.setColor(group, QPalette::Text, fore);
        if (m_browse == Browse::Folder)
            palette.setColor(group, QPalette::Base, back);
    }
}

namespace {
QRect boxRect(const QRect &editor)
{
    const int top = twipsToPixelsY(BoxTop);
    return QRect(editor.left(), editor.top() + top,
        std::max(0, editor.width() - twipsToPixelsX(ButtonSide + ButtonGap)),
        std::max(0, editor.height() - top));
}
} // namespace

void BrowseKind::paint(const EditorPaint &paint, const EditorState &state) const
{
    RowPainter::surface(paint.painter, paint.rect, paint.palette);
    const QRect box = boxRect(paint.rect);
    RowPainter::lineEdit(paint.painter, paint.widget, box,
        shownText(state, paint.font, box.width()), paint.palette, paint.font, paint.enabled,
        RowPainter::Frame::Styled);
    const int side = twipsToPixelsX(ButtonSide);
    RowPainter::button(paint.painter, paint.widget,
        QRect(paint.rect.right() + 1 - side, paint.rect.top(), side, twipsToPixelsY(ButtonSide)),
        QStringLiteral("..."), paint.palette, paint.font, paint.enabled);
}

QWidget *BrowseKind::createEditor(QWidget *parent, EditorEvents *events) const
{
    auto *field = new kwBrowseField(
        m_browse == Browse::Memo ? kwBrowseField::Box::Memo : kwBrowseField::Box::Path, parent);
    switch (m_browse) {
    case Browse::File:
        field->setObjectName(QStringLiteral("kwFileSelectorField"));
        break;
    case Browse::Folder:
        field->setObjectName(QStringLiteral("kwFolderSelectorField"));
        break;
    case Browse::Memo:
        field->setObjectName(QStringLiteral("kwMemoField"));
        break;
    }
    QObject::connect(field, &kwBrowseField::Change, field, [events] { events->editorChanged(); });
    QObject::connect(field, &kwBrowseField::HasFocus, field, [events] { events->editorFocused(); });
    QObject::connect(
        field, &kwBrowseField::Browse, field, [this, field, events] { browse(field, events); });
    return field;
}

void BrowseKind::UpdateControl(QWidget *editor, const EditorState &state) const
{
    kwTextBox *box = static_cast<kwBrowseField *>(editor)->Text1;
    // The box's width follows from the editor's, which is set before the box is laid out.
    const QString shown = shownText(state, editor->font(), boxRect(editor->rect()).width());
    box->setProperty(ShownProperty, shown);
    if (box->text() != shown)
        box->showText(shown);
}

void BrowseKind::GetValueFromControl(QWidget *editor, EditorState &state) const
{
    const kwTextBox *box = static_cast<kwBrowseField *>(editor)->Text1;
    if (box->text() != box->property(ShownProperty).toString())
        state.text = box->text();
}

void BrowseKind::browse(QWidget *editor, EditorEvents *events) const
{
    EditorState &state = events->state();
    QString chosen;
    switch (m_browse) {
    case Browse::File:
        chosen = chooseFile(state);
        break;
    case Browse::Folder:
        chosen = chooseFolder(editor, state);
        break;
    case Browse::Memo:
        // The window has no cancel: the text it holds when it closes is the new value, and the
        // change is reported even though the placeholder stays. Intended.
        setPath(state, editMemo(editor, events));
        UpdateControl(editor, state);
        events->editorChanged();
        return;
    }
    // A cancelled dialog changes nothing.
    if (chosen.isEmpty())
        return;
    const bool changed = setPath(state, chosen);
    UpdateControl(editor, state);
    if (changed)
        events->editorChanged();
}

QString BrowseKind::chooseFile(const EditorState &state) const
{
    const QString &path = state.tag;
    if (path.isEmpty())
        return OpenFileDialog(QString(), state.initDir, state.title, state.filter, 0);
    // Either separator ends the folder part: paths here may be written either way.
    const QString name = path.mid(std::max(path.lastIndexOf(u'\\'), path.lastIndexOf(u'/')) + 1);
    const QString folder = FileSystem::GetParentFolderName(path);
    if (FileSystem::FileExists(path) && FileSystem::FolderExists(folder))
        return OpenFileDialog(name, folder, state.title, state.filter, 0);
    return OpenFileDialog(name, state.initDir, state.title, state.filter, 0);
}

// The shown text, not the value: a shortened path names no folder, so the dialog then starts in
// InitDir. Intended.
QString BrowseKind::chooseFolder(QWidget *editor, const EditorState &state) const
{
    const QString current = static_cast<kwBrowseField *>(editor)->Text1->text();
    if (!current.isEmpty() && FileSystem::FolderExists(current))
        return BrowseForFolder(editor->window(), state.title, current);
    return BrowseForFolder(editor->window(), state.title, state.initDir);
}

QString BrowseKind::editMemo(QWidget *, EditorEvents *events) const
{
    frmMemo memo;
    memo.setTitle(QStringLiteral("Field: ") + events->fieldName());
    memo.setValue(events->state().tag);
    showModal(memo);
    return memo.Value();
}

} // namespace kwFieldDeck
