#pragma once

// A window holding one grid, created as its container sees it: its outer size in twips is exact.

#include "fieldmodel/Field_p.h"
#include "fieldmodel/Fields_p.h"
#include "grid/kwPropertyControl_p.h"
#include "platform/ClassFactory.h"
#include "platform/Control.h"
#include "platform/PictureBox.h"
#include "platform/TextBox.h"
#include "platform/VScrollBar.h"

#include "TestSupport.h"

#include <QTest>
#include <QWidget>

namespace kwFieldDeck::test {

class GridHost
{
public:
    explicit GridHost(float width = 4000, float height = 1215, bool show = true)
    {
        window.resize(twipsToPixelsX(width) + 40, twipsToPixelsY(height) + 40);
        Control *extender = ClassFactory::create(
            libraryTitle() + ".kwPropertyControl", QStringLiteral("kwPropertyControl1"), &window);
        extender->setContainer(&window);
        extender->Move(0, 0, width, height);
        extender->setVisible(true);
        grid = qobject_cast<kwPropertyControl *>(extender->widget());
        if (show)
            this->show();
    }

    // The grid lays itself out when it is first resized, which happens when it is shown.
    bool show()
    {
        window.show();
        window.activateWindow();
        shown = QTest::qWaitForWindowActive(&window);
        return shown;
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

    Field *field(const QString &name) const { return grid->Fields()->Item(name); }

    QStringList fieldNames() const
    {
        QStringList names;
        for (Field *field : *grid->Fields())
            names << field->Name();
        return names;
    }

    PictureBox *picInner() const { return kwPropertyControlPrivate::get(grid)->InnerPicBox(); }
    VScrollBar *scrollBar() const
    {
        return static_cast<VScrollBar *>(
            kwPropertyControlPrivate::get(grid)->Controls().Item(QStringLiteral("VScroll1")));
    }

    QWidget window;
    bool shown = false;
    kwPropertyControl *grid = nullptr;
};

// A definition text written on one line: "|" stands for the CR LF between its lines.
inline QString defText(QString text)
{
    return text.replace(QLatin1Char('|'), QLatin1String("\r\n"));
}

} // namespace kwFieldDeck::test
