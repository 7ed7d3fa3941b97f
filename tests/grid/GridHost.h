#pragma once

// A window holding one grid of the given size in twips (whole pixels of 15 twips).

#include "fieldmodel/Field_p.h"
#include "fieldmodel/Fields_p.h"
#include "fieldmodel/lFieldTypes_p.h"
#include "grid/GridView.h"
#include "grid/kwPropertyControl_p.h"
#include "runtime/Twips.h"

#include "TestSupport.h"

#include <QScrollBar>
#include <QTest>
#include <QWidget>

namespace kwFieldDeck::test {

class GridHost
{
public:
    explicit GridHost(float width = 4005, float height = 1215, bool show = true)
    {
        window.resize(twipsToPixelsX(width) + 40, twipsToPixelsY(height) + 40);
        grid = new kwPropertyControl(&window);
        grid->setObjectName(QStringLiteral("kwPropertyControl1"));
        grid->setGeometry(0, 0, twipsToPixelsX(width), twipsToPixelsY(height));
        if (show)
            this->show();
    }

    // The grid lays itself out when it is first resized, which happens when it is shown.
    bool show()
    {
        window.show();
        window.activateWindow();
        return shown = QTest::qWaitForWindowActive(&window);
    }

    Field *add(const QString &name, lFieldTypes type = ftText, const QString &value = {},
        const QString &description = {})
    {
        return grid->Fields()->Add(name, type, 0, value, description);
    }

    void addRows(int count, lFieldTypes type = ftText)
    {
        for (int i = 1; i <= count; ++i)
            add(QStringLiteral("Row%1").arg(i), type);
    }

    // The type's name in the definition language.
    static QString typeName(int type) { return fieldTypeNames().split(',').value(type - 1); }

    Field *field(const QString &name) const { return grid->Fields()->Item(name); }

    // What `of` gives of each field in order: its name unless told otherwise.
    QStringList each(const std::function<QString(Field *)> &of = &Field::Name) const
    {
        QStringList all;
        for (Field *field : *grid->Fields())
            all << of(field);
        return all;
    }

    kwPropertyControlPrivate *d() const { return kwPropertyControlPrivate::get(grid); }
    QScrollBar *scrollBar() const { return d()->scrollBar(); }
    GridView *view() const { return d()->view(); }

    // What a row's editor holds and shows.
    static EditorState &state(Field *field) { return FieldPrivate::get(field)->m_editor; }
    // The field's row on the canvas: its name cell and editor, in twips.
    const CanvasRow &row(const Field *field) const
    {
        return d()->canvasRows().at(FieldPrivate::get(field)->m_row);
    }

    QWidget window;
    bool shown = false;
    kwPropertyControl *grid = nullptr;
};

// What the user and the host were told: each message as "title: prompt" (only the collection's
// duplicate message has no title and is no critical one), each error as "error N in source".
inline QStringList reports(const MessageRecorder &messages, const ErrorRecorder &errors)
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

// An error as reports() gives it, raised in one of the grid's procedures.
inline QString gridError(int number, const char *procedure)
{
    return QString::asprintf(
        "error %d in Sub '%s' of User Control 'kwPropertyControl'", number, procedure);
}

// Columns named by their place: columns<T...>() declares them and returns the function that adds a
// row; fetch<T...>() gives the current row's values in the same order.
inline const char *const columnNames[] = { "0", "1", "2", "3", "4", "5", "6", "7" };

template <typename... T>
auto columns()
{
    int i = 0;
    (QTest::addColumn<T>(columnNames[i++]), ...);
    return [](const QByteArray &tag, const T &...values) {
        (QTest::newRow(tag.constData()) << ... << values);
    };
}

template <typename... T, std::size_t... I>
std::tuple<T...> fetch(std::index_sequence<I...>)
{
    return { *static_cast<T *>(QTest::qData(columnNames[I], qMetaTypeId<T>()))... };
}

template <typename... T>
std::tuple<T...> fetch()
{
    return fetch<T...>(std::index_sequence_for<T...>());
}

// A definition text written on one line: "|" stands for the CR LF between its lines.
inline QString defText(QString text)
{
    return text.replace(QLatin1Char('|'), QLatin1String("\r\n"));
}

} // namespace kwFieldDeck::test
