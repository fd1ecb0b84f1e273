#pragma once

#include "com/variant.h"

#include <initializer_list>
#include <string>
#include <string_view>

namespace velk::automation {

enum class Access { get, put, putRef, call };

// An argument that is passed by name (automation's named arguments).
struct NamedArgument {
    std::wstring_view name;
    variant value;
};

// What a call wants to say: positional arguments in reading order, then named ones.
struct Arguments {
    Arguments() = default;
    Arguments(std::initializer_list<variant> inOrder) : positional(inOrder) {}
    Arguments(std::initializer_list<variant> inOrder, std::initializer_list<NamedArgument> byName)
        : positional(inOrder), named(byName)
    {
    }
    std::initializer_list<variant> positional;
    std::initializer_list<NamedArgument> named;
};

// The one door to objects whose members are known by name only. A missing object is error 91, an unknown member
// error 438; a failure inside the member keeps the number, description and source that it reported.
variant invoke(IDispatch* object, std::wstring_view member, Access access, const Arguments& arguments = {});

inline variant get(const com_ptr<IDispatch>& object, std::wstring_view member, const Arguments& arguments = {})
{
    return invoke(object.get(), member, Access::get, arguments);
}
inline variant call(const com_ptr<IDispatch>& object, std::wstring_view member, const Arguments& arguments = {})
{
    return invoke(object.get(), member, Access::call, arguments);
}
inline void put(const com_ptr<IDispatch>& object, std::wstring_view member, const variant& value)
{
    invoke(object.get(), member, Access::put, {value});
}
inline void putRef(const com_ptr<IDispatch>& object, std::wstring_view member, const com_ptr<IDispatch>& value)
{
    invoke(object.get(), member, Access::putRef, {variant(value)});
}

// A member that gives an object; empty when the member answers with nothing.
inline com_ptr<IDispatch> getObject(const com_ptr<IDispatch>& object, std::wstring_view member,
                                    const Arguments& arguments = {})
{
    return get(object, member, arguments).asObject();
}

// Whether the object knows a member of that name (a missing object knows none).
bool hasMember(IDispatch* object, const wchar_t* member) noexcept;

// Makes an object of a registered class by its name; error 429 when it cannot be made.
com_ptr<IDispatch> createObject(std::wstring_view progId);

} // namespace velk::automation
