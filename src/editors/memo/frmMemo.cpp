#include "editors/memo/frmMemo.h"

#include "editors/memo/ModalShow.h"
#include "editors/memo/frmChooseFont.h"
#include "runtime/Clipboard.h"
#include "runtime/Error.h"
#include "runtime/FileDialogs.h"
#include "runtime/Files.h"
#include "runtime/LineBreaks.h"
#include "runtime/SettingsStore.h"
#include "runtime/Values.h"
#include "runtime/WindowNotifications.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QShortcut>
#include <QStatusBar>
#include <QTextBlock>
#include <QTimer>
#include <QUrl>
#include <QVBoxLayout>

namespace kwFieldDeck {

namespace {
const QString settingsSection = QStringLiteral("Settings");
const QString crLf = QStringLiteral("\r\n");

// The settings store's application name: whatever the host process calls itself.
QString appTitle()
{
    return QCoreApplication::applicationName();
}

template <typename T>
T *named(T *object, const char *name)
{
    object->setObjectName(QLatin1String(name));
    return object;
}

QMenu *menu(QWidget *window, const char *name, const QString &caption)
{
    return named(new QMenu(caption, window), name);
}

QAction *item(QMenu *menu, const char *name, const QString &caption)
{
    return named(menu->addAction(caption), name);
}

QLabel *panel(QStatusBar *bar, const char *name, int minimumWidth, int stretch = 0)
{
    auto *label = named(new QLabel(bar), name);
    label->setMinimumWidth(minimumWidth);
    label->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    bar->addWidget(label, stretch);
    return label;
}
} // namespace

frmMemo::frmMemo(QWidget *parent)
    : QDialog(parent)
    , btnTab1(named(new QPushButton(this), "btnTab1"))
    , txtMemo(named(new QPlainTextEdit(this), "txtMemo"))
    , btnTab2(named(new QPushButton(this), "btnTab2"))
    , Timer1(named(new QTimer(this), "Timer1"))
    , StatusBar1(named(new QStatusBar(this), "StatusBar1"))
    , mnuFile(menu(this, "mnuFile", QStringLiteral("File")))
    , mnuOpenFile(item(mnuFile, "mnuOpenFile", QStringLiteral("Open Text File")))
    , mnuEdit(menu(this, "mnuEdit", QStringLiteral("Edit")))
    , mnuSelectAll(item(mnuEdit, "mnuSelectAll", QStringLiteral("Select All")))
    , mnuBar1(named(mnuEdit->addSeparator(), "mnuBar1"))
    , mnuCopy(item(mnuEdit, "mnuCopy", QStringLiteral("Copy")))
    , mnuCut(item(mnuEdit, "mnuCut", QStringLiteral("Cut")))
    , mnuPaste(item(mnuEdit, "mnuPaste", QStringLiteral("Paste")))
    , mnuView(menu(this, "mnuView", QStringLiteral("View")))
    , mnuFont(item(mnuView, "mnuFont", QStringLiteral("Font")))
{
    setObjectName(QStringLiteral("frmMemo"));
    auto *menuBar = new QMenuBar(this);
    for (QMenu *title : { mnuFile, mnuEdit, mnuView })
        menuBar->addMenu(title);

    panel(StatusBar1, "Panel1", 0, 1);
    m_linesPanel = panel(StatusBar1, "Panel2", 80);
    m_positionPanel = panel(StatusBar1, "Panel3", 120);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->setMenuBar(menuBar);
    layout->addWidget(txtMemo);
    layout->addWidget(StatusBar1);

    // The focus catchers sit out of sight, yet shown and enabled so that Tab reaches them.
    btnTab1->setGeometry(-2000, 0, 20, 20);
    btnTab2->setGeometry(-2000, 24, 20, 20);
    for (QPushButton *catcher : { btnTab1, btnTab2 }) {
        catcher->setAutoDefault(false);
        catcher->installEventFilter(this);
    }
    setTabOrder(btnTab1, txtMemo);
    setTabOrder(txtMemo, btnTab2);

    txtMemo->setTabChangesFocus(true);
    txtMemo->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    txtMemo->installEventFilter(this);
    txtMemo->viewport()->installEventFilter(this);

    Timer1->setInterval(100);
    connect(Timer1, &QTimer::timeout, this, &frmMemo::Timer1_Timer);
    connect(mnuOpenFile, &QAction::triggered, this, &frmMemo::mnuOpenFile_Click);
    connect(mnuSelectAll, &QAction::triggered, this, &frmMemo::mnuSelectAll_Click);
    // The window sees its keys before its parts: Ctrl+A selects all wherever the focus is.
    connect(new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_A), this), &QShortcut::activated, this,
        &frmMemo::mnuSelectAll_Click);
    connect(mnuCopy, &QAction::triggered, this, &frmMemo::mnuCopy_Click);
    connect(mnuCut, &QAction::triggered, this, &frmMemo::mnuCut_Click);
    connect(mnuPaste, &QAction::triggered, this, &frmMemo::mnuPaste_Click);
    connect(mnuFont, &QAction::triggered, this, &frmMemo::mnuFont_Click);
    Timer1->start();

    resize(480, 288 + menuBar->sizeHint().height());
    Form_Load();
}

QString frmMemo::Title() const
{
    return windowTitle();
}

void frmMemo::setTitle(const QString &title)
{
    setWindowTitle(title);
}

QString frmMemo::Value() const
{
    // Until the text is edited it reads back as it was set, lone line breaks included.
    if (!txtMemo->document()->isModified())
        return m_setText;
    // Read line by line: the document's plain-text export would turn non-breaking spaces into
    // blanks.
    QString text;
    for (QTextBlock block = txtMemo->document()->firstBlock(); block.isValid();
         block = block.next()) {
        if (block.blockNumber() > 0)
            text += crLf;
        text += block.text();
    }
    return text;
}

void frmMemo::setValue(const QString &text)
{
    m_setText = text;
    txtMemo->setPlainText(toLf(text));
}

void frmMemo::Form_Load()
{
    trap("Sub 'Form_Load' of Form 'frmMemo'", [&] {
        windowLoaded(this, appTitle());
        m_FontName = SettingsStore::GetSetting(appTitle(), settingsSection,
            QStringLiteral("FontName"), QStringLiteral("MS Sans Serif"));
        m_FontSize = float(toDouble(textValue(SettingsStore::GetSetting(
            appTitle(), settingsSection, QStringLiteral("FontSize"), QStringLiteral("10")))));
        SetFont();
    });
}

void frmMemo::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    trap("Sub 'Form_Activate' of Form 'frmMemo'", [&] { txtMemo->setFocus(); });
}

void frmMemo::closeEvent(QCloseEvent *event)
{
    trap("Sub 'Form_QueryUnload' of Form 'frmMemo'", [&] {
        SettingsStore::SaveSetting(
            appTitle(), settingsSection, QStringLiteral("FontName"), m_FontName);
        SettingsStore::SaveSetting(appTitle(), settingsSection, QStringLiteral("FontSize"),
            textOf(singleValue(m_FontSize)));
        windowClosed(this);
    });
    // The window outlives every close by the user or by code: it only hides, and keeps its text.
    event->ignore();
    hide();
}

// Escape, wherever the focus is, closes the window as code does, with the same result.
void frmMemo::reject()
{
    close();
}

bool frmMemo::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == txtMemo && event->type() == QEvent::KeyPress)
        return txtMemo_KeyDown(static_cast<QKeyEvent &>(*event));
    if (watched == txtMemo->viewport()) {
        switch (event->type()) {
        case QEvent::DragEnter:
        case QEvent::DragMove: {
            // Only a file list is taken; text and other data dropped here do nothing.
            auto *drag = static_cast<QDragMoveEvent *>(event);
            if (drag->mimeData()->hasUrls())
                drag->acceptProposedAction();
            else
                drag->ignore();
            return true;
        }
        case QEvent::Drop: {
            auto *drop = static_cast<QDropEvent *>(event);
            drop->acceptProposedAction();
            txtMemo_OLEDragDrop(*drop->mimeData());
            return true;
        }
        default:
            break;
        }
    }
    if (event->type() == QEvent::FocusIn) {
        const Qt::FocusReason reason = static_cast<QFocusEvent *>(event)->reason();
        if (watched == btnTab1)
            btnTab1_GotFocus(reason);
        else if (watched == btnTab2)
            btnTab2_GotFocus(reason);
    }
    return QDialog::eventFilter(watched, event);
}

// The window sees each key of the text box first; true when the key is used up here.
bool frmMemo::txtMemo_KeyDown(const QKeyEvent &key)
{
    trap("Sub 'txtMemo_KeyPress' of Form 'frmMemo'", [&] { CalcCursorPos(); });
    const Qt::KeyboardModifiers modifiers = key.modifiers() & ~Qt::KeypadModifier;
    if (key.key() == Qt::Key_A && modifiers == Qt::ControlModifier) {
        mnuSelectAll_Click();
        return true;
    }
    if (key.key() == Qt::Key_Escape) {
        close();
        return true;
    }
    // Ctrl+Tab types a tab character, since Tab itself moves the focus on (to btnTab2).
    if (key.key() == Qt::Key_Tab && modifiers == Qt::ControlModifier) {
        if (!txtMemo->isReadOnly())
            txtMemo->insertPlainText(QStringLiteral("\t"));
        return true;
    }
    // Every line break is a plain one, so that each line is one CR LF of the value.
    if ((key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter)
        && modifiers & Qt::ShiftModifier) {
        if (!txtMemo->isReadOnly())
            txtMemo->insertPlainText(QStringLiteral("\n"));
        return true;
    }
    return false;
}

qint16 frmMemo::GotFocusMethod(Qt::FocusReason reason)
{
    switch (reason) {
    case Qt::BacktabFocusReason:
        return 4;
    case Qt::TabFocusReason:
        return 1;
    case Qt::ShortcutFocusReason:
        return 2;
    case Qt::MouseFocusReason:
        return 3;
    default:
        return 0;
    }
}

void frmMemo::SetFont()
{
    trap("Sub 'SetFont' of Form 'frmMemo'", [&] {
        QFont font = txtMemo->font();
        font.setFamily(m_FontName);
        font.setBold(false);
        font.setItalic(false);
        font.setUnderline(false);
        // A size of 5 or less is not applied: the box keeps its size. Intended.
        if (m_FontSize > 5)
            font.setPointSizeF(m_FontSize);
        txtMemo->setFont(font);
    });
}

void frmMemo::CalcCursorPos()
{
    trap("Sub 'CalcCursorPos' of Form 'frmMemo'", [&] {
        // Each line of the box stands for one CR LF of the value, so the box's lines are counted.
        const QTextDocument *document = txtMemo->document();
        const int start = txtMemo->textCursor().selectionStart();
        const QTextBlock block = document->findBlock(start);
        const int line = block.blockNumber() + 1;
        const int column = start - block.position() + 1;
        m_positionPanel->setText(QStringLiteral("  Ln %1, Col %2  ").arg(line).arg(column));
        const int lines = document->blockCount();
        m_linesPanel->setText(QStringLiteral("%1 %2").arg(lines).arg(
            lines == 1 ? QStringLiteral("Line") : QStringLiteral("Lines")));
    });
}

void frmMemo::Timer1_Timer()
{
    trap("Sub 'Timer1_Timer' of Form 'frmMemo'", [&] {
        CalcCursorPos();
        const bool selected = txtMemo->textCursor().hasSelection();
        mnuCopy->setEnabled(selected);
        mnuCut->setEnabled(selected);
    });
}

void frmMemo::replaceTextWithFile(const QString &path)
{
    // A file written with LF or CR line ends is read as the CR LF lines of the text.
    setValue(toCrLf(ReadWholeFile(path)));
}

void frmMemo::txtMemo_OLEDragDrop(const QMimeData &Data)
{
    trap("Sub 'txtMemo_OLEDragDrop' of Form 'frmMemo'", [&] {
        const QList<QUrl> urls = Data.urls();
        if (urls.size() == 1 && urls.first().isLocalFile()
            && FileExists(urls.first().toLocalFile()))
            replaceTextWithFile(urls.first().toLocalFile());
    });
}

void frmMemo::btnTab1_GotFocus(Qt::FocusReason reason)
{
    trap("Sub 'btnTab1_GotFocus' of Form 'frmMemo'", [&] {
        if (GotFocusMethod(reason) != 4)
            return;
        txtMemo->setFocus();
        const int p = txtMemo->textCursor().selectionStart();
        // At the very start there is no character before the caret: the check fails into this
        // trap and nothing is deleted. Intended.
        if (p < 1)
            kwFieldDeck::raise(ErrInvalidCall);
        // Shift+Tab takes back the tab before the caret, as Backspace would.
        if (txtMemo->document()->characterAt(p - 1) == u'\t') {
            QTextCursor cursor = txtMemo->textCursor();
            cursor.deletePreviousChar();
            txtMemo->setTextCursor(cursor);
        }
    });
}

void frmMemo::btnTab2_GotFocus(Qt::FocusReason reason)
{
    trap("Sub 'btnTab2_GotFocus' of Form 'frmMemo'", [&] {
        if (GotFocusMethod(reason) != 1)
            return;
        txtMemo->setFocus();
        // Tab types a tab into the memo rather than leaving it; over a selection it does nothing.
        if (!txtMemo->textCursor().hasSelection())
            txtMemo->insertPlainText(QStringLiteral("\t"));
    });
}

void frmMemo::mnuOpenFile_Click()
{
    trap("Sub 'mnuOpenFile_Click' of Form 'frmMemo'", [&] {
        const QString path = OpenFileDialog(QString(), QStringLiteral("C:\\"),
            QStringLiteral("Select A Text File From Below"),
            QStringLiteral("Text Files (*.txt)|*.txt|All Files (*.*)|*.*"));
        if (!path.isEmpty() && FileExists(path))
            replaceTextWithFile(path);
    });
}

void frmMemo::mnuSelectAll_Click()
{
    trap("Sub 'mnuSelectAll_Click' of Form 'frmMemo'", [&] { txtMemo->selectAll(); });
}

void frmMemo::mnuCopy_Click()
{
    trap("Sub 'mnuCopy_Click' of Form 'frmMemo'", [&] {
        const QTextCursor cursor = txtMemo->textCursor();
        if (cursor.hasSelection())
            Clipboard::SetText(cursor.selectedText().replace(QChar::ParagraphSeparator, crLf));
    });
}

void frmMemo::mnuCut_Click()
{
    trap("Sub 'mnuCut_Click' of Form 'frmMemo'", [&] {
        if (!txtMemo->textCursor().hasSelection())
            return;
        mnuCopy_Click();
        txtMemo->textCursor().removeSelectedText();
    });
}

void frmMemo::mnuPaste_Click()
{
    trap("Sub 'mnuPaste_Click' of Form 'frmMemo'",
        [&] { txtMemo->insertPlainText(toLf(Clipboard::GetText())); });
}

void frmMemo::mnuFont_Click()
{
    trap("Sub 'mnuFont_Click' of Form 'frmMemo'", [&] {
        frmChooseFont chooser(this);
        chooser.setFont_Name(m_FontName);
        chooser.setFont_Size(m_FontSize);
        showModal(chooser);
        if (chooser.Cancelled())
            return;
        m_FontName = chooser.Font_Name();
        m_FontSize = chooser.Font_Size();
        SetFont();
    });
}

} // namespace kwFieldDeck
