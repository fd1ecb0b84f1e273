#include "backend/text_block.h"

#include <cstring>

namespace velk::ansi {
namespace {

// The Backend is called on one thread only.
alignas(8) char keptBlock[TextBlock::keptSize];
bool isKeptBlockTaken = false;

} // namespace

TextBlock::TextBlock(size_t size) : m_block(keptBlock)
{
    if (size > keptSize || isKeptBlockTaken) {
        m_own = std::make_unique<char[]>(size);
        m_block = m_own.get();
        return;
    }
    isKeptBlockTaken = true;
    std::memset(keptBlock, 0, size);
}

TextBlock::~TextBlock()
{
    if (!m_own)
        isKeptBlockTaken = false;
}

} // namespace velk::ansi
