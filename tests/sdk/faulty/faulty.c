/* The sample with one of the faults of ../faults.inc: FAULT_name is defined, and the functions of its row are called
   plainRZ... in the sample (CMakeLists.txt), so that those here can stand in their place. */
#include "../../../sdk/sample/velkvsadd.c"

#undef RZButtonDoAction
#undef RZConnectionGet
#undef RZFunctionEnumBegin
#undef RZGetNotification
#undef RZGetString
#undef RZGetStringP1
#undef RZGetStringP2
#undef RZGetText
#undef RZInitialize
#undef RZObjectDoAction
#undef RZProcedureEnumBegin
#undef RZProcedureEnumEnd
#undef RZProjectDoAccess
#undef RZProjectGet
#undef RZSetCurrentFolder
#undef RZTableEnumBegin
#undef RZTableGet
#undef RZTerminate
#undef RZTriggerEnumNext
#undef RZTriggerGet
#undef RZViewEnumEnd
#undef RZViewEnumNext
#undef RZViewGet

#define INITIALIZE long RZ_CALL RZInitialize(long ideType, char *projectFile, char *empty)
#define PLAIN_INITIALIZE plainRZInitialize(ideType, projectFile, empty)
#define GET_STRING long RZ_CALL RZGetString(long number, char *buffer, long capacity)
#define PLAIN_GET_STRING plainRZGetString(number, buffer, capacity)
#define GET_NOTIFICATION long RZ_CALL RZGetNotification(trzNotify *record, short *more)
#define ACCESS long RZ_CALL RZProjectDoAccess(char *first, char *second, long mode)
#define ACT long RZ_CALL RZObjectDoAction(long handle, long action)
#define SET_FOLDER long RZ_CALL RZSetCurrentFolder(long handle, long kind)
#define GET(Kind) long RZ_CALL RZ##Kind##Get(long handle, trz##Kind *record)
#define GET_TEXT long RZ_CALL RZGetText(long handle, trzText *record)

static void crash(void)
{
    *(volatile int *)0 = 0;
}

/* A text in place of the real one. */
static long instead(char *buffer, long capacity, const char *text)
{
    if (capacity < 1)
        return 0;
    *buffer = '\0';
    add(buffer, (size_t)capacity, text);
    return (long)strlen(buffer);
}

/* The note that was queued so many before the last one. */
static trzNotify *queued(int before)
{
    return &notes[(next + count - 1 - before) % mostNotes].notify;
}

#include "callFaults.inc"
#include "recordFaults.inc"
#include "folderFaults.inc"
#include "useFaults.inc"
