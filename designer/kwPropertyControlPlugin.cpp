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
        "field's type on the right. Fields come from code or a definition file at run time; "
        "the appearance is set here.");
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
    // Designer designs the form: the host is not in run mode, so no Changed is raised.
    grid->setAmbientUserMode(false);
    return grid;
}

void kwPropertyControlPlugin::initialize(QDesignerFormEditorInterface *)
{
    m_initialized = true;
}

namespace {
// Designer's property editor shows these as the tool tips of the properties' names, in place of
// the bare "name (type)": the units and codes that the grid inherited from the original control.
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
        "The width of the name column, in twips.\n1440 twips to the inch, 15 to a pixel on a "
        "96 dpi screen: 750 is 50 pixels.\nA width that leaves no room for the scroll bar is "
        "refused." },
    { "RowHeight",
        "The height of every row, in twips.\n1440 twips to the inch, 15 to a pixel on a 96 dpi "
        "screen: 315 is 21 pixels.\nNeighbouring rows share a border line 15 twips thick." },
    { "Appearance", "The viewport's border: 0 flat, 1 sunken (the default)." },
    { "BackStyle", "0 transparent, 1 opaque; the grid only stores and saves it." },
    { "BorderStyle", "0 none, 1 single; the grid only stores and saves it." },
    { "ScaleMode", "The coordinate unit: 1, twips, is the one the grid lays out in." },
    { "Enabled",
        "A flag the grid only stores and saves; the rows stay enabled.\nQWidget's enabled is the "
        "one that disables the grid." },
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
%2   </propertyspecifications>
  </customwidget>
 </customwidgets>
</ui>
)")
        .arg(name(), propertySpecifications());
}

} // namespace kwFieldDeck
