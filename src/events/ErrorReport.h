#pragma once

#include "platform/Forward.h"
#include "session/Forward.h"

#include <QString>

namespace events {

// The report that every failure leaves in the log folder, for the maker's technical support: the error, the
// program, the machine, the company and its operator. Its headings are Italian in every language.
class ErrorReport
{
public:
    // All three are the caller's and outlive the report.
    ErrorReport(const session::Session& session, const platform::Clock& clock,
                const platform::Machine& machine);

    // Writes one report file; one of the same second is replaced. It never raises: what can't be written is
    // lost.
    void Report_RuntimeError(int Number, const QString& Description, const QString& Procedure) const noexcept;

private:
    QString fileName() const;
    QStringList lines(int Number, const QString& Description, const QString& Procedure) const;
    void addError(QStringList& lines, int Number, const QString& Description, const QString& Procedure) const;
    void addProgram(QStringList& lines) const;
    void addSystem(QStringList& lines) const;
    void addDisks(QStringList& lines) const;
    void addCompany(QStringList& lines) const;
    void addUser(QStringList& lines) const;

    const session::Session& session_;
    const platform::Clock& clock_;
    const platform::Machine& machine_;
};

// Makes every failed procedure end alike: a critical box with the description, titled AppTitle, unless the
// failure is a silent one; then the report. All arguments outlive the hook.
void installFailureHook(const session::Session& session, platform::Operator& op, const platform::Clock& clock,
                        const platform::Machine& machine);

} // namespace events
