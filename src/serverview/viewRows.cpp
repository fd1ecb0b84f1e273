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
Row rowOf(const Record& record, const Column<Record> (&columns)[count])
{
    Row row{makeKey(record.lHdl), {}, {}};
    row.cells.reserve(count);
    for (const Column<Record>& column : columns)
        row.cells.push_back(column.cell(record));
    return row;
}

// What changes in a row when its routine changes. The commands read the debug flag and the file name from the tag.
template <class Routine>
void dress(Row& row, const Routine& routine, const ObjectPictures& pictures)
{
    row.cells.at(0) = routine.strName;
    row.tag = booleanText(routine.bCanDebug) + L"#" + routine.strFileName;
    row.bold = routine.bIsDirty;
    row.image = pictureOf(routine.bIsDirty ? pictures.dirty : pictures.plain);
}

template <class Record, size_t count>
void addRow(const Record& record, const Column<Record> (&columns)[count], const ObjectPictures& pictures) noexcept
{
    swallow(where, why, [&] {
        Row row = rowOf(record, columns);
        row.image = pictureOf(pictures.plain);
        publishedList().add(std::move(row));
    });
}

template <class Routine, size_t count>
void addRoutineRow(const Routine& routine, const Column<Routine> (&columns)[count],
                   const ObjectPictures& pictures) noexcept
{
    swallow(where, why, [&] {
        Row row = rowOf(routine, columns);
        dress(row, routine, pictures);
        publishedList().add(std::move(row));
    });
}

template <class Routine>
void updateRoutineRow(const Routine& routine, const ObjectPictures& pictures) noexcept
{
    swallow(where, why,
            [&] { publishedList().update(makeKey(routine.lHdl), [&](Row& row) { dress(row, routine, pictures); }); });
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
    addRow(trigger, triggerColumns, triggerPictures);
}

void addTableRow(const trzTable& table) noexcept
{
    addRow(table, tableColumns, tablePictures);
}

void addViewRow(const trzView& view) noexcept
{
    addRow(view, viewColumns, viewPictures);
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
