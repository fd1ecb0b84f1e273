#include "pairs.h"

#include "devkit/ide/reentryActions.h"
#include "devkit/ide/script.h"

#include <algorithm>
#include <set>

namespace velk::devkit {
namespace {

constexpr const wchar_t* turningPoints[] = {L"RZInitialize", L"RZTerminate", L"Windows.CreateToolWindow",
                                            L"Window.Close"};

std::vector<CallPlace> placesOf(const std::wstring& call, int uses)
{
    std::vector<CallPlace> places;
    for (const int use : std::set<int>{1, (uses + 1) / 2, uses})
        for (const CallMoment moment : {CallMoment::begins, CallMoment::ends})
            places.push_back({call, use, moment});
    return places;
}

bool isTurningPoint(const std::wstring& call)
{
    return std::find(std::begin(turningPoints), std::end(turningPoints), call) != std::end(turningPoints);
}

} // namespace

std::vector<Pair> pairsOf(const std::map<std::wstring, int>& counts, bool isFull)
{
    std::vector<Pair> pairs;
    size_t turn = 0; // of the calls: each begins its round of the actions one place further on
    for (const auto& [call, uses] : counts) {
        const std::vector<CallPlace> places = placesOf(call, uses);
        size_t step = turn++;
        for (const ReentryAction& action : reentryActions()) {
            const bool takesAll = isFull || isTurningPoint(call);
            const size_t first = takesAll ? 0 : step++ % places.size();
            const size_t last = takesAll ? places.size() : first + 1;
            for (size_t index = first; index < last; ++index)
                pairs.push_back({places[index], action.name});
        }
    }
    return pairs;
}

std::wstring pairLine(const Pair& pair)
{
    return placeText(pair.place) + L" " + pair.action;
}

std::vector<Pair> readPairs(const std::wstring& text)
{
    std::vector<Pair> pairs;
    for (std::wstring line : split(text, L'\n')) {
        std::erase(line, L'\r');
        const size_t space = line.find(L' ');
        const auto place = space == std::wstring::npos ? std::nullopt : callPlace(line.substr(0, space));
        if (place)
            pairs.push_back({*place, line.substr(space + 1)});
    }
    return pairs;
}

} // namespace velk::devkit
