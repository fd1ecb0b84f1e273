#pragma once

#include "support/fakeObject.h"

#include <vector>

namespace velk::test {

// An IDE with these windows, in collection order. Its journal is that of the windows' collection and of the IDE.
inline com_ptr<FakeObject> ideWith(std::vector<com_ptr<FakeObject>> list, FakeObject::Journal* journal = nullptr)
{
    auto windows = fakeObject(L"Windows", journal);
    windows->value(L"Count", variant(static_cast<int32_t>(list.size())));
    windows->function(L"Item", [list](const std::vector<variant>& arguments) {
        return asVariant(list.at(static_cast<size_t>(arguments.at(0).asLong()) - 1));
    });
    auto ide = fakeObject(L"DTE", journal);
    ide->value(L"Windows", asVariant(windows));
    return ide;
}

// An IDE whose windows have these types.
inline com_ptr<FakeObject> ideWithWindows(const std::vector<int32_t>& types, FakeObject::Journal* journal = nullptr)
{
    std::vector<com_ptr<FakeObject>> list;
    for (const int32_t type : types) {
        list.push_back(fakeObject(L"Window" + std::to_wstring(list.size() + 1), journal));
        list.back()->value(L"Type", variant(type));
    }
    return ideWith(list, journal);
}

} // namespace velk::test
