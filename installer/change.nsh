; What is done to the machine, and how it is taken back. All that is new stands in $New (below the folder it goes to, so
; that moving it is a matter of names), what it replaces goes to $Old; a journal says in which order.
!define NEW_FOLDER "velk~new"
!define OLD_FOLDER "velk~old"
!define CHECKSUMS "velkviadd.sha256"
!define UNINSTALLER "velkviadd-uninstall.exe"
!define ADDIN "velkviadd.dll"
!define ENTRY "${WINDOWS_VERSION}\Uninstall\velkviadd"
!define PROGRAM_KEY "Software\Classes\velkviadd.Connect"
!define IDE_KEY "Software\Microsoft\VisualStudio\6.0\AddIns\velkviadd.Connect"

Var Payload      ; where the package's files are before they are installed
Var New
Var Old
Var IsLeft       ; 1 if something in use goes when Windows starts next
Var Journal      ; handle of the list of files that were put in place or taken away
Var FolderMade   ; the topmost folder that the installation makes, or nothing
Var FolderMadeNow
Var Registered   ; the file that was registered before, or nothing
Var LoadBehavior ; as it was before: the user may have switched the add-in off
Var IsRegistered ; 1 from when the new one began to register
Var EntryBefore  ; the version under Programs before, or nothing
Var SizeBefore
Var IsChanging   ; 1 while there is something to take back
Var IsNotAsBefore ; 1 if something could not be put back
Var Outcome      ; what became of the rest when a step failed, for the user
Var Step         ; what is being done, for the user
Var Code         ; why it failed
Var Reason       ; the system's words for that, if it has some

; $Step, $Code and $Outcome, in a box and the log; ends it all.
!macro TellFailure
  System::Call 'kernel32::FormatMessageW(i ${SYSTEM_TEXT}, p 0, i $Code, i 0, w .r1, i ${NSIS_MAX_STRLEN}, p 0)'
  ${TrimNewLines} $1 $Reason
  !insertmacro Log $(failed)
  MessageBox MB_OK|MB_ICONSTOP $(failed) /SD IDOK
  Abort $(failed)
!macroend

; $Code of the step that is being done: anything but 0 ends it all.
!macro EndIfFailed ANSWER
  ${If} $Code != 0
    Push ${ANSWER}
    Call Fail
  ${EndIf}
!macroend

; $R0: a folder; makes it with those above it, and remembers the topmost that was not there.
Function MakeWholeFolder
  ${If} ${FileExists} "$R0\*.*"
    Return
  ${EndIf}
  Push $R0
  ${GetParent} "$R0" $R0
  ${If} $R0 != ""
    Call MakeWholeFolder
  ${EndIf}
  Pop $R0
  ${If} $Code == 0
    Push $R0
    Call MakeFolder
    Pop $Code
    ${If} $Code == 0
    ${AndIf} $FolderMadeNow == ""
      StrCpy $FolderMadeNow $R0
    ${EndIf}
  ${EndIf}
FunctionEnd

; Removes the installation's folder and those above it that an installation made, as long as they are empty.
!macro FolderFunctions UN
Function ${UN}RemoveFoldersMade ; $R1: the topmost
  ${If} $R1 == ""
    Return
  ${EndIf}
  Push $R0
  StrCpy $R0 $INSTDIR
  ${Do}
    RMDir "$R0"
    ${If} $IsLeft = 1
      RMDir /REBOOTOK "$R0"
    ${EndIf}
    ${If} $R0 == $R1
      ${ExitDo}
    ${EndIf}
    StrLen $R2 $R0
    StrLen $R3 $R1
    ${If} $R2 <= $R3
      ${ExitDo}
    ${EndIf}
    ${GetParent} "$R0" $R0
  ${Loop}
  Pop $R0
FunctionEnd
!macroend

; --- Preparing: nothing is replaced yet -----------------------------------------------------------------------------

; All that is to be installed, in a place of the installer's own.
Function Unpack
  StrCpy $Payload "$PLUGINSDIR\files"
  SetOutPath "$Payload"
  File /r "${FILES}/*.*"
  WriteUninstaller "$Payload\${UNINSTALLER}"
  SetOutPath "$TEMP" ; a folder in which a program is cannot go
  Push "$Payload\${UNINSTALLER}"
  Call HashOf
  Pop $0
  ${If} $0 != ""
    FileOpen $1 "$Payload\${CHECKSUMS}" a
    FileSeek $1 0 END
    FileWrite $1 "$0 *${UNINSTALLER}$\n"
    FileClose $1
  ${EndIf}
FunctionEnd

; $R0: a file's name. $R1 is 1 if it is not installed as the package has it.
Function IsToBeChanged
  StrCpy $R1 1
  ${IfNot} ${FileExists} "$INSTDIR\$R0"
    Return
  ${EndIf}
  Push "$Payload\$R0"
  Call HashOf
  Pop $R2
  Push "$INSTDIR\$R0"
  Call HashOf
  Pop $R3
  ${If} $R2 != ""
  ${AndIf} $R2 == $R3
    StrCpy $R1 0
  ${EndIf}
FunctionEnd

; $R0: a file's name. A program that holds it can be ended, and then it is tried again.
Function WaitUntilFree
  Call IsToBeChanged
  ${If} $R1 = 0
    Return
  ${EndIf}
  ${Do}
    Push "$INSTDIR\$R0"
    Call IsInUse
    Pop $R2
    ${If} $R2 = 0
      ${ExitDo}
    ${EndIf}
    !insertmacro Log $(inUse)
    ${If} ${Cmd} 'MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION $(inUse) /SD IDCANCEL IDCANCEL'
      SetErrorLevel ${IN_USE}
      Abort $(inUse)
    ${EndIf}
  ${Loop}
FunctionEnd

!macro WaitUntilFree NAME
  StrCpy $R0 "${NAME}"
  Call WaitUntilFree
!macroend

; $R0: a file's name; its copy goes to $New if it is to be changed.
Function Stage
  Call IsToBeChanged
  ${If} $R1 = 0
    Return
  ${EndIf}
  ${If} $IsRepair = 1
  ${AndIf} $R0 != "${CHECKSUMS}"
    ${If} ${FileExists} "$INSTDIR\$R0"
      !insertmacro Log $(wasChanged)
    ${Else}
      !insertmacro Log $(wasMissing)
    ${EndIf}
  ${EndIf}
  Push "$Payload\$R0"
  Push "$New\$R0"
  Call CopyFile
  Pop $Code
  !insertmacro EndIfFailed ${COPY_FAILED}
FunctionEnd

!macro Stage NAME
  StrCpy $R0 "${NAME}"
  Call Stage
!macroend

!macro MakeStageFolder NAME
  Push "$New\${NAME}"
  Call MakeFolder
  Pop $Code
  !insertmacro EndIfFailed ${COPY_FAILED}
!macroend

Function StageAll
  StrCpy $Step $(stepCopy)
  !insertmacro Log $Step
  StrCpy $R0 $INSTDIR
  Call MakeWholeFolder
  !insertmacro EndIfFailed ${COPY_FAILED}
  RMDir /r "$New"
  RMDir /r "$Old"
  Push $New
  Call MakeFolder
  Pop $Code
  !insertmacro EndIfFailed ${COPY_FAILED}
  Push $Old
  Call MakeFolder
  Pop $Code
  !insertmacro EndIfFailed ${COPY_FAILED}
  !insertmacro EachFolder MakeStageFolder
  !insertmacro EachFile Stage
  !insertmacro Stage "${UNINSTALLER}"
  !insertmacro Stage "${CHECKSUMS}"
FunctionEnd

; --- Replacing ------------------------------------------------------------------------------------------------------

; $R0: a file's name, $R1: + if another comes in its place, - if it goes.
Function WriteDown
  ClearErrors
  FileWrite $Journal "$R1$R0$\n"
  ${If} ${Errors}
    StrCpy $Code ${ERROR_DISK_FULL}
  ${EndIf}
  !insertmacro EndIfFailed ${COPY_FAILED}
FunctionEnd

; $R0: a file's name; what is there goes aside.
Function PutAside
  Call WriteDown
  ${IfNot} ${FileExists} "$INSTDIR\$R0"
    Return
  ${EndIf}
  ${GetParent} "$Old\$R0" $R1
  Push $R1
  Call MakeFolder
  Pop $Code
  !insertmacro EndIfFailed ${COPY_FAILED}
  Push "$INSTDIR\$R0"
  Push "$Old\$R0"
  Call MoveFile
  Pop $Code
  !insertmacro EndIfFailed ${COPY_FAILED}
FunctionEnd

Function Replace
  ${IfNot} ${FileExists} "$New\$R0"
    Return
  ${EndIf}
  StrCpy $R1 "+"
  Call PutAside
  Push "$New\$R0"
  Push "$INSTDIR\$R0"
  Call MoveFile
  Pop $Code
  !insertmacro EndIfFailed ${COPY_FAILED}
FunctionEnd

!macro Replace NAME
  StrCpy $R0 "${NAME}"
  Call Replace
!macroend

!macro MakeInstalledFolder NAME
  Push "$INSTDIR\${NAME}"
  Call MakeFolder
  Pop $Code
  !insertmacro EndIfFailed ${COPY_FAILED}
!macroend

; What an older version installed and this one has no more: the list of its checksums names it.
Function PutAsideLeftovers
  ClearErrors
  FileOpen $R8 "$INSTDIR\${CHECKSUMS}" r
  ${If} ${Errors}
    Return
  ${EndIf}
  ${Do}
    FileRead $R8 $R0
    ${If} ${Errors}
      ${ExitDo}
    ${EndIf}
    ${TrimNewLines} $R0 $R0
    StrCpy $R0 $R0 "" 66 ; behind the checksum, a blank and the mark of a binary file
    ${WordReplace} $R0 "/" "\" "+" $R0
    ${WordFind} $R0 ".." "E+1{" $R1 ; nothing outside of the folder, whoever wrote the list
    IfErrors 0 skip
    ClearErrors
    ${WordFind} $R0 ":" "E+1{" $R1
    IfErrors 0 skip
    ${If} $R0 != ""
    ${AndIf} ${FileExists} "$INSTDIR\$R0"
    ${AndIfNot} ${FileExists} "$Payload\$R0"
      StrCpy $R1 "-"
      Call PutAside
      ${GetParent} "$INSTDIR\$R0" $R1
      RMDir "$R1" ; if that was all that was in it
    ${EndIf}
    skip:
    ClearErrors
  ${Loop}
  FileClose $R8
FunctionEnd

Function ReplaceAll
  StrCpy $Step $(stepReplace)
  !insertmacro Log $Step
  FileOpen $Journal "$PLUGINSDIR\journal" w
  Call PutAsideLeftovers
  !insertmacro EachFolder MakeInstalledFolder
  !insertmacro EachFile Replace
  !insertmacro Replace "${UNINSTALLER}"
  !insertmacro Replace "${CHECKSUMS}"
FunctionEnd

; --- Registering ----------------------------------------------------------------------------------------------------

; The file that is registered as the add-in: $0, or nothing.
!macro RegisteredFile UN
Function ${UN}RegisteredFile
  ReadRegStr $0 HKLM "${PROGRAM_KEY}\CLSID" ""
  ${If} $0 != ""
    ReadRegStr $0 HKLM "Software\Classes\CLSID\$0\InprocServer32" ""
  ${EndIf}
FunctionEnd
!macroend

; $Code: whether the add-in's keys can be changed. What registers and unregisters would find out half-way, and what was
; registered before could not be registered again.
!macro ProbeKeys UN
  Push "${IDE_KEY}"
  Call ${UN}CanChange
  Pop $Code
  ${If} $Code = 0
    Push "${PROGRAM_KEY}"
    Call ${UN}CanChange
    Pop $Code
  ${EndIf}
!macroend

Function Register
  StrCpy $Step $(stepRegister)
  !insertmacro Log $Step
  !insertmacro ProbeKeys ""
  !insertmacro EndIfFailed ${REGISTER_FAILED}
  StrCpy $IsRegistered 1
  Push "$INSTDIR\${ADDIN}"
  Push "DllRegisterServer"
  Call CallEntry
  Pop $Code
  ${If} $Code == "0x00000000"
    StrCpy $Code 0
  ${EndIf}
  !insertmacro EndIfFailed ${REGISTER_FAILED}
  ${If} $IsRepair = 0
  ${AndIf} $LoadBehavior != ""
    WriteRegDWORD HKLM "${IDE_KEY}" "LoadBehavior" $LoadBehavior
  ${EndIf}
FunctionEnd

Function WriteEntry
  StrCpy $Step $(stepEntry)
  !insertmacro Log $Step
  ${GetSize} "$Payload" "/S=0K" $0 $1 $2
  ClearErrors
  WriteRegStr HKLM "${ENTRY}" "DisplayName" "${TITLE}"
  WriteRegStr HKLM "${ENTRY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKLM "${ENTRY}" "DisplayIcon" "$INSTDIR\${ADDIN},0"
  WriteRegStr HKLM "${ENTRY}" "Publisher" "${PUBLISHER}"
  WriteRegStr HKLM "${ENTRY}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKLM "${ENTRY}" "UninstallString" '"$INSTDIR\${UNINSTALLER}"'
  WriteRegStr HKLM "${ENTRY}" "QuietUninstallString" '"$INSTDIR\${UNINSTALLER}" /S'
  WriteRegDWORD HKLM "${ENTRY}" "EstimatedSize" $0
  WriteRegDWORD HKLM "${ENTRY}" "NoModify" 1
  WriteRegDWORD HKLM "${ENTRY}" "NoRepair" 1
  ${If} $FolderMade != ""
    WriteRegStr HKLM "${ENTRY}" "FolderMade" "$FolderMade"
  ${EndIf}
  ${If} ${Errors}
    StrCpy $Code "0x80070005"
  ${EndIf}
  ${If} $FolderMade == "" ; an entry of an installation that is gone may say otherwise
    DeleteRegValue HKLM "${ENTRY}" "FolderMade"
  ${EndIf}
  !insertmacro EndIfFailed ${COPY_FAILED}
FunctionEnd

; --- The whole ------------------------------------------------------------------------------------------------------

Function RememberBefore
  Call RegisteredFile
  StrCpy $Registered $0
  ReadRegDWORD $LoadBehavior HKLM "${IDE_KEY}" "LoadBehavior"
  ReadRegStr $EntryBefore HKLM "${ENTRY}" "DisplayVersion"
  ReadRegDWORD $SizeBefore HKLM "${ENTRY}" "EstimatedSize"
  ReadRegStr $0 HKLM "${ENTRY}" "InstallLocation"
  ${If} $0 == $INSTDIR
    ReadRegStr $FolderMade HKLM "${ENTRY}" "FolderMade"
  ${EndIf}
  ClearErrors
FunctionEnd

Function ChangeAll
  StrCpy $New "$INSTDIR\${NEW_FOLDER}"
  StrCpy $Old "$INSTDIR\${OLD_FOLDER}"
  StrCpy $Code 0
  Call RememberBefore
  Call Unpack
  !insertmacro EachFile WaitUntilFree
  StrCpy $IsChanging 1
  Call StageAll
  ${If} $FolderMade == ""
    StrCpy $FolderMade $FolderMadeNow
  ${EndIf}
  Call ReplaceAll
  Call Register
  Call WriteEntry
  StrCpy $IsChanging 0
  FileClose $Journal
  SetDetailsPrint none
  RMDir /r "$New"
  RMDir /r /REBOOTOK "$Old"
FunctionEnd

; The answer is pushed. Takes all back, says which step failed and why, and ends.
Function Fail
  StrCpy $Outcome $(asBefore)
  Call TakeBack
  Pop $0
  ${If} $IsNotAsBefore = 1
    StrCpy $Outcome $(notAsBefore)
    StrCpy $0 ${NOT_TAKEN_BACK}
  ${EndIf}
  SetErrorLevel $0
  !insertmacro TellFailure
FunctionEnd

Function TakeBackFiles
  ${If} $Journal == ""
    Return
  ${EndIf}
  FileClose $Journal
  StrCpy $Journal ""
  ClearErrors
  FileOpen $R8 "$PLUGINSDIR\journal" r
  ${Do}
    FileRead $R8 $R0
    ${If} ${Errors}
      ${ExitDo}
    ${EndIf}
    ${TrimNewLines} $R0 $R0
    StrCpy $R1 $R0 1
    StrCpy $R0 $R0 "" 1
    Call TakeBackFile
    ClearErrors
  ${Loop}
  FileClose $R8
FunctionEnd

; $R0: a file's name, $R1: + if another came in its place.
Function TakeBackFile
  ${If} ${FileExists} "$Old\$R0"
    Call TakeAway
    ${GetParent} "$INSTDIR\$R0" $R2
    Push $R2
    Call MakeFolder
    Pop $R2
    Push "$Old\$R0"
    Push "$INSTDIR\$R0"
    Call MoveFile
    Pop $R2
    ${If} $R2 <> 0
      StrCpy $IsNotAsBefore 1
    ${EndIf}
  ${ElseIf} $R1 == "+"
  ${AndIfNot} ${FileExists} "$New\$R0"
    Call TakeAway
  ${EndIf}
FunctionEnd

; $R0: the name of a file that was put in place. It cannot be deleted while it is in use, but it can go back.
Function TakeAway
  Push "$INSTDIR\$R0"
  Push "$New\$R0"
  Call MoveFile
  Pop $R2
  ${If} $R2 <> 0
  ${AndIf} ${FileExists} "$INSTDIR\$R0"
    StrCpy $IsNotAsBefore 1
  ${EndIf}
FunctionEnd

Function TakeBackRegistration
  ${If} $IsRegistered != 1
    Return
  ${EndIf}
  StrCpy $IsRegistered 0
  Push "$INSTDIR\${ADDIN}"
  Push "DllUnregisterServer"
  Call CallEntry
  Pop $R1
FunctionEnd

Function TakeBackEntry
  ${If} $EntryBefore == ""
    DeleteRegKey HKLM "${ENTRY}"
  ${Else}
    WriteRegStr HKLM "${ENTRY}" "DisplayVersion" "$EntryBefore"
    ${If} $SizeBefore != ""
      WriteRegDWORD HKLM "${ENTRY}" "EstimatedSize" $SizeBefore
    ${EndIf}
  ${EndIf}
FunctionEnd

Function RegisterBefore
  ${If} $Registered == ""
    Return
  ${EndIf}
  Push $Registered
  Push "DllRegisterServer"
  Call CallEntry
  Pop $R1
  ${If} $R1 != "0x00000000"
    StrCpy $IsNotAsBefore 1
  ${EndIf}
  ${If} $LoadBehavior != ""
    WriteRegDWORD HKLM "${IDE_KEY}" "LoadBehavior" $LoadBehavior
  ${EndIf}
FunctionEnd

!macro RemoveFolder NAME
  RMDir "$INSTDIR\${NAME}"
!macroend

Function TakeBack
  ${If} $IsChanging != 1
    Return
  ${EndIf}
  StrCpy $IsChanging 0
  Push $IsRegistered
  Call TakeBackRegistration
  Call TakeBackFiles
  RMDir /r /REBOOTOK "$New"
  ${If} $IsNotAsBefore != 1
    RMDir /r "$Old"
  ${EndIf}
  !insertmacro EachFolder RemoveFolder
  Pop $0
  ${If} $0 = 1
    Call RegisterBefore
    Call TakeBackEntry
  ${EndIf}
  StrCpy $R1 $FolderMadeNow
  Call RemoveFoldersMade
FunctionEnd
