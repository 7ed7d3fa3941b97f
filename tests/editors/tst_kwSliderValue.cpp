#include "EditorHost.h"

#include "editors/kwSliderValue.h"
#include "platform/Slider.h"

using namespace kwFieldDeck;
using Host = test::EditorHost<kwSliderValue>;

class tst_kwSliderValue : public QObject
{
    Q_OBJECT
private slots:
    void typingInTheNumberBoxMovesTheSlider_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<int>("min");
        QTest::addColumn<int>("start");
        QTest::addColumn<int>("expected");
        QTest::newRow("+ at Max stays") << "+" << 0 << 10 << 10;
        QTest::newRow("+ steps up") << "+" << 0 << 4 << 5;
        QTest::newRow("- at a raised Min stays") << "-" << 5 << 5 << 5;
        QTest::newRow("only digits are typed") << "0x. 7" << 0 << 1 << 7;
        QTest::newRow("past Max brought into range") << "25" << 0 << 1 << 10;
    }
    void typingInTheNumberBoxMovesTheSlider()
    {
        QFETCH(QString, typed);
        QFETCH(int, min);
        QFETCH(int, start);
        QFETCH(int, expected);
        Host host(QStringLiteral("kwSliderValue"));
        QVERIFY(host.show());
        host.editor->setMax(10);
        host.editor->setMin(min);
        host.editor->setValue(start);
        auto *box = host.child<TextBox>("txtNum");
        box->SetFocus();
        box->lineEdit()->selectAll();
        QTest::keyClicks(box->widget(), typed);
        QCOMPARE(box->Text(), QString::number(expected));
        QCOMPARE(host.editor->Value(), expected);
        QCOMPARE(host.child<Slider>("Slider1")->Value(), expected);
    }

    void minGuardsMaxButMaxIsTakenAsGiven_data()
    {
        QTest::addColumn<bool>("maxFirst");
        QTest::addColumn<int>("min");
        QTest::addColumn<int>("max");
        QTest::addColumn<int>("expectedMax");
        QTest::newRow("Min equal to Max raises Max") << true << 10 << 10 << 11;
        QTest::newRow("Max below Min is taken as given") << false << 5 << 2 << 2;
    }
    void minGuardsMaxButMaxIsTakenAsGiven()
    {
        QFETCH(bool, maxFirst);
        QFETCH(int, min);
        QFETCH(int, max);
        QFETCH(int, expectedMax);
        Host host(QStringLiteral("kwSliderValue"));
        if (maxFirst)
            host.editor->setMax(max);
        host.editor->setMin(min);
        if (!maxFirst)
            host.editor->setMax(max);
        QCOMPARE(host.editor->Min(), min);
        QCOMPARE(host.editor->Max(), expectedMax);
    }

    // Down tabs twice, past the slider, to the next row: intended.
    void downInTheNumberBoxSkipsTheSlider()
    {
        Host host(QStringLiteral("kwSliderValue"));
        QVERIFY(host.show());
        host.child<TextBox>("txtNum")->SetFocus();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
        QTRY_COMPARE(QApplication::focusWidget(), host.after);
    }
};

QTEST_MAIN(tst_kwSliderValue)
#include "tst_kwSliderValue.moc"
