#pragma once

#include "exchange/TraceReader.h"
#include "platform/Forward.h"
#include "session/Forward.h"

#include <QSet>
#include <QStringList>

namespace exchange {

// What of a data trace would not import well: lines of another length, what the catalogue doesn't know, texts
// that the width may have cut, lines in an order that the company can't take.
class ImportCheck
{
public:
    // After so many findings the rest of the file is not looked at.
    static constexpr int kMostFindings = 1000;

    ImportCheck(const platform::Connection& company, const session::Texts& texts);

    // Whether to go on with the next line.
    bool look(const TraceReader& file, const TraceLine& line);
    // Each with its line's number.
    const QStringList& findings() const { return findings_; }

private:
    void lookAtGroup(const TraceLine& line);
    void lookAtInstrument(const TraceLine& line);
    void lookAtParameter(const TraceLine& line);
    void lookForCut(const TraceLine& line, std::initializer_list<std::size_t> fields);
    void find(const QString& words, const QString& detail = {});

    const session::Texts& texts_;
    QSet<QString> types_, groups_, parameters_; // of the catalogue, in lower case
    QSet<QString> ofInstrument_;                // parameters seen below the last instrument
    bool group_ = false, instrument_ = false;   // seen so far
    qint64 line_ = 0;
    QStringList findings_;
};

} // namespace exchange
