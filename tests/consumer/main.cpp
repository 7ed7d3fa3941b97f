// A host of the grid: fields from code and from a definition string, values read back.

#include <kwFieldDeck/Field>
#include <kwFieldDeck/Fields>
#include <kwFieldDeck/kwPropertyControl>

#include <QApplication>

#include <cstdio>

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    kwFieldDeck::kwPropertyControl grid;
    grid.resize(400, 200);
    grid.Fields()->Add(QStringLiteral("Answer"), kwFieldDeck::ftText, 0, QStringLiteral("42"));
    grid.ReadDef(QStringLiteral("ADDFIELD Colour\r\nTYPE=COMBO\r\nVALUE=2\r\nADDCOMBOITEMS\r\n"
                                "1=Red\r\n2=Green\r\nENDCOMBOITEMS\r\nENDFIELD"));
    grid.show();

    const QString answer = grid.Fields()->Item(QStringLiteral("Answer"))->Value().toString();
    const QString colour = grid.Fields()->Item(QStringLiteral("Colour"))->Value().toString();
    std::printf("Answer=%s\nColour=%s\n", qPrintable(answer), qPrintable(colour));
    return grid.Fields()->Count() == 2 && answer == QLatin1String("42")
            && colour == QLatin1String("2")
        ? 0
        : 1;
}
