#include "memo/frmMemo.h"

#include "memo/frmChooseFont.h"
#include "platform/Clipboard.h"
#include "platform/CommandButton.h"
#include "platform/DataObject.h"
#include "platform/Error.h"
#include "platform/KeyState.h"
#include "platform/LineBreaks.h"
#include "platform/Menu.h"
#include "platform/MultiLineTextBox.h"
#include "platform/Services.h"
#include "platform/SettingsStore.h"
#include "platform/StatusBar.h"
#include "platform/StatusBarPanel.h"
#include "platform/Timer.h"
#include "platform/Values.h"
#include "util/FileDialogs.h"
#include "util/Files.h"
#include "util/Text.h"
#include "util/WindowNotifications.h"

#include <QCoreApplication>

namespace kwFieldDeck {

namespace {
const QString settingsSection = QStringLiteral("Settings");
const QString crLf = QStringLiteral("\r\n");

// The settings store's application name: whatever the host process calls itself.
QString appTitle()
{
    return QCoreApplication::applicationName();
}
} // namespace

frmMemo::frmMemo(QObject *owner)
    : Form(QStringLiteral("frmMemo"), owner)
    , btnTab1(new CommandButton(QStringLiteral("btnTab1"), this))
    , txtMemo(new MultiLineTextBox(QStringLiteral("txtMemo"), this))
    , btnTab2(new CommandButton(QStringLiteral("btnTab2"), this))
    , Timer1(new Timer(QStringLiteral("Timer1"), this))
    , StatusBar1(new StatusBar(QStringLiteral("StatusBar1"), this))
    , mnuFile(addMenu(QStringLiteral("mnuFile"), QStringLiteral("File")))
    , mnuOpenFile(mnuFile->addItem(QStringLiteral("mnuOpenFile"), QStringLiteral("Open Text File")))
    , mnuEdit(addMenu(QStringLiteral("mnuEdit"), QStringLiteral("Edit")))
    , mnuSelectAll(mnuEdit->addItem(QStringLiteral("mnuSelectAll"), QStringLiteral("Select All")))
    , mnuBar1(mnuEdit->addItem(QStringLiteral("mnuBar1"), QStringLiteral("-")))
    , mnuCopy(mnuEdit->addItem(QStringLiteral("mnuCopy"), QStringLiteral("Copy")))
    , mnuCut(mnuEdit->addItem(QStringLiteral("mnuCut"), QStringLiteral("Cut")))
    , mnuPaste(mnuEdit->addItem(QStringLiteral("mnuPaste"), QStringLiteral("Paste")))
    , mnuView(addMenu(QStringLiteral("mnuView"), QStringLiteral("View")))
    , mnuFont(mnuView->addItem(QStringLiteral("mnuFont"), QStringLiteral("Font")))
{
    setKeyPreview(true);
    setClientSize(7200, 4320);

    for (Control *part :
        std::initializer_list<Control *> { btnTab1, txtMemo, btnTab2, StatusBar1 }) {
        part->setContainer(client());
        part->setVisible(true);
    }
    // The focus catchers sit out of sight, yet visible and enabled so that Tab reaches them.
    btnTab1->Move(-2000, 0, 300, 300);
    btnTab2->Move(-2000, 360, 300, 300);
    QWidget::setTabOrder(btnTab1->widget(), txtMemo->widget());
    QWidget::setTabOrder(txtMemo->widget(), btnTab2->widget());
    txtMemo->Move(0, 0, ScaleWidth(), ScaleHeight());
    txtMemo->setScrollBars(2);
    txtMemo->setOLEDropMode(1);

    StatusBar1->AddPanel(StatusBarPanel::Spring);
    StatusBar1->AddPanel(StatusBarPanel::Contents)->setMinWidth(1200);
    StatusBar1->AddPanel(StatusBarPanel::Contents)->setMinWidth(1800);

    Timer1->setInterval(100);

    connect(Timer1, &Timer::Tick, this, &frmMemo::Timer1_Timer);
    connect(txtMemo, &Control::KeyPress, this, &frmMemo::txtMemo_KeyPress);
    connect(txtMemo, &MultiLineTextBox::OLEDragDrop, this, &frmMemo::txtMemo_OLEDragDrop);
    connect(btnTab1, &Control::GotFocus, this, &frmMemo::btnTab1_GotFocus);
    connect(btnTab2, &Control::GotFocus, this, &frmMemo::btnTab2_GotFocus);
    connect(mnuOpenFile, &Menu::Click, this, &frmMemo::mnuOpenFile_Click);
    connect(mnuSelectAll, &Menu::Click, this, &frmMemo::mnuSelectAll_Click);
    connect(mnuCopy, &Menu::Click, this, &frmMemo::mnuCopy_Click);
    connect(mnuCut, &Menu::Click, this, &frmMemo::mnuCut_Click);
    connect(mnuPaste, &Menu::Click, this, &frmMemo::mnuPaste_Click);
    connect(mnuFont, &Menu::Click, this, &frmMemo::mnuFont_Click);
    Form_Resize();
}

QString frmMemo::Title() const
{
    return trap("Property 'Title' of Form 'frmMemo'", [&] { return Caption(); });
}

void frmMemo::setTitle(const QString &title)
{
    trap("Property 'Title' of Form 'frmMemo'", [&] { setCaption(title); });
}

QString frmMemo::Value() const
{
    return trap("Property 'Value' of Form 'frmMemo'", [&] { return txtMemo->Text(); });
}

void frmMemo::setValue(const QString &text)
{
    trap("Property 'Value' of Form 'frmMemo'", [&] { txtMemo->setText(text); });
}

void frmMemo::Form_Load()
{
    trap("Sub 'Form_Load' of Form 'frmMemo'", [&] {
        windowLoaded(window(), appTitle());
        m_FontName = SettingsStore::GetSetting(appTitle(), settingsSection,
            QStringLiteral("FontName"), QStringLiteral("MS Sans Serif"));
        m_FontSize = float(toDouble(textValue(SettingsStore::GetSetting(
            appTitle(), settingsSection, QStringLiteral("FontSize"), QStringLiteral("10")))));
        SetFont();
    });
}

void frmMemo::Form_Activate()
{
    trap("Sub 'Form_Activate' of Form 'frmMemo'", [&] { txtMemo->SetFocus(); });
}

void frmMemo::Form_Resize()
{
    trap("Sub 'Form_Resize' of Form 'frmMemo'", [&] {
        txtMemo->setWidth(ScaleWidth());
        txtMemo->setHeight(ScaleHeight() - StatusBar1->Height());
    });
}

void frmMemo::Form_QueryUnload(int &Cancel, int UnloadMode)
{
    trap("Sub 'Form_QueryUnload' of Form 'frmMemo'", [&] {
        if (UnloadMode != FormControlMenu && UnloadMode != FormCode)
            return;
        SettingsStore::SaveSetting(
            appTitle(), settingsSection, QStringLiteral("FontName"), m_FontName);
        SettingsStore::SaveSetting(appTitle(), settingsSection, QStringLiteral("FontSize"),
            textOf(singleValue(m_FontSize)));
        windowClosed(window());
        // The window outlives every close by the user: it only hides, and keeps its text.
        Cancel = 1;
        Hide();
    });
}

void frmMemo::Form_KeyDown(int &KeyCode, int &Shift)
{
    trap("Sub 'Form_KeyDown' of Form 'frmMemo'", [&] {
        if (KeyCode == 65 && Shift == ShiftState::Ctrl)
            mnuSelectAll_Click();
    });
}

void frmMemo::Form_KeyPress(int &KeyAscii)
{
    trap("Sub 'Form_KeyPress' of Form 'frmMemo'", [&] {
        if (KeyAscii == 27)
            Unload();
    });
}

qint16 frmMemo::GotFocusMethod() const
{
    return trap("Function 'GotFocusMethod' of Form 'frmMemo'", [&]() -> qint16 {
        switch (KeyState::focusArrivalReason()) {
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
    });
}

void frmMemo::SetFont()
{
    trap("Sub 'SetFont' of Form 'frmMemo'", [&] {
        QFont font = txtMemo->Font();
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
        const QString text = txtMemo->Text();
        const int p = txtMemo->SelStart();
        int line = 1;
        int column = 1;
        if (p > 0) {
            const QString before = text.left(p);
            line = LineCount(before);
            column = line == 1 ? p + 1 : p - int(before.lastIndexOf(crLf) + 1);
        }
        StatusBar1->Panels(3)->setText(QStringLiteral("  Ln %1, Col %2  ").arg(line).arg(column));
        const int lines = LineCount(text);
        StatusBar1->Panels(2)->setText(QStringLiteral("%1 %2").arg(lines).arg(
            lines == 1 ? QStringLiteral("Line") : QStringLiteral("Lines")));
    });
}

void frmMemo::Timer1_Timer()
{
    trap("Sub 'Timer1_Timer' of Form 'frmMemo'", [&] {
        CalcCursorPos();
        const bool selected = txtMemo->SelLength() >= 1;
        mnuCopy->setEnabled(selected);
        mnuCut->setEnabled(selected);
    });
}

void frmMemo::txtMemo_KeyPress(int &)
{
    trap("Sub 'txtMemo_KeyPress' of Form 'frmMemo'", [&] { CalcCursorPos(); });
}

void frmMemo::txtMemo_OLEDragDrop(const DataObject &Data)
{
    trap("Sub 'txtMemo_OLEDragDrop' of Form 'frmMemo'", [&] {
        if (!Data.GetFormat(ClipboardFormat::Files))
            return;
        const QStringList files = Data.Files();
        // A file written with LF or CR line ends is read as the CR LF lines of the text.
        if (files.size() == 1 && FileExists(files.first()))
            txtMemo->setText(toCrLf(ReadWholeFile(files.first())));
    });
}

void frmMemo::btnTab1_GotFocus()
{
    trap("Sub 'btnTab1_GotFocus' of Form 'frmMemo'", [&] {
        if (GotFocusMethod() != 4)
            return;
        txtMemo->SetFocus();
        const int p = txtMemo->SelStart();
        // At the very start there is no character before the caret: the check fails into this
        // trap and nothing is deleted. Intended.
        if (p < 1)
            raise(ErrInvalidCall);
        if (txtMemo->Text().mid(p - 1, 1) == QLatin1String("\t"))
            SendKeys(QStringLiteral("{Backspace}"));
    });
}

void frmMemo::btnTab2_GotFocus()
{
    trap("Sub 'btnTab2_GotFocus' of Form 'frmMemo'", [&] {
        if (GotFocusMethod() != 1)
            return;
        txtMemo->SetFocus();
        if (txtMemo->SelLength() == 0)
            SendKeys(QStringLiteral("^{Tab}"));
    });
}

void frmMemo::mnuOpenFile_Click()
{
    trap("Sub 'mnuOpenFile_Click' of Form 'frmMemo'", [&] {
        const QString path = OpenFileDialog(QString(), QStringLiteral("C:\\"),
            QStringLiteral("Select A Text File From Below"),
            QStringLiteral("Text Files (*.txt)|*.txt|All Files (*.*)|*.*"));
        if (!path.isEmpty() && FileExists(path))
            txtMemo->setText(toCrLf(ReadWholeFile(path)));
    });
}

void frmMemo::mnuSelectAll_Click()
{
    trap("Sub 'mnuSelectAll_Click' of Form 'frmMemo'", [&] {
        txtMemo->setSelStart(0);
        txtMemo->setSelLength(int(txtMemo->Text().size()));
    });
}

void frmMemo::mnuCopy_Click()
{
    trap("Sub 'mnuCopy_Click' of Form 'frmMemo'", [&] {
        if (txtMemo->SelLength() == 0)
            return;
        Clipboard::Clear();
        Clipboard::SetText(txtMemo->SelText());
    });
}

void frmMemo::mnuCut_Click()
{
    trap("Sub 'mnuCut_Click' of Form 'frmMemo'", [&] {
        if (txtMemo->SelLength() == 0)
            return;
        Clipboard::Clear();
        Clipboard::SetText(txtMemo->SelText());
        txtMemo->setSelText(QString());
    });
}

void frmMemo::mnuPaste_Click()
{
    trap("Sub 'mnuPaste_Click' of Form 'frmMemo'",
        [&] { txtMemo->setSelText(Clipboard::GetText()); });
}

void frmMemo::mnuFont_Click()
{
    trap("Sub 'mnuFont_Click' of Form 'frmMemo'", [&] {
        frmChooseFont chooser;
        chooser.setFont_Name(m_FontName);
        chooser.setFont_Size(m_FontSize);
        chooser.Show(Modal);
        if (chooser.Cancelled())
            return;
        m_FontName = chooser.Font_Name();
        m_FontSize = chooser.Font_Size();
        SetFont();
    });
}

} // namespace kwFieldDeck
