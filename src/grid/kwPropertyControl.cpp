#include "grid/kwPropertyControl_p.h"

#include "fieldmodel/Field_p.h"
#include "fieldmodel/Fields_p.h"
#include "platform/ClassFactory.h"
#include "platform/Error.h"
#include "platform/PictureBox.h"
#include "platform/PropertyBag.h"
#include "platform/TextBox.h"
#include "platform/VScrollBar.h"
#include "platform/Values.h"

#include <QEvent>

namespace kwFieldDeck {

namespace {
// Hosts that build their windows from class identifiers create the grid like any control.
const bool registered
    = ClassFactory::registerUserControl<kwPropertyControl>(libraryTitle() + ".kwPropertyControl");

OleColor colorOf(const QVariant &value)
{
    return OleColor(qint64(toDouble(value)));
}
} // namespace

kwPropertyControl::kwPropertyControl(QWidget *parent)
    : QWidget(parent)
    , d_ptr(std::make_unique<kwPropertyControlPrivate>(this))
{
    d_func()->initNew();
}

kwPropertyControl::~kwPropertyControl() = default;

// The public accessors: the grid's state and workings are kwPropertyControlPrivate's.
kwFieldDeck::Fields *kwPropertyControl::Fields()
{
    return d_func()->Fields();
}
OleColor kwPropertyControl::BackColor() const
{
    return d_func()->BackColor();
}
void kwPropertyControl::setBackColor(OleColor color)
{
    d_func()->setBackColor(color);
}
OleColor kwPropertyControl::ForeColor() const
{
    return d_func()->m_ForeColor;
}
void kwPropertyControl::setForeColor(OleColor color)
{
    d_func()->setForeColor(color);
}
bool kwPropertyControl::storedEnabled() const
{
    return d_func()->m_Enabled;
}
void kwPropertyControl::setStoredEnabled(bool enabled)
{
    d_func()->setStoredEnabled(enabled);
}
QFont kwPropertyControl::Font() const
{
    return font();
}
void kwPropertyControl::writeFont(const QFont &font)
{
    setFont(font);
}
void kwPropertyControl::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::FontChange)
        d_func()->widgetFontChanged();
    QWidget::changeEvent(event);
}
kwPropertyControl::BackStyleCode kwPropertyControl::BackStyle() const
{
    return BackStyleCode(d_func()->m_BackStyle);
}
void kwPropertyControl::setBackStyle(qint16 style)
{
    d_func()->setBackStyle(style);
}
kwPropertyControl::BorderStyleCode kwPropertyControl::BorderStyle() const
{
    return BorderStyleCode(d_func()->m_BorderStyle);
}
void kwPropertyControl::setBorderStyle(qint16 style)
{
    d_func()->setBorderStyle(style);
}
kwPropertyControl::ScaleModeCode kwPropertyControl::ScaleMode() const
{
    return ScaleModeCode(d_func()->ScaleMode());
}
void kwPropertyControl::setScaleMode(qint16 mode)
{
    d_func()->setScaleMode(mode);
}
kwPropertyControl::AppearanceCode kwPropertyControl::Appearance() const
{
    return AppearanceCode(d_func()->Appearance());
}
void kwPropertyControl::setAppearance(qint16 appearance)
{
    d_func()->setAppearance(appearance);
}
OleColor kwPropertyControl::FieldNameBackColor() const
{
    return d_func()->m_FieldNameBackColor;
}
void kwPropertyControl::setFieldNameBackColor(OleColor color)
{
    d_func()->setFieldNameBackColor(color);
}
OleColor kwPropertyControl::FieldNameForeColor() const
{
    return d_func()->m_FieldNameForeColor;
}
void kwPropertyControl::setFieldNameForeColor(OleColor color)
{
    d_func()->setFieldNameForeColor(color);
}
QObject *kwPropertyControl::DescriptionLabel() const
{
    return d_func()->m_DescriptionLabel;
}
void kwPropertyControl::setDescriptionLabel(QObject *label)
{
    d_func()->m_DescriptionLabel = label;
}
QWidget *kwPropertyControl::Parent() const
{
    return window();
}
QString kwPropertyControl::AppPath() const
{
    return d_func()->m_AppPath;
}
void kwPropertyControl::setAppPath(const QString &path)
{
    d_func()->m_AppPath = path;
}
bool kwPropertyControl::ambientUserMode() const
{
    return d_func()->ambientUserMode();
}
void kwPropertyControl::setAmbientUserMode(bool userMode)
{
    d_func()->setAmbientUserMode(userMode);
}
void kwPropertyControl::SetFocus()
{
    d_func()->SetFocus();
}
void kwPropertyControl::Refresh(bool Redraw)
{
    d_func()->Refresh(Redraw);
}
float kwPropertyControl::FieldNameWidth() const
{
    return d_func()->m_FieldNameWidth;
}
void kwPropertyControl::setFieldNameWidth(float width)
{
    d_func()->setFieldNameWidth(width);
}
float kwPropertyControl::RowHeight() const
{
    return d_func()->m_RowHeight;
}
void kwPropertyControl::setRowHeight(float height)
{
    d_func()->setRowHeight(height);
}
int kwPropertyControl::fieldNameWidthTwips() const
{
    return qRound(d_func()->m_FieldNameWidth);
}
int kwPropertyControl::rowHeightTwips() const
{
    return qRound(d_func()->m_RowHeight);
}
qint16 kwPropertyControl::FirstRow() const
{
    return d_func()->m_FirstRow;
}
void kwPropertyControl::setFirstRow(qint16 row)
{
    d_func()->setFirstRow(row);
}
void kwPropertyControl::AutoSizeFieldNameWidths()
{
    d_func()->AutoSizeFieldNameWidths();
}
QSize kwPropertyControl::sizeHint() const
{
    return d_func()->sizeHint();
}
QSize kwPropertyControl::minimumSizeHint() const
{
    return d_func()->minimumSizeHint();
}
void kwPropertyControl::ReadDef(const QString &DefString)
{
    d_func()->ReadDef(DefString);
}
Field *kwPropertyControl::AddFieldByDefString(const QString &DefString)
{
    return d_func()->AddFieldByDefString(DefString);
}
void kwPropertyControl::LoadDefFile(const QString &FileName)
{
    d_func()->LoadDefFile(FileName);
}
QString kwPropertyControl::definition() const
{
    return d_func()->m_Definition;
}
void kwPropertyControl::setDefinition(const QString &text)
{
    d_func()->setDefinition(text);
}
void kwPropertyControl::SaveValuesToRegistry(
    const QString &AppName, const QString &Section, const QString &Setting)
{
    d_func()->SaveValuesToRegistry(AppName, Section, Setting);
}
void kwPropertyControl::GetValuesFromRegistry(
    const QString &AppName, const QString &Section, const QString &Setting)
{
    d_func()->GetValuesFromRegistry(AppName, Section, Setting);
}
bool kwPropertyControl::focusNextPrevChild(bool next)
{
    d_func()->RealizeNextRow(next);
    return QWidget::focusNextPrevChild(next);
}

kwPropertyControlPrivate::kwPropertyControlPrivate(kwPropertyControl *grid)
    : UserControl(grid)
    , m_Font(ambientFont())
    , q_ptr(grid)
{
    // The design-time layout: the viewport, the canvas inside it and the scroll bar beside it.
    picOuter = static_cast<PictureBox *>(Controls().Add(PictureBox::ClassId, "picOuter", grid));
    picInner = static_cast<PictureBox *>(
        Controls().Add(PictureBox::ClassId, "picInner", picOuter->widget()));
    VScroll1 = static_cast<VScrollBar *>(
        Controls().Add(VScrollBar::ClassId, "VScroll1", picOuter->widget()));
    for (Control *child : std::initializer_list<Control *> { picOuter, picInner, VScroll1 })
        child->setVisible(true);
    picInner->setAppearance(0);
    picInner->setBackColor(picOuter->BackColor());
    // The canvas grows downwards with every row; only what newly comes into view needs painting,
    // not the whole visible canvas once per added row.
    picInner->widget()->setAttribute(Qt::WA_StaticContents);
    // The scroll bar paints all of itself: a new range, which every row of a layout brings, then
    // repaints the bar alone and not the viewport under it, whose paint would run the paint
    // handler and so set the range again, once per row.
    VScroll1->widget()->setAttribute(Qt::WA_OpaquePaintEvent);
    paintThrough(picOuter->widget());
    paintThrough(picInner->widget());
    VScroll1->setWidth(255);
    connect(VScroll1, &VScrollBar::Change, this, &kwPropertyControlPrivate::VScroll1_Change);
    connect(VScroll1, &VScrollBar::Scroll, this, &kwPropertyControlPrivate::VScroll1_Scroll);

    m_Fields = new kwFieldDeck::Fields(grid);
    FieldsPrivate::get(m_Fields)->m_ParentClass = this;
}

kwPropertyControlPrivate::~kwPropertyControlPrivate()
{
    // The rows go first, then their controls, while this is whole: a control that leaves passes
    // the focus on, to another row, whose handlers would reach controls already gone, or to the
    // grid, which realizes the row it comes to.
    m_RowOrder.clear();
    m_RowsShown.clear();
    delete m_Fields;
    Controls().deleteAll();
}

OleColor kwPropertyControlPrivate::BackColor() const
{
    return picOuter->BackColor();
}

void kwPropertyControlPrivate::setBackColor(OleColor color)
{
    trap("Property 'BackColor' of User Control 'kwPropertyControl'", [&] {
        picOuter->setBackColor(color);
        picInner->setBackColor(color);
        propertyChanged(QStringLiteral("BackColor"));
    });
}

void kwPropertyControlPrivate::setForeColor(OleColor color)
{
    m_ForeColor = color;
    propertyChanged(QStringLiteral("ForeColor"));
}

void kwPropertyControlPrivate::setStoredEnabled(bool enabled)
{
    m_Enabled = enabled;
    propertyChanged(QStringLiteral("Enabled"));
}

// The grid's Font is its widget's font, so whatever sets that font reaches every row.
void kwPropertyControlPrivate::widgetFontChanged()
{
    if (q_ptr->font() == m_Font)
        return;
    trap("Property 'Font' of User Control 'kwPropertyControl'", [&] {
        applyFont();
        propertyChanged(QStringLiteral("Font"));
    });
}

void kwPropertyControlPrivate::applyFont()
{
    m_Font = q_ptr->font();
    picInner->setFont(m_Font);
    for (Field *field : *m_Fields)
        FieldPrivate::get(field)->setFont(m_Font);
}

// The fields the previous text added go, by position, as long as the collection still holds
// them; a field the host took out or replaced is left alone.
void kwPropertyControlPrivate::setDefinition(const QString &text)
{
    trap("Property 'definition' of User Control 'kwPropertyControl'", [&] {
        for (const QPointer<Field> &field : std::as_const(m_DefinitionFields)) {
            for (int position = 1; field && position <= m_Fields->Count(); ++position) {
                if (m_Fields->Item(position) == field) {
                    m_Fields->Remove(position);
                    break;
                }
            }
        }
        m_DefinitionFields.clear();
        m_Definition = text;
        const int before = m_Fields->Count();
        QString lines = text;
        lines.replace(QLatin1String("\r\n"), QLatin1String("\n"));
        ReadDef(lines.replace(QLatin1Char('\n'), QLatin1String("\r\n")));
        for (int position = before + 1; position <= m_Fields->Count(); ++position)
            m_DefinitionFields.append(m_Fields->Item(position));
        Refresh(true);
    });
}

void kwPropertyControlPrivate::setBackStyle(qint16 style)
{
    m_BackStyle = style;
    propertyChanged(QStringLiteral("BackStyle"));
}

void kwPropertyControlPrivate::setBorderStyle(qint16 style)
{
    m_BorderStyle = style;
    propertyChanged(QStringLiteral("BorderStyle"));
}

qint16 kwPropertyControlPrivate::ScaleMode() const
{
    return qint16(surfaceScaleMode());
}

void kwPropertyControlPrivate::setScaleMode(qint16 mode)
{
    setSurfaceScaleMode(mode);
    propertyChanged(QStringLiteral("ScaleMode"));
}

qint16 kwPropertyControlPrivate::Appearance() const
{
    return qint16(picOuter->Appearance());
}

void kwPropertyControlPrivate::setAppearance(qint16 appearance)
{
    trap("Property 'Appearance' of User Control 'kwPropertyControl'", [&] {
        picOuter->setAppearance(appearance);
        propertyChanged(QStringLiteral("Appearance"));
    });
}

void kwPropertyControlPrivate::setFieldNameBackColor(OleColor color)
{
    trap("Property 'FieldNameBackColor' of User Control 'kwPropertyControl'", [&] {
        m_FieldNameBackColor = color;
        for (Field *field : *m_Fields)
            require(FieldPrivate::get(field)->FieldNameControl())->setBackColor(color);
        propertyChanged(QStringLiteral("FieldNameBackColor"));
    });
}

void kwPropertyControlPrivate::setFieldNameForeColor(OleColor color)
{
    trap("Property 'FieldNameForeColor' of User Control 'kwPropertyControl'", [&] {
        m_FieldNameForeColor = color;
        for (Field *field : *m_Fields)
            require(FieldPrivate::get(field)->FieldNameControl())->setForeColor(color);
        propertyChanged(QStringLiteral("FieldNameForeColor"));
    });
}

void kwPropertyControlPrivate::SetFocus()
{
    trap("Sub 'SetFocus' of User Control 'kwPropertyControl'", [&] {
        q_ptr->setFocus(Qt::OtherFocusReason);
        FieldsPrivate::get(m_Fields)->First()->SetFocus();
    });
}

void kwPropertyControlPrivate::UserControl_InitProperties()
{
    trap("Sub 'UserControl_InitProperties' of User Control 'kwPropertyControl'", [&] {
        m_ForeColor = DefaultForeColor;
        m_Enabled = false;
        // Only the reference is kept here; the canvas and the fields get the font when it is set.
        m_Font = ambientFont();
        m_BackStyle = 0;
        m_BorderStyle = 0;
        m_FieldNameWidth = 750;
        m_RowHeight = 315;
        m_FieldNameBackColor = DefaultFieldNameBackColor;
        m_FieldNameForeColor = DefaultFieldNameForeColor;
    });
}

void kwPropertyControlPrivate::UserControl_ReadProperties(PropertyBag &PropBag)
{
    trap("Sub 'UserControl_ReadProperties' of User Control 'kwPropertyControl'", [&] {
        // Only the viewport takes the restored colour; the canvas keeps its own (intended).
        picOuter->setBackColor(
            colorOf(PropBag.ReadProperty("BackColor", quint32(DefaultBackColor))));
        m_ForeColor = colorOf(PropBag.ReadProperty("ForeColor", quint32(DefaultForeColor)));
        m_Enabled = toBool(PropBag.ReadProperty("Enabled", false));
        const QVariant font = PropBag.ReadProperty("Font", ambientFont());
        q_ptr->QWidget::setFont(font.canConvert<QFont>() ? font.value<QFont>() : ambientFont());
        applyFont();
        m_BackStyle = toInt16(PropBag.ReadProperty("BackStyle", qint16(0)));
        m_BorderStyle = toInt16(PropBag.ReadProperty("BorderStyle", qint16(0)));
        m_FieldNameWidth = float(toDouble(PropBag.ReadProperty("FieldNameWidth", 750.0f)));
        m_RowHeight = float(toDouble(PropBag.ReadProperty("RowHeight", 315.0f)));
        setSurfaceScaleMode(toInt16(PropBag.ReadProperty("ScaleMode", qint16(1))));
        picOuter->setAppearance(toInt16(PropBag.ReadProperty("Appearance", qint16(1))));
        m_FieldNameBackColor = colorOf(
            PropBag.ReadProperty("FieldNameBackColor", quint32(DefaultFieldNameBackColor)));
        m_FieldNameForeColor = colorOf(
            PropBag.ReadProperty("FieldNameForeColor", quint32(DefaultFieldNameForeColor)));
    });
}

void kwPropertyControlPrivate::UserControl_WriteProperties(PropertyBag &PropBag) const
{
    trap("Sub 'UserControl_WriteProperties' of User Control 'kwPropertyControl'", [&] {
        PropBag.WriteProperty(
            "BackColor", quint32(picOuter->BackColor()), quint32(DefaultBackColor));
        PropBag.WriteProperty("ForeColor", quint32(m_ForeColor), quint32(DefaultForeColor));
        PropBag.WriteProperty("Enabled", m_Enabled, false);
        PropBag.WriteProperty("Font", m_Font, ambientFont());
        PropBag.WriteProperty("BackStyle", m_BackStyle, qint16(0));
        PropBag.WriteProperty("BorderStyle", m_BorderStyle, qint16(0));
        PropBag.WriteProperty("FieldNameWidth", m_FieldNameWidth, 750.0f);
        PropBag.WriteProperty("RowHeight", m_RowHeight, 315.0f);
        PropBag.WriteProperty("ScaleMode", qint16(surfaceScaleMode()), qint16(1));
        PropBag.WriteProperty("Appearance", qint16(picOuter->Appearance()), qint16(1));
        PropBag.WriteProperty("FieldNameBackColor", quint32(m_FieldNameBackColor),
            quint32(DefaultFieldNameBackColor));
        PropBag.WriteProperty("FieldNameForeColor", quint32(m_FieldNameForeColor),
            quint32(DefaultFieldNameForeColor));
    });
}

} // namespace kwFieldDeck
