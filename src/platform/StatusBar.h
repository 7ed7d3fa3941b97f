#pragma once

#include "platform/Control.h"

#include <QVector>

class QStatusBar;

namespace kwFieldDeck {

class StatusBarPanel;

// The status bar: a row of panels docked along the bottom of its container, as wide as the
// container, as high as its font needs.
class StatusBar : public Control
{
    Q_OBJECT
public:
    explicit StatusBar(const QString &name, QObject *owner = nullptr);

    static constexpr const char *ClassId = "MSComctlLib.StatusBar";

    StatusBarPanel *AddPanel(int autoSize);
    // The panel by its 1-based index; past the panels, error 9.
    StatusBarPanel *Panels(int index) const;
    int PanelCount() const { return int(m_panels.size()); }

    QStatusBar *statusBar() const;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void dock();

    QVector<StatusBarPanel *> m_panels;
    QPointer<QWidget> m_dockedIn;
};

} // namespace kwFieldDeck
