#pragma once

#include <cstdint>
#include <string>

namespace velk {

// The texts by which nodes and rows are known, and those that they carry.

// "K" and a Backend handle in decimal, and back. The text behind the K is read as far as it is a number; a key that
// does not begin with one is error 13.
std::wstring makeKey(int32_t handle);
int32_t keyToHandle(const std::wstring& key);

// A kind as the decimal text that nodes keep as their tag, and back: a tag is read as far as it is a number.
std::wstring kindTag(int32_t kind);
int32_t kindOfTag(const std::wstring& tag);

// The file of a routine: what follows the first "#" of its row's tag; empty without one.
std::wstring fileOfTag(const std::wstring& tag);

} // namespace velk
