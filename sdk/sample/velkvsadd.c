/* A Backend to start from: a project of two connections whose objects stand in a table. What a real one asks its
   database for, this one looks up. The numbers are those of the rules in backend-contract.md. */
#include <string.h>
#include <windows.h>
#include "../velkbackend.h"

/* ---- What there is. The handle of a thing is the open project's and its place here ------------------------------- */

typedef struct Thing {
    long kind;
    int parent; /* its place */
    const char *name, *detail, *comment; /* detail: parameters, result of a function, table of a trigger, table space */
} Thing;

#define CONNECTION(place, name)                                                                                        \
    {RZ_KIND_CONNECTION, 0, name, "", ""}, {RZ_KIND_PROCEDURE_FOLDER, place, "", "", ""},                              \
        {RZ_KIND_FUNCTION_FOLDER, place, "", "", ""}, {RZ_KIND_TRIGGER_FOLDER, place, "", "", ""},                     \
        {RZ_KIND_TABLE_FOLDER, place, "", "", ""}, {RZ_KIND_VIEW_FOLDER, place, "", "", ""}

static const Thing things[] = {
    {RZ_KIND_PROJECT, 0, "Sample", "", ""},
    CONNECTION(1, "SHOP"),
    CONNECTION(7, "ARCHIVE"),
    {RZ_KIND_PROCEDURE, 2, "PLACE_ORDER", "IN CUSTOMER INTEGER, OUT NUMBER INTEGER", "Takes an order"},
    {RZ_KIND_PROCEDURE, 2, "CLOSE_ORDER", "IN NUMBER INTEGER", "Sends an order out"},
    {RZ_KIND_FUNCTION, 3, "ORDER_TOTAL", "DECIMAL(9, 2)", "What an order costs"},
    {RZ_KIND_TRIGGER, 4, "ORDER_LOG", "ORDERS", "Notes each change"},
    {RZ_KIND_TABLE, 5, "CUSTOMERS", "USERSPACE", "Who buys from us"},
    {RZ_KIND_TABLE, 5, "ORDERS", "USERSPACE", "What they bought"},
    {RZ_KIND_VIEW, 6, "OPEN_ORDERS", "", "Orders not yet sent"},
    {RZ_KIND_PROCEDURE, 8, "TAKE_OVER", "IN SALES_YEAR INTEGER", "Moves the orders of a year here"},
    {RZ_KIND_TABLE, 11, "OLD_ORDERS", "ARCHIVE", "Orders of other years"},
    {RZ_KIND_VIEW, 12, "SALES", "", "Orders by year"},
};

enum { thingCount = sizeof things / sizeof things[0], longRoutine = 13 /* more than a caller has room for at first */ };

static int hasSession;
static long project;           /* the handle of the open one; 0: none is open */
static long lastProject;       /* handles are never given out again for something else (H2) */
static char path[1024];        /* of the project */
static short isOn[thingCount]; /* connections: connected; routines: changed since they were built */

/* What a live handle stands for; null for a dead one, and for one of another kind (H4). */
static const Thing *thingOf(long handle, long kind)
{
    const unsigned long place = (unsigned long)handle - (unsigned long)project;
    if (!project || place >= thingCount || (kind && things[place].kind != kind))
        return NULL;
    return &things[place];
}

#define IS_FOLDER(thing) ((thing)->kind > RZ_KIND_CONNECTION && (thing)->kind % 2 == 1)
#define IS_ROUTINE(thing) ((thing)->kind == RZ_KIND_PROCEDURE || (thing)->kind == RZ_KIND_FUNCTION)

/* ---- Texts ------------------------------------------------------------------------------------------------------ */

/* Appends as much of a piece as there is room for with its NUL, and no half of a character (R1, R3, C3). */
static void add(char *text, size_t room, const char *piece)
{
    size_t length = 0;
    for (room -= strlen(text), text += strlen(text); piece[length];) {
        const size_t step = IsDBCSLeadByte((BYTE)piece[length]) && piece[length + 1] ? 2 : 1;
        if (length + step >= room)
            break;
        length += step;
    }
    memcpy(text, piece, length);
    text[length] = '\0';
}

/* Into a field of a record, which comes empty and whose length says how much room there is (R10). */
static void set(char *field, const char *text)
{
    *field = '\0';
    add(field, RZ_LENGTH(field), text);
}

/* Texts are asked for without a session, too (S3); the answer is their length (T3). */
static long give(long number, char *buffer, long capacity, const char *p1, const char *p2)
{
    char letter[2] = "";
    const char *from = "";
    switch (number) {
#define RZ_TEXT(known, parameters, english, where) case known: from = english; break;
#include "../texts.inc"
#undef RZ_TEXT
    }
    if (capacity < 1)
        return 0;
    for (*buffer = '\0'; *from; ++from) {
        const int isMark = *from == '%' && (from[1] == '1' || from[1] == '2');
        letter[0] = *from;
        add(buffer, (size_t)capacity, !isMark ? letter : *++from == '1' ? p1 : p2);
    }
    return (long)strlen(buffer);
}

long RZ_CALL RZGetString(long number, char *buffer, long capacity)
{
    return give(number, buffer, capacity, "", "");
}

long RZ_CALL RZGetStringP1(long number, char *buffer, long capacity, char **p1)
{
    return give(number, buffer, capacity, *p1, "");
}

long RZ_CALL RZGetStringP2(long number, char *buffer, long capacity, char **p1, char **p2)
{
    return give(number, buffer, capacity, *p1, *p2);
}

/* ---- Notifications: those that wait, and before them the one that was fetched last ------------------------------- */

enum { mostNotes = 256, longestText = 6000 };

typedef struct Note {
    trzNotify notify;
    long textType;
    char text[longestText];
    const char *buttons;
} Note;

static Note notes[mostNotes];
static int next, count; /* of those that wait */
static long lastText = 900000;
static long asked, filtered; /* folders: the one of the question that waits for its answer (P3), and of a Yes */

static Note *tell(long type, long kind, long handle)
{
    Note *note;
    if (count < mostNotes - 1)
        ++count; /* otherwise the last one is lost */
    note = &notes[(next + count - 1) % mostNotes];
    memset(note, 0, sizeof *note);
    note->notify.lNotifyType = type;
    note->notify.lProjectHdl = project;
    note->notify.lObjectType = kind;
    note->notify.lObjectHdl = handle;
    return note;
}

static void about(long type, long handle)
{
    tell(type, thingOf(handle, 0)->kind, handle);
}

static char *say(long textType, const char *text, const char *buttons)
{
    Note *const note = tell(RZ_NOTIFY_TEXT, 0, ++lastText);
    note->textType = textType;
    note->buttons = buttons;
    add(note->text, longestText, text);
    return note->text;
}

long RZ_CALL RZGetNotification(trzNotify *record, short *more)
{
    memset(record, 0, sizeof *record);
    *more = RZ_FALSE;
    if (count == 0)
        return 0;
    *record = notes[next].notify;
    next = (next + 1) % mostNotes;
    *more = --count > 0 ? RZ_TRUE : RZ_FALSE;
    return 1;
}

/* What came with the last notification, as often as it is asked for (N8). */
long RZ_CALL RZGetText(long handle, trzText *record)
{
    const Note *const note = &notes[(next + mostNotes - 1) % mostNotes];
    if (note->notify.lNotifyType != RZ_NOTIFY_TEXT || note->notify.lObjectHdl != handle)
        return 0;
    set(record->strText, note->text);
    record->lTextSz = (long)strlen(note->text) + 1; /* more than there was room for: the caller comes again (L1) */
    record->lTextType = note->textType;
    set(record->strButtons, note->buttons);
    return 1;
}

/* There are no tools beside this one and no client code; Visual InterDev asks for no data environment. */
#define NOTHING(name, parameters) long RZ_CALL name parameters { return 0; }
NOTHING(RZObjectDoGetADO, (long handle, long language, char *ideProject, char *component))
NOTHING(RZGetSQLText, (long handle, trzSQLText *record))
NOTHING(RZGetADOText, (long handle, trzADOText *record))
NOTHING(RZConnectionDoGetDE, (long handle, char *ideProject, char *environment, char *connection))
NOTHING(RZConnectionGetDE, (long handle, trzConnectionDE *record))
NOTHING(RZCommandDoGetDE, (long handle, char *ideProject, char *environment, char *connection, char *command))
NOTHING(RZCommandGetDE, (long handle, trzCommandDE *record))
NOTHING(RZLaunchApp, (long application, char *arguments))
NOTHING(RZLaunchVelkTool, (long tool))

/* ---- The session and its project -------------------------------------------------------------------------------- */

long RZ_CALL RZInitialize(long ideType, char *projectFile, char *empty)
{
    if (hasSession)
        return 0;
    hasSession = 1;
    say(RZ_TEXT_COMMAND, RZ_COMMAND_READY, ""); /* the caller opens its project then (N3) */
    return 1;
}

long RZ_CALL RZTerminate(void)
{
    project = asked = filtered = hasSession = count = 0;
    notes[(next + mostNotes - 1) % mostNotes].notify.lNotifyType = 0; /* its text is dead, too */
    return 1;
}

static void closeProject(void)
{
    if (project)
        about(RZ_NOTIFY_REMOVED, project);
    project = asked = filtered = 0;
}

long RZ_CALL RZProjectDoAccess(char *first, char *second, long mode)
{
    long place;
    if (!hasSession || mode != RZ_PROJECT_OPEN)
        return 0;
    closeProject();
    project = lastProject += 1000;
    memset(isOn, 0, sizeof isOn);
    isOn[1] = isOn[longRoutine] = RZ_TRUE;
    path[0] = '\0';
    add(path, sizeof path, first);
    add(path, sizeof path, *first && *second ? "\\" : "");
    add(path, sizeof path, second);
    for (place = 0; place < thingCount; ++place) /* parents come first (N4, N5) */
        if (things[place].kind <= RZ_KIND_CONNECTION)
            about(RZ_NOTIFY_ADDED, project + place);
    return 1;
}

long RZ_CALL RZProjectGet(long handle, trzProject *record)
{
    if (!thingOf(handle, RZ_KIND_PROJECT))
        return 0;
    record->lHdl = handle;
    set(record->strName, things[0].name);
    set(record->strPath, path);
    return 1;
}

long RZ_CALL RZConnectionGet(long handle, trzConnection *record)
{
    if (!thingOf(handle, RZ_KIND_CONNECTION))
        return 0;
    record->lHdl = handle;
    record->bConnected = isOn[handle - project];
    set(record->strDatabase, things[handle - project].name);
    record->lProceduresHdl = handle + 1;
    record->lFunctionsHdl = handle + 2;
    record->lTriggersHdl = handle + 3;
    record->lTablesHdl = handle + 4;
    record->lViewsHdl = handle + 5;
    return 1;
}

/* ---- Folders: their enumerations, and the records of what is in them --------------------------------------------- */

/* Several may be open at a time (E5); the seventeenth takes the place of the first. */
static struct Enumeration {
    long handle, folder;
    int place; /* of the thing to look at next */
} enumerations[16];
static long lastEnumeration = 800000;

static struct Enumeration *enumerationOf(long handle, long kind)
{
    struct Enumeration *const open = &enumerations[(unsigned long)handle % 16];
    return handle && open->handle == handle && thingOf(open->folder, kind) ? open : NULL;
}

static long begin(long folder, long kind, long *unread, long *enumeration)
{
    struct Enumeration *const open = &enumerations[++lastEnumeration % 16];
    memset(open, 0, sizeof *open);
    open->folder = folder;
    *unread = 0;
    *enumeration = open->handle = thingOf(folder, kind) ? lastEnumeration : 0;
    return open->handle != 0;
}

/* The next object's handle; 0 at the end, and from then on (E3). */
static long nextOf(long enumeration, long kind)
{
    struct Enumeration *const open = enumerationOf(enumeration, kind);
    while (open && open->place < thingCount) {
        const int place = open->place++;
        if (things[place].kind % 2 == 0 && project + things[place].parent == open->folder &&
            (open->folder != filtered || isOn[place]))
            return project + place;
    }
    return 0;
}

static long close(long enumeration, long kind)
{
    struct Enumeration *const open = enumerationOf(enumeration, kind);
    if (open)
        open->handle = 0;
    return open != NULL;
}

/* The four functions of a kind, and the fields that its records have besides those that all of them have. */
#define FOLDER(Kind, number, fields)                                                                                   \
    long RZ_CALL RZ##Kind##Get(long handle, trz##Kind *record)                                                         \
    {                                                                                                                  \
        const Thing *const thing = thingOf(handle, number);                                                            \
        if (!thing)                                                                                                    \
            return 0;                                                                                                  \
        record->lHdl = handle;                                                                                         \
        record->bIsDirty = isOn[thing - things];                                                                       \
        set(record->strSchema, "SALES");                                                                               \
        set(record->strName, thing->name);                                                                             \
        set(record->strComment, thing->comment);                                                                       \
        fields;                                                                                                        \
        return 1;                                                                                                      \
    }                                                                                                                  \
    long RZ_CALL RZ##Kind##EnumBegin(long folder, long *a, long *b) { return begin(folder, number - 1, a, b); }        \
    long RZ_CALL RZ##Kind##EnumNext(long a, trz##Kind *record)                                                         \
    {                                                                                                                  \
        return RZ##Kind##Get(nextOf(a, number - 1), record);                                                           \
    }                                                                                                                  \
    long RZ_CALL RZ##Kind##EnumEnd(long a) { return close(a, number - 1); }

FOLDER(Procedure, RZ_KIND_PROCEDURE, set(record->strParameters, thing->detail); set(record->strLanguage, "SQL"))
FOLDER(Function, RZ_KIND_FUNCTION, set(record->strResult, thing->detail); set(record->strLanguage, "SQL"))
FOLDER(Trigger, RZ_KIND_TRIGGER, set(record->strTableSchema, "SALES"); set(record->strTableName, thing->detail))
FOLDER(Table, RZ_KIND_TABLE, set(record->strTableSpace, thing->detail))
FOLDER(View, RZ_KIND_VIEW, (void)0)

/* ---- What the user asks for: what comes of it is told by notifications ------------------------------------------- */

long RZ_CALL RZSetCurrentFolder(long handle, long kind)
{
    const Thing *const thing = thingOf(handle, kind);
    if (thing && IS_FOLDER(thing))
        about(RZ_NOTIFY_FOLDER_CONTENTS, handle); /* N9 */
    return thing != NULL;
}

static void describe(const Thing *thing)
{
    char *const text = say(RZ_TEXT_MESSAGE, "", "");
    int lines = !IS_ROUTINE(thing) ? 0 : thing == &things[longRoutine] ? 40 : 2;
    add(text, longestText, thing == things ? path : thing->comment);
    while (lines-- > 0)
        add(text, longestText, "\n-- look at what the customer wants, take it out of the stock, write down what was "
                               "taken; order what is not there");
    add(text, longestText, "\nEND OF ");
    add(text, longestText, thing->name);
}

static void change(long handle, int isOnNow)
{
    isOn[handle - project] = isOnNow ? RZ_TRUE : RZ_FALSE;
    about(RZ_NOTIFY_CHANGED, handle); /* N12 */
}

long RZ_CALL RZObjectDoAction(long handle, long action)
{
    const Thing *const thing = thingOf(handle, 0);
    if (!thing)
        return 0;
    if (thing->kind == RZ_KIND_CONNECTION && (action == RZ_ACTION_CONNECT || action == RZ_ACTION_DISCONNECT))
        change(handle, action == RZ_ACTION_CONNECT);
    else if ((action == RZ_ACTION_PROPERTIES && !IS_FOLDER(thing)) ||
             (action == RZ_ACTION_VIEW_SOURCE && IS_ROUTINE(thing)))
        describe(thing);
    else if (thing->kind == RZ_KIND_PROJECT && action == RZ_ACTION_REMOVE)
        closeProject();
    else if (IS_FOLDER(thing) && action == RZ_ACTION_REFRESH)
        about(RZ_NOTIFY_FOLDER_CONTENTS, handle);
    else if (IS_ROUTINE(thing) && action == RZ_ACTION_BUILD)
        change(handle, 0);
    else if (IS_FOLDER(thing) && action == RZ_ACTION_FILTER && !asked) {
        asked = handle;
        say(RZ_TEXT_COMMAND, "Show only what has changed?", "IDE_QUESTION#672#Filter");
    } else
        return 0;
    return 1;
}

long RZ_CALL RZButtonDoAction(char *text, long answer)
{
    const long folder = asked;
    asked = 0;
    if (folder && answer != RZ_ANSWER_CANCEL) {
        filtered = answer == RZ_ANSWER_YES ? folder : 0;
        about(RZ_NOTIFY_FOLDER_CONTENTS, folder);
    }
    return folder != 0;
}
