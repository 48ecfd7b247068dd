#include "platform/Dialect.h"

#include <QRegularExpression>
#include <QStringBuilder>
#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>

namespace platform {

namespace {

// The position of a word between blanks outside of quoted texts; -1 for none.
qsizetype wordOutsideQuotes(const QString& sql, const QString& word)
{
    bool quoted = false;
    for (qsizetype at = 0; at < sql.size(); ++at) {
        if (sql[at] == u'\'')
            quoted = !quoted; // a doubled quote leaves and enters again
        else if (!quoted && QStringView(sql).mid(at).startsWith(word, Qt::CaseInsensitive))
            return at;
    }
    return -1;
}

void mid(sqlite3_context* context, int, sqlite3_value** arguments)
{
    for (int i = 0; i < 3; ++i) {
        if (sqlite3_value_type(arguments[i]) == SQLITE_NULL) {
            sqlite3_result_null(context);
            return;
        }
    }
    const int start = sqlite3_value_int(arguments[1]);
    const int length = sqlite3_value_int(arguments[2]);
    if (start < 1 || length < 0) {
        sqlite3_result_error(context, "Invalid procedure call or argument: Mid", -1);
        return;
    }
    const QString text = QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_value_text(arguments[0])),
                                           sqlite3_value_bytes(arguments[0]));
    const QByteArray part = text.mid(start - 1, length).toUtf8();
    sqlite3_result_text(context, part.constData(), int(part.size()), SQLITE_TRANSIENT);
}

} // namespace

QString inEngineDialect(const QString& sql)
{
    if (!sql.startsWith(QLatin1String("UPDATE"), Qt::CaseInsensitive))
        return sql;
    static const QRegularExpression kJoinedUpdate(
        QStringLiteral("^UPDATE\\s+(\\w+)\\s+INNER JOIN\\s+(\\w+)\\s+ON\\s+(\\S+\\s*=\\s*\\S+)\\s+SET\\s+"),
        QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch head = kJoinedUpdate.match(sql);
    if (!head.hasMatch())
        return sql;

    static const QString kWhere = QStringLiteral(" WHERE ");
    const QString rest = sql.mid(head.capturedEnd());
    const qsizetype where = wordOutsideQuotes(rest, kWhere);
    const QString assignments = where < 0 ? rest : rest.left(where);
    const QString condition = where < 0 ? QString() : u" AND " % rest.mid(where + kWhere.size());
    return u"UPDATE " % head.captured(1) % u" SET " % assignments % u" FROM " % head.captured(2) %
           u" WHERE (" % head.captured(3) % u')' % condition;
}

void addDialectFunctions(SQLite::Database& engine)
{
    constexpr bool kDeterministic = true;
    engine.createFunction("Mid", 3, kDeterministic, nullptr, mid);
}

} // namespace platform
