#pragma once

#include "checker/report.h"

#include <string>

namespace velk::check {

// What is known of a library's file, and of the system that it is checked on.
Head headOf(const std::wstring& library);

std::string sha256Of(const std::wstring& file);  // hexadecimal; empty when it cannot be had
std::string versionOf(const std::wstring& file); // of its version resource
std::string systemText();

} // namespace velk::check
