// Each procedure fails under its own name.

#include "exchange/ExchangeFixture.h"
#include "exchange/PlantPrint.h"

#include "platform/RecordingPrinters.h"
#include "session/Printing.h"

namespace exchange {
namespace {

class FailureNames : public ExchangeFixture
{
};

TEST_F(FailureNames, AFileThatCannotBeWritten)
{
    standOn("1_1");
    op.chooseFile(file("no folder/a.txt"));
    exporting.Export_Item();
    failures.expectOne(platform::errors::kPathNotFound, "Module/Export_Item");
}

TEST_F(FailureNames, AFileThatIsNotThere)
{
    standOn("1_1");
    op.chooseFile(file("Data/none.dat"));
    importing.Import_Item();
    failures.expectOne(platform::errors::kFileNotFound, "Module/Import_Item");
}

TEST_F(FailureNames, APrinterThatVanished)
{
    platform::RecordingPrinters printers;
    session::Printing printing{session, texts, op, printers};
    standOn("1_1");
    op.onModal = [&](const QString&) {
        printing.choose("Office", 1);
        printers.printers.clear();
    };
    PlantPrint({session, texts, op, clock, structure, printing}).Print_Item();
    failures.expectOne(platform::errors::kDeviceIo, "Module/Print_Item");
}

} // namespace
} // namespace exchange
