#include "devkit/backend/actions.h"

#include "devkit/backend/messages.h"

#include <type_traits>

namespace velk::devkit {
namespace {

// A row's function: false when the handle is not of the kind of thing that it is for.
using Handler = bool (*)(Parts& parts, int32_t handle);

// A part's function, with the handle or with the routine that it stands for. Where the routine's source cannot be read
// the user knows already.
template <auto part, auto function>
bool by(Parts& parts, int32_t handle)
{
    auto& worker = parts.*part;
    if constexpr (std::is_invocable_v<decltype(function), decltype(worker), int32_t>) {
        return (worker.*function)(handle);
    } else {
        const Routine routine = readRoutine(parts.tree, parts.conversation, handle);
        if (routine.source)
            (worker.*function)(routine);
        return routine.place.facts != nullptr;
    }
}

constexpr auto inConnections = &Parts::connections;
constexpr auto inProject = &Parts::project;
constexpr auto inFiles = &Parts::routineFiles;
constexpr auto inWork = &Parts::routineWork;
constexpr auto inReports = &Parts::reports;

// An action that is for several kinds of things has a row for each; null where the caller has another way to ask.
struct ActionRow {
    int32_t code;
    Handler handler;
};

// clang-format off
constexpr ActionRow actionRows[] = {
    { 2, nullptr},                  // open: by RZProjectDoAccess
    { 3, by<inProject, &ProjectAccess::save>},
    { 4, nullptr},                  // save as: by RZProjectDoAccess
    { 7, by<inConnections, &Connections::connect>},
    { 8, by<inConnections, &Connections::disconnect>},
    { 9, by<inProject, &ProjectAccess::addConnection>},
    { 9, by<inFiles, &RoutineFiles::add>},
    {10, by<inConnections, &Connections::refresh>},
    {11, by<inConnections, &Connections::filter>},
    {12, by<inFiles, &RoutineFiles::import>},
    {13, by<inReports, &ObjectReports::properties>},
    {14, by<inWork, &RoutineWork::showSource>},
    {15, by<inWork, &RoutineWork::runSettings>},
    {16, by<inWork, &RoutineWork::run>},
    {17, by<inWork, &RoutineWork::run>},         // there is no debugger to attach
    {18, by<inWork, &RoutineWork::build>},
    {19, by<inWork, &RoutineWork::build>},
    {20, by<inReports, &ObjectReports::sampleContents>},
    {21, by<inProject, &ProjectAccess::close>},
    {21, by<inProject, &ProjectAccess::removeConnection>},
    {21, by<inFiles, &RoutineFiles::remove>},
    {22, by<inFiles, &RoutineFiles::drop>},
    {23, by<inFiles, &RoutineFiles::paste>},
    {24, by<inFiles, &RoutineFiles::copy>},
    {25, by<inWork, &RoutineWork::showSource>},
    {26, nullptr},                  // these four have calls of their own
    {27, nullptr},
    {28, nullptr},
    {29, nullptr},
};
// clang-format on

} // namespace

Outcome act(Parts& parts, int32_t handle, int32_t code)
{
    const ActionRow* known = nullptr;
    for (const ActionRow& row : actionRows) {
        if (row.code != code)
            continue;
        if (row.handler && row.handler(parts, handle))
            return Outcome::done;
        known = &row;
    }
    if (!known)
        return Outcome::unknown;
    parts.conversation.tell(known->handler ? messageWrongObject : messageNotAvailable,
                            {parts.conversation.texts().text(actionNames + code)});
    return Outcome::refused;
}

} // namespace velk::devkit
