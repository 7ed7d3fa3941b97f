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

QString kwPropertyControlPlugin::domXml() const
{
    return QStringLiteral(R"(<ui language="c++" displayname="kwPropertyControl">
 <widget class="%1" name="propertyControl">
  <property name="geometry">
   <rect><x>0</x><y>0</y><width>320</width><height>240</height></rect>
  </property>
 </widget>
</ui>
)")
        .arg(name());
}

} // namespace kwFieldDeck
