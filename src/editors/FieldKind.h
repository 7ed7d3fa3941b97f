#pragma once

#include "editors/EditorState.h"

#include <QFont>
#include <QPalette>
#include <QRect>
#include <QVarLengthArray>
#include <QVariant>

class QPainter;
class QWidget;

namespace kwFieldDeck {

// The changes an editor reports while it takes a value: rarely more than one.
using Changes = QVarLengthArray<QVariant, 2>;

// What a live editor reports to the row it edits.
class EditorEvents
{
public:
    // The editor's state, for a browse that reads and writes it.
    virtual EditorState &state() = 0;
    // The name of the row's field (a memo window is captioned with it).
    virtual QString fieldName() const = 0;
    // The user changed the editor's value: the row takes it and runs its change chain.
    virtual void editorChanged() = 0;
    // The focus arrived in the editor: the row becomes the current row.
    virtual void editorFocused() = 0;

protected:
    ~EditorEvents() = default;
};

// How an idle row's editor is painted: where, in which colours and font, enabled or not.
struct EditorPaint
{
    QPainter *painter = nullptr;
    // The widget whose style paints, in whose coordinates rect lies.
    const QWidget *widget = nullptr;
    QRect rect;
    QPalette palette;
    QFont font;
    bool enabled = true;
};

// Everything one field type does with its rows, in one place: the state its editor starts
// with, how a value goes in and comes out, how an idle row is painted, and the live editor
// that the row with the focus gets (as wxPropertyGrid's editors and Qt's delegates do).
class FieldKind
{
public:
    // The error sources of the creator of this type's editor and of the field's handler of its
    // change event.
    struct Sources
    {
        const char *creator;
        const char *change;
    };

    explicit FieldKind(Sources sources)
        : sources(sources)
    {
    }
    virtual ~FieldKind() = default;

    // The entry of a field type, or null for a type that has no editor.
    static const FieldKind *of(qint32 type);

    const Sources sources;
    // The editor's first state, from the field's value when the row is made; may raise, as a
    // value the editor cannot take does.
    virtual void create(EditorState &state, const QVariant &value) const = 0;
    // A write of the host: the editor shows the stored value (which it may rewrite); each change
    // the editor reports on the way is appended to changes.
    virtual void showValue(QVariant &stored, EditorState &state, Changes &changes) const = 0;
    // The value that a change reported by the editor stores in the field.
    virtual QVariant reportedValue(const EditorState &state) const = 0;
    // The value as the row shows it in words, as assistive tools read it.
    virtual QString valueText(const EditorState &state) const = 0;
    // The field's Min and Max reach the editor of a type with a range; a value that the new
    // range moves is reported as a change.
    virtual void applyMin(const QVariant &, EditorState &, Changes &) const { }
    virtual void applyMax(const QVariant &, const QVariant &, EditorState &, Changes &) const { }
    // Whether the editor takes its enabled state: a check box keeps its box enabled (intended).
    virtual bool appliesEnabled() const { return true; }

    // The colours a field gave its editor, where the editor shows them.
    virtual void applyColors(QPalette &, const EditorState &) const { }
    // Paints the idle row's editor.
    virtual void paint(const EditorPaint &paint, const EditorState &state) const = 0;

    // The live editor, a child of parent, with its reports connected to events.
    virtual QWidget *createEditor(QWidget *parent, EditorEvents *events) const = 0;
    // Shows the state in the live editor, without reports.
    virtual void UpdateControl(QWidget *editor, const EditorState &state) const = 0;
    // Takes the live editor's state back after the user changed it.
    virtual void GetValueFromControl(QWidget *editor, EditorState &state) const = 0;
    // The part that the focus goes to when the row is entered by code or a click on its name.
    virtual QWidget *focusTarget(QWidget *editor) const;
};

// The members that every field type defines.
#define KW_FIELD_KIND                                                                              \
    void create(EditorState &state, const QVariant &value) const override;                         \
    void showValue(QVariant &stored, EditorState &state, Changes &changes) const override;         \
    QVariant reportedValue(const EditorState &state) const override;                               \
    QString valueText(const EditorState &state) const override;                                    \
    void paint(const EditorPaint &paint, const EditorState &state) const override;                 \
    QWidget *createEditor(QWidget *parent, EditorEvents *events) const override;                   \
    void UpdateControl(QWidget *editor, const EditorState &state) const override;                  \
    void GetValueFromControl(QWidget *editor, EditorState &state) const override;

} // namespace kwFieldDeck
