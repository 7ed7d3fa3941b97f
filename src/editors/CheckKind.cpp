// Check-box rows: the box Check1, ticked for any value whose leading number is not 0.

#include "editors/FieldKinds_p.h"

#include "editors/RowPainter.h"

#include "editors/kwSimpleCheck.h"
#include "runtime/Values.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOption>
#include <QWidget>

#include <algorithm>

namespace kwFieldDeck {

// A value that reads neither as true nor as false fails the creation.
void CheckKind::create(EditorState &state, const QVariant &value) const
{
    state.check = toBool(value) ? 1 : 0;
}

void CheckKind::showValue(QVariant &stored, EditorState &state, Changes &changes) const
{
    if (kindOf(stored) != ValueKind::Object && textOf(stored).trimmed().toUpper() == u"TRUE")
        stored = textValue(QStringLiteral("1"));
    const qint16 check = leadingNumber(textOf(stored)) != 0 ? 1 : 0;
    if (check == state.check)
        return;
    state.check = check;
    changes << reportedValue(state);
}

QVariant CheckKind::reportedValue(const EditorState &state) const
{
    return int16Value(state.check);
}

QString CheckKind::valueText(const EditorState &state) const
{
    return QString::number(state.check);
}

void CheckKind::paint(const EditorPaint &paint, const EditorState &state) const
{
    RowPainter::surface(paint.painter, paint.rect, paint.palette);
    const QStyle *style = paint.widget->style();
    const int side = std::max(style->pixelMetric(QStyle::PM_IndicatorWidth),
        style->pixelMetric(QStyle::PM_IndicatorHeight));
    QStyleOptionButton box;
    box.initFrom(paint.widget);
    box.rect = QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter,
        QSize(side, side).boundedTo(paint.rect.size()), paint.rect);
    box.palette = paint.palette;
    // The box keeps its own enabled state whatever the row's (intended).
    box.state = QStyle::State_Enabled
        | (state.check == 1        ? QStyle::State_On
                : state.check == 2 ? QStyle::State_NoChange
                                   : QStyle::State_Off);
    style->drawPrimitive(QStyle::PE_IndicatorCheckBox, &box, paint.painter, paint.widget);
}

QWidget *CheckKind::createEditor(QWidget *parent, EditorEvents *events) const
{
    auto *check = new kwSimpleCheck(parent);
    check->setObjectName(QStringLiteral("kwSimpleCheck"));
    QObject::connect(check, &kwSimpleCheck::Click, check, [events] { events->editorChanged(); });
    QObject::connect(check, &kwSimpleCheck::HasFocus, check, [events] { events->editorFocused(); });
    return check;
}

void CheckKind::UpdateControl(QWidget *editor, const EditorState &state) const
{
    static_cast<kwSimpleCheck *>(editor)->showValue(state.check);
}

void CheckKind::GetValueFromControl(QWidget *editor, EditorState &state) const
{
    state.check = static_cast<kwSimpleCheck *>(editor)->Value();
}

} // namespace kwFieldDeck
