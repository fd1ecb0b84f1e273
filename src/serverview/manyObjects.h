#pragma once

#include "serverview/menuRows.h"

#include <functional>
#include <vector>

namespace velk {

using Objects = std::vector<Choice::Object>;

// Carries out what the user chose for several objects, one after the other. All of it is a copy, but for the answer
// whether an object is still there, which is asked for while the view lives: what is gone by its turn is passed over.
//
// The rest stays undone
// - when the view or the session ends,
// - after a failure, which is thrown on for the user to be told,
// - after a box with a Cancel button was closed with Cancel inside one of the calls,
// - when a file operation finds SourceSafe without an open database and has said so.
// The tool asks most of its questions after the call, in notifications: by then all objects have been handed over, and
// each answer is for the one object that it asks about.
void doForMany(const MenuRow& row, Choice choice, Objects objects,
               const std::function<bool(const Choice::Object&)>& isThere);

} // namespace velk
