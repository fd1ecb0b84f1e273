#pragma once

// The columns of the details list for each kind of objects, the object's name being the first, and the pictures.

#include "backend/records.h"
#include "base/text.h"
#include "serverview/pictures.h"

#include <array>
#include <cstdint>
#include <string>

namespace velk {

// A column: the message number of the text over it, and what a record shows in it.
template <class Record>
struct Column {
    int32_t header;
    std::wstring (*cell)(const Record& record);
};

inline std::wstring cellText(const std::wstring& text)
{
    return text;
}
inline std::wstring cellText(int32_t number)
{
    return numberText(number);
}
inline std::wstring cellText(bool truth)
{
    return booleanText(truth);
}

template <auto field>
struct FieldCell;
template <class Record, class Value, Value Record::* field>
struct FieldCell<field> {
    static std::wstring text(const Record& record) { return cellText(record.*field); }
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

// The headers of some columns, in their order.
template <const auto& columns>
inline constexpr auto headersOf = [] {
    std::array<int32_t, std::size(columns)> headers{};
    for (size_t index = 0; index < headers.size(); ++index)
        headers[index] = columns[index].header;
    return headers;
}();

} // namespace velk
