#pragma once

#include "platform/ClassFactory.h"
#include "platform/Colors.h"
#include "platform/Error.h"
#include "platform/WindowlessUserControl.h"

#include <QByteArray>
#include <QFont>
#include <QVariant>
#include <QVector>

#include <functional>
#include <optional>

namespace kwFieldDeck {

class Control;
class PropertyBag;

// The common frame of the library's editor controls: a host surface with one to three children,
// the shared property set, the persistence pattern and the events every editor declares.
//
// Where a shared property lives differs per editor (host surface, a member, or a child); the
// frame keeps it on the host surface (BackColor, BackStyle, BorderStyle) or in a member
// (ForeColor, Enabled, Font), and an editor overrides the accessors whose target is elsewhere.
// Top, Left, Height, Visible and Move go through the extender; Width is the host surface's own.
class kwEditorControl : public WindowlessUserControl
{
    Q_OBJECT
    Q_PROPERTY(quint32 BackColor READ BackColor WRITE setBackColor)
    Q_PROPERTY(quint32 ForeColor READ ForeColor WRITE setForeColor)
    Q_PROPERTY(bool Enabled READ Enabled WRITE setEnabled)
    Q_PROPERTY(QFont Font READ Font WRITE setFont)
    Q_PROPERTY(qint16 BackStyle READ BackStyle WRITE setBackStyle)
    Q_PROPERTY(qint16 BorderStyle READ BorderStyle WRITE setBorderStyle)
    Q_PROPERTY(float Top READ Top WRITE setTop)
    Q_PROPERTY(float Left READ Left WRITE setLeft)
    Q_PROPERTY(float Width READ Width WRITE setWidth)
    Q_PROPERTY(float Height READ Height WRITE setHeight)
    Q_PROPERTY(qint32 ContainerHwnd READ ContainerHwnd WRITE setContainerHwnd)
    Q_PROPERTY(qint16 ScaleMode READ ScaleMode WRITE setScaleMode)
public:
    ~kwEditorControl() override;

    // The control's name in its error reports ("kwSimpleCheck").
    QString controlName() const { return QString::fromLatin1(m_controlName); }

    virtual OleColor BackColor() const;
    virtual void setBackColor(OleColor color);
    virtual OleColor ForeColor() const;
    virtual void setForeColor(OleColor color);
    // An editor's Enabled is its own property, kept or applied to its children as each editor
    // says; the extender's Enabled disables the whole.
    virtual bool Enabled() const;
    virtual void setEnabled(bool enabled);
    // The font is kept or handed to a child as each editor says, while the host surface keeps
    // the font it measures with.
    virtual QFont Font() const;
    virtual void setFont(const QFont &font);
    virtual qint16 BackStyle() const;
    virtual void setBackStyle(qint16 style);
    virtual qint16 BorderStyle() const;
    virtual void setBorderStyle(qint16 style);

    // Moves through the extender with exactly the arguments given; omitted sizes keep theirs.
    void Move(float Left, float Top, std::optional<float> Width = std::nullopt,
        std::optional<float> Height = std::nullopt);

    QWidget *Container() const;
    void setContainer(QWidget *container);
    float Top() const;
    void setTop(float top);
    float Left() const;
    void setLeft(float left);
    float Height() const;
    void setHeight(float height);
    // The host surface's own width, not the extender's; this asymmetry with Height is intended.
    float Width() const;
    void setWidth(float width);
    // Through the extender; it is shown and hidden by the extender's setVisible.
    bool Visible() const;

    // Gives the focus to the child that takes it (focusTarget()). The row-focus routine asks
    // again from every focus event of its row, so a control that holds the focus already, in
    // any of its children, keeps it where it is: Tab onto a "..." button stays there.
    void SetFocus();

    // A stored value only; nothing uses it.
    qint32 ContainerHwnd() const { return m_ContainerHwnd; }
    void setContainerHwnd(qint32 hwnd);
    qint16 ScaleMode() const;
    void setScaleMode(qint16 mode);

signals:
    // One of the control's children got the focus; the field makes its row current.
    void HasFocus();
    // The events of an ordinary control; each editor raises only those it says it raises.
    void Click();
    void DblClick();
    void KeyDown(int &KeyCode, int &Shift);
    void KeyPress(int &KeyAscii);
    void KeyUp(int &KeyCode, int &Shift);
    void MouseDown(int Button, int Shift, float X, float Y);
    void MouseMove(int Button, int Shift, float X, float Y);
    void MouseUp(int Button, int Shift, float X, float Y);

protected:
    explicit kwEditorControl(const char *controlName);

    // A child fixed at design time: created by its class identifier on this surface, and
    // visible, as design-time children are.
    template <typename Child>
    Child *addChild(const char *name)
    {
        auto *child = static_cast<Child *>(
            Controls().Add(QLatin1String(Child::ClassId), QLatin1String(name), extender()));
        child->setVisible(true);
        return child;
    }

    // The child that SetFocus gives the focus to; by default the host surface itself, through
    // the extender, as a control without a SetFocus of its own is focused.
    virtual Control *focusTarget();

    // "<kind> '<name>' of User Control '<control>'": the source text of an error report.
    // Made once per text and kept, since every trapped call names its source.
    const QByteArray &source(const char *kind, const char *name) const;

    // A persisted property's setter: the assignment under the error trap, then property-changed.
    template <typename Assign>
    void changeProperty(const char *name, Assign &&assign)
    {
        trap(source("Property", name).constData(), [&] {
            assign();
            propertyChanged(QString::fromLatin1(name));
        });
    }

    // Up and Down leave for the previous or next row by synthesised Shift+Tab and Tab; the key
    // code is zeroed first. Returns whether the key was one of the two.
    static bool moveToNeighbourRow(int &KeyCode, const QString &forward = QStringLiteral("{tab}"));

    // One row of the control's persistence table: the name in the bag, its default, and how the
    // value is taken from and given to its target. Names may repeat; each row is read and
    // written in turn.
    struct PersistedProperty
    {
        QString name;
        QVariant defaultValue;
        std::function<QVariant()> take;
        std::function<void(const QVariant &)> give;
    };
    // The control's table, in reading and writing order.
    virtual QVector<PersistedProperty> persistedProperties() = 0;

    static PersistedProperty colorProperty(const char *name, OleColor defaultValue,
        std::function<OleColor()> take, std::function<void(OleColor)> give);
    static PersistedProperty boolProperty(const char *name, bool defaultValue,
        std::function<bool()> take, std::function<void(bool)> give);
    static PersistedProperty int16Property(const char *name, qint16 defaultValue,
        std::function<qint16()> take, std::function<void(qint16)> give);
    static PersistedProperty int32Property(const char *name, qint32 defaultValue,
        std::function<qint32()> take, std::function<void(qint32)> give);
    static PersistedProperty textProperty(const char *name, const QString &defaultValue,
        std::function<QString()> take, std::function<void(const QString &)> give);
    // A font, with the container's ambient font as default.
    PersistedProperty fontProperty(const char *name, std::function<QFont()> take,
        std::function<void(const QFont &)> give) const;

    // Rows that several editors keep in the same place with the same default.
    PersistedProperty surfaceBackColorProperty(OleColor defaultValue);
    PersistedProperty surfaceBackStyleProperty();
    PersistedProperty surfaceBorderStyleProperty();
    PersistedProperty scaleModeProperty();
    PersistedProperty foreColorMemberProperty();
    PersistedProperty enabledMemberProperty(bool defaultValue);
    PersistedProperty containerHwndProperty();

    void UserControl_ReadProperties(PropertyBag &bag) override;
    void UserControl_WriteProperties(PropertyBag &bag) const override;

    // Members for the shared properties whose target is the control itself.
    OleColor m_BackColor = 0;
    OleColor m_ForeColor = 0;
    bool m_Enabled = false;
    QFont m_Font;
    qint16 m_BackStyle = 0;
    qint16 m_BorderStyle = 0;
    qint32 m_ContainerHwnd = 0;

private:
    const char *m_controlName;
};

// Makes an editor creatable by the class factory as "<library>.<class name>".
template <typename Editor>
bool registerEditor(const char *className)
{
    return ClassFactory::registerClass(libraryTitle() + QLatin1Char('.') + QLatin1String(className),
        &WindowlessUserControl::create<Editor>);
}

} // namespace kwFieldDeck
