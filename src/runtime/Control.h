#pragma once

#include "runtime/Colors.h"
#include "runtime/Twips.h"

#include <QFont>
#include <QObject>
#include <QPointer>
#include <QWidget>

#include <optional>

class QKeyEvent;

namespace kwFieldDeck {

// Key codes and shift state as key handlers receive them.
namespace KeyCode {
constexpr int Backspace = 8, Tab = 9, Return = 13, Shift = 16, Control = 17, Alt = 18, Escape = 27,
              Space = 32, PageUp = 33, PageDown = 34, End = 35, Home = 36, Left = 37, Up = 38,
              Right = 39, Down = 40, Insert = 45, Delete = 46, F1 = 112, F4 = 115;
} // namespace KeyCode
namespace ShiftState {
constexpr int Shift = 1, Ctrl = 2, Alt = 4;
} // namespace ShiftState

int keyCodeOf(int qtKey);
int typedCharacter(const QKeyEvent &key);
int shiftStateOf(Qt::KeyboardModifiers modifiers);

// A child control as the system sees it: a name, a container, geometry in the container's units
// (twips), visibility, colours, a font, and the events it listens to. The control is its state,
// not its widget: all that the system reads or writes of it is kept here, and a widget is
// realized for it only while it is needed (it is visible and in its container's view, it takes
// the focus, or code asks for widget()). Realizing takes a widget of the control's kind from the
// container's pool, or makes one, and pushes the state into it; releasing returns it to the pool.
// What the user changes is taken back as it happens, so the state is always current. Controls
// made around a widget of their own (forms, scroll bars, surfaces) keep that widget for life.
// Key handlers receive the key code, shift state and character by reference and swallow a key by
// setting it to 0.
class Control : public QObject
{
    Q_OBJECT
public:
    // A control around a widget of its own, kept for the control's whole life.
    Control(QWidget *widget, const QString &name, QObject *owner = nullptr);
    // Releases its widget to the container's pool; a widget of its own is deleted only while no
    // container holds it: a widget in a container goes with its container.
    ~Control() override;

    // The control that a widget is realized for, if any.
    static Control *of(const QWidget *widget);

    // The control's widget, realized now if it has none; null only for a kind without widgets.
    QWidget *widget() const;
    // The widget if one is realized, without realizing one.
    QWidget *realizedWidget() const { return m_widget; }
    bool isRealized() const { return m_widget; }
    QString Name() const { return m_name; }

    float Left() const { return m_left; }
    float Top() const { return m_top; }
    float Width() const { return m_width; }
    float Height() const { return m_height; }
    void setLeft(float left);
    void setTop(float top);
    void setWidth(float width);
    void setHeight(float height);
    void Move(float left, float top, std::optional<float> width = std::nullopt,
        std::optional<float> height = std::nullopt);

    bool Visible() const { return m_visible; }
    void setVisible(bool visible);
    // Whether the control is within reach of its container's view. A control out of reach has
    // no widget; Visible, Container, geometry and events are unaffected.
    bool inView() const { return m_inView; }
    void setInView(bool inView);
    // Puts the control's widget just below another one of the same container.
    void stackUnder(const Control *other);
    bool Enabled() const;
    void setEnabled(bool enabled);
    bool TabStop() const;
    void setTabStop(bool tabStop);

    OleColor BackColor() const { return m_backColor; }
    void setBackColor(OleColor color);
    OleColor ForeColor() const { return m_foreColor; }
    void setForeColor(OleColor color);
    QFont Font() const;
    void setFont(const QFont &font);

    QString ToolTipText() const { return m_toolTip; }
    void setToolTipText(const QString &text);
    // A free-use text that every control has.
    QString Tag() const { return m_tag; }
    void setTag(const QString &tag) { m_tag = tag; }
    // What assistive technology says of the control and of each of its parts that can take
    // the focus.
    void setAccessibleText(const QString &name, const QString &description);

    // The widget this control sits in (for a control in a user control without a window of its
    // own, that control's widget while it has one); moving it there keeps the geometry.
    QWidget *Container() const;
    void setContainer(QWidget *container);
    // Puts the control on the surface of a control without a window of its own: its widget then
    // lives inside that control's widget, realized and released with it.
    void setContainer(Control *surface);
    Control *containerControl() const { return m_surface; }

    // Gives the focus; a hidden or disabled control cannot take it (error 5). A control that
    // holds the focus already, itself or in a child, ignores the request.
    void SetFocus();
    bool hasFocus() const;
    // How the focus last arrived (Tab, Shift+Tab, mouse, ...).
    Qt::FocusReason lastFocusReason() const { return m_focusReason; }
    // Whether the focus last came back after another window or a popup (a dialog, a drop-down
    // list) took it away, rather than arriving anew.
    bool focusReturned() const;

    // The widgets of the control that Tab reaches, in their order.
    QVector<QWidget *> tabWidgets() const;

signals:
    void GotFocus();
    void LostFocus();
    void KeyDown(int &KeyCode, int &Shift);
    void KeyPress(int &KeyAscii);
    void KeyUp(int &KeyCode, int &Shift);
    void Click();
    void DblClick();

protected:
    // A control whose widget is realized when needed.
    Control(const QString &name, QObject *owner);
    // Names a control made before its name was known.
    void setName(const QString &name) { m_name = name; }

    // A new widget of the control's kind, in its default state; kinds without widgets return
    // null.
    virtual QWidget *createWidget() { return nullptr; }
    // The pool a widget of this control goes back to; by default one per class.
    virtual const void *widgetKind() const { return metaObject(); }
    // Puts the kind's own state into a widget just realized and connects to it; the shared state
    // (geometry, colours, font, ...) is in it already.
    virtual void attach(QWidget *) { }
    // The widget is about to be released; connections from it are undone afterwards.
    virtual void detach(QWidget *) { }
    // The size changed, in pixels: controls that lay out children do it here.
    virtual void resized() { }

    bool eventFilter(QObject *watched, QEvent *event) override;
    // Puts the colours on the widget; controls whose colours live elsewhere override it.
    virtual void applyColors();

private:
    // Realizes or releases the widget as visibility, reach and the container now ask.
    void updateWidget();
    QWidget *realize();
    void release();
    void bind(QWidget *widget);
    void placeWidget();
    void showWidget();
    void applyFont();
    void applyAccessibleText();
    void geometryChanged(int oldWidth, int oldHeight);
    bool filterKey(QObject *watched, QEvent *event);

    // Kept here rather than as the object name, which costs every control an extra block.
    QString m_name;
    QPointer<QWidget> m_widget;
    QPointer<QWidget> m_container;
    Control *m_surface = nullptr;
    QVector<Control *> m_children;
    float m_left = 0, m_top = 0, m_width = 0, m_height = 0;
    OleColor m_backColor = SystemColor::WindowBackground;
    OleColor m_foreColor = SystemColor::WindowText;
    QFont m_font;
    QString m_toolTip;
    QString m_tag;
    QString m_accessibleName;
    QString m_accessibleDescription;
    Qt::FocusReason m_focusReason = Qt::OtherFocusReason;
    Qt::FocusReason m_lostFocusReason = Qt::OtherFocusReason;
    bool m_ownWidget = false;
    bool m_visible = false;
    bool m_inView = true;
    bool m_enabled = true;
    bool m_tabStop = true;
    bool m_tabStopSet = false;
    bool m_colorsSet = false;
    bool m_fontSet = false;
    bool m_resending = false;
};

} // namespace kwFieldDeck
