#pragma once

// The entries of the field types; FieldKind::of() hands them out.

#include "editors/FieldKind.h"

namespace kwFieldDeck {

class TextKind : public FieldKind
{
public:
    explicit TextKind(bool numeric);
    const char *creatorSource() const override;
    const char *changeSource() const override;
    void create(EditorState &state, const QVariant &value) const override;
    void showValue(QVariant &stored, EditorState &state, Changes &changes) const override;
    QVariant reportedValue(const EditorState &state) const override;
    QString valueText(const EditorState &state) const override;
    void applyColors(QPalette &palette, const EditorState &state) const override;
    void paint(const EditorPaint &paint, const EditorState &state) const override;
    QWidget *createEditor(QWidget *parent, EditorEvents *events) const override;
    void UpdateControl(QWidget *editor, const EditorState &state) const override;
    void GetValueFromControl(QWidget *editor, EditorState &state) const override;

private:
    bool m_numeric;
};

class DateKind : public FieldKind
{
public:
    const char *creatorSource() const override;
    const char *changeSource() const override;
    void create(EditorState &state, const QVariant &value) const override;
    void showValue(QVariant &stored, EditorState &state, Changes &changes) const override;
    void applyMin(const QVariant &min, EditorState &state, Changes &changes) const override;
    void applyMax(const QVariant &min, const QVariant &max, EditorState &state,
        Changes &changes) const override;
    QVariant reportedValue(const EditorState &state) const override;
    QString valueText(const EditorState &state) const override;
    void paint(const EditorPaint &paint, const EditorState &state) const override;
    QWidget *createEditor(QWidget *parent, EditorEvents *events) const override;
    void UpdateControl(QWidget *editor, const EditorState &state) const override;
    void GetValueFromControl(QWidget *editor, EditorState &state) const override;
};

class CheckKind : public FieldKind
{
public:
    const char *creatorSource() const override;
    const char *changeSource() const override;
    void create(EditorState &state, const QVariant &value) const override;
    void showValue(QVariant &stored, EditorState &state, Changes &changes) const override;
    QVariant reportedValue(const EditorState &state) const override;
    QString valueText(const EditorState &state) const override;
    bool appliesEnabled() const override { return false; }
    void paint(const EditorPaint &paint, const EditorState &state) const override;
    QWidget *createEditor(QWidget *parent, EditorEvents *events) const override;
    void UpdateControl(QWidget *editor, const EditorState &state) const override;
    void GetValueFromControl(QWidget *editor, EditorState &state) const override;
};

class ComboKind : public FieldKind
{
public:
    // What the drop-down gives as its value: the selected entry's number or its text.
    static QString comboValue(const EditorState &state);
    // The drop-down's shown text: the selected entry's.
    static QString shownText(const EditorState &state);

    const char *creatorSource() const override;
    const char *changeSource() const override;
    void create(EditorState &state, const QVariant &value) const override;
    void showValue(QVariant &stored, EditorState &state, Changes &changes) const override;
    QVariant reportedValue(const EditorState &state) const override;
    QString valueText(const EditorState &state) const override;
    void paint(const EditorPaint &paint, const EditorState &state) const override;
    QWidget *createEditor(QWidget *parent, EditorEvents *events) const override;
    void UpdateControl(QWidget *editor, const EditorState &state) const override;
    void GetValueFromControl(QWidget *editor, EditorState &state) const override;

private:
    static bool select(const QString &value, EditorState &state, Changes &changes);
};

class SliderKind : public FieldKind
{
public:
    const char *creatorSource() const override;
    const char *changeSource() const override;
    void create(EditorState &state, const QVariant &value) const override;
    void showValue(QVariant &stored, EditorState &state, Changes &changes) const override;
    void applyMin(const QVariant &min, EditorState &state, Changes &changes) const override;
    void applyMax(const QVariant &min, const QVariant &max, EditorState &state,
        Changes &changes) const override;
    QVariant reportedValue(const EditorState &state) const override;
    QString valueText(const EditorState &state) const override;
    void paint(const EditorPaint &paint, const EditorState &state) const override;
    QWidget *createEditor(QWidget *parent, EditorEvents *events) const override;
    void UpdateControl(QWidget *editor, const EditorState &state) const override;
    void GetValueFromControl(QWidget *editor, EditorState &state) const override;
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
    explicit BrowseKind(Browse browse);

    const char *creatorSource() const override;
    const char *changeSource() const override;
    void create(EditorState &state, const QVariant &value) const override;
    void showValue(QVariant &stored, EditorState &state, Changes &changes) const override;
    QVariant reportedValue(const EditorState &state) const override;
    QString valueText(const EditorState &state) const override;
    void applyColors(QPalette &palette, const EditorState &state) const override;
    void paint(const EditorPaint &paint, const EditorState &state) const override;
    QWidget *createEditor(QWidget *parent, EditorEvents *events) const override;
    void UpdateControl(QWidget *editor, const EditorState &state) const override;
    void GetValueFromControl(QWidget *editor, EditorState &state) const override;

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
