; Where the tool is: the folder of its library. In this order: where the add-in is already, what the caller says, PATH,
; and what programs tell of themselves when they are installed.
!define LIBRARY "velkvsadd.dll"
!define WINDOWS_VERSION "Software\Microsoft\Windows\CurrentVersion"

Var Found   ; the folder, or nothing
Var FoundBy ; how: a text for the user

; $R9: something in which a program's folder may be: a folder, a file in it, with quotes or arguments behind it.
Function TryPlace
  ${If} $Found != ""
  ${OrIf} $R9 == ""
    Return
  ${EndIf}
  Push $0
  ExpandEnvStrings $R9 $R9
  StrCpy $0 $R9 1
  ${If} $0 == '"'
    StrCpy $R9 $R9 "" 1
    ${WordFind} "$R9" '"' "+1{" $R9
  ${EndIf}
  StrCpy $0 $R9 1 -1
  ${If} $0 == "\"
  ${OrIf} $0 == ";"
    StrCpy $R9 $R9 -1
  ${EndIf}
  Call TryFolder
  ${GetParent} "$R9" $R9
  Call TryFolder
  Pop $0
FunctionEnd

Function TryFolder
  Push $0
  StrCpy $0 $R9 1 1
  ${If} $0 == ":"
  ${OrIf} $0 == "\"
    ${If} $Found == ""
    ${AndIf} ${FileExists} "$R9\${LIBRARY}"
      StrCpy $Found $R9
    ${EndIf}
    ${If} $Found == ""
    ${AndIf} ${FileExists} "$R9\bin\${LIBRARY}"
      StrCpy $Found "$R9\bin"
    ${EndIf}
  ${EndIf}
  Pop $0
FunctionEnd

; PATH may be longer than a text of this script, so the system reads it.
Function FindOnPath
  System::Call 'kernel32::GetEnvironmentVariableW(w "PATH", p 0, i 0) i.r0'
  ${If} $0 = 0
    Return
  ${EndIf}
  IntOp $1 $0 * 2
  System::Alloc $1
  Pop $2
  System::Call 'kernel32::GetEnvironmentVariableW(w "PATH", p r2, i r0)'
  System::Call 'kernel32::SearchPathW(p r2, w "${LIBRARY}", p 0, i ${NSIS_MAX_STRLEN}, w .r3, p 0) i.r4'
  System::Free $2
  ${If} $4 > 0
  ${AndIf} $4 < ${NSIS_MAX_STRLEN}
    ${GetParent} "$3" $R9
    Call TryFolder
  ${EndIf}
FunctionEnd

!macro TryValuesOfEach ROOT KEY VALUE
  StrCpy $0 0
  ${Do}
    EnumRegKey $1 ${ROOT} "${KEY}" $0
    ${If} $1 == ""
    ${OrIf} $Found != ""
      ${ExitDo}
    ${EndIf}
    ReadRegStr $R9 ${ROOT} "${KEY}\$1" "${VALUE}"
    Call TryPlace
    IntOp $0 $0 + 1
  ${Loop}
!macroend

!macro TryFilesOfEach ROOT KEY ; whose values are named after files
  StrCpy $0 0
  ${Do}
    EnumRegValue $R9 ${ROOT} "${KEY}" $0
    ${If} $R9 == ""
    ${OrIf} $Found != ""
      ${ExitDo}
    ${EndIf}
    ${GetFileName} "$R9" $1
    ${If} $1 == "${LIBRARY}"
      Call TryPlace
    ${EndIf}
    IntOp $0 $0 + 1
  ${Loop}
!macroend

Function FindRegistered
  !insertmacro TryValuesOfEach HKLM "${WINDOWS_VERSION}\App Paths" ""
  !insertmacro TryValuesOfEach HKLM "${WINDOWS_VERSION}\App Paths" "Path"
  !insertmacro TryValuesOfEach HKLM "${WINDOWS_VERSION}\Uninstall" "InstallLocation"
  !insertmacro TryValuesOfEach HKLM "${WINDOWS_VERSION}\Uninstall" "DisplayIcon"
  !insertmacro TryFilesOfEach HKLM "${WINDOWS_VERSION}\SharedDLLs"
  !insertmacro TryValuesOfEach HKCU "${WINDOWS_VERSION}\App Paths" ""
  !insertmacro TryValuesOfEach HKCU "${WINDOWS_VERSION}\Uninstall" "InstallLocation"
FunctionEnd

Function FindTool
  StrCpy $FoundBy $(foundOnPath)
  Call FindOnPath
  ${If} $Found == ""
    StrCpy $FoundBy $(foundRegistered)
    Call FindRegistered
  ${EndIf}
  ${If} $Found == ""
  ${AndIf} ${RunningX64} ; a 32-bit program registers in the one view, its 64-bit installer in the other
    SetRegView 64
    Call FindRegistered
    SetRegView 32
  ${EndIf}
  ${If} $Found == ""
    StrCpy $FoundBy ""
  ${EndIf}
FunctionEnd
