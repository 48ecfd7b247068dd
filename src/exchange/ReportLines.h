#pragma once

#include "exchange/ShownValues.h"

#include <QByteArray>
#include <QHash>
#include <functional>
#include <vector>

namespace exchange {

// The three forms of a report file.
enum class ReportForm
{
    Text,       // fixed columns
    Comma,      // the same columns behind a key, commas inside a value not escaped
    Spreadsheet // UTF-8, quoted, with unit, raw value, state and time behind
};

// A report's lines, a row each, as the bytes of a file.
class ReportLines
{
public:
    // `time` stands in the last column of a spreadsheet.
    ReportLines(const session::Session& session, const session::Texts& texts, ReportForm form,
                const QString& time);

    QByteArray title() const;
    // Valid until the next one.
    const QByteArray& line(const ReportRow& row);

private:
    // What a column shows of a row, and the bytes that the fields before had.
    struct Column
    {
        QString title;
        int width;
        std::vector<ReportRow::Column> sources; // a row where they are the same shows the same
        std::function<QString(const ReportRow&)> text;
        QHash<QByteArray, QByteArray> fields = {};
    };

    void addColumns(const session::Texts& texts);
    void addSpreadsheetColumns(const session::Texts& texts, const QString& time);
    void add(const QString& title, int width, ReportRow::Column source);
    QByteArray field(const QString& text, int width) const;
    const QByteArray& fieldOf(Column& column, const ReportRow& row);
    bool hasKey() const { return form_ != ReportForm::Text; }

    ReportForm form_;
    int codePage_;
    ShownValues shown_;
    QString keyTitle_;
    std::vector<Column> columns_;
    QByteArray line_, key_;
};

} // namespace exchange
