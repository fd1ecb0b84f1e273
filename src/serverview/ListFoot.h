#pragma once

#include "serverview/splitter.h"
#include "window/list_view.h"

#include <memory>
#include <string>

namespace velk {

// A line below the list, which is there only while it says something.
class ListFoot {
public:
    ListFoot(const ListView& list, Splitter& splitter) noexcept : m_list(list), m_splitter(splitter) {}

    // An empty text takes the line away.
    void say(const std::wstring& text);
    // The list has another font now.
    void followFont() noexcept;

private:
    const ListView& m_list;
    Splitter& m_splitter;
    std::unique_ptr<Control> m_line; // null: nothing was said yet
    bool m_isShown = false;
};

} // namespace velk
