#pragma once

#include <string>

namespace velk::doctor {

// Where lines go to: what standard output was directed to, else the console of the program that started this one.
class Output {
public:
    Output() noexcept;
    bool isThere() const noexcept { return m_kind != Kind::none; }
    // To a console as it is, to a file or pipe in UTF-8. Throws when it does not get there.
    void write(const std::wstring& text) const;

private:
    enum class Kind { none, stream, console };
    Kind m_kind = Kind::none;
    void* m_handle = nullptr;
};

} // namespace velk::doctor
