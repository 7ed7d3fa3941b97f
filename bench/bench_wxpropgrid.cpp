// The wxWidgets peer: wxPropertyGrid with one property of the matching kind per row, doing the
// grid's work the way its documentation suggests: bulk appends inside Freeze/Thaw, values set and
// read by name, all values saved to and restored from a wxFileConfig file.

#include "BenchWork.h"

#include <wx/wx.h>

#include <wx/fileconf.h>
#include <wx/filename.h>
#include <wx/propgrid/advprops.h>
#include <wx/propgrid/propgrid.h>

#include <memory>

class BenchApp : public wxApp
{
public:
    bool OnInit() override { return true; }
};

namespace {

struct PreparedRow
{
    wxString name;
    bench::RowType type;
    wxVariant value;
    wxVariant newValue;
};

long comboIndex(const std::string &key)
{
    const auto &keys = bench::comboKeys();
    for (size_t i = 0; i < keys.size(); ++i)
        if (keys[i] == key)
            return long(i);
    return 0;
}

// The value of a row in the kind its property holds.
wxVariant variantOf(bench::RowType type, const std::string &text)
{
    using bench::RowType;
    const wxString wtext = wxString::FromUTF8(text);
    switch (type) {
    case RowType::Numeric:
        return wxVariant(std::stod(text));
    case RowType::CheckBox:
        return wxVariant(text == "True");
    case RowType::Combo:
        return wxVariant(comboIndex(text));
    case RowType::Date: {
        wxDateTime date;
        date.ParseISODate(wtext);
        return wxVariant(date);
    }
    case RowType::Slider:
        return wxVariant(long(std::stol(text)));
    default:
        return wxVariant(wtext);
    }
}

wxPGProperty *createProperty(const PreparedRow &row)
{
    using bench::RowType;
    wxPGProperty *property = nullptr;
    switch (row.type) {
    case RowType::Text:
        property = new wxStringProperty(row.name, row.name);
        break;
    case RowType::Numeric:
        property = new wxFloatProperty(row.name, row.name);
        break;
    case RowType::CheckBox:
        property = new wxBoolProperty(row.name, row.name);
        break;
    case RowType::Combo: {
        wxPGChoices choices;
        for (size_t i = 0; i < bench::comboTexts().size(); ++i)
            choices.Add(wxString::FromUTF8(bench::comboTexts()[i]), int(i));
        property = new wxEnumProperty(row.name, row.name, choices);
        break;
    }
    case RowType::Date:
        property = new wxDateProperty(row.name, row.name);
        break;
    case RowType::Slider:
        property = new wxIntProperty(row.name, row.name);
        property->SetAttribute(wxPG_ATTR_MIN, 0L);
        property->SetAttribute(wxPG_ATTR_MAX, 100L);
        break;
    case RowType::FileSelector:
        property = new wxFileProperty(row.name, row.name);
        break;
    case RowType::FolderSelector:
        property = new wxDirProperty(row.name, row.name);
        break;
    case RowType::Memo:
        property = new wxLongStringProperty(row.name, row.name);
        break;
    }
    property->SetValue(row.value);
    return property;
}

void yield()
{
    wxTheApp->ProcessPendingEvents();
    wxYield();
}

class Grid
{
public:
    Grid(wxWindow *frame, const std::vector<PreparedRow> &rows)
        : m_grid(new wxPropertyGrid(frame, wxID_ANY, wxPoint(0, 0), frame->GetClientSize()))
    {
        m_grid->Freeze();
        for (const PreparedRow &row : rows)
            m_grid->Append(createProperty(row));
        m_grid->Thaw();
    }
    ~Grid() { m_grid->Destroy(); }

    wxPropertyGrid *grid() const { return m_grid; }

    void layout()
    {
        m_grid->RefreshGrid();
        m_grid->Update();
        yield();
    }

    void scrollStep()
    {
        int x = 0, y = 0;
        m_grid->GetViewStart(&x, &y);
        const int rows = int(m_grid->GetRoot()->GetChildCount());
        m_grid->Scroll(0, y + 1 > rows / 2 ? 0 : y + 1);
        m_grid->Update();
        yield();
    }

private:
    wxPropertyGrid *m_grid;
};

} // namespace

wxIMPLEMENT_APP_NO_MAIN(BenchApp);

int main(int argc, char **argv)
{
    const int count = bench::takeRowCount(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (!wxEntryStart(argc, argv) || !wxTheApp->CallOnInit())
        return 1;
    auto *frame
        = new wxFrame(nullptr, wxID_ANY, "wxPropertyGrid", wxDefaultPosition, wxSize(800, 600));
    frame->Show();
    yield();

    std::vector<PreparedRow> rows;
    for (const bench::Row &row : bench::makeRows(count))
        rows.push_back({ wxString::FromUTF8(row.name), row.type, variantOf(row.type, row.value),
            variantOf(row.type, row.newValue) });
    const wxString configFile = wxFileName::CreateTempFileName("kwbench-wx");
    auto openConfig = [&] {
        return std::make_unique<wxFileConfig>(
            wxEmptyString, wxEmptyString, configFile, wxEmptyString, wxCONFIG_USE_LOCAL_FILE);
    };

    std::unique_ptr<Grid> shared;
    auto ensure = [&]() -> Grid & {
        if (!shared)
            shared = std::make_unique<Grid>(frame, rows);
        return *shared;
    };

    bench::Subject subject;
    subject.buildShared = [&] { ensure(); };
    subject.layoutShared = [&] { ensure().layout(); };
    subject.build = [&](benchmark::State &state) {
        for (auto _ : state) {
            auto grid = std::make_unique<Grid>(frame, rows);
            state.PauseTiming();
            grid.reset();
            yield();
            state.ResumeTiming();
        }
    };
    subject.layout = [&] { ensure().layout(); };
    subject.setByName = [&](int round) {
        wxPropertyGrid *grid = ensure().grid();
        for (const PreparedRow &row : rows)
            grid->SetPropertyValue(row.name, round % 2 ? row.value : row.newValue);
    };
    subject.readAll = [&] {
        for (auto it = ensure().grid()->GetIterator(); !it.AtEnd(); ++it) {
            wxVariant value = (*it)->GetValue();
            benchmark::DoNotOptimize(value);
        }
    };
    subject.save = [&] {
        auto config = openConfig();
        config->SetPath("/Values");
        for (auto it = ensure().grid()->GetIterator(); !it.AtEnd(); ++it)
            config->Write((*it)->GetName(), (*it)->GetValueAsString());
        config->Flush();
    };
    subject.restore = [&] {
        wxPropertyGrid *grid = ensure().grid();
        auto config = openConfig();
        config->SetPath("/Values");
        wxString value;
        for (const PreparedRow &row : rows)
            if (config->Read(row.name, &value))
                grid->SetPropertyValueString(row.name, value);
    };
    subject.scrollStep = [&] { ensure().scrollStep(); };

    bench::registerAll(subject, count);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    shared.reset();
    wxRemoveFile(configFile);
    frame->Destroy();
    yield();
    wxEntryCleanup();
    return 0;
}
