#pragma once

#include <QObject>
#include <QString>

class QLabel;

namespace kwFieldDeck {

// One panel of a status bar: a text in a sunken cell. A spring panel takes the room the others
// leave; the others are as wide as their text (and at least their minimum width).
class StatusBarPanel : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString Text READ Text WRITE setText)
public:
    enum AutoSizes { NoAutoSize = 0, Spring = 1, Contents = 2 };

    StatusBarPanel(QLabel *label, int autoSize, QObject *owner);

    QString Text() const;
    void setText(const QString &text);
    int AutoSize() const { return m_autoSize; }
    // Minimum width in twips.
    float MinWidth() const;
    void setMinWidth(float width);

    QLabel *label() const { return m_label; }

private:
    QLabel *m_label;
    int m_autoSize;
};

} // namespace kwFieldDeck
