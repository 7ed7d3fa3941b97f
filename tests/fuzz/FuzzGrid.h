#pragma once

// A grid for the fuzz targets that drive kwPropertyControl: the application object (offscreen),
// message boxes answered by a seam that only counts them, error reports counted the same way,
// and one fresh grid per input inside a host window, so that inputs do not affect each other.

#include "FuzzSupport.h"

#include "fieldmodel/Field_p.h"
#include "fieldmodel/Fields_p.h"
#include "grid/kwPropertyControl_p.h"
#include "runtime/MessageBox.h"

#include <QApplication>
#include <QWidget>

#include <cmath>
#include <memory>

namespace kwFieldDeck::fuzz {

struct Seams
{
    int messages = 0;
    int errors = 0;
};

inline Seams &seams()
{
    static Seams counts;
    return counts;
}

// Called once from LLVMFuzzerInitialize.
inline void startApplication(int *argc, char ***argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static QApplication app(*argc, *argv);
    setMessageBoxHandler([](const QString &, int, const QString &) {
        ++seams().messages;
        return MsgBoxResult::OK;
    });
    setErrorReportHandler([](int, const QString &, const QString &) { ++seams().errors; });
}

class FuzzGrid
{
public:
    FuzzGrid()
        : m_window(std::make_unique<QWidget>())
    {
        m_window->resize(400, 300);
        grid = new kwPropertyControl(m_window.get());
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

    kwPropertyControl *grid = nullptr;

private:
    std::unique_ptr<QWidget> m_window; // owns the grid
};

} // namespace kwFieldDeck::fuzz
