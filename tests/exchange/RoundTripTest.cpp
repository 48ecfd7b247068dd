// A group that goes out and comes in again is the same group, but for its numbers and marks.

#include "exchange/RoundTrip.h"
#include "exchange/ExchangeFixture.h"

#include "platform/CodePage.h"
#include "session/Helpers.h"

#include <QRandomGenerator>

namespace exchange {
namespace {

class RoundTrip : public ExchangeFixture, public testing::WithParamInterface<int>
{
protected:
    // Characters of the code page but blanks at the end; never empty.
    QString text(int width)
    {
        QByteArray bytes;
        const int length = 1 + random_.bounded(random_.bounded(4) == 0 ? width : std::min(width, 12));
        for (int i = 0; i < length; ++i)
            bytes += char(kFirst + random_.bounded(256 - kFirst));
        bytes.replace('\x7F', '~');
        if (bytes.endsWith(' '))
            bytes.back() = '.';
        return platform::decode(bytes, session.CodePage);
    }
    QString sql(int width)
    {
        return random_.bounded(5) == 0 ? QString("NULL") : session::Compose_SqlText(text(width));
    }
    // A group of any size with any texts, on ids that are no row of numbers.
    void makeGroup()
    {
        QString plant =
            "DELETE FROM tbParametersUser; DELETE FROM tbInstrumentsUser; DELETE FROM tbGroupsUser;";
        plant += QString("INSERT INTO tbGroupsUser VALUES (7, %1, %2, %3);")
                     .arg(session::Compose_SqlText(text(50)), sql(255), sql(30));
        int IDInst = 0;
        for (int instruments = random_.bounded(6); instruments > 0; --instruments) {
            IDInst += 1 + random_.bounded(1000);
            plant += QString("INSERT INTO tbInstrumentsUser VALUES (7, %1, %2, %3, %4, %5);")
                         .arg(QString::number(IDInst), session::Compose_SqlText(text(30)),
                              session::Compose_SqlText(text(50)), sql(255), sql(16));
            for (int parameters = random_.bounded(8); parameters > 0; --parameters)
                plant += QString("INSERT OR IGNORE INTO tbParametersUser VALUES (7, %1, %2, %3, %4, %5);")
                             .arg(QString::number(IDInst), session::Compose_SqlText(text(50)),
                                  session::Compose_SqlText(text(50)), sql(255),
                                  QString::number(random_.bounded(3)));
        }
        runOnPlant(plant);
    }

    static constexpr int kFirst = 0x20;
    QRandomGenerator random_{20260314};
};

TEST_P(RoundTrip, AnyPlantComesInAsItWentOut)
{
    session.CodePage = GetParam();
    for (int plant = 0; plant < 25; ++plant) {
        makeGroup();
        standOn("1_7");
        const QString path = this->file("Data/trace.dat");
        exportTo(path, kDataTraceFilter, texts(509));
        op.chooseFile(path);
        importing.Import_Item();
        // The catalogue knows none of its instruments: the file was asked about, and nothing came in.
        if (op.boxes.back().buttons == platform::Buttons::YesNo) {
            op.expect(op.boxes.back().text, platform::answers::kYes);
            op.expect(texts(509));
            op.chooseFile(path);
            importing.Import_Item();
        }
        op.unexpected.clear();
        EXPECT_EQ(groupsDiffer(plantFile(), 7, 8), QString());
        database.Disconnect_Database();
    }
}

INSTANTIATE_TEST_SUITE_P(CodePages, RoundTrip, testing::Values(1252, 1251, 1250, 1253));

} // namespace
} // namespace exchange
