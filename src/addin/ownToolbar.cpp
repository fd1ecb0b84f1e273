#include "addin/ownToolbar.h"

#include "base/boundary.h"
#include "base/text.h"
#include "com/automation.h"

namespace velk {
namespace {

constexpr wchar_t where[] = L"RZCommandBars.addToolbar";
constexpr int32_t positionTop = 1;

com_ptr<IDispatch> barNamed(const com_ptr<IDispatch>& bars, const std::wstring& name)
{
    com_ptr<IDispatch> found;
    swallow(where, L"there is usually no such toolbar yet",
            [&] { found = automation::getObject(bars, L"Item", {variant(std::wstring_view(name))}); });
    return found;
}

// A user may have copied some of our buttons to a bar of his own, so that it takes all controls to tell.
bool isOurs(const com_ptr<IDispatch>& bar, const Session& session)
{
    bool isEachOurs = false;
    swallow(where, L"a bar that does not tell is not ours", [&] {
        if (automation::get(bar, L"BuiltIn").asBool())
            return;
        const com_ptr<IDispatch> controls = automation::getObject(bar, L"Controls");
        int32_t left = automation::get(controls, L"Count").asLong();
        bool mayBe = left > 0;
        for (; mayBe && left > 0; --left) {
            session.throwIfOver();
            const com_ptr<IDispatch> control = automation::getObject(controls, L"Item", {variant(left)});
            mayBe = automation::get(control, L"Tag").asText() == ownControlTag;
        }
        isEachOurs = mayBe;
    });
    return isEachOurs;
}

// Its buttons would do nothing any more.
void makeEmpty(const com_ptr<IDispatch>& bar, const Session& session)
{
    swallow(where, L"a button that stays does nothing", [&] {
        const com_ptr<IDispatch> controls = automation::getObject(bar, L"Controls");
        for (int32_t left = automation::get(controls, L"Count").asLong(); left > 0; --left) {
            session.throwIfOver();
            automation::call(automation::getObject(controls, L"Item", {variant(left)}), L"Delete", {variant(true)});
        }
    });
}

} // namespace

com_ptr<IDispatch> ownToolbar(const com_ptr<IDispatch>& bars, const std::wstring& name, const Session& session)
{
    constexpr int mostOfThatName = 9;
    for (int number = 1; number <= mostOfThatName; ++number) {
        const std::wstring numbered = number == 1 ? name : name + L" (" + numberText(number) + L")";
        const com_ptr<IDispatch> bar = barNamed(bars, numbered);
        session.throwIfOver();
        if (!bar)
            return automation::call(
                       bars, L"Add",
                       {variant(std::wstring_view(numbered)), variant(positionTop), variant(false), variant(true)})
                .asObject();
        const bool canBeUsed = isOurs(bar, session);
        session.throwIfOver();
        if (canBeUsed) {
            makeEmpty(bar, session);
            return bar;
        }
    }
    throw Error(errorInvalidCall);
}

} // namespace velk
