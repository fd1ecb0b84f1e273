// The rows of the details list, made of the records and their columns.

#include "base/boundary.h"
#include "base/text.h"
#include "serverview/objectColumns.h"
#include "serverview/publishedView.h"
#include "serverview/viewAPIs.h"

namespace velk {
namespace {

constexpr wchar_t where[] = L"viewAPIs rows";
constexpr wchar_t why[] = L"the list keeps what it shows";

template <class Record, size_t count>
void addRow(const Record& record, const Column<Record> (&columns)[count], std::wstring_view tag, RowLooks looks)
{
    std::array<NumberRoom, count> rooms;
    std::array<std::wstring_view, count> cells;
    for (size_t column = 0; column < count; ++column)
        cells[column] = columns[column].cell(record, rooms[column]);
    publishedList().add(Row::make(record.lHdl, cells, tag, looks));
}

template <class Record, size_t count>
void addObjectRow(const Record& record, const Column<Record> (&columns)[count], const ObjectPictures& pictures) noexcept
{
    swallow(where, why, [&] { addRow(record, columns, {}, {pictureOf(pictures.plain)}); });
}

// The commands read the debug flag and the file name from the tag.
template <class Routine>
class Tag {
public:
    explicit Tag(const Routine& routine)
    {
        const std::wstring_view flag = routine.bCanDebug ? L"True#" : L"False#";
        const std::wstring& fileName = routine.strFileName;
        if (flag.size() + fileName.size() > m_room.size()) {
            m_long = std::wstring(flag) + fileName;
            return;
        }
        const size_t length = flag.copy(m_room.data(), m_room.size());
        m_length = length + fileName.copy(m_room.data() + length, m_room.size() - length);
    }
    std::wstring_view text() const noexcept
    {
        return m_long.empty() ? std::wstring_view(m_room.data(), m_length) : m_long;
    }

private:
    std::array<wchar_t, 128> m_room; // enough for most
    size_t m_length = 0;
    std::wstring m_long;
};

template <class Routine>
RowLooks looksOf(const Routine& routine, const ObjectPictures& pictures)
{
    return {pictureOf(routine.bIsDirty ? pictures.dirty : pictures.plain), routine.bIsDirty};
}

template <class Routine, size_t count>
void addRoutineRow(const Routine& routine, const Column<Routine> (&columns)[count],
                   const ObjectPictures& pictures) noexcept
{
    swallow(where, why, [&] { addRow(routine, columns, Tag(routine).text(), looksOf(routine, pictures)); });
}

template <class Routine>
void updateRoutineRow(const Routine& routine, const ObjectPictures& pictures) noexcept
{
    swallow(where, why, [&] {
        const Tag tag(routine);
        publishedList().update(routine.lHdl, {routine.strName, tag.text(), looksOf(routine, pictures)});
    });
}

} // namespace

void addProcedureRow(const trzProcedure& procedure) noexcept
{
    addRoutineRow(procedure, procedureColumns, procedurePictures);
}

void addFunctionRow(const trzFunction& function) noexcept
{
    addRoutineRow(function, functionColumns, functionPictures);
}

void addTriggerRow(const trzTrigger& trigger) noexcept
{
    addObjectRow(trigger, triggerColumns, triggerPictures);
}

void addTableRow(const trzTable& table) noexcept
{
    addObjectRow(table, tableColumns, tablePictures);
}

void addViewRow(const trzView& view) noexcept
{
    addObjectRow(view, viewColumns, viewPictures);
}

void updateProcedureRow(const trzProcedure& procedure) noexcept
{
    updateRoutineRow(procedure, procedurePictures);
}

void updateFunctionRow(const trzFunction& function) noexcept
{
    updateRoutineRow(function, functionPictures);
}

void clearListRows() noexcept
{
    swallow(where, why, [] { publishedList().clear(); });
}

ListFilling::ListFilling() noexcept : m_filling(publishedView().serverDetailsView)
{
}

} // namespace velk
