// Reading from the line in virtual time: what the program itself takes for what the line makes slow.

#include "LineCompany.h"
#include "LineProgram.h"
#include "instrument/CompanyFile.h"
#include "instrument/VirtualInstrument.h"

#include <QElapsedTimer>
#include <benchmark/benchmark.h>

namespace {

// The virtual instrument in the program's time.
class Peer : public platform::Peer
{
public:
    explicit Peer(LineProgram& program)
        : program_(program), device_(instrument::loadCompanyFile(program.companyFile()).plants, onCable(),
                                     program.clock.elapsed())
    {
        device_.send = [this](const QByteArray& bytes) { program_.port.feed(bytes); };
        program_.port.onOutput = [this](const QByteArray& bytes) {
            device_.receive(bytes, program_.clock.elapsed());
        };
        program_.clock.addPeer(*this);
    }
    ~Peer() override
    {
        program_.clock.removePeer(*this);
        program_.port.onOutput = nullptr;
    }

    std::optional<qint64> nextDue() const override { return device_.nextDue(); }
    void advance(qint64 elapsed) override { device_.advance(elapsed); }

private:
    static instrument::Options onCable()
    {
        instrument::Options options;
        options.link = instrument::LinkMode::Cable;
        return options;
    }

    LineProgram& program_;
    instrument::VirtualInstrument device_;
};

// The arrival of one bank: decoded, stored in one transaction, logged.
void bankOf60Parameters(benchmark::State& state)
{
    LineProgram program;
    program.connectOverCable(lineCompany::kBankKey, "ATA");
    // Every number stays inside its limits, texts are plain; one byte more than the bank is the checksum's.
    const QByteArray answer(lineCompany::kBankSize + 1, '\x31');
    for (auto _ : state) {
        program.console.Read_Param();
        program.clock.run(bus::intervals::kFrame);
        QElapsedTimer timer;
        timer.start();
        program.port.feed(answer);
        program.clock.settle();
        state.SetIterationTime(double(timer.nsecsElapsed()) / 1e9);
        program.waitWhileBusy();
    }
    state.SetItemsProcessed(state.iterations() * lineCompany::kInBank);
    if (program.session.COMPort.Status != 1)
        state.SkipWithError("the link went");
}
BENCHMARK(bankOf60Parameters)->UseManualTime()->Unit(benchmark::kMillisecond);

// Request, answer, decoding, storing, log line and progress of 1,000 parameters one by one, with the virtual
// instrument at the other end: an hour of protocol.
void readOf1000Parameters(benchmark::State& state)
{
    LineProgram program;
    const Peer peer(program);
    program.connectOverCable(lineCompany::kManyKey);
    for (auto _ : state) {
        const qint64 before = program.clock.elapsed();
        program.console.Read_Param();
        program.waitWhileBusy();
        state.counters["virtual_s"] = double(program.clock.elapsed() - before) / 1000;
    }
    state.counters["s_a_record"] =
        benchmark::Counter(double(state.iterations() * lineCompany::kParameters),
                           benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
    if (program.session.COMPort.Status != 1)
        state.SkipWithError("the link went");
}
BENCHMARK(readOf1000Parameters)->UseRealTime()->Unit(benchmark::kSecond)->Iterations(1)->Repetitions(3);

} // namespace
