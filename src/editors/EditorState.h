#pragma once

#include "runtime/Colors.h"

#include <QDate>
#include <QString>
#include <QVector>

namespace kwFieldDeck {

// One entry of a drop-down's list: the text shown and the number it carries.
struct ComboEntry
{
    QString text;
    qint32 itemData = 0;
};

// What a row's editor holds and shows, kept as plain data whether or not a widget shows it: the
// live editor takes it in and gives it back, and the idle row is painted from it.
struct EditorState
{
    // The text of a text or number box, of a slider's number box, of a file or folder box (the
    // whole path; the box shows it fitted) and a memo's placeholder.
    QString text;
    // The kept value of a file, folder or memo row.
    QString tag;
    QVector<ComboEntry> entries;
    // The drop-down's own idea of its value, set by a write and by a pick.
    QString comboValue;
    QString title;
    QString initDir;
    QString filter;
    QDate date;
    QDate minDate;
    QDate maxDate;
    OleColor backColor = SystemColor::WindowBackground;
    OleColor foreColor = SystemColor::WindowText;
    // The slider's value as the row reports it, and the slider's own position and range.
    qint32 number = 0;
    qint32 sliderValue = 0;
    qint32 sliderMin = 0;
    qint32 sliderMax = 10;
    qint32 maxLength = 0;
    qint16 listIndex = -1;
    qint16 check = 0;
    bool enabled = true;
    bool useItemData = true;
    // Whether the row's editor colours were set; an unset editor takes the grid's colours.
    bool colorsSet = false;
    // The slider's part that had the focus last: the number box (false) or the slider.
    bool sliderActive = true;
};

} // namespace kwFieldDeck
