#pragma once

#include <QObject>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>

namespace kwFieldDeck {

// Offers kwPropertyControl in Qt Designer's widget box. Designer saves the grid's appearance
// properties and its definition in the .ui file; inside Designer the control is being designed,
// not run, so edits in its rows raise no Changed. QUiLoader uses the plugin too, without a form
// editor: the grids it builds run.
class kwPropertyControlPlugin : public QObject, public QDesignerCustomWidgetInterface
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.qt-project.Qt.QDesignerCustomWidgetInterface")
    Q_INTERFACES(QDesignerCustomWidgetInterface)
public:
    explicit kwPropertyControlPlugin(QObject *parent = nullptr);

    QString name() const override;
    QString group() const override;
    QString toolTip() const override;
    QString whatsThis() const override;
    QString includeFile() const override;
    QIcon icon() const override;
    bool isContainer() const override { return false; }
    QWidget *createWidget(QWidget *parent) override;
    bool isInitialized() const override { return m_initialized; }
    void initialize(QDesignerFormEditorInterface *core) override;
    QString domXml() const override;

private:
    bool m_initialized = false;
    bool m_inFormEditor = false;
};

} // namespace kwFieldDeck
