#pragma once

#include "platform/Control.h"

#include <QVector>

class QPlainTextEdit;

namespace kwFieldDeck {

class DataObject;

// The multi-line text box. Inside the system its text breaks lines with CR LF, and SelStart and
// SelLength count a line break as those two characters; the widget holds plain lines. Text that
// the user has not edited reads back exactly as it was set, lone CR or LF included, and
// positions then count each break as it stands there. Tab moves
// the focus on (the box does not take it); Ctrl+Tab types a tab character.
class MultiLineTextBox : public Control
{
    Q_OBJECT
    Q_PROPERTY(QString Text READ Text WRITE setText NOTIFY Change)
public:
    explicit MultiLineTextBox(const QString &name, QObject *owner = nullptr);

    QString Text() const;
    void setText(const QString &text);
    bool Locked() const;
    void setLocked(bool locked);
    // 0 none, 1 horizontal, 2 vertical, 3 both; without a horizontal bar long lines wrap.
    int ScrollBars() const { return m_scrollBars; }
    void setScrollBars(int scrollBars);
    // 0: drops are refused; 1: drops reach OLEDragDrop and nothing else happens to them.
    int OLEDropMode() const { return m_oleDropMode; }
    void setOLEDropMode(int mode);

    int SelStart() const;
    void setSelStart(int start);
    int SelLength() const;
    void setSelLength(int length);
    QString SelText() const;
    void setSelText(const QString &text);

    QPlainTextEdit *plainTextEdit() const;

signals:
    void Change();
    void OLEDragDrop(const kwFieldDeck::DataObject &Data);

private:
    int systemPosition(int widgetPosition) const;
    int widgetPosition(int systemPosition) const;
    // How many of the line breaks before a line of the widget are CR LF pairs in Text().
    int crLfBreaksBefore(int line) const;

    QString m_setText;
    QVector<int> m_crLfBreaksBefore { 0 };
    int m_scrollBars = 0;
    int m_oleDropMode = 0;
};

} // namespace kwFieldDeck
