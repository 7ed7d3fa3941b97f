#include "memo/frmChooseFont.h"

#include "platform/ComboBox.h"
#include "platform/CommandButton.h"
#include "platform/Error.h"
#include "platform/Frame.h"
#include "platform/Label.h"
#include "platform/ListBox.h"
#include "platform/Services.h"
#include "platform/Values.h"
#include "util/WindowNotifications.h"

#include <QCoreApplication>

namespace kwFieldDeck {

namespace {
const char *const fontSizes[] = { "5", "6", "7", "8", "9", "10", "11", "12", "14", "16", "18", "20",
    "22", "24", "26", "28", "30", "36", "48", "72" };
} // namespace

frmChooseFont::frmChooseFont(QObject *owner)
    : Form(QStringLiteral("frmChooseFont"), owner)
    , lstFonts(new ListBox(QStringLiteral("lstFonts"), this))
    , cboSize(new ComboBox(QStringLiteral("cboSize"), this, 2))
    , Label2(new Label(QStringLiteral("Label2"), this))
    , Frame1(new Frame(QStringLiteral("Frame1"), this))
    , lblSample(new Label(QStringLiteral("lblSample"), this))
    , btnOk(new CommandButton(QStringLiteral("btnOk"), this))
    , btnCancel(new CommandButton(QStringLiteral("btnCancel"), this))
{
    setCaption(QStringLiteral("Choose Font"));
    setBorderStyle(FixedDialog);
    setClientSize(5295, 3480);

    for (Control *part :
        std::initializer_list<Control *> { lstFonts, Label2, cboSize, Frame1, btnOk, btnCancel }) {
        part->setContainer(client());
        part->setVisible(true);
    }
    lblSample->setContainer(Frame1->widget());
    lblSample->setVisible(true);

    lstFonts->Move(120, 120, 2895, 3240);
    Label2->setCaption(QStringLiteral("Size"));
    Label2->Move(3135, 120, 2040, 255);
    cboSize->Move(3135, 390, 2040, 330);
    for (const char *size : fontSizes)
        cboSize->AddItem(QLatin1String(size));
    Frame1->setCaption(QStringLiteral("Sample"));
    Frame1->Move(3135, 870, 2040, 1890);
    lblSample->setCaption(QStringLiteral("AaBbYyZz"));
    lblSample->setAlignment(2);
    lblSample->Move(90, 300, 1860, 1500);
    btnOk->setCaption(QStringLiteral("Ok"));
    btnOk->Move(3135, 2940, 960, 420);
    btnCancel->setCaption(QStringLiteral("Cancel"));
    btnCancel->Move(4215, 2940, 960, 420);

    connect(lstFonts, &ListBox::Click, this, &frmChooseFont::lstFonts_Click);
    connect(cboSize, &Control::Click, this, &frmChooseFont::cboSize_Click);
    connect(btnOk, &Control::Click, this, &frmChooseFont::btnOk_Click);
    connect(btnCancel, &Control::Click, this, &frmChooseFont::btnCancel_Click);
}

void frmChooseFont::setFont_Name(const QString &name)
{
    trap("Property 'Font_Name' of Form 'frmChooseFont'", [&] {
        m_FontName = name;
        LoadFonts();
        for (int i = 0; i < lstFonts->ListCount(); ++i) {
            if (lstFonts->List(i) == name) {
                lstFonts->setListIndex(i);
                break;
            }
        }
    });
}

void frmChooseFont::setFont_Size(float size)
{
    trap("Property 'Font_Size' of Form 'frmChooseFont'", [&] {
        m_FontSize = size;
        for (int i = 0; i < cboSize->ListCount(); ++i) {
            if (float(leadingNumber(cboSize->List(i))) == size) {
                cboSize->setListIndex(i);
                break;
            }
        }
    });
}

void frmChooseFont::LoadFonts()
{
    trap("Sub 'LoadFonts' of Form 'frmChooseFont'", [&] {
        if (lstFonts->ListCount() != 0)
            return;
        for (const QString &family : screenFontFamilies()) {
            lstFonts->AddItem(family);
            if (family == m_FontName)
                lstFonts->setListIndex(lstFonts->NewIndex());
        }
    });
}

void frmChooseFont::Form_Load()
{
    trap("Sub 'Form_Load' of Form 'frmChooseFont'", [&] {
        windowLoaded(window(), QCoreApplication::applicationName());
        LoadFonts();
    });
}

void frmChooseFont::Form_QueryUnload(int &, int UnloadMode)
{
    trap("Sub 'Form_QueryUnload' of Form 'frmChooseFont'", [&] {
        // The window's close button is read as Cancel, so the caller's font stays as it was.
        if (UnloadMode == FormControlMenu)
            m_Cancelled = true;
        windowClosed(window());
    });
}

void frmChooseFont::lstFonts_Click()
{
    trap("Sub 'lstFonts_Click' of Form 'frmChooseFont'", [&] {
        m_FontName = lstFonts->Text();
        QFont font = lblSample->Font();
        font.setFamily(m_FontName);
        lblSample->setFont(font);
    });
}

void frmChooseFont::cboSize_Click()
{
    trap("Sub 'cboSize_Click' of Form 'frmChooseFont'", [&] {
        const float size = float(leadingNumber(cboSize->Text()));
        QFont font = lblSample->Font();
        font.setPointSizeF(size);
        lblSample->setFont(font);
        m_FontSize = size;
    });
}

void frmChooseFont::btnOk_Click()
{
    trap("Sub 'btnOk_Click' of Form 'frmChooseFont'", [&] {
        m_Cancelled = false;
        windowClosed(window());
        Hide();
    });
}

void frmChooseFont::btnCancel_Click()
{
    trap("Sub 'btnCancel_Click' of Form 'frmChooseFont'", [&] {
        m_Cancelled = true;
        windowClosed(window());
        Hide();
    });
}

} // namespace kwFieldDeck
