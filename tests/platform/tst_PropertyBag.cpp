#include "platform/PropertyBag.h"

#include "platform/Colors.h"
#include "platform/Values.h"

#include <QSettings>
#include <QtTest>

#include <memory>

using namespace kwFieldDeck;

class tst_PropertyBag : public QObject
{
    Q_OBJECT
private slots:
    void valuesRoundTripAndDefaultsAreLeftOut_data()
    {
        QTest::addColumn<bool>("settings");
        QTest::newRow("memory") << false;
        QTest::newRow("settings file, written and read again") << true;
    }

    void valuesRoundTripAndDefaultsAreLeftOut()
    {
        QFETCH(bool, settings);
        const auto colour = [](OleColor c) { return QVariant::fromValue<OleColor>(c); };
        const struct
        {
            const char *name;
            QVariant value, defaultValue;
        } properties[] = {
            { "FieldNameWidth", int32Value(1500), int32Value(1500) },
            { "BackColor", colour(SystemColor::ButtonFace), colour(SystemColor::ButtonFace) },
            { "RowHeight", int32Value(2400), int32Value(255) },
            { "Enabled", QVariant(false), QVariant(true) },
            { "ForeColor", colour(SystemColor::Highlight), colour(SystemColor::WindowText) },
            { "Title", textValue(QStringLiteral("a=b; c/d \"q\"\r\nGr\u00FC\u00DFe \u20AC")),
                textValue(QString()) },
            { "Tag", textValue(QStringLiteral("x")), QVariant() },
        };
        const QString group = QStringLiteral("kwPropertyControl1");
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("bag.ini"));
        auto store = std::make_unique<QSettings>(path, QSettings::IniFormat);
        std::unique_ptr<PropertyBag> bag;
        if (settings)
            bag = std::make_unique<SettingsPropertyBag>(*store, group);
        else
            bag = std::make_unique<MemoryPropertyBag>();

        // Writing the default takes out what an earlier write put in.
        bag->WriteProperty(
            QStringLiteral("BackColor"), colour(0xFFu), colour(SystemColor::ButtonFace));
        for (const auto &p : properties)
            bag->WriteProperty(QLatin1String(p.name), p.value, p.defaultValue);

        QStringList names;
        if (settings) {
            bag.reset();
            store->sync();
            store = std::make_unique<QSettings>(path, QSettings::IniFormat);
            bag = std::make_unique<SettingsPropertyBag>(*store, group);
            store->beginGroup(group);
            names = store->childKeys();
            store->endGroup();
        } else {
            names = static_cast<MemoryPropertyBag *>(bag.get())->names();
        }
        names.sort();
        QCOMPARE(names, (QStringList { "Enabled", "ForeColor", "RowHeight", "Tag", "Title" }));
        for (const auto &p : properties) {
            const QVariant read = bag->ReadProperty(QLatin1String(p.name), p.defaultValue);
            QCOMPARE(textOf(read), textOf(p.value));
            if (p.defaultValue.isValid())
                QCOMPARE(read.metaType(), p.defaultValue.metaType());
        }
        QVERIFY(!bag->ReadProperty(QStringLiteral("Nothing")).isValid());
    }
};

QTEST_GUILESS_MAIN(tst_PropertyBag)
#include "tst_PropertyBag.moc"
