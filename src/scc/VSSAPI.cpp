#include "scc/VSSAPI.h"

#include "backend/texts.h"
#include "base/boundary.h"
#include "base/never_destroyed.h"
#include "base/paths.h"
#include "com/automation.h"
#include "ui/messageBox.h"

#include <algorithm>

namespace velk {
namespace {

constexpr wchar_t rootSpec[] = L"$/";
constexpr wchar_t iniFile[] = L"\\srcsafe.ini";
constexpr wchar_t whyQuiet[] = L"SourceSafe's failures end their operation only";
constexpr int32_t cannotHandleText = 675;
constexpr int32_t logInFirstText = 682;

// The one open database and the project that was chosen in it. Empty until a login, and again after closeSourceSafe.
struct SourceSafeState {
    com_ptr<IDispatch> database;
    com_ptr<IDispatch> project;
    unsigned closings = 0; // of closeSourceSafe: it may run inside any call to SourceSafe
};

SourceSafeState& state()
{
    static never_destroyed<SourceSafeState> only;
    return only.get();
}

// Whether closeSourceSafe has run since: what a call then still brings is for nobody and must not be kept.
class Closing {
public:
    bool hasCome() const noexcept { return state().closings != m_closings; }
    void throwIfCome() const
    {
        if (hasCome())
            throw Error(errorInvalidCall);
    }

private:
    const unsigned m_closings = state().closings;
};

// Items that were deleted in SourceSafe are never asked for.
com_ptr<IDispatch> item(const std::wstring& spec)
{
    const com_ptr<IDispatch> database = state().database; // lives through the call, whatever that leads to
    const Closing closing;
    com_ptr<IDispatch> found =
        automation::getObject(database, L"VSSItem", {variant(std::wstring_view(spec)), variant(false)});
    closing.throwIfCome();
    return found;
}

std::wstring currentProjectSpec()
{
    const com_ptr<IDispatch> project = state().project;
    const Closing closing;
    const std::wstring name = automation::get(project, L"Name").asText();
    closing.throwIfCome();
    return rootSpec + name;
}

std::wstring folderOf(const std::wstring& databaseName, const DatabaseTable& table)
{
    for (const SourceSafeDatabase& row : table)
        if (row.name == databaseName)
            return row.folder;
    return {};
}

// Whether the root has a child of that name; a look that fails counts as no. SourceSafe's names are the same in
// capitals and small letters.
bool isBelowRoot(const std::wstring& name)
{
    std::vector<std::wstring> names;
    getSourceSafeProjects(names);
    return std::any_of(names.begin(), names.end(),
                       [&](const std::wstring& other) { return lstrcmpiW(other.c_str(), name.c_str()) == 0; });
}

// The failure as it may be written down: a server that repeats the password in its words is not quoted.
Error withoutPassword(const Error& error, std::wstring_view password)
{
    const bool isRepeated =
        !password.empty() && (error.description() + error.source()).find(password) != std::wstring::npos;
    return isRepeated ? Error::fromResult(error.result()) : error;
}

// A file operation that needs an open database; says so where there is none.
template <class Operation>
void onFile(const wchar_t* where, const std::wstring& path, Operation operation)
{
    if (!state().database) {
        const Closing closing;
        std::wstring parameter = path;
        const std::wstring text = getRZStringP1(cannotHandleText, parameter) + L"\r\n" + getRZString(logInFirstText);
        if (!closing.hasCome())
            showMessage(text);
        return;
    }
    swallow(where, whyQuiet, [&] { operation(); });
}

} // namespace

bool openSourceSafeDatabase(const std::wstring& userName, std::wstring_view password, const std::wstring& databaseName,
                            const DatabaseTable& table)
{
    const Closing closing;
    state().database.reset(); // the current project stays until another one is made current
    try {
        const com_ptr<IDispatch> database = automation::createObject(sourceSafeProgId);
        const std::wstring ini = folderOf(databaseName, table) + iniFile;
        automation::call(
            database, L"Open",
            {variant(std::wstring_view(ini)), variant(std::wstring_view(userName)), variant::secret(password)});
        if (closing.hasCome())
            return false; // the add-in was unloaded meanwhile
        state().database = database;
        return true;
    } catch (const Error& error) {
        reportFailure(L"openSourceSafeDatabase", L"the user is told and may try again",
                      withoutPassword(error, password));
        if (!closing.hasCome())
            showMessage(error.description());
        return false;
    }
}

bool isSourceSafeOpen() noexcept
{
    return static_cast<bool>(state().database);
}

bool getSourceSafeProjects(std::vector<std::wstring>& projects)
{
    swallow(L"getSourceSafeProjects", whyQuiet, [&] {
        const com_ptr<IDispatch> children = automation::getObject(item(rootSpec), L"Items", {variant(false)});
        const int32_t count = automation::get(children, L"Count").asLong();
        for (int32_t number = 1; number <= count; ++number)
            projects.push_back(
                automation::get(automation::getObject(children, L"Item", {variant(number)}), L"Name").asText());
    });
    return !projects.empty();
}

void setCurrentProject(const std::wstring& name)
{
    swallow(L"setCurrentProject", whyQuiet, [&] { state().project = item(rootSpec + name); });
}

void createSourceSafeProject(const std::wstring& name)
{
    // Whatever becomes of this, the project is made current if it exists.
    swallow(L"createSourceSafeProject", whyQuiet, [&] {
        if (!isBelowRoot(name))
            automation::call(item(rootSpec), L"NewSubproject", {variant(std::wstring_view(name)), variant(L"")});
    });
    setCurrentProject(name);
}

void addFileToSourceSafe(const std::wstring& path)
{
    onFile(L"addFileToSourceSafe", path,
           [&] { automation::call(item(currentProjectSpec()), L"Add", {variant(std::wstring_view(path))}); });
}

void checkOutFile(const std::wstring& path)
{
    onFile(L"checkOutFile", path, [&] {
        automation::call(item(currentProjectSpec() + L"/" + fileNameOf(path)), L"Checkout",
                         {variant(L""), variant(std::wstring_view(path))});
    });
}

void checkInFile(const std::wstring& path)
{
    onFile(L"checkInFile", path, [&] {
        automation::call(item(currentProjectSpec() + L"/" + fileNameOf(path)), L"Checkin",
                         {variant(L""), variant(std::wstring_view(path))});
    });
}

void closeSourceSafe() noexcept
{
    ++state().closings;
    state().project.reset();
    state().database.reset();
}

} // namespace velk
