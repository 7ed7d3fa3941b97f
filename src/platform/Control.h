#pragma once

#include "platform/Colors.h"

#include <QFont>
#include <QObject>
#include <QPointer>
#include <QWidget>

#include <optional>

class QKeyEvent;

namespace kwFieldDeck {

// Twips per screen pixel (1440 / logical DPI; 15 at 96 DPI).
double twipsPerPixelX();
double twipsPerPixelY();
int twipsToPixelsX(double twips);
int twipsToPixelsY(double twips);

// Width and height of a text drawn in a font, in twips.
double textWidthTwips(const QFont &font, const QString &text);
double textHeightTwips(const QFont &font, const QString &text);

// Key codes and shift state as the original platform reported them to key handlers.
namespace KeyCode {
constexpr int Backspace = 8, Tab = 9, Return = 13, Shift = 16, Control = 17, Alt = 18,
              Escape = 27, Space = 32, PageUp = 33, PageDown = 34, End = 35, Home = 36,
              Left = 37, Up = 38, Right = 39, Down = 40, Insert = 45, Delete = 46, F1 = 112,
              F4 = 115;
} // namespace KeyCode
namespace ShiftState {
constexpr int Shift = 1, Ctrl = 2, Alt = 4;
} // namespace ShiftState

int keyCodeOf(int qtKey);
int typedCharacter(const QKeyEvent &key);
int shiftStateOf(Qt::KeyboardModifiers modifiers);

// A child control as the system sees it: a name, a container, geometry in the container's units
// (twips), visibility, colours, a font, and the events it listens to. The geometry is kept as the
// values that were set; the widget sits at the rounded pixel position. Key handlers receive the
// key code, shift state and character by reference and swallow a key by setting it to 0.
class Control : public QObject
{
    Q_OBJECT
public:
    Control(QWidget *widget, const QString &name, QObject *owner = nullptr);
    // Deletes the widget only while no container holds it: a widget in a container goes with
    // its container, as every child control does when its user control unloads.
    ~Control() override;

    // The control that wraps a widget, if any.
    static Control *of(const QWidget *widget);

    QWidget *widget() const { return m_widget; }
    QString Name() const { return objectName(); }

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
    // Whether the container currently shows the control's part of itself. A container with
    // thousands of children keeps only those near its view as its own; the others wait in a
    // hidden holder inside it, since Qt's work for a widget (painting, passing on updates,
    // finding what lies under the pointer) walks all its children, shown or not. Visible,
    // Container, geometry and the tab order are unaffected.
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

    QString ToolTipText() const;
    void setToolTipText(const QString &text);
    // A free-use text, as every control of the original platform had.
    QString Tag() const { return m_tag; }
    void setTag(const QString &tag) { m_tag = tag; }

    // The widget this control sits in; moving it there keeps the geometry.
    QWidget *Container() const;
    void setContainer(QWidget *container);

    // Gives the focus; a hidden or disabled control cannot take it (error 5). A control that
    // holds the focus already, itself or in a child, ignores the request.
    void SetFocus();
    bool hasFocus() const;
    // How the focus last arrived (Tab, Shift+Tab, mouse, ...).
    Qt::FocusReason lastFocusReason() const { return m_focusReason; }
    // Whether the focus last came back after another window or a popup (a dialog, a drop-down
    // list) took it away, rather than arriving anew.
    bool focusReturned() const;

signals:
    void GotFocus();
    void LostFocus();
    void KeyDown(int &KeyCode, int &Shift);
    void KeyPress(int &KeyAscii);
    void KeyUp(int &KeyCode, int &Shift);
    void Click();
    void DblClick();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    // Puts the colours on the widget; controls whose colours live elsewhere override it.
    virtual void applyColors();
    void placeWidget();
    void showWidget();

private:
    bool filterKey(QObject *watched, QEvent *event);

    QPointer<QWidget> m_widget;
    // The container while the control is out of its view.
    QPointer<QWidget> m_container;
    float m_left = 0, m_top = 0, m_width = 0, m_height = 0;
    bool m_visible = true;
    bool m_inView = true;
    OleColor m_backColor = SystemColor::WindowBackground;
    OleColor m_foreColor = SystemColor::WindowText;
    QString m_tag;
    Qt::FocusReason m_focusReason = Qt::OtherFocusReason;
    Qt::FocusReason m_lostFocusReason = Qt::OtherFocusReason;
    bool m_resending = false;
};

} // namespace kwFieldDeck
