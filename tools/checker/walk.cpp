#include "checker/walk.h"

#include "checker/textNumbers.h"

namespace velk::check {

// Numbers that are the same on every system.
uint32_t Walk::random(size_t below)
{
    m_state = m_state * 1664525 + 1013904223;
    return below == 0 ? 0 : static_cast<uint32_t>((m_state >> 8) % below);
}

void Walk::run(int steps)
{
    begin();
    for (int step = 0; step < steps; ++step) {
        constexpr int toldEvery = 250;
        if (step % toldEvery == 0)
            m_bench.pad().showProgress("step " + std::to_string(step) + " of " + std::to_string(steps) + ", seed " +
                                       std::to_string(m_bench.asked().seed));
        oneStep();
        if (m_session->isEndless())
            throw NotChecked{"the notifications have no end (see N13)"};
    }
    m_session->listen();
    WireRecord record = fetchOfKind(kindProject)->record();
    if (m_session->project() != 0 && m_bench.calls.fill(Fn::RZProjectGet, m_session->project(), record) == 0)
        m_bench.probe.found(Rule::C1, "the project that is open", "it is there no more");
}

void Walk::oneStep()
{
    struct Row {
        unsigned weight;
        void (Walk::*step)();
    };
    // clang-format off
    static constexpr Row rows[] = {
        {200, &Walk::hear},       {150, &Walk::select},      {100, &Walk::text},   {100, &Walk::fetch},
        {100, &Walk::enumerate},  { 60, &Walk::properties},  { 50, &Walk::refresh}, {40, &Walk::leaveEnumeration},
        { 40, &Walk::source},     { 20, &Walk::filter},      { 15, &Walk::switchConnection},
        { 10, &Walk::save},       {  1, &Walk::reopen},      {  1, &Walk::again},
    };
    // clang-format on
    unsigned all = 0;
    for (const Row& row : rows)
        all += row.weight;
    unsigned left = random(all);
    for (const Row& row : rows) {
        if (left < row.weight)
            return (this->*row.step)();
        left -= row.weight;
    }
}

void Walk::begin()
{
    m_session = &m_bench.opened();
}

void Walk::again()
{
    m_bench.endSession();
    begin();
}

void Walk::reopen()
{
    if (m_session->project() != 0)
        m_session->close();
    m_session->open();
    if (m_session->project() == 0)
        again();
}

const HeardConnection* Walk::connection()
{
    const auto& all = m_session->connections();
    return all.empty() ? nullptr : &all[random(all.size())];
}

int32_t Walk::object(const FolderKind& kind, int32_t folder)
{
    const std::vector<RecordCopy> objects = m_session->enumerate(folder, kind.folder);
    return objects.empty() ? 0 : objects[random(objects.size())].number("lHdl");
}

void Walk::text()
{
    const auto numbers = textNumbers();
    const TextNumber& row = numbers[random(numbers.size())];
    if (row.parameters == 0)
        m_bench.calls.text(row.number);
    else if (row.parameters == 1)
        m_bench.calls.text(row.number, std::string(random(2000), 'x'));
    else
        m_bench.calls.text(row.number, "first", std::string(random(2000), 'y'));
}

void Walk::hear()
{
    while (m_session->hearOne() && !m_session->isEndless())
        continue;
}

void Walk::select()
{
    if (const HeardConnection* const one = connection()) {
        const FolderKind& kind = folderKinds()[random(folderKindCount)];
        m_bench.calls.plain(Fn::RZSetCurrentFolder, one->folders[&kind - folderKinds().data()], kind.folder);
    }
}

void Walk::refresh()
{
    if (const HeardConnection* const one = connection())
        m_session->act(one->folders[random(folderKindCount)], actionRefresh);
}

void Walk::properties()
{
    if (const HeardConnection* const one = connection()) {
        const FolderKind& kind = folderKinds()[random(folderKindCount)];
        const int32_t handle = object(kind, one->folders[&kind - folderKinds().data()]);
        m_session->act(handle != 0 ? handle : m_session->project(), actionProperties);
    }
}

void Walk::enumerate()
{
    if (const HeardConnection* const one = connection()) {
        const size_t index = random(folderKindCount);
        m_session->enumerate(one->folders[index], folderKinds()[index].folder);
    }
}

void Walk::leaveEnumeration()
{
    if (const HeardConnection* const one = connection()) {
        const size_t index = random(folderKindCount);
        const FolderKind& kind = folderKinds()[index];
        const EnumBegin open = m_bench.calls.enumBegin(kind.begin, one->folders[index]);
        WireRecord record = kind.record();
        if (open.answer != 0)
            m_bench.calls.fill(kind.next, open.enumeration, record);
        m_bench.calls.plain(kind.end, open.enumeration);
    }
}

void Walk::fetch()
{
    if (const HeardConnection* const one = connection()) {
        const int32_t handle = one->handle;
        const size_t index = random(folderKindCount);
        const FolderKind& kind = folderKinds()[index];
        WireRecord connection = fetchOfKind(kindConnection)->record();
        if (const int32_t found = object(kind, one->folders[index])) {
            WireRecord record = kind.record();
            m_bench.calls.fill(kind.get, found, record);
        }
        m_bench.calls.fill(Fn::RZConnectionGet, handle, connection);
    }
}

void Walk::switchConnection()
{
    if (const HeardConnection* const one = connection()) {
        const int32_t handle = one->handle;
        m_session->act(handle, actionDisconnect);
        hear();
        m_session->act(handle, actionConnect);
    }
}

void Walk::source()
{
    if (const HeardConnection* const one = connection()) {
        const size_t index = random(2); // procedures and functions
        if (const int32_t handle = object(folderKinds()[index], one->folders[index]))
            m_session->act(handle, actionViewSource);
    }
}

void Walk::filter()
{
    if (const HeardConnection* const one = connection())
        m_session->act(one->folders[random(folderKindCount)], actionFilter); // Cancel is what is answered
}

void Walk::save()
{
    if (m_session->project() != 0)
        m_session->act(m_session->project(), actionSave);
}

} // namespace velk::check
