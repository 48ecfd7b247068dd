#pragma once

#include "platform/Statement.h"
#include "session/Forward.h"

#include <functional>
#include <optional>

namespace exchange {

// What a report is of: the whole company, a group, an instrument.
struct Selection
{
    QString IDGrp;  // "" all of them
    QString IDInst; // "" all of the group

    static Selection ofKey(const QString& key);
};

// A parameter with the names of all that it belongs to, in the current language.
class ReportRow
{
public:
    enum Column
    {
        IDGrp,
        IDInst,
        IDPar,
        IDParGrp,
        GrpName,
        GrpDes,
        Phone,
        InstName,
        InstDes,
        IDItem,
        Address,
        ParGrpDes,
        ParDes,
        KeyType,
        UM,
        Prec,
        Value,
        State
    };

    explicit ReportRow(const platform::Statement& row) : row_(row) {}

    int number(Column column) const { return int(row_.integer(column)); }
    // UTF-8, until the next row; NULL is "".
    QByteArrayView bytes(Column column) const { return row_.text(column); }
    QString text(Column column) const { return QString::fromUtf8(bytes(column)); }
    bool isNull(Column column) const { return row_.kind(column) == platform::Statement::Kind::Null; }
    std::optional<QString> optionalText(Column column) const
    {
        return isNull(column) ? std::nullopt : std::optional(text(column));
    }

private:
    const platform::Statement& row_;
};

// The rows of a report in their order: by group and instrument, by name and then by number, so that two of
// one name don't mix; then by parameter group and parameter. What lacks a description in the language is not
// in it.
class ReportRows
{
public:
    ReportRows(session::Session& session, const Selection& selection);

    bool isEmpty() const;
    // At least as many as there are rows.
    qint64 atMost() const;

    // Hands over one row after the other, all of one state of the company; false ends the walk.
    using Take = std::function<bool(const ReportRow&)>;
    void each(const Take& take) const;

private:
    QString statement() const;
    QString whereOf(const QString& table) const;

    session::Session& session_;
    Selection selection_;
};

} // namespace exchange
