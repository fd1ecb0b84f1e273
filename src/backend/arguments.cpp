// Tested in tests/unit/backend/callsTest.cpp.
#include "backend/arguments.h"

namespace velk::arguments {

TextRef::TextRef(Face variable) : m_variable(variable)
{
    const ansi::CountedText text{std::wstring_view(variable)};
    *m_text.put() = SysAllocStringByteLen(text.get(), static_cast<UINT>(text.bytes().size()));
    if (!m_text.get())
        throw std::bad_alloc();
}

void TextRef::readBack() const
{
    const auto* bytes = reinterpret_cast<const char*>(m_text.get());
    m_variable = ansi::wideOf({bytes, SysStringByteLen(m_text.get())});
}

} // namespace velk::arguments
