#pragma once

#include "ui/messageBox.h"

#include <functional>
#include <string>
#include <vector>

namespace velk::test {

// Answers the product's message boxes while it lives, and keeps what they said.
class ShownMessages {
public:
    // How a box is written down in lines.
    using Format = std::wstring (*)(const std::wstring& text, uint32_t style, const std::wstring& title);
    static std::wstring text(const std::wstring& text, uint32_t, const std::wstring&) { return text; }
    static std::wstring textAndTitle(const std::wstring& text, uint32_t, const std::wstring& title)
    {
        return text + L"|" + title;
    }
    static std::wstring textAndStyle(const std::wstring& text, uint32_t style, const std::wstring&)
    {
        return text + L"|" + std::to_wstring(style);
    }
    static std::wstring whole(const std::wstring& text, uint32_t style, const std::wstring& title)
    {
        return textAndStyle(text, style, title) + L"|" + title;
    }

    explicit ShownMessages(Format format = text)
    {
        setMessagePresenter([this, format](const std::wstring& text, uint32_t style, const std::wstring& title) {
            lines.push_back(format(text, style, title));
            styles.push_back(style);
            titles.push_back(title);
            if (duringMessage)
                duringMessage();
            return answer;
        });
    }
    ShownMessages(const ShownMessages&) = delete;
    ShownMessages& operator=(const ShownMessages&) = delete;
    ~ShownMessages() { setMessagePresenter({}); }

    std::vector<std::wstring> lines;
    std::vector<uint32_t> styles;
    std::vector<std::wstring> titles;
    std::function<void()> duringMessage; // while a box is open
    int answer = IDOK;
};

} // namespace velk::test
