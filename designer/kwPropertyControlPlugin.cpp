#include "kwPropertyControlPlugin.h"

#include <kwFieldDeck/kwPropertyControl>

#include <QIcon>

namespace kwFieldDeck {

kwPropertyControlPlugin::kwPropertyControlPlugin(QObject *parent)
    : QObject(parent)
{
}

QString kwPropertyControlPlugin::name() const
{
    return QString::fromLatin1(kwPropertyControl::staticMetaObject.className());
}

QString kwPropertyControlPlugin::group() const
{
    return QStringLiteral("kwFieldDeck");
}

QString kwPropertyControlPlugin::toolTip() const
{
    return QStringLiteral("Property grid: named fields with an editor for each field's type");
}

QString kwPropertyControlPlugin::whatsThis() const
{
    return QStringLiteral(
        "A scrollable two-column property grid: field names on the left, an editor for each "
        "field's type on the right. Fields come from the definition property, from code or "
        "from a definition file; the appearance is set here.");
}

QString kwPropertyControlPlugin::includeFile() const
{
    return QStringLiteral("kwFieldDeck/kwPropertyControl");
}

QIcon kwPropertyControlPlugin::icon() const
{
    return QIcon(QStringLiteral(":/kwfielddeck/designer/kwPropertyControl.png"));
}

QWidget *kwPropertyControlPlugin::createWidget(QWidget *parent)
{
    auto *grid = new kwPropertyControl(parent);
    // In Designer the form is being designed, so no Changed is raised; a form that QUiLoader
    // builds runs.
    grid->setAmbientUserMode(!m_inFormEditor);
    return grid;
}

void kwPropertyControlPlugin::initialize(QDesignerFormEditorInterface *core)
{
    m_initialized = true;
    m_inFormEditor = core != nullptr;
}

namespace {
// Designer's property editor shows these as the tool tips of the properties' names, in place of
// the bare "name (type)": what the grid's units and codes mean.
// A line break starts a new line of the tip.
struct PropertyToolTip
{
    const char *property;
    const char *toolTip;
};
const PropertyToolTip propertyToolTips[] = {
    { "backgroundColor",
        "The colour behind the rows.\nReset gives back the system button face, which follows the "
        "desktop's palette." },
    { "foregroundColor", "A text colour the grid only stores and saves.\nReset gives back black." },
    { "fieldNameBackgroundColor",
        "The background of the name cells.\nReset gives back the system window background, "
        "which follows the desktop's palette." },
    { "fieldNameForegroundColor",
        "The text colour of the name cells.\nReset gives back the system window text, which "
        "follows the desktop's palette." },
    { "FieldNameWidth",
        "The width of the name column, in twips (a whole number).\n1440 twips to the inch, 15 to a "
        "pixel on a "
        "96 dpi screen: 750 is 50 pixels.\nA width that leaves no room for the scroll bar is "
        "refused." },
    { "RowHeight",
        "The height of every row, in twips (a whole number).\n1440 twips to the inch, 15 to a "
        "pixel on a 96 dpi screen: 315 is 21 pixels.\nNeighbouring rows share a border line 15 "
        "twips thick." },
    { "appearance",
        "The viewport's border: Flat (0) or ThreeD (1), a sunken border and the default.\nSaved "
        "as the number Appearance." },
    { "backStyle",
        "Transparent (0) or Opaque (1); the grid only stores and saves it.\nSaved as the number "
        "BackStyle." },
    { "borderStyle",
        "NoBorder (0) or FixedSingle (1); the grid only stores and saves it.\nSaved as the "
        "number BorderStyle." },
    { "scaleMode",
        "The coordinate unit: Twips (1) is the default, and the grid lays out in twips whatever "
        "it says.\nSaved as the number ScaleMode." },
    { "definition",
        "The grid's fields as definition text: ADDFIELD name, TYPE=, VALUE=, DESCRIPTION=, ... "
        "ENDFIELD.\nThe fields show here as they will when the form runs; fields added from "
        "code come on top." },
    { "AppPath", "A folder the host keeps with the grid; the grid only stores it." },
};

// Rich text keeps the lines as written; a plain tip would run on in one line across the screen.
QString propertySpecifications()
{
    QString xml;
    for (const PropertyToolTip &tip : propertyToolTips) {
        const QString lines = QString::fromUtf8(tip.toolTip)
                                  .toHtmlEscaped()
                                  .replace(QLatin1Char('\n'), QLatin1String("<br>"));
        const QString richText = QStringLiteral("<p style=\"white-space:pre\">%1</p>").arg(lines);
        xml += QStringLiteral("    <tooltip name=\"%1\">%2</tooltip>\n")
                   .arg(QLatin1String(tip.property), richText.toHtmlEscaped());
    }
    return xml;
}
} // namespace

QString kwPropertyControlPlugin::domXml() const
{
    return QStringLiteral(R"(<ui language="c++" displayname="kwPropertyControl">
 <widget class="%1" name="propertyControl">
  <property name="geometry">
   <rect><x>0</x><y>0</y><width>320</width><height>240</height></rect>
  </property>
 </widget>
 <customwidgets>
  <customwidget>
   <class>%1</class>
   <propertyspecifications>
%2    <stringpropertyspecification name="definition" type="multiline"/>
   </propertyspecifications>
  </customwidget>
 </customwidgets>
</ui>
)")
        .arg(name(), propertySpecifications());
}

} // namespace kwFieldDeck
