#include "platform/SqlFunctions.h"

#include <QString>
#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>

namespace platform {

namespace {

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

void addSqlFunctions(SQLite::Database& engine)
{
    constexpr bool kDeterministic = true;
    engine.createFunction("Mid", 3, kDeterministic, nullptr, mid);
}

} // namespace platform
