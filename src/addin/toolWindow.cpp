// Tested in tests/unit/addin/IMgrVITest.cpp.
#include "addin/toolWindow.h"

#include "base/boundary.h"
#include "com/automation.h"
#include "com/host_report.h"

#include <product.h>

namespace velk {
namespace {

constexpr wchar_t documentProgId[] = VELK_OWN_NAME("serverViewDoc");
// The IDE remembers the window's place under this name.
constexpr wchar_t toolWindowGuid[] = L"{5D1C7A3E-2B94-4F6A-9E0B-7C3D8A61F2B5}";

// One try of CreateToolWindow; the document comes back in a reference of the one or the other type.
com_ptr<IDispatch> createWith(const com_ptr<IDispatch>& windows, const com_ptr<IDispatch>& addin,
                              const std::wstring& caption, const variant& document)
{
    return automation::call(windows, L"CreateToolWindow",
                            {variant(addin), variant(documentProgId), variant(std::wstring_view(caption)),
                             variant(toolWindowGuid), document})
        .asObject();
}

// What a window says that it hosts; nothing where it does not say.
com_ptr<IDispatch> documentOf(const com_ptr<IDispatch>& window)
{
    com_ptr<IDispatch> document;
    if (automation::hasMember(window.get(), L"Object"))
        swallow(L"IMgrVI.makeToolWindow", L"the document may still come in the other form",
                [&] { document = automation::getObject(window, L"Object"); });
    return document;
}

} // namespace

ServerViewWindow createToolWindow(const com_ptr<IDispatch>& windows, const com_ptr<IDispatch>& addin,
                                  const std::wstring& caption, const Session& session)
{
    constexpr wchar_t where[] = L"IMgrVI.makeToolWindow";
    ServerViewWindow made;
    const auto failure =
        attempt([&] { made.window = createWith(windows, addin, caption, variant::refTo(made.document.put())); });
    if (failure && failure->number() != errorTypeMismatch)
        throw *failure;
    if (!made.document)
        made.document = documentOf(made.window);
    if (made.document || session.isOver())
        return made;
    if (made.window)
        swallow(where, L"the second form may find the same window", [&] { automation::call(made.window, L"Close"); });
    session.throwIfOver();
    variant received;
    made.window = createWith(windows, addin, caption, variant::refTo(received.put()));
    made.document = received.asObject();
    if (!made.document)
        made.document = documentOf(made.window);
    return made;
}

void undock(const com_ptr<IDispatch>& window)
{
    const com_ptr<IDispatch> frame = automation::getObject(window, L"LinkedWindowFrame");
    reportHost(HostObject::LinkedWindowFrame, frame.get());
    const com_ptr<IDispatch> linked = automation::getObject(frame, L"LinkedWindows");
    reportHost(HostObject::LinkedWindows, linked.get());
    automation::call(linked, L"Remove", {variant(window)});
}

} // namespace velk
