#include "checker/guarded.h"

#include "base/win32.h"

#include <algorithm>
#include <cstring>
#include <new>

namespace velk::check {
namespace {

constexpr size_t page = 4096;
constexpr char pattern = '\xA5';

GuardedBytes* firstAlive = nullptr; // the library is called on one thread

bool isPattern(const char* from, const char* to) noexcept
{
    return from == to || (*from == pattern && std::memcmp(from, from + 1, static_cast<size_t>(to - from) - 1) == 0);
}

size_t upTo(size_t multiple, size_t size)
{
    return (size + multiple - 1) / multiple * multiple;
}

} // namespace

GuardedBytes::GuardedBytes(std::string name, size_t size, bool isString)
    : m_name(std::move(name)), m_isString(isString), m_size(size), m_room(upTo(page, size + page / 4)),
      m_pages(static_cast<char*>(VirtualAlloc(nullptr, m_room + page, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE))),
      m_bytes(m_pages + m_room - upTo(4, size)), m_next(firstAlive)
{
    if (!m_pages)
        throw std::bad_alloc();
    std::memset(m_pages, pattern, m_room);
    std::memset(m_bytes, 0, m_size);
    DWORD before = 0;
    VirtualProtect(m_pages + m_room, page, PAGE_NOACCESS, &before);
    if (m_next)
        m_next->m_previous = this;
    firstAlive = this;
}

GuardedBytes::~GuardedBytes()
{
    (m_previous ? m_previous->m_next : firstAlive) = m_next;
    if (m_next)
        m_next->m_previous = m_previous;
    VirtualFree(m_pages, 0, MEM_RELEASE);
}

bool GuardedBytes::isFrontIntact() const noexcept
{
    return isPattern(m_pages, m_bytes);
}

bool GuardedBytes::isBackIntact() const noexcept
{
    return isPattern(m_bytes + m_size, m_pages + m_room);
}

void GuardedBytes::mendAround() noexcept
{
    std::memset(m_pages, pattern, static_cast<size_t>(m_bytes - m_pages));
    std::memset(m_bytes + m_size, pattern, static_cast<size_t>(m_pages + m_room - m_bytes) - m_size);
}

const GuardedBytes* GuardedBytes::behindWhich(const void* address) noexcept
{
    for (const GuardedBytes* one = firstAlive; one; one = one->m_next) {
        const char* const guard = one->m_pages + one->m_room;
        if (address >= guard && address < guard + page)
            return one;
    }
    return nullptr;
}

CountedBuffer::CountedBuffer(std::string name, size_t capacity) : m_bytes(std::move(name), prefix + capacity + 1, true)
{
    writeLength();
}

CountedBuffer::CountedBuffer(std::string name, std::string_view text) : CountedBuffer(std::move(name), text.size())
{
    std::copy(text.begin(), text.end(), characters());
}

void CountedBuffer::writeLength() noexcept
{
    const auto length = static_cast<uint32_t>(capacity());
    std::memcpy(m_bytes.data(), &length, sizeof length);
}

void CountedBuffer::clear() noexcept
{
    if (harm() != Harm::none)
        m_bytes.mendAround();
    writeLength();
    std::memset(characters(), 0, capacity() + 1);
}

Harm CountedBuffer::harm() const noexcept
{
    uint32_t length = 0;
    std::memcpy(&length, m_bytes.data(), sizeof length);
    if (characters()[capacity()] != '\0' || !m_bytes.isBackIntact())
        return Harm::behind;
    if (length != capacity())
        return Harm::prefix;
    return m_bytes.isFrontIntact() ? Harm::none : Harm::before;
}

bool CountedBuffer::hasNul() const noexcept
{
    return std::memchr(characters(), 0, capacity()) != nullptr;
}

std::string_view CountedBuffer::text() const noexcept
{
    const std::string_view all(characters(), capacity());
    return all.substr(0, all.find('\0'));
}

} // namespace velk::check
