#pragma once

#include "base/session.h"
#include "com/com_ptr.h"

#include <product.h>
#include <string>

namespace velk {

// The tag by which the add-in knows its own controls again.
inline constexpr const wchar_t* ownControlTag = productName;

// An empty toolbar for the add-in's buttons. One that a crash left behind is emptied and used again: a bar that is not
// the IDE's and holds nothing but controls of our tag. Any other bar of that name is left alone; ours stands beside it,
// under the name with a number. Throws what the IDE refuses, and Error 5 when the session ends in between.
com_ptr<IDispatch> ownToolbar(const com_ptr<IDispatch>& bars, const std::wstring& name, const Session& session);

} // namespace velk
