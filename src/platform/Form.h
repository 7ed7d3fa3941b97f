#pragma once

#include <QFont>
#include <QObject>
#include <QPointer>
#include <QString>

#include <functional>

class QEventLoop;
class QMenuBar;
class QWidget;

namespace kwFieldDeck {

class Menu;

// A top-level window of the library (the base of its modal windows): a caption, a menu bar, a
// client area that holds the child controls, modal show, Hide, and Unload with a query step that
// can cancel. With KeyPreview on, the window sees every key before the control that has focus.
class Form : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString Caption READ Caption WRITE setCaption)
    Q_PROPERTY(bool KeyPreview READ KeyPreview WRITE setKeyPreview)
public:
    // Why a window is being unloaded, as the query step is told.
    enum UnloadMode { FormControlMenu = 0, FormCode = 1, AppWindows = 2 };
    // 2 is a sizable window, 3 a fixed dialog.
    enum BorderStyles { Sizable = 2, FixedDialog = 3 };
    static constexpr int Modal = 1;

    explicit Form(const QString &name, QObject *owner = nullptr);
    ~Form() override;

    QString Name() const { return objectName(); }
    // The top-level window, and the area below its menu bar that the child controls sit in.
    QWidget *window() const;
    QWidget *client() const;

    QString Caption() const;
    void setCaption(const QString &caption);
    bool KeyPreview() const { return m_keyPreview; }
    void setKeyPreview(bool keyPreview);
    int BorderStyle() const { return m_borderStyle; }
    void setBorderStyle(int style);
    QFont Font() const;
    void setFont(const QFont &font);
    bool Visible() const;

    // Size of the client area, in twips.
    float ScaleWidth() const;
    float ScaleHeight() const;
    void setClientSize(float width, float height);

    // A menu title on the menu bar; its items are added to it.
    Menu *addMenu(const QString &name, const QString &caption);
    QMenuBar *menuBar() const;

    // Runs the load step once; Show does it when it was not done yet.
    void Load();
    bool isLoaded() const { return m_loaded; }
    // Shows the window; with Modal, returns only when the window is hidden or unloaded.
    void Show(int modal = 0);
    void Hide();
    // Unloads the window as code does (mode 1); the query step may cancel.
    void Unload();

    // The seam for modal windows: a hook that runs once a window is shown modally, inside its
    // modal loop, so that a test can work the real window and close it. Returns the previous one.
    using ModalShowHook = std::function<void(Form &form)>;
    static ModalShowHook setModalShowHook(ModalShowHook hook);

protected:
    virtual void Form_Load() { }
    virtual void Form_Activate() { }
    virtual void Form_Resize() { }
    virtual void Form_QueryUnload(int &, int) { }
    virtual void Form_Unload(int &) { }
    virtual void Form_KeyDown(int &, int &) { }
    virtual void Form_KeyPress(int &) { }

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool unloadFor(int unloadMode);
    bool previewKey(QObject *receiver, QEvent *event);
    void applyBorderStyle();

    QWidget *m_window;
    QWidget *m_client;
    QMenuBar *m_menuBar = nullptr;
    QPointer<QEventLoop> m_modalLoop;
    bool m_keyPreview = false;
    bool m_loaded = false;
    int m_borderStyle = Sizable;
};

} // namespace kwFieldDeck
