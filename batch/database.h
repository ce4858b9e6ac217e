#pragma once

#include "platform/result.h"

#include <QHash>
#include <QVariant>

#include <functional>
#include <initializer_list>
#include <memory>

struct sqlite3;
struct sqlite3_stmt;

namespace vistrel
{

/// An SQLite file that this process has to itself. What a statement changed is on the disk when it returns,
/// unless a transaction is open. One thread at a time.
class Database
{
public:
    /// Opens the file at path, creating it when it is missing. Errors: Io; Closed when another process has
    /// it. The words of all errors name the file.
    static Result<std::unique_ptr<Database>> open(const QString& path);
    ~Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    /// The columns of one row, from 0.
    class Row
    {
    public:
        [[nodiscard]] qint64 integer(int column) const;
        /// Empty for NULL.
        [[nodiscard]] QString text(int column) const;

    private:
        friend class Database;
        explicit Row(sqlite3_stmt* statement) : m_statement(statement) {}
        sqlite3_stmt* m_statement;
    };

    /// Fast: changes are neither safe from a crash nor can they be taken back; for a file that is worth
    /// nothing until it is complete. Safe again: all that was changed is on the disk when this returns.
    Result<void> setFast(bool fast);

    /// Runs one statement. values fill its "?" in order: integers, texts, an invalid QVariant for NULL. sql
    /// is a literal: it is kept ready under its address. Error::Kind::Io, TooLarge when the disk is full.
    Result<void> run(const char* sql, const QVariantList& values = {});

    /// The same, with row called for each row of the answer; row must not run further statements of the same
    /// text.
    Result<void> query(const char* sql, const QVariantList& values,
                       const std::function<void(const Row& row)>& row);

    /// How many rows the last statement changed.
    [[nodiscard]] int changes() const;

private:
    Database() = default;
    Result<void> setUp();
    Result<void> runAll(std::initializer_list<const char*> statements);
    Result<sqlite3_stmt*> prepared(const char* sql);
    [[nodiscard]] Error lastError() const;

    QString m_path;
    sqlite3* m_handle = nullptr;
    QHash<const char*, sqlite3_stmt*> m_statements;
};

} // namespace vistrel
