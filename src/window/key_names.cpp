// The classic notation of keystrokes.

#include "window/send_keys.h"

#include "base/error.h"

#include <cwchar>

namespace velk {
namespace {

struct KeyName {
    const wchar_t* name;
    WORD key;
};

// clang-format off
constexpr KeyName keyNames[] = {
    {L"BACKSPACE", VK_BACK},    {L"BS", VK_BACK},       {L"BKSP", VK_BACK},     {L"BREAK", VK_CANCEL},
    {L"CAPSLOCK", VK_CAPITAL},  {L"CLEAR", VK_CLEAR},   {L"DELETE", VK_DELETE}, {L"DEL", VK_DELETE},
    {L"DOWN", VK_DOWN},         {L"END", VK_END},       {L"ENTER", VK_RETURN},  {L"ESC", VK_ESCAPE},
    {L"ESCAPE", VK_ESCAPE},     {L"HELP", VK_HELP},     {L"HOME", VK_HOME},     {L"INSERT", VK_INSERT},
    {L"INS", VK_INSERT},        {L"LEFT", VK_LEFT},     {L"NUMLOCK", VK_NUMLOCK},{L"PGDN", VK_NEXT},
    {L"PGUP", VK_PRIOR},        {L"PRTSC", VK_SNAPSHOT},{L"RETURN", VK_RETURN}, {L"RIGHT", VK_RIGHT},
    {L"SCROLLLOCK", VK_SCROLL}, {L"TAB", VK_TAB},       {L"UP", VK_UP},
    {L"F1", VK_F1},   {L"F2", VK_F2},   {L"F3", VK_F3},   {L"F4", VK_F4},   {L"F5", VK_F5},   {L"F6", VK_F6},
    {L"F7", VK_F7},   {L"F8", VK_F8},   {L"F9", VK_F9},   {L"F10", VK_F10}, {L"F11", VK_F11}, {L"F12", VK_F12},
    {L"F13", VK_F13}, {L"F14", VK_F14}, {L"F15", VK_F15}, {L"F16", VK_F16},
};
// clang-format on

struct Modifiers {
    bool shift = false;
    bool control = false;
    bool alt = false;
};

class Parser {
public:
    explicit Parser(const std::wstring& text) : m_text(text) {}

    // Step by step, however deep the groups are: the text comes from whoever calls by automation.
    std::vector<KeyStroke> run()
    {
        while (m_place < m_text.size())
            take(m_text[m_place++]);
        if (m_isModified || !m_groups.empty())
            refuse();
        return std::move(m_keys);
    }

private:
    [[noreturn]] static void refuse() { throw Error(errorInvalidCall); }

    void take(wchar_t character)
    {
        switch (character) {
        case L'+':
            m_held.shift = m_isModified = true;
            return;
        case L'^':
            m_held.control = m_isModified = true;
            return;
        case L'%':
            m_held.alt = m_isModified = true;
            return;
        case L'(':
            m_groups.push_back(m_held);
            m_isModified = false;
            return;
        case L')':
            return closeGroup();
        case L'{':
            braces();
            return letGo();
        case L'}':
            refuse();
        case L'~':
            add({VK_RETURN});
            return letGo();
        default:
            add({0, character});
            return letGo();
        }
    }

    void closeGroup()
    {
        if (m_isModified || m_groups.empty())
            refuse();
        m_groups.pop_back();
        letGo();
    }

    // What a modifier held for is over: only those of the groups around it still hold.
    void letGo()
    {
        m_held = m_groups.empty() ? Modifiers{} : m_groups.back();
        m_isModified = false;
    }

    // {x}, {NAME}, each perhaps with a blank and a count. The first character is taken whatever it is: {}} is a brace.
    void braces()
    {
        const size_t end = m_place < m_text.size() ? m_text.find(L'}', m_place + 1) : std::wstring::npos;
        if (end == std::wstring::npos)
            refuse();
        const std::wstring inside = m_text.substr(m_place, end - m_place);
        m_place = end + 1;
        const size_t blank = inside.find(L' ', 1);
        const KeyStroke key = named(inside.substr(0, blank));
        const long count = blank == std::wstring::npos ? 1 : countOf(inside.substr(blank + 1));
        for (long repeated = 0; repeated < count; ++repeated)
            add(key);
    }

    static long countOf(const std::wstring& text)
    {
        constexpr size_t mostDigits = 5;
        if (text.empty() || text.size() > mostDigits || text.find_first_not_of(L"0123456789") != std::wstring::npos)
            refuse();
        return std::wcstol(text.c_str(), nullptr, 10);
    }

    static KeyStroke named(const std::wstring& name)
    {
        if (name.size() == 1)
            return {0, name[0]};
        for (const KeyName& row : keyNames)
            if (_wcsicmp(name.c_str(), row.name) == 0)
                return {row.key};
        refuse();
    }

    void add(KeyStroke key)
    {
        key.shift = key.shift || m_held.shift;
        key.control = key.control || m_held.control;
        key.alt = key.alt || m_held.alt;
        m_keys.push_back(key);
    }

    const std::wstring& m_text;
    size_t m_place = 0;
    Modifiers m_held;
    bool m_isModified = false;       // a modifier waits for what it holds for
    std::vector<Modifiers> m_groups; // the open ones, with what holds inside them
    std::vector<KeyStroke> m_keys;
};

} // namespace

std::vector<KeyStroke> parseKeys(const std::wstring& text)
{
    return Parser(text).run();
}

} // namespace velk
