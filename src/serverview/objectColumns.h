#pragma once

// The columns of the details list for each kind of objects, the object's name being the first, and the pictures.

#include "backend/records.h"
#include "serverview/pictures.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <string>
#include <string_view>

namespace velk {

// Room for the text of a number.
using NumberRoom = std::array<wchar_t, 11>;

// A column: the message number of the text over it, and what a record shows in it. The text lives as long as the record
// and the room do.
template <class Record>
struct Column {
    int32_t header;
    std::wstring_view (*cell)(const Record& record, NumberRoom& room);
};

inline std::wstring_view cellText(const std::wstring& text, NumberRoom&)
{
    return text;
}
inline std::wstring_view cellText(int32_t number, NumberRoom& room)
{
    std::array<char, std::tuple_size_v<NumberRoom>> digits;
    char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    return {room.data(), static_cast<size_t>(std::copy(digits.data(), end, room.data()) - room.data())};
}
inline std::wstring_view cellText(bool truth, NumberRoom&)
{
    return truth ? L"True" : L"False";
}

template <auto field>
struct FieldCell;
template <class Record, class Value, Value Record::* field>
struct FieldCell<field> {
    static std::wstring_view text(const Record& record, NumberRoom& room) { return cellText(record.*field, room); }
};

// The cell that shows a field as what it is: a text, a number, or True and False.
template <auto field>
inline constexpr auto cell = &FieldCell<field>::text;

// clang-format off
inline constexpr Column<trzProcedure> procedureColumns[] = {
    {500, cell<&trzProcedure::strName>},
    {501, cell<&trzProcedure::strSchema>},
    {506, cell<&trzProcedure::strParameters>},
    {507, cell<&trzProcedure::lResultSets>},
    {504, cell<&trzProcedure::strLanguage>},
    {503, cell<&trzProcedure::strSpecific>},
    {508, cell<&trzProcedure::strSQLPackage>},
    {505, cell<&trzProcedure::bIsFenced>},
    {502, cell<&trzProcedure::strComment>},
};
inline constexpr Column<trzFunction> functionColumns[] = {
    {500, cell<&trzFunction::strName>},
    {501, cell<&trzFunction::strSchema>},
    {509, cell<&trzFunction::strParameters>},
    {510, cell<&trzFunction::strResult>},
    {504, cell<&trzFunction::strLanguage>},
    {503, cell<&trzFunction::strSpecific>},
    {505, cell<&trzFunction::bIsFenced>}, // a number, unlike a procedure's
    {502, cell<&trzFunction::strComment>},
};
inline constexpr Column<trzTrigger> triggerColumns[] = {
    {500, cell<&trzTrigger::strName>},
    {501, cell<&trzTrigger::strSchema>},
    {511, cell<&trzTrigger::strTableName>},
    {512, cell<&trzTrigger::strTableSchema>},
    {502, cell<&trzTrigger::strComment>},
};
inline constexpr Column<trzTable> tableColumns[] = {
    {500, cell<&trzTable::strName>},
    {501, cell<&trzTable::strSchema>},
    {513, cell<&trzTable::strTableSpace>},
    {514, cell<&trzTable::lType>},
    {502, cell<&trzTable::strComment>},
};
inline constexpr Column<trzView> viewColumns[] = {
    {500, cell<&trzView::strName>},
    {501, cell<&trzView::strSchema>},
    {502, cell<&trzView::strComment>},
};

inline constexpr ObjectPictures procedurePictures{L"StoredProcedure", L"DirtyStoredProcedure"};
inline constexpr ObjectPictures functionPictures {L"UserFunction",    L"DirtyUserFunction"};
inline constexpr ObjectPictures triggerPictures  {L"Trigger"};
inline constexpr ObjectPictures tablePictures    {L"VelkTable"};
inline constexpr ObjectPictures viewPictures     {L"VelkView"};
// clang-format on

// The place of the language among a routine's columns: its menu looks at that cell.
inline constexpr size_t languageColumn = 4;
static_assert(procedureColumns[languageColumn].cell == cell<&trzProcedure::strLanguage>);
static_assert(functionColumns[languageColumn].cell == cell<&trzFunction::strLanguage>);

// The place of the schema in all kinds of rows.
inline constexpr size_t schemaColumn = 1;
static_assert(procedureColumns[schemaColumn].cell == cell<&trzProcedure::strSchema>);
static_assert(functionColumns[schemaColumn].cell == cell<&trzFunction::strSchema>);
static_assert(triggerColumns[schemaColumn].cell == cell<&trzTrigger::strSchema>);
static_assert(tableColumns[schemaColumn].cell == cell<&trzTable::strSchema>);
static_assert(viewColumns[schemaColumn].cell == cell<&trzView::strSchema>);

// The headers of some columns, in their order.
template <const auto& columns>
inline constexpr auto headersOf = [] {
    std::array<int32_t, std::size(columns)> headers{};
    for (size_t index = 0; index < headers.size(); ++index)
        headers[index] = columns[index].header;
    return headers;
}();

} // namespace velk
