// Tested in tests/tools/doctor/machine/addinTest.cpp.
#include "gather.h"

#include "base/boundary.h"

namespace velk::doctor {
namespace {

struct Area {
    const wchar_t* name;
    void (*gather)(Facts& facts, const Options& options);
};
// clang-format off
constexpr Area areas[] = {
    {L"system",       gatherSystem},
    {L"registration", gatherRegistration},
    {L"ide",          gatherIde},
    {L"installed",    gatherInstalled},
    {L"addin",        gatherAddin},
    {L"running",      gatherRunning},
    {L"backend",      gatherBackend},
    {L"sourcesafe",   gatherSourceSafe},
    {L"odbc",         gatherOdbc},
    {L"language",     gatherLanguage},
    {L"log",          gatherLog},
};
// clang-format on

} // namespace

Facts gather(const Options& options)
{
    Facts facts;
    for (const Area& area : areas)
        if (const auto failure = attempt([&] { area.gather(facts, options); }))
            facts.failures.emplace_back(area.name, failure->description());
    return facts;
}

} // namespace velk::doctor
