// Fuzzes restoring field values from the settings store: the input is the stored text that
// GetValuesFromRegistry reads into a grid with a field of every type. Besides crashes and
// sanitizer reports it checks that what the grid saves afterwards restores to itself.

#include "FuzzGrid.h"

#include "runtime/SettingsStore.h"

using namespace kwFieldDeck;
using namespace kwFieldDeck::fuzz;

namespace {
const QString App = QStringLiteral("kwFieldDeckFuzz"), Section = QStringLiteral("Values"),
              Setting = QStringLiteral("Grid");

const QString Definition = QStringLiteral(
    "ADDFIELD Text\r\nTYPE=TEXT\r\nVALUE=a\r\nENDFIELD\r\n"
    "ADDFIELD Numeric\r\nTYPE=NUMERIC\r\nVALUE=1.5\r\nENDFIELD\r\n"
    "ADDFIELD Check\r\nTYPE=CHECKBOX\r\nVALUE=True\r\nENDFIELD\r\n"
    "ADDFIELD Combo\r\nTYPE=COMBO\r\nVALUE=G\r\nADDCOMBOITEMS\r\nR=Red\r\nG=Green\r\n"
    "ENDCOMBOITEMS\r\nENDFIELD\r\n"
    "ADDFIELD Date\r\nTYPE=DATE\r\nVALUE=2024-03-01\r\nENDFIELD\r\n"
    "ADDFIELD Slider\r\nTYPE=SLIDER\r\nMIN=0\r\nMAX=100\r\nVALUE=5\r\nENDFIELD\r\n"
    "ADDFIELD File\r\nTYPE=FILESELECTOR\r\nVALUE=/tmp/a.txt\r\nENDFIELD\r\n"
    "ADDFIELD Folder\r\nTYPE=FOLDERSELECTOR\r\nVALUE=/tmp\r\nENDFIELD\r\n"
    "ADDFIELD Memo\r\nTYPE=MEMO\r\nVALUE=m\r\nENDFIELD\r\n");

QString saved(kwPropertyControl *grid)
{
    grid->SaveValuesToRegistry(App, Section, Setting);
    return SettingsStore::GetSetting(App, Section, Setting);
}
} // namespace

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    startApplication(argc, argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    // One grid for the whole run (building one per input would leave little time for the
    // inputs); each input starts from the same values.
    static FuzzGrid host;
    static const QString baseline = [] {
        host.grid->ReadDef(Definition);
        expect(host.grid->Fields()->Count() == 9, "the grid has a field of every type");
        return saved(host.grid);
    }();
    SettingsStore::SaveSetting(App, Section, Setting, baseline);
    host.grid->GetValuesFromRegistry(App, Section, Setting);
    expect(saved(host.grid) == baseline, "the baseline values restore to themselves");

    const QString stored = QString::fromUtf8(reinterpret_cast<const char *>(data), qsizetype(size));
    SettingsStore::SaveSetting(App, Section, Setting, stored);
    host.grid->GetValuesFromRegistry(App, Section, Setting);

    const QString once = saved(host.grid);
    host.grid->GetValuesFromRegistry(App, Section, Setting);
    const QString twice = saved(host.grid);
    expect(
        once == twice, "saved values restore to themselves", once + QStringLiteral(" | ") + twice);
    return 0;
}
