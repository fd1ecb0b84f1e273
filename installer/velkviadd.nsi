; The installer. scripts/make-setup calls makensis on it, with
;   VERSION  of the package, OUTPUT  the program to make
;   FILES    the folder of the files to install; among them the list of their checksums
;   MANIFEST the same files as macros: EachFile and EachFolder; LONGEST, the length of the longest name; and NEEDED_KB, the
;            room that they take
Unicode true
ManifestDPIAware true
SetDateSave off
SetCompressor /SOLID lzma
RequestExecutionLevel admin
AllowRootDirInstall false
ShowInstDetails show
ShowUninstDetails show
OutFile "${OUTPUT}"

!define TITLE "Velk Development Add-In for Visual Interdev"
!define PUBLISHER "Velk"
Name "Velk Development Add-In"
Caption "${TITLE} ${VERSION}"
UninstallCaption "${TITLE} ${VERSION}"
BrandingText "velkviadd ${VERSION}"
VIProductVersion "${VERSION}.0"
VIAddVersionKey "ProductName" "Velk Development Add-In"
VIAddVersionKey "ProductVersion" "${VERSION}"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "FileDescription" "${TITLE}, setup"
VIAddVersionKey "LegalCopyright" "${PUBLISHER}"

!include LogicLib.nsh
!include FileFunc.nsh
!include WordFunc.nsh
!include TextFunc.nsh
!include x64.nsh
!include MUI2.nsh
!include "${MANIFEST}"
!include codes.nsh
!include system.nsh

Var Log       ; handle of the log, or nothing
Var IsRepair  ; 1 if this very version is installed
Var Installed ; version that is installed, or nothing
Var InstalledIn ; the folder of that
Var Parameters

; Tells the user, and those who asked for a log. What the script's own commands say of themselves is of no use to either.
!macro Log TEXT
  SetDetailsPrint both
  DetailPrint "${TEXT}"
  SetDetailsPrint none
  ${If} $Log != ""
    FileWriteUTF16LE $Log "${TEXT}$\r$\n"
  ${EndIf}
!macroend

!macro OpenLog
  ClearErrors
  ${GetOptions} "$Parameters" "/LOG=" $0
  ${IfNot} ${Errors}
    FileOpen $Log "$0" w
    FileWriteUTF16LE /BOM $Log ""
  ${EndIf}
  ClearErrors
!macroend

; Ends before anything was done.
!macro Refuse ANSWER TEXT
  !insertmacro Log "${TEXT}"
  MessageBox MB_OK|MB_ICONEXCLAMATION "${TEXT}" /SD IDOK
  SetErrorLevel ${ANSWER}
  Quit
!macroend

!macro RefuseWithoutRights
  UserInfo::GetAccountType
  Pop $0
  ${If} $0 != "Admin"
    !insertmacro Refuse ${NO_RIGHTS} $(noRights)
  ${EndIf}
!macroend

!include find.nsh
!include change.nsh
!include uninstall.nsh
!include wizard.nsh

!insertmacro SystemFunctions ""
!insertmacro SystemFunctions "un."
!insertmacro FolderFunctions ""
!insertmacro FolderFunctions "un."
!insertmacro RegisteredFile ""
!insertmacro RegisteredFile "un."

; The same folder in the same words: without dots, and with long names as far as it is there.
Function WholePath
  Exch $0
  Push $1
  Push $2
  System::Call 'kernel32::GetFullPathNameW(w r0, i ${NSIS_MAX_STRLEN}, w .r1, p 0) i.r2'
  ${If} $2 > 0
  ${AndIf} $2 < ${NSIS_MAX_STRLEN}
    StrCpy $0 $1
  ${EndIf}
  System::Call 'kernel32::GetLongPathNameW(w r0, w .r1, i ${NSIS_MAX_STRLEN}) i.r2'
  ${If} $2 > 0
  ${AndIf} $2 < ${NSIS_MAX_STRLEN}
    StrCpy $0 $1
  ${EndIf}
  Pop $2
  Pop $1
  Exch $0
FunctionEnd

; $R0: what is wrong with $INSTDIR as a place to install into, or nothing; $R1: the answer for that.
Function CheckFolder
  StrCpy $R0 ""
  Push $INSTDIR
  Call WholePath
  Pop $INSTDIR
  StrLen $1 $INSTDIR
  ${If} $1 < 4 ; a whole drive
    StrCpy $R0 $(badFolder)
    StrCpy $R1 ${BAD_FOLDER}
    Return
  ${EndIf}
  ReadRegStr $0 HKLM "${ENTRY}" "InstallLocation"
  Push $0
  Call WholePath
  Pop $1
  ${If} $0 != ""
  ${AndIf} $1 != $INSTDIR
  ${AndIf} ${FileExists} "$0\${UNINSTALLER}"
    StrCpy $R0 $(elsewhere)
    StrCpy $R1 ${ELSEWHERE}
  ${EndIf}
  ; Windows takes 259 characters, and a file has to have room there while it waits for its turn.
  StrLen $1 "$INSTDIR\${NEW_FOLDER}\"
  IntOp $1 $1 + ${LONGEST}
  ${If} $1 > 259
    IntOp $1 $1 - 259
    StrCpy $R0 $(tooLong)
    StrCpy $R1 ${BAD_FOLDER}
  ${EndIf}
FunctionEnd

; What is installed already: by the entry under Programs, or by the file itself, whoever put it there. An entry whose
; folder has neither the add-in nor the tool any more says nothing.
Function FindInstalled
  ReadRegStr $0 HKLM "${ENTRY}" "InstallLocation"
  ${If} $0 != ""
    ${If} ${FileExists} "$0\${ADDIN}"
    ${OrIf} ${FileExists} "$0\${UNINSTALLER}"
    ${OrIf} ${FileExists} "$0\${LIBRARY}"
      StrCpy $Found $0
      StrCpy $FoundBy $(foundInstalled)
      StrCpy $InstalledIn $0
      ReadRegStr $Installed HKLM "${ENTRY}" "DisplayVersion"
      Return
    ${EndIf}
  ${EndIf}
  Call RegisteredFile
  ${GetParent} "$0" $1
  ${If} ${FileExists} "$0"
  ${AndIf} ${FileExists} "$1\${LIBRARY}"
    StrCpy $Found $1
    StrCpy $FoundBy $(foundInstalled)
    StrCpy $InstalledIn $1
    ClearErrors
    GetDLLVersion "$0" $1 $2
    ${IfNot} ${Errors}
      IntOp $3 $1 >> 16
      IntOp $4 $1 & 0xFFFF
      IntOp $5 $2 >> 16
      StrCpy $Installed "$3.$4.$5"
    ${EndIf}
  ${EndIf}
  ClearErrors
FunctionEnd

Function CompareVersions
  StrCpy $IsRepair 0
  ${If} $Installed == ""
    Return
  ${EndIf}
  ${VersionCompare} "$Installed" "${VERSION}" $0
  ${If} $0 = 0
    StrCpy $IsRepair 1
  ${ElseIf} $0 = 1
    ClearErrors
    ${GetOptions} "$Parameters" "/DOWNGRADE" $1
    ${If} ${Errors}
      !insertmacro Log $(newerThere)
      ${If} ${Cmd} 'MessageBox MB_YESNO|MB_ICONQUESTION|MB_DEFBUTTON2 $(askDowngrade) /SD IDNO IDNO'
        SetErrorLevel ${NEWER_THERE}
        Quit
      ${EndIf}
    ${EndIf}
    ClearErrors
  ${EndIf}
FunctionEnd

; The installer system leaves out a /D= whose folder it does not take (in quotes, not a whole path, on a drive that is not
; there), and says nothing. $R0: 1 if it did.
Function IsFolderLeftOut
  StrCpy $R0 0
  ${If} $INSTDIR != ""
    Return
  ${EndIf}
  System::Call 'kernel32::GetCommandLineW() w.r0'
  ClearErrors
  ${WordFindS} $0 "/D=" "E+1{" $1
  ${IfNot} ${Errors}
    StrCpy $R0 1
  ${EndIf}
  ClearErrors
FunctionEnd

Function ChooseFolder
  Call IsFolderLeftOut
  ${If} $R0 = 1
    !insertmacro Refuse ${BAD_FOLDER} $(badFolder)
  ${EndIf}
  Call FindInstalled
  StrCpy $0 $Found
  ${If} $INSTDIR != "" ; by /D=
    StrCpy $Found $INSTDIR
    StrCpy $FoundBy $(foundGiven)
  ${ElseIf} $0 == ""
    Call FindTool
    ${If} $Found == ""
      ${If} ${Silent}
        !insertmacro Refuse ${NOT_FOUND} $(notFoundSilent)
      ${EndIf}
      StrCpy $Found "$PROGRAMFILES32\Velk\velkviadd"
    ${EndIf}
  ${EndIf}
  StrCpy $INSTDIR $Found
FunctionEnd

Function .onInit
  ${GetParameters} $Parameters
  !insertmacro OpenLog
  !insertmacro RefuseWithoutRights
  Call IsOtherAtWork
  Pop $0
  ${If} $0 = 1
    !insertmacro Refuse ${OTHER_AT_WORK} $(otherAtWork)
  ${EndIf}
  Call ChooseFolder
  Call CompareVersions
  ${If} ${Silent}
    Call CheckFolder
    ${If} $R0 != ""
      !insertmacro Log $R0
      SetErrorLevel $R1
      Quit
    ${EndIf}
  ${EndIf}
FunctionEnd

Section
  AddSize ${NEEDED_KB}
  ${If} $Found != $INSTDIR
    StrCpy $FoundBy ""
  ${EndIf}
  !insertmacro Log "${TITLE} ${VERSION}: $INSTDIR"
  Call ChangeAll
  !insertmacro Log $(done)
  SetErrorLevel ${DONE}
SectionEnd

Function .onInstFailed
  Call TakeBack
FunctionEnd
