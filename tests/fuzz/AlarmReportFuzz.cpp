#include "fuzz/Require.h"

#include "bus/AlarmReport.h"
#include "platform/CodePage.h"

namespace {

// A block gives at least one row or fails, gives more than one only as a first block, and makes nothing up.
void run(const QByteArray& input)
{
    const bool second = input[0] & 1;
    const QString text = platform::decode(input.mid(1), 1252);
    const bus::ParsedAlarmBlock parsed =
        bus::parseAlarmBlock(text, second ? bus::AlarmBlock::Second : bus::AlarmBlock::First);
    fuzz::require(parsed.rows.empty() == parsed.failure.has_value());
    fuzz::require(!second || parsed.rows.size() <= 1);
    for (const bus::AlarmRow& row : parsed.rows) {
        for (const QString& field : {row.equipment, row.instrument, row.description})
            fuzz::require(text.contains(field));
        fuzz::require(!row.equipment.contains(QLatin1Char('>')) &&
                      !row.description.contains(QLatin1Char('>')));
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size > 0)
        run(fuzz::bytesOf(data, size));
    return 0;
}
