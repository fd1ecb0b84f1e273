#pragma once

#include "devkit/ide/reentry.h"

#include <map>
#include <string>
#include <vector>

namespace velk::devkit {

// A place in a life and what happens there.
struct Pair {
    CallPlace place;
    std::wstring action;
};

// The pairs of all calls of a life with all actions. Each call stands for its first, a middle and its last use, and
// each use for its two moments: in a full matrix every one of them meets every action, else they take turns, except
// for the calls at which a session begins and ends.
std::vector<Pair> pairsOf(const std::map<std::wstring, int>& counts, bool isFull);

std::wstring pairLine(const Pair& pair);
std::vector<Pair> readPairs(const std::wstring& text);

} // namespace velk::devkit
