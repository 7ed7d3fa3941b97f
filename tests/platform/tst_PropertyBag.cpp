#include "platform/PropertyBag.h"

#include "platform/Colors.h"
#include "platform/Values.h"

#include <QSettings>
#include <QtTest>

#include <memory>

using namespace kwFieldDeck;

Q_DECLARE_METATYPE(ValueKind)

class tst_PropertyBag : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void valuesRoundTrip_data();
    void valuesRoundTrip();
    void valueEqualToItsDefaultIsLeftOut_data();
    void valueEqualToItsDefaultIsLeftOut();
    void missingValueReadsAsItsDefault_data();
    void missingValueReadsAsItsDefault();
    void memoryBagKeepsWritingOrder();
    void settingsBagKeepsToItsGroup();

private:
    // A fresh bag of the kind the test row names: the memory bag, or one in a settings file
    // that is written and opened again before reading.
    std::unique_ptr<PropertyBag> writeBag(const QString &kind);
    std::unique_ptr<PropertyBag> reopen(const QString &kind, std::unique_ptr<PropertyBag> bag);
    void addKinds();

    QTemporaryDir m_dir;
    std::unique_ptr<QSettings> m_settings;
    int m_file = 0;
};

void tst_PropertyBag::initTestCase()
{
    QVERIFY(m_dir.isValid());
}

void tst_PropertyBag::addKinds()
{
    QTest::addColumn<QString>("kind");
}

std::unique_ptr<PropertyBag> tst_PropertyBag::writeBag(const QString &kind)
{
    if (kind == QLatin1String("memory"))
        return std::make_unique<MemoryPropertyBag>();
    m_settings = std::make_unique<QSettings>(
        m_dir.filePath(QStringLiteral("bag%1.ini").arg(++m_file)), QSettings::IniFormat);
    return std::make_unique<SettingsPropertyBag>(*m_settings, QStringLiteral("kwPropertyControl1"));
}

std::unique_ptr<PropertyBag> tst_PropertyBag::reopen(
    const QString &kind, std::unique_ptr<PropertyBag> bag)
{
    if (kind == QLatin1String("memory"))
        return bag;
    const QString path = m_settings->fileName();
    bag.reset();
    m_settings->sync();
    m_settings = std::make_unique<QSettings>(path, QSettings::IniFormat);
    return std::make_unique<SettingsPropertyBag>(*m_settings, QStringLiteral("kwPropertyControl1"));
}

void tst_PropertyBag::valuesRoundTrip_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QVariant>("defaultValue");
    struct Case
    {
        const char *name;
        QVariant value;
        QVariant defaultValue;
    };
    const Case cases[] = {
        { "32-bit", int32Value(2400), int32Value(1500) },
        { "16-bit", int16Value(-3), int16Value(0) },
        { "negative single", singleValue(-2.5f), singleValue(0) },
        { "boolean", QVariant(true), QVariant(false) },
        { "system colour", QVariant::fromValue<OleColor>(SystemColor::Highlight),
            QVariant::fromValue<OleColor>(SystemColor::ButtonFace) },
        { "rgb colour", QVariant::fromValue<OleColor>(0x00123456u),
            QVariant::fromValue<OleColor>(SystemColor::ButtonFace) },
        { "text", textValue(QStringLiteral("Select A File From Below")), textValue(QString()) },
        { "text with separators", textValue(QStringLiteral("a=b; c/d \"q\"\r\nnext")),
            textValue(QString()) },
        { "non-ASCII text", textValue(QStringLiteral("Gr\u00FC\u00DFe \u20AC")),
            textValue(QString()) },
        { "no default", textValue(QStringLiteral("x")), QVariant() },
    };
    for (const char *kind : { "memory", "settings" }) {
        for (const Case &c : cases)
            QTest::addRow("%s, %s", kind, c.name) << kind << c.value << c.defaultValue;
    }
}

void tst_PropertyBag::valuesRoundTrip()
{
    QFETCH(QString, kind);
    QFETCH(QVariant, value);
    QFETCH(QVariant, defaultValue);
    auto bag = writeBag(kind);
    bag->WriteProperty(QStringLiteral("Value"), value, defaultValue);
    bag = reopen(kind, std::move(bag));
    const QVariant read = bag->ReadProperty(QStringLiteral("Value"), defaultValue);
    QCOMPARE(textOf(read), textOf(value));
    if (defaultValue.isValid())
        QCOMPARE(read.metaType(), defaultValue.metaType());
}

void tst_PropertyBag::valueEqualToItsDefaultIsLeftOut_data()
{
    addKinds();
    QTest::newRow("memory") << "memory";
    QTest::newRow("settings") << "settings";
}

void tst_PropertyBag::valueEqualToItsDefaultIsLeftOut()
{
    QFETCH(QString, kind);
    auto bag = writeBag(kind);
    bag->WriteProperty(QStringLiteral("FieldNameWidth"), int32Value(1500), int32Value(1500));
    bag->WriteProperty(QStringLiteral("RowHeight"), int32Value(300), int32Value(255));
    // Writing the default again takes out what an earlier write put in.
    bag->WriteProperty(QStringLiteral("BackColor"), QVariant::fromValue<OleColor>(0xFFu),
        QVariant::fromValue<OleColor>(SystemColor::ButtonFace));
    bag->WriteProperty(QStringLiteral("BackColor"),
        QVariant::fromValue<OleColor>(SystemColor::ButtonFace),
        QVariant::fromValue<OleColor>(SystemColor::ButtonFace));
    bag = reopen(kind, std::move(bag));

    if (kind == QLatin1String("memory")) {
        auto *memory = static_cast<MemoryPropertyBag *>(bag.get());
        QCOMPARE(memory->names(), QStringList { "RowHeight" });
    } else {
        m_settings->beginGroup(QStringLiteral("kwPropertyControl1"));
        QCOMPARE(m_settings->childKeys(), QStringList { "RowHeight" });
        m_settings->endGroup();
    }
    QCOMPARE(bag->ReadProperty(QStringLiteral("FieldNameWidth"), int32Value(1500)).toInt(), 1500);
    QCOMPARE(bag->ReadProperty(QStringLiteral("RowHeight"), int32Value(255)).toInt(), 300);
    QCOMPARE(bag->ReadProperty(QStringLiteral("BackColor"),
                    QVariant::fromValue<OleColor>(SystemColor::ButtonFace))
                 .value<OleColor>(),
        SystemColor::ButtonFace);
}

void tst_PropertyBag::missingValueReadsAsItsDefault_data()
{
    valueEqualToItsDefaultIsLeftOut_data();
}

void tst_PropertyBag::missingValueReadsAsItsDefault()
{
    QFETCH(QString, kind);
    auto bag = writeBag(kind);
    QCOMPARE(bag->ReadProperty(QStringLiteral("Title"), QStringLiteral("Select A File From Below"))
                 .toString(),
        QStringLiteral("Select A File From Below"));
    QCOMPARE(bag->ReadProperty(QStringLiteral("Max"), int32Value(10)), int32Value(10));
    QVERIFY(!bag->ReadProperty(QStringLiteral("Nothing")).isValid());
}

void tst_PropertyBag::memoryBagKeepsWritingOrder()
{
    MemoryPropertyBag bag;
    for (const char *name : { "BackColor", "ForeColor", "Enabled", "Font", "Value" })
        bag.WriteProperty(QLatin1String(name), textValue(QStringLiteral("x")));
    bag.WriteProperty(QStringLiteral("ForeColor"), textValue(QStringLiteral("y")));
    QCOMPARE(bag.names(), (QStringList { "BackColor", "ForeColor", "Enabled", "Font", "Value" }));
    QVERIFY(bag.contains(QStringLiteral("Font")));
    bag.clear();
    QVERIFY(bag.names().isEmpty());
    QVERIFY(!bag.contains(QStringLiteral("Font")));
}

void tst_PropertyBag::settingsBagKeepsToItsGroup()
{
    QSettings settings(m_dir.filePath(QStringLiteral("groups.ini")), QSettings::IniFormat);
    SettingsPropertyBag first(settings, QStringLiteral("form/grid1"));
    SettingsPropertyBag second(settings, QStringLiteral("form/grid2"));
    first.WriteProperty(QStringLiteral("Value"), textValue(QStringLiteral("one")));
    second.WriteProperty(QStringLiteral("Value"), textValue(QStringLiteral("two")));
    QCOMPARE(first.ReadProperty(QStringLiteral("Value")).toString(), QStringLiteral("one"));
    QCOMPARE(second.ReadProperty(QStringLiteral("Value")).toString(), QStringLiteral("two"));
    QCOMPARE(settings.value(QStringLiteral("form/grid1/Value")).toString(), QStringLiteral("one"));
}

QTEST_GUILESS_MAIN(tst_PropertyBag)
#include "tst_PropertyBag.moc"
