#pragma once

#include <QString>

#include <cassert>
#include <optional>
#include <utility>
#include <variant>

namespace vistrel
{

/// What went wrong, in few kinds that callers branch on, and words for a person.
struct Error {
    enum class Kind {
        Cancelled, ///< The caller asked for it.
        Closed,    ///< The other side went away (process ended, pipe shut, instance released).
        Format,    ///< Bytes or text that do not follow their format.
        Io,        ///< The host's files, folders or processes.
        Page,      ///< The page itself: cannot be loaded, is no page, crashed its renderer.
        Protocol,  ///< The browser answered, but with an error or with nonsense.
        Timeout,   ///< A limit in time ran out.
        TooLarge,  ///< A stated cap on size or count was passed.
        Usage,     ///< Input of the user: an option, an address, a list line.
    };

    Kind kind;
    QString message; ///< Names the thing and, where there is one, the remedy. No final full stop.
    QString context; ///< What was being done, outermost first, joined by ": ". May be empty.

    /// The same error with one more phrase of context in front ("opening a page").
    [[nodiscard]] Error during(const QString& phrase) const;

    /// "context: message", or the message alone.
    [[nodiscard]] QString text() const;
};

/// A value or an Error. Test it before use; reading the wrong side is a broken invariant.
template<typename T>
class [[nodiscard]] Result
{
public:
    // NOLINTNEXTLINE(google-explicit-constructor): "return value;" is the point.
    Result(T value) : m_state(std::in_place_index<0>, std::move(value)) {}
    // NOLINTNEXTLINE(google-explicit-constructor): "return error;" is the point.
    Result(Error error) : m_state(std::in_place_index<1>, std::move(error)) {}

    [[nodiscard]] bool ok() const { return m_state.index() == 0; }
    explicit operator bool() const { return ok(); }

    [[nodiscard]] const T& value() const& { return *std::get_if<0>(&m_state); }
    [[nodiscard]] T& value() & { return *std::get_if<0>(&m_state); }
    [[nodiscard]] T&& value() && { return std::move(*std::get_if<0>(&m_state)); }
    const T& operator*() const& { return value(); }
    T& operator*() & { return value(); }
    T&& operator*() && { return std::move(*this).value(); }
    const T* operator->() const { return &value(); }
    T* operator->() { return &value(); }

    [[nodiscard]] const Error& error() const
    {
        assert(!ok());
        return *std::get_if<1>(&m_state);
    }

private:
    std::variant<T, Error> m_state;
};

template<>
class [[nodiscard]] Result<void>
{
public:
    Result() = default;
    // NOLINTNEXTLINE(google-explicit-constructor): "return error;" is the point.
    Result(Error error) : m_error(std::move(error)) {}

    [[nodiscard]] bool ok() const { return !m_error; }
    explicit operator bool() const { return ok(); }

    [[nodiscard]] const Error& error() const
    {
        assert(!ok());
        return *m_error;
    }

private:
    std::optional<Error> m_error;
};

} // namespace vistrel
