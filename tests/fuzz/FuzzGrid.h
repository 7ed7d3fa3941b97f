#pragma once

// What the targets that drive kwPropertyControl share: the application object (offscreen), the
// message boxes and error reports answered by seams that only count them, and a grid inside a
// host window. Each such target is one source file, so this header gives it its start-up.

#include "FuzzSupport.h"

#include "grid/kwPropertyControl_p.h"
#include "runtime/MessageBox.h"
#include <kwFieldDeck/kwFieldDeck>

#include <QApplication>

#include <cmath>

namespace kwFieldDeck::fuzz {

// Message boxes and error reports so far.
inline int reports = 0;

struct FuzzGrid
{
    FuzzGrid()
    {
        window.resize(400, 300);
        grid->setGeometry(0, 0, 360, 267);
        grid->show();
    }

    // Each labelled row starts on the previous labelled row's bottom border, whatever the
    // definition did to the row height between them. A field whose label could not be created
    // (an error that was reported) has no row.
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
