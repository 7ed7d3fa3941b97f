#pragma once

// The entries of the field types; FieldKind::of() hands them out.

#include "editors/FieldKind.h"

namespace kwFieldDeck {

class TextKind : public FieldKind
{
public:
    TextKind(bool numeric, Sources sources);
    KW_FIELD_KIND
    void applyColors(QPalette &palette, const EditorState &state) const override;

private:
    bool m_numeric;
};

class DateKind : public FieldKind
{
public:
    using FieldKind::FieldKind;
    KW_FIELD_KIND
    void applyMin(const QVariant &min, EditorState &state, Changes &changes) const override;
    void applyMax(const QVariant &min, const QVariant &max, EditorState &state,
        Changes &changes) const override;
};

class CheckKind : public FieldKind
{
public:
    using FieldKind::FieldKind;
    KW_FIELD_KIND
    bool appliesEnabled() const override { return false; }
};

class ComboKind : public FieldKind
{
public:
    using FieldKind::FieldKind;
    // What the drop-down gives as its value: the selected entry's number or its text.
    static QString comboValue(const EditorState &state);
    // The drop-down's shown text: the selected entry's.
    static QString shownText(const EditorState &state);

    KW_FIELD_KIND

private:
    static bool select(const QString &value, EditorState &state, Changes &changes);
};

class SliderKind : public FieldKind
{
public:
    using FieldKind::FieldKind;
    KW_FIELD_KIND
    void applyMin(const QVariant &min, EditorState &state, Changes &changes) const override;
    void applyMax(const QVariant &min, const QVariant &max, EditorState &state,
        Changes &changes) const override;
    QWidget *focusTarget(QWidget *editor) const override;

private:
    static void setValue(qint32 value, EditorState &state, Changes &changes);
    static void moveSlider(qint32 value, EditorState &state, Changes &changes);
    static void keepInRange(EditorState &state, Changes &changes);
};

// File, folder and memo rows: a box and a "..." button that browses for the value.
class BrowseKind : public FieldKind
{
public:
    enum class Browse { File, Folder, Memo };
    BrowseKind(Browse browse, Sources sources);

    KW_FIELD_KIND
    void applyColors(QPalette &palette, const EditorState &state) const override;

private:
    // The box's text: a path fitted to the box, or a memo's placeholder.
    QString shownText(const EditorState &state, const QFont &font, int boxWidth) const;
    void browse(QWidget *editor, EditorEvents *events) const;
    QString chooseFile(const EditorState &state) const;
    QString chooseFolder(QWidget *editor, const EditorState &state) const;
    QString editMemo(QWidget *editor, EditorEvents *events) const;
    bool setPath(EditorState &state, const QString &path) const;

    Browse m_browse;
};

} // namespace kwFieldDeck
