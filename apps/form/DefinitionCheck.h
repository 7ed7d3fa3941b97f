#pragma once

#include <QString>
#include <QVector>

namespace kwFieldDeck {

// A message box that loading a definition file shows, or an error that it reports, with the
// name of the field block being read when it came: "" when no block was (the header, a line
// between blocks) or the block has no name.
struct LoadNotice
{
    QString field;
    QString text;
};

struct DefinitionCheck
{
    // Why the file could not be loaded at all, or "".
    QString problem;
    // In the order the load raised them.
    QVector<LoadNotice> notices;
    // The fields the load added.
    int fieldCount = 0;
};

// Loads a definition file as the form program does, into a grid that is never shown, and
// collects what the load shows and reports. Which block a notice belongs to is found by loading
// the file again up to each line in question: the grid reads a definition in one call and shows
// nothing of where it is, and a block stays open after some messages, so only the grid's own
// reading says where a block ends. A file without notices is loaded once.
DefinitionCheck checkDefinitionFile(const QString &fileName);

// "Field: text", the text on one line; ": text" when the notice has no field.
QString noticeLine(const LoadNotice &notice);

} // namespace kwFieldDeck
