#pragma once

#include "devkit/backend/odbc.h"

#include <string>

namespace velk::devkit {

// The table rozel_routines, where the sources of built routines are kept. Made with its first entry.
void keepSource(OdbcConnection& connection, const std::wstring& name, const std::wstring& source);
void forgetSource(OdbcConnection& connection, const std::wstring& name);

} // namespace velk::devkit
