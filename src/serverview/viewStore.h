#pragma once

#include <string>

// Where the server view is kept from one life to the next: text values of the user's, below
// HKEY_CURRENT_USER\Software\Velk\velkviadd\View. Reading gives an empty text for what is not there or cannot be a kept
// text. Writing throws what the system says; an empty text takes the value away. Each value is written by itself, so
// that of two IDEs the last one that wrote it wins.
namespace velk::viewStore {

std::wstring value(const std::wstring& name);
void setValue(const std::wstring& name, const std::wstring& text);

// The name that a project has there, by its file's path: the same one however the path is written. Empty for one that
// nothing can be kept of.
std::wstring projectName(const std::wstring& path);
// Of a project, by that name. Writing one takes others away, the least recently used, when there are too many.
std::wstring project(const std::wstring& name);
void setProject(const std::wstring& name, const std::wstring& text);

} // namespace velk::viewStore
