#pragma once

#include "serverview/DetailsList.h"

#include <optional>

// What the user does with the columns of the details list, beside giving them widths and places by the mouse. Columns
// have the numbers of the rows' cells.
namespace velk {

void setColumnShown(DetailsList& list, size_t column, bool isShown);
void fitColumn(DetailsList& list, size_t column);
void fitAllColumns(DetailsList& list);
void resetColumns(DetailsList& list);

// The answer to a message of the header to the list that is not for the list's control.
std::optional<LRESULT> answerHeader(DetailsList& list, UINT message, LPARAM lParam);

} // namespace velk
