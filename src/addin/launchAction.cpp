#include "addin/RZCommandBars.h"
#include "backend/calls.h"
#include "base/boundary.h"
#include "base/text.h"
#include "ui/RZfrmAbout.h"

namespace velk {
namespace {

constexpr wchar_t aboutAction[] = L"30";
constexpr wchar_t applicationAction[] = L"2";
constexpr wchar_t applicationArguments[] = L"-ccf";

} // namespace

void launchAction(const std::wstring& action) noexcept
{
    swallow(L"launchAction", L"an entry that does nothing is all that the user sees", [&] {
        if (action == aboutAction)
            return showAboutBox();
        const int32_t number = textToLong(action);
        if (action != applicationAction) {
            RZLaunchVelkTool(number);
            return;
        }
        std::wstring arguments = applicationArguments;
        RZLaunchApp(number, arguments);
    });
}

} // namespace velk
