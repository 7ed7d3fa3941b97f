// The grid's side of the editor events: passing edits on to the host and showing a row's
// description.

#include "grid/kwPropertyControl_p.h"

#include "runtime/Error.h"

namespace kwFieldDeck {

void kwPropertyControlPrivate::RaiseChangedEvent(Field *oField)
{
    trap("Sub 'RaiseChangedEvent' of User Control 'kwPropertyControl'", [&] {
        // A grid on a form being designed tells nobody of edits.
        if (m_userMode)
            emit q_ptr->Changed(oField);
    });
}

void kwPropertyControlPrivate::ShowDescription(const QString &description)
{
    QObject *label = m_DescriptionLabel;
    if (!label)
        return;
    // Hosts give any object with a Caption; a plain QLabel has only "text", so that is used then.
    const bool hasCaption = label->metaObject()->indexOfProperty("Caption") >= 0
        || label->dynamicPropertyNames().contains("Caption");
    label->setProperty(hasCaption ? "Caption" : "text", description);
}

} // namespace kwFieldDeck
