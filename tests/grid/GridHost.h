#pragma once

// A shown grid of the given size in twips (whole pixels of 15 twips), with its internals at hand.

#include "fieldmodel/Field_p.h"
#include "fieldmodel/Fields_p.h"
#include "fieldmodel/lFieldTypes_p.h"
#include "grid/GridView.h"
#include "grid/kwPropertyControl_p.h"
#include "runtime/Twips.h"

#include "host/ShownGrid.h"

namespace kwFieldDeck::test {

class GridHost : public ShownGrid
{
public:
    explicit GridHost(float width = 4005, float height = 1215, bool show = true)
        : ShownGrid(QSize(twipsToPixelsX(width), twipsToPixelsY(height)), 40)
    {
        if (show)
            QVERIFY(this->show());
    }

    // The type's name in the definition language.
    static QString typeName(int type) { return fieldTypeNames().split(',').value(type - 1); }

    kwPropertyControlPrivate *d() const { return kwPropertyControlPrivate::get(grid); }
    GridView *view() const { return d()->view(); }

    // What a row's editor holds and shows.
    static EditorState &state(Field *field) { return FieldPrivate::get(field)->m_editor; }
    // The field's row on the canvas: its name cell and editor, in twips.
    const CanvasRow &row(const Field *field) const
    {
        return d()->canvasRows().at(FieldPrivate::get(field)->m_row);
    }

    // What the user and the host were told: each message as "title: prompt" (only the duplicate
    // message has no title and is no critical one), each error as "error N in source".
    QStringList reports() const
    {
        QStringList all;
        for (const ShownMessage &m : messages.messages) {
            all << m.title + ": " + m.prompt;
            if (m.style != (m.title.isEmpty() ? 0 : MsgBoxStyle::Critical | MsgBoxStyle::OKOnly))
                all << QStringLiteral("style %1").arg(m.style);
        }
        for (const ReportedError &e : errors.errors)
            all << QStringLiteral("error %1 in %2").arg(e.number).arg(e.source);
        return all;
    }

    // Message boxes are answered, never left waiting for a user; errors are kept for reports().
    MessageRecorder messages;
    ErrorRecorder errors;
};

// An error as reports() gives it, raised in one of the grid's procedures.
inline QString gridError(int number, const char *procedure, const char *kind = "Sub")
{
    return QString::asprintf(
        "error %d in %s '%s' of User Control 'kwPropertyControl'", number, kind, procedure);
}

} // namespace kwFieldDeck::test
