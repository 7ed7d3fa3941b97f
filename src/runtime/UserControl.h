#pragma once

#include "runtime/Colors.h"

#include <QObject>
#include <QWidget>

namespace kwFieldDeck {

class Control;

// The base of a user control with a window of its own, as the grid is: it gives its surface
// widget the extender that its container sees, the defaults of a new instance, the
// property-changed notification and the ambient properties of its host. The surface's resize
// and paint events reach the handlers below. Its properties are kept by Qt's property system.
class UserControl : public QObject
{
    Q_OBJECT
public:
    explicit UserControl(QWidget *surface);
    ~UserControl() override;

    // The control its container sees, when it was created as a child control; else null.
    Control *extender() const;
    // The outer size as the container sees it, in twips.
    float extenderWidth() const;
    float extenderHeight() const;
    // The host surface's own inner width, in twips.
    float ScaleWidth() const;

    // The coordinate unit of the host surface; 1 is twips, the only unit geometry is kept in.
    int surfaceScaleMode() const { return m_scaleMode; }
    void setSurfaceScaleMode(int mode) { m_scaleMode = mode; }

    // Ambient properties: whether the host runs (rather than designs), and the host's font.
    bool ambientUserMode() const { return m_userMode; }
    void setAmbientUserMode(bool userMode) { m_userMode = userMode; }
    QFont ambientFont() const;

    // A fresh instance takes its defaults.
    void initNew();

signals:
    // The property-changed notification: the named persisted property has a new value.
    void PropertyChanged(const QString &name);

protected:
    void propertyChanged(const QString &name) { emit PropertyChanged(name); }

    virtual void UserControl_InitProperties() { }
    virtual void UserControl_Resize() { }
    virtual void UserControl_Paint() { }

    // The paint handler also runs when this child, which covers the surface, is painted: the
    // surface hears of every expose and update of its area, covered or not. It runs once the
    // painting is done, since it may lay the children out.
    void paintThrough(QWidget *child);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QWidget *m_surface;
    int m_scaleMode = 1;
    bool m_userMode = true;
    bool m_paintPending = false;
};

} // namespace kwFieldDeck
