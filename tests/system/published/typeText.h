#pragma once

#include "base/win32.h"
#include "com/bstr.h"
#include "com/com_ptr.h"

#include <string>
#include <vector>

namespace velk::test {

// What a type library says, as lines to compare with a table.

// "1 7 method name(in BSTR text, out retval long* count)": number, slot, kind, arguments; one line for each member that
// the interface adds to IDispatch.
std::vector<std::string> membersOf(ITypeInfo* interfaceInfo);
// "dual oleautomation hidden", in that order.
std::string flagsOf(ITypeInfo* info);
// "{...}" and the name of the type.
std::string guidOf(ITypeInfo* info);
std::string nameOf(ITypeInfo* info);
// "default _Connect", "_IntegrationMgr": what a class implements.
std::vector<std::string> facesOf(ITypeInfo* classInfo);
// The interface that an interface extends; empty for none.
std::string baseOf(ITypeInfo* interfaceInfo);

// The description of a dual interface by slots rather than by automation.
com_ptr<ITypeInfo> slotFace(ITypeInfo* info);
// Every type of the library by name, and one of them.
std::vector<std::string> typesOf(ITypeLib* library);
com_ptr<ITypeInfo> typeNamed(ITypeLib* library, const std::string& name);

} // namespace velk::test
