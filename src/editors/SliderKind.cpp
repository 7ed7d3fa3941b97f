// Slider rows: the number box txtNum and the slider Slider1, showing one whole number.

#include "editors/FieldKinds_p.h"

#include "editors/RowPainter.h"
#include "editors/kwSliderValue.h"
#include "editors/kwTextBox.h"
#include "runtime/Error.h"
#include "runtime/Twips.h"
#include "runtime/Values.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOptionSlider>
#include <QWidget>

#include <algorithm>
#include <limits>

namespace kwFieldDeck {

namespace {
constexpr double NumberBoxWidth = 615;
constexpr double SliderLeft = 635;
constexpr double SliderTop = 15;

qint32 low(const EditorState &state)
{
    return std::min(state.sliderMin, state.sliderMax);
}
qint32 high(const EditorState &state)
{
    return std::max(state.sliderMin, state.sliderMax);
}
} // namespace

// The slider moved: the box shows its value in canonical form, which is the row's value.
void SliderKind::moveSlider(qint32 value, EditorState &state, Changes &changes)
{
    const qint32 position = std::clamp(value, low(state), high(state));
    if (position == state.sliderValue)
        return;
    state.sliderValue = position;
    state.number = position;
    state.text = QString::number(position);
    changes << int32Value(state.number);
}

// The value goes to the slider, then to the box, which hands what it shows to the slider again.
void SliderKind::setValue(qint32 value, EditorState &state, Changes &changes)
{
    state.number = value;
    if (value != state.sliderValue)
        moveSlider(value, state, changes);
    const QString text = QString::number(state.number);
    if (text == state.text)
        return;
    state.text = text;
    moveSlider(roundToInt32(leadingNumber(text)), state, changes);
}

// A range that leaves the value outside brings the value into it.
void SliderKind::keepInRange(EditorState &state, Changes &changes)
{
    moveSlider(state.sliderValue, state, changes);
}

void SliderKind::create(EditorState &state, const QVariant &value) const
{
    // The number box's designed text shows until the first value.
    state.text = QStringLiteral("Text1");
    Changes ignored;
    setValue(toInt32(value), state, ignored);
}

void SliderKind::showValue(QVariant &stored, EditorState &state, Changes &changes) const
{
    setValue(roundToInt32(leadingNumber(textOf(stored))), state, changes);
}

// Only Min keeps the pair in order; Max is taken as given. Intended.
void SliderKind::applyMin(const QVariant &min, EditorState &state, Changes &changes) const
{
    const qint32 value = toInt32(min);
    if (state.sliderMax <= value) {
        if (value == std::numeric_limits<qint32>::max())
            raise(ErrOverflow);
        state.sliderMax = value + 1;
    }
    state.sliderMin = value;
    keepInRange(state, changes);
}

void SliderKind::applyMax(
    const QVariant &, const QVariant &max, EditorState &state, Changes &changes) const
{
    state.sliderMax = toInt32(max);
    keepInRange(state, changes);
}

QVariant SliderKind::reportedValue(const EditorState &state) const
{
    return int32Value(state.number);
}

QString SliderKind::valueText(const EditorState &state) const
{
    return state.text;
}

void SliderKind::paint(const EditorPaint &paint, const EditorState &state) const
{
    RowPainter::surface(paint.painter, paint.rect, paint.palette);
    const QRect &row = paint.rect;
    const int line = std::min(RowPainter::lineEditHeight(paint.font), row.height());
    RowPainter::lineEdit(paint.painter, paint.widget,
        QRect(row.left(), row.top() + (row.height() - line) / 2, twipsToPixelsX(NumberBoxWidth),
            line),
        state.text, paint.palette, paint.font, paint.enabled, RowPainter::Frame::Styled);

    const int left = twipsToPixelsX(SliderLeft);
    const int top = twipsToPixelsY(SliderTop);
    // Painted at its own origin, as the slider widget paints itself.
    const QRect area(row.left() + left, row.top() + top, std::max(0, row.width() - left),
        std::max(0, row.height() - top));
    QStyleOptionSlider slider;
    slider.initFrom(paint.widget);
    slider.rect = QRect(QPoint(0, 0), area.size());
    slider.palette = paint.palette;
    slider.palette.setCurrentColorGroup(paint.enabled ? QPalette::Active : QPalette::Disabled);
    slider.state = paint.enabled ? QStyle::State_Enabled : QStyle::State_None;
    slider.state |= QStyle::State_Horizontal;
    slider.orientation = Qt::Horizontal;
    slider.minimum = low(state);
    slider.maximum = high(state);
    slider.sliderPosition = slider.sliderValue = state.sliderValue;
    slider.singleStep = 1;
    slider.pageStep = 5;
    slider.tickPosition = QSlider::NoTicks;
    slider.subControls = QStyle::SC_SliderGroove | QStyle::SC_SliderHandle;
    paint.painter->save();
    paint.painter->translate(area.topLeft());
    paint.widget->style()->drawComplexControl(
        QStyle::CC_Slider, &slider, paint.painter, paint.widget);
    paint.painter->restore();
}

QWidget *SliderKind::createEditor(QWidget *parent, EditorEvents *events) const
{
    auto *slider = new kwSliderValue(parent);
    slider->setObjectName(QStringLiteral("kwSliderValue"));
    // A drag step is reported twice, as a change and as a scroll, each running the row's change
    // chain: intended.
    QObject::connect(slider, &kwSliderValue::Change, slider, [events] { events->editorChanged(); });
    QObject::connect(slider, &kwSliderValue::Scroll, slider, [events] { events->editorChanged(); });
    QObject::connect(
        slider, &kwSliderValue::HasFocus, slider, [events] { events->editorFocused(); });
    return slider;
}

void SliderKind::UpdateControl(QWidget *editor, const EditorState &state) const
{
    auto *slider = static_cast<kwSliderValue *>(editor);
    slider->showState(
        state.number, state.sliderValue, state.sliderMin, state.sliderMax, state.text);
    slider->setActiveControl(state.sliderActive);
}

void SliderKind::GetValueFromControl(QWidget *editor, EditorState &state) const
{
    const auto *slider = static_cast<kwSliderValue *>(editor);
    state.number = slider->Value();
    state.sliderValue = slider->sliderValue();
    state.text = slider->txtNum->text();
    state.sliderActive = slider->activeControl() == slider->Slider1;
}

// The part that had the focus last, the slider at first.
QWidget *SliderKind::focusTarget(QWidget *editor) const
{
    return static_cast<kwSliderValue *>(editor)->activeControl();
}

} // namespace kwFieldDeck
