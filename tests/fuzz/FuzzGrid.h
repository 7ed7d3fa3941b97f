#pragma once

// The start-up of the targets that drive kwPropertyControl (each is one source file): an offscreen
// application, message boxes and error reports only counted, and a grid inside a host window.

#include "FuzzSupport.h"

#include "grid/kwPropertyControl_p.h"
#include "runtime/MessageBox.h"
#include <kwFieldDeck/kwFieldDeck>

#include <QApplication>

#include <cmath>

namespace kwFieldDeck::fuzz {

inline int reports = 0; // message boxes and error reports so far

struct FuzzGrid
{
    FuzzGrid()
    {
        window.resize(400, 300);
        grid->setGeometry(0, 0, 360, 267);
        grid->show();
    }

    // Each row starts on the previous row's bottom border, whatever the definition did to the row
    // height in between. A field whose label could not be made (a reported error) has no row.
    void checkRowsStack() const
    {
        const auto *d = kwPropertyControlPrivate::get(grid);
        const CanvasRow *above = nullptr;
        for (Field *field : *grid->Fields()) {
            const qsizetype at = d->rowOf(field);
            if (at < 0)
                continue;
            const CanvasRow &row = d->canvasRows().at(at);
            if (above) {
                const double expected = double(above->top) + above->height - 15;
                expect(std::fabs(row.top - expected) <= std::fabs(expected) * 1e-6 + 1e-3,
                    "a new row starts on the previous row's bottom border", field->Name());
            }
            above = &row;
        }
    }

    QWidget window;
    kwPropertyControl *grid = new kwPropertyControl(&window);
};

} // namespace kwFieldDeck::fuzz

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    using namespace kwFieldDeck;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static QApplication app(*argc, *argv);
    setMessageBoxHandler([](const QString &, int, const QString &) {
        ++fuzz::reports;
        return MsgBoxResult::OK;
    });
    setErrorReportHandler([](int, const QString &, const QString &) { ++fuzz::reports; });
    return 0;
}
