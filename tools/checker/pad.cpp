#include "checker/pad.h"

#include <algorithm>
#include <cstring>
#include <stdexcept>

namespace velk::check {
namespace {

constexpr char betweenTexts = '\x1F';
constexpr char behindMessage = '\x1E';

// Cut between characters of UTF-8, of which a report's texts are.
template <size_t size>
void copyText(char (&target)[size], std::string_view text) noexcept
{
    size_t length = std::min(text.size(), size - 1);
    while (length > 0 && length < text.size() && (static_cast<unsigned char>(text[length]) & 0xC0) == 0x80)
        --length;
    std::memcpy(target, text.data(), length);
    target[length] = '\0';
}

std::string withoutSeparators(std::string text)
{
    std::replace_if(
        text.begin(), text.end(), [](char byte) { return byte == betweenTexts || byte == behindMessage; }, ' ');
    return text;
}

} // namespace

std::string packed(const PadMessage& message)
{
    std::string bytes(1, message.kind);
    for (const std::string& text : message.texts)
        bytes += betweenTexts + withoutSeparators(text);
    return bytes + behindMessage;
}

std::vector<PadMessage> unpacked(std::string_view bytes)
{
    std::vector<PadMessage> messages;
    for (size_t end = bytes.find(behindMessage); end != std::string_view::npos; end = bytes.find(behindMessage)) {
        std::string_view rest = bytes.substr(0, end);
        bytes.remove_prefix(end + 1);
        PadMessage& message = messages.emplace_back();
        message.kind = rest.empty() ? ' ' : rest.front();
        for (size_t at = rest.find(betweenTexts); at != std::string_view::npos; at = rest.find(betweenTexts)) {
            rest.remove_prefix(at + 1);
            message.texts.emplace_back(rest.substr(0, rest.find(betweenTexts)));
        }
    }
    return messages;
}

Pad::Pad()
{
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    m_memory.reset(CreateFileMappingW(INVALID_HANDLE_VALUE, &inherited, PAGE_READWRITE, 0, sizeof(PadData), nullptr));
    map();
}

Pad::Pad(HANDLE memory) : m_memory(memory)
{
    map();
}

Pad::~Pad()
{
    if (m_data)
        UnmapViewOfFile(m_data);
}

void Pad::map()
{
    m_data = static_cast<PadData*>(MapViewOfFile(m_memory.get(), FILE_MAP_ALL_ACCESS, 0, 0, sizeof(PadData)));
    if (!m_data)
        throw std::runtime_error("no memory can be had that two processes share");
}

void Pad::say(const PadMessage& message) noexcept
{
    try {
        const std::string bytes = packed(message);
        const auto used = static_cast<size_t>(m_data->messageBytes);
        const size_t kept = message.kind == 'F' ? m_kept : 0;
        if (bytes.size() + kept > sizeof m_data->messages - used)
            return;
        std::memcpy(m_data->messages + used, bytes.data(), bytes.size());
        InterlockedExchange(&m_data->messageBytes, static_cast<LONG>(used + bytes.size()));
    } catch (const std::bad_alloc&) {
        // The process is about to end anyhow: its parent tells by what call.
        return;
    }
}

void Pad::enterCall(const char* name, std::string_view arguments, bool isActing) noexcept
{
    copyText(m_data->call, name);
    copyText(m_data->arguments, arguments);
    m_data->isActing = isActing ? 1 : 0;
    m_data->lastChanged = static_cast<LONG>(GetTickCount());
    InterlockedExchange(&m_data->isInCall, 1);
}

void Pad::leaveCall() noexcept
{
    m_data->lastChanged = static_cast<LONG>(GetTickCount());
    m_data->isInCall = 0;
}

void Pad::showProgress(std::string_view text) noexcept
{
    copyText(m_data->progress, text);
}

} // namespace velk::check
