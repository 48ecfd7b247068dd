#include "users/UserPrintout.h"

#include "platform/PrintedPages.h"
#include "platform/Recordset.h"
#include "session/Session.h"
#include "session/TextRows.h"
#include "session/Texts.h"
#include "users/UserFields.h"
#include "users/UserTable.h"

#include <QStringBuilder>

namespace users {

namespace {

constexpr int kRuleWidth = 80;

} // namespace

UserPrintout::UserPrintout(const session::Session& session, const session::Texts& texts)
    : session_(session), texts_(texts)
{
}

QStringList UserPrintout::record(const platform::Recordset& row) const
{
    const auto item = [&](int text, const char* column) -> QString {
        return texts_(text) % u' ' % row.text(column);
    };
    const auto known = [&](const char* column) { return !row[column].isNull(); };
    QStringList lines{item(57, "IDUser"), item(59, "Name")};
    if (known("Phone"))
        lines << item(6, "Phone");
    if (known("Fax"))
        lines << item(7, "Fax");
    lines << item(61, "MobilePhone");
    if (known("EMail"))
        lines << item(8, "EMail");
    lines << texts_(68) % u' ' % texts_(isEnabled(row["State"]) ? 98 : 99);
    for (const RightOfUser& right : kRights) {
        const bool given = session::rightOf(rightText(row[right.column]));
        lines << texts_(right.text) % u'\t' % (given ? QStringLiteral(": ON") : QStringLiteral(": OFF"));
    }
    return lines;
}

QStringList UserPrintout::head() const
{
    return {QString(kRuleWidth, u'*'),
            u"\t\t\t\t" % session_.AppTitle % u" - " % texts_(session::rows::kOperators),
            QString(kRuleWidth, u'-')};
}

platform::PrintReport UserPrintout::report(const std::vector<QStringList>& records, bool numbered) const
{
    platform::PrintedPages::Look look;
    if (numbered)
        look.foot = [page = texts_(session::rows::kPage)](int number) -> QString {
            return page % QString::number(number);
        };
    platform::PrintReport report;
    report.title = texts_(session::rows::kOperators);
    report.write = [records, look, head = head()](platform::Printer& paper) {
        paper.setFont(QStringLiteral("Courier New"));
        platform::PrintedPages pages(paper, look);
        for (const QStringList& record : records) {
            if (pages.page() > 0 && pages.hasRoomFor(QStringList{QString()} + record))
                pages.row({});
            else
                pages.beginPage(head);
            for (const QString& line : record)
                pages.row(line);
        }
        pages.finish();
    };
    return report;
}

} // namespace users
