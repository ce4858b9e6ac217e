#include "batch/database.h"

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace vistrel
{

namespace
{

const char* const kWriteAhead = "PRAGMA journal_mode = WAL";
const char* const kSynchronous = "PRAGMA synchronous = FULL";

void bind(sqlite3_stmt* statement, int position, const QVariant& value)
{
    if (!value.isValid()) {
        sqlite3_bind_null(statement, position);
    } else if (value.typeId() == QMetaType::QString) {
        const QByteArray text = value.toString().toUtf8();
        sqlite3_bind_text(statement, position, text.constData(), int(text.size()), SQLITE_TRANSIENT);
    } else {
        sqlite3_bind_int64(statement, position, value.toLongLong());
    }
}

} // namespace

qint64 Database::Row::integer(int column) const { return sqlite3_column_int64(m_statement, column); }

QString Database::Row::text(int column) const
{
    const auto* text = sqlite3_column_text(m_statement, column);
    return QString::fromUtf8(reinterpret_cast<const char*>(text), sqlite3_column_bytes(m_statement, column));
}

Result<std::unique_ptr<Database>> Database::open(const QString& path)
{
    std::unique_ptr<Database> database(new Database);
    database->m_path = path;
    const int code = sqlite3_open(path.toUtf8().constData(), &database->m_handle);
    if (code != SQLITE_OK) return database->lastError();
    const auto ready = database->setUp();
    if (!ready) return ready.error();
    return database;
}

/// Exclusive from the first statement on; a commit is on the disk when it returns.
Result<void> Database::setUp()
{
    sqlite3_extended_result_codes(m_handle, 1);
    return runAll({"PRAGMA locking_mode = EXCLUSIVE", "PRAGMA cache_size = -16384", kWriteAhead, kSynchronous,
                   "BEGIN IMMEDIATE", "COMMIT"});
}

Result<void> Database::setFast(bool fast)
{
    if (fast) return runAll({"PRAGMA journal_mode = OFF", "PRAGMA synchronous = OFF"});
    // Only a checkpoint with something in it brings the file itself to the disk.
    return runAll({kWriteAhead, kSynchronous, "PRAGMA user_version = 1", "PRAGMA wal_checkpoint(TRUNCATE)"});
}

Result<void> Database::runAll(std::initializer_list<const char*> statements)
{
    for (const char* sql : statements) {
        const auto done = run(sql);
        if (!done) return done.error();
    }
    return {};
}

Database::~Database()
{
    for (sqlite3_stmt* statement : std::as_const(m_statements))
        sqlite3_finalize(statement);
    sqlite3_close(m_handle);
}

Result<void> Database::run(const char* sql, const QVariantList& values)
{
    return query(sql, values, [](const Row&) {});
}

Result<void> Database::query(const char* sql, const QVariantList& values,
                             const std::function<void(const Row& row)>& row)
{
    const auto statement = prepared(sql);
    if (!statement) return statement.error();
    for (int i = 0; i < values.size(); ++i)
        bind(*statement, i + 1, values[i]);
    int code = sqlite3_step(*statement);
    for (; code == SQLITE_ROW; code = sqlite3_step(*statement))
        row(Row(*statement));
    if (code == SQLITE_DONE) {
        sqlite3_reset(*statement);
        return {};
    }
    const Error error = lastError();
    sqlite3_reset(*statement);
    return error;
}

Result<sqlite3_stmt*> Database::prepared(const char* sql)
{
    sqlite3_stmt*& statement = m_statements[sql];
    if (statement == nullptr &&
        sqlite3_prepare_v3(m_handle, sql, -1, SQLITE_PREPARE_PERSISTENT, &statement, nullptr) != SQLITE_OK)
        return lastError();
    return statement;
}

int Database::changes() const { return sqlite3_changes(m_handle); }

Error Database::lastError() const
{
    const int code = sqlite3_errcode(m_handle);
    const QString words = QString::fromUtf8(sqlite3_errmsg(m_handle));
    if (code == SQLITE_BUSY || code == SQLITE_LOCKED)
        return {Error::Kind::Closed, m_path + u": another run is using it"_s, {}};
    return {code == SQLITE_FULL ? Error::Kind::TooLarge : Error::Kind::Io, m_path + u": "_s + words, {}};
}

} // namespace vistrel
