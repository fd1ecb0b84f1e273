#pragma once

#include "checks.h"

// The judgements, a function a check; checks.cpp has the table.
namespace velk::doctor {

Verdict judgeWindows(const Facts& facts);
Verdict judgeRegistryView(const Facts& facts);
Verdict judgeRights(const Facts& facts);

Verdict judgeAddinFile(const Facts& facts);
Verdict judgeAddinBits(const Facts& facts);
Verdict judgeAddinVersion(const Facts& facts);
Verdict judgeAddinBytes(const Facts& facts);
Verdict judgeAddinFolder(const Facts& facts);
Verdict judgeAddinLoad(const Facts& facts);
Verdict judgeInstalled(const Facts& facts);

Verdict judgeClasses(const Facts& facts);
Verdict judgeProgIds(const Facts& facts);
Verdict judgeTypeLibrary(const Facts& facts);
Verdict judgeCopy(const Facts& facts);
Verdict judgeUsersRegistration(const Facts& facts);
Verdict judgeLeftovers(const Facts& facts);
Verdict judgeIdeKey(const Facts& facts);
Verdict judgeAddinManager(const Facts& facts);

Verdict judgeBackendFile(const Facts& facts);
Verdict judgeBackendBits(const Facts& facts);
Verdict judgeBackendFunctions(const Facts& facts);
Verdict judgeBackendDependencies(const Facts& facts);
Verdict judgeBackendLoad(const Facts& facts);
Verdict judgeTexts(const Facts& facts);
Verdict judgeContract(const Facts& facts);

Verdict judgeSourceSafe(const Facts& facts);
Verdict judgeOdbc(const Facts& facts);
Verdict judgeCodePage(const Facts& facts);
Verdict judgeFonts(const Facts& facts);
Verdict judgeLog(const Facts& facts);
Verdict judgeLogFailures(const Facts& facts);
Verdict judgeHostMembers(const Facts& facts);
Verdict judgeHostBars(const Facts& facts);

Verdict judgeRunningAddin(const Facts& facts);
Verdict judgeRunningAnswers(const Facts& facts);

// Small words of the judgements.
Verdict good(std::wstring text, std::vector<std::wstring> details = {});
Verdict note(std::wstring text, std::vector<std::wstring> details = {});
Verdict skipped(std::wstring why);
Verdict warning(std::wstring text, std::wstring wayOut, std::vector<std::wstring> details = {});
Verdict wrong(std::wstring text, std::wstring wayOut, std::vector<std::wstring> details = {});
Verdict withRemedy(Verdict verdict, Remedy remedy);

std::wstring quoted(const std::wstring& text);
bool isSameText(const std::wstring& one, const std::wstring& other) noexcept; // letters large or small
std::wstring bitsText(const check::PeFile& program); // "32-bit", "64-bit", "for another processor"
std::wstring systemText(DWORD code);                 // the system's words and the number
// How a step in a child process ended, as the end of a sentence that begins with what was asked of whom.
std::wstring childText(const ChildFacts& child);

// Whether a file has what the add-in's has: what else is said of it is said of the add-in.
bool isAddin(const FileFacts& file);
// The file that the classes are registered with: the add-in's own if any of them is, else that of the entry object.
std::wstring registeredPath(const Facts& facts);
bool isRegisteredThere(const Facts& facts); // whether that file exists
bool isUnregistered(const Facts& facts);    // nothing at all is registered for the machine
extern const wchar_t registerByHand[];      // the way out of most of it

} // namespace velk::doctor
