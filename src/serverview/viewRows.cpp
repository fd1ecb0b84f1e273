// The rows of the details list: which fields of a record stand in which column.

#include "base/boundary.h"
#include "base/text.h"
#include "serverview/publishedView.h"
#include "serverview/viewAPIs.h"

namespace velk {
namespace {

constexpr wchar_t where[] = L"viewAPIs rows";
constexpr wchar_t why[] = L"the list keeps what it shows";

DetailsList& list()
{
    if (!publishedView().serverDetailsView)
        throw Error(errorObjectNotSet);
    return *publishedView().serverDetailsView;
}

int imageOf(const wchar_t* key)
{
    if (!publishedView().ImageList1)
        throw Error(errorObjectNotSet);
    return publishedView().ImageList1->indexOf(key);
}

// What changes in a row when its routine changes. The commands read the debug flag and the file name from the tag.
template <class Routine>
void dress(Row& row, const Routine& routine, const wchar_t* plainImage, const wchar_t* dirtyImage)
{
    row.cells.at(0) = routine.strName;
    row.tag = booleanText(routine.bCanDebug) + L"#" + routine.strFileName;
    row.bold = routine.bIsDirty;
    row.image = imageOf(routine.bIsDirty ? dirtyImage : plainImage);
}

void dressProcedure(Row& row, const trzProcedure& procedure)
{
    dress(row, procedure, L"StoredProcedure", L"DirtyStoredProcedure");
}

void dressFunction(Row& row, const trzFunction& function)
{
    dress(row, function, L"UserFunction", L"DirtyUserFunction");
}

} // namespace

void addProcedureRow(const trzProcedure& procedure) noexcept
{
    swallow(where, why, [&] {
        Row row{makeKey(procedure.lHdl),
                {procedure.strName, procedure.strSchema, procedure.strParameters, numberText(procedure.lResultSets),
                 procedure.strLanguage, procedure.strSpecific, procedure.strSQLPackage,
                 booleanText(procedure.bIsFenced), procedure.strComment},
                {}};
        dressProcedure(row, procedure);
        list().add(std::move(row));
    });
}

void addFunctionRow(const trzFunction& function) noexcept
{
    swallow(where, why, [&] {
        Row row{makeKey(function.lHdl),
                {function.strName, function.strSchema, function.strParameters, function.strResult, function.strLanguage,
                 function.strSpecific, numberText(function.bIsFenced), function.strComment},
                {}};
        dressFunction(row, function);
        list().add(std::move(row));
    });
}

void addTriggerRow(const trzTrigger& trigger) noexcept
{
    swallow(where, why, [&] {
        list().add(
            {makeKey(trigger.lHdl),
             {trigger.strName, trigger.strSchema, trigger.strTableName, trigger.strTableSchema, trigger.strComment},
             {},
             imageOf(L"Trigger")});
    });
}

void addTableRow(const trzTable& table) noexcept
{
    swallow(where, why, [&] {
        list().add({makeKey(table.lHdl),
                    {table.strName, table.strSchema, table.strTableSpace, numberText(table.lType), table.strComment},
                    {},
                    imageOf(L"VelkTable")});
    });
}

void addViewRow(const trzView& view) noexcept
{
    swallow(where, why, [&] {
        list().add({makeKey(view.lHdl), {view.strName, view.strSchema, view.strComment}, {}, imageOf(L"VelkView")});
    });
}

void updateProcedureRow(const trzProcedure& procedure) noexcept
{
    swallow(where, why,
            [&] { list().update(makeKey(procedure.lHdl), [&](Row& row) { dressProcedure(row, procedure); }); });
}

void updateFunctionRow(const trzFunction& function) noexcept
{
    swallow(where, why,
            [&] { list().update(makeKey(function.lHdl), [&](Row& row) { dressFunction(row, function); }); });
}

void clearListRows() noexcept
{
    swallow(where, why, [] { list().clear(); });
}

ListFilling::ListFilling() noexcept : m_filling(publishedView().serverDetailsView)
{
}

} // namespace velk
