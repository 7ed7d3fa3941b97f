#pragma once

#include "platform/Colors.h"
#include "platform/UserControl.h"

#include <QFont>
#include <QObject>

class QKeyEvent;

namespace kwFieldDeck {

class Control;
class PropertyBag;

// A user control without a window of its own: its host surface is its extender, a control whose
// widget (a plain surface, with the children's widgets on it) is realized and released like any
// other control's, so a user control costs no widget while it is out of reach of the view. The
// child controls, the property-bag hooks, the property-changed notification and the ambient
// properties of its host are those of every user control.
class WindowlessUserControl : public QObject
{
    Q_OBJECT
public:
    ~WindowlessUserControl() override;

    // The user control inside an extender, if it is one.
    static WindowlessUserControl *of(const Control *extender);

    // The control its container sees; the user control lives as long as it does.
    Control *extender() const { return m_extender; }
    // The outer size as the container sees it, in twips.
    float extenderWidth() const;
    float extenderHeight() const;
    // The host surface's own inner width, in twips, in whole pixels.
    float ScaleWidth() const;
    // Sizes the host surface alone; the extender keeps its size until it is next moved.
    void resizeSurface(float width);

    // Host surface appearance.
    OleColor surfaceBackColor() const { return m_backColor; }
    void setSurfaceBackColor(OleColor color);
    int surfaceBackStyle() const { return m_backStyle; }
    void setSurfaceBackStyle(int style);
    int surfaceBorderStyle() const { return m_borderStyle; }
    void setSurfaceBorderStyle(int style);
    int surfaceScaleMode() const { return m_scaleMode; }
    void setSurfaceScaleMode(int mode) { m_scaleMode = mode; }

    // The ambient font: the host's.
    QFont ambientFont() const;
    // The window the user control is shown in, for dialogs it owns; null while it has none.
    QWidget *window() const;

    void initNew() { UserControl_InitProperties(); }
    void readProperties(PropertyBag &bag) { UserControl_ReadProperties(bag); }
    void writeProperties(PropertyBag &bag) const { UserControl_WriteProperties(bag); }

    ControlCollection &Controls() { return m_controls; }
    const ControlCollection &Controls() const { return m_controls; }

    // Makes a user control and the extender it lives in; for the class factory.
    template <typename T>
    static Control *create(const QString &name, QObject *owner)
    {
        auto *userControl = new T;
        Control *extender = userControl->makeExtender(name, owner);
        userControl->initNew();
        return extender;
    }

signals:
    void PropertyChanged(const QString &name);

protected:
    WindowlessUserControl();

    void propertyChanged(const QString &name) { emit PropertyChanged(name); }

    virtual void UserControl_InitProperties() { }
    virtual void UserControl_ReadProperties(PropertyBag &) { }
    virtual void UserControl_WriteProperties(PropertyBag &) const { }
    virtual void UserControl_Resize() { }
    virtual void UserControl_Click() { }
    // The host surface itself got the focus, or a key while it holds it.
    virtual void UserControl_GotFocus() { }
    virtual void UserControl_KeyPress(QKeyEvent *) { }

private:
    friend class SurfaceExtender;
    Control *makeExtender(const QString &name, QObject *owner);
    void surfaceResized();

    Control *m_extender = nullptr;
    ControlCollection m_controls;
    int m_surfaceWidth = 0; // pixels
    OleColor m_backColor = SystemColor::ButtonFace;
    int m_backStyle = 1;
    int m_borderStyle = 0;
    int m_scaleMode = 1;
};

} // namespace kwFieldDeck
