#pragma once

#include "platform/CaselessKey.h"
#include "platform/Colors.h"

#include <QHash>
#include <QObject>
#include <QVector>
#include <QWidget>

namespace kwFieldDeck {

class Control;
class PropertyBag;

// The child controls of a user control, by name (compared without regard to case) and in order
// of creation. They are QObject children of the owner given; for a user control with a window,
// not of its widget, whose children Qt walks on every pointer move and repaint.
class ControlCollection
{
public:
    explicit ControlCollection(QObject *owner)
        : m_owner(owner)
    {
    }

    // Creates a control by class identifier under a new name, in the given container: a widget,
    // or the surface of a user control without a window of its own.
    Control *Add(const QString &classId, const QString &name, QWidget *container);
    Control *Add(const QString &classId, const QString &name, Control *container);
    Control *Item(const QString &name) const;
    // Deletes every control now, while the user control that made them is still whole: a
    // control that leaves may move the focus, and the focus handlers reach back into it.
    void deleteAll();
    int Count() const { return int(m_controls.size()); }
    QVector<Control *>::const_iterator begin() const { return m_controls.cbegin(); }
    QVector<Control *>::const_iterator end() const { return m_controls.cend(); }

private:
    Control *create(const QString &classId, const QString &name);

    QObject *m_owner;
    QVector<Control *> m_controls;
    // By name, once the collection is large enough for looking up to need it.
    QHash<CaselessKey, Control *> m_byName;
};

// The base of a user control with a window of its own, as the grid is: it gives its surface
// widget child controls, the extender that its container sees, the property-bag hooks, the
// property-changed notification and the ambient properties of its host. The surface's resize
// and paint events reach the handlers below. The editors, which a grid has thousands of, are
// user controls without windows (WindowlessUserControl).
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

    // The host's side of persistence: a fresh instance, restoring from a bag, saving to one.
    void initNew();
    void readProperties(PropertyBag &bag);
    void writeProperties(PropertyBag &bag) const;

    ControlCollection &Controls() { return m_controls; }
    const ControlCollection &Controls() const { return m_controls; }

signals:
    // The property-changed notification: the named persisted property has a new value.
    void PropertyChanged(const QString &name);

protected:
    void propertyChanged(const QString &name) { emit PropertyChanged(name); }

    virtual void UserControl_InitProperties() { }
    virtual void UserControl_ReadProperties(PropertyBag &) { }
    virtual void UserControl_WriteProperties(PropertyBag &) const { }
    virtual void UserControl_Resize() { }
    virtual void UserControl_Paint() { }

    // The paint handler also runs when this child, which covers the surface, is painted: the
    // surface hears of every expose and update of its area, covered or not. It runs once the
    // painting is done, since it may lay the children out.
    void paintThrough(QWidget *child);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QWidget *m_surface;
    QObject m_controlsOwner;
    ControlCollection m_controls { &m_controlsOwner };
    int m_scaleMode = 1;
    bool m_userMode = true;
    bool m_paintPending = false;
};

} // namespace kwFieldDeck
