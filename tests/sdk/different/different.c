/* The sample with everything that the contract leaves to the library done in another way. */
#include "../../../sdk/sample/velkvsadd.c"

#undef RZButtonDoAction
#undef RZInitialize
#undef RZProjectDoAccess
#undef RZObjectDoAction
#undef RZSetCurrentFolder
#undef RZGetNotification
#undef RZGetText
#undef RZTableGet
#undef RZViewEnumBegin
#undef RZViewEnumNext

enum { firstOpen = 1000, ownKind = 99, ownType = 12, lateSession = 15 };

static int fetches, views; /* of the open project */
static long closing;       /* the project of the question that waits */
static int late;           /* calls until what was asked for last is there */

/* It begins slowly, and tells something of its own before a project is opened (S1, S5, N17). Late it makes a thread and
   keeps that (G3). */
long RZ_CALL RZInitialize(long ideType, char *projectFile, char *empty)
{
    static int sessions;
    const long answer = plainRZInitialize(ideType, projectFile, empty);
    if (++sessions == 1)
        Sleep(2500);
    if (sessions == lateSession)
        CloseHandle(CreateThread(NULL, 0, (LPTHREAD_START_ROUTINE)(void *)Sleep, (LPVOID)INFINITE, 0, NULL));
    tell(RZ_NOTIFY_ADDED, ownKind, 7);
    tell(ownType, 0, 0);
    return answer;
}

/* A project that is opened again has the handles that it had before (H2). */
long RZ_CALL RZProjectDoAccess(char *first, char *second, long mode)
{
    fetches = views = 0;
    closing = 0;
    lastProject = hasSession && mode == RZ_PROJECT_OPEN ? firstOpen - 1000 : lastProject;
    return plainRZProjectDoAccess(first, second, mode);
}

long RZ_CALL RZButtonDoAction(char *text, long answer)
{
    if (!closing || closing != project)
        return plainRZButtonDoAction(text, answer);
    closing = 0;
    if (answer == RZ_ANSWER_CANCEL)
        return 1;
    about(RZ_NOTIFY_CHANGED, project + 1); /* which is gone when this is fetched (N7) */
    return plainRZObjectDoAction(project, RZ_ACTION_REMOVE);
}

long RZ_CALL RZObjectDoAction(long handle, long action)
{
    static int boxes;
    const Thing *const thing = thingOf(handle, 0);
    if (thing && thing->kind == RZ_KIND_PROJECT && action == RZ_ACTION_PROPERTIES && ++boxes == 1)
        MessageBoxA(NULL, "Show the properties?", "Sample", MB_YESNO); /* its own window, which waits for a user (F9) */
    if (thing && thing->kind == RZ_KIND_PROJECT && action == RZ_ACTION_REMOVE) {
        closing = project; /* the user may want to go on (N11) */
        say(RZ_TEXT_COMMAND, "Save the project?", "IDE_QUESTION#672#Sample");
        return 1;
    }
    if (thing && thing->kind == RZ_KIND_TABLE_FOLDER && action == RZ_ACTION_REFRESH) {
        tell(RZ_NOTIFY_ADDED, RZ_KIND_TABLE, project + 18)->notify.lProjectHdl = 0; /* it does not say whose (N6) */
        tell(RZ_NOTIFY_CHANGED, RZ_KIND_TABLE_FOLDER, handle);                      /* kinds and types of its own (N17) */
        tell(RZ_NOTIFY_CHANGED, ownKind, 0);
        tell(ownType, 0, 0);
    }
    return plainRZObjectDoAction(handle, action);
}

/* What waits for the folder that was selected before is nobody's any more, and what waits for this one comes when it is
   there (N2). */
long RZ_CALL RZSetCurrentFolder(long handle, long kind)
{
    const Thing *const thing = thingOf(handle, kind);
    long answer;
    if (thing && IS_FOLDER(thing))
        count = 0, late = 2;
    answer = plainRZSetCurrentFolder(handle, kind);
    if (thing && IS_FOLDER(thing))
        say(RZ_TEXT_COMMAND, "FOLDER_SELECTED", ""); /* a word that nobody knows (N15) */
    return answer;
}

long RZ_CALL RZGetNotification(trzNotify *record, short *more)
{
    if (late == 0)
        return plainRZGetNotification(record, more);
    --late;
    memset(record, 0, sizeof *record);
    return *more = RZ_FALSE;
}

/* What was fetched whole is gone (N8), and what does not fit is answered with 0 and the room that it needs (L4). */
long RZ_CALL RZGetText(long handle, trzText *record)
{
    static long gone;
    const long answer = handle != gone ? plainRZGetText(handle, record) : 0;
    if (answer && record->lTextSz > (long)RZ_LENGTH(record->strText))
        return 0;
    if (answer)
        gone = handle;
    return answer;
}

/* It learns more of a table while that is looked at, and tells so (R8, E7). */
long RZ_CALL RZTableGet(long handle, trzTable *record)
{
    const long answer = plainRZTableGet(handle, record);
    if (answer && ++fetches >= 7)
        set(record->strComment, "Learned");
    if (answer && fetches == 7)
        about(RZ_NOTIFY_CHANGED, handle);
    return answer;
}

/* The views come a little later than the first time that they are asked for (E4). */
long RZ_CALL RZViewEnumBegin(long folder, long *unread, long *enumeration)
{
    const long answer = plainRZViewEnumBegin(folder, unread, enumeration);
    if (answer && ++views == 2)
        about(RZ_NOTIFY_FOLDER_CONTENTS, folder);
    return answer;
}

long RZ_CALL RZViewEnumNext(long enumeration, trzView *record)
{
    return views > 1 ? plainRZViewEnumNext(enumeration, record) : 0;
}
