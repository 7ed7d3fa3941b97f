#pragma once

#include <QDialog>

class QAction;
class QLabel;
class QMenu;
class QKeyEvent;
class QMimeData;
class QPlainTextEdit;
class QPushButton;
class QStatusBar;
class QTimer;

namespace kwFieldDeck {

// The memo editor window: a multi-line text box with a status bar (line count, caret line and
// column), a small menu, tab characters typed with Tab, file opening and drop, and a font that
// is remembered in the settings store. Every close, by the user or by code, only hides it: the
// text in the box when it closes is the result.
class frmMemo : public QDialog
{
    Q_OBJECT
    Q_PROPERTY(QString Title READ Title WRITE setTitle)
    Q_PROPERTY(QString Value READ Value WRITE setValue)
public:
    explicit frmMemo(QWidget *parent = nullptr);

    QString Title() const;
    void setTitle(const QString &title);
    // The text with CR LF between lines; text set and not edited since reads back as it was.
    QString Value() const;
    void setValue(const QString &text);

    // The window's parts, also found by these object names.
    QPushButton *const btnTab1;
    QPlainTextEdit *const txtMemo;
    QPushButton *const btnTab2;
    QTimer *const Timer1;
    QStatusBar *const StatusBar1;
    QMenu *const mnuFile;
    QAction *const mnuOpenFile;
    QMenu *const mnuEdit;
    QAction *const mnuSelectAll;
    QAction *const mnuBar1;
    QAction *const mnuCopy;
    QAction *const mnuCut;
    QAction *const mnuPaste;
    QMenu *const mnuView;
    QAction *const mnuFont;

    void reject() override;

protected:
    void showEvent(QShowEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void Form_Load();
    static qint16 GotFocusMethod(Qt::FocusReason reason);
    void SetFont();
    void CalcCursorPos();
    bool txtMemo_KeyDown(const QKeyEvent &key);
    void replaceTextWithFile(const QString &path);

    void Timer1_Timer();
    void txtMemo_OLEDragDrop(const QMimeData &Data);
    void btnTab1_GotFocus(Qt::FocusReason reason);
    void btnTab2_GotFocus(Qt::FocusReason reason);
    void mnuOpenFile_Click();
    void mnuSelectAll_Click();
    void mnuCopy_Click();
    void mnuCut_Click();
    void mnuPaste_Click();
    void mnuFont_Click();

    QLabel *m_linesPanel = nullptr;
    QLabel *m_positionPanel = nullptr;
    QString m_setText;
    QString m_FontName;
    float m_FontSize = 0;
};

} // namespace kwFieldDeck
