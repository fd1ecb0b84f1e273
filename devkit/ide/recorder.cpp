#include "devkit/ide/recorder.h"

#include "base/never_destroyed.h"
#include "devkit/ide/textFile.h"

#include <sstream>

namespace velk::devkit {
namespace {

std::set<std::wstring> membersOf(const std::wstring& list)
{
    std::set<std::wstring> members;
    std::wistringstream texts(list);
    std::wstring member;
    while (std::getline(texts, member, L','))
        members.insert(member);
    return members;
}

} // namespace

void Recorder::write(const std::wstring& line)
{
    m_lines.push_back(line);
    if (!m_path.empty())
        appendToFile(m_path, line + L"\n");
}

void Recorder::setMissing(const std::wstring& list)
{
    m_missing = membersOf(list);
}

void Recorder::setFailing(const std::wstring& list)
{
    m_failing = membersOf(list);
}

Recorder& recorder()
{
    static never_destroyed<Recorder> only;
    return only.get();
}

} // namespace velk::devkit
