#include "devkit/ide/automated.h"

#include "base/text.h"
#include "devkit/ide/recorder.h"
#include "devkit/ide/reentry.h"

namespace velk::devkit {
namespace {

// Answered by the IDE's own objects only.
constexpr IID ownObjectIid{0x6d0f1a52, 0x2c64, 0x4d0e, {0x9b, 0x3e, 0x51, 0x77, 0xe1, 0x0a, 0x94, 0x20}};

std::wstring describe(const CallArguments& arguments)
{
    std::wstring text;
    for (const VARIANT* value : arguments.all()) {
        text += text.empty() ? L"" : L", ";
        text += value ? devkit::describe(*value) : L"";
    }
    return text;
}

} // namespace

std::wstring describe(const VARIANT& value)
{
    switch (value.vt) {
    case VT_EMPTY:
        return L"Empty";
    case VT_ERROR:
        return L"";
    case VT_BSTR:
        return L"\"" + std::wstring(bstr::viewOf(value.bstrVal)) + L"\"";
    case VT_BOOL:
        return booleanText(value.boolVal != VARIANT_FALSE);
    case VT_UNKNOWN:
        return L"enumeration";
    case VT_DISPATCH: {
        const AutomationObject* own = ownObject(value.pdispVal);
        return own ? own->label() : value.pdispVal ? L"object" : L"Nothing";
    }
    default:
        return value.vt & VT_BYREF ? L"reference" : copyOf(value).asText();
    }
}

AutomationObject* ownObject(IDispatch* object) noexcept
{
    void* own = nullptr;
    if (!object || FAILED(object->QueryInterface(ownObjectIid, &own)))
        return nullptr;
    auto* found = static_cast<AutomationObject*>(own);
    found->Release();
    return found;
}

void* AutomationObject::extraInterface(REFIID iid) noexcept
{
    return iid == ownObjectIid ? this : ownInterface(iid);
}

bool AutomationObject::knows(const wchar_t* member) const
{
    return offers(member) && !recorder().isMissing(callName(member));
}

void AutomationObject::onUnknownName(const wchar_t* name)
{
    recorder().write(label() + L"." + name + L" unknown");
}

variant AutomationObject::use(size_t index, bool assigns, const CallArguments& arguments)
{
    const wchar_t* member = memberName(index).name;
    const CallScope inside(callName(member) + (assigns ? L"=" : L""));
    const std::wstring use = label() + L"." + member;
    const std::wstring said = describe(arguments);
    const std::wstring line = assigns ? use + L" = " + said : said.empty() ? use : use + L"(" + said + L")";
    try {
        if (recorder().isFailing(callName(member)))
            throw Error(errorUnsupportedAction, std::wstring(member) + L" was told to fail");
        if (assigns) {
            recorder().write(line);
            write(index, arguments);
            return variant();
        }
        variant answer = read(index, arguments);
        recorder().write(answer.type() == VT_EMPTY ? line : line + L" -> " + devkit::describe(answer.get()));
        return answer;
    } catch (const Error& error) {
        recorder().write(line + L" failed: " + error.description());
        throw;
    }
}

} // namespace velk::devkit
