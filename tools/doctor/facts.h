#pragma once

#include "checker/peFile.h"
#include "registryValue.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

// What was found on the machine, one structure an area. Nothing here judges.
namespace velk::doctor {

struct SystemFacts {
    DWORD major = 0, minor = 0, build = 0;
    std::wstring servicePack;
    std::wstring wine; // its version; empty on Windows
    bool is64Bit = false;
    bool isAdministrator = false;
    bool isInOtherView = false; // the add-in stands in the half of the registry that 32-bit programs do not see
};

// A program file.
struct FileFacts {
    std::wstring path;
    bool isThere = false;
    DWORD code = 0;                      // the system's, of a file that cannot be read
    std::optional<check::PeFile> header; // empty: it is no program or library of Windows
    std::wstring version;                // empty: it has none
    bool isRead() const noexcept { return isThere && code == 0; }
    bool is32BitLibrary() const noexcept { return isRead() && header && header->isLibrary && header->is32BitX86(); }
};

// How a step in a child process ended.
struct ChildFacts {
    enum class Outcome { notRun, done, crashed, hung, ended, notStarted };
    Outcome outcome = Outcome::notRun;
    std::wstring stage;   // what it was at, for people: "loading it"
    DWORD code = 0;       // exception, exit code, or the system's reason for not starting
    DWORD systemCode = 0; // of a load that Windows refused; 0 when it loaded
    std::wstring answer;  // what the step gave
    bool isLoaded() const noexcept { return outcome == Outcome::done && systemCode == 0; }
};

enum class AddinPlace { none, named, beside, registered, installed };
struct AddinFacts {
    AddinPlace place = AddinPlace::none; // how it was found
    FileFacts file;
    std::wstring hash; // of its bytes; empty when this system cannot make it
    bool hasHashFile = false;
    std::wstring storedHash; // what is written down; empty when that is no such text
    ChildFacts load;
};

struct ClassFacts {
    std::wstring name;  // ProgID
    std::wstring clsid; // with its braces
    RegistryValue server, threading;
    std::wstring serverPath; // as a full path, to be compared
    bool isServerThere = false;
    RegistryValue progIdsClass;
    // The same in the user's own hive, which goes before the machine's.
    RegistryValue userServer, userProgIdsClass;
    std::wstring userServerPath;
    bool isUserServerThere = false;
    bool isUserNameAstray = false;      // the user's name leads to another class
    bool isUserNamesClassThere = false; // which has a server
};

struct RegistrationFacts {
    std::vector<ClassFacts> classes;
    RegistryValue library, userLibrary; // the type library
    std::wstring libraryPath, userLibraryPath;
    bool isLibraryThere = false, isUserLibraryThere = false;
    std::vector<std::wstring> leftovers; // ProgIDs of ours that no class of this version has, the user's among them
};

struct IdeKeyFacts {
    RegistryValue key, friendlyName, loadBehavior;
};
struct IdeFacts {
    IdeKeyFacts machine, user;
};

struct InstalledFacts {
    bool isThere = false;
    RegistryValue version, folder;
    std::wstring folderPath;
};

struct SearchPlace {
    std::wstring folder; // empty: not known
    bool hasLibrary = false;
};
struct Dependency {
    std::wstring name;
    std::wstring of; // the library that needs it
    FileFacts file;  // the one that would be loaded, if there is any
};
// The library held against its contract.
struct ContractFacts {
    bool isChecked = false;
    size_t rulesKept = 0;
    std::vector<std::wstring> broken;
};
struct BackendFacts {
    std::vector<SearchPlace> places;
    FileFacts file;                       // the first that was found
    std::vector<Dependency> dependencies; // those that cannot be loaded
    ChildFacts load;
    ChildFacts texts;
    ContractFacts contract;
};

struct SourceSafeFacts {
    bool isInstalled = false;
    RegistryValue server;
    bool isServerThere = false;
    RegistryValue automationClass; // of the name by which the add-in asks for it
    bool isAutomationThere = false;
    struct Database {
        std::wstring name, folder;
        bool isThere = false; // its srcsafe.ini
    };
    std::vector<Database> databases;
};

struct OdbcFacts {
    bool hasManager = false;
    struct Driver {
        std::wstring name;
        RegistryValue file;
        bool isFileThere = false;
        bool isPath = false; // the system's own names of files are looked for elsewhere
    };
    std::vector<Driver> drivers;
};

struct LanguageFacts {
    UINT codePage = 0;
    std::wstring face; // what the add-in's windows use
    bool hasFace = false;
    bool needsEastAsianFace = false;
    std::vector<std::wstring> eastAsianFaces; // those that can show the code page
};

struct LogFacts {
    RegistryValue setting; // the user's, in the registry
    bool isFromEnvironment = false;
    std::wstring path; // empty: off
    bool isFiner = false;
    bool isFullPath = false, hasFolder = false, isThere = false;
    DWORD writeCode = 0;                // why it cannot be written; 0 when it can
    std::vector<std::wstring> failures; // the last lines that tell one
    std::vector<std::wstring> host;     // what the last connection found of the IDE; empty: not told
};

struct IdeProcess {
    DWORD id = 0;
    std::wstring path;
    bool areModulesKnown = false;
    std::vector<std::wstring> addins; // paths of the add-in's modules in it
    bool hasWindow = false;
    bool answers = false;
    std::vector<std::wstring> libraries = {}; // paths of the tool's library in it
};
struct RunningFacts {
    std::wstring program; // the file name that was looked for
    std::vector<IdeProcess> processes;
};

struct Facts {
    SystemFacts system;
    AddinFacts addin;
    RegistrationFacts registration;
    IdeFacts ide;
    InstalledFacts installed;
    BackendFacts backend;
    SourceSafeFacts sourceSafe;
    OdbcFacts odbc;
    LanguageFacts language;
    LogFacts log;
    RunningFacts running;
    // Areas that could not be looked at, and why.
    std::vector<std::pair<std::wstring, std::wstring>> failures;
};

} // namespace velk::doctor
