// Tested in tests/system/registrationTest.cpp.
#include "addin/registration.h"

#include "addin/classes.h"
#include "addin/registrationKeys.h"
#include "base/module.h"
#include "base/registry.h"
#include "com/bstr.h"
#include "com/com_boundary.h"
#include "com/dispatch.h"

#include <array>
#include <optional>
#include <product.h>
#include <typelib/velkviadd.h>

namespace velk {
namespace {

constexpr wchar_t addinDescription[] = L"Works on Velk database objects and Rozel projects inside the IDE";
constexpr DWORD notCommandLineSafe = 0;
// How a host is to treat the document: lay it out anew when resized, activate it inside its window as soon as it is
// visible, and give it its site before anything else.
constexpr wchar_t documentMiscStatus[] = L"131457";
static_assert((OLEMISC_RECOMPOSEONRESIZE | OLEMISC_INSIDEOUT | OLEMISC_ACTIVATEWHENVISIBLE |
               OLEMISC_SETCLIENTSITEFIRST) == 131457);

std::wstring guidText(REFGUID guid)
{
    std::array<wchar_t, 40> text{};
    StringFromGUID2(guid, text.data(), static_cast<int>(text.size()));
    return text.data();
}

void write(const std::wstring& path, const std::wstring& text, const std::wstring& name = {})
{
    registry::setText(registry::createKey(HKEY_LOCAL_MACHINE, path).get(), name, text);
}

std::wstring classKey(const PublishedClass& row)
{
    return std::wstring(classesRoot) + L"CLSID\\" + guidText(*row.clsid);
}

std::wstring progId(const PublishedClass& row)
{
    return std::wstring(productName) + L"." + row.name;
}

void registerClass(const PublishedClass& row)
{
    const std::wstring key = classKey(row);
    write(key, row.description);
    write(key + L"\\InprocServer32", module::path());
    write(key + L"\\InprocServer32", threadingModel, L"ThreadingModel");
    write(key + L"\\ProgID", progId(row));
    write(key + L"\\TypeLib", guidText(LIBID_velkviadd));
    write(key + L"\\Version", L"1.0");
    if (row.isDocument) {
        registry::createKey(HKEY_LOCAL_MACHINE, key + L"\\Control");
        registry::createKey(HKEY_LOCAL_MACHINE, key + L"\\DocObject");
        write(key + L"\\MiscStatus", L"0");
        write(key + L"\\MiscStatus\\1", documentMiscStatus);
    }
    write(classesRoot + progId(row), row.description);
    write(classesRoot + progId(row) + L"\\CLSID", guidText(*row.clsid));
}

void registerTypeLibrary()
{
    com_ptr<ITypeLib> library;
    const std::wstring path = typeLibraryPath(TypeLibrary::published);
    throwIfFailed(LoadTypeLibEx(path.c_str(), REGKIND_NONE, library.put()));
    throwIfFailed(RegisterTypeLib(library.get(), const_cast<LPOLESTR>(path.c_str()), nullptr));
}

void unregisterTypeLibrary()
{
    bstr path;
    // Systems differ in what they say of a library that was never registered, so it is not asked of them.
    if (SUCCEEDED(QueryPathOfRegTypeLib(LIBID_velkviadd, 1, 0, LOCALE_NEUTRAL, path.put())))
        throwIfFailed(UnRegisterTypeLib(LIBID_velkviadd, 1, 0, LOCALE_NEUTRAL, SYS_WIN32));
}

void registerWithIde()
{
    const unique_key key = registry::createKey(HKEY_LOCAL_MACHINE, addinKey);
    registry::setText(key.get(), L"FriendlyName", productTitle);
    registry::setText(key.get(), L"Description", addinDescription);
    registry::setNumber(key.get(), L"LoadBehavior", loadAtStartup);
    registry::setNumber(key.get(), L"CommandLineSafe", notCommandLineSafe);
}

// Runs steps that do not depend on each other: each is attempted, and the first failure is the result of all.
class FirstFailure {
public:
    template <class Step>
    void of(Step&& step) noexcept
    {
        auto failure = attempt(std::forward<Step>(step));
        if (!failure)
            return;
        reportFailure(L"unregisterAddin", L"what else was registered is still removed", *failure);
        if (!m_first)
            m_first = std::move(failure);
    }
    void rethrow() const
    {
        if (m_first)
            throw *m_first;
    }

private:
    std::optional<Error> m_first;
};

} // namespace

void registerAddin()
{
    const auto failure = attempt([] {
        for (const PublishedClass& row : publishedClasses())
            registerClass(row);
        registerTypeLibrary();
        registerWithIde();
    });
    if (!failure)
        return;
    swallow(L"registerAddin", L"taking back a failed registration; the first failure is what counts",
            [] { unregisterAddin(); });
    throw *failure;
}

void unregisterAddin()
{
    FirstFailure failure;
    failure.of([] { registry::removeTree(HKEY_LOCAL_MACHINE, addinKey); });
    // The list itself is the IDE's, but without an IDE on the machine it was ours alone.
    registry::removeEmptyUpTo(HKEY_LOCAL_MACHINE, ideRoot, ideRootStop);
    failure.of([] { unregisterTypeLibrary(); });
    for (const PublishedClass& row : publishedClasses()) {
        failure.of([&] { registry::removeTree(HKEY_LOCAL_MACHINE, classKey(row)); });
        failure.of([&] { registry::removeTree(HKEY_LOCAL_MACHINE, classesRoot + progId(row)); });
    }
    failure.rethrow();
}

} // namespace velk
