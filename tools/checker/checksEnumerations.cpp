// Level 6: enumerations and handles.
#include "checker/bench.h"
#include "checker/checks.h"
#include "checker/texts.h"

#include <algorithm>
#include <bitset>
#include <map>
#include <memory>
#include <set>

namespace velk::check {
namespace {

struct Folder {
    int32_t handle;
    const FolderKind* kind;
};

bool isTold(const ScriptedSession& session, int32_t folder)
{
    const auto& heard = session.heard();
    return std::any_of(heard.begin(), heard.end(), [&](const Heard& one) {
        return one.notify.type == typeContents && one.notify.handle == folder;
    });
}

std::vector<Folder> foldersOf(Bench& bench)
{
    std::vector<Folder> folders;
    std::set<int32_t> known{0}; // H1 and H2 tell of folders that have no handle of their own
    for (const HeardConnection& connection : bench.opened().connections())
        for (size_t index = 0; index < folderKindCount; ++index)
            if (known.insert(connection.folders[index]).second && isTold(bench.opened(), connection.folders[index]))
                folders.push_back({connection.folders[index], &folderKinds()[index]});
    if (folders.empty())
        throw NotChecked{"no folder's contents were told"};
    return folders;
}

// One enumeration, step by step.
class Steps {
public:
    Steps(Bench& bench, const Folder& folder)
        : m_bench(bench), m_kind(*folder.kind), m_begin(bench.calls.enumBegin(m_kind.begin, folder.handle)),
          m_record(m_kind.record())
    {
    }
    bool hasBegun() const { return m_begin.answer != 0; }
    // The handle of the next object; 0 at the end.
    int32_t next()
    {
        m_record.presetTexts();
        const int32_t answer = m_bench.calls.fill(m_kind.next, m_begin.enumeration, m_record);
        return answer == 0 ? 0 : m_record.number("lHdl");
    }
    std::vector<int32_t> all() { return all(m_bench.mostEnumerated()); }
    std::vector<int32_t> all(size_t most)
    {
        std::vector<int32_t> handles;
        RepeatedHandles repeated;
        while (const int32_t handle = hasBegun() ? next() : 0) {
            m_isCut = repeated.areTooMany(handle) || handles.size() == most;
            if (m_isCut)
                break;
            handles.push_back(handle);
        }
        return handles;
    }
    bool isCut() const { return m_isCut; } // there would have been more
    void end() { m_bench.calls.plain(m_kind.end, m_begin.enumeration); }

private:
    Bench& m_bench;
    const FolderKind& m_kind;
    EnumBegin m_begin;
    WireRecord m_record;
    bool m_isCut = false;
};

std::vector<int32_t> handlesOf(Bench& bench, const Folder& folder)
{
    Steps steps(bench, folder);
    std::vector<int32_t> handles = steps.all();
    steps.end();
    return handles;
}

// Whether these are all objects of their folder.
bool isWhole(Bench& bench, const std::vector<int32_t>& handles)
{
    return handles.size() < bench.mostEnumerated();
}

std::string shownHandles(const std::vector<int32_t>& handles)
{
    std::string text = std::to_string(handles.size()) + " objects:";
    constexpr size_t most = 8;
    for (size_t index = 0; index < handles.size() && index < most; ++index)
        text += " " + std::to_string(handles[index]);
    return text + (handles.size() > most ? " ..." : "");
}

// In which order they come is left to the library.
bool areSame(std::vector<int32_t> one, std::vector<int32_t> other)
{
    std::sort(one.begin(), one.end());
    std::sort(other.begin(), other.end());
    return one == other;
}

void checkSame(Bench& bench, Rule rule, const std::vector<int32_t>& expected, const std::vector<int32_t>& seen)
{
    if (!areSame(expected, seen))
        bench.probe.found(rule, shownHandles(expected), shownHandles(seen));
}

// Folders with something in them, and what that is.
std::vector<std::pair<Folder, std::vector<int32_t>>> filledFolders(Bench& bench)
{
    if (bench.probe.hasFound(Rule::E4))
        throw NotChecked{"enumerations do not start over (see E4)"};
    std::vector<std::pair<Folder, std::vector<int32_t>>> filled;
    for (const Folder& folder : foldersOf(bench)) {
        Steps steps(bench, folder);
        auto handles = steps.all();
        steps.end();
        if (!handles.empty() && !steps.isCut())
            filled.emplace_back(folder, std::move(handles));
    }
    if (filled.empty())
        throw NotChecked{"no folder of the project has an object"};
    return filled;
}

} // namespace

void checkEnumerable(Bench& bench)
{
    for (const Folder& folder : foldersOf(bench)) {
        Steps steps(bench, folder);
        if (!steps.hasBegun())
            bench.probe.found(Rule::E1, "an answer that is not 0 for a folder whose contents were told", "0");
        steps.all();
        steps.end();
    }
}

void checkEnumerationEnds(Bench& bench)
{
    const auto most = static_cast<size_t>(bench.asked().objects); // the caller gives up then
    for (const Folder& folder : foldersOf(bench)) {
        Steps steps(bench, folder);
        const std::vector<int32_t> handles = steps.all(most);
        if (steps.isCut())
            bench.probe.found(Rule::E2, "0 when there is no object left",
                              std::to_string(handles.size()) + " objects and no end, the last is " +
                                  std::to_string(handles.back()));
        steps.end();
        if (steps.isCut())
            return; // one is enough: it takes its time
    }
}

void checkEndStays(Bench& bench)
{
    for (const auto& [folder, handles] : filledFolders(bench)) {
        Steps steps(bench, folder);
        steps.all();
        for (int again = 0; again < 2; ++again)
            if (const int32_t handle = steps.next(); handle != 0)
                bench.probe.found(Rule::E3, "0 after the end", "object " + std::to_string(handle));
        steps.end();
    }
}

void checkStartsOver(Bench& bench)
{
    for (const Folder& folder : foldersOf(bench)) {
        std::vector<int32_t> first = handlesOf(bench, folder);
        for (int again = 0; again < 2 && isWhole(bench, first); ++again) {
            std::vector<int32_t> next = handlesOf(bench, folder);
            // What was told meanwhile may have changed the folder.
            if (!areSame(first, next) && bench.opened().hearsMore()) {
                first = std::move(next);
                next = handlesOf(bench, folder);
            }
            checkSame(bench, Rule::E4, first, next);
        }
    }
}

// Several of one folder, and one or more of another, which take their steps in turn.
void checkSideBySide(Bench& bench)
{
    constexpr size_t atATime = 8; // as the contract has it
    const auto filled = filledFolders(bench);
    for (size_t index = 0; index < filled.size(); ++index) {
        std::unique_ptr<Steps> all[atATime];
        std::vector<int32_t> seen[atATime];
        const auto expected = [&](size_t which) -> const auto& { return filled[(index + which % 2) % filled.size()]; };
        for (size_t which = 0; which < atATime; ++which)
            all[which] = std::make_unique<Steps>(bench, expected(which).first);
        std::bitset<atATime> open;
        for (size_t which = 0; which < atATime; ++which)
            open[which] = all[which]->hasBegun();
        while (open.any())
            for (size_t which = 0; which < atATime; ++which) {
                const int32_t handle = open[which] ? all[which]->next() : 0;
                open[which] = handle != 0 && seen[which].size() <= expected(which).second.size();
                if (open[which])
                    seen[which].push_back(handle);
            }
        for (size_t which = 0; which < atATime; ++which) {
            all[which]->end();
            checkSame(bench, Rule::E5, expected(which).second, seen[which]);
        }
    }
}

void checkEndedEarly(Bench& bench)
{
    for (const auto& [folder, handles] : filledFolders(bench)) {
        Steps unused(bench, folder);
        unused.end();
        Steps early(bench, folder);
        if (early.hasBegun())
            early.next();
        else
            bench.probe.found(Rule::E6, "an answer that is not 0, after another was ended early", "0");
        early.end();
        checkSame(bench, Rule::E6, handles, handlesOf(bench, folder));
    }
}

void checkSameFetched(Bench& bench)
{
    constexpr size_t mostOfAFolder = 50;
    for (const Folder& folder : foldersOf(bench)) {
        size_t count = 0;
        for (const RecordCopy& object : bench.opened().enumerate(folder.handle, folder.kind->folder)) {
            if (++count > mostOfAFolder)
                break;
            WireRecord record = folder.kind->record();
            const int32_t answer = bench.calls.fill(folder.kind->get, object.number("lHdl"), record);
            const RecordCopy fetched(record);
            std::string difference = answer == 0 ? "the answer is 0" : "";
            for (const char* const field : {"strSchema", "strName"})
                if (answer != 0 && object.text(field) != fetched.text(field))
                    difference = std::string(field) + " was " + shown(object.text(field)) + " and is " +
                                 shown(fetched.text(field));
            if (!difference.empty())
                bench.probe.found(Rule::E7, "the object that was enumerated", difference);
        }
    }
}

void checkNoZeroHandle(Bench& bench)
{
    ScriptedSession& session = bench.opened();
    const auto check = [&](int32_t handle, const std::string& what) {
        if (handle == 0)
            bench.probe.found(Rule::H1, {what, ""}, "a handle that is not 0", "0");
    };
    for (const Heard& heard : session.heard()) { // texts have numbers of their own
        const bool isContents = heard.notify.type == typeContents && isFolder(heard.notify.kind);
        if (isContents || (isAboutThing(heard.notify) && fetchOfKind(heard.notify.kind)))
            check(heard.notify.handle, "a notification of type " + std::to_string(heard.notify.type));
    }
    for (const HeardConnection& connection : session.connections())
        for (size_t index = 0; index < folderKindCount; ++index)
            check(connection.folders[index], std::string("trzConnection.") + folderKinds()[index].field);
    for (const Folder& folder : foldersOf(bench))
        for (const RecordCopy& object : session.enumerate(folder.handle, folder.kind->folder))
            check(object.number("lHdl"), rowOf(folder.kind->next).name);
}

void checkHandlesDiffer(Bench& bench)
{
    ScriptedSession& session = bench.opened();
    std::map<int32_t, std::string> known;
    bool isAgain = false; // the same thing may have its handle again
    const auto add = [&](int32_t handle, const std::string& what) {
        const auto [place, isNew] = known.emplace(handle, what);
        if (!isNew && handle != 0 && !(isAgain && place->second == what))
            bench.probe.found(Rule::H2, {what, ""}, "a handle of its own",
                              std::to_string(handle) + ", as " + place->second);
    };
    const auto addProject = [&] {
        add(session.project(), "the project");
        for (const HeardConnection& connection : std::vector(session.connections())) {
            add(connection.handle, "connection " + std::to_string(connection.handle));
            for (size_t index = 0; index < folderKindCount; ++index)
                add(connection.folders[index], "trzConnection." + std::string(folderKinds()[index].field) + " of " +
                                                   std::to_string(connection.handle));
        }
    };
    addProject();
    for (const auto& [folder, handles] : filledFolders(bench))
        for (const int32_t handle : handles)
            add(handle, "an object of kind " + std::to_string(folder.kind->object()));
    session.close();
    if (session.project() != 0)
        return;
    session.open(); // what is gone keeps its handle for itself
    isAgain = true;
    addProject();
    bench.endSession(); // nothing was told of the folders of this one
}

void checkOwnHandle(Bench& bench)
{
    constexpr size_t mostOfAFolder = 50;
    ScriptedSession& session = bench.opened();
    const auto check = [&](const Fetch& fetch, int32_t handle) {
        WireRecord record = fetch.record();
        if (bench.calls.fill(fetch.function, handle, record) != 0 && record.number("lHdl") != handle)
            bench.probe.found(Rule::H3, "lHdl " + std::to_string(handle), std::to_string(record.number("lHdl")));
    };
    check(*fetchOfKind(kindProject), session.project());
    for (const HeardConnection& connection : std::vector(session.connections()))
        check(*fetchOfKind(kindConnection), connection.handle);
    for (const Folder& folder : foldersOf(bench)) {
        const std::vector<int32_t> handles = handlesOf(bench, folder);
        for (size_t index = 0; index < handles.size() && index < mostOfAFolder; ++index)
            check(*fetchOfKind(folder.kind->object()), handles[index]);
    }
}

} // namespace velk::check
