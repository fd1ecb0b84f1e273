#pragma once

#include "backend/library.h"
#include "base/win32.h"
#include "devkit/contract/wire.h"

#include <array>
#include <cstdint>
#include <cstring>

namespace velk::bench {

// A function of the tool as it is called: Routine is written without the calling convention.
template <class Routine>
struct Stdcall;
template <class... Arguments>
struct Stdcall<int32_t (*)(Arguments...)> {
    using Type = int32_t(__stdcall*)(Arguments...);
};
template <class Routine>
auto entryOf(BackendFunction function)
{
    return reinterpret_cast<typename Stdcall<Routine>::Type>(backendAddress(function));
}

// What the fetch of a procedure cannot do without: the texts' room zeroed, the call, and the characters that were
// written converted, into buffers that are there already.
class ProcedureFloor {
public:
    void fetch(int32_t handle)
    {
        namespace wire = devkit::wire;
        static constexpr std::array<char * wire::trzProcedure::*, 8> texts = {
            &wire::trzProcedure::strSchema,     &wire::trzProcedure::strName,     &wire::trzProcedure::strSpecific,
            &wire::trzProcedure::strParameters, &wire::trzProcedure::strLanguage, &wire::trzProcedure::strSQLPackage,
            &wire::trzProcedure::strComment,    &wire::trzProcedure::strFileName};
        static constexpr std::array<uint32_t, 8> rooms = {256, 1024, 1024, 1024, 256, 256, 256, 1024};
        std::memset(m_block, 0, sizeof m_block);
        wire::trzProcedure record{};
        char* next = m_block;
        for (size_t index = 0; index < texts.size(); ++index) {
            std::memcpy(next, &rooms[index], sizeof rooms[index]);
            record.*texts[index] = next + sizeof rooms[index];
            next += sizeof rooms[index] + rooms[index] + 4;
        }
        m_get(handle, &record);
        for (size_t index = 0; index < texts.size(); ++index) {
            const char* text = record.*texts[index];
            MultiByteToWideChar(CP_ACP, 0, text, static_cast<int>(std::strlen(text)) + 1, m_wide[index], 1025);
        }
    }

private:
    decltype(entryOf<int32_t (*)(int32_t, devkit::wire::trzProcedure*)>({})) m_get =
        entryOf<int32_t (*)(int32_t, devkit::wire::trzProcedure*)>(BackendFunction::RZProcedureGet);
    alignas(8) char m_block[5 * 1024 + 8 * 8];
    wchar_t m_wide[8][1025];
};

} // namespace velk::bench
