#include "checker/calls.h"

#include "checker/parameterText.h"
#include "checker/texts.h"

#include <bit>
#include <cstring>

namespace velk::check {
namespace {

template <class Pointee>
uint32_t word(Pointee* pointer)
{
    return std::bit_cast<uint32_t>(pointer);
}
uint32_t word(int32_t number)
{
    return std::bit_cast<uint32_t>(number);
}
uint32_t word(const CountedBuffer& text)
{
    return word(text.characters());
}

template <class Value>
Value valueOf(const GuardedBytes& bytes)
{
    Value value{};
    std::memcpy(&value, bytes.data(), sizeof value);
    return value;
}

std::string listed(std::initializer_list<std::string> arguments)
{
    std::string list;
    for (const std::string& argument : arguments)
        list += (list.empty() ? "" : ", ") + argument;
    return list;
}

std::string shown(int32_t number)
{
    return std::to_string(number);
}

} // namespace

int32_t Calls::initialize(std::string_view projectFile)
{
    constexpr int32_t visualInterDev = 3;
    const CountedBuffer file("the project file", projectFile);
    const CountedBuffer empty("the empty text", std::string_view());
    const int32_t answer = m_library.call(Fn::RZInitialize, {visualInterDev, word(file), word(empty)},
                                          listed({"3", check::shown(projectFile), "\"\""}));
    checkString(file);
    checkString(empty);
    return answer;
}

int32_t Calls::terminate()
{
    return m_library.call(Fn::RZTerminate, {}, "");
}

TextAnswer Calls::text(int32_t number, int32_t capacity)
{
    const CountedBuffer buffer("the buffer", static_cast<size_t>(capacity));
    TextAnswer answer;
    answer.answer = m_library.call(Fn::RZGetString, {word(number), word(buffer), word(capacity)},
                                   listed({shown(number), "buffer", shown(capacity)}));
    answer.call = m_probe.lastCall;
    checkString(buffer);
    answer.hasNul = buffer.hasNul();
    answer.text = buffer.text();
    return answer;
}

TextAnswer Calls::text(int32_t number, std::string_view parameter)
{
    const CountedBuffer buffer("the buffer", usualCapacity);
    ParameterText first(parameter);
    TextAnswer answer;
    answer.answer =
        m_library.call(Fn::RZGetStringP1, {word(number), word(buffer), usualCapacity, word(first.variable())},
                       listed({shown(number), "buffer", "1024", check::shown(parameter)}));
    answer.call = m_probe.lastCall;
    checkString(buffer);
    answer.hasNul = buffer.hasNul();
    answer.text = buffer.text();
    answer.areCounted = first.isCounted();
    return answer;
}

TextAnswer Calls::text(int32_t number, std::string_view one, std::string_view other)
{
    const CountedBuffer buffer("the buffer", usualCapacity);
    ParameterText first(one);
    ParameterText second(other);
    TextAnswer answer;
    answer.answer = m_library.call(
        Fn::RZGetStringP2, {word(number), word(buffer), usualCapacity, word(first.variable()), word(second.variable())},
        listed({shown(number), "buffer", "1024", check::shown(one), check::shown(other)}));
    answer.call = m_probe.lastCall;
    checkString(buffer);
    answer.hasNul = buffer.hasNul();
    answer.text = buffer.text();
    answer.areCounted = first.isCounted() && second.isCounted();
    return answer;
}

Notify Calls::next()
{
    WireRecord record = WireRecord::of<trzNotify>("trzNotify");
    const GuardedBytes more("the more-flag", sizeof(int16_t));
    constexpr int16_t setBefore = -1; // as the add-in does
    std::memcpy(more.data(), &setBefore, sizeof setBefore);
    Notify notify;
    notify.answer = m_library.call(Fn::RZGetNotification,
                                   {word(static_cast<char*>(record.address())), word(more.data())}, "record, flag");
    checkRecord(record, notify.answer != 0);
    if (!more.isBackIntact())
        m_probe.found(m_probe.blamed(Rule::R6), "the more-flag has 16 bits", "what stands behind it was written to");
    notify.more = valueOf<int16_t>(more);
    notify.type = record.number("lNotifyType");
    notify.project = record.number("lProjectHdl");
    notify.connection = record.number("lConnectionHdl");
    notify.kind = record.number("lObjectType");
    notify.handle = record.number("lObjectHdl");
    return notify;
}

int32_t Calls::button(std::string_view text, int32_t answer)
{
    const CountedBuffer given("the text", text);
    const int32_t result =
        m_library.call(Fn::RZButtonDoAction, {word(given), word(answer)}, listed({check::shown(text), shown(answer)}));
    checkString(given);
    return result;
}

int32_t Calls::fill(Fn function, int32_t handle, WireRecord& record)
{
    const int32_t answer = m_library.call(function, {word(handle), word(static_cast<char*>(record.address()))},
                                          listed({shown(handle), record.name()}));
    checkRecord(record, answer != 0);
    return answer;
}

EnumBegin Calls::enumBegin(Fn function, int32_t container)
{
    const GuardedBytes unread("the first number", sizeof(int32_t));
    const GuardedBytes enumeration("the enumeration", sizeof(int32_t));
    EnumBegin begin;
    begin.answer = m_library.call(function, {word(container), word(unread.data()), word(enumeration.data())},
                                  listed({shown(container), "number", "enumeration"}));
    checkNumber(unread);
    checkNumber(enumeration);
    begin.enumeration = valueOf<int32_t>(enumeration);
    return begin;
}

int32_t Calls::plain(Fn function, int32_t first)
{
    return m_library.call(function, {word(first)}, shown(first));
}

int32_t Calls::plain(Fn function, int32_t first, int32_t second)
{
    return m_library.call(function, {word(first), word(second)}, listed({shown(first), shown(second)}));
}

int32_t Calls::access(std::string_view first, std::string_view second, int32_t mode)
{
    const CountedBuffer one("the first text", first);
    const CountedBuffer other("the second text", second);
    const int32_t answer = m_library.call(Fn::RZProjectDoAccess, {word(one), word(other), word(mode)},
                                          listed({check::shown(first), check::shown(second), shown(mode)}));
    checkString(one);
    checkString(other);
    return answer;
}

int32_t Calls::getAdo(int32_t handle, int32_t language, std::string_view project, std::string_view component)
{
    const CountedBuffer one("the project", project);
    const CountedBuffer other("the component", component);
    const int32_t answer =
        m_library.call(Fn::RZObjectDoGetADO, {word(handle), word(language), word(one), word(other)},
                       listed({shown(handle), shown(language), check::shown(project), check::shown(component)}));
    checkString(one);
    checkString(other);
    return answer;
}

int32_t Calls::connectionDe(int32_t handle, std::string_view project, std::string_view environment,
                            std::string_view connection)
{
    const CountedBuffer one("the project", project);
    const CountedBuffer two("the data environment", environment);
    const CountedBuffer three("the connection", connection);
    const int32_t answer = m_library.call(
        Fn::RZConnectionDoGetDE, {word(handle), word(one), word(two), word(three)},
        listed({shown(handle), check::shown(project), check::shown(environment), check::shown(connection)}));
    for (const CountedBuffer* const text : {&one, &two, &three})
        checkString(*text);
    return answer;
}

int32_t Calls::commandDe(int32_t handle, std::string_view project, std::string_view environment,
                         std::string_view connection, std::string_view command)
{
    const CountedBuffer one("the project", project);
    const CountedBuffer two("the data environment", environment);
    const CountedBuffer three("the connection", connection);
    const CountedBuffer four("the command", command);
    const int32_t answer =
        m_library.call(Fn::RZCommandDoGetDE, {word(handle), word(one), word(two), word(three), word(four)},
                       listed({shown(handle), check::shown(project), check::shown(environment),
                               check::shown(connection), check::shown(command)}));
    for (const CountedBuffer* const text : {&one, &two, &three, &four})
        checkString(*text);
    return answer;
}

} // namespace velk::check
