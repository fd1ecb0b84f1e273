// Tested in tests/forms/serverview/ViewKeeperTest.cpp.
#include "serverview/keptNodes.h"

#include "base/boundary.h"
#include "serverview/publishedView.h"
#include "serverview/ViewKeeper.h"

namespace velk {
namespace {

constexpr wchar_t where[] = L"kept view";
constexpr wchar_t why[] = L"the user finds the nodes as they come";

} // namespace

void projectHasCome(const trzProject& project) noexcept
{
    if (ViewKeeper* keeper = publishedView().keeper)
        keeper->projectCame(project.strPath);
}

void projectHasChanged(const trzProject& project) noexcept
{
    if (ViewKeeper* keeper = publishedView().keeper)
        keeper->projectIsAt(project.strPath);
}

void connectionHasCome(const trzConnection& connection) noexcept
{
    if (ViewKeeper* keeper = publishedView().keeper)
        swallow(where, why, [&] { keeper->tree().connectionCame(makeKey(connection.lHdl), connection.bConnected); });
}

void connectionHasChanged(const trzConnection& connection) noexcept
{
    if (ViewKeeper* keeper = publishedView().keeper)
        swallow(where, why, [&] { keeper->tree().connectionChanged(makeKey(connection.lHdl), connection.bConnected); });
}

} // namespace velk
