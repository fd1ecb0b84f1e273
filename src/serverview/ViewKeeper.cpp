#include "serverview/ViewKeeper.h"

#include "base/boundary.h"
#include "base/text.h"
#include "serverview/folderKinds.h"
#include "serverview/viewStore.h"

namespace velk {
namespace {

constexpr wchar_t where[] = L"ViewKeeper";
constexpr UINT_PTR timerId = 0x4B50;
constexpr UINT betweenWrites = 1000; // milliseconds

constexpr wchar_t treeWidthName[] = L"Splitter";
constexpr wchar_t filterName[] = L"FilterStrip";
std::wstring columnsName(int32_t folderKind)
{
    return L"Columns" + numberText(folderKind);
}

// In steps of the system's clock, which never goes back to 0.
uint64_t now() noexcept
{
    FILETIME time{};
    GetSystemTimeAsFileTime(&time);
    return uint64_t{time.dwHighDateTime} << 32 | time.dwLowDateTime;
}

template <class Write>
void keep(const Write& write) noexcept
{
    swallow(where, L"the view is not kept", write);
}

} // namespace

void ViewKeeper::begin(HWND owner, Splitter& splitter) noexcept
{
    m_owner = owner;
    m_splitter = &splitter;
    swallow(where, L"the view begins as a new user's", [this] {
        if (const std::optional<int> width = treeWidthOf(viewStore::value(treeWidthName)))
            m_splitter->setTreeWidth(*width);
        m_isFilterOpen = flagOf(viewStore::value(filterName)).value_or(false);
        ListColumns& columns = m_parts.serverDetailsView->columns();
        for (const FolderKindRow& row : folderKindRows())
            columns.setGiven(row.folderKind, viewStore::value(columnsName(row.folderKind)));
        columns.setListener([this](int32_t folderKind) {
            m_newColumns.insert(folderKind);
            writeLater();
        });
        m_tree.setListener([this] {
            m_isProjectNew = true;
            writeLater();
        });
    });
    m_treeWidth = m_splitter->treeWidth();
}

void ViewKeeper::end() noexcept
{
    if (!m_owner)
        return;
    write();
    m_owner = nullptr;
    m_parts.serverDetailsView->columns().setListener({});
    m_tree.setListener({});
}

void ViewKeeper::writeLater() noexcept
{
    if (m_owner && !m_isWaiting)
        m_isWaiting = SetTimer(m_owner, timerId, betweenWrites, nullptr) != 0;
}

bool ViewKeeper::useTimer(WPARAM timer) noexcept
{
    if (timer != timerId)
        return false;
    write();
    return true;
}

void ViewKeeper::write() noexcept
{
    if (std::exchange(m_isWaiting, false))
        KillTimer(m_owner, timerId);
    if (std::exchange(m_isTreeWidthNew, false))
        keep([this] { viewStore::setValue(treeWidthName, keptTreeWidth(m_treeWidth)); });
    if (std::exchange(m_isFilterNew, false))
        keep([this] { viewStore::setValue(filterName, keptFlag(m_isFilterOpen)); });
    for (const int32_t folderKind : std::exchange(m_newColumns, {}))
        keep([&] {
            viewStore::setValue(columnsName(folderKind), m_parts.serverDetailsView->columns().given(folderKind));
        });
    writeProject();
}

void ViewKeeper::writeProject() noexcept
{
    if (!std::exchange(m_isProjectNew, false) || m_project.empty())
        return;
    swallow(where, L"the project's tree is not kept", [this] {
        ProjectView view = m_tree.view();
        view.lastUsed = now();
        viewStore::setProject(m_project, keptTextOf(view));
    });
}

void ViewKeeper::lookAtSplitter() noexcept
{
    if (!m_splitter || m_splitter->treeWidth() == m_treeWidth)
        return;
    m_treeWidth = m_splitter->treeWidth();
    m_isTreeWidthNew = true;
    writeLater();
}

void ViewKeeper::setFilterOpen(bool isOpen) noexcept
{
    if (isOpen == m_isFilterOpen)
        return;
    m_isFilterOpen = isOpen;
    m_isFilterNew = true;
    writeLater();
}

void ViewKeeper::projectCame(const std::wstring& path) noexcept
{
    writeProject();
    swallow(where, L"the project begins as a new one", [&] {
        m_project.clear();
        m_tree.begin({});
        m_project = viewStore::projectName(path);
        const auto before = m_project.empty() ? std::nullopt : projectViewOf(viewStore::project(m_project));
        if (!before)
            return;
        m_tree.begin(*before);
        m_isProjectNew = true; // it is the one used last
        writeLater();
    });
}

void ViewKeeper::projectIsAt(const std::wstring& path) noexcept
{
    swallow(where, L"the project is kept where it was", [&] {
        const std::wstring name = viewStore::projectName(path);
        if (name == m_project)
            return;
        writeProject();
        m_project = name;
        m_isProjectNew = !(m_tree.view().expanded.empty() && !m_tree.view().selected);
        if (m_isProjectNew)
            writeLater();
    });
}

} // namespace velk
