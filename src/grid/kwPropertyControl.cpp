#include "grid/kwPropertyControl_p.h"

#include "fieldmodel/Field_p.h"
#include "fieldmodel/Fields_p.h"
#include "grid/GridView.h"
#include "runtime/Error.h"
#include "runtime/Values.h"

#include <QApplication>
#include <QEvent>
#include <QScrollBar>

namespace kwFieldDeck {

kwPropertyControl::kwPropertyControl(QWidget *parent)
    : QWidget(parent)
    , d_ptr(std::make_unique<kwPropertyControlPrivate>(this))
{
    d_func()->UserControl_InitProperties();
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
    d_func()->m_ForeColor = color;
}
bool kwPropertyControl::storedEnabled() const
{
    return d_func()->m_Enabled;
}
void kwPropertyControl::setStoredEnabled(bool enabled)
{
    d_func()->m_Enabled = enabled;
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
    d_func()->m_BackStyle = style;
}
kwPropertyControl::BorderStyleCode kwPropertyControl::BorderStyle() const
{
    return BorderStyleCode(d_func()->m_BorderStyle);
}
void kwPropertyControl::setBorderStyle(qint16 style)
{
    d_func()->m_BorderStyle = style;
}
kwPropertyControl::ScaleModeCode kwPropertyControl::ScaleMode() const
{
    return ScaleModeCode(d_func()->m_ScaleMode);
}
void kwPropertyControl::setScaleMode(qint16 mode)
{
    d_func()->m_ScaleMode = mode;
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
    return d_func()->m_userMode;
}
void kwPropertyControl::setAmbientUserMode(bool userMode)
{
    d_func()->m_userMode = userMode;
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
    return d_func()->focusNextPrevChild(next) || QWidget::focusNextPrevChild(next);
}

kwPropertyControlPrivate::kwPropertyControlPrivate(kwPropertyControl *grid)
    : m_Font(grid->font())
    , q_ptr(grid)
    , picOuter(new GridView(this, grid))
    , VScroll1(new QScrollBar(Qt::Vertical, picOuter))
    , m_rowEditor(this)
{
    VScroll1->setObjectName(QStringLiteral("VScroll1"));
    VScroll1->setFocusPolicy(Qt::NoFocus);
    VScroll1->setEnabled(false);
    // Dragging the thumb moves the canvas; the value, and the first row, follow when it ends.
    VScroll1->setTracking(false);
    // Rows are reached by Tab from outside, and a click that reaches no row keeps the focus.
    grid->setFocusPolicy(Qt::StrongFocus);
    picOuter->setFocusPolicy(Qt::NoFocus);
    picOuter->show();
    VScroll1->show();
    m_Fields = new kwFieldDeck::Fields(grid);
    FieldsPrivate::get(m_Fields)->m_ParentClass = this;
    // The grid shows the button face behind its viewport.
    QPalette palette = grid->palette();
    palette.setColor(
        QPalette::Window, toQColor(SystemColor::ButtonFace, QApplication::palette(grid)));
    grid->setPalette(palette);
    grid->setAutoFillBackground(true);
    grid->installEventFilter(this);
    picOuter->installEventFilter(this);
    applyAppearance(1);
    applyColors();
    connect(VScroll1, &QScrollBar::valueChanged, this, &kwPropertyControlPrivate::VScroll1_Change);
    connect(VScroll1, &QScrollBar::sliderMoved, this, &kwPropertyControlPrivate::VScroll1_Scroll);
}

kwPropertyControlPrivate::~kwPropertyControlPrivate()
{
    // The live editor goes first, while this is whole: the focus it holds may move on.
    m_rowEditor.release();
    delete m_Fields;
    m_Fields = nullptr;
}

void kwPropertyControlPrivate::setBackColor(OleColor color)
{
    trap("Property 'BackColor' of User Control 'kwPropertyControl'", [&] {
        m_BackColor = color;
        applyColors();
    });
}

// The grid's Font is its widget's font, so whatever sets that font reaches every row.
void kwPropertyControlPrivate::widgetFontChanged()
{
    if (q_ptr->font() == m_Font)
        return;
    trap("Property 'Font' of User Control 'kwPropertyControl'", [&] { applyFont(); });
}

// Every row shows the grid's font, the live editor too.
void kwPropertyControlPrivate::applyFont()
{
    m_Font = q_ptr->font();
    if (QWidget *editor = m_rowEditor.editor())
        editor->setFont(m_Font);
    picOuter->update();
}

// The fields the previous text added go, as long as the collection still holds them under their
// names; a field the host took out or replaced is left alone.
void kwPropertyControlPrivate::setDefinition(const QString &text)
{
    trap("Property 'definition' of User Control 'kwPropertyControl'", [&] {
        const KeyedCollection<Field> &fields = FieldsPrivate::get(m_Fields)->m_fields;
        for (const QPointer<Field> &field : std::as_const(m_DefinitionFields)) {
            if (field && fields.contains(field->Name()) && m_Fields->Item(field->Name()) == field)
                m_Fields->Remove(field->Name());
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

// The viewport's border: 0 flat, 1 sunken; any other value is refused.
void kwPropertyControlPrivate::applyAppearance(qint16 appearance)
{
    if (appearance != 0 && appearance != 1)
        raise(380, QStringLiteral("Invalid property value"));
    m_Appearance = appearance;
    picOuter->setFrameStyle(
        appearance == 1 ? QFrame::StyledPanel | QFrame::Sunken : QFrame::NoFrame);
    UserControl_Resize();
}

void kwPropertyControlPrivate::setAppearance(qint16 appearance)
{
    trap("Property 'Appearance' of User Control 'kwPropertyControl'",
        [&] { applyAppearance(appearance); });
}

void kwPropertyControlPrivate::setFieldNameBackColor(OleColor color)
{
    trap("Property 'FieldNameBackColor' of User Control 'kwPropertyControl'", [&] {
        m_FieldNameBackColor = color;
        // Every name cell takes the colour, the highlighted one too.
        m_highlighted = nullptr;
        picOuter->update();
    });
}

void kwPropertyControlPrivate::setFieldNameForeColor(OleColor color)
{
    trap("Property 'FieldNameForeColor' of User Control 'kwPropertyControl'", [&] {
        m_FieldNameForeColor = color;
        m_highlighted = nullptr;
        picOuter->update();
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
        m_Font = q_ptr->font();
        m_BackStyle = 0;
        m_BorderStyle = 0;
        m_FieldNameWidth = 750;
        m_RowHeight = 315;
        m_FieldNameBackColor = DefaultFieldNameBackColor;
        m_FieldNameForeColor = DefaultFieldNameForeColor;
    });
}

} // namespace kwFieldDeck
