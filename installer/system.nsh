; What of Windows is called directly, for the reason of a failure: the script's own commands do not give it. What the
; uninstaller calls, too, is there twice; UN is "un." then.
!define GENERIC_READ 0x80000000
!define READ_WRITE_DELETE 0xC0010000
!define SHARE_ALL 7
!define OPEN_EXISTING 3
!define PAGE_READONLY 2
!define FILE_MAP_READ 4
!define LOAD_WITH_ALTERED_SEARCH_PATH 8
!define LOCAL_MACHINE 0x80000002
!define WRITE_AND_DELETE 0x30006
!define ERROR_FILE_NOT_FOUND 2
!define ERROR_SHARING_VIOLATION 32
!define ERROR_USER_MAPPED_FILE 1224
!define ERROR_ALREADY_EXISTS 183
!define ERROR_DISK_FULL 112
!define SYSTEM_TEXT 0x1200 ; the system's own, as it is
!define AT_NEXT_START 4
!define PROV_RSA_AES 24
!define CRYPT_VERIFYCONTEXT 0xF0000000
!define CALG_SHA_256 0x800C
!define HP_HASHVAL 2
!define HASH_BYTES 32

!macro SystemFunctions UN

; Pushed: a file, its new name. Pops: 0, or the code of the failure.
Function ${UN}MoveFile
  Exch $1 ; to
  Exch
  Exch $0 ; from
  Push $2
  Push $3
  System::Call 'kernel32::MoveFileW(w r0, w r1) i.r2 ?e'
  Pop $3
  ${If} $2 <> 0
    StrCpy $3 0
  ${EndIf}
  StrCpy $0 $3
  Pop $3
  Pop $2
  Exch
  Pop $1
  Exch $0
FunctionEnd

; Pushed: a library and one of its entry points without arguments. Pops: what that answered, or why it could not be
; called, as an HRESULT; 0x00000000 is success.
Function ${UN}CallEntry
  Exch $1 ; the entry point
  Exch
  Exch $0 ; the library
  Push $2
  Push $3
  Push $4
  System::Call 'kernel32::LoadLibraryExW(w r0, p 0, i ${LOAD_WITH_ALTERED_SEARCH_PATH}) p.r2 ?e'
  Pop $4
  ${If} $2 P<> 0
    System::Call 'kernel32::GetProcAddress(p r2, m r1) p.r3 ?e'
    Pop $4
    ${If} $3 P<> 0
      System::Call '::$3() i.r4'
    ${Else}
      IntOp $4 $4 | 0x80070000
    ${EndIf}
    System::Call 'kernel32::FreeLibrary(p r2)'
  ${Else}
    IntOp $4 $4 | 0x80070000
  ${EndIf}
  IntFmt $0 "0x%08X" $4
  Pop $4
  Pop $3
  Pop $2
  Exch
  Pop $1
  Exch $0
FunctionEnd

; Pushed: a key of the machine. Pops: 0 if it can be written and removed, or is not there; else the code of the failure.
Function ${UN}CanChange
  Exch $0
  Push $1
  Push $2
  System::Call 'advapi32::RegOpenKeyExW(p ${LOCAL_MACHINE}, w r0, i 0, i ${WRITE_AND_DELETE}, *p .r1) i.r2'
  ${If} $2 = 0
    System::Call 'advapi32::RegCloseKey(p r1)'
  ${ElseIf} $2 = ${ERROR_FILE_NOT_FOUND}
    StrCpy $2 0
  ${EndIf}
  StrCpy $0 $2
  Pop $2
  Pop $1
  Exch $0
FunctionEnd

; One at a time: a second one would take apart what the first is putting together. Pops: 1 if another is at work.
Function ${UN}IsOtherAtWork
  Push $0
  Push $1
  System::Call 'kernel32::CreateMutexW(p 0, i 0, w "velkviadd-setup") p.r0 ?e'
  Pop $1
  StrCpy $0 0
  ${If} $1 = ${ERROR_ALREADY_EXISTS}
    StrCpy $0 1
  ${EndIf}
  Pop $1
  Exch $0
FunctionEnd

!macroend

; Pushed: a file, its copy's name. Pops: 0, or the code of the failure.
Function CopyFile
  Exch $1
  Exch
  Exch $0
  Push $2
  Push $3
  System::Call 'kernel32::CopyFileW(w r0, w r1, i 0) i.r2 ?e'
  Pop $3
  ${If} $2 <> 0
    StrCpy $3 0
    System::Call 'kernel32::SetFileAttributesW(w r1, i 128)'
  ${EndIf}
  StrCpy $0 $3
  Pop $3
  Pop $2
  Exch
  Pop $1
  Exch $0
FunctionEnd

; Pushed: a folder whose parent is there. Pops: 0 (also if it was there before), or the code of the failure.
Function MakeFolder
  Exch $0
  Push $1
  Push $2
  System::Call 'kernel32::CreateDirectoryW(w r0, p 0) i.r1 ?e'
  Pop $2
  ${If} $1 <> 0
  ${OrIf} $2 = ${ERROR_ALREADY_EXISTS}
    StrCpy $2 0
  ${EndIf}
  StrCpy $0 $2
  Pop $2
  Pop $1
  Exch $0
FunctionEnd

; Pushed: a file. Pops: 1 if a program has it open or has loaded it, 0 if not (also if there is none).
Function IsInUse
  Exch $0
  Push $1
  Push $2
  System::Call 'kernel32::CreateFileW(w r0, i ${READ_WRITE_DELETE}, i 0, p 0, i ${OPEN_EXISTING}, i 0, p 0) p.r1 ?e'
  Pop $2
  StrCpy $0 0
  ${If} $1 P<> -1
    System::Call 'kernel32::CloseHandle(p r1)'
  ${ElseIf} $2 = ${ERROR_SHARING_VIOLATION}
  ${OrIf} $2 = ${ERROR_USER_MAPPED_FILE}
    StrCpy $0 1
  ${EndIf}
  Pop $2
  Pop $1
  Exch $0
FunctionEnd


; Pushed: a file. Pops: its SHA-256 in hexadecimal, or nothing when it cannot be had (XP before its third service pack
; does not know how; then nothing is known of a file, and it is replaced).
Function HashOf
  Exch $0
  Push $1
  Push $2
  Push $3
  Push $4
  Push $5
  Push $6
  Push $7
  Push $8
  Push $9
  StrCpy $9 ""
  System::Call 'kernel32::CreateFileW(w r0, i ${GENERIC_READ}, i ${SHARE_ALL}, p 0, i ${OPEN_EXISTING}, i 0, p 0) p.r1'
  ${If} $1 P<> -1
    System::Call 'kernel32::GetFileSize(p r1, p 0) i.r2'
    System::Call 'kernel32::CreateFileMappingW(p r1, p 0, i ${PAGE_READONLY}, i 0, i 0, p 0) p.r3'
    System::Call 'kernel32::MapViewOfFile(p r3, i ${FILE_MAP_READ}, i 0, i 0, p 0) p.r4'
    ${If} $4 P<> 0
      Call HashOfView
      System::Call 'kernel32::UnmapViewOfFile(p r4)'
    ${EndIf}
    ${If} $3 P<> 0
      System::Call 'kernel32::CloseHandle(p r3)'
    ${EndIf}
    System::Call 'kernel32::CloseHandle(p r1)'
  ${EndIf}
  StrCpy $0 $9
  Pop $9
  Pop $8
  Pop $7
  Pop $6
  Pop $5
  Pop $4
  Pop $3
  Pop $2
  Pop $1
  Exch $0
FunctionEnd

; $2 bytes at $4; the result is $9.
Function HashOfView
  System::Call 'advapi32::CryptAcquireContextW(*p .r5, p 0, p 0, i ${PROV_RSA_AES}, i ${CRYPT_VERIFYCONTEXT}) i.r6'
  ${If} $6 = 0
    Return
  ${EndIf}
  System::Call 'advapi32::CryptCreateHash(p r5, i ${CALG_SHA_256}, p 0, i 0, *p .r7) i.r6'
  ${If} $6 <> 0
    System::Call 'advapi32::CryptHashData(p r7, p r4, i r2, i 0) i.r6'
    System::Alloc ${HASH_BYTES}
    Pop $8
    System::Call 'advapi32::CryptGetHashParam(p r7, i ${HP_HASHVAL}, p r8, *i ${HASH_BYTES}, i 0) i.r6'
    ${If} $6 <> 0
      Call HashDigits
    ${EndIf}
    System::Free $8
    System::Call 'advapi32::CryptDestroyHash(p r7)'
  ${EndIf}
  System::Call 'advapi32::CryptReleaseContext(p r5, i 0)'
FunctionEnd

Function HashDigits
  Push $0
  Push $1
  ${For} $0 1 ${HASH_BYTES}
    System::Call '*$8(&i1 .r1)'
    IntOp $1 $1 & 0xFF
    IntFmt $1 "%02x" $1
    StrCpy $9 "$9$1"
    IntPtrOp $8 $8 + 1
  ${Next}
  IntPtrOp $8 $8 - ${HASH_BYTES}
  Pop $1
  Pop $0
FunctionEnd
