#include "typeText.h"

#include <array>
#include <memory>

namespace velk::test {
namespace {

struct Word {
    WORD flag;
    const char* text;
};

// clang-format off
constexpr Word typeFlags[] = {
    {TYPEFLAG_FCANCREATE,     "creatable"},
    {TYPEFLAG_FHIDDEN,        "hidden"},
    {TYPEFLAG_FDUAL,          "dual"},
    {TYPEFLAG_FNONEXTENSIBLE, "nonextensible"},
    {TYPEFLAG_FOLEAUTOMATION, "oleautomation"},
    {TYPEFLAG_FDISPATCHABLE,  "dispatchable"},
};
constexpr Word argumentFlags[] = {
    {PARAMFLAG_FIN,     "in "},
    {PARAMFLAG_FOUT,    "out "},
    {PARAMFLAG_FRETVAL, "retval "},
    {PARAMFLAG_FOPT,    "optional "},
};
constexpr Word memberKinds[] = {
    {INVOKE_FUNC,           "method"},
    {INVOKE_PROPERTYGET,    "get"},
    {INVOKE_PROPERTYPUT,    "put"},
    {INVOKE_PROPERTYPUTREF, "putref"},
};
constexpr Word plainTypes[] = {
    {VT_BSTR,     "BSTR"},
    {VT_BOOL,     "VARIANT_BOOL"},
    {VT_I4,       "long"},
    {VT_DISPATCH, "IDispatch*"},
    {VT_UNKNOWN,  "IUnknown*"},
    {VT_VARIANT,  "VARIANT"},
    {VT_HRESULT,  "HRESULT"},
};
// clang-format on

std::string narrow(const bstr& text)
{
    const std::wstring_view wide = text.view();
    std::string plain;
    for (const wchar_t character : wide)
        plain += static_cast<char>(character);
    return plain;
}

std::string documented(ITypeInfo* info, MEMBERID member)
{
    bstr name;
    info->GetDocumentation(member, name.put(), nullptr, nullptr, nullptr);
    return narrow(name);
}

struct AttributeRelease {
    ITypeInfo* info;
    void operator()(TYPEATTR* attributes) const { info->ReleaseTypeAttr(attributes); }
    void operator()(FUNCDESC* function) const { info->ReleaseFuncDesc(function); }
};

std::unique_ptr<TYPEATTR, AttributeRelease> attributesOf(ITypeInfo* info)
{
    TYPEATTR* attributes = nullptr;
    info->GetTypeAttr(&attributes);
    return {attributes, {info}};
}

com_ptr<ITypeInfo> referenced(ITypeInfo* info, HREFTYPE reference)
{
    com_ptr<ITypeInfo> found;
    info->GetRefTypeInfo(reference, found.put());
    return found;
}

std::string typeText(ITypeInfo* info, const TYPEDESC& type)
{
    if (type.vt == VT_PTR)
        return typeText(info, *type.lptdesc) + "*";
    if (type.vt == VT_SAFEARRAY)
        return "SAFEARRAY(" + typeText(info, *type.lptdesc) + ")";
    if (type.vt == VT_USERDEFINED)
        return nameOf(referenced(info, type.hreftype).get());
    for (const Word& word : plainTypes)
        if (word.flag == type.vt)
            return word.text;
    return "type " + std::to_string(type.vt);
}

std::string memberText(ITypeInfo* info, const FUNCDESC& function)
{
    std::string line =
        std::to_string(function.memid) + " " + std::to_string(static_cast<size_t>(function.oVft) / sizeof(void*)) + " ";
    for (const Word& word : memberKinds)
        line += function.invkind == word.flag ? word.text : "";
    std::array<BSTR, 16> names{};
    UINT count = 0;
    info->GetNames(function.memid, names.data(), static_cast<UINT>(names.size()), &count);
    line += " " + documented(info, function.memid) + "(";
    for (SHORT index = 0; index < function.cParams; ++index) {
        const ELEMDESC& argument = function.lprgelemdescParam[index];
        line += index ? ", " : "";
        for (const Word& word : argumentFlags)
            line += (argument.paramdesc.wParamFlags & word.flag) ? word.text : "";
        line += typeText(info, argument.tdesc);
        const auto name = static_cast<UINT>(index) + 1;
        line += name < count ? " " + narrow(bstr(bstr::viewOf(names[name]))) : "";
    }
    for (UINT index = 0; index < count; ++index)
        SysFreeString(names[index]);
    const bool isPlain = function.elemdescFunc.tdesc.vt == VT_HRESULT && function.funckind == FUNC_PUREVIRTUAL &&
                         function.callconv == CC_STDCALL && function.wFuncFlags == 0;
    return line + (isPlain ? ")" : ") of another kind");
}

} // namespace

std::vector<std::string> membersOf(ITypeInfo* interfaceInfo)
{
    std::vector<std::string> lines;
    const auto attributes = attributesOf(interfaceInfo);
    for (UINT index = 0; index < attributes->cFuncs; ++index) {
        FUNCDESC* function = nullptr;
        interfaceInfo->GetFuncDesc(index, &function);
        const std::unique_ptr<FUNCDESC, AttributeRelease> held(function, {interfaceInfo});
        lines.push_back(memberText(interfaceInfo, *function));
    }
    return lines;
}

std::string flagsOf(ITypeInfo* info)
{
    std::string text;
    const auto attributes = attributesOf(info);
    WORD left = attributes->wTypeFlags;
    for (const Word& word : typeFlags) {
        text += (left & word.flag) ? (text.empty() ? "" : " ") + std::string(word.text) : "";
        left = static_cast<WORD>(left & ~word.flag);
    }
    return left ? text + " and others" : text;
}

std::string guidOf(ITypeInfo* info)
{
    std::array<wchar_t, 40> text{};
    StringFromGUID2(attributesOf(info)->guid, text.data(), static_cast<int>(text.size()));
    return narrow(bstr(text.data()));
}

std::string nameOf(ITypeInfo* info)
{
    return documented(info, MEMBERID_NIL);
}

std::vector<std::string> facesOf(ITypeInfo* classInfo)
{
    std::vector<std::string> lines;
    const auto attributes = attributesOf(classInfo);
    for (UINT index = 0; index < attributes->cImplTypes; ++index) {
        HREFTYPE reference = 0;
        INT flags = 0;
        classInfo->GetRefTypeOfImplType(index, &reference);
        classInfo->GetImplTypeFlags(index, &flags);
        const std::string name = nameOf(referenced(classInfo, reference).get());
        lines.push_back((flags == IMPLTYPEFLAG_FDEFAULT ? "default " : "") + name);
    }
    return lines;
}

std::string baseOf(ITypeInfo* interfaceInfo)
{
    HREFTYPE reference = 0;
    if (FAILED(interfaceInfo->GetRefTypeOfImplType(0, &reference)))
        return {};
    return nameOf(referenced(interfaceInfo, reference).get());
}

com_ptr<ITypeInfo> slotFace(ITypeInfo* info)
{
    HREFTYPE reference = 0;
    // Types that have one face only give no second one.
    if (FAILED(info->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference)))
        return com_ptr<ITypeInfo>(info);
    return referenced(info, reference);
}

std::vector<std::string> typesOf(ITypeLib* library)
{
    std::vector<std::string> names;
    for (UINT index = 0; index < library->GetTypeInfoCount(); ++index) {
        com_ptr<ITypeInfo> info;
        library->GetTypeInfo(index, info.put());
        names.push_back(nameOf(info.get()));
    }
    return names;
}

com_ptr<ITypeInfo> typeNamed(ITypeLib* library, const std::string& name)
{
    for (UINT index = 0; index < library->GetTypeInfoCount(); ++index) {
        com_ptr<ITypeInfo> info;
        library->GetTypeInfo(index, info.put());
        if (nameOf(info.get()) == name)
            return info;
    }
    return {};
}

} // namespace velk::test
