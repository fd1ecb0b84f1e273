/* The interface of velkvsadd.dll, the library through which the add-in reaches its database tool: what it exports, and
   the records that it fills. Plain C (C89 and later) and C++, 32-bit x86 only, with and without UNICODE: all texts are
   of the process's ANSI code page. What each side owes the other is in backend-contract.md, rule by rule. */
#ifndef VELKBACKEND_H
#define VELKBACKEND_H

#include <stddef.h>

#if !defined(_M_IX86) && !defined(__i386__)
#error "velkvsadd.dll is loaded into a 32-bit process: compile for 32-bit x86"
#endif

/* Every function pops its own arguments. Export the plain names: link with velkbackend.def. */
#define RZ_CALL __stdcall

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Records ---------------------------------------------------------------------------------------------------- */

/* A string is the address of a counted string of the caller's: its length in bytes in the 32 bits before it, a NUL
   behind it. In a field that the library fills, the length is the room there is (fields.inc). A flag has 16 bits:
   0, or RZ_TRUE. A record is as long as its fields with their holes, whatever the compiler is told elsewhere. */
#define RZ_LENGTH(string) (((const unsigned long *)(const void *)(string))[-1])
#define RZ_TRUE ((short)-1)
#define RZ_FALSE ((short)0)

#pragma pack(push, 4)

/* What happened, to what. lObjectHdl names an object, or the text or code that comes with the notification. */
typedef struct trzNotify {
    long lNotifyType; /* RZ_NOTIFY_... */
    long lProjectHdl;
    long lConnectionHdl;
    long lObjectType; /* RZ_KIND_... */
    long lObjectHdl;
} trzNotify;

/* A message or a question. lTextSz: the room in strText; from the library, the room that the text needs. */
typedef struct trzText {
    char *strText;
    long lTextSz;
    long lTextType;   /* RZ_TEXT_COMMAND, RZ_TEXT_MESSAGE */
    char *strButtons; /* "icon#buttons#title" */
} trzText;

/* SQL for an editor, and the range that it replaces. There is no room for an answer in strVSProject. */
typedef struct trzSQLText {
    char *strVSProject;
    char *strVSFile;
    long lSelFromLine;
    long lSelFromColumn;
    long lSelToLine;
    long lSelToColumn;
    char *strText;
    long lTextSz;
} trzSQLText;

/* Client code for a file. */
typedef struct trzADOText {
    char *strVSProject;
    char *strVSFile;
    char *strText;
    long lTextSz;
} trzADOText;

typedef struct trzConnectionDE {
    char *strVSProject;
    char *strDEName;
    char *strDEConnection;
    char *strConnectionString;
} trzConnectionDE;

typedef struct trzCommandDE {
    char *strVSProject;
    char *strDEName;
    char *strDEConnection;
    char *strDECommand;
    char *strCommandText;
    long lCommandType;    /* RZ_COMMAND_... */
    short bHasParemeters; /* so spelled */
} trzCommandDE;

typedef struct trzParameterDE {
    char *strName;
    long lMode;
    long lSQLType;
    long lSQLSize;
    long lSQLPrecision;
    short bBitData;
} trzParameterDE;

typedef struct trzProject {
    long lHdl;
    char *strName;
    char *strPath;
} trzProject;

typedef struct trzConnection {
    long lHdl;
    short bConnected;
    char *strDatabase;
    long lProceduresHdl;
    long lFunctionsHdl;
    long lTriggersHdl;
    long lTablesHdl;
    long lViewsHdl;
} trzConnection;

typedef struct trzProcedure {
    long lHdl;
    short bIsDirty;
    short bCanDebug;
    char *strSchema;
    char *strName;
    char *strSpecific;
    char *strParameters;
    char *strLanguage;
    char *strSQLPackage;
    long lResultSets;
    short bIsFenced;
    char *strComment;
    char *strFileName;
} trzProcedure;

/* bIsFenced has 32 bits here, unlike a procedure's. */
typedef struct trzFunction {
    long lHdl;
    short bIsDirty;
    short bCanDebug;
    char *strSchema;
    char *strName;
    char *strSpecific;
    char *strParameters;
    char *strResult;
    char *strLanguage;
    long bIsFenced;
    char *strComment;
    char *strFileName;
} trzFunction;

typedef struct trzTrigger {
    long lHdl;
    short bIsDirty;
    short bCanDebug;
    char *strSchema;
    char *strName;
    char *strTableSchema;
    char *strTableName;
    char *strComment;
    char *strFileName;
} trzTrigger;

typedef struct trzTable {
    long lHdl;
    short bIsDirty;
    char *strSchema;
    char *strName;
    char *strTableSpace;
    long lType;
    char *strComment;
} trzTable;

typedef struct trzView {
    long lHdl;
    short bIsDirty;
    char *strSchema;
    char *strName;
    char *strComment;
} trzView;

#pragma pack(pop)

#define RZ_RECORDS(RECORD)                                                                                             \
    RECORD(trzNotify, 20)                                                                                              \
    RECORD(trzText, 16)                                                                                                \
    RECORD(trzSQLText, 32)                                                                                             \
    RECORD(trzADOText, 16)                                                                                             \
    RECORD(trzConnectionDE, 16)                                                                                        \
    RECORD(trzCommandDE, 28)                                                                                           \
    RECORD(trzParameterDE, 24)                                                                                         \
    RECORD(trzProject, 12)                                                                                             \
    RECORD(trzConnection, 32)                                                                                          \
    RECORD(trzProcedure, 48)                                                                                           \
    RECORD(trzFunction, 44)                                                                                            \
    RECORD(trzTrigger, 32)                                                                                             \
    RECORD(trzTable, 28)                                                                                               \
    RECORD(trzView, 20)

/* A record or field that is not where it belongs does not compile. */
#define RZ_CHECK_RECORD(record, bytes) typedef char record##_has_its_size[sizeof(record) == bytes ? 1 : -1];
RZ_RECORDS(RZ_CHECK_RECORD)
#undef RZ_CHECK_RECORD
#define RZ_FIELD(record, field, offset, width, what, preset)                                                           \
    typedef char record##_##field##_has_its_place                                                                      \
        [offsetof(record, field) == offset && sizeof(((record *)0)->field) == width ? 1 : -1];
#include "fields.inc"
#undef RZ_FIELD

/* ---- Functions -------------------------------------------------------------------------------------------------- */

/* Name, bytes of its arguments, parameters, the same as arguments. All of them answer 0 for failure, or for the end of
   an enumeration, and anything else for success; RZGetString... the length of the text. */
#define RZ_CALLED_FUNCTIONS(F)                                                                                         \
    F(RZInitialize, 12, (long ideType, char *projectFile, char *empty), (ideType, projectFile, empty))                 \
    F(RZTerminate, 0, (void), ())                                                                                      \
    F(RZGetString, 12, (long number, char *buffer, long capacity), (number, buffer, capacity))                         \
    F(RZGetStringP1, 16, (long number, char *buffer, long capacity, char **p1), (number, buffer, capacity, p1))        \
    F(RZGetStringP2, 20, (long number, char *buffer, long capacity, char **p1, char **p2),                             \
      (number, buffer, capacity, p1, p2))                                                                              \
    F(RZGetNotification, 8, (trzNotify * record, short *more), (record, more))                                         \
    F(RZButtonDoAction, 8, (char *text, long answer), (text, answer))                                                  \
    F(RZGetText, 8, (long handle, trzText *record), (handle, record))                                                  \
    F(RZGetSQLText, 8, (long handle, trzSQLText *record), (handle, record))                                            \
    F(RZGetADOText, 8, (long handle, trzADOText *record), (handle, record))                                            \
    F(RZConnectionGetDE, 8, (long handle, trzConnectionDE *record), (handle, record))                                  \
    F(RZCommandGetDE, 8, (long handle, trzCommandDE *record), (handle, record))                                        \
    F(RZProjectGet, 8, (long handle, trzProject *record), (handle, record))                                            \
    F(RZProjectDoAccess, 12, (char *first, char *second, long mode), (first, second, mode))                            \
    F(RZConnectionGet, 8, (long handle, trzConnection *record), (handle, record))                                      \
    RZ_FOLDER_FUNCTIONS(F, Procedure)                                                                                  \
    RZ_FOLDER_FUNCTIONS(F, Function)                                                                                   \
    RZ_FOLDER_FUNCTIONS(F, Trigger)                                                                                    \
    RZ_FOLDER_FUNCTIONS(F, Table)                                                                                      \
    RZ_FOLDER_FUNCTIONS(F, View)                                                                                       \
    F(RZSetCurrentFolder, 8, (long handle, long kind), (handle, kind))                                                 \
    F(RZObjectDoAction, 8, (long handle, long action), (handle, action))                                               \
    F(RZObjectDoGetADO, 16, (long handle, long language, char *project, char *component),                              \
      (handle, language, project, component))                                                                          \
    F(RZConnectionDoGetDE, 16, (long handle, char *project, char *environment, char *connection),                      \
      (handle, project, environment, connection))                                                                      \
    F(RZCommandDoGetDE, 20, (long handle, char *project, char *environment, char *connection, char *command),          \
      (handle, project, environment, connection, command))                                                             \
    F(RZLaunchApp, 8, (long application, char *arguments), (application, arguments))                                   \
    F(RZLaunchVelkTool, 4, (long tool), (tool))

/* The caller reads nothing from "unread". */
#define RZ_FOLDER_FUNCTIONS(F, Kind)                                                                                   \
    F(RZ##Kind##EnumBegin, 12, (long folder, long *unread, long *enumeration), (folder, unread, enumeration))          \
    F(RZ##Kind##EnumNext, 8, (long enumeration, trz##Kind *record), (enumeration, record))                             \
    F(RZ##Kind##EnumEnd, 4, (long enumeration), (enumeration))                                                         \
    F(RZ##Kind##Get, 8, (long handle, trz##Kind *record), (handle, record))

/* Offered by the tool's own library and called by nobody here: a library can leave them out. Their parameters are those
   of the stand-in. */
#define RZ_OFFERED_FUNCTIONS(F)                                                                                        \
    F(RZDoTestAction, 4, (long action), (action))                                                                      \
    F(RZMgrInitialize, 4, (long ideType), (ideType))                                                                   \
    F(RZMgrTerminate, 0, (void), ())                                                                                   \
    F(RZMgrSendData, 8, (long handle, char *data), (handle, data))                                                     \
    F(RZMgrRecvData, 12, (long handle, char *buffer, long capacity), (handle, buffer, capacity))                       \
    F(RZGetFontInfo, 12, (char *buffer, long capacity, long *size), (buffer, capacity, size))                          \
    F(RZGetSplashScreenBMPName, 8, (char *buffer, long capacity), (buffer, capacity))                                  \
    F(RZBuildSQLStatement, 12, (long handle, char *buffer, long capacity), (handle, buffer, capacity))                 \
    F(RZObjectDoPaste, 4, (long handle), (handle))                                                                     \
    F(RZParameterDEEnumBegin, 12, (long command, long *unread, long *enumeration), (command, unread, enumeration))     \
    F(RZParameterDEEnumNext, 8, (long enumeration, trzParameterDE *record), (enumeration, record))                     \
    F(RZParameterDEEnumEnd, 4, (long enumeration), (enumeration))                                                      \
    F(RZConnectionEnumBegin, 12, (long project, long *unread, long *enumeration), (project, unread, enumeration))      \
    F(RZConnectionEnumNext, 8, (long enumeration, trzConnection *record), (enumeration, record))                       \
    F(RZConnectionEnumEnd, 4, (long enumeration), (enumeration))

/* The type of RZInitialize is RZInitializeFunction, and so on: "RZInitializeFunction *begin = ...GetProcAddress...". */
#define RZ_FUNCTION_TYPE(name, bytes, parameters, arguments) typedef long RZ_CALL name##Function parameters;
RZ_CALLED_FUNCTIONS(RZ_FUNCTION_TYPE)
RZ_OFFERED_FUNCTIONS(RZ_FUNCTION_TYPE)
#undef RZ_FUNCTION_TYPE

/* A caller that looks the functions up by name wants no prototypes. */
#ifndef RZ_NO_PROTOTYPES
#define RZ_PROTOTYPE(name, bytes, parameters, arguments) long RZ_CALL name parameters;
RZ_CALLED_FUNCTIONS(RZ_PROTOTYPE)
RZ_OFFERED_FUNCTIONS(RZ_PROTOTYPE)
#undef RZ_PROTOTYPE
#endif

/* ---- Numbers and words ------------------------------------------------------------------------------------------ */

#define RZ_STRING_CAPACITY 1024    /* of the buffer of RZGetString... */
#define RZ_LONGEST_TEXT 16777216L  /* lTextSz; the caller gives no more */
#define RZ_USER_RESPONSE "User response" /* the text of RZButtonDoAction */

/* ideType. Only what is shown differs: 1 has a place for the project's name and data environments, 2 has no ADO. */
enum RZIdeType { RZ_IDE_WITH_DATA_ENVIRONMENT = 1, RZ_IDE_WITHOUT_ADO = 2, RZ_IDE_VISUAL_INTERDEV = 3 };

/* lNotifyType */
enum RZNotifyType {
    RZ_NOTIFY_TEXT = 2,            /* RZGetText */
    RZ_NOTIFY_SQL_TEXT = 3,        /* RZGetSQLText */
    RZ_NOTIFY_ADO_TEXT = 4,        /* RZGetADOText */
    RZ_NOTIFY_FOLDER_CONTENTS = 5, /* the folder's enumeration */
    RZ_NOTIFY_CHANGED = 6,         /* RZ...Get */
    RZ_NOTIFY_REMOVED = 7,
    RZ_NOTIFY_ADDED = 8,         /* RZ...Get */
    RZ_NOTIFY_CONNECTION_DE = 9, /* RZConnectionGetDE */
    RZ_NOTIFY_COMMAND_DE = 10    /* RZCommandGetDE */
};

/* lObjectType, and what RZSetCurrentFolder is told. What is in a folder has the kind after the folder's. */
enum RZKind {
    RZ_KIND_PROJECT = 5,
    RZ_KIND_CONNECTION = 6,
    RZ_KIND_PROCEDURE_FOLDER = 7,
    RZ_KIND_PROCEDURE = 8,
    RZ_KIND_FUNCTION_FOLDER = 9,
    RZ_KIND_FUNCTION = 10,
    RZ_KIND_TRIGGER_FOLDER = 11,
    RZ_KIND_TRIGGER = 12,
    RZ_KIND_TABLE_FOLDER = 13,
    RZ_KIND_TABLE = 14,
    RZ_KIND_VIEW_FOLDER = 15,
    RZ_KIND_VIEW = 16
};

/* RZObjectDoAction. The four that are not passed to it have a call of their own. */
enum RZAction {
    RZ_ACTION_OPEN = 2, /* RZProjectDoAccess */
    RZ_ACTION_SAVE = 3,
    RZ_ACTION_SAVE_AS = 4, /* RZProjectDoAccess */
    RZ_ACTION_CONNECT = 7,
    RZ_ACTION_DISCONNECT = 8,
    RZ_ACTION_NEW = 9, /* of a project: a connection */
    RZ_ACTION_REFRESH = 10,
    RZ_ACTION_FILTER = 11,
    RZ_ACTION_IMPORT = 12,
    RZ_ACTION_PROPERTIES = 13,
    RZ_ACTION_EDIT_SOURCE = 14,
    RZ_ACTION_RUN_SETTINGS = 15,
    RZ_ACTION_RUN = 16,
    RZ_ACTION_RUN_WITH_DEBUG = 17,
    RZ_ACTION_BUILD = 18,
    RZ_ACTION_BUILD_WITH_DEBUG = 19,
    RZ_ACTION_SAMPLE_CONTENTS = 20,
    RZ_ACTION_REMOVE = 21, /* of a project: close it */
    RZ_ACTION_DROP = 22,
    RZ_ACTION_PASTE = 23,
    RZ_ACTION_COPY = 24,
    RZ_ACTION_VIEW_SOURCE = 25,
    RZ_ACTION_CONNECTION_CODE = 26,   /* RZObjectDoGetADO */
    RZ_ACTION_CONNECTION_OBJECT = 27, /* RZConnectionDoGetDE */
    RZ_ACTION_COMMAND_CODE = 28,      /* RZObjectDoGetADO */
    RZ_ACTION_COMMAND_OBJECT = 29     /* RZCommandDoGetDE */
};

/* mode of RZProjectDoAccess: folder and file name; path and an empty text */
enum RZProjectMode { RZ_PROJECT_OPEN = 2, RZ_PROJECT_SAVE_AS = 4 };

/* lTextType: a command word, or a question when it has buttons; a message. Others are passed over. */
enum RZTextType { RZ_TEXT_COMMAND = 1, RZ_TEXT_MESSAGE = 3 };
#define RZ_COMMAND_READY "RZ_INIT_COMPLETE"         /* the caller opens its project */
#define RZ_COMMAND_MINIMIZE "MINIMIZE_MSWIN"        /* the IDE's main window is minimised */
#define RZ_COMMAND_TASK_COMPLETE "RZ_TASK_COMPLETE" /* and shown again */

/* strButtons: an icon, RZ_BUTTON_SEPARATOR, a set of buttons, RZ_BUTTON_SEPARATOR, a title */
#define RZ_BUTTON_SEPARATOR "#"
#define RZ_ICON_CRITICAL "IDE_CRITICAL"
#define RZ_ICON_WARNING "IDE_WARNING"
#define RZ_ICON_QUESTION "IDE_QUESTION"
#define RZ_ICON_INFORMATION "IDE_INFORMATION"
#define RZ_BUTTONS_YES_NO_CANCEL "672"
#define RZ_BUTTONS_YES_NO "67"
#define RZ_BUTTONS_OK "1"
enum RZAnswer { RZ_ANSWER_OK = 1, RZ_ANSWER_CANCEL = 2, RZ_ANSWER_YES = 6, RZ_ANSWER_NO = 7 };

/* lCommandType */
enum RZCommandType {
    RZ_COMMAND_PROCEDURE = 1,
    RZ_COMMAND_TEXT = 2,
    RZ_COMMAND_TABLE = 3,
    RZ_COMMAND_TABLE_DIRECT = 4,
    RZ_COMMAND_WITHOUT_RECORDS = 5,
    RZ_COMMAND_FILE = 6,
    RZ_COMMAND_UNKNOWN = 7
};

/* RZLaunchApp(RZ_APPLICATION_ASSISTANT, RZ_APPLICATION_ARGUMENTS), RZLaunchVelkTool(1, 3 to 8, 10 or 12); texts.inc has
   the captions of the entries that start them. */
#define RZ_APPLICATION_ASSISTANT 2
#define RZ_APPLICATION_ARGUMENTS "-ccf"

#ifdef __cplusplus
}
#endif

#endif
