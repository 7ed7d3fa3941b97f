#include "editors/memo/frmChooseFont.h"

#include "runtime/Error.h"
#include "runtime/Values.h"
#include "runtime/WindowNotifications.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QFontDatabase>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace kwFieldDeck {

namespace {
const char *const fontSizes[] = { "5", "6", "7", "8", "9", "10", "11", "12", "14", "16", "18", "20",
    "22", "24", "26", "28", "30", "36", "48", "72" };

template <typename T>
T *named(T *object, const char *name)
{
    object->setObjectName(QLatin1String(name));
    return object;
}
} // namespace

frmChooseFont::frmChooseFont(QWidget *parent)
    : QDialog(parent)
    , lstFonts(named(new QListWidget(this), "lstFonts"))
    , cboSize(named(new QComboBox(this), "cboSize"))
    , lblSample(named(new QLabel(QStringLiteral("AaBbYyZz"), this), "lblSample"))
{
    setObjectName(QStringLiteral("frmChooseFont"));
    setWindowTitle(QStringLiteral("Choose Font"));

    // The caption, the sample's frame and the buttons are reached by their object names.
    auto *btnOk = named(new QPushButton(QStringLiteral("Ok"), this), "btnOk");
    auto *btnCancel = named(new QPushButton(QStringLiteral("Cancel"), this), "btnCancel");
    auto *frame = named(new QGroupBox(QStringLiteral("Sample"), this), "Frame1");
    lblSample->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    auto *sample = new QVBoxLayout(frame);
    sample->addWidget(lblSample);
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(btnOk);
    buttons->addWidget(btnCancel);
    auto *side = new QVBoxLayout;
    side->addWidget(named(new QLabel(QStringLiteral("Size"), this), "Label2"));
    side->addWidget(cboSize);
    side->addWidget(frame, 1);
    side->addLayout(buttons);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(8, 8, 8, 8);
    layout->setSpacing(8);
    layout->addWidget(lstFonts);
    layout->addLayout(side, 1);
    lstFonts->setFixedSize(193, 216);
    // The side column is as wide as the two buttons; neither button is a default one, so Enter
    // in the list or the sizes picks nothing by itself.
    cboSize->setFixedWidth(136);
    for (QPushButton *button : { btnOk, btnCancel }) {
        button->setFixedSize(64, 28);
        button->setAutoDefault(false);
    }
    // A fixed dialog, as large as its parts need in the desktop's style.
    layout->setSizeConstraint(QLayout::SetFixedSize);

    for (const char *size : fontSizes)
        cboSize->addItem(QLatin1String(size));
    // No size is chosen until the caller's size or the user picks one.
    cboSize->setCurrentIndex(-1);

    // Only a selection picks a font, by the user or by Font_Name: a list taking the focus makes
    // its first row current, and that must pick nothing.
    connect(lstFonts, &QListWidget::itemSelectionChanged, this, &frmChooseFont::lstFonts_Click);
    connect(cboSize, &QComboBox::currentIndexChanged, this, &frmChooseFont::cboSize_Click);
    connect(btnOk, &QPushButton::clicked, this, &frmChooseFont::btnOk_Click);
    connect(btnCancel, &QPushButton::clicked, this, &frmChooseFont::btnCancel_Click);

    trap("Sub 'Form_Load' of Form 'frmChooseFont'", [&] {
        windowLoaded(this, QCoreApplication::applicationName());
        LoadFonts();
    });
}

void frmChooseFont::setFont_Name(const QString &name)
{
    trap("Property 'Font_Name' of Form 'frmChooseFont'", [&] {
        m_FontName = name;
        LoadFonts();
        for (int i = 0; i < lstFonts->count(); ++i) {
            if (lstFonts->item(i)->text() == name) {
                lstFonts->setCurrentRow(i);
                break;
            }
        }
    });
}

void frmChooseFont::setFont_Size(float size)
{
    trap("Property 'Font_Size' of Form 'frmChooseFont'", [&] {
        m_FontSize = size;
        for (int i = 0; i < cboSize->count(); ++i) {
            if (float(leadingNumber(cboSize->itemText(i))) == size) {
                cboSize->setCurrentIndex(i);
                break;
            }
        }
    });
}

void frmChooseFont::LoadFonts()
{
    trap("Sub 'LoadFonts' of Form 'frmChooseFont'", [&] {
        if (lstFonts->count() != 0)
            return;
        for (const QString &family : QFontDatabase::families()) {
            lstFonts->addItem(family);
            if (family == m_FontName)
                lstFonts->setCurrentRow(lstFonts->count() - 1);
        }
    });
}

void frmChooseFont::lstFonts_Click()
{
    trap("Sub 'lstFonts_Click' of Form 'frmChooseFont'", [&] {
        const QList<QListWidgetItem *> selected = lstFonts->selectedItems();
        if (selected.isEmpty())
            return;
        m_FontName = selected.first()->text();
        QFont font = lblSample->font();
        font.setFamily(m_FontName);
        lblSample->setFont(font);
    });
}

void frmChooseFont::cboSize_Click()
{
    trap("Sub 'cboSize_Click' of Form 'frmChooseFont'", [&] {
        if (cboSize->currentIndex() < 0)
            return;
        const float size = float(leadingNumber(cboSize->currentText()));
        QFont font = lblSample->font();
        font.setPointSizeF(size);
        lblSample->setFont(font);
        m_FontSize = size;
    });
}

void frmChooseFont::btnOk_Click()
{
    trap("Sub 'btnOk_Click' of Form 'frmChooseFont'", [&] {
        m_Cancelled = false;
        windowClosed(this);
        accept();
    });
}

void frmChooseFont::btnCancel_Click()
{
    trap("Sub 'btnCancel_Click' of Form 'frmChooseFont'", [&] {
        m_Cancelled = true;
        windowClosed(this);
        QDialog::reject();
    });
}

// The close command and Escape are read as Cancel, so the caller's font stays as it was.
void frmChooseFont::reject()
{
    btnCancel_Click();
}

} // namespace kwFieldDeck
