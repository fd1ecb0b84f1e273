// Tested in tests/forms/ui/RZfrmAboutTest.cpp.
#include "ui/captions.h"

#include "backend/texts.h"

namespace velk {

void setCaptions(const Dialog& form, std::span<const DialogRow> rows)
{
    for (const DialogRow& row : rows)
        if (row.caption != 0)
            form.setText(row.id, getRZString(row.caption));
}

} // namespace velk
