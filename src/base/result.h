// SPDX-License-Identifier: MIT
// A failure is a value: what kind it is, and a sentence for the user. The standard library only, so
// that the bridges use the same type as the editor.
#pragma once

#include <string>
#include <utility>
#include <variant>

namespace fennel {

enum class FailureKind {
    NotFound,     // a file, member or tool is not there
    NoPermission, // it is there, but not for this user
    NoSpace,      // the disk, or a limit of the format, is full
    Malformed,    // the bytes are not what their format asks for
    TooLarge,     // above a limit of ours (a named constant), such as an archive bomb
    Unsupported,  // well-formed, but nothing that this program handles
    ToolFailed,   // an external program did not start, crashed, or left no result
    Canceled,     // the user called it off; no fault
    Io,           // any other error of the system
};

struct Failure {
    FailureKind kind = FailureKind::Io;
    std::string text;  // UTF-8, one sentence, names the file; shown to the user as it stands
    bool told = false; // the user has seen it: whoever gets it passes it on and says nothing more
};

// Either a T or a Failure. Reading the wrong half is a programming error and throws
// std::bad_variant_access, which nothing catches.
template <class T>
class [[nodiscard]] Result {
public:
    Result(T value) : m_state(std::in_place_index<0>, std::move(value)) {}
    Result(Failure failure) : m_state(std::in_place_index<1>, std::move(failure)) {}

    [[nodiscard]] bool ok() const { return m_state.index() == 0; }
    explicit operator bool() const { return ok(); }
    T& value() & { return std::get<0>(m_state); }
    const T& value() const& { return std::get<0>(m_state); }
    T&& value() && { return std::get<0>(std::move(m_state)); }
    T& operator*() { return value(); }
    const T& operator*() const { return value(); }
    T* operator->() { return &value(); }
    const T* operator->() const { return &value(); }
    const Failure& failure() const { return std::get<1>(m_state); }

private:
    std::variant<T, Failure> m_state;
};

template <>
class [[nodiscard]] Result<void> {
public:
    // Success.
    Result() = default;
    Result(Failure failure) : m_failure(std::move(failure)), m_ok(false) {}

    [[nodiscard]] bool ok() const { return m_ok; }
    explicit operator bool() const { return m_ok; }
    const Failure& failure() const { return m_failure; }

private:
    Failure m_failure;
    bool m_ok = true;
};

} // namespace fennel
