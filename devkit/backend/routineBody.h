#pragma once

#include "devkit/backend/facts.h"

#include <map>
#include <string>
#include <vector>

namespace velk::devkit {

struct RoutineParameter {
    std::wstring name;
    std::wstring type;
};

// The parameters of a routine in their order, without their direction.
std::vector<RoutineParameter> parametersOf(const ObjectFacts& facts);

bool isWrittenIn(const ObjectFacts& facts, const wchar_t* language);
// NULL for every parameter: to have statements checked without running them.
std::map<std::wstring, std::wstring> nothingFor(const ObjectFacts& facts);

// What a parameter gets when nobody says otherwise: 1 for numbers, an empty text for others; as a statement's literal.
std::wstring defaultValue(const RoutineParameter& parameter);

// The statements of an SQL routine: those between BEGIN and the last END, or the one behind RETURN. Each parameter,
// also as routine.parameter, is replaced by its value; texts in quotes are left alone.
std::vector<std::wstring> statementsOf(const std::wstring& source, const ObjectFacts& facts,
                                       const std::map<std::wstring, std::wstring>& values);

} // namespace velk::devkit
