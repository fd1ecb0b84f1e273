#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace velk {

// What the user wrote to see only some rows of the list. It stays while the list shows the same kind of folder.
class ListFilter {
public:
    const std::wstring& text() const noexcept { return m_text; }
    void setText(std::wstring text) noexcept { m_text = std::move(text); }
    // Of the columns that the text can name.
    const std::vector<std::wstring>& headers() const noexcept { return m_headers; }

    // The list shows the columns of a kind of folder, from now on. The text goes when it is another kind.
    void showColumns(int32_t folderKind, const std::vector<std::wstring>& headers);

    // Called when the list shows other rows, or has another filter, than it had.
    void setListener(std::function<void()> listener) { m_listener = std::move(listener); }
    void tell() const noexcept;

private:
    std::wstring m_text;
    std::vector<std::wstring> m_headers;
    int32_t m_folderKind = 0;
    std::function<void()> m_listener;
};

} // namespace velk
