#include "backend/text_block.h"

#include "base/win32.h"

#include <intrin.h>

namespace velk::ansi {
namespace {

// The Backend is called on one thread only.
alignas(8) char keptBlock[TextBlock::keptSize + TextBlock::slack];
static_assert(TextBlock::keptSize % sizeof(unsigned long) == 0);
bool isKeptBlockTaken = false;

// By the processor's own instruction: for a few thousand bytes it takes a third of what a run-time's memset may take.
void zeroFirst(size_t size) noexcept
{
    constexpr size_t width = sizeof(unsigned long);
    __stosd(reinterpret_cast<unsigned long*>(keptBlock), 0, (size + width - 1) / width);
}

} // namespace

TextBlock::TextBlock(size_t size) : m_block(keptBlock)
{
    if (size > keptSize || isKeptBlockTaken) {
        m_own = std::make_unique<char[]>(size + slack);
        m_block = m_own.get();
        return;
    }
    isKeptBlockTaken = true;
    zeroFirst(size);
}

TextBlock::~TextBlock()
{
    if (!m_own)
        isKeptBlockTaken = false;
}

} // namespace velk::ansi
