; What takes away all that was installed, and nothing else.
!define SETTINGS "Software\Velk\velkviadd"

; $R0: a file's name. What a program holds gets another name at once, so that a later installation finds its place free,
; and goes at the next start.
Function un.RemoveFile
  Delete "$INSTDIR\$R0"
  ${IfNot} ${FileExists} "$INSTDIR\$R0"
    Return
  ${EndIf}
  StrCpy $IsLeft 1
  GetTempFileName $R1 "$INSTDIR"
  Delete "$R1"
  Push "$INSTDIR\$R0"
  Push "$R1"
  Call un.MoveFile
  Pop $R2
  ${If} $R2 = 0
    Delete /REBOOTOK "$R1"
  ${Else}
    Delete /REBOOTOK "$INSTDIR\$R0"
  ${EndIf}
FunctionEnd

!macro RemoveFile NAME
  StrCpy $R0 "${NAME}"
  Call un.RemoveFile
!macroend

; The answer is pushed. Says which step failed and why, and ends.
Function un.Fail
  Pop $0
  SetErrorLevel $0
  !insertmacro TellFailure
FunctionEnd

; The add-in's own entry point, of a copy that is sound whatever became of the installed one. A registration of another
; copy, elsewhere, stays.
Function un.Unregister
  Call un.RegisteredFile
  GetFullPathName $1 "$0"
  GetFullPathName $2 "$INSTDIR\${ADDIN}"
  ${If} $0 != "$INSTDIR\${ADDIN}"
  ${AndIf} $1 != $2
    Return
  ${EndIf}
  StrCpy $Step $(stepUnregister)
  !insertmacro Log $Step
  StrCpy $Outcome $(asBefore)
  !insertmacro ProbeKeys "un."
  ${If} $Code <> 0
    Push ${REGISTER_FAILED}
    Call un.Fail
  ${EndIf}
  ReadRegDWORD $LoadBehavior HKLM "${IDE_KEY}" "LoadBehavior"
  InitPluginsDir
  File "/oname=$PLUGINSDIR\${ADDIN}" "${FILES}/${ADDIN}"
  Push "$PLUGINSDIR\${ADDIN}"
  Push "DllUnregisterServer"
  Call un.CallEntry
  Pop $Code
  ${If} $Code == "0x00000000"
    Return
  ${EndIf}
  Push "$INSTDIR\${ADDIN}"
  Push "DllRegisterServer"
  Call un.CallEntry
  Pop $1
  ${If} $1 != "0x00000000"
    StrCpy $Outcome $(notAsBefore)
    Push ${NOT_TAKEN_BACK}
    Call un.Fail
  ${EndIf}
  ${If} $LoadBehavior != ""
    WriteRegDWORD HKLM "${IDE_KEY}" "LoadBehavior" $LoadBehavior
  ${EndIf}
  Push ${REGISTER_FAILED}
  Call un.Fail
FunctionEnd

; The entry under Programs, if it is this installation's: an uninstaller that was copied elsewhere has none. $R4: the
; topmost folder that the installation made, or nothing.
Function un.RemoveEntry
  StrCpy $R4 ""
  ReadRegStr $0 HKLM "${ENTRY}" "InstallLocation"
  GetFullPathName $1 "$0\${UNINSTALLER}"
  GetFullPathName $2 "$INSTDIR\${UNINSTALLER}"
  ${If} $0 != ""
  ${AndIf} $1 == $2
    ReadRegStr $R4 HKLM "${ENTRY}" "FolderMade"
    DeleteRegKey HKLM "${ENTRY}"
  ${EndIf}
FunctionEnd

Section "un.$(unAddin)" unAddin
  SectionIn RO
  SetDetailsPrint none
  SetOutPath "$TEMP" ; a folder in which a program is cannot go
  !insertmacro Log "${TITLE} ${VERSION}: $INSTDIR"
  Call un.RemoveOwnFolder
  Call un.Unregister
  Call un.RemoveEntry
  !insertmacro EachFile RemoveFile
  !insertmacro RemoveFile "${CHECKSUMS}"
  !insertmacro RemoveFile "${UNINSTALLER}"
  !insertmacro EachFolder RemoveFolder
  StrCpy $R1 $R4
  Call un.RemoveFoldersMade
  ${If} $IsLeft = 1
    SetErrorLevel ${AFTER_RESTART}
    !insertmacro Log $(unLeft)
  ${Else}
    SetErrorLevel ${DONE}
    !insertmacro Log $(unDone)
  ${EndIf}
SectionEnd

Section /o "un.$(unSettings)" unSettings
  DeleteRegKey HKCU "${SETTINGS}"
  DeleteRegKey /ifempty HKCU "Software\Velk"
SectionEnd

; The installer system lets the uninstaller run as a copy in a folder of its own, and has that copy go when Windows starts
; next. The folder is to go with it.
Function un.RemoveOwnFolder
  ${GetFileName} "$EXEDIR" $0
  StrCpy $0 $0 4
  ${If} $0 == "~nsu"
    System::Call 'kernel32::MoveFileExW(w "$EXEPATH", p 0, i ${AT_NEXT_START})'
    System::Call 'kernel32::MoveFileExW(w "$EXEDIR", p 0, i ${AT_NEXT_START})'
  ${EndIf}
FunctionEnd

Function un.onInit
  ${GetParameters} $Parameters
  !insertmacro OpenLog
  !insertmacro RefuseWithoutRights
  Call un.IsOtherAtWork
  Pop $0
  ${If} $0 = 1
    !insertmacro Refuse ${OTHER_AT_WORK} $(otherAtWork)
  ${EndIf}
  ClearErrors
  ${GetOptions} "$Parameters" "/PURGE" $0
  ${IfNot} ${Errors}
    SectionSetFlags ${unSettings} ${SF_SELECTED}
  ${EndIf}
  ClearErrors
FunctionEnd
