// Fuzzes restoring field values: the input is the stored text that GetValuesFromRegistry reads
// into a grid with a field of every type; what the grid saves then must restore to itself.

#include "FuzzGrid.h"

#include "runtime/SettingsStore.h"

using namespace kwFieldDeck;
using namespace kwFieldDeck::fuzz;

namespace {
const QString App = QStringLiteral("kwFieldDeckFuzz"), Section = QStringLiteral("Values"),
              Setting = QStringLiteral("Grid");

// "|" stands for the CR LF between the definition's lines.
const QString Definition = QStringLiteral(
    "ADDFIELD Text|TYPE=TEXT|VALUE=a|ENDFIELD|ADDFIELD Numeric|TYPE=NUMERIC|VALUE=1.5|ENDFIELD|"
    "ADDFIELD Check|TYPE=CHECKBOX|VALUE=True|ENDFIELD|ADDFIELD Combo|TYPE=COMBO|VALUE=G|"
    "ADDCOMBOITEMS|R=Red|G=Green|ENDCOMBOITEMS|ENDFIELD|ADDFIELD Date|TYPE=DATE|VALUE=2024-03-01|"
    "ENDFIELD|ADDFIELD Slider|TYPE=SLIDER|MIN=0|MAX=100|VALUE=5|ENDFIELD|ADDFIELD File|"
    "TYPE=FILESELECTOR|VALUE=/tmp/a.txt|ENDFIELD|ADDFIELD Folder|TYPE=FOLDERSELECTOR|VALUE=/tmp|"
    "ENDFIELD|ADDFIELD Memo|TYPE=MEMO|VALUE=m|ENDFIELD|")
                               .replace(QLatin1Char('|'), QLatin1String("\r\n"));

// Restores the stored text into the grid and returns what the grid saves then.
QString restoreAndSave(kwPropertyControl *grid, const QString &stored)
{
    SettingsStore::SaveSetting(App, Section, Setting, stored);
    grid->GetValuesFromRegistry(App, Section, Setting);
    grid->SaveValuesToRegistry(App, Section, Setting);
    return SettingsStore::GetSetting(App, Section, Setting);
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    // One grid for the whole run (building one per input would leave little time for the
    // inputs); each input starts from the same values.
    static FuzzGrid host;
    static const QString baseline = [] {
        host.grid->ReadDef(Definition);
        expect(host.grid->Fields()->Count() == 9, "the grid has a field of every type");
        host.grid->SaveValuesToRegistry(App, Section, Setting);
        return SettingsStore::GetSetting(App, Section, Setting);
    }();
    expect(restoreAndSave(host.grid, baseline) == baseline,
        "the baseline values restore to themselves");
    const QString once = restoreAndSave(
        host.grid, QString::fromUtf8(reinterpret_cast<const char *>(data), qsizetype(size)));
    const QString twice = restoreAndSave(host.grid, once);
    expect(
        once == twice, "saved values restore to themselves", once + QStringLiteral(" | ") + twice);
    return 0;
}
